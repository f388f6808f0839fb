#include "workedpage.h"

using TestSupport::Latin;

typedef CEnumDataElement::sEnumDefinition sDefinition;

namespace
{
class CListPage : public CWorkedPage
{
public:
    /// \param in_strRows E an enumeration at its second choice, R a read-only one, U one with an unknown value, N one
    /// without a definition
    CListPage(const QString& in_strRows, QWidget* in_pOther) : CWorkedPage(in_pOther)
    {
        AddRows(in_strRows);
        m_acts["row"] = [this](int in_iRow) {
            Click(Editor()->viewport(), Editor()->visualItemRect(Editor()->item(in_iRow)).center());
        };
        m_acts["set"] = [this](int in_iRow) { m_lists[in_iRow]->SetText("1"); };
    }

    static CInPlaceList* Editor() { return CQTEnumDataWidget::g_pInPlaceList.get(); }

private:
    QWidget* SharedEditor() const override { return Editor(); }

    QRect EditorRect(const QRect& in_row) const override
    {
        return QRect(in_row.bottomLeft() + QPoint(0, 1), Editor()->size());
    }

    QString EditedText() const override
    {
        const QListWidgetItem* pItem = Editor()->currentItem();
        return pItem ? pItem->text() : QString();
    }

    void AddRow(char in_cRow) override
    {
        CTestElement<CEnumDataElement>* pList =
            Add<CQTEnumDataWidget, CEnumDataElement>(std::to_string(m_iRows).c_str());
        if (in_cRow != 'N')
        {
            pList->CreateEnum();
        }
        pList->AddEnum("1", "One");
        pList->AddEnum("2", "Two");
        pList->AddEnum("3", "Three");
        pList->SetText(in_cRow == 'U' ? "4" : "2");
        pList->SetReadOnly(in_cRow == 'R');
        m_lists[m_iRows++] = pList;
    }

    std::map<int, CTestElement<CEnumDataElement>*> m_lists;
};
} // namespace

class ListTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(PrepareOther(m_other)); }
    void Choices();
    void LentDefinition();
    void Geometry();
    void Editing_data();
    void Editing();

private:
    QWidget m_other;
};

void ListTest::Choices()
{
    const struct
    {
        const char* m_strName;
        const char* m_strAdded; ///< value=display, or "clear"
        int m_iMethod;
        const char* m_strChoices; ///< value=display=what the look-up gives
    } cases[] = {
        {"by value, byte by byte", "b=1 B=2 10=3 a=4 9=5", 0, "10=3=3 9=5=5 B=2=2 a=4=4 b=1=1"},
        {"by display, byte by byte", "1=b 2=B 3=\xC3\xA9 4=a", 1, "2=B=B 4=a=a 1=b=b 3=\xC3\xA9=\xC3\xA9"},
        {"as added, doubles too", "b=1 a=2 b=3", 2, "b=1=3 a=2=2 b=3=3"},
        {"by number, 0 without one", "10=1 9=2 x=3 -1=4", 3, "-1=4=4 x=3=3 9=2=2 10=1=1"},
        {"by number, cut to 32 bits", "2=1 4294967297=2 2147483648=3", 3, "2147483648=3=3 4294967297=2=2 2=1=1"},
        {"another method: as added", "b=1 a=2", 7, "b=1=1 a=2=2"},
        {"cleared: offered, but not found", "b=1 clear a=2", 2, "b=1= a=2=2"},
        {"none", "", 0, ""},
    };
    for (const auto& row : cases)
    {
        sDefinition definition;
        std::istringstream words(row.m_strAdded);
        for (std::string strWord; words >> strWord;)
        {
            const std::size_t uSign = strWord.find('=');
            uSign == std::string::npos
                ? definition.Clear()
                : definition.AddItem(strWord.substr(0, uSign).c_str(), strWord.c_str() + uSign + 1);
        }
        std::vector<sDefinition::sEnumItem> items(3);
        definition.GetAllItems(CEnumDataElement::eSortingMethod(row.m_iMethod), items);
        std::string strFound;
        for (const sDefinition::sEnumItem& item : items)
        {
            strFound += (strFound.empty() ? "" : " ") + item.value + "=" + item.display + "=" +
                        definition.GetDisplayFromValue(item.value);
        }
        QVERIFY2(strFound == row.m_strChoices, row.m_strName);
    }
}

void ListTest::LentDefinition()
{
    const auto shows = [](CEnumDataElement& in_element, const char* in_strDisplay) {
        std::string strDisplay = "stale";
        in_element.GetDisplayString("1", strDisplay);
        return strDisplay == in_strDisplay;
    };
    sDefinition lent;
    CEnumDataElement first;
    first.AddEnum("1", "Lost");
    QVERIFY(shows(first, ""));
    first.CreateEnum();
    first.SetExternalEnum(&lent);
    {
        CEnumDataElement second;
        second.SetExternalEnum(&lent);
        second.AddEnum("1", "One");
        second.CreateEnum();
        QVERIFY(shows(second, "") && shows(first, "One"));
        second.SetExternalEnum(&lent);
    }
    QVERIFY(shows(first, "One"));
    first.ClearEnum();
    QVERIFY(lent.GetDisplayFromValue("1").empty());
}

