#include "inspectorcontroller.h"

#include "inspectorview.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <type_traits>
#include <utility>

namespace
{
template <class T> void DeleteAndClear(T*& io_pObject)
{
    T* pObject = io_pObject;
    io_pObject = nullptr;
    delete pObject;
}

/// Deletes what a vector of notices holds; their destructors may queue more behind.
template <class T> void DeleteAll(std::vector<T*> in_notices)
{
    for (T* pNotice : in_notices)
    {
        delete pNotice;
    }
}
} // namespace

CInspectorController::IControllerData::~IControllerData() = default;

CInspectorController::IDirtyControllerDataInfo::~IDirtyControllerDataInfo() = default;

CInspectorController::sInspectorControllerData::sInspectorControllerData(CInspectorDataElement* in_pElement,
                                                                         CInspectorDataWidget* in_pWidget)
{
    m_elementLink.Bind(element, in_pElement);
    m_widgetLink.Bind(widget, in_pWidget);
}

CInspectorController::sInspectorControllerData::~sInspectorControllerData()
{
    DeleteOwned();
}

/// Each is unknown here before it is deleted: its destructor may call back, or delete the view with the widget in it.
/// Element and widget are unknown everywhere, as another item may hold them too.
void CInspectorController::sInspectorControllerData::DeleteOwned()
{
    DeleteAndClear(data);
    if (CInspectorDataElement* pElement = std::exchange(element, nullptr))
    {
        pElement->m_anchor.Break();
        delete pElement;
    }
    if (CInspectorDataWidget* pWidget = std::exchange(widget, nullptr))
    {
        pWidget->ReleaseOwners();
        delete pWidget;
    }
}

CInspectorController::~CInspectorController()
{
    m_bHandling = true; // the application's handlers are gone already
    ClearAllData();
    if (m_pView && m_pView->m_pController == this)
    {
        m_pView->m_pController = nullptr;
    }
}

/// The view. The application writes the pointer itself, so each look at it links it anew: it is then not reached after
/// its death. Hence a look before anything that calls out.
CInspectorView* CInspectorController::View()
{
    m_viewLink.Bind(m_pView, m_pView);
    return m_pView;
}

void CInspectorController::DirtyView()
{
    if (CInspectorView* pView = View())
    {
        pView->DirtyView();
    }
}

void CInspectorController::AddItem(CInspectorDataElement* in_pElement, CInspectorDataWidget* in_pWidget,
                                   IControllerData* in_pData)
{
    View();
    sInspectorControllerData* pItem = new sInspectorControllerData(in_pElement, in_pWidget);
    in_pElement->SetDataControl(in_pWidget, this);
    in_pWidget->SetDataElement(in_pElement);
    pItem->data = in_pData;
    m_items.push_back(pItem);
}

void CInspectorController::RemoveItem(CInspectorDataElement* in_pElement)
{
    const auto it = std::find_if(m_items.begin(), m_items.end(), [in_pElement](const sInspectorControllerData* in_p) {
        return in_p->element == in_pElement;
    });
    if (it != m_items.end())
    {
        Dismiss(*it);
    }
}

/// Disconnects an item, takes it off the list and destroys it. An item that is being dismissed further up the stack is
/// only taken off: it is destroyed when its Disconnect has returned.
void CInspectorController::Dismiss(sInspectorControllerData* in_pItem)
{
    if (in_pItem->m_bLeaving)
    {
        Unlist(in_pItem);
        return;
    }
    View();
    in_pItem->m_bLeaving = true;
    std::unique_ptr<sInspectorControllerData> item(in_pItem);
    const tSelf self(this);
    if (in_pItem->element)
    {
        in_pItem->element->Disconnect();
    }
    if (self)
    {
        Unlist(in_pItem);
    }
    item->DeleteOwned();
    if (self)
    {
        DropNotices(in_pItem); // queued by the destructor of the application's data
    }
}

