#include "viewfilter.h"

#include "inspectordataelement.h"
#include "inspectorqt.h"
#include "qtsimpledatawidget.h"

CViewFilter::CViewFilter(QWidget* in_pView, QWidget* in_pContent, QScrollBar* in_pScrollBar)
    : QObject(in_pView),
      m_pView(in_pView),
      m_pContent(in_pContent),
      m_pScrollBar(in_pScrollBar)
{
    m_pView->installEventFilter(this);
}

bool CViewFilter::Handles(const QEvent& in_event)
{
    return in_event.type() == QEvent::Wheel || in_event.type() == QEvent::UpdateLater ||
           in_event.type() == QEvent::ChildAdded;
}

/// The library's own data widgets come here by themselves: a filter on each would take a tenth of the memory of a page.
void CViewFilter::WatchControl(QWidget* in_pControl)
{
    if (in_pControl->parentWidget() != m_pContent || !dynamic_cast<CQTControl*>(in_pControl))
    {
        in_pControl->installEventFilter(this);
    }
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
    case QEvent::UpdateLater:
        return IsOutOfSight(in_pWatched);
    case QEvent::ChildAdded:
        WatchChild(static_cast<QChildEvent*>(in_pEvent)->child(), in_pWatched);
        return false;
    case QEvent::MouseButtonPress:
        return !in_pWatched->isWidgetType() && InspectorQt::WindowWidget(in_pWatched) == m_pView->window() &&
               TakeWindowPress(in_pWatched, *static_cast<QMouseEvent*>(in_pEvent));
    default:
        return false;
    }
}

/// Qt has each shown widget ask for its first paint by itself, in time that grows with the square of their number.
/// Those out of sight need none yet: they are painted when they come into sight.
bool CViewFilter::IsOutOfSight(QObject* in_pWatched) const
{
    return in_pWatched->parent() == m_pContent &&
           !m_pContent->rect().intersects(static_cast<QWidget*>(in_pWatched)->geometry());
}

/// What a data widget is given inside later is watched too.
void CViewFilter::WatchChild(QObject* in_pChild, const QObject* in_pParent)
{
    if (in_pParent != m_pView && in_pChild->isWidgetType())
    {
        WatchControl(static_cast<QWidget*>(in_pChild));
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

bool CViewFilter::TakeWindowPress(QObject* in_pWindow, const QMouseEvent& in_press)
{
    const QPointer<QObject> pWindow = in_pWindow;
    const QPointer<QObject> self = this;
    if (in_press.button() == Qt::RightButton && CQTSimpleDataWidget::g_pInPlace)
    {
        QEvent deactivation(QEvent::WindowDeactivate); // which a context menu would cause while Qt opens the menu
        QCoreApplication::sendEvent(CQTSimpleDataWidget::g_pInPlace, &deactivation);
    }
    if (pWindow && self)
    {
        ReleaseFocus(in_press.pos());
    }
    return !pWindow || (self && DeliverRightPress(in_press));
}

/// Qt gives the focus to what was pressed and then goes on with it. A data widget that thereby loses the focus reports,
/// which may destroy what was pressed: it loses the focus here, before Qt looks for what that is.
void CViewFilter::ReleaseFocus(const QPoint& in_position)
{
    const QWidget* pFocused = QApplication::focusWidget();
    const QWidget* pPressed = pFocused ? m_pView->window()->childAt(in_position) : nullptr;
    while (pPressed && pPressed != pFocused && !(pPressed->isEnabled() && pPressed->focusPolicy() & Qt::ClickFocus))
    {
        pPressed = pPressed->isWindow() ? nullptr : pPressed->parentWidget();
    }
    if (pPressed && pPressed != pFocused && !pPressed->isAncestorOf(pFocused) && pPressed->focusProxy() != pFocused)
    {
        TakeFocus();
    }
}

void CViewFilter::TakeFocus()
{
    const QPointer<QWidget> pFocused = QApplication::focusWidget();
    if (!pFocused || !m_pContent->isAncestorOf(pFocused))
    {
        return;
    }
    if (m_pView->isWindow())
    {
        // A report that deletes the view would delete the window that is to get the focus: it comes first.
        QFocusEvent out(QEvent::FocusOut, Qt::OtherFocusReason);
        QCoreApplication::sendEvent(pFocused, &out);
    }
    if (pFocused)
    {
        // QWidget::clearFocus would not survive the death of its widget.
        pFocused->window()->setFocus(Qt::OtherFocusReason);
    }
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
