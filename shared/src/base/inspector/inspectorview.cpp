#include "inspectorview.h"

#include "inspectorcontroller.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <limits>

namespace
{
int Percent(int in_iPercent, int in_iTotal)
{
    return in_iPercent * in_iTotal / 100;
}

int RequiredHeight(const CInspectorView::sInspectorHolder& in_holder, int in_iWidth)
{
    return in_holder.widget ? in_holder.widget->GetRequiredHeight(in_iWidth) : 0;
}
} // namespace

int CInspectorView::sRequestSize::GetMinValue(int in_iTotal)
{
    return minimumIsPercent ? Percent(minimum, in_iTotal) : minimum;
}

int CInspectorView::sRequestSize::GetMaxValue(int in_iTotal)
{
    return maximumIsPercent ? Percent(maximum, in_iTotal) : maximum;
}

CInspectorView::sRequestSize::~sRequestSize() = default;

CInspectorView::sInspectorHolder::~sInspectorHolder()
{
    delete request;
}

CInspectorView::sDrawElementVisitor::sDrawElementVisitor(CInspectorView* in_pView)
    : view(in_pView),
      current(in_pView->m_root.empty() ? nullptr : &in_pView->m_root),
      position(in_pView->m_root.begin())
{}

CInspectorView::sInspectorElement* CInspectorView::sDrawElementVisitor::GetNext()
{
    if (!current || position == current->end())
    {
        return nullptr;
    }
    sInspectorElement* pElement = &*position;
    if (!pElement->children.empty())
    {
        waiting.push_back(&pElement->children);
    }
    if (++position == current->end())
    {
        current = nullptr;
        if (!waiting.empty())
        {
            current = waiting.front();
            waiting.pop_front();
            position = current->begin();
        }
    }
    return pElement;
}

CInspectorView::~CInspectorView()
{
    CInspectorView::RemoveAll();
    CInspectorController* pController = Controller();
    if (pController && pController->m_pView == this)
    {
        pController->m_pView = nullptr;
    }
}

/// The controller. The application writes the pointer itself, so each look at it links it anew: it is then not reached
/// after its death.
CInspectorController* CInspectorView::Controller()
{
    m_controllerLink.Bind(m_pController, m_pController);
    return m_pController;
}

void CInspectorView::RemoveAll()
{
    m_controlHolders.clear();
    ++m_uControlChanges;
    while (!m_root.empty())
    {
        // Children are moved up before their parent goes, so that no depth of nesting exhausts the stack.
        m_root.splice(m_root.end(), m_root.front().children);
        m_root.pop_front();
    }
    for (sInspectorHolder* pHolder : m_allHolders)
    {
        delete pHolder;
    }
    m_allHolders.clear();
}

CInspectorView::sInspectorElement* CInspectorView::AddNode(int in_iKind, const char* in_strName,
                                                           sInspectorHolder* in_pHolder, sInspectorElement* in_pParent)
{
    std::list<sInspectorElement>& siblings = in_pParent ? in_pParent->children : m_root;
    siblings.emplace_back();
    sInspectorElement& node = siblings.back();
    node.kind = in_iKind;
    node.holder = in_pHolder;
    node.name = in_strName ? in_strName : "";
    node.parent = in_pParent;
    return &node;
}

CInspectorView::sInspectorElement* CInspectorView::AddGroup(const char* in_strName, sInspectorElement* in_pParent)
{
    sInspectorElement* pNode = AddNode(eGroup, in_strName, nullptr, in_pParent);
    UpdateView();
    return pNode;
}

