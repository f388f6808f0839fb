#include "corefakes.h"

namespace
{
std::string Widgets(const std::vector<sHolder*>& in_leaves)
{
    std::string strLeaves;
    for (const sHolder* pLeaf : in_leaves)
    {
        strLeaves += pLeaf->widget ? static_cast<CFakeWidget*>(pLeaf->widget)->m_strName : "-";
    }
    return strLeaves;
}
} // namespace

TEST(Traversal, Orders)
{
    // tree, leaves forwards, backwards, order of drawing
    const std::vector<std::vector<std::string>> cases = {
        {"{G }", "", "", "G."},
        {"{G {H c } a } b", "cab", "bac", "GbHac."},
        {"{G a } {H {I b } } d", "abd", "dba", "GHdaIb."},
        {"a [k b d ] {G [l ] } e", "abd-e", "e-dba", "akGel."},
    };
    for (const std::vector<std::string>& row : cases)
    {
        CPage page;
        page.Build(row[0]);
        std::string strDrawn;
        for (const sNode* pNode : page.view.Nodes())
        {
            strDrawn += pNode ? pNode->name : ".";
        }
        const std::vector<std::string> orders = {row[0], Widgets(page.view.Leaves<sForwardLeafIterators>()),
                                                 Widgets(page.view.Leaves<sReverseLeafIterators>()), strDrawn};
        EXPECT_EQ(row, orders);
    }
}

TEST(Traversal, EndOfEditingMovesTheFocus)
{
    // tree, where editing ends, which control follows, which comes before
    const std::vector<std::vector<std::string>> cases = {
        {"a {G b } d", "a", "reveal b edit b", "reveal d edit d"},
        {"a {G b } d", "d", "reveal a edit a", "reveal b edit b"},
        {"a", "a", "reveal a edit a", "reveal a edit a"},
        {"a [k b d ] e", "b", "reveal d edit d", "reveal a edit a"},
        {"a [k b d ] e", "e", "reveal a edit a", "reveal d edit d"},
        {"a [k ] b d", "a", "", "reveal d edit d"}, // an empty container ends it
        {"a [k b ]", "k", "", ""},                  // this widget is not in the tree
        {"a [k ]", "none", "", ""},
    };
    for (const std::vector<std::string>& row : cases)
    {
        CPage page;
        CFakeController controller(page.journal);
        CFakeElement element(page.journal, "");
        page.Build(row[0]);
        page.journal.Take();
        CFakeWidget* pWidget = page.widgets[row[1]].get();
        element.OnEndEditing(pWidget, CInspectorDataElement::eEndEditNext); // neither controller nor view: nothing
        element.SetDataControl(pWidget, &controller);
        element.OnEndEditing(pWidget, CInspectorDataElement::eEndEditNext);
        controller.m_pView = &page.view;
        page.view.m_pController = &controller;
        std::vector<std::string> logs;
        for (int iCause = 0; iCause < 5; ++iCause)
        {
            element.OnEndEditing(pWidget, static_cast<CInspectorDataElement::eEndEditCause>(iCause));
            logs.push_back(page.journal.Take());
        }
        EXPECT_EQ((std::vector<std::string>{"", "", row[2], row[3], ""}), logs) << row[0] << " from " << row[1];
    }
}

// Ten thousand levels must exhaust the stack nowhere.
TEST(Traversal, DeepNesting)
{
    CPage page;
    sNode* pGroup = nullptr;
    for (int i = 0; i < 10000; ++i)
    {
        pGroup = page.view.AddGroup("", pGroup);
    }
    page.Add("a", pGroup);
    page.view.ResizeInspector(400, -1);
    EXPECT_EQ(10 + 10000 * 15 + 25, page.view.GetCurrentContentHeight());
    EXPECT_EQ("a", Widgets(page.view.Leaves<sReverseLeafIterators>()));
    EXPECT_EQ(10002u, page.view.Nodes().size());
    page.view.m_bPreviewMode = true;
    page.view.RecomputeLayout();
    EXPECT_EQ(20, page.view.GetCurrentContentHeight());
    page.view.RemoveEmptyGroups();
    EXPECT_EQ(1u, page.view.m_root.size());
}
