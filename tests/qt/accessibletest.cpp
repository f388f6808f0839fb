#include "testsupport.h"

#include <algorithm>

namespace
{
typedef COwnWidget<QSlider> CSlider;

QAccessibleInterface* Of(QObject* in_pObject)
{
    return QAccessible::queryAccessibleInterface(in_pObject);
}

const struct
{
    QAccessible::Role role;
    const char* name;
} g_roles[] = {{QAccessible::EditableText, "entry"}, {QAccessible::CheckBox, "box"},
               {QAccessible::ComboBox, "choice"},    {QAccessible::Button, "button"},
               {QAccessible::StaticText, "text"},    {QAccessible::Slider, "slider"},
               {QAccessible::ScrollBar, "bar"}};

/// "role name=value (description) states: actions".
QString Told(QAccessibleInterface* in_pInterface)
{
    const auto text = [=](QAccessible::Text in_eText) { return in_pInterface->text(in_eText).toStdString(); };
    const QAccessible::Role eRole = in_pInterface->role();
    const auto role = std::find_if(std::begin(g_roles), std::end(g_roles),
                                   [=](const auto& in_role) { return in_role.role == eRole; });
    std::string strTold = role == std::end(g_roles) ? "?" : role->name;
    strTold +=
        " " + text(QAccessible::Name) + "=" + text(QAccessible::Value) + " (" + text(QAccessible::Description) + ")";
    const QAccessible::State state = in_pInterface->state();
    const std::pair<bool, const char*> states[] = {{state.checked, " checked"},     {state.readOnly, " read-only"},
                                                   {state.disabled, " disabled"},   {state.offscreen, " offscreen"},
                                                   {state.invisible, " hidden"},    {state.expanded, " expanded"},
                                                   {state.multiLine, " multi-line"}};
    for (const auto& shown : states)
    {
        strTold += shown.first ? shown.second : "";
    }
    const QStringList actions =
        in_pInterface->actionInterface() ? in_pInterface->actionInterface()->actionNames() : QStringList();
    return TestSupport::Latin(strTold) + QLatin1Char(':') + actions.join(QLatin1Char(' '));
}

/// A page with a row of each kind, at last those of the group that comes first.
class CToldPage : public CTestPage
{
public:
    CToldPage()
    {
        auto* pOuter = m_pView->AddGroup("Outer", nullptr);
        auto* pInner = m_pView->AddGroup("Inner", pOuter);
        Add<CQTSimpleBoolWidget, CBoolDataElement>("Lit")->SetValue(true);
        auto* pSize = m_pView->AddSingleLineContainer("Size", nullptr, nullptr);
        AddLine("w", "10", pSize);
        AddLine("h", "20", pSize)->SetReadOnly(true);
        m_pLight = Add<CQTEnumDataWidget, CEnumDataElement>("Light");
        m_pLight->CreateEnum();
        m_pLight->AddEnum("w", "Warm");
        m_pLight->AddEnum("c", "Cold");
        m_pLight->SetText("w");
        AddButton("", "Reset", true);
        AddButton("Lamp", "Switch", false);
        Add<CQTStaticWidget, CStaticDataElement>("Kind")->m_strText = "Desk";
        Add<CSlider, CBoolDataElement>("Level");
        Add<CQTSimpleTextWidget, CSimpleDataElement>("Notes")->SetText("two\nlines");
        AddLine("Name", "Ada", pInner);
        m_pController->ConnectDataElements();
    }

    QAccessibleInterface* Child(const char* in_strName)
    {
        QAccessibleInterface* pView = Of(m_pView);
        for (int i = 0; i < pView->childCount(); ++i)
        {
            if (pView->child(i)->text(QAccessible::Name) == QLatin1String(in_strName))
            {
                return pView->child(i);
            }
        }
        return nullptr;
    }

    CTestElement<CEnumDataElement>* m_pLight;

private:
    void AddButton(const char* in_strLabel, const char* in_strCaption, bool in_bEnabled)
    {
        auto* pButton = Add<CQTButtonWidget, CButtonDataElement>(in_strLabel);
        pButton->m_strCaption = in_strCaption;
        pButton->m_strCommand = in_strCaption;
        pButton->m_bEnabled = in_bEnabled;
    }
};
} // namespace

class AccessibleTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::FailOnWarnings(); }
    void Page();
    void Places();
    void OtherPages();
    void Names();
    void Actions();
    void Texts();
};

void AccessibleTest::Page()
{
    CToldPage page;
    QVERIFY(page.Open(320, 150));
    const char* const rows[] = {
        "entry Name=Ada (Outer, Inner):Press",
        "box Lit= () checked:Toggle",
        "entry Size 1=10 ():Press",
        "entry Size 2=20 () read-only:",
        "choice Light=Warm ():ShowMenu",
        "button Reset=Reset () offscreen:Press",
        "button Lamp=Switch (Switch) disabled offscreen:",
        "text Kind=Desk () read-only offscreen:",
        "slider Level=0 ():SetFocus",
        "entry Notes=two\nlines () offscreen multi-line:Press SetFocus",
        "bar =0 ():",
    };
    QAccessibleInterface* pView = Of(page.m_pView);
    QCOMPARE(pView->role(), QAccessible::Form);
    QCOMPARE(pView->childCount(), int(std::distance(std::begin(rows), std::end(rows))));
    for (int i = 0; i < pView->childCount(); ++i)
    {
        QCOMPARE(Told(pView->child(i)), TestSupport::Latin(rows[i]));
        QCOMPARE(pView->indexOfChild(pView->child(i)), i);
    }
}

