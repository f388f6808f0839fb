#include "viewfilter.h"

#include "inspectordataelement.h"
#include "inspectorqt.h"

CViewFilter::CViewFilter(QWidget* in_pView, QWidget* in_pContent, QScrollBar* in_pScrollBar)
    : QObject(in_pView),
      m_pView(in_pView),
      m_pContent(in_pContent),
      m_pScrollBar(in_pScrollBar)
{
    m_pView->installEventFilter(this);
}

void CViewFilter::WatchControl(QWidget* in_pControl)
{
    in_pControl->installEventFilter(this);
    const QList<QWidget*> inner = in_pControl->findChildren<QWidget*>();
    for (QWidget* pInner : inner)
    {
        pInner->installEventFilter(this);
    }
}

bool CViewFilter::eventFilter(QObject* in_pWatched, QEvent* in_pEvent)
{
    switch (in_pEvent->type())
    {
    case QEvent::Wheel:
        return Scroll(in_pEvent);
    case QEvent::Show:
        if (in_pWatched == m_pView)
        {
            InspectorQt::WatchWindow(m_pView, this);
        }
        return false;
    case QEvent::MouseButtonPress:
        return !in_pWatched->isWidgetType() && DeliverRightPress(*static_cast<QMouseEvent*>(in_pEvent));
    default:
        return false;
    }
}

/// A wheel step that finds the scroll bar at its end stays ignored, and so goes on to what is around the view.
bool CViewFilter::Scroll(QEvent* in_pWheel)
{
    in_pWheel->ignore();
    if (!m_pScrollBar->isHidden())
    {
        QCoreApplication::sendEvent(m_pScrollBar, in_pWheel);
    }
    return true;
}

bool CViewFilter::DeliverRightPress(const QMouseEvent& in_press)
{
    QWidget* pWindow = m_pView->window();
    const QPointer<QWidget> pControl = pWindow->childAt(in_press.pos());
    if (in_press.button() != Qt::RightButton || InspectorQt::BeginsDoubleClick(in_press) || !pControl ||
        pControl->parentWidget() != m_pContent || !dynamic_cast<CInspectorDataWidget*>(pControl.data()) ||
        QApplication::activePopupWidget())
    {
        return false;
    }
    const QPoint position = pControl->mapFrom(pWindow, in_press.pos());
    const QPoint global = pControl->mapToGlobal(position);
    QMouseEvent press(QEvent::MouseButtonPress, position, global, in_press.button(), in_press.buttons(),
                      in_press.modifiers());
    QCoreApplication::sendEvent(pControl, &press);
    if (pControl && InspectorQt::ContextMenuOnPress())
    {
        QContextMenuEvent menu(QContextMenuEvent::Mouse, position, global, in_press.modifiers());
        QCoreApplication::sendEvent(pControl, &menu);
    }
    return true;
}
