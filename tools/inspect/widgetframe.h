#ifndef WIDGETFRAME_H
#define WIDGETFRAME_H

#include "apartwindow.h"

#include <QPointer>

/// A frame round a widget of the program, in a window of its own that lets everything through. It follows the widget,
/// and shows while the widget can be seen.
class CWidgetFrame : public CApartWindow
{
    Q_OBJECT

public:
    explicit CWidgetFrame(CApartWindow* in_pOwner);

    /// Null for no frame. The widget may die at any time.
    void SetWidget(QWidget* in_pWidget);

    /// To be called when an object was moved, resized, shown or hidden.
    void Follow(const QObject* in_pMoved);

protected:
    void paintEvent(QPaintEvent* in_pEvent) override;

private:
    void Place();

    QPointer<QWidget> m_pWidget;
};

#endif
