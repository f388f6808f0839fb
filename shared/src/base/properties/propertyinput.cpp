/// How the rows are worked with mouse and keyboard.
/// \file

#include "propertiesqt.h"
#include "propertyarea.h"
#include "propertychange.h"
#include "propertyedit.h"
#include "propertytype.h"

#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

namespace
{
const int g_iPixelsPerStep = 4; ///< of a drag on a label
} // namespace

/// What Space, Enter and a press do: opens the editor, toggles a box, runs a command, follows a link.
void CPropertyArea::Work(const tItemPtr& in_pItem)
{
    const QPointer<CPropertyArea> self(this);
    if (in_pItem->kind == sPropertyItem::eGroup)
    {
        SetExpanded(*in_pItem, !in_pItem->IsExpanded());
        return;
    }
    if (in_pItem->kind == sPropertyItem::eCommand)
    {
        m_rows.Run(in_pItem);
        return;
    }
    if (in_pItem->kind != sPropertyItem::eProperty)
    {
        WorkWidget(*in_pItem);
        return;
    }
    Load(*in_pItem);
    if (!self || in_pItem != Current())
    {
        return;
    }
    switch (in_pItem->type->Work())
    {
    case CPropertyType::eToggle:
        m_rows.Write(in_pItem->property, in_pItem->mixed || !in_pItem->value.toBool());
        break;
    case CPropertyType::eLink:
        Follow(*in_pItem);
        break;
    default:
        EditOpenly();
        break;
    }
}

void CPropertyArea::Follow(const sPropertyItem& in_item)
{
    if (QObject* pObject = in_item.value.value<QObject*>())
    {
        Q_EMIT LinkActivated(pObject);
    }
}

void CPropertyArea::TakeOverForPress(const QPoint& in_global)
{
    const QPointer<CPropertyArea> self(this);
    const QPoint place = mapFromGlobal(in_global);
    const QWidget* pChild = childAt(place); // what has presses of its own is no concern of the rows
    const bool bOnRows = rect().contains(place) && (!pChild || pChild == m_pContentWidget);
    const tItemPtr pAimed = bOnRows ? HitAt(place).item : nullptr;
    const QStringList aimed = pAimed ? PathOf(*pAimed) : QStringList();
    TakeOver();
    self ? void(m_aimed = aimed) : void();
}

void CPropertyArea::mousePressEvent(QMouseEvent* in_pEvent)
{
    const sHit hit = HitAt(PropertiesQt::Position(*in_pEvent));
    const QStringList aimed = std::exchange(m_aimed, QStringList());
    if (!aimed.isEmpty() && (!hit.item || PathOf(*hit.item) != aimed))
    {
        return; // what was typed has put another row there
    }
    if (in_pEvent->button() != Qt::LeftButton)
    {
        hit.item ? SetCurrent(hit.item, hit.part) : void();
        return;
    }
    m_dragFrom = PropertiesQt::Position(*in_pEvent);
    EndDrag();
    if (hit.item)
    {
        Press(hit);
    }
}

void CPropertyArea::Press(const sHit& in_hit)
{
    const QPointer<CPropertyArea> self(this);
    if (in_hit.zone == sHit::eBorder)
    {
        m_eDrag = eDragBorder;
        return;
    }
    SetCurrent(in_hit.item, in_hit.part);
    if (!self || in_hit.item != Current())
    {
        return;
    }
    if (in_hit.zone == sHit::eReset)
    {
        ResetCurrent();
        return;
    }
    if (in_hit.zone == sHit::eValue && in_hit.item->kind == sPropertyItem::eCommand)
    {
        m_pressed = in_hit.item; // works when it is released, as buttons do
        return;
    }
    if (in_hit.zone == sHit::eValue && in_hit.item->type &&
        in_hit.item->type->PartType(in_hit.part).Work() == CPropertyType::eList)
    {
        PressList();
        return;
    }
    if (in_hit.zone == sHit::eValue || in_hit.zone == sHit::eTitle)
    {
        IsBeside(*in_hit.item, m_dragFrom) ? void() : Work(in_hit.item);
        return;
    }
    if (Editable(*in_hit.item) && self && in_hit.item->property)
    {
        m_dragValue = in_hit.item->value;
        m_pDragStep = std::make_shared<CPropertyStep>();
        m_eDrag = Steps(*in_hit.item) ? eDragValue : eNoDrag;
        m_dragged = in_hit.item;
    }
}

