#include "propertyrows.h"

#include "propertymodified.h"
#include "propertyundo.h"

#include <iterator>

CPropertyRows::CPropertyRows(CPropertyPage& in_page) : m_page(in_page), m_pUndo(new CPropertyUndo) {}

/// Widgets that no view has shown yet are nobody else's.
CPropertyRows::~CPropertyRows()
{
    for (const tItemPtr& pItem : m_items)
    {
        delete pItem->widget;
    }
}

CPropertyGroup CPropertyRows::AddGroup(const QString& in_strTitle)
{
    const tItemPtr pItem = std::make_shared<sPropertyItem>(sPropertyItem::eGroup);
    pItem->label = in_strTitle;
    return GroupOf(Insert(pItem, nullptr));
}

void CPropertyRows::Clear()
{
    const QPointer<CPropertyRows> self(this);
    if (m_pClient)
    {
        m_pClient->PageAboutToChange();
    }
    if (self)
    {
        StopListening();
        const tItems gone = std::move(m_items);
        m_items.clear();
        m_pReferences ? m_pReferences->Forget() : void();
        RowsChanged();
        for (const tItemPtr& pItem : gone)
        {
            if (pItem->widget)
            {
                pItem->widget->hide();
                pItem->widget->deleteLater(); // its own code may be what changes the page
            }
        }
    }
}

void CPropertyRows::Refresh()
{
    for (const tItemPtr& pItem : m_items)
    {
        pItem->stale = true;
    }
    if (m_pClient)
    {
        m_pClient->AllItemsChanged();
    }
}

void CPropertyRows::Run(const tItemPtr& in_pCommand)
{
    const QPointer<CPropertyRows> self(this);
    const tItemPtr pCommand = in_pCommand;
    if (pCommand->command)
    {
        pCommand->command();
    }
    if (self)
    {
        Refresh();
    }
}

/// Puts a row after all else that its group (null: the page) holds.
tItemPtr CPropertyRows::Insert(const tItemPtr& in_pItem, const tItemPtr& in_pGroup)
{
    const auto isWithin = [&in_pGroup](const sPropertyItem* in_p) {
        while (in_p && in_p != in_pGroup.get())
        {
            in_p = in_p->parent;
        }
        return in_p != nullptr;
    };
    auto position = m_items.end();
    if (in_pGroup)
    {
        in_pItem->parent = in_pGroup.get();
        in_pItem->depth = in_pGroup->depth + (in_pGroup->label.isEmpty() ? 0 : 1);
        while (position != m_items.begin() && !isWithin(std::prev(position)->get()))
        {
            --position;
        }
    }
    m_items.insert(position, in_pItem);
    Listen(*in_pItem);
    RowsChanged();
    return in_pItem;
}

void CPropertyRows::Listen(sPropertyItem& in_item)
{
    if (!in_item.property)
    {
        return;
    }
    const QMetaMethod slot = staticMetaObject.method(staticMetaObject.indexOfSlot("OnNotified()"));
    for (const CProperty::sNotifier& notifier : in_item.property->Notifiers())
    {
        sListeners& listeners = m_listeners[tSignal(notifier.sender, notifier.signal.methodIndex())];
        if (!listeners.connection) // none yet, or of an object that died and left its address to this one
        {
            listeners.connection = connect(notifier.sender, notifier.signal, this, slot);
        }
        listeners.rows.push_back(&in_item);
    }
    for (const CProperty* pMember : in_item.property->Members())
    {
        ListenForDeath(pMember->Object());
    }
}

/// The values of an object go with it.
void CPropertyRows::ListenForDeath(const QObject* in_pObject)
{
    const int iSignal = QMetaMethod::fromSignal(&QObject::destroyed).methodIndex();
    sListeners* pListeners = in_pObject ? &m_listeners[tSignal(in_pObject, iSignal)] : nullptr;
    if (pListeners && !pListeners->connection)
    {
        pListeners->connection = connect(in_pObject, &QObject::destroyed, this, &CPropertyRows::Refresh);
    }
}

void CPropertyRows::StopListening()
{
    for (const auto& listener : m_listeners)
    {
        disconnect(listener.second.connection);
    }
    m_listeners.clear();
}

void CPropertyRows::OnNotified()
{
    const auto it = m_listeners.find(tSignal(sender(), senderSignalIndex()));
    if (it != m_listeners.end())
    {
        for (sPropertyItem* pItem : it->second.rows)
        {
            ItemChanged(*pItem);
        }
    }
}

void CPropertyRows::ItemChanged(sPropertyItem& in_item)
{
    in_item.stale = true;
    if (m_pClient)
    {
        m_pClient->ItemChanged(in_item);
    }
}

void CPropertyRows::RowsChanged()
{
    if (m_pClient)
    {
        m_pClient->PageChanged();
    }
}
