#include "propertyaccessible.h"

#include "propertyarea.h"
#include "propertyedit.h"
#include "propertytype.h"

#include <QAccessibleWidget>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace
{
const std::size_t g_uChangesTold = 200; ///< rows that come and go at once; of more only the page is told
} // namespace

/// A row: a group's title, a property or a command.
class CAccessibleRow : public QAccessibleInterface, public QAccessibleActionInterface, public QAccessibleTextInterface
{
public:
    CAccessibleRow(CPropertyArea& in_area, const tItemPtr& in_pItem) : m_pArea(&in_area), m_pItem(in_pItem) {}

    tItemPtr Item() const { return m_pArea ? m_pItem.lock() : nullptr; }

    bool isValid() const override { return m_pArea; } // a row that has gone is told of once more
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_pArea); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QWindow* window() const override { return m_pArea ? m_pArea->window()->windowHandle() : nullptr; }
    void setText(QAccessible::Text, const QString&) override {}
    QString text(QAccessible::Text in_eText) const override;
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType in_eType) override;

    QStringList actionNames() const override;
    void doAction(const QString& in_strName) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    // The value as a text without a cursor.
    void selection(int, int* out_pStart, int* out_pEnd) const override { *out_pStart = *out_pEnd = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QString text(int in_iStart, int in_iEnd) const override { return Value().mid(in_iStart, in_iEnd - in_iStart); }
    int characterCount() const override { return static_cast<int>(Value().size()); }
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override { Item() ? m_pArea->ScrollTo(*Item()) : void(); }
    QString attributes(int, int* out_pStart, int* out_pEnd) const override;

private:
    tItemPtr Loaded() const;
    QString Value() const;
    QString Press() const;

    QPointer<CPropertyArea> m_pArea;
    std::weak_ptr<sPropertyItem> m_pItem;
};

/// The area: a form of the rows shown, the open editor and the scroll bar.
class CAccessibleArea : public QAccessibleWidget
{
public:
    explicit CAccessibleArea(CPropertyArea& in_area);
    ~CAccessibleArea() override;

    static CAccessibleArea* Of(CPropertyArea& in_area);
    static void Load(CPropertyArea& in_area, sPropertyItem& io_item) { in_area.Load(io_item); }

    /// What stands for a row: a widget's own interface where it has one.
    QAccessibleInterface* Row(const tItemPtr& in_pItem) const;

    /// Null when nobody has asked for the row yet.
    QAccessibleInterface* Known(const sPropertyItem& in_item) const;

    void TellRows();

    int childCount() const override;
    QAccessibleInterface* child(int in_iIndex) const override;
    int indexOfChild(const QAccessibleInterface* in_pChild) const override;
    QAccessibleInterface* childAt(int in_iX, int in_iY) const override;
    QAccessibleInterface* focusChild() const override;

private:
    struct sKnown
    {
        std::weak_ptr<sPropertyItem> item;
        QAccessible::Id id;
        bool shown; ///< it was when this was told last
    };

    CPropertyArea* Area() const { return qobject_cast<CPropertyArea*>(object()); }
    QWidgetList Extras() const;

    mutable std::unordered_map<const sPropertyItem*, sKnown> m_known;
    mutable std::size_t m_uShown = 0; ///< how many rows there were when this was told last
};

namespace
{
QAccessibleInterface* Make(const QString& in_strClass, QObject* in_pObject)
{
    return in_strClass == QLatin1String("CPropertyArea") ? new CAccessibleArea(static_cast<CPropertyArea&>(*in_pObject))
                                                         : nullptr;
}

void Tell(QAccessibleInterface* in_pInterface, QAccessible::Event in_eEvent)
{
    if (in_pInterface)
    {
        QAccessibleEvent event(in_pInterface, in_eEvent);
        QAccessible::updateAccessibility(&event);
    }
}
} // namespace

/// The row with its value read, which may change the page.
tItemPtr CAccessibleRow::Loaded() const
{
    const tItemPtr pItem = Item();
    pItem ? CAccessibleArea::Load(*m_pArea, *pItem) : void();
    return pItem;
}

QString CAccessibleRow::Value() const
{
    const tItemPtr pItem = Loaded();
    return pItem && pItem->property && !pItem->mixed ? pItem->text : QString();
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
        return pItem->Tip();
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
    switch (pItem->type->Work())
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
    return strPress.isEmpty() ? QStringList{setFocusAction()} : QStringList{strPress, setFocusAction()};
}

