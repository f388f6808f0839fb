#include "viewkeyboard.h"

#include "inspectorqt.h"
#include "qtinspectorview.h"
#include "qtsimpledatawidget.h"
#include "viewaccessible.h"

#include <QPainter>
#include <QPixmap>
#include <QStyleOptionFocusRect>

#include <algorithm>

namespace
{
/// Whether Qt would stop at a widget.
bool TakesTab(const QWidget& in_widget)
{
    return in_widget.isVisible() && in_widget.isEnabled() && in_widget.focusPolicy() & Qt::TabFocus &&
           !in_widget.focusProxy();
}

/// The widgets in a row that Qt would stop at, in the order in which it would.
std::vector<QWidget*> StopsInChain(QWidget* in_pRow)
{
    std::vector<QWidget*> stops;
    QWidget* pWidget = in_pRow;
    do
    {
        if ((pWidget == in_pRow || in_pRow->isAncestorOf(pWidget)) && TakesTab(*pWidget))
        {
            stops.push_back(pWidget);
        }
        pWidget = in_pRow->children().isEmpty() ? in_pRow : pWidget->nextInFocusChain();
    } while (pWidget != in_pRow);
    return stops;
}

QWidget* NeighbourInChain(const QWidget* in_pWidget, bool in_bForward)
{
    return in_bForward ? in_pWidget->nextInFocusChain() : in_pWidget->previousInFocusChain();
}

void PaintFocus(QWidget* in_pControl)
{
    QPainter painter(in_pControl);
    QStyleOptionFocusRect option;
    option.initFrom(in_pControl);
    option.state |= QStyle::State_KeyboardFocusChange;
    option.backgroundColor = in_pControl->palette().color(QPalette::Base);
    in_pControl->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, in_pControl);
}

/// The row of a list that a key goes to, -1 for none.
int TargetRow(const CInPlaceList& in_list, int in_iKey)
{
    const int iRow = in_list.currentRow();
    const int iRowHeight = std::max(1, in_list.sizeHintForRow(0));
    const int iPage = std::max(1, in_list.viewport()->height() / iRowHeight - 1);
    switch (in_iKey)
    {
    case Qt::Key_Up:
        return iRow - 1;
    case Qt::Key_Down:
        return iRow + 1;
    case Qt::Key_PageUp:
        return iRow - iPage;
    case Qt::Key_PageDown:
        return iRow + iPage;
    case Qt::Key_Home:
        return 0;
    default:
        return in_list.count() - 1;
    }
}
} // namespace

CViewKeyboard::CViewKeyboard(CQTInspectorView* in_pView, QWidget* in_pContent, CViewRows* in_pRows,
                             bool in_bReadOnlyToo)
    : QObject(in_pView),
      m_pView(in_pView),
      m_pContent(in_pContent),
      m_pRows(in_pRows),
      m_bReadOnlyToo(in_bReadOnlyToo)
{
    m_pView->setFocusPolicy(Qt::TabFocus);
    m_pView->installEventFilter(this);
    for (const sRow& row : m_pRows->All())
    {
        TakeControl(*row.control);
    }
}

CViewKeyboard::~CViewKeyboard()
{
    m_pView->setFocusPolicy(Qt::NoFocus);
    const QList<CQTControl*> controls = m_pContent->findChildren<CQTControl*>();
    for (CQTControl* pControl : controls)
    {
        if (pControl->focusPolicy() == Qt::ClickFocus)
        {
            pControl->setFocusPolicy(Qt::NoFocus);
        }
    }
}

CViewKeyboard* CViewKeyboard::Of(const QWidget* in_pControl)
{
    const CQTInspectorView* pView = CQTInspectorView::Of(in_pControl);
    return pView ? pView->m_pKeyboard : nullptr;
}

CViewKeyboard* CViewKeyboard::For(const QWidget* in_pControl, const QEvent& in_event)
{
    switch (in_event.type())
    {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::FocusIn:
        return Of(in_pControl);
    case QEvent::Paint:
        return in_pControl->hasFocus() ? Of(in_pControl) : nullptr;
    default:
        return nullptr;
    }
}

bool CViewKeyboard::IsForReading(const QWidget* in_pControl)
{
    CViewKeyboard* pKeyboard = Of(in_pControl);
    const sRow* pRow = pKeyboard ? pKeyboard->m_pRows->Find(in_pControl) : nullptr;
    return pRow && pRow->holder->element && pRow->holder->element->IsReadOnly();
}