void AccessibleTest::Places()
{
    CToldPage page;
    QVERIFY(page.Open(320, 150));
    for (const char* strName : {"Name", "Kind", "Level"})
    {
        QAccessibleInterface* pRow = page.Child(strName);
        QWidget* pControl = qobject_cast<QWidget*>(pRow->object());
        QCOMPARE(pRow->rect(), QRect(pControl->mapToGlobal(QPoint()), pControl->size()));
        page.m_pView->EnsureVisible(dynamic_cast<CInspectorDataWidget*>(pControl));
        const QPoint centre = pRow->rect().center();
        QCOMPARE(Of(page.m_pView)->childAt(centre.x(), centre.y()), pRow);
        QVERIFY(!pRow->state().offscreen);
        QVERIFY(pRow->parent() == Of(page.m_pView) || pRow->parent()->parent() == Of(page.m_pView));
    }
}

void AccessibleTest::OtherPages()
{
    CToldPage page;
    QVERIFY(page.Open());
    page.m_pController->SetPreviewMode(true);
    page.m_pView->RecomputeLayout();
    QCOMPARE(Told(page.Child("Name")), TestSupport::Latin("entry Name=Ada ():Press"));
    page.m_pController->SetPreviewMode(false);
    page.m_pView->ShowContent(false, false);
    QCOMPARE(Told(page.Child("Name")), TestSupport::Latin("entry Name=Ada (Outer, Inner) offscreen hidden:"));
    QVERIFY(Of(page.m_pView)->state().collapsed);
    page.m_pController->ClearAllData();
    page.m_pView->m_strMessage = "Nothing selected";
    QCOMPARE(Of(page.m_pView)->childCount(), 1);
    QAccessibleInterface* pMessage = Of(page.m_pView)->child(0);
    QCOMPARE(Told(pMessage), TestSupport::Latin("text Nothing selected= () read-only:"));
    QCOMPARE(Of(page.m_pView)->indexOfChild(pMessage), 0);
    page.m_pView->m_strMessage.clear();
    QCOMPARE(Of(page.m_pView)->childCount(), 0);
}

void AccessibleTest::Names()
{
    CToldPage page;
    QVERIFY(page.Open());
    QWidget* pName = qobject_cast<QWidget*>(page.Child("Name")->object());
    pName->setAccessibleName(QLatin1String("Full name"));
    pName->setToolTip(QLatin1String("a tip"));
    QCOMPARE(Told(page.Child("Full name")), TestSupport::Latin("entry Full name=Ada (Outer, Inner, a tip):Press"));
    pName->setAccessibleDescription(QLatin1String("who"));
    QCOMPARE(Told(page.Child("Full name")), TestSupport::Latin("entry Full name=Ada (who):Press"));
    CSlider* pNamed = new CSlider;
    pNamed->setAccessibleName(QLatin1String("Own"));
    page.m_pView->AddElement(nullptr, pNamed, "Label", nullptr, nullptr);
    QVERIFY(page.Child("Own") && !page.Child("Label"));
    delete pNamed;
    QVERIFY(!page.Child("Own"));
    auto* pGroup = page.m_pView->AddGroup("Remarks", nullptr);
    page.AddLine("", "none", pGroup);
    QCOMPARE(page.Child("Remarks")->text(QAccessible::Value), QLatin1String("none"));
}

void AccessibleTest::Actions()
{
    const struct
    {
        const char* m_strRow;
        const char* m_strOutcome; ///< what the application is told, and what gets the focus
    } cases[] = {
        {"Name", " @CInPlaceEdit"},
        {"Lit", "Lit=false @QWidget"},
        {"Size 2", " @"},
        {"Light", " @CInPlaceList"},
        {"Reset", "command:Reset @QWidget"},
        {"Notes", " @CQTSimpleTextWidget"},
        {"Lamp", " @"},
    };
    for (const auto& row : cases)
    {
        CToldPage page;
        QVERIFY(page.Open(320, 60));
        QAccessibleActionInterface* pActions = page.Child(row.m_strRow)->actionInterface();
        pActions->doAction(pActions->actionNames().value(0));
        const auto outcome = [&page] {
            const QWidget* pFocused = QApplication::focusWidget();
            const bool bEdits = pFocused && (pFocused->inherits("CQTSimpleTextWidget") || pFocused->isWindow());
            const char* strClass = bEdits ? pFocused->metaObject()->className() : "";
            return page.m_log.Text() + QLatin1String(" @") + QLatin1String(strClass);
        };
        TestSupport::WaitUntil([&] { return outcome() == QLatin1String(row.m_strOutcome); });
        QCOMPARE(outcome(), QString(QLatin1String(row.m_strOutcome)));
    }
}

/// Told as text to be read, and to be written where it is more than a line.
void AccessibleTest::Texts()
{
    CToldPage page;
    QVERIFY(page.Open());
    QAccessibleTextInterface* pLine = page.Child("Light")->textInterface();
    QCOMPARE(pLine->text(1, pLine->characterCount()), QString(QLatin1String("arm")));
    QAccessibleInterface* pNotes = page.Child("Notes");
    QAccessibleTextInterface* pText = pNotes->textInterface();
    const QRect third = pText->characterRect(6);
    QCOMPARE(pText->offsetAtPoint(QPoint(third.left() + 1, third.center().y())), 6);
    pText->setSelection(0, 4, 9);
    int iStart = 0;
    int iEnd = 0;
    pText->selection(0, &iStart, &iEnd);
    QCOMPARE(pText->text(iStart, iEnd), QString(QLatin1String("lines")));
    pNotes->editableTextInterface()->replaceText(0, 3, QLatin1String("three"));
    pNotes->editableTextInterface()->deleteText(5, 99);
    QCOMPARE(pNotes->text(QAccessible::Value), QString(QLatin1String("three")));
}

INSPECTOR_TEST_MAIN(AccessibleTest)
#include "accessibletest.moc"
