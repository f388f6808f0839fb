#include "objectinspector.h"

#include "pagebuilder.h"
#include "propertyelements.h"
#include "qtinspectorview.h"
#include "qtsimpledatawidget.h"

#include <QApplication>
#include <QEvent>
#include <QMetaMethod>

namespace
{
/// The events that only paint, or come all the time without changing anything.
bool IsNoise(QEvent::Type in_eType)
{
    switch (in_eType)
    {
    case QEvent::Paint:
    case QEvent::UpdateRequest:
    case QEvent::UpdateLater:
    case QEvent::Timer:
    case QEvent::MouseMove:
    case QEvent::HoverMove:
        return true;
    default:
        return false;
    }
}
} // namespace

CObjectInspector::CObjectInspector(CQTInspectorView* in_pView) : m_pQtView(in_pView)
{
    m_pView = in_pView;
    in_pView->m_pController = this;
    Rebuild();
}

void CObjectInspector::SetPreviewMode(bool in_bPreview)
{
    m_pView ? m_pQtView->FinishEditing() : void();
    CInspectorController::SetPreviewMode(in_bPreview);
    Rebuild();
}

void CObjectInspector::ApplicationHook1() {}

void CObjectInspector::ApplicationHook2() {}

void CObjectInspector::HandleDirtyItem(sInspectorControllerData* in_pItem, IDirtyControllerDataInfo*)
{
    if (ILiveRow* pRow = dynamic_cast<ILiveRow*>(in_pItem->element))
    {
        pRow->Refresh();
    }
}

void CObjectInspector::HandleDirtyController(std::vector<IDirtyControllerDataInfo*>&)
{
    if (!m_pObject)
    {
        Rebuild();
        return;
    }
    for (sInspectorControllerData* pItem : m_items)
    {
        HandleDirtyItem(pItem, nullptr);
    }
}

void CObjectInspector::CallCommand(const char* in_strName, unsigned long)
{
    OnObjectChanged();
    if (m_pObject)
    {
        QMetaObject::invokeMethod(m_pObject, in_strName, Qt::DirectConnection);
    }
}

bool CObjectInspector::eventFilter(QObject* in_pWatched, QEvent* in_pEvent)
{
    if (!IsNoise(in_pEvent->type()))
    {
        OnObjectChanged();
    }
    return QObject::eventFilter(in_pWatched, in_pEvent);
}

void CObjectInspector::ShowObject(QObject* in_pObject)
{
    const QPointer<QObject> pObject = in_pObject;
    m_pView ? m_pQtView->FinishEditing() : void();
    if (pObject != m_pObject)
    {
        Watch(pObject);
        Rebuild();
    }
}

void CObjectInspector::OnObjectChanged()
{
    if (m_dirtyController.empty())
    {
        DirtifyController(nullptr);
    }
}

/// Not every property tells when it changes, so every signal is heard, and events for what has no signal.
void CObjectInspector::Watch(QObject* in_pObject)
{
    if (m_pObject)
    {
        m_pObject->removeEventFilter(this);
        m_pObject->disconnect(this);
    }
    m_pObject = in_pObject;
    if (!m_pObject)
    {
        return;
    }
    const QMetaObject& meta = *m_pObject->metaObject();
    const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("OnObjectChanged()"));
    for (int i = 0; i < meta.methodCount(); ++i)
    {
        if (meta.method(i).methodType() == QMetaMethod::Signal)
        {
            connect(m_pObject, meta.method(i), this, slot);
        }
    }
    m_pObject->installEventFilter(this);
}

void CObjectInspector::Rebuild()
{
    ClearAllData();
    if (!m_pView)
    {
        return;
    }
    m_pQtView->m_strMessage = m_pObject ? "" : "Nothing selected";
    if (m_pObject)
    {
        CPageBuilder builder(m_pObject, *m_pView, *this);
        IsPreviewMode() ? builder.BuildPreview() : builder.BuildPage();
        ConnectDataElements();
    }
    m_pQtView->UpdateView();
    emit PageRebuilt();
}