void CInspectorController::Unlist(sInspectorControllerData* in_pItem)
{
    const auto it = std::find(m_items.begin(), m_items.end(), in_pItem);
    if (it != m_items.end())
    {
        m_items.erase(it);
    }
    in_pItem->m_bListed = false;
    DropNotices(in_pItem);
}

void CInspectorController::DropNotices(sInspectorControllerData* in_pItem)
{
    const tSelf self(this);
    for (auto it = m_dirtyItems.find(in_pItem); it != m_dirtyItems.end();)
    {
        std::vector<IDirtyControllerDataInfo*> notices = std::move(it->second);
        m_dirtyItems.erase(it);
        DeleteAll(std::move(notices));
        if (!self)
        {
            return;
        }
        it = m_dirtyItems.find(in_pItem); // their destructors may have queued more
    }
}

void CInspectorController::DropAllItemNotices()
{
    const tSelf self(this);
    while (self && !m_dirtyItems.empty())
    {
        std::map<sInspectorControllerData*, std::vector<IDirtyControllerDataInfo*>> dropped;
        dropped.swap(m_dirtyItems);
        for (auto& entry : dropped)
        {
            DeleteAll(std::move(entry.second)); // whose destructors may queue more
        }
    }
}

/// By index, as a notice's destructor may queue another.
void CInspectorController::DropControllerNotices(std::size_t in_uFirst)
{
    const tSelf self(this);
    for (std::size_t u = in_uFirst; self && u < m_dirtyController.size(); ++u)
    {
        DeleteAndClear(m_dirtyController[u]);
    }
    if (self && in_uFirst < m_dirtyController.size())
    {
        m_dirtyController.resize(in_uFirst);
    }
}

/// An item that connecting adds is connected as well; when connecting removes the item at hand, the walk starts again
/// at the first one that has not had its turn.
void CInspectorController::ConnectDataElements()
{
    View();
    const tSelf self(this);
    const unsigned uPass = ++m_uConnectPass;
    auto it = m_items.begin();
    while (self && it != m_items.end())
    {
        const CInspectorWatch<sInspectorControllerData> item(*it);
        const bool bHadItsTurn = item->m_uConnectPass == uPass;
        item->m_uConnectPass = uPass;
        if (item->element && !bHadItsTurn)
        {
            item->element->Connect();
        }
        if (item && item->widget && !bHadItsTurn)
        {
            item->widget->InitFromElement();
        }
        if (self)
        {
            it = item && item->m_bListed ? std::next(it) : m_items.begin();
        }
    }
}

void CInspectorController::ClearAllData()
{
    View();
    const tSelf self(this);
    DropAllItemNotices();
    while (self && !m_items.empty())
    {
        Dismiss(m_items.front());
    }
    if (!self)
    {
        return;
    }
    if (CInspectorView* pView = View())
    {
        pView->RemoveAll();
    }
    while (self && !(m_dirtyController.empty() && m_dirtyItems.empty()))
    {
        DropControllerNotices(0);
        self ? DropAllItemNotices() : void(); // queued meanwhile for items that are gone
    }
}

bool CInspectorController::WantGroupAroundRoot()
{
    return true;
}

void CInspectorController::CallCommand(const char*, unsigned long) {}

void CInspectorController::SetPreviewMode(bool in_bPreview)
{
    m_bPreviewMode = in_bPreview;
    if (CInspectorView* pView = View())
    {
        pView->m_bPreviewMode = in_bPreview;
    }
}

bool CInspectorController::IsPreviewMode()
{
    return m_bPreviewMode;
}

void CInspectorController::DirtifyItem(sInspectorControllerData* in_pItem, IDirtyControllerDataInfo* in_pInfo)
{
    std::vector<IDirtyControllerDataInfo*>& notices = m_dirtyItems[in_pItem];
    if (in_pInfo)
    {
        notices.push_back(in_pInfo);
    }
    DirtyView();
}

void CInspectorController::DirtifyController(IDirtyControllerDataInfo* in_pInfo)
{
    m_dirtyController.push_back(in_pInfo);
    DirtyView();
}