/// A button knows where it is only once it has been painted.
void CViewKeyboard::Press(QWidget* in_pControl)
{
    if (auto* pLine = dynamic_cast<CQTSimpleDataWidget*>(in_pControl))
    {
        pLine->StartEditing();
        return;
    }
    if (dynamic_cast<CQTButtonWidget*>(in_pControl) && !in_pControl->size().isEmpty())
    {
        QPixmap picture(in_pControl->size());
        in_pControl->render(&picture);
    }
    const QPointer<QWidget> pControl = in_pControl;
    const int iBox = std::min(in_pControl->height(), 20);
    const bool bBox = dynamic_cast<CQTSimpleBoolWidget*>(in_pControl);
    const QPoint position((bBox ? std::min(in_pControl->width(), 20) : in_pControl->width()) / 2, iBox / 2);
    for (const QEvent::Type eType : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
    {
        if (pControl)
        {
            const Qt::MouseButtons buttons = eType == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
            QMouseEvent event(eType, position, pControl->mapToGlobal(position), Qt::LeftButton, buttons,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(pControl, &event);
        }
    }
}

/// The application's widgets stand right behind the view in Qt's chain, so that Tab from outside does not come upon
/// them elsewhere.
void CViewKeyboard::TakeControl(QWidget& io_control)
{
    if (dynamic_cast<CQTControl*>(&io_control))
    {
        const bool bStops = io_control.focusPolicy() == Qt::NoFocus && !dynamic_cast<CQTStaticWidget*>(&io_control);
        bStops ? io_control.setFocusPolicy(Qt::ClickFocus) : void();
        return;
    }
    QList<QWidget*> widgets = io_control.findChildren<QWidget*>();
    widgets.prepend(&io_control);
    for (QWidget* pWidget : widgets)
    {
        if (pWidget->focusPolicy() & Qt::TabFocus && !pWidget->isWindow())
        {
            QWidget::setTabOrder(m_pLastInChain ? m_pLastInChain.data() : m_pView, pWidget);
            m_pLastInChain = pWidget;
        }
    }
}

bool CViewKeyboard::Deliver(CQTControl* in_pControl, QEvent* in_pEvent)
{
    const QEvent::Type eType = in_pEvent->type();
    const bool bKey = eType == QEvent::KeyPress || eType == QEvent::ShortcutOverride;
    if (bKey && IsListOver(in_pControl))
    {
        // Typed before the list has become the active window.
        return QCoreApplication::sendEvent(CQTEnumDataWidget::g_pInPlaceList.get(), in_pEvent);
    }
    if (HasClosedList(in_pControl, *in_pEvent))
    {
        return true;
    }
    const QPointer<QObject> self = this;
    const QPointer<QWidget> pControl = in_pControl;
    const bool bHandled = in_pControl->QWidget::event(in_pEvent);
    if (!self || !pControl)
    {
        return bHandled;
    }
    if (eType == QEvent::Paint)
    {
        PaintFocus(in_pControl);
    }
    else if (bKey && !in_pEvent->isAccepted() && Works(in_pControl, *static_cast<QKeyEvent*>(in_pEvent)))
    {
        in_pEvent->accept();
        const bool bWorks = eType == QEvent::KeyPress && !static_cast<QKeyEvent*>(in_pEvent)->isAutoRepeat();
        bWorks ? Press(in_pControl) : void();
    }
    else if (eType == QEvent::MouseButtonPress)
    {
        WatchList(in_pControl);
    }
    else if (eType == QEvent::FocusIn)
    {
        m_pFocused = in_pControl;
        m_iFocused = m_pRows->IndexOf(in_pControl);
    }
    return bHandled;
}

/// What a key on a control does is what a press does: whether there is such a thing.
bool CViewKeyboard::Works(QWidget* in_pControl, const QKeyEvent& in_key)
{
    const int iKey = in_key.key();
    const Qt::KeyboardModifiers modifiers = in_key.modifiers() & ~Qt::KeypadModifier;
    const bool bPlain = modifiers == Qt::NoModifier;
    if (dynamic_cast<CQTSimpleDataWidget*>(in_pControl))
    {
        return bPlain && (iKey == Qt::Key_Return || iKey == Qt::Key_Enter || iKey == Qt::Key_F2);
    }
    const bool bSpace = bPlain && (iKey == Qt::Key_Space || iKey == Qt::Key_Select);
    if (dynamic_cast<CQTEnumDataWidget*>(in_pControl))
    {
        const bool bDown = iKey == Qt::Key_Down && (bPlain || modifiers == Qt::AltModifier);
        return (bSpace || bDown) && !IsForReading(in_pControl);
    }
    return bSpace;
}

QWidget* CViewKeyboard::RowAround(QWidget* in_pWidget) const
{
    while (in_pWidget && in_pWidget->parentWidget() != m_pContent)
    {
        in_pWidget = in_pWidget->isWindow() ? nullptr : in_pWidget->parentWidget();
    }
    return in_pWidget;
}

/// Whether Tab stops at a row at all.
bool CViewKeyboard::IsStop(const sRow& in_row) const
{
    CInspectorDataElement* pElement = in_row.holder->element;
    const auto* pButton = dynamic_cast<CButtonDataElement*>(pElement);
    const bool bShown = in_row.holder->widget && in_row.control->isVisible() && !in_row.control->size().isEmpty();
    return bShown && (m_bReadOnlyToo || !pElement || !pElement->IsReadOnly()) && (!pButton || pButton->m_bEnabled) &&
           m_pView->IsTabStop(in_row.holder->widget);
}

/// Where Tab stops in a row after the widget in it that has the focus (null: that comes from outside); null for
/// nowhere. A widget of the application's may have several such places inside, or none.
QWidget* CViewKeyboard::StopIn(QWidget* in_pRow, QWidget* in_pFocused, bool in_bForward)
{
    std::vector<QWidget*> stops;
    if (dynamic_cast<CQTControl*>(in_pRow))
    {
        const bool bStops = in_pRow->isEnabled() && in_pRow->focusPolicy() != Qt::NoFocus;
        bStops ? stops.push_back(in_pRow) : void();
    }
    else
    {
        stops = StopsInChain(in_pRow);
    }
    in_bForward ? void() : std::reverse(stops.begin(), stops.end());
    const auto it = in_pFocused ? std::find(stops.begin(), stops.end(), in_pFocused) : stops.begin();
    const auto stop = in_pFocused && it != stops.end() ? std::next(it) : it;
    return stop == stops.end() ? nullptr : *stop;
}

bool CViewKeyboard::MoveFocus(bool in_bForward)
{
    QWidget* pFocused = m_pView->window()->focusWidget();
    QWidget* pRow = RowAround(pFocused);
    if (pRow)
    {
        QWidget* pInner = StopIn(pRow, pFocused, in_bForward);
        return pInner ? GiveFocus(pInner, in_bForward) : FocusRowAfter(m_pRows->IndexOf(pRow), in_bForward);
    }
    return pFocused == m_pView && (in_bForward ? FocusRowAfter(-1, true) : Leave(false));
}

/// Gives the focus to the first row beyond one that has a place for it, and behind the last to what is around the view.
bool CViewKeyboard::FocusRowAfter(int in_iRow, bool in_bForward)
{
    QWidget* pStop = FindStop(in_iRow, in_bForward);
    return pStop ? GiveFocus(pStop, in_bForward) : Leave(in_bForward);
}

QWidget* CViewKeyboard::FindStop(int in_iRow, bool in_bForward)
{
    const std::vector<sRow>& rows = m_pRows->All();
    const int iStep = in_bForward ? 1 : -1;
    for (int i = in_iRow + iStep; i >= 0 && i < static_cast<int>(rows.size()); i += iStep)
    {
        const sRow& row = rows[static_cast<std::size_t>(i)];
        QWidget* pStop = IsStop(row) ? StopIn(row.control, nullptr, in_bForward) : nullptr;
        if (pStop)
        {
            return pStop;
        }
    }
    return nullptr;
}

/// From the view on, not from the control, whose place in Qt's chain means nothing. Where there is nothing else, round
/// to the other end of the page.
bool CViewKeyboard::Leave(bool in_bForward)
{
    QWidget* pWidget = NeighbourInChain(m_pView, in_bForward);
    while (pWidget != m_pView && (m_pView->isAncestorOf(pWidget) || !TakesTab(*pWidget)))
    {
        pWidget = NeighbourInChain(pWidget, in_bForward);
    }
    const int iAllRows = static_cast<int>(m_pRows->All().size());
    QWidget* pTaker = pWidget != m_pView ? pWidget : FindStop(in_bForward ? -1 : iAllRows, in_bForward);
    return pTaker && GiveFocus(pTaker, in_bForward);
}

/// Scrolling may call the application, and so may a widget of its own that loses the focus: that one loses it to the
/// window, before Qt looks for who gets it.
bool CViewKeyboard::GiveFocus(QWidget* in_pTaker, bool in_bForward)
{
    const QPointer<QWidget> pTaker = in_pTaker;
    const QPointer<QWidget> pView = m_pView;
    if (const sRow* pRow = m_pRows->Find(RowAround(in_pTaker)))
    {
        m_pView->EnsureVisible(pRow->holder->widget);
    }
    QWidget* pFocused = pView ? pView->window()->focusWidget() : nullptr;
    const bool bOwn = dynamic_cast<CQTControl*>(pFocused) || dynamic_cast<CQTSimpleTextWidget*>(pFocused);
    if (pFocused && pFocused != pView && pView->isAncestorOf(pFocused) && !bOwn)
    {
        pFocused->window()->setFocus(Qt::OtherFocusReason);
    }
    if (pTaker)
    {
        pTaker->setFocus(in_bForward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    }
    return true;
}

void CViewKeyboard::MoveEditing(CInspectorDataWidget* in_pWidget, bool in_bForward)
{
    const std::vector<sRow>& rows = m_pRows->All();
    const auto row = std::find_if(rows.begin(), rows.end(), [in_pWidget](const sRow& in_row) {
        return in_row.holder->widget == in_pWidget; // which may have died of the report
    });
    const int iRow = row == rows.end() ? -1 : static_cast<int>(row - rows.begin());
    const QPointer<QWidget> pStop = iRow < 0 ? nullptr : FindStop(iRow, in_bForward);
    if (iRow >= 0)
    {
        FocusRowAfter(iRow, in_bForward);
    }
    if (auto* pLine = dynamic_cast<CQTSimpleDataWidget*>(pStop.data()))
    {
        pLine->StartEditing();
    }
}

bool CViewKeyboard::eventFilter(QObject* in_pWatched, QEvent* in_pEvent)
{
    if (in_pWatched == m_pView)
    {
        in_pEvent->type() == QEvent::FocusIn ? Enter(static_cast<QFocusEvent*>(in_pEvent)->reason()) : void();
        return false;
    }
    if (in_pEvent->type() == QEvent::KeyPress)
    {
        return OnListKey(*static_cast<CInPlaceList*>(in_pWatched), *static_cast<QKeyEvent*>(in_pEvent));
    }
    if (in_pEvent->type() == QEvent::Hide)
    {
        in_pWatched->removeEventFilter(this);
        m_pClosedRow = m_pListRow;
        m_pListRow = nullptr;
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
    return false;
}

/// The view itself does not keep the focus that Tab brings.
void CViewKeyboard::Enter(Qt::FocusReason in_eReason)
{
    const bool bForward = in_eReason != Qt::BacktabFocusReason;
    QWidget* pStop = FindStop(bForward ? -1 : static_cast<int>(m_pRows->All().size()), bForward);
    if (pStop)
    {
        QCoreApplication::postEvent(this, new QEvent(QEvent::User)); // Qt will tell of the view's focus last
        GiveFocus(pStop, bForward);
    }
    else if (in_eReason == Qt::TabFocusReason || in_eReason == Qt::BacktabFocusReason)
    {
        Leave(bForward);
    }
}

/// The event that closed the list has been handled, and the one that brought the focus into the page.
void CViewKeyboard::customEvent(QEvent*)
{
    m_pClosedRow = nullptr;
    QWidget* pFocused = QApplication::focusWidget();
    if (pFocused && m_pContent->isAncestorOf(pFocused))
    {
        InspectorAccessible::TellFocus(pFocused);
    }
}

void CViewKeyboard::RestoreFocus()
{
    const QWidget* pPresent = m_pView->window()->focusWidget();
    if (m_pFocused || m_iFocused < 0 || (pPresent && pPresent != m_pView))
    {
        return;
    }
    const int iRow = std::min(m_iFocused, static_cast<int>(m_pRows->All().size()));
    QWidget* pStop = FindStop(iRow - 1, true);
    pStop = pStop ? pStop : FindStop(iRow, false);
    if (pStop)
    {
        pStop->setFocus(Qt::OtherFocusReason);
    }
}

void CViewKeyboard::WatchList(QWidget* in_pControl)
{
    CInPlaceList* pList = CQTEnumDataWidget::g_pInPlaceList.get();
    if (dynamic_cast<CQTEnumDataWidget*>(in_pControl) && pList->isVisible())
    {
        m_pListRow = in_pControl;
        pList->installEventFilter(this);
    }
}

bool CViewKeyboard::IsListOver(const QWidget* in_pControl) const
{
    return m_pListRow == in_pControl && CQTEnumDataWidget::g_pInPlaceList->isVisible();
}

/// A press closes the list wherever it is; on the row that the list belongs to it does no more than that.
bool CViewKeyboard::HasClosedList(const QWidget* in_pControl, const QEvent& in_event) const
{
    const QEvent::Type eType = in_event.type();
    return m_pClosedRow == in_pControl && (eType == QEvent::MouseButtonPress || eType == QEvent::MouseButtonDblClick);
}

/// Every key that is not taken here closes the list without a choice.
bool CViewKeyboard::OnListKey(CInPlaceList& in_list, const QKeyEvent& in_key)
{
    const bool bAlt = in_key.modifiers() & Qt::AltModifier;
    switch (in_key.key())
    {
    case Qt::Key_Escape:
    case Qt::Key_F4:
        return false;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Select:
        return in_list.currentItem() && (in_list.OnItemClicked(in_list.currentItem()), true);
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        if (!bAlt)
        {
            in_list.setCurrentRow(std::max(0, std::min(TargetRow(in_list, in_key.key()), in_list.count() - 1)));
        }
        return !bAlt;
    default:
        if (!in_key.text().isEmpty() && in_key.text().at(0).isPrint())
        {
            in_list.keyboardSearch(in_key.text());
        }
        return true;
    }
}
