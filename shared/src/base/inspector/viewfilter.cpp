#include "viewfilter.h"

#include "inplacekeeper.h"
#include "inspectordataelement.h"
#include "inspectorqt.h"
#include "qtsimpledatawidget.h"

namespace
{
QWidget* Hit(QWidget* in_pNative, const QPoint& in_position)
{
    QWidget* pChild = in_pNative->childAt(in_position);
    return pChild ? pChild : in_pNative;
}

/// What Qt gives the focus when a widget is clicked, null for nothing or what has it already.
QWidget* ClickFocusTaker(QWidget* in_pHit)
{
    while (in_pHit && !(in_pHit->isEnabled() && in_pHit->focusPolicy() & Qt::ClickFocus))
    {
        in_pHit = in_pHit->isWindow() ? nullptr : in_pHit->parentWidget();
    }
    const QWidget* pFocused = QApplication::focusWidget();
    const bool bHasIt = in_pHit && pFocused && (in_pHit == pFocused || in_pHit->focusProxy() == pFocused);
    return bHasIt ? nullptr : in_pHit;
}

/// Sends a widget what a native widget got. No context menu is asked of a widget that its press has destroyed.
void Deliver(const QWidget& in_native, const QMouseEvent& in_event, QWidget* in_pTarget)
{
    const QPointer<QWidget> pTarget = in_pTarget;
    const QPoint global = in_native.mapToGlobal(in_event.pos());
    const QPoint position = in_pTarget->mapFromGlobal(global);
    QMouseEvent event(in_event.type(), position, global, in_event.button(), in_event.buttons(), in_event.modifiers());
    const bool bMenu = event.button() == Qt::RightButton && event.type() == InspectorQt::ContextMenuTrigger();
    QCoreApplication::sendEvent(pTarget, &event);
    if (bMenu && pTarget)
    {
        QContextMenuEvent menu(QContextMenuEvent::Mouse, position, global, event.modifiers());
        QCoreApplication::sendEvent(pTarget, &menu);
    }
}
} // namespace

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
    case QEvent::Wheel: // not of what has left its row since
        return (in_pWatched == m_pView || m_pView->isAncestorOf(static_cast<QWidget*>(in_pWatched))) &&
               Scroll(in_pEvent);
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

/// What a data widget is given inside later is watched too; its dialogs are not.
void CViewFilter::WatchChild(QObject* in_pChild, const QObject* in_pParent)
{
    if (in_pParent != m_pView && in_pChild->isWidgetType() && !static_cast<QWidget*>(in_pChild)->isWindow())
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
        InspectorQt::SendWheel(m_pScrollBar, in_pWheel);
    }
    return true;
}

bool CViewFilter::FilterWindow(QObject* in_pWindow, QEvent* in_pEvent)
{
    const QEvent::Type eType = in_pEvent->type();
    const bool bPress = eType == QEvent::MouseButtonPress;
    if (!bPress && !(m_bDelivers && (eType == QEvent::MouseMove || eType == QEvent::MouseButtonRelease)))
    {
        return false;
    }
    QWidget* pNative = InspectorQt::EventWidget(in_pWindow);
    if (!pNative || pNative->window() != m_pView->window())
    {
        return false;
    }
    const QWidget* pPopup = QApplication::activePopupWidget();
    if (pPopup && pPopup != m_pView->window())
    {
        m_bDelivers = false; // the pop-up gets the mouse
        return false;
    }
    const QMouseEvent& event = *static_cast<QMouseEvent*>(in_pEvent);
    return bPress && !m_bDelivers ? TakePress(in_pWindow, pNative, event) : Follow(*pNative, event);
}

