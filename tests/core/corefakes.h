#ifndef COREFAKES_H
#define COREFAKES_H

#include "inspectorcontroller.h"
#include "inspectorview.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <utility>

typedef std::function<void()> tAction;
typedef CInspectorView::sInspectorElement sNode;
typedef CInspectorView::sInspectorHolder sHolder;
typedef CInspectorController::sInspectorControllerData sItem;

/// What happened, in order.
struct sJournal
{
    void Note(const std::string& in_strEntry) { strLog += (strLog.empty() ? "" : " ") + in_strEntry; }
    std::string Take() { return std::exchange(strLog, std::string()); }

    /// Notes, then acts on a copy, as the action may destroy the object that holds it.
    void Act(const std::string& in_strEntry, tAction in_action)
    {
        Note(in_strEntry);
        in_action ? in_action() : void();
    }

    std::string strLog;
};

/// Anything that is destroyed by the library.
template <class Base> struct CFake : Base
{
    CFake(sJournal& io_journal, const std::string& in_strName) : m_journal(io_journal), m_strName(in_strName) {}
    ~CFake() override { m_journal.Act("~" + m_strName, m_onDestroy); }

    sJournal& m_journal;
    std::string m_strName;
    tAction m_onDestroy;
};
typedef CFake<CInspectorController::IControllerData> CFakeData;
typedef CFake<CInspectorController::IDirtyControllerDataInfo> CFakeNotice;

struct CFakeElement : CFake<CInspectorDataElement>
{
    using CFake<CInspectorDataElement>::CFake;

    const char* GetType() override { return "fake.element"; }
    void Connect() override { m_journal.Act("+" + m_strName, m_onConnect); }
    void Disconnect() override { m_journal.Act("-" + m_strName, m_onDisconnect); }

    tAction m_onConnect;
    tAction m_onDisconnect;
};

/// Remembers the rectangle it was told.
struct CFakeWidget : CFake<CInspectorDataWidget>
{
    using CFake<CInspectorDataWidget>::CFake;

    const char* GetType() override { return "fake.widget"; }
    void InitFromElement() override { m_journal.Note("init"); }
    void StartEditing() override { m_journal.Note("edit " + m_strName); }
    void OnValueChange(sValueChangeInfo* in_pInfo) override { m_journal.Note(in_pInfo ? "info" : "refresh"); }
    int GetRequiredWidth() override { return m_iWish; }
    int GetRequiredHeight(int in_iWidth) override { return m_iHeight ? m_iHeight : in_iWidth / 10; }
    void ResizeWidget(int in_iWidth, int in_iHeight) override { m_size = {in_iWidth, in_iHeight}; }
    void MoveWidget(int in_iX, int in_iY) override { m_place = {in_iX, in_iY}; }
    void Show() override { m_journal.Note("show"); }
    void Hide() override {}

    int m_iWish = 0;
    int m_iHeight = 20; ///< 0: a tenth of the row's width
    std::pair<int, int> m_place;
    std::pair<int, int> m_size;
};

/// A view whose every layout is checked for what must hold whatever the tree is.
struct CFakeView : CInspectorView
{
    explicit CFakeView(sJournal& io_journal) : m_journal(io_journal) {}

    using CInspectorView::m_allHolders;
    using CInspectorView::m_bLabelGrouping;
    using CInspectorView::m_bPreviewMode;
    using CInspectorView::m_root;

    void UpdateView() override {}
    void ParentControlToInspector(CInspectorDataWidget*) override { m_journal.Note("parent"); }
    int GetElementLabelWidth(sInspectorElement* in_pNode) override { return m_labelWidths[in_pNode->name]; }
    void EnsureVisible(CInspectorDataWidget* in_pWidget) override
    {
        m_journal.Note("reveal " + static_cast<CFakeWidget*>(in_pWidget)->m_strName);
    }
    void OnContentHeightSet() override
    {
        const int iLeft = GetInspectorLeftMargin();
        const int iWidth = m_iViewWidth - iLeft - GetInspectorRightMargin();
        const int iEnd = m_bPreviewMode ? 0 : CheckStack(m_root, iLeft, iWidth, GetInspectorTopMargin());
        EXPECT_TRUE(m_bPreviewMode || m_iContentHeight == iEnd + GetInspectorBottomMargin());
        for (const sHolder* p : m_controlHolders)
        {
            const CFakeWidget* pWidget = static_cast<CFakeWidget*>(p->widget);
            const auto size = m_bShowContent ? std::make_pair(p->width, p->height) : std::make_pair(0, 0);
            EXPECT_TRUE(!pWidget || (pWidget->m_place == std::make_pair(p->x, p->y) && pWidget->m_size == size));
        }
    }

    static void Check(bool in_bGood, const sNode& in_node) { EXPECT_TRUE(in_bGood) << in_node.name; }

    /// Nodes stand between the margins, one below the other, their labels aligned.
    /// \return the y after the last node
    int CheckStack(const std::list<sNode>& in_nodes, int in_iX, int in_iWidth, int in_iY)
    {
        std::set<int> columns;
        for (const sNode& node : in_nodes)
        {
            Check(node.x == in_iX && node.width == in_iWidth && node.y == in_iY, node);
            node.holder ? CheckRow(node) : CheckGroup(node);
            if (node.holder && !(node.holder->request && (node.holder->request->flags & 1)))
            {
                columns.insert(node.labelColumn);
            }
            in_iY += node.height + GetHeightBetweenControl();
        }
        EXPECT_TRUE(!m_bLabelGrouping || columns.size() < 2);
        return in_iY;
    }

