/// Which row is edited, and how the focus comes, goes on and leaves.
/// \file

#include "propertyaccessible.h"
#include "propertyarea.h"
#include "propertyedit.h"
#include "propertytype.h"

#include <QApplication>
#include <QFocusEvent>
#include <QScrollArea>

#include <algorithm>

namespace
{
bool TakesTab(const QWidget& in_widget)
{
    return in_widget.isVisible() && in_widget.isEnabled() && (in_widget.focusPolicy() & Qt::TabFocus) &&
           !in_widget.focusProxy();
}

/// A widget and what is in it, as far as Tab stops there, in that order.
QWidgetList TabStops(QWidget& in_root)
{
    QWidgetList stops;
    QWidget* pWidget = &in_root;
    do
    {
        if (TakesTab(*pWidget) && CPropertyType::IsWithin(pWidget, &in_root))
        {
            stops << pWidget;
        }
        pWidget = pWidget->nextInFocusChain();
    } while (pWidget != &in_root);
    return stops;
}
} // namespace

/// Whether there is a value to be edited or worked.
bool CPropertyArea::Editable(sPropertyItem& in_item)
{
    if (in_item.kind != sPropertyItem::eProperty)
    {
        return in_item.kind == sPropertyItem::eCommand ||
               (in_item.widget && (in_item.control || !TabStops(*in_item.widget).isEmpty()));
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
    pItem ? void(pItem->stale = true) : void(); // it is edited as it is now, not as it was painted
    if (!pItem || IndexOf(pItem.get()) < 0 || pItem->kind != sPropertyItem::eProperty || !isEnabled() ||
        !Editable(*pItem) || !self || pItem != Current() || pItem->type->Work() == CPropertyType::eToggle)
    {
        return nullptr;
    }
    ScrollTo(*pItem);
    m_pEdit.reset(new CPropertyEdit(*this, pItem, m_iPart));
    const QPointer<QWidget> pEditor = m_pEdit->Editor();
    if (!pEditor)
    {
        m_pEdit.reset();
        return nullptr;
    }
    m_pEdit->Open();
    return self && m_pEdit ? pEditor.data() : nullptr;
}

/// Opens the editor of the current row; of a list, what there is to choose from too.
/// \return the editor, null when there is none
QWidget* CPropertyArea::EditOpenly()
{
    const QPointer<QWidget> pEditor = EditCurrent();
    const tItemPtr pItem = pEditor ? Current() : nullptr;
    if (pItem && pItem->type->PartType(m_iPart).Work() == CPropertyType::eList)
    {
        CPropertyType::OpenList(pEditor);
    }
    return pEditor;
}

void CPropertyArea::TakeOver()
{
    if (m_pEdit)
    {
        const std::unique_ptr<CPropertyEdit> pEdit = std::move(m_pEdit); // no longer open, whatever is done meanwhile
        pEdit->Finish();
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
        PassFocusOn(in_bForward);
    }
}

/// The part or row after the current one (before it) that can be worked. Reading it may change the page.
bool CPropertyArea::EditNext(bool in_bForward)
{
    const QPointer<CPropertyArea> self(this);
    tItems rows;
    for (sPropertyItem* pItem : Shown())
    {
        rows.push_back(pItem->shared_from_this());
    }
    const tItemPtr pCurrent = Current();
    int iPart = m_iPart + (in_bForward ? 1 : -1);
    if (pCurrent && pCurrent->type && iPart >= 0 && iPart < pCurrent->type->Parts() && Editable(*pCurrent))
    {
        return self && Enter(pCurrent, iPart, in_bForward);
    }
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
            return self && Enter(pItem, iPart, in_bForward);
        }
    }
    return false;
}

/// Makes a row the current one and opens its editor, if it has one and no list that would cover others. A widget of the
/// application's gets the focus.
bool CPropertyArea::Enter(const tItemPtr& in_pItem, int in_iPart, bool in_bForward)
{
    const QPointer<CPropertyArea> self(this);
    setFocus(Qt::TabFocusReason);
    self ? SetCurrent(in_pItem, in_iPart) : void();
    if (!self || Current() != in_pItem)
    {
        return true;
    }
    if (in_pItem->widget && in_pItem->control)
    {
        in_pItem->control->StartEditing();
        return true;
    }
    const QWidgetList stops = in_pItem->widget ? TabStops(*in_pItem->widget) : QWidgetList();
    if (stops.isEmpty())
    {
        EditCurrent();
    }
    else
    {
        in_bForward ? stops.first()->setFocus(Qt::TabFocusReason) : stops.last()->setFocus(Qt::BacktabFocusReason);
    }
    return true;
}

/// Tab goes from value to value, and through the widgets of the application's that stand among them; past the last the
/// focus leaves.
bool CPropertyArea::focusNextPrevChild(bool in_bNext)
{
    const QPointer<CPropertyArea> self(this);
    if (StepInWidget(in_bNext) || !self || EditNext(in_bNext) || !self)
    {
        return true;
    }
    return PassFocusOn(in_bNext);
}

/// From one widget to the next in a row of the application's. Past the last its row is the current one.
bool CPropertyArea::StepInWidget(bool in_bNext)
{
    QWidget* pFocus = QApplication::focusWidget();
    const auto isWithin = [pFocus](const tItemPtr& in_p) { return CPropertyType::IsWithin(pFocus, in_p->widget); };
    const auto it = pFocus ? std::find_if(m_widgets.begin(), m_widgets.end(), isWithin) : m_widgets.end();
    if (it == m_widgets.end() || !(*it)->widget)
    {
        return false;
    }
    const tItemPtr pItem = *it;
    const QWidgetList stops = TabStops(*pItem->widget);
    const auto iNext = stops.indexOf(pFocus) + (in_bNext ? 1 : -1);
    if (iNext >= 0 && iNext < stops.size())
    {
        stops[iNext]->setFocus(in_bNext ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return true;
    }
    SetCurrent(pItem);
    return false;
}

/// To what follows the view (precedes it), past the widgets in its rows, wherever those stand in the chain.
bool CPropertyArea::PassFocusOn(bool in_bNext)
{
    QWidget* pWidget = this;
    do
    {
        pWidget = in_bNext ? pWidget->nextInFocusChain() : pWidget->previousInFocusChain();
    } while (pWidget != this && (!TakesTab(*pWidget) || CPropertyType::IsWithin(pWidget, this)));
    if (pWidget == this)
    {
        return false;
    }
    for (QWidget* pAround = pWidget->parentWidget(); pAround; pAround = pAround->parentWidget())
    {
        auto* pScrolled = qobject_cast<QScrollArea*>(pAround);
        pScrolled ? pScrolled->ensureWidgetVisible(pWidget) : void();
    }
    pWidget->setFocus(in_bNext ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

/// Coming in by Tab makes the first row, or the last one, current. The base would repaint the whole page: only the
/// current row looks different.
void CPropertyArea::focusInEvent(QFocusEvent* in_pEvent)
{
    const bool bByTab = in_pEvent->reason() == Qt::TabFocusReason || in_pEvent->reason() == Qt::BacktabFocusReason;
    if (bByTab && !Current())
    {
        MoveCurrent(in_pEvent->reason() == Qt::TabFocusReason ? 1 : -1);
    }
    UpdateCurrent();
    PropertyAccessible::TellCurrent(*this);
}

void CPropertyArea::focusOutEvent(QFocusEvent*)
{
    UpdateCurrent();
}
