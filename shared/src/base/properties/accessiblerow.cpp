#include "accessiblerow.h"

#include "propertytype.h"

namespace
{
const QString g_strReset = QStringLiteral("Reset"); ///< the action of a modified row
} // namespace

/// The row with its value read, which may change the page.
tItemPtr CAccessibleRow::Loaded() const
{
    tItemPtr pItem = Item();
    pItem ? m_pArea->Load(*pItem) : void();
    return pItem;
}

QString CAccessibleRow::Value() const
{
    const tItemPtr pItem = Loaded();
    return pItem && pItem->property && !pItem->mixed ? pItem->text : QString();
}

/// The tip, and what else is to be seen of the row.
QString CAccessibleRow::Description() const
{
    const tItemPtr pItem = Loaded();
    QStringList parts = pItem ? QStringList(pItem->Tip()) : QStringList();
    pItem && pItem->modified ? void(parts << tr("modified")) : void();
    pItem && pItem->mixed ? void(parts << tr("several values")) : void();
    parts.removeAll(QString());
    return parts.join(QStringLiteral("; "));
}

QString CAccessibleRow::text(QAccessible::Text in_eText) const
{
    const tItemPtr pItem = Item();
    if (!pItem)
    {
        return QString();
    }
    const QString strOwn = pItem->property ? pItem->property->Format().accessibleName : QString();
    switch (in_eText)
    {
    case QAccessible::Name:
        return strOwn.isEmpty() ? pItem->Label() : strOwn;
    case QAccessible::Description:
        return Description();
    case QAccessible::Value:
        return Value();
    default:
        return QString();
    }
}

QRect CAccessibleRow::rect() const
{
    const tItemPtr pItem = Item();
    return pItem ? m_pArea->RowRect(*pItem).translated(m_pArea->mapToGlobal(QPoint())) : QRect();
}

QAccessible::Role CAccessibleRow::role() const
{
    const tItemPtr pItem = Loaded();
    if (!pItem || !pItem->property)
    {
        const bool bGroup = pItem && pItem->kind == sPropertyItem::eGroup;
        return bGroup ? QAccessible::Grouping : QAccessible::Button;
    }
    switch (pItem->type ? pItem->type->Work() : CPropertyType::eShown)
    {
    case CPropertyType::eToggle:
        return QAccessible::CheckBox;
    case CPropertyType::eList:
        return QAccessible::ComboBox;
    case CPropertyType::eLink:
        return QAccessible::Link;
    case CPropertyType::eShown:
        return QAccessible::StaticText;
    default:
        return QAccessible::EditableText;
    }
}

QAccessible::State CAccessibleRow::state() const
{
    QAccessible::State state;
    const QAccessible::Role eRole = role();
    const tItemPtr pItem = Item();
    if (!pItem)
    {
        state.invalid = true;
        return state;
    }
    const bool bGroup = pItem->kind == sPropertyItem::eGroup;
    state.disabled = !m_pArea->isEnabled();
    state.invisible = !m_pArea->isVisible() || pItem->height == 0;
    state.offscreen = !m_pArea->rect().intersects(m_pArea->RowRect(*pItem));
    state.focusable = true;
    state.selectable = true;
    state.selected = m_pArea->Current() == pItem;
    state.focused = state.selected && m_pArea->hasFocus();
    state.readOnly = pItem->property && !pItem->IsWorked();
    state.editable = eRole == QAccessible::EditableText && !state.readOnly;
    state.expandable = bGroup;
    state.expanded = bGroup && pItem->IsExpanded();
    state.collapsed = bGroup && !pItem->IsExpanded();
    state.hasPopup = eRole == QAccessible::ComboBox;
    state.checkable = eRole == QAccessible::CheckBox;
    state.checkStateMixed = state.checkable && pItem->mixed;
    state.checked = state.checkable && !pItem->mixed && pItem->value.toBool();
    return state;
}

void* CAccessibleRow::interface_cast(QAccessible::InterfaceType in_eType)
{
    if (in_eType == QAccessible::ActionInterface)
    {
        return static_cast<QAccessibleActionInterface*>(this);
    }
    const tItemPtr pItem = Item();
    const bool bText = in_eType == QAccessible::TextInterface && pItem && pItem->property;
    return bText && role() != QAccessible::CheckBox ? static_cast<QAccessibleTextInterface*>(this) : nullptr;
}

/// The name of what Enter does, empty for nothing.
QString CAccessibleRow::Press() const
{
    const QAccessible::State present = state();
    const QAccessible::Role eRole = role();
    if (present.invalid || present.disabled || present.invisible || eRole == QAccessible::StaticText ||
        (present.readOnly && eRole != QAccessible::Link))
    {
        return QString();
    }
    return eRole == QAccessible::CheckBox   ? toggleAction()
           : eRole == QAccessible::ComboBox ? showMenuAction()
                                            : pressAction();
}

QStringList CAccessibleRow::actionNames() const
{
    const QString strPress = Press();
    const tItemPtr pItem = Item();
    QStringList names{strPress, setFocusAction()};
    pItem && pItem->modified && !strPress.isEmpty() ? void(names << g_strReset) : void();
    names.removeAll(QString());
    return names;
}

QString CAccessibleRow::localizedActionName(const QString& in_strName) const
{
    return in_strName == g_strReset ? tr("Reset") : QAccessibleActionInterface::localizedActionName(in_strName);
}

/// Each step may do anything to the page.
void CAccessibleRow::doAction(const QString& in_strName)
{
    const QPointer<CPropertyArea> pArea = m_pArea;
    const tItemPtr pItem = Item();
    const bool bPress = in_strName == Press();
    const bool bReset = in_strName == g_strReset;
    if (!pArea || !pItem || !actionNames().contains(in_strName))
    {
        return;
    }
    pArea->TakeOver();
    pArea ? pArea->SetCurrent(pItem) : void();
    pArea ? pArea->setFocus(Qt::OtherFocusReason) : void();
    if (pArea && pArea->Current() == pItem)
    {
        bPress ? pArea->Work(pItem) : bReset ? void(pArea->ResetCurrent()) : void();
    }
}

QString CAccessibleRow::attributes(int, int* out_pStart, int* out_pEnd) const
{
    *out_pStart = 0;
    *out_pEnd = characterCount();
    return QString();
}