    /// A frame is as high as what is in it.
    void CheckGroup(const sNode& in_group)
    {
        int iEnd = in_group.y;
        if (!in_group.children.empty())
        {
            const int iWidth = in_group.width - GetGroupLeftMargin() - GetGroupRightMargin();
            const int iTop = iEnd + GetGroupTopMargin() + (in_group.name.empty() ? 0 : GetGroupLabelHeight());
            iEnd = CheckStack(in_group.children, in_group.x + GetGroupLeftMargin(), iWidth, iTop);
            iEnd += GetGroupBottomMargin();
        }
        Check(in_group.height == iEnd - in_group.y, in_group);
    }

    /// The control takes what its label leaves of the row; controls that share a row stand side by side.
    static void CheckRow(const sNode& in_row)
    {
        const sHolder& holder = *in_row.holder;
        int iX = in_row.x + in_row.labelColumn;
        Check(holder.x == iX && holder.width == in_row.width - in_row.labelColumn, in_row);
        Check(holder.y == in_row.y && holder.height == in_row.height, in_row);
        for (const sHolder* pSub : holder.container ? holder.subHolders : std::list<sHolder*>())
        {
            Check(pSub->x == iX && pSub->y == in_row.y && pSub->height == in_row.height, in_row);
            iX += pSub->width + 2;
        }
    }

    template <class Direction> std::vector<sHolder*> Leaves()
    {
        std::vector<sHolder*> leaves;
        for (CHolderLeafIterator<Direction> leaf(m_root); !leaf.IsAtEnd(); leaf.Next())
        {
            leaves.push_back(leaf.GetLeaf());
        }
        return leaves;
    }

    /// The nodes as they are drawn, and null for the top level.
    std::vector<sNode*> Nodes()
    {
        sDrawElementVisitor visitor(this);
        std::vector<sNode*> nodes{visitor.GetNext()};
        while (nodes.back())
        {
            nodes.push_back(visitor.GetNext());
        }
        return nodes;
    }

    sJournal& m_journal;
    std::map<std::string, int> m_labelWidths;
};

struct CFakeController : CInspectorController
{
    explicit CFakeController(sJournal& io_journal) : m_journal(io_journal) {}

    using CInspectorController::m_dirtyController;
    using CInspectorController::m_items;
    using CInspectorController::m_pView;

    void ApplicationHook1() override {}
    void ApplicationHook2() override {}
    void HandleDirtyItem(sItem* in_pItem, IDirtyControllerDataInfo* in_pInfo) override
    {
        const std::string strInfo = in_pInfo ? static_cast<CFakeNotice*>(in_pInfo)->m_strName : "null";
        const CFakeElement* pElement = static_cast<CFakeElement*>(in_pItem->element);
        m_journal.Act(strInfo + "@" + (pElement ? pElement->m_strName : "gone"), m_onHandle[strInfo]);
    }
    void HandleDirtyController(std::vector<IDirtyControllerDataInfo*>& in_infos) override
    {
        m_journal.Act("controller" + std::to_string(in_infos.size()), m_onHandle["controller"]);
    }

    sJournal& m_journal;
    std::map<std::string, tAction> m_onHandle; ///< by the notice's name
};

/// A view filled from a line of text. `{Title` to `}` is a group, `[label` to `]` a container, any other word a
/// control; options follow behind commas: l label width, h height, w wish, m and M bounds (perhaps in %), f flags.
struct CPage
{
    void Build(const std::string& in_strTree)
    {
        std::vector<sNode*> open{nullptr};
        std::istringstream words(in_strTree);
        for (std::string strWord; words >> strWord;)
        {
            const bool bEnd = strWord == "}" || strWord == "]";
            sNode* pNode = bEnd ? nullptr : Add(strWord, open.back());
            bEnd ? open.pop_back() : pNode ? open.push_back(pNode) : void();
        }
    }

    sNode* Add(const std::string& in_strWord, sNode* in_pParent)
    {
        std::istringstream parts(in_strWord);
        std::string strName, strPart;
        std::getline(parts, strName, ',');
        const char cKind = in_strWord[0];
        strName.erase(0, cKind == '{' || cKind == '[' ? 1 : 0);
        std::unique_ptr<CFakeWidget>& widget = widgets[strName];
        widget.reset(new CFakeWidget(journal, strName));
        CInspectorView::sRequestSize request;
        CInspectorView::sRequestSize* pRequest = nullptr;
        const std::map<char, int*> options{{'l', &view.m_labelWidths[strName]},
                                           {'h', &widget->m_iHeight},
                                           {'w', &widget->m_iWish},
                                           {'m', &request.minimum},
                                           {'M', &request.maximum},
                                           {'f', &request.flags}};
        for (; std::getline(parts, strPart, ','); pRequest = &request)
        {
            *options.at(strPart[0]) = std::stoi(strPart.substr(1));
            int& iIsPercent = strPart[0] == 'M' ? request.maximumIsPercent : request.minimumIsPercent;
            iIsPercent = iIsPercent || strPart.back() == '%';
        }
        if (cKind == '{' || cKind == '[')
        {
            return cKind == '{' ? view.AddGroup(strName.c_str(), in_pParent)
                                : view.AddSingleLineContainer(strName.c_str(), pRequest, in_pParent);
        }
        view.AddElement(nullptr, widget.get(), strName.c_str(), pRequest, in_pParent);
        return nullptr;
    }

    sJournal journal;
    CFakeView view{journal};
    std::map<std::string, std::unique_ptr<CFakeWidget>> widgets;
};

#endif