CInspectorView::sInspectorHolder* CInspectorView::AddElement(CInspectorDataElement* in_pElement,
                                                             CInspectorDataWidget* in_pWidget, const char* in_strLabel,
                                                             sRequestSize* in_pRequest, sInspectorElement* in_pParent)
{
    sInspectorHolder* pHolder = CreateNewHolder();
    pHolder->m_elementLink.Bind(pHolder->element, in_pElement);
    pHolder->m_widgetLink.Bind(pHolder->widget, in_pWidget);
    CopyRequest(pHolder, in_pRequest);
    if (in_pParent && in_pParent->kind == eHolder)
    {
        in_pParent->holder->subHolders.push_back(pHolder);
    }
    else
    {
        AddNode(eHolder, in_strLabel, pHolder, in_pParent);
    }
    m_controlHolders.insert(pHolder);
    const unsigned uChanges = ++m_uControlChanges;
    const CInspectorWatch<CInspectorView> self(this);
    const CInspectorWatch<CInspectorDataWidget> widget(in_pWidget);
    ParentControlToInspector(in_pWidget);
    if (widget)
    {
        widget->Show();
    }
    if (!self)
    {
        return nullptr;
    }
    const bool bThere = uChanges == m_uControlChanges || m_allHolders.count(pHolder) > 0;
    UpdateView();
    return bThere ? pHolder : nullptr;
}

CInspectorView::sInspectorElement* CInspectorView::AddSingleLineContainer(const char* in_strName,
                                                                          sRequestSize* in_pRequest,
                                                                          sInspectorElement* in_pParent)
{
    sInspectorHolder* pHolder = CreateNewHolder();
    CopyRequest(pHolder, in_pRequest);
    pHolder->container = 1;
    sInspectorElement* pNode = AddNode(eHolder, in_strName, pHolder, in_pParent);
    UpdateView();
    return pNode;
}

CInspectorView::sInspectorHolder* CInspectorView::CreateNewHolder()
{
    Controller();
    sInspectorHolder* pHolder = new sInspectorHolder;
    m_allHolders.insert(pHolder);
    ++m_uControlChanges; // a derived view may put it among the controls in place of another
    return pHolder;
}

/// Only the five values count: a derived request is taken as a plain one.
void CInspectorView::CopyRequest(sInspectorHolder* in_pHolder, const sRequestSize* in_pRequest)
{
    if (in_pRequest)
    {
        in_pHolder->request = new sRequestSize(*in_pRequest);
    }
}

void CInspectorView::RemoveEmptyGroups()
{
    recRemoveEmptyGroups(&m_root);
}

void CInspectorView::recRemoveEmptyGroups(std::list<sInspectorElement>* in_pList)
{
    for (auto it = in_pList->begin(); it != in_pList->end();)
    {
        if (!it->children.empty())
        {
            recRemoveEmptyGroups(&it->children);
        }
        const bool bEmptyGroup = it->children.empty() && it->kind == eGroup;
        it = bEmptyGroup ? in_pList->erase(it) : std::next(it);
    }
}

CInspectorView::sInspectorHolder* CInspectorView::GetHolderFromControl(CInspectorDataWidget* in_pWidget)
{
    if (!in_pWidget)
    {
        return nullptr;
    }
    const auto it = std::find_if(m_controlHolders.begin(), m_controlHolders.end(),
                                 [in_pWidget](const sInspectorHolder* in_p) { return in_p->widget == in_pWidget; });
    return it == m_controlHolders.end() ? nullptr : *it;
}

void CInspectorView::DirtyView()
{
    UpdateView();
}

void CInspectorView::ResizeInspector(int in_iWidth, int in_iHeight)
{
    if (in_iWidth == m_iViewWidth && in_iHeight == m_iViewHeight)
    {
        return;
    }
    m_iViewWidth = in_iWidth;
    m_iViewHeight = in_iHeight;
    RecomputeLayout();
}

void CInspectorView::EnsureVisible(CInspectorDataWidget*) {}

int CInspectorView::GetInspectorLeftMargin()
{
    return m_bPreviewMode ? 0 : 5;
}

int CInspectorView::GetInspectorRightMargin()
{
    return m_bPreviewMode ? 0 : 5;
}

int CInspectorView::GetInspectorTopMargin()
{
    return m_bPreviewMode ? 0 : 5;
}

