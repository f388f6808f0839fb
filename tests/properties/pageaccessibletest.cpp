#include "propertyview.h"
#include "testsupport.h"

namespace
{
struct sPage
{
    sPage()
    {
        CPropertyGroup lamp = view.Page().AddGroup("Lamp");
        lamp.Add("Name", strName).Tip("What it is called");
        lamp.Add("Lit", bLit).AccessibleName("Is lit");
        lamp.Add("Power", iPower).ReadOnly();
        lamp.Add("Light", iLight).Choices({{0, "Warm"}, {1, "Cold"}});
        lamp.AddCommand("Switch", [this] { bLit = !bLit; });
        lamp.AddWidget("Level", new QSlider);
        view.resize(300, 300);
    }

    QAccessibleInterface* Form() { return QAccessible::queryAccessibleInterface(view.focusProxy()); }

    QAccessibleInterface* Row(const char* in_strName)
    {
        for (int i = 0; i < Form()->childCount(); ++i)
        {
            if (Form()->child(i)->text(QAccessible::Name) == in_strName)
            {
                return Form()->child(i);
            }
        }
        return nullptr;
    }

    static void Press(QAccessibleInterface* in_pRow)
    {
        in_pRow->actionInterface()->doAction(in_pRow->actionInterface()->actionNames().value(0));
    }

    QString strName = "Ada";
    bool bLit = true;
    int iPower = 40;
    int iLight = 1;
    CPropertyView view;
};

QString Told(QAccessibleInterface* in_pRow)
{
    const QAccessible::State state = in_pRow->state();
    const QStringList actions = in_pRow->actionInterface()->actionNames();
    return QString("%1=%2 (%3)%4%5%6 %7")
        .arg(in_pRow->text(QAccessible::Name), in_pRow->text(QAccessible::Value),
             in_pRow->text(QAccessible::Description), state.checked ? " checked" : "",
             state.readOnly ? " read-only" : "", state.expanded ? " expanded" : "", actions.value(0));
}
} // namespace

class CPageAccessibleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { TestSupport::FailOnWarnings(); }

    void Rows()
    {
        sPage page;
        QVERIFY(TestSupport::ShowWindow(&page.view));
        const QList<std::pair<QAccessible::Role, QString>> rows = {
            {QAccessible::Grouping, "Lamp= () expanded Press"},
            {QAccessible::EditableText, "Name=Ada (What it is called) Press"},
            {QAccessible::CheckBox, "Is lit=true () checked Toggle"},
            {QAccessible::EditableText, "Power=40 () read-only SetFocus"},
            {QAccessible::ComboBox, "Light=Cold () ShowMenu"},
            {QAccessible::Button, "Switch= () Press"},
            {QAccessible::Slider, "Level=0 () SetFocus"},
        };
        QCOMPARE(page.Form()->role(), QAccessible::Form);
        QCOMPARE(page.Form()->childCount(), int(rows.size()));
        for (int i = 0; i < rows.size(); ++i)
        {
            QAccessibleInterface* pRow = page.Form()->child(i);
            QCOMPARE(Told(pRow), rows[i].second);
            QCOMPARE(pRow->role(), rows[i].first);
            QCOMPARE(page.Form()->indexOfChild(pRow), i);
            QCOMPARE(page.Form()->childAt(pRow->rect().center().x(), pRow->rect().center().y()), pRow);
        }
    }

    void Actions()
    {
        sPage page;
        page.view.Page().SetModifiedAgainst(CPropertyPage::eFirstValues);
        QVERIFY(TestSupport::ShowWindow(&page.view));
        sPage::Press(page.Row("Is lit"));
        QVERIFY(!page.bLit && page.Row("Is lit")->state().focused);
        QCOMPARE(Told(page.Row("Is lit")), "Is lit=false (modified) Toggle");
        page.Row("Is lit")->actionInterface()->doAction("Reset");
        QVERIFY(page.bLit);
        sPage::Press(page.Row("Is lit"));
        sPage::Press(page.Row("Switch"));
        QVERIFY(page.bLit && page.Row("Is lit")->state().checked);
        sPage::Press(page.Row("Name"));
        QAccessibleInterface* pEditor = QAccessible::queryAccessibleInterface(QApplication::focusWidget());
        QCOMPARE(pEditor->text(QAccessible::Name), "Name");
        QCOMPARE(page.Form()->indexOfChild(pEditor), 7);
        sPage::Press(page.Row("Lamp"));
        QCOMPARE(page.Form()->childCount(), 1);
        QVERIFY(page.Row("Lamp")->state().collapsed);
    }

    /// A row that somebody still knows has gone, and then its page.
    void Gone()
    {
        auto pPage = std::make_unique<sPage>();
        QVERIFY(TestSupport::ShowWindow(&pPage->view));
        QAccessibleInterface* pForm = pPage->Form();
        QAccessibleInterface* pRow = pPage->Row("Name");
        pPage->view.Page().Clear();
        QVERIFY(pRow->state().invalid && pRow->text(QAccessible::Name).isEmpty() && !pForm->childCount());
        QCOMPARE(pForm->indexOfChild(pRow), -1);
        sPage::Press(pRow);
        pPage->view.Page().AddGroup("Door").Add("Open", pPage->bLit);
        QCOMPARE(pPage->Form()->childCount(), 2);
        QCOMPARE(Told(pPage->Row("Open")), "Open=true () checked Toggle");
        const QAccessible::Id id = QAccessible::uniqueId(pPage->Row("Open"));
        pPage.reset();
        QVERIFY(!QAccessible::accessibleInterface(id));
    }
};

INSPECTOR_TEST_MAIN(CPageAccessibleTest)
#include "pageaccessibletest.moc"
