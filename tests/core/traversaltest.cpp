#include "corefakes.h"

TEST(Traversal, Orders)
{
    CPage page;
    page.Build("a [k b d ] {G {H c } f [l ] } e");
    std::string strLeaves, strDrawn;
    for (const sHolder* pLeaf : page.view.Leaves<sForwardLeafIterators>())
    {
        strLeaves += pLeaf->widget ? static_cast<CFakeWidget*>(pLeaf->widget)->m_strName : "-";
    }
    for (const sNode* pNode : page.view.Nodes())
    {
        strDrawn += pNode ? pNode->name : ".";
    }
    EXPECT_EQ("abdcf-e", strLeaves);
    EXPECT_EQ("akGeHflc.", strDrawn);
}

// Keys that move the focus are tested with the editors.
TEST(Traversal, FocusWhereItIsUnusual)
{
    // from where, which control follows, which comes before
    const char* const cases[][3] = {
        {"d", "", "reveal b edit b"}, // an empty container ends it
        {"e", "reveal a edit a", ""},
        {"k", "", ""}, // not in the tree
        {"none", "", ""},
    };
    for (const auto& row : cases)
    {
        CPage page;
        page.Build("a {G [k b d ] } [l ] e");
        page.journal.Take();
        CFakeController controller(page.journal);
        controller.GiveFocusToNextElement(page.widgets["a"].get()); // no view: nothing
        controller.m_pView = &page.view;
        controller.GiveFocusToNextElement(page.widgets[row[0]].get());
        EXPECT_EQ(row[1], page.journal.Take());
        controller.GiveFocusToPrevElement(page.widgets[row[0]].get());
        EXPECT_EQ(row[2], page.journal.Take());
    }
}

// Ten thousand levels, and as many rows, must exhaust the stack nowhere.
TEST(Traversal, DeepNesting)
{
    CPage page;
    sNode* pGroup = nullptr;
    for (int i = 0; i < 10000; ++i)
    {
        pGroup = page.view.AddGroup("", pGroup);
        page.Add("r" + std::to_string(i), nullptr);
    }
    page.Add("a", pGroup);
    page.view.ResizeInspector(400, -1);
    EXPECT_EQ(10 + 10000 * 15 + 10001 * 25, page.view.GetCurrentContentHeight());
    EXPECT_EQ(10001u, page.view.Leaves<sReverseLeafIterators>().size());
    EXPECT_EQ(20002u, page.view.Nodes().size());
    page.view.m_bPreviewMode = true;
    page.view.RecomputeLayout();
    EXPECT_EQ(20, page.view.GetCurrentContentHeight());
    page.view.RemoveEmptyGroups();
    EXPECT_EQ(10001u, page.view.m_root.size());
}
