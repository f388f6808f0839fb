/// How the rows are worked with mouse and keyboard.
/// \file

#include "propertiesqt.h"
#include "propertyarea.h"
#include "propertychange.h"
#include "propertyedit.h"
#include "propertytype.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

namespace
{
const int g_iPixelsPerStep = 4; ///< of a drag on a label
} // namespace

/// Whether there is a value to be edited or worked.
bool CPropertyArea::Editable(sPropertyItem& in_item)
{
    if (in_item.kind != sPropertyItem::eProperty)
    {
        return in_item.kind == sPropertyItem::eCommand;
    }
    Load(in_item);
    return !in_item.property->IsReadOnly() && in_item.type->Work() != CPropertyType::eShown &&
           in_item.type->Work() != CPropertyType::eLink && in_item.value.isValid();
}

QWidget* CPropertyArea::EditCurrent()
{
    const QPointer<CPropertyArea> self(this);
    TakeOver();
    const tItemPtr pItem = self ? Current() : nullptr;
    if (!pItem || IndexOf(pItem.get()) < 0 || pItem->kind != sPropertyItem::eProperty || !isEnabled() ||
        !Editable(*pItem) || !self || pItem != Current() || pItem->type->Work() == CPropertyType::eToggle)
    {
        return nullptr;
    }
    ScrollTo(*pItem);
    m_pEdit.reset(new CPropertyEdit(*this, pItem, m_iPart));
    if (!m_pEdit->Editor())
    {
        m_pEdit.reset();
        return nullptr;
    }
    return m_pEdit->Editor();
}

void CPropertyArea::TakeOver()
{
    if (m_pEdit)
    {
        const std::unique_ptr<CPropertyEdit> pEdit = std::move(m_pEdit); // no longer open, whatever is done meanwhile
        pEdit->Write();
    }
}

void CPropertyArea::Cancel()
{
    if (m_pEdit)
    {
        const std::unique_ptr<CPropertyEdit> pEdit = std::move(m_pEdit);
        pEdit->TakeBack();
    }
}

void CPropertyArea::Leave(bool in_bForward)
{
    const QPointer<CPropertyArea> self(this);
    TakeOver();
    if (self && !EditNext(in_bForward) && self)
    {
        CQTInspectorView::focusNextPrevChild(in_bForward);
    }
}

/// The part or row after the current one (before it) that can be worked. Reading it may change the page.
bool CPropertyArea::EditNext(bool in_bForward)
{
    const QPointer<CPropertyArea> self(this);
    const tItemPtr pCurrent = Current();
    int iPart = m_iPart + (in_bForward ? 1 : -1);
    if (pCurrent && pCurrent->type && iPart >= 0 && iPart < pCurrent->type->Parts() && Editable(*pCurrent))
    {
        return self && Enter(pCurrent, iPart);
    }
    const tItems rows = Shown();
    const int iRows = static_cast<int>(rows.size());
    const int iStep = in_bForward ? 1 : -1;
    const int iStart = pCurrent ? IndexOf(pCurrent.get()) : (in_bForward ? -1 : iRows);
    for (int i = iStart + iStep; i >= 0 && i < iRows; i += iStep)
    {
        const tItemPtr& pItem = rows[static_cast<std::size_t>(i)];
        const bool bEditable = Editable(*pItem);
        if (!self || bEditable)
        {
            iPart = self && pItem->type && !in_bForward ? pItem->type->Parts() - 1 : 0;
            return self && Enter(pItem, iPart);
        }
    }
    return false;
}