/// Each step may do anything to the page.
void CAccessibleRow::doAction(const QString& in_strName)
{
    const QPointer<CPropertyArea> pArea = m_pArea;
    const tItemPtr pItem = Item();
    const bool bPress = !in_strName.isEmpty() && in_strName == Press();
    if (!pArea || !pItem || (!bPress && in_strName != setFocusAction()))
    {
        return;
    }
    pArea->TakeOver();
    pArea ? pArea->SetCurrent(pItem) : void();
    pArea ? pArea->setFocus(Qt::OtherFocusReason) : void();
    if (pArea && bPress && pArea->Current() == pItem)
    {
        pArea->Work(pItem);
    }
}

QString CAccessibleRow::attributes(int, int* out_pStart, int* out_pEnd) const
{
    *out_pStart = 0;
    *out_pEnd = characterCount();
    return QString();
}

CAccessibleArea::CAccessibleArea(CPropertyArea& in_area) : QAccessibleWidget(&in_area, QAccessible::Form) {}

CAccessibleArea::~CAccessibleArea()
{
    for (const auto& known : m_known)
    {
        QAccessible::deleteAccessibleInterface(known.second.id);
    }
}

/// Null while nobody listens.
CAccessibleArea* CAccessibleArea::Of(CPropertyArea& in_area)
{
    return QAccessible::isActive() ? dynamic_cast<CAccessibleArea*>(QAccessible::queryAccessibleInterface(&in_area))
                                   : nullptr;
}

QAccessibleInterface* CAccessibleArea::Row(const tItemPtr& in_pItem) const
{
    if (in_pItem->kind == sPropertyItem::eWidget && in_pItem->widget)
    {
        QAccessibleInterface* pWidget = QAccessible::queryAccessibleInterface(in_pItem->widget);
        if (pWidget && pWidget->text(QAccessible::Name).isEmpty() && !in_pItem->label.isEmpty())
        {
            in_pItem->widget->setAccessibleName(in_pItem->label);
        }
        return pWidget;
    }
    QAccessibleInterface* pKnown = Known(*in_pItem);
    if (!pKnown)
    {
        pKnown = new CAccessibleRow(*Area(), in_pItem);
        m_known[in_pItem.get()] = {in_pItem, QAccessible::registerAccessibleInterface(pKnown), in_pItem->height > 0};
    }
    return pKnown;
}

/// A new row may stand where one was that has gone.
QAccessibleInterface* CAccessibleArea::Known(const sPropertyItem& in_item) const
{
    const auto it = m_known.find(&in_item);
    if (it == m_known.end())
    {
        return nullptr;
    }
    if (it->second.item.expired())
    {
        QAccessible::deleteAccessibleInterface(it->second.id);
        m_known.erase(it);
        return nullptr;
    }
    return QAccessible::accessibleInterface(it->second.id);
}

/// What somebody has asked for is told of one by one, unless it is too much at once. Who is told may ask for more.
void CAccessibleArea::TellRows()
{
    std::vector<std::pair<QAccessible::Id, QAccessible::Event>> changes;
    std::vector<QAccessible::Id> gone;
    for (auto it = m_known.begin(); it != m_known.end();)
    {
        const tItemPtr pItem = it->second.item.lock();
        const bool bShown = pItem && pItem->height > 0;
        if (std::exchange(it->second.shown, bShown) != bShown)
        {
            changes.emplace_back(it->second.id, bShown ? QAccessible::ObjectCreated : QAccessible::ObjectDestroyed);
        }
        pItem ? void() : gone.push_back(it->second.id);
        it = pItem ? std::next(it) : m_known.erase(it);
    }
    const bool bOther = std::exchange(m_uShown, Area()->Shown().size()) != Area()->Shown().size();
    for (std::size_t u = 0; u < std::min(changes.size(), g_uChangesTold); ++u)
    {
        Tell(QAccessible::accessibleInterface(changes[u].first), changes[u].second);
    }
    if (bOther || !changes.empty())
    {
        Tell(this, QAccessible::ObjectReorder);
    }
    std::for_each(gone.begin(), gone.end(), &QAccessible::deleteAccessibleInterface);
}

/// What stands in the area and is no row.
QWidgetList CAccessibleArea::Extras() const
{
    QWidgetList extras;
    QWidget* pEditor = Area()->Editor();
    pEditor ? extras.append(pEditor) : void();
    Area()->ScrollBar()->isHidden() ? void() : extras.append(Area()->ScrollBar());
    return extras;
}

