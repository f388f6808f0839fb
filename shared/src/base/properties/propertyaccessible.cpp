#include "propertyaccessible.h"

#include "accessiblerow.h"
#include "propertyarea.h"

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

/// The area: a form of the rows shown, the open editor and the scroll bar.
class CAccessibleArea : public QAccessibleWidget
{
public:
    explicit CAccessibleArea(CPropertyArea& in_area);
    ~CAccessibleArea() override;

    static CAccessibleArea* Of(CPropertyArea& in_area);

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
    void DeleteGone();

    mutable std::vector<QAccessible::Id> m_gone; ///< of rows that have gone, to be deleted
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

CAccessibleArea::CAccessibleArea(CPropertyArea& in_area) : QAccessibleWidget(&in_area, QAccessible::Form) {}

CAccessibleArea::~CAccessibleArea()
{
    for (const auto& known : m_known)
    {
        QAccessible::deleteAccessibleInterface(known.second.id);
    }
    DeleteGone();
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
        m_gone.push_back(it->second.id);
        m_known.erase(it);
        return nullptr;
    }
    return QAccessible::accessibleInterface(it->second.id);
}

/// What somebody has asked for is told of one by one, unless it is too much at once. Who is told may ask for more.
void CAccessibleArea::TellRows()
{
    std::vector<std::pair<QAccessible::Id, QAccessible::Event>> changes;
    for (auto it = m_known.begin(); it != m_known.end();)
    {
        const tItemPtr pItem = it->second.item.lock();
        const bool bShown = pItem && pItem->height > 0;
        if (std::exchange(it->second.shown, bShown) != bShown)
        {
            changes.emplace_back(it->second.id, bShown ? QAccessible::ObjectCreated : QAccessible::ObjectDestroyed);
        }
        pItem ? void() : m_gone.push_back(it->second.id);
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
    // Later: a row that was asked something may have had the others placed.
    QTimer::singleShot(0, Area(), [this] { DeleteGone(); });
}

void CAccessibleArea::DeleteGone()
{
    const std::vector<QAccessible::Id> gone = std::exchange(m_gone, {});
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
    const tItemPointers& shown = Area()->Shown();
    const int iRows = static_cast<int>(shown.size());
    return in_iIndex < iRows ? Row(shown[static_cast<std::size_t>(in_iIndex)]->shared_from_this())
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
    const tItemPointers& shown = Area()->Shown();
    const int iExtra = static_cast<int>(Extras().indexOf(qobject_cast<QWidget*>(in_pChild->object())));
    const auto it = std::find_if(shown.begin(), shown.end(), [in_pChild](const sPropertyItem* in_pItem) {
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
