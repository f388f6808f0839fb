#include "viewprogram.h"

#include <random>

TEST(Property, OfRandomPages)
{
    std::mt19937 random; // seeded by default: the same pages everywhere
    for (int iPage = 0; iPage < 3000 && !HasFailure(); ++iPage)
    {
        SCOPED_TRACE(iPage);
        std::vector<std::uint8_t> bytes(200);
        std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<std::uint8_t>(random()); });
        CViewProgram(bytes.data(), bytes.size()).Run();
    }
}

TEST(Property, OfALongPage)
{
    CViewProgram program(nullptr, 0);
    sNode* pGroup = program.m_page.Add("{T", nullptr);
    sNode* pContainer = program.m_page.Add("[c", pGroup);
    for (int iRow = 0; iRow < 10000; ++iRow)
    {
        program.m_page.Add("r" + std::to_string(iRow) + ",l90", pGroup);
        program.m_page.Add("c" + std::to_string(iRow) + ",w1", pContainer);
    }
    program.m_page.Add(std::string(1 << 20, 'x'), pGroup);
    program.m_view.ResizeInspector(40000, -1);
    EXPECT_EQ(35 + 25 * 10002, program.m_view.GetCurrentContentHeight());
    EXPECT_EQ(90, pGroup->children.back().labelColumn);
    program.Check();
}