int CAccessibleArea::childCount() const
{
    return Area() ? static_cast<int>(Area()->Shown().size() + static_cast<std::size_t>(Extras().size())) : 0;
}

QAccessibleInterface* CAccessibleArea::child(int in_iIndex) const
{
    if (in_iIndex < 0 || in_iIndex >= childCount())
    {
        return nullptr;
    }
    const tItems& shown = Area()->Shown();
    const int iRows = static_cast<int>(shown.size());
    return in_iIndex < iRows ? Row(shown[static_cast<std::size_t>(in_iIndex)])
                             : QAccessible::queryAccessibleInterface(Extras().at(in_iIndex - iRows));
}

int CAccessibleArea::indexOfChild(const QAccessibleInterface* in_pChild) const
{
    const auto* pRow = dynamic_cast<const CAccessibleRow*>(in_pChild);
    if (!Area() || !in_pChild)
    {
        return -1;
    }
    if (pRow)
    {
        return Area()->IndexOf(pRow->Item().get());
    }
    const tItems& shown = Area()->Shown();
    const int iExtra = static_cast<int>(Extras().indexOf(qobject_cast<QWidget*>(in_pChild->object())));
    const auto it = std::find_if(shown.begin(), shown.end(), [in_pChild](const tItemPtr& in_pItem) {
        return in_pItem->widget && in_pItem->widget == in_pChild->object();
    });
    return iExtra >= 0         ? static_cast<int>(shown.size()) + iExtra
           : it != shown.end() ? static_cast<int>(it - shown.begin())
                               : -1;
}

QAccessibleInterface* CAccessibleArea::childAt(int in_iX, int in_iY) const
{
    const QPoint position = Area() ? Area()->mapFromGlobal(QPoint(in_iX, in_iY)) : QPoint();
    const QWidgetList extras = Area() ? Extras() : QWidgetList();
    for (QWidget* pExtra : extras)
    {
        if (pExtra->rect().contains(pExtra->mapFrom(Area(), position)))
        {
            return QAccessible::queryAccessibleInterface(pExtra);
        }
    }
    const tItemPtr pItem = Area() ? Area()->HitAt(position).item : nullptr;
    return pItem ? Row(pItem) : nullptr;
}

QAccessibleInterface* CAccessibleArea::focusChild() const
{
    const tItemPtr pCurrent = Area() && Area()->hasFocus() ? Area()->Current() : nullptr;
    return pCurrent ? Row(pCurrent) : QAccessibleWidget::focusChild();
}

void PropertyAccessible::Install()
{
    QAccessible::installFactory(&Make);
}

/// Later: Qt tells of the focus of the area itself as soon as that has handled getting it.
void PropertyAccessible::TellCurrent(CPropertyArea& in_area)
{
    if (QAccessible::isActive())
    {
        QTimer::singleShot(0, &in_area, [&in_area] {
            CAccessibleArea* pArea = in_area.hasFocus() && in_area.Current() ? CAccessibleArea::Of(in_area) : nullptr;
            pArea ? Tell(pArea->Row(in_area.Current()), QAccessible::Focus) : void();
        });
    }
}

void PropertyAccessible::TellValue(CPropertyArea& in_area, sPropertyItem& in_item)
{
    const CAccessibleArea* pArea = CAccessibleArea::Of(in_area);
    QAccessibleInterface* pRow = pArea ? pArea->Known(in_item) : nullptr;
    if (!pRow)
    {
        return;
    }
    QAccessibleValueChangeEvent value(pRow, in_item.text);
    QAccessible::updateAccessibility(&value);
    if (pRow->role() == QAccessible::CheckBox)
    {
        QAccessible::State changed;
        changed.checked = true;
        QAccessibleStateChangeEvent state(pRow, changed);
        QAccessible::updateAccessibility(&state);
    }
}

void PropertyAccessible::TellExpanded(CPropertyArea& in_area, sPropertyItem& in_group)
{
    const CAccessibleArea* pArea = CAccessibleArea::Of(in_area);
    if (QAccessibleInterface* pGroup = pArea ? pArea->Known(in_group) : nullptr)
    {
        QAccessible::State changed;
        changed.expanded = true;
        QAccessibleStateChangeEvent state(pGroup, changed);
        QAccessible::updateAccessibility(&state);
    }
}

void PropertyAccessible::TellRows(CPropertyArea& in_area)
{
    CAccessibleArea* pArea = CAccessibleArea::Of(in_area);
    pArea ? pArea->TellRows() : void();
}
