#include "corefakes.h"

namespace
{
std::string Span(const sHolder& in_holder)
{
    std::string strText = std::to_string(in_holder.x) + "+" + std::to_string(in_holder.width);
    for (const sHolder* pSub : in_holder.subHolders)
    {
        strText += (pSub == in_holder.subHolders.front() ? "(" : " ") + Span(*pSub);
    }
    return strText + (in_holder.subHolders.empty() ? "" : ")");
}

/// Of every row `label|label column x+width`, with the control's place and those of a container's controls.
std::string Rows(const std::list<sNode>& in_nodes)
{
    std::string strText;
    for (const sNode& node : in_nodes)
    {
        const std::string strColumn = "|" + std::to_string(node.labelColumn) + " ";
        strText += node.holder ? node.name + strColumn + Span(*node.holder) + " " : Rows(node.children);
    }
    return strText;
}

struct sCase
{
    const char* strName;
    int iWidth;
    const char* strTree;
    const char* strLayout; ///< of the rows, then the content's height
};

void CheckCases(bool in_bPreview, const std::vector<sCase>& in_cases)
{
    for (const sCase& row : in_cases)
    {
        SCOPED_TRACE(row.strName);
        CPage page;
        page.view.m_bPreviewMode = in_bPreview;
        page.Build(row.strTree);
        page.view.ResizeInspector(row.iWidth, 100);
        const std::string strHeight = "=" + std::to_string(page.view.GetCurrentContentHeight());
        EXPECT_EQ(row.strLayout, Rows(page.view.m_root) + strHeight);
    }
}
} // namespace

// Rows are 10 pixels narrower than the view.
TEST(Layout, Normal)
{
    const std::vector<sCase> cases = {
        // heights; those of groups are checked with every layout
        {"container as high as its tallest", 410, "[c a,h10 b,h30 d,h5 ] e",
         "c|0 5+400(5+132 139+132 273+132) e|0 5+400 =70"},
        {"empty container", 410, "[c ] e", "c|400 405+0 e|400 405+0 =40"},
        {"height asked for the whole row", 410, "{ a,l60,h0 } [c,l60 b,h0 ]", "a|60 70+330 c|60 65+340(65+340) =114"},
        // rows by themselves
        {"at its maximum the control is flush right", 410, "a,l60,M100", "a|300 305+100 =35"},
        {"exactly label and maximum", 170, "a,l60,M100", "a|60 65+100 =35"},
        {"exactly label and minimum", 110, "a,l60,w40", "a|60 65+40 =35"},
        {"label gives way", 109, "a,l60,w40", "a|0 5+99 =35"},
        {"maximum tested before minimum", 410, "a,l60,m350,M100", "a|300 305+100 =35"},
        {"no wish counts as -1", 69, "a,l60,w-1", "a|60 65+-1 =35"},
        {"no wish counts as -1, one pixel less", 68, "a,l60,w-1", "a|0 5+58 =35"},
        {"minimum in percent", 410, "a,l250,m50%", "a|0 5+400 =35"},
        {"-1 percent of 199 is absent", 209, "a,l60,w160,m-1%", "a|0 5+199 =35"},
        {"-1 percent of 200 is a minimum of -2", 210, "a,l60,w160,m-1%", "a|60 65+140 =35"},
        {"no-label flag ignored", 410, "a,l60,f1", "a|60 65+340 =35"},
        {"only row of its group aligns nothing", 410, "{ a,l20 } {T b,l80 }", "a|20 30+370 b|80 90+310 =100"},
        {"label plus maximum wraps", 410, "a,l10,M2147483647", "a|-2147483247 -2147483242+2147483647 =35"},
        {"percentage wraps", 410, "a,l60,m30000000%", "a|60 65+340 =35"},
        {"container gives way with the gap", 171, "[c,l60 a,w50 b,w50 ]", "c|0 5+161(5+79 86+80) =35"},
        {"container keeps label", 172, "[c,l60 a,w50 b,w50 ]", "c|60 65+102(65+50 117+50) =35"},
        {"sum of maximums has no gaps", 410, "[c,l60 a,w50,M50 b,w50,M60 ]", "c|290 295+110(295+50 347+58) =35"},
        {"container's own bounds", 410, "[c,l60,m10,M200 a,w50 b,w50 ]", "c|200 205+200(205+99 306+99) =35"},
        {"empty container needs -2", 408, "[c,l400 ]", "c|400 405+-2 =15"},
        {"empty container, one pixel less", 407, "[c,l400 ]", "c|0 5+397 =15"},
        // rows of one group
        {"widest label", 420, "{ a,l20 b,l80 }", "a|80 90+320 b|80 90+320 =75"},
        {"top level too", 410, "a,l20 {T d,l50 e,l30 } b,l80", "a|80 85+320 d|50 60+340 e|50 60+340 b|80 85+320 =135"},
        {"lowered to the smallest room", 410, "a,l20,w10 b,l80,w390", "a|10 15+390 b|10 15+390 =60"},
        {"no floor", 410, "a,l20,w10 b,w450", "a|-50 -45+450 b|-50 -45+450 =60"},
        {"no-label row takes part", 410, "a,l20 b,l80,f1", "a|80 85+320 b|0 5+400 =60"},
        {"surplus of one widens all", 410, "a,l20,M100 b,l30", "a|300 305+100 b|300 305+100 =60"},
        {"minimum tested before maximum", 410, "a,l60,m350,M100 b,l10", "a|10 15+390 b|10 15+390 =60"},
        {"no wish leaves one pixel more", 410, "a,l401,w-1 b,w-1", "a|401 406+-1 b|401 406+-1 =60"},
        {"sum of minimums has gaps", 410, "a,l9 [c,l9,M400 d,w160 e,w240 ]",
         "a|-2 3+402 c|-2 3+402(3+160 165+240) =60"},
        {"sum of maximums has no gaps", 410, "a,l10 [c,l20,m0 d,M50 e,M60 ]",
         "a|290 295+110 c|290 295+110(295+50 347+58) =60"},
        {"its own bounds stand", 410, "a [c,l20,m300,M400 d,w200 e,w200 ]",
         "a|20 25+380 c|20 25+380(25+200 227+200) =60"},
        {"empty container needs 0", 410, "a [c,l401 ]", "a|0 5+400 c|0 5+400 =40"},
        // controls that share a row
        {"capped, the other takes the rest", 212, "[c a,m50,M60 b,m50,M200 ]", "c|0 5+202(5+60 67+140) =35"},
        {"rest goes to the last", 54, "[c a,m10,M30 b,m10,M30 d,m10,M30 ]", "c|0 5+44(5+13 20+13 35+14) =35"},
        {"least room first", 54, "[c a,m10,M40 b,m10,M30 d,m10,M20 ]", "c|0 5+44(5+14 21+13 36+13) =35"},
        {"nothing to grow is skipped", 112, "[c a,m20,M20 b,m30 ]", "c|0 5+102(5+20 27+80) =35"},
        {"negative room", 194, "[c,m0,M184 a,m60,M40 b,m10,M100 d,m10,M100 ]", "c|0 5+184(5+40 47+100 149+10) =35"},
        {"no room: nothing shrinks", 82, "[c,m0,M72 a,m60,M40 b,m10 ]", "c|0 5+72(5+60 67+10) =35"},
        {"no wish needs 0", 112, "[c a,w-1 b,w200 ]", "c|0 5+102(5+0 7+200) =35"},
        {"percent of the row", 210, "[c,l50 a,m25%,M50% b,w20 ]", "c|50 55+150(55+89 146+59) =35"},
        {"room wraps", 112, "[c,m0,M102 a,m-10,M2147483647 b,m10,M50 ]", "c|0 5+102(5+90 97+10) =35"},
    };
    CheckCases(false, cases);
}