bool CViewFilter::TakePress(QObject* in_pWindow, QWidget* in_pNative, const QMouseEvent& in_press)
{
    const QPointer<QObject> self = this;
    const QPointer<QObject> pWindow = in_pWindow;
    const bool bFirst = in_press.buttons() == Qt::MouseButtons(in_press.button());
    if (bFirst && !QWidget::mouseGrabber())
    {
        EndEdits(in_pNative, in_press);
    }
    if (!pWindow || !self)
    {
        return !pWindow;
    }
    if (bFirst)
    {
        m_pPressed = Hit(in_pNative, in_press.pos());
    }
    const QPointer<QWidget> pTarget = QWidget::mouseGrabber() ? QWidget::mouseGrabber() : m_pPressed.data();
    if (in_press.button() != Qt::RightButton || InspectorQt::BeginsDoubleClick(in_press) || !RowOf(pTarget))
    {
        return false;
    }
    m_bDelivers = bFirst && pTarget == m_pPressed; // the rest goes where Qt has sent the beginning
    GiveFocus(pTarget);
    if (pWindow && pTarget)
    {
        Deliver(*in_pNative, in_press, pTarget);
    }
    return true;
}

/// What follows a press is for the widget that was pressed, wherever the mouse is, until all buttons are up.
bool CViewFilter::Follow(const QWidget& in_native, const QMouseEvent& in_event)
{
    const QWidget* pGrabber = QWidget::mouseGrabber();
    const bool bHeld = in_event.buttons() != Qt::NoButton;
    const bool bOurs = m_pPressed && m_pPressed->isVisible() && (!pGrabber || pGrabber == m_pPressed) &&
                       (bHeld || in_event.type() == QEvent::MouseButtonRelease);
    m_bDelivers = bOurs && bHeld;
    if (bOurs)
    {
        Deliver(in_native, in_event, m_pPressed);
    }
    return bOurs;
}

/// The data widget that a widget is or is in, null for none.
QWidget* CViewFilter::RowOf(QWidget* in_pWidget) const
{
    while (in_pWidget && in_pWidget->parentWidget() != m_pContent)
    {
        in_pWidget = in_pWidget->isWindow() ? nullptr : in_pWidget->parentWidget();
    }
    return dynamic_cast<CInspectorDataWidget*>(in_pWidget) ? in_pWidget : nullptr;
}

/// Whether what is hit may work on values that are being typed: a row that is neither edited in place nor has the
/// focus.
bool CViewFilter::WorksOnValues(QWidget* in_pHit) const
{
    QWidget* pRow = RowOf(in_pHit);
    QWidget* pFocused = QApplication::focusWidget();
    return pRow && !dynamic_cast<IInPlaceEditSink*>(pRow) && pRow != pFocused && !pRow->isAncestorOf(pFocused);
}

/// Qt gives the focus to what was pressed and then goes on with it. A data widget that thereby loses the focus reports,
/// which may destroy what was pressed: it loses the focus here, before Qt looks for what that is.
void CViewFilter::EndEdits(QWidget* in_pNative, const QMouseEvent& in_press)
{
    const QPointer<QObject> self = this;
    const QPointer<QWidget> pNative = in_pNative;
    if (in_press.button() == Qt::RightButton && Hit(in_pNative, in_press.pos()) != QApplication::focusWidget())
    {
        CInPlaceKeeper::EndEdits(nullptr); // as a context menu would while Qt opens it
    }
    if (self && pNative && WorksOnValues(Hit(pNative, in_press.pos())))
    {
        FinishEditing();
    }
    if (self && pNative && ClickFocusTaker(Hit(pNative, in_press.pos())))
    {
        TakeFocus();
    }
}

/// By way of the window: what loses the focus, a data widget of another view for instance, may destroy who gets it.
void CViewFilter::GiveFocus(QWidget* in_pPressed)
{
    const QPointer<QWidget> pTaker = ClickFocusTaker(in_pPressed);
    if (pTaker)
    {
        pTaker->window()->setFocus(Qt::MouseFocusReason);
    }
    if (pTaker)
    {
        pTaker->setFocus(Qt::MouseFocusReason);
    }
}

void CViewFilter::FinishEditing()
{
    const QPointer<QObject> self = this;
    CInPlaceKeeper::EndEdits(m_pContent);
    if (self)
    {
        CInPlaceKeeper::DropEdits(m_pContent);
        TakeFocus();
    }
    if (self)
    {
        CInPlaceKeeper::DropEdits(m_pContent); // what a report has begun
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