/// Makes a row the current one and opens its editor, if it has one and no list that would cover others.
bool CPropertyArea::Enter(const tItemPtr& in_pItem, int in_iPart)
{
    setFocus(Qt::TabFocusReason);
    SetCurrent(in_pItem, in_iPart);
    EditCurrent();
    return true;
}

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
        m_page.Run(in_pItem);
        return;
    }
    if (in_pItem->kind != sPropertyItem::eProperty)
    {
        in_pItem->widget ? in_pItem->widget->setFocus(Qt::OtherFocusReason) : void();
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
        m_page.Write(in_pItem->property, in_pItem->mixed || !in_pItem->value.toBool());
        break;
    case CPropertyType::eLink:
        Follow(*in_pItem);
        break;
    default:
        CPropertyType::OpenList(EditCurrent());
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

void CPropertyArea::mousePressEvent(QMouseEvent* in_pEvent)
{
    const sHit hit = HitAt(PropertiesQt::Position(*in_pEvent));
    if (in_pEvent->button() != Qt::LeftButton)
    {
        hit.item ? SetCurrent(hit.item, hit.part) : void();
        return;
    }
    m_dragFrom = PropertiesQt::Position(*in_pEvent);
    m_eDrag = eNoDrag;
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
    if (in_hit.zone == sHit::eValue || in_hit.zone == sHit::eTitle)
    {
        Work(in_hit.item);
        return;
    }
    if (Editable(*in_hit.item) && self && in_hit.item->property)
    {
        m_dragValue = in_hit.item->value;
        m_pDragStep = std::make_shared<CPropertyStep>();
        const bool bSteps = !in_hit.item->mixed &&
                            in_hit.item->type->Stepped(in_hit.item->property->Format(), m_dragValue, 1).isValid();
        m_eDrag = bSteps ? eDragValue : eNoDrag;
    }
}

void CPropertyArea::mouseMoveEvent(QMouseEvent* in_pEvent)
{
    const QPoint position = PropertiesQt::Position(*in_pEvent);
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
    const tItemPtr pItem = Current();
    const int iSteps = (in_position.x() - m_dragFrom.x()) * (bRightToLeft ? -1 : 1) / g_iPixelsPerStep;
    if (pItem && pItem->property)
    {
        const QVariant value = pItem->type->Stepped(pItem->property->Format(), m_dragValue, iSteps);
        value.isValid() && value != pItem->value ? void(m_page.Write(pItem->property, value, m_pDragStep)) : void();
    }
}

void CPropertyArea::mouseReleaseEvent(QMouseEvent*)
{
    m_eDrag = eNoDrag;
}

void CPropertyArea::mouseDoubleClickEvent(QMouseEvent* in_pEvent)
{
    const sHit hit = HitAt(PropertiesQt::Position(*in_pEvent));
    if (hit.zone == sHit::eBorder)
    {
        SetLabelColumn(FittingColumn(true));
    }
    else if (hit.zone == sHit::eLabel)
    {
        SetCurrent(hit.item, hit.part);
        Work(hit.item);
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
        lines << (hit.zone == sHit::eValue ? hit.item->text : hit.item->Label()).toHtmlEscaped();
    }
    if (hit.item && !hit.item->Tip().isEmpty())
    {
        lines << hit.item->Tip();
    }
    QToolTip::showText(in_global, lines.join(QStringLiteral("<br>")), this);
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
        return true;
    }
    return CQTInspectorView::event(in_pEvent);
}

void CPropertyArea::keyPressEvent(QKeyEvent* in_pEvent)
{
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
    else if (!(in_pEvent->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)))
    {
        Navigate(in_pEvent->key()) || WorkKey(*in_pEvent) ? void() : CQTInspectorView::keyPressEvent(in_pEvent);
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

bool CPropertyArea::Navigate(int in_iKey)
{
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
    case Qt::Key_Right:
        return SideStep(!bRightToLeft);
    default:
        return false;
    }
}

bool CPropertyArea::MoveCurrent(int in_iRows)
{
    const tItems& shown = Shown();
    const int iLast = static_cast<int>(shown.size()) - 1;
    if (iLast >= 0)
    {
        const int iNow = IndexOf(Current().get());
        const int iNext = iNow < 0 ? (in_iRows < 0 ? iLast : 0) : std::max(0, std::min(iLast, iNow + in_iRows));
        SetCurrent(tItemPtr(shown[static_cast<std::size_t>(iNext)]));
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
        EditCurrent();
        return true;
    }
    if (iKey == Qt::Key_Delete && CanResetCurrent())
    {
        ResetCurrent();
        return true; // whatever came of it: this may be gone
    }
    const bool bTyped = pItem->type && pItem->type->Work() == CPropertyType::eTyped;
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
    QWidget* pEditor = EditCurrent();
    QWidget* pFocus = QApplication::focusWidget();
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
        return pItem && pItem->type && pItem->type->Work() == CPropertyType::eTyped && pItem->IsWorked();
    }
    return in_eQuery == Qt::ImCursorRectangle && pItem ? QVariant(PartRect(*pItem, m_iPart))
                                                       : CQTInspectorView::inputMethodQuery(in_eQuery);
}

/// Tab goes from value to value; past the last the focus leaves. Coming in by Tab makes the first row, or the last one,
/// current.
bool CPropertyArea::focusNextPrevChild(bool in_bNext)
{
    const QPointer<CPropertyArea> self(this);
    if (EditNext(in_bNext) || !self)
    {
        return true;
    }
    return CQTInspectorView::focusNextPrevChild(in_bNext);
}