/// Whether a drag on the label changes the value.
bool CPropertyArea::Steps(const sPropertyItem& in_item)
{
    return in_item.property && in_item.type && in_item.IsWorked() && !in_item.mixed &&
           in_item.type->Stepped(in_item.property->Format(), in_item.value, 1).isValid();
}

/// Whether a value is a box, and a place of it so far from that box that a press there means the row.
bool CPropertyArea::IsBeside(const sPropertyItem& in_item, const QPoint& in_position) const
{
    const QRect value = Mirrored(ValueRect(in_item)); // from left to right
    const int iFromEdge = Mirrored(QRect(in_position, QSize(1, 1))).x() - value.left();
    return in_item.type && in_item.type->Work() == CPropertyType::eToggle && iFromEdge > value.height() * 3 / 2;
}

/// A list that is opened by a press knows that its release chooses nothing.
void CPropertyArea::PressList()
{
    if (auto* pList = qobject_cast<QComboBox*>(EditCurrent()))
    {
        const QPoint centre = pList->rect().center();
        QMouseEvent press(QEvent::MouseButtonPress, centre, pList->mapToGlobal(centre), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(pList, &press);
    }
}

void CPropertyArea::mouseMoveEvent(QMouseEvent* in_pEvent)
{
    const QPoint position = PropertiesQt::Position(*in_pEvent);
    if (!(in_pEvent->buttons() & Qt::LeftButton))
    {
        EndDrag(); // released over a window that a setter opened
    }
    if (m_eDrag != eNoDrag)
    {
        DragTo(position);
        return;
    }
    const sHit hit = HitAt(position);
    const bool bLink = hit.zone == sHit::eValue && hit.item->type && hit.item->type->Work() == CPropertyType::eLink;
    if (hit.zone == sHit::eBorder)
    {
        setCursor(Qt::SplitHCursor);
    }
    else if (hit.zone == sHit::eLabel && Steps(*hit.item))
    {
        setCursor(Qt::SizeHorCursor);
    }
    else
    {
        bLink ? setCursor(Qt::PointingHandCursor) : unsetCursor();
    }
}

void CPropertyArea::DragTo(const QPoint& in_position)
{
    const bool bRightToLeft = layoutDirection() == Qt::RightToLeft;
    if (m_eDrag == eDragBorder)
    {
        SetLabelColumn(std::max(0, bRightToLeft ? RowWidth() - in_position.x() : in_position.x()));
        return;
    }
    const tItemPtr pItem = m_dragged.lock();
    const int iSteps = (in_position.x() - m_dragFrom.x()) * (bRightToLeft ? -1 : 1) / g_iPixelsPerStep;
    if (pItem && pItem->property)
    {
        const QVariant value = pItem->type->Stepped(pItem->property->Format(), m_dragValue, iSteps);
        value.isValid() && value != pItem->value ? void(m_rows.Write(pItem->property, value, m_pDragStep)) : void();
    }
}

void CPropertyArea::mouseReleaseEvent(QMouseEvent* in_pEvent)
{
    const tItemPtr pPressed = m_pressed.lock();
    if (in_pEvent->button() != Qt::LeftButton)
    {
        return;
    }
    EndDrag();
    if (pPressed && pPressed->height > 0 && ValueRect(*pPressed).contains(PropertiesQt::Position(*in_pEvent)))
    {
        Work(pPressed);
    }
}

void CPropertyArea::EndDrag()
{
    const tItemPtr pPressed = m_pressed.lock();
    m_eDrag = eNoDrag;
    m_dragged.reset();
    m_pressed.reset();
    pPressed ? update() : void();
}

void CPropertyArea::mouseDoubleClickEvent(QMouseEvent* in_pEvent)
{
    const QPointer<CPropertyArea> self(this);
    const sHit hit = HitAt(PropertiesQt::Position(*in_pEvent));
    const bool bLeft = in_pEvent->button() == Qt::LeftButton;
    if (bLeft && hit.zone == sHit::eBorder)
    {
        SetLabelColumn(FittingColumn(true));
    }
    else if (bLeft && hit.zone == sHit::eLabel)
    {
        SetCurrent(hit.item, hit.part);
        self&& Current() == hit.item ? Work(hit.item) : void();
    }
    else
    {
        mousePressEvent(in_pEvent); // the second press of two quick ones
    }
}

bool CPropertyArea::ShowTip(const QPoint& in_position, const QPoint& in_global)
{
    const sHit hit = HitAt(in_position);
    QStringList lines;
    if (hit.zone == sHit::eReset)
    {
        lines << tr("Reset (Delete)");
    }
    else if (hit.item && IsCut(hit))
    {
        lines << WholeText(hit).toHtmlEscaped();
    }
    const QString strTip = hit.item ? hit.item->Tip() : QString();
    if (!strTip.isEmpty())
    {
        lines << (Qt::mightBeRichText(strTip) ? strTip : strTip.toHtmlEscaped());
    }
    const QString strAll = lines.join(QStringLiteral("<br>"));
    QToolTip::showText(in_global, strAll.isEmpty() ? QString() : QStringLiteral("<qt>%1</qt>").arg(strAll), this);
    return true;
}

bool CPropertyArea::event(QEvent* in_pEvent)
{
    if (in_pEvent->type() == QEvent::ToolTip)
    {
        const auto* pHelp = static_cast<QHelpEvent*>(in_pEvent);
        return ShowTip(pHelp->pos(), pHelp->globalPos());
    }
    if (in_pEvent->type() == QEvent::ShortcutOverride && UndoKey(*static_cast<QKeyEvent*>(in_pEvent)))
    {
        in_pEvent->accept(); // the page's own undo before the application's
        return true;
    }
    if (in_pEvent->type() == QEvent::LayoutRequest)
    {
        const QPointer<CPropertyArea> self(this);
        ReadForFilter();
        self ? EnsureLayout() : void();
        if (self && std::exchange(m_bCurrentWent, false))
        {
            Q_EMIT CurrentChanged();
        }
        return true;
    }
    return CQTInspectorView::event(in_pEvent);
}

void CPropertyArea::keyPressEvent(QKeyEvent* in_pEvent)
{
    EnsureLayout();
    const tItemPtr pItem = IndexOf(Current().get()) < 0 ? nullptr : Current();
    const bool bMenu = in_pEvent->key() == Qt::Key_Menu ||
                       (in_pEvent->key() == Qt::Key_F10 && in_pEvent->modifiers() == Qt::ShiftModifier);
    if (UndoKey(*in_pEvent))
    {
        UndoOrRedo(*in_pEvent);
    }
    else if (pItem && in_pEvent->matches(QKeySequence::Copy))
    {
        Copy(pItem);
    }
    else if (pItem && in_pEvent->matches(QKeySequence::Paste))
    {
        Paste(pItem);
    }
    else if (bMenu)
    {
        OpenMenuOfCurrent();
    }
    else if (!IsCommand(*in_pEvent))
    {
        const QPointer<CPropertyArea> self(this);
        const bool bWorked = Navigate(in_pEvent->key()) || WorkKey(*in_pEvent);
        self && !bWorked ? CQTInspectorView::keyPressEvent(in_pEvent) : void();
    }
    else if (in_pEvent->modifiers() == Qt::ControlModifier &&
             (in_pEvent->key() == Qt::Key_Left || in_pEvent->key() == Qt::Key_Right))
    {
        ExpandAll((in_pEvent->key() == Qt::Key_Right) == (layoutDirection() == Qt::LeftToRight));
    }
    else
    {
        CQTInspectorView::keyPressEvent(in_pEvent);
    }
}

/// Whether a key is held down with others that make a shortcut of it. Ctrl and Alt at once, and the group switch, write
/// characters on many keyboards.
bool CPropertyArea::IsCommand(const QKeyEvent& in_event)
{
    const Qt::KeyboardModifiers eWriting = Qt::ControlModifier | Qt::AltModifier;
    const Qt::KeyboardModifiers eModifiers = in_event.modifiers() & (eWriting | Qt::MetaModifier);
    const bool bWrites = eModifiers == eWriting && !in_event.text().isEmpty() && in_event.text().at(0).isPrint();
    return eModifiers && !bWrites;
}

/// Of the keys that lead elsewhere an open editor takes those that it has a use for; any other ends its edit.
bool CPropertyArea::Navigate(int in_iKey)
{
    if (in_iKey < Qt::Key_Home || in_iKey > Qt::Key_PageDown)
    {
        return false;
    }
    const QPointer<CPropertyArea> self(this);
    TakeOver();
    if (!self)
    {
        return true;
    }
    const int iPage = std::max(1, height() / m_iRowHeight - 1);
    const int iAll = static_cast<int>(Shown().size());
    const bool bRightToLeft = layoutDirection() == Qt::RightToLeft;
    switch (in_iKey)
    {
    case Qt::Key_Up:
        return MoveCurrent(-1);
    case Qt::Key_Down:
        return MoveCurrent(1);
    case Qt::Key_PageUp:
        return MoveCurrent(-iPage);
    case Qt::Key_PageDown:
        return MoveCurrent(iPage);
    case Qt::Key_Home:
        return MoveCurrent(-iAll);
    case Qt::Key_End:
        return MoveCurrent(iAll);
    case Qt::Key_Left:
        return SideStep(bRightToLeft);
    default: // Qt::Key_Right
        return SideStep(!bRightToLeft);
    }
}

bool CPropertyArea::MoveCurrent(int in_iRows)
{
    const tItemPointers& shown = Shown();
    const int iLast = static_cast<int>(shown.size()) - 1;
    if (iLast >= 0)
    {
        const int iNow = IndexOf(Current().get());
        const int iStart = iNow < 0 && in_iRows == -1 ? iLast + 1 : iNow; // where nothing is current Up begins below
        const int iNext = std::max(0, std::min(iLast, iStart + in_iRows));
        SetCurrent(shown[static_cast<std::size_t>(iNext)]->shared_from_this());
    }
    return true;
}

/// Folds or unfolds a group, goes to the next part of a value, or from a row to its group.
bool CPropertyArea::SideStep(bool in_bForward)
{
    const tItemPtr pItem = Current();
    if (!pItem)
    {
        return true;
    }
    const int iPart = m_iPart + (in_bForward ? 1 : -1);
    if (pItem->kind == sPropertyItem::eGroup && pItem->IsExpanded() != in_bForward)
    {
        SetExpanded(*pItem, in_bForward);
    }
    else if (pItem->type && iPart >= 0 && iPart < pItem->type->Parts())
    {
        SetCurrent(pItem, iPart);
    }
    else if (!in_bForward && pItem->parent && pItem->parent->height > 0)
    {
        SetCurrent(pItem->parent->shared_from_this());
    }
    return true;
}

/// Keys that work the current row.
bool CPropertyArea::WorkKey(const QKeyEvent& in_event)
{
    const tItemPtr pItem = Current();
    if (IndexOf(pItem.get()) < 0) // none, or folded away or left out by the filter
    {
        return false;
    }
    const int iKey = in_event.key();
    if (iKey == Qt::Key_F2)
    {
        EditOpenly();
        return true;
    }
    if (iKey == Qt::Key_Delete && CanResetCurrent())
    {
        ResetCurrent();
        return true; // whatever came of it: this may be gone
    }
    const bool bTyped = pItem->type && pItem->type->PartType(m_iPart).Work() == CPropertyType::eTyped;
    if (iKey == Qt::Key_Return || iKey == Qt::Key_Enter || (iKey == Qt::Key_Space && !bTyped))
    {
        Work(pItem);
        return true;
    }
    const QString strText = in_event.text();
    return !strText.isEmpty() && strText.at(0).isPrint() && TypeInto(in_event);
}

/// A key that is typed on a row begins its editing and is the first that the editor gets.
bool CPropertyArea::TypeInto(const QKeyEvent& in_event)
{
    const QWidget* pEditor = EditOpenly();
    QWidget* pPopup = QApplication::activePopupWidget();
    QWidget* pFocus = pPopup && pPopup->focusWidget() ? pPopup->focusWidget() : QApplication::focusWidget();
    if (!pEditor || !CPropertyType::IsWithin(pFocus, pEditor))
    {
        return pEditor != nullptr;
    }
    QKeyEvent again(QEvent::KeyPress, in_event.key(), in_event.modifiers(), in_event.text(), in_event.isAutoRepeat());
    QCoreApplication::sendEvent(pFocus, &again);
    return true;
}

void CPropertyArea::inputMethodEvent(QInputMethodEvent* in_pEvent)
{
    QWidget* pEditor = EditCurrent();
    QWidget* pFocus = QApplication::focusWidget();
    if (pEditor && CPropertyType::IsWithin(pFocus, pEditor))
    {
        QCoreApplication::sendEvent(pFocus, in_pEvent);
        return;
    }
    in_pEvent->ignore();
}

QVariant CPropertyArea::inputMethodQuery(Qt::InputMethodQuery in_eQuery) const
{
    const tItemPtr pItem = Current();
    if (in_eQuery == Qt::ImEnabled)
    {
        return pItem && pItem->type && pItem->type->PartType(m_iPart).Work() == CPropertyType::eTyped &&
               pItem->IsWorked();
    }
    return in_eQuery == Qt::ImCursorRectangle && pItem ? QVariant(PartRect(*pItem, m_iPart))
                                                       : CQTInspectorView::inputMethodQuery(in_eQuery);
}