void ListTest::Geometry()
{
    const struct
    {
        const char* m_strName;
        QRect m_widget; ///< a negative place counts from the desktop's right or lower edge
        int m_iRows, m_iRowHeight;
        QRect m_list;
    } cases[] = {
        {"rows lower than the widget", QRect(50, 50, 120, 20), 1, 12, QRect(50, 70, 120, 20)},
        {"rows as high as the widget", QRect(50, 50, 120, 20), 2, 10, QRect(50, 70, 120, 20)},
        {"rows higher than the widget", QRect(50, 50, 120, 20), 3, 7, QRect(50, 70, 120, 27)},
        {"at most 15 rows", QRect(50, 50, 120, 20), 40, 16, QRect(50, 70, 120, 246)},
        {"at least 100 wide", QRect(50, 50, 60, 20), 3, 16, QRect(50, 70, 100, 54)},
        {"just on the desktop", QRect(-119, -73, 120, 20), 3, 16, QRect(-119, -53, 120, 54)},
        {"below the desktop", QRect(50, -50, 120, 20), 3, 16, QRect(50, -53, 120, 54)},
        {"right of the desktop", QRect(-50, 50, 60, 20), 3, 16, QRect(-99, 70, 100, 54)},
    };
    const QSize desktop = InspectorQt::DesktopRect().size();
    const auto onDesktop = [&desktop](const QRect& in_rect) {
        return in_rect.translated(in_rect.x() < 0 ? desktop.width() : 0, in_rect.y() < 0 ? desktop.height() : 0);
    };
    for (const auto& row : cases)
    {
        CInPlaceList list;
        list.AddItem(nullptr, "no value");
        list.AddItem("no display", nullptr);
        for (int iRow = 0; iRow < row.m_iRows; ++iRow)
        {
            list.AddItem("2", "Two");
            list.item(iRow)->setSizeHint(QSize(10, row.m_iRowHeight));
        }
        list.InPlaceEdit(&m_other, "2", onDesktop(row.m_widget).translated(-m_other.mapToGlobal(QPoint())));
        QVERIFY2(list.count() == row.m_iRows && list.currentRow() == 0, row.m_strName);
        QVERIFY2(list.geometry() == onDesktop(row.m_list), row.m_strName);
    }
}

void ListTest::Editing_data()
{
    const sCase cases[] = {
        {"opens without the value", "U", "click0", "@0="},
        {"pick the same, then another", "EE", "click0 row1 click0 row0", "0:4 0=1 0:4"},
        {"read-only", "R", "click0 row2 click0 Escape", "0:4 0:0"},
        {"no definition, no other button", "NE", "click0 right1 middle1", ""},
        {"any key", "EE", "click0 Escape click0 Down click0 Return click0 Tab click0 x", "0:0 0:4 0:4 0:4 0:4"},
        {"over a modal window", "ME", "click0 row2 click0 Escape click0 blank", "0=3 0:4 0:0 0:4"},

        {"click beside the rows", "E", "click0 blank click0", "0:4 @0=Two"},
        {"click another window", "E", "click0 other", "0:4", eSent | eX11},
        {"click the row itself, then another", "EEEEE", "click0 click0 click4", "0:4 0:4 @4=Two"},
        {"the element changed meanwhile", "EE", "click0 set0 Escape click1 set1 blank", "0:0 1:4"},

        {"scrolled out of sight", "EEEEEEEEEEEE", "click0 scroll", "0:4"},
        {"content hidden", "E", "click0 hide", "0:4"},
        {"view disabled", "E", "click0 disable", "0:4"},
        {"page left", "E", "click0 leave", "0:4"},
        {"window closed", "E", "click0 close", "0:4"},
        {"window moved", "E", "click0 move", "0:4"},
        {"follows a layout", "E", "click0 narrow", "@0=Two"},

        {"page torn down", "EE", "click1 clear", "0- 1:4 1-"},
        {"view deleted", "EE", "click1 delete", "1:4"},
        {"view deleted in the report", "EE", "when:delete click1 row2", "1=3"},
        {"opened again in the report", "EEEEE", "when:click4 click0 row2", "0=3 0:4 @4=Two"},

        {"drag the title bar", "E", "click0 drag", "0:4", eX11},
        {"no window manager: press another row", "EE", "click0 press1", "0:4 @1=Two", eSent},
    };
    AddCases(cases);
}

void ListTest::Editing()
{
    RunCase<CListPage>(&m_other);
}

INSPECTOR_TEST_MAIN(ListTest)

#include "listtest.moc"