/// However a pass ends, be it by an exception of a handler, the next one finds neither this one under way nor anything
/// that it has left behind.
struct CInspectorController::sPass
{
    explicit sPass(CInspectorController& io_controller) : self(&io_controller) { io_controller.m_bHandling = true; }
    ~sPass()
    {
        self ? self->DropAllItemNotices() : void();
        self ? self->DropControllerNotices(uWaiting) : void();
        if (self)
        {
            self->m_bHandling = false;
        }
    }
    sPass(const sPass&) = delete;
    sPass& operator=(const sPass&) = delete;

    const tSelf self;
    std::size_t uWaiting = 0; ///< so many of the controller's notices are for the next pass
};

void CInspectorController::HandleDirtyItems()
{
    if (m_bHandling)
    {
        return;
    }
    View();
    sPass pass(*this);
    HandleControllerNotices(pass.self);
    if (pass.self)
    {
        HandleItemNotices(pass.self);
    }
    if (pass.self)
    {
        pass.uWaiting = m_dirtyController.size(); // queued while the items' were handled
    }
}

void CInspectorController::HandleControllerNotices(const tSelf& in_self)
{
    if (m_dirtyController.empty())
    {
        return;
    }
    HandleDirtyController(m_dirtyController);
    if (in_self)
    {
        DropControllerNotices(0);
    }
}

/// The entries are found again by their keys, as every handler may add and drop entries.
void CInspectorController::HandleItemNotices(const tSelf& in_self)
{
    auto it = m_dirtyItems.begin();
    while (it != m_dirtyItems.end())
    {
        sInspectorControllerData* pItem = it->first;
        it->second.empty() ? HandleDirtyItem(pItem, nullptr) : HandleNoticesOf(pItem, in_self);
        if (!in_self)
        {
            return;
        }
        it = m_dirtyItems.upper_bound(pItem);
    }
}

void CInspectorController::HandleNoticesOf(sInspectorControllerData* in_pItem, const tSelf& in_self)
{
    const CInspectorWatch<sInspectorControllerData> item(in_pItem);
    for (std::size_t i = 0; in_self && (item || !in_pItem) && i < m_dirtyItems[in_pItem].size(); ++i)
    {
        // Its slot is emptied first: when the handler drops the item's notices, this one is still deleted only here.
        const std::unique_ptr<IDirtyControllerDataInfo> notice(std::exchange(m_dirtyItems[in_pItem][i], nullptr));
        HandleDirtyItem(in_pItem, notice.get());
    }
}

void CInspectorController::GiveFocusToNextElement(CInspectorDataWidget* in_pWidget)
{
    GiveFocusToNeighbour<sForwardLeafIterators>(in_pWidget);
}

void CInspectorController::GiveFocusToPrevElement(CInspectorDataWidget* in_pWidget)
{
    GiveFocusToNeighbour<sReverseLeafIterators>(in_pWidget);
}

template <class Direction> void CInspectorController::GiveFocusToNeighbour(CInspectorDataWidget* in_pWidget)
{
    CInspectorView* pView = View();
    const bool bForward = std::is_same<Direction, sForwardLeafIterators>::value;
    if (!pView || !in_pWidget || pView->MoveFocusFrom(in_pWidget, bForward))
    {
        return;
    }
    CHolderLeafIterator<Direction> leaf(pView->m_root);
    while (!leaf.IsAtEnd() && leaf.GetLeaf()->widget != in_pWidget)
    {
        leaf.Next();
    }
    if (leaf.IsAtEnd())
    {
        return;
    }
    leaf.Next();
    if (leaf.IsAtEnd())
    {
        leaf = CHolderLeafIterator<Direction>(pView->m_root);
    }
    const CInspectorWatch<CInspectorDataWidget> neighbour(leaf.GetLeaf()->widget);
    if (neighbour)
    {
        pView->EnsureVisible(neighbour.Get());
    }
    if (neighbour)
    {
        neighbour->StartEditing();
    }
    if (neighbour && View()) // or all may be gone
    {
        View()->GiveFocusTo(neighbour.Get());
    }
}
