#ifndef COREFAKES_H
#define COREFAKES_H

#include "inspectorcontroller.h"
#include "inspectorview.h"
#include "layoutcheck.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <utility>

typedef std::function<void()> tAction;
typedef CInspectorView::sInspectorElement sNode;
typedef CInspectorView::sInspectorHolder sHolder;
typedef CInspectorController::sInspectorControllerData sItem;

/// What happened, in order, and how many fakes are alive.
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
    int iLive = 0;
};

/// Anything that must be destroyed exactly once.
template <class Base> struct CFake : Base
{
    CFake(sJournal& io_journal, const std::string& in_strName) : m_journal(io_journal), m_strName(in_strName)
    {
        ++m_journal.iLive;
    }
    ~CFake() override
    {
        --m_journal.iLive;
        m_journal.Act("~" + m_strName, m_onDestroy);
    }

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

    ~CFakeWidget() override { m_bReleasesOwners ? ReleaseOwners() : void(); }
    const char* GetType() override { return "fake.widget"; }
    void InitFromElement() override { m_journal.Note("init"); }
    void StartEditing() override { m_journal.Note("edit " + m_strName); }
    void OnValueChange(sValueChangeInfo* in_pInfo) override { m_journal.Note(in_pInfo ? "info" : "refresh"); }
    int GetRequiredWidth() override { return m_iWish; }
    int GetRequiredHeight(int in_iWidth) override { return m_iHeight ? m_iHeight : in_iWidth / 10; }
    void ResizeWidget(int in_iWidth, int in_iHeight) override { m_size = {in_iWidth, in_iHeight}; }
    void MoveWidget(int in_iX, int in_iY) override
    {
        m_place = {in_iX, in_iY};
        tAction{m_onMove}();
    }
    void Show() override { m_journal.Note("show"); }
    void Hide() override {}

    bool m_bReleasesOwners = false;
    int m_iWish = 0;
    int m_iHeight = 20; ///< 0: a tenth of the row's width
    std::pair<int, int> m_place;
    std::pair<int, int> m_size;
    tAction m_onMove = [] {};
};

/// A view whose every layout is checked.
struct CFakeView : CInspectorView
{
    explicit CFakeView(sJournal& io_journal) : m_journal(io_journal) {}

    using CInspectorView::m_allHolders;
    using CInspectorView::m_bLabelGrouping;
    using CInspectorView::m_bPreviewMode;
    using CInspectorView::m_controlHolders;
    using CInspectorView::m_iContentHeight;
    using CInspectorView::m_iViewHeight;
    using CInspectorView::m_iViewWidth;
    using CInspectorView::m_root;

    void UpdateView() override { ++m_iUpdates; }
    void ParentControlToInspector(CInspectorDataWidget*) override { m_journal.Note("parent"); }
    int GetElementLabelWidth(sInspectorElement* in_pNode) override { return m_labelWidths[in_pNode->name]; }
    void EnsureVisible(CInspectorDataWidget* in_pWidget) override
    {
        m_journal.Act("reveal " + static_cast<CFakeWidget*>(in_pWidget)->m_strName, m_onReveal);
    }
    void OnContentHeightSet() override
    {
        ++m_iLayouts;
        EXPECT_EQ("", m_bCheck ? CLayoutCheck<CFakeView>(*this).Fault() : "");
        for (const sHolder* p : m_bCheck ? m_controlHolders : std::set<sHolder*>())
        {
            const CFakeWidget* pWidget = static_cast<CFakeWidget*>(p->widget);
            EXPECT_TRUE(!pWidget || pWidget->m_place == std::make_pair(p->x, p->y));
            EXPECT_TRUE(!pWidget || pWidget->m_size ==
                                        std::make_pair(m_bShowContent ? p->width : 0, m_bShowContent ? p->height : 0));
        }
    }

    sJournal& m_journal;
    std::map<std::string, int> m_labelWidths;
    tAction m_onReveal;
    bool m_bCheck = true; ///< off where callbacks change the page under a layout
    int m_iUpdates = 0;
    int m_iLayouts = 0;
};

struct CFakeController : CInspectorController
{
    explicit CFakeController(sJournal& io_journal) : m_journal(io_journal) {}

    using CInspectorController::m_dirtyController;
    using CInspectorController::m_dirtyItems;
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
            if (strWord == "}" || strWord == "]")
            {
                open.pop_back();
            }
            else if (sNode* pNode = Add(strWord, open.back()))
            {
                open.push_back(pNode);
            }
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
