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
           in_event.type() == QEvent::ChildAdded || in_event.type() == QEvent::WinIdChange;
}

/// The library's own data widgets come here by themselves: a filter on each would take a tenth of the memory of a page.
void CViewFilter::WatchControl(QWidget* in_pControl)
{
    if (in_pControl->parentWidget() != m_pContent || !dynamic_cast<CQTControl*>(in_pControl))
    {
        in_pControl->installEventFilter(this);
    }
    if (in_pControl->focusPolicy() == Qt::WheelFocus)
    {
        in_pControl->setFocusPolicy(Qt::StrongFocus);
    }
    const QObjectList inner = in_pControl->children();
    for (QObject* pInner : inner)
    {
        WatchChild(pInner, in_pControl);
    }
}

bool CViewFilter::eventFilter(QObject* in_pWatched, QEvent* in_pEvent)
{
    if (!in_pWatched->isWidgetType())
    {
        return FilterWindow(in_pWatched, in_pEvent);
    }
    switch (in_pEvent->type())
    {
    case QEvent::Wheel:
        return Scroll(in_pEvent);
    case QEvent::Show:
    case QEvent::Paint: // a widget around the view may have become native without a word
        if (in_pWatched == m_pView && (in_pEvent->type() == QEvent::Show || m_window != m_pView->effectiveWinId()))
        {
            m_window = m_pView->effectiveWinId();
            InspectorQt::WatchWindows(m_pView, this);
        }
        return false;
    case QEvent::WinIdChange:
        InspectorQt::WatchWindows(static_cast<QWidget*>(in_pWatched), this);
        return false;
    case QEvent::UpdateLater:
        return IsOutOfSight(in_pWatched);
    case QEvent::ChildAdded:
        WatchChild(static_cast<QChildEvent*>(in_pEvent)->child(), in_pWatched);
        return false;
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

bool CViewFilter::FilterWindow(QObject* in_pWindow, QEvent* in_pEvent)
{
    const QEvent::Type eType = in_pEvent->type();
    if (eType != QEvent::MouseButtonPress && !m_pPressed)
    {
        return false;
    }
    QWidget* pNative = InspectorQt::WindowWidget(in_pWindow);
    if (!pNative || pNative->window() != m_pView->window())
    {
        return false;
    }
    if (eType == QEvent::MouseMove || eType == QEvent::MouseButtonRelease)
    {
        return DeliverToPressed(pNative, *static_cast<QMouseEvent*>(in_pEvent));
    }
    return eType == QEvent::MouseButtonPress && TakePress(in_pWindow, pNative, *static_cast<QMouseEvent*>(in_pEvent));
}

bool CViewFilter::TakePress(QObject* in_pWindow, QWidget* in_pNative, const QMouseEvent& in_press)
{
    if (QWidget::mouseGrabber() || in_press.buttons() != Qt::MouseButtons(in_press.button()))
    {
        return false; // it goes to who has the mouse
    }
    const QPointer<QObject> pWindow = in_pWindow;
    const QPointer<QObject> self = this;
    if (in_press.button() == Qt::RightButton && CQTSimpleDataWidget::g_pInPlace)
    {
        QEvent deactivation(QEvent::WindowDeactivate); // which a context menu would cause while Qt opens the menu
        QCoreApplication::sendEvent(CQTSimpleDataWidget::g_pInPlace, &deactivation);
    }
    if (pWindow && self)
    {
        ReleaseFocus(in_pNative, in_press.pos());
    }
    return !pWindow || (self && DeliverRightPress(in_pNative, in_press));
}

/// Qt gives the focus to what was pressed and then goes on with it. A data widget that thereby loses the focus reports,
/// which may destroy what was pressed: it loses the focus here, before Qt looks for what that is.
void CViewFilter::ReleaseFocus(QWidget* in_pNative, const QPoint& in_position)
{
    const QWidget* pFocused = QApplication::focusWidget();
    const QWidget* pHit = in_pNative->childAt(in_position);
    const QWidget* pPressed = !pFocused ? nullptr : pHit ? pHit : in_pNative;
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

bool CViewFilter::DeliverRightPress(QWidget* in_pNative, const QMouseEvent& in_press)
{
    QWidget* pHit = in_pNative->childAt(in_press.pos());
    const QPointer<QWidget> pControl = pHit ? pHit : in_pNative;
    const QWidget* pPopup = QApplication::activePopupWidget();
    if (in_press.button() != Qt::RightButton || InspectorQt::BeginsDoubleClick(in_press) ||
        pControl->parentWidget() != m_pContent || !dynamic_cast<CInspectorDataWidget*>(pControl.data()) ||
        (pPopup && pPopup != m_pView->window()))
    {
        return false;
    }
    const QPointer<QObject> self = this;
    const QPointer<QWidget> pNative = in_pNative;
    if (pControl->isEnabled() && pControl->focusPolicy() & Qt::ClickFocus)
    {
        pControl->setFocus(Qt::MouseFocusReason);
    }
    if (self && pNative && pControl)
    {
        m_pPressed = pControl;
        DeliverToPressed(pNative, in_press);
    }
    return true;
}

/// What follows a press is for the widget that was pressed, wherever the mouse is, until the button is up.
bool CViewFilter::DeliverToPressed(const QWidget* in_pNative, const QMouseEvent& in_event)
{
    const QPointer<QWidget> pPressed = m_pPressed;
    const bool bHeld = in_event.buttons() & Qt::RightButton;
    m_pPressed = bHeld ? pPressed : nullptr;
    if (!bHeld && in_event.button() != Qt::RightButton)
    {
        return false; // somebody else got the release
    }
    const QPoint global = in_pNative->mapToGlobal(in_event.pos());
    const QPoint position = pPressed->mapFromGlobal(global);
    QMouseEvent event(in_event.type(), position, global, in_event.button(), in_event.buttons(), in_event.modifiers());
    QCoreApplication::sendEvent(pPressed, &event);
    if (pPressed && in_event.button() == Qt::RightButton && in_event.type() == InspectorQt::ContextMenuTrigger())
    {
        QContextMenuEvent menu(QContextMenuEvent::Mouse, position, global, in_event.modifiers());
        QCoreApplication::sendEvent(pPressed, &menu);
    }
    return true;
}