int CInspectorView::GetInspectorBottomMargin()
{
    return m_bPreviewMode ? 0 : 5;
}

int CInspectorView::GetGroupLeftMargin()
{
    return m_bPreviewMode ? 0 : 5;
}

int CInspectorView::GetGroupRightMargin()
{
    return m_bPreviewMode ? 0 : 5;
}

int CInspectorView::GetGroupTopMargin()
{
    return m_bPreviewMode ? 0 : 5;
}

int CInspectorView::GetGroupBottomMargin()
{
    return m_bPreviewMode ? 0 : 5;
}

int CInspectorView::GetGroupLabelHeight()
{
    return m_bPreviewMode ? 0 : 10;
}

int CInspectorView::GetHeightBetweenControl()
{
    return m_bPreviewMode ? 0 : 5;
}

int CInspectorView::GetElementLabelWidth(sInspectorElement*)
{
    return 0;
}

int CInspectorView::GetCurrentContentHeight()
{
    return m_iContentHeight;
}

void CInspectorView::OnContentHeightSet() {}

void CInspectorView::OnPreDraw()
{
    if (CInspectorController* pController = Controller())
    {
        pController->HandleDirtyItems();
    }
}

void CInspectorView::ShowContent(bool in_bShow, bool in_bForce)
{
    if (in_bShow == m_bShowContent && !in_bForce)
    {
        return;
    }
    m_bShowContent = in_bShow;
    OnToggleShowContent(in_bShow);
}

void CInspectorView::OnToggleShowContent(bool in_bShow)
{
    ForEachControl([this, in_bShow](sInspectorHolder* in_pHolder) {
        if (in_bShow)
        {
            PositionControl(in_pHolder);
        }
        else if (in_pHolder->widget)
        {
            in_pHolder->widget->ResizeWidget(0, 0);
        }
    });
}

/// The controls in the set's order. A walk over the nodes of a large set would wait for memory most of the time.
const std::vector<CInspectorView::sInspectorHolder*>& CInspectorView::Controls()
{
    if (m_uListedAt != m_uControlChanges || m_controlList.size() != m_controlHolders.size())
    {
        m_controlList.assign(m_controlHolders.begin(), m_controlHolders.end());
        m_uListedAt = m_uControlChanges;
    }
    return m_controlList;
}

/// Calls `in_operation` for every control. What the operation calls may add and remove controls, which are then met
/// or passed over, and may destroy the view: the answer is false then and nothing of it may be touched.
template <class Operation> bool CInspectorView::ForEachControl(Operation in_operation)
{
    CInspectorWatch<CInspectorView> self(this);
    const std::vector<sInspectorHolder*>& controls = Controls();
    for (std::size_t u = 0; u < controls.size();)
    {
        sInspectorHolder* pHolder = controls[u];
        in_operation(pHolder);
        if (!self)
        {
            return false;
        }
        Controls(); // brings the same list up to date
        const bool bInPlace = u < controls.size() && controls[u] == pHolder;
        const auto next = bInPlace ? controls.begin() + static_cast<std::ptrdiff_t>(u) + 1
                                   : std::upper_bound(controls.begin(), controls.end(), pHolder, std::less<>());
        u = static_cast<std::size_t>(next - controls.begin());
    }
    return true;
}

void CInspectorView::PositionControl(sInspectorHolder* in_pHolder)
{
    const CInspectorWatch<CInspectorView> self(this);
    const CInspectorWatch<CInspectorDataWidget> widget(in_pHolder->widget);
    const unsigned uChanges = m_uControlChanges;
    if (widget)
    {
        widget->MoveWidget(in_pHolder->x, in_pHolder->y);
    }
    const bool bThere = self && (uChanges == m_uControlChanges || m_allHolders.count(in_pHolder));
    if (bThere && widget && in_pHolder->widget == widget.Get())
    {
        m_bShowContent ? widget->ResizeWidget(in_pHolder->width, in_pHolder->height) : widget->ResizeWidget(0, 0);
    }
}

