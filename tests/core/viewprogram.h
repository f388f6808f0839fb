#ifndef VIEWPROGRAM_H
#define VIEWPROGRAM_H

#include "choices.h"
#include "corefakes.h"

/// A random program over a view: bytes choose the operations and their arguments, all numbers among them. After each
/// the view is laid out, which checks the layout, and what must hold for any page is checked.
class CViewProgram
{
public:
    CViewProgram(const std::uint8_t* in_pBytes, std::size_t in_uSize) : m_choices(in_pBytes, in_uSize) {}

    /// Up to the first fault.
    void Run()
    {
        while (!m_choices.IsAtEnd() && !testing::Test::HasFailure())
        {
            m_iFirst = m_choices.Number();
            m_iSecond = m_choices.Number();
            (*m_choices.Any(m_operations))();
            Check();
        }
    }

    void Check()
    {
        std::vector<sHolder*> reverse = m_view.Leaves<sReverseLeafIterators>();
        std::reverse(reverse.begin(), reverse.end());
        EXPECT_EQ(m_view.Leaves<sForwardLeafIterators>(), reverse);
        const std::vector<int> layout = Layout();
        EXPECT_EQ(layout, Layout());
        const bool bPreview = std::exchange(m_view.m_bPreviewMode, true);
        Layout();
        m_view.m_bPreviewMode = bPreview;
        EXPECT_TRUE(bPreview || layout == Layout());
        m_page.journal.Take();
    }

    CPage m_page;
    CFakeView& m_view = m_page.view;

private:
    /// Lays out.
    /// \return every rectangle
    std::vector<int> Layout()
    {
        m_view.RecomputeLayout();
        std::vector<int> numbers{m_view.GetCurrentContentHeight()};
        const std::vector<sNode*> nodes = m_view.Nodes();
        for (auto it = nodes.begin(); *it; ++it)
        {
            numbers.insert(numbers.end(), {(*it)->x, (*it)->y, (*it)->width, (*it)->height, (*it)->labelColumn});
            (*it)->holder && !m_view.m_bPreviewMode ? CheckControls(**it) : void();
        }
        for (const sHolder* p : m_view.m_allHolders)
        {
            numbers.insert(numbers.end(), {p->x, p->y, p->width, p->height});
        }
        return numbers;
    }

    /// Controls that share a row stay apart and within it if their minimums fit.
    void CheckControls(sNode& in_row)
    {
        std::list<CInspectorView::sPositionHolder> records;
        m_view.BuildPositionHolderListFromContainer(&in_row, records);
        const std::int64_t iEnd = std::int64_t(in_row.holder->x) + in_row.holder->width;
        std::int64_t iRoom = in_row.holder->width + std::int64_t(2);
        bool bOrdinary = in_row.holder->container && !records.empty() && iEnd == int(iEnd);
        bool bWithin = true;
        for (const CInspectorView::sPositionHolder& record : records)
        {
            bOrdinary = bOrdinary && record.minimum >= 0 && record.maximum >= 0;
            iRoom -= record.minimum + std::int64_t(2);
            bWithin = bWithin && record.holder->width >= 0 && record.holder->x + record.holder->width <= iEnd;
        }
        EXPECT_TRUE(!bOrdinary || iRoom < 0 || bWithin) << in_row.name;
    }

    /// Adds a control, a container or a group.
    void Grow()
    {
        const std::string strSign = m_choices.Pick(2) ? "" : m_choices.Pick(2) ? "[" : "{";
        std::string strWord = strSign + "r" + std::to_string(++m_iRows);
        for (int iOptions = strSign == "{" ? 0 : m_choices.Pick(4); iOptions > 0; --iOptions)
        {
            const int iOption = m_choices.Pick(8); // the two bounds may be in percent
            strWord += std::string(",") + "lhwfmMmM"[iOption] + std::to_string(m_choices.Number());
            strWord += iOption > 5 ? "%" : "";
        }
        std::vector<sNode*> parents = m_view.Nodes();
        sNode* pParent = *m_choices.Any(parents);
        const bool bBeside = pParent && pParent->holder && !strSign.empty(); // under a row only preview would find it
        m_page.Add(strWord, bBeside ? pParent->parent : pParent);
    }

    void Prune()
    {
        const std::vector<sHolder*> leaves = m_view.Leaves<sForwardLeafIterators>();
        m_view.RemoveEmptyGroups();
        EXPECT_EQ(leaves, m_view.Leaves<sForwardLeafIterators>());
    }

    CChoices m_choices;
    int m_iRows = 0;
    int m_iFirst = 0;
    int m_iSecond = 0;
    const std::vector<tAction> m_operations = {
        [this] { Grow(); },
        [this] { Grow(); },
        [this] { m_view.ResizeInspector(m_iFirst, m_iSecond); },
        [this] { Grow(); },
        [this] { m_view.OffsetControls(m_iFirst, m_iSecond); },
        [this] { m_view.recRecomputeLayout(&m_view.m_root, m_iFirst, m_iSecond, m_iFirst); },
        [this] { m_view.m_bPreviewMode = !m_view.m_bPreviewMode; },
        [this] { m_view.m_bLabelGrouping = !m_view.m_bLabelGrouping; },
        [this] { m_view.ShowContent(m_iFirst > 0, m_iSecond > 0); },
        [this] { Prune(); },
        [this] { m_iFirst ? void() : m_view.RemoveAll(); },
        [this] { m_page.widgets.empty() ? void() : m_choices.Any(m_page.widgets)->second.reset(); }};
};

#endif
