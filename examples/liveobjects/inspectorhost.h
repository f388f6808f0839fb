#ifndef INSPECTORHOST_H
#define INSPECTORHOST_H

#include "qtinspectorview.h"

/// A view with the metrics and colours of the application.
class CDemoView : public CQTInspectorView
{
    Q_OBJECT

public:
    CDemoView();

    /// As high as the font.
    int GetGroupLabelHeight() override;

protected:
    void changeEvent(QEvent* in_pEvent) override;

private:
    void TakeColours();
};

/// A view as one widget among others in a layout: passes on the size that the layout gives.
class CInspectorHost : public QWidget
{
    Q_OBJECT

public:
    CInspectorHost();

    CDemoView* GetView() const { return m_pView; }

public slots:
    /// To be called when the view got other rows: its size stays, so nothing else lays them out.
    void LayOutNewPage();

protected:
    void resizeEvent(QResizeEvent* in_pEvent) override;

private:
    CDemoView* m_pView; ///< a child
};

#endif