void CInspectorView::OffsetControls(int in_iX, int in_iY)
{
    m_iOffsetX = in_iX;
    m_iOffsetY = in_iY;
    ForEachControl([in_iX, in_iY](sInspectorHolder* in_pHolder) {
        if (in_pHolder->widget)
        {
            in_pHolder->widget->MoveWidget(in_pHolder->x - in_iX, in_pHolder->y - in_iY);
        }
    });
}

bool CInspectorView::MoveFocusFrom(CInspectorDataWidget*, bool)
{
    return false;
}

void CInspectorView::GiveFocusTo(CInspectorDataWidget*) {}

void CInspectorView::RecomputeLayout()
{
    m_iContentHeight = 0;
    int iLeft = GetInspectorLeftMargin();
    int iRight = m_iViewWidth - GetInspectorRightMargin();
    int iY = GetInspectorTopMargin();
    recRecomputeLayout(&m_root, iLeft, iRight, iY);
    if (m_bPreviewMode)
    {
        ComputeHoldersWidthForPreview();
    }
    else
    {
        ComputeHoldersWidth();
    }
    m_iContentHeight = iY + GetInspectorBottomMargin();
    if (m_iViewHeight == g_iInspectorNotGiven)
    {
        m_iViewHeight = m_iContentHeight;
    }
    if (ForEachControl([this](sInspectorHolder* in_pHolder) { PositionControl(in_pHolder); }))
    {
        const CInspectorWatch<CInspectorView> self(this);
        UpdateView();
        self ? OnContentHeightSet() : void();
    }
}

void CInspectorView::recRecomputeLayout(std::list<sInspectorElement>* in_pList, int& io_iLeft, int& io_iRight,
                                        int& io_iY)
{
    const int iTop = io_iY;
    for (sInspectorElement& node : *in_pList)
    {
        if (m_bPreviewMode)
        {
            io_iY = iTop;
        }
        node.x = io_iLeft;
        node.y = io_iY;
        node.width = io_iRight - io_iLeft;
        if (node.kind == eGroup && !node.children.empty())
        {
            LayOutGroup(node, io_iLeft, io_iRight, io_iY);
        }
        else if (node.kind == eHolder && node.holder)
        {
            AddRowHeight(node, io_iY);
        }
        node.height = io_iY - node.y;
        if (!m_bPreviewMode)
        {
            io_iY += GetHeightBetweenControl();
        }
    }
}

void CInspectorView::LayOutGroup(sInspectorElement& in_group, int& io_iLeft, int& io_iRight, int& io_iY)
{
    if (m_bPreviewMode)
    {
        recRecomputeLayout(&in_group.children, io_iLeft, io_iRight, io_iY);
        return;
    }
    io_iLeft += GetGroupLeftMargin();
    io_iRight -= GetGroupRightMargin();
    io_iY += GetGroupTopMargin();
    if (!in_group.name.empty())
    {
        io_iY += GetGroupLabelHeight();
    }
    recRecomputeLayout(&in_group.children, io_iLeft, io_iRight, io_iY);
    io_iY += GetGroupBottomMargin();
    io_iRight += GetGroupRightMargin();
    io_iLeft -= GetGroupLeftMargin();
}

/// Moves `io_iY` behind a row. In preview all rows start at the top, so there the y of the tallest stands.
void CInspectorView::AddRowHeight(const sInspectorElement& in_row, int& io_iY)
{
    const sInspectorHolder& holder = *in_row.holder;
    int iTallest = std::numeric_limits<int>::min();
    if (!holder.container)
    {
        iTallest = RequiredHeight(holder, in_row.width);
    }
    else if (holder.subHolders.empty())
    {
        return;
    }
    else
    {
        for (const sInspectorHolder* pSub : holder.subHolders)
        {
            iTallest = std::max(iTallest, RequiredHeight(*pSub, in_row.width));
        }
    }
    io_iY = m_bPreviewMode ? std::max(io_iY, iTallest) : io_iY + iTallest;
}