TEST(Layout, Preview)
{
    const std::vector<sCase> cases = {
        {"equal shares", 400, "a,l30,w40 b,l30,w40 d,l30,w40", "a|30 30+103 b|30 163+103 d|30 296+103 =20"},
        {"what does not fit stays", 100, "a,l30,w40 b,l30,w40 d,l30,w40", "a|0 0+50 b|0 50+50 d|30 0+0 =20"},
        {"labels just fit", 140, "a,l30,w40 b,l30,w40", "a|30 30+40 b|30 100+40 =20"},
        {"labels dropped", 139, "a,l30,w40 b,l30,w40", "a|0 0+69 b|0 69+69 =20"},
        {"single control has no label", 400, "a,l30,w40", "a|0 0+400 =20"},
        {"a wish that reaches the width does not count", 100, "a,l1,w50 b,w50", "a|0 0+100 b|0 0+0 =20"},
        {"nothing fits", 100, "a,l30,w200 b,l30,w40", "a|30 0+0 b|30 0+0 =20"},
        {"no wish counts 20", 90, "a,l1,w-1 b,w90", "a|0 0+90 b|0 0+0 =20"},
        {"percent of the view, no maximum", 200, "a,w10,m75%,M5 b,l1,w50", "a|0 0+200 b|1 0+0 =20"},
        {"controls of a container", 400, "[c,l30 a,w40 b,w40 ] d,l30,w40",
         "c|30 30+226(30+113 143+113) d|30 286+113 =20"},
        {"groups are passed over", 100, "{T,l90 {U a,w10 } b,l5,w10 } d,w10", "a|0 0+31 b|5 36+31 d|0 67+31 =20"},
        {"no control", 100, "{T } [c,l9 ]", "c|9 0+0 =0"},
        {"all start at the top, the last one counts", 100, "a,h50 b,h20", "a|0 0+50 b|0 50+50 =20"},
        {"groups start at the top too", 100, "{T a,h50 {U b,h30 } } d,h20", "a|0 0+33 b|0 33+33 d|0 66+33 =20"},
        {"tallest of a container", 100, "b,h50 [c d,h40 e,h10 ]", "b|0 0+33 c|0 33+66(33+33 66+33) =40"},
    };
    CheckCases(true, cases);
}
