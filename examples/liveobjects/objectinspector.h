#ifndef OBJECTINSPECTOR_H
#define OBJECTINSPECTOR_H

#include "inspectorcontroller.h"

#include <QObject>
#include <QPointer>

class CQTInspectorView;

/// Shows one live object in a view and keeps the page up to date. Whatever the object says or is told may have changed
/// something: all of it together costs one look at the object before the next paint.
class CObjectInspector : public QObject, public CInspectorController
{
    Q_OBJECT

public:
    explicit CObjectInspector(CQTInspectorView* in_pView);

    /// Builds the page for the mode.
    void SetPreviewMode(bool in_bPreview) override;

    void ApplicationHook1() override;
    void ApplicationHook2() override;
    void HandleDirtyItem(sInspectorControllerData* in_pItem, IDirtyControllerDataInfo* in_pInfo) override;
    void HandleDirtyController(std::vector<IDirtyControllerDataInfo*>& in_infos) override;

    /// Calls the slot of that name.
    void CallCommand(const char* in_strName, unsigned long in_ulArgument) override;

    bool eventFilter(QObject* in_pWatched, QEvent* in_pEvent) override;

public slots:
    /// Shows another object, null for none. What the user has typed for the present one is handed to it first. The
    /// object may die at any time.
    void ShowObject(QObject* in_pObject);

signals:
    /// The page is new: lay it out.
    void PageRebuilt();

private slots:
    void OnObjectChanged();

private:
    void Watch(QObject* in_pObject);
    void Rebuild();

    CQTInspectorView* m_pQtView; ///< the view that the base knows
    QPointer<QObject> m_pObject;
};

#endif
