#include "workedpage.h"

namespace
{
/// A widget of the application's with two places for the focus inside.
class CPair : public COwnWidget<QWidget>
{
public:
    CPair()
    {
        for (int i = 0; i < 2; ++i)
        {
            QPushButton* pButton = new QPushButton(this);
            pButton->setObjectName(QLatin1String(i == 0 ? "left" : "right"));
            pButton->setGeometry(i * 50, 0, 40, 20);
        }
    }
};

/// A widget of the application's that works without keyboard navigation: the guide's recipe.
class CTabbed : public CPair
{
public:
    CTabbed() { setFocusPolicy(Qt::StrongFocus); }
    void StartEditing() override { setFocus(Qt::TabFocusReason); }

protected:
    bool focusNextPrevChild(bool in_bNext) override
    {
        m_pElement->OnEndEditing(this, in_bNext ? CInspectorDataElement::eEndEditNext
                                                : CInspectorDataElement::eEndEditPrevious);
        return true;
    }
};

/// A page between two buttons, "first" and "last". Rows: L line, B box, E choice of One to Nine at Two, P button, X
/// long text, S static text, C CPair, T CTabbed; in lower case read-only, for a button: switched off.
class CKeyboardPage : public CWorkedPage
{
public:
    CKeyboardPage(const QString& in_strRows, QWidget* in_pOther) : CWorkedPage(in_pOther)
    {
        m_first.setObjectName(QLatin1String("first"));
        m_last.setObjectName(QLatin1String("last"));
        m_first.setGeometry(0, 300, 60, 20);
        m_last.setGeometry(100, 300, 60, 20);
        m_pView->SetKeyboardNavigation(true);
        QWidget::setTabOrder(&m_first, m_pView);
        QWidget::setTabOrder(m_pView, &m_last);
        AddRows(in_strRows);
        m_first.setFocus();
        m_acts["off"] = [this](int) { m_pView->SetKeyboardNavigation(false); };
        m_acts["writable"] = [this](int) { m_pView->SetKeyboardNavigation(true, false); };
        m_acts["rebuildlater"] = [this, in_strRows](int) {
            m_log.m_hooks[eCommand] = [this, in_strRows] {
                m_pController->ClearAllData();
                m_iRows = 0;
                AddRows(in_strRows);
                m_pView->RecomputeLayout();
            };
        };
        m_acts["where"] = [this](int) { m_log.Note(ePaint, "#" + Focus().toStdString()); };
        m_acts["start"] = [this](int in_iRow) { WidgetAt<CInspectorDataWidget>(in_iRow)->StartEditing(); };
        m_acts["offset"] = [this](int) { m_log.Note(ePaint, m_pView->m_iOffsetY > 0 ? "scrolled" : "top"); };
    }

    static QWidget* Editor()
    {
        QWidget* pList = CQTEnumDataWidget::g_pInPlaceList.get();
        return pList && !pList->isHidden() ? pList : CQTSimpleDataWidget::g_pInPlace;
    }

    QString State() const
    {
        const QString strEditing = Editing();
        const QString strNow = strEditing.isEmpty() ? QLatin1Char('#') + Focus() : strEditing;
        return (m_log.Text() + QLatin1Char(' ') + strNow).trimmed();
    }

private:
    static QString Focus()
    {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    }

    QWidget* SharedEditor() const override { return Editor(); }

    QRect EditorRect(const QRect& in_row) const override
    {
        const bool bList = qobject_cast<QListWidget*>(Editor());
        return bList ? QRect(in_row.bottomLeft() + QPoint(0, 1), Editor()->size()) : in_row;
    }

    QString EditedText() const override
    {
        const auto* pList = qobject_cast<QListWidget*>(Editor());
        const auto* pLine = qobject_cast<QLineEdit*>(Editor());
        return pLine ? pLine->text() : pList->currentItem() ? pList->currentItem()->text() : QString();
    }

    void AddRow(char in_cRow) override
    {
        const std::string strName = std::to_string(m_iRows++);
        const char* pName = strName.c_str();
        CInspectorDataElement* pElement = nullptr;
        switch (std::toupper(in_cRow))
        {
        case 'L':
            pElement = AddLine(pName, "old");
            break;
        case 'B':
            pElement = Add<CQTSimpleBoolWidget, CBoolDataElement>(pName);
            break;
        case 'E':
            pElement = AddChoice(pName);
            break;
        case 'P':
        {
            auto* pButton = Add<CQTButtonWidget, CButtonDataElement>(pName);
            pButton->m_strCommand = strName;
            pButton->m_bEnabled = in_cRow == 'P';
            return;
        }
        case 'X':
            pElement = Add<CQTSimpleTextWidget, CSimpleDataElement>(pName);
            break;
        case 'S':
            Add<CQTStaticWidget, CStaticDataElement>(pName);
            return;
        case 'T':
            pElement = Add<CTabbed, CBoolDataElement>(pName);
            break;
        default:
            pElement = Add<CPair, CBoolDataElement>(pName);
        }
        pElement->SetReadOnly(std::islower(in_cRow));
    }

    CInspectorDataElement* AddChoice(const char* in_strName)
    {
        auto* pChoice = Add<CQTEnumDataWidget, CEnumDataElement>(in_strName);
        pChoice->CreateEnum();
        int iValue = 0;
        for (const char* strChoice : {"One", "Two", "Three", "Four", "Five", "Six", "Seven", "Eight", "Nine"})
        {
            pChoice->AddEnum(std::to_string(++iValue).c_str(), strChoice);
        }
        pChoice->SetText("2");
        return pChoice;
    }

    QPushButton m_first{&m_window};
    QPushButton m_last{&m_window};
};
} // namespace

class KeyboardTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QApplication::setKeyboardInputInterval(10000);
        QVERIFY(PrepareOther(m_other));
    }
    void Working_data();
    void Working() { RunCase<CKeyboardPage>(&m_other); }

private:
    QWidget m_other;
};

void KeyboardTest::Working_data()
{
    static const sCase cases[] = {
        {"through every kind, and out", "LBEPXSC",
         "Tab where Tab where Tab where Tab where Tab where Tab where Tab where Tab",
         "#0 #1 #2 #3 #4 #left #right #last"},
        {"backwards", "LXC",
         "Tab Tab Tab Tab Tab shift+Tab where shift+Tab where shift+Tab where shift+Tab where shift+Tab",
         "#right #left #1 #0 #first"},
        {"read-only ones are reached", "lbepX", "Tab where Tab where Tab where Tab", "#0 #1 #2 #4"},
        {"or not", "lbepXL", "writable Tab where Tab", "#4 #5"},
        {"not without having asked", "LBC", "off Tab where Tab where Tab", "#left #right #last"},
        {"a widget of the application's leaves to any kind", "TBTXTETPTTTL",
         "off start0 Tab where start2 Tab where start4 Tab where start6 Tab where start8 Tab where Tab where Tab",
         "0:2 #1 2:2 #3 4:2 #5 6:2 #7 8:2 #9 9:2 #10 10:2 @11=old"},
        {"the page follows", "LLLLLLLLLLLB", "shift+Tab shift+Tab where offset", "#11 scrolled #11"},
        {"a box", "BB", "Tab space Tab space space", "0=true 1=true 1=false #1"},
        {"a read-only box", "b", "Tab space", "#0"},
        {"a button", "P", "Tab space", "command:0 #0"},
        {"a line", "LL", "Tab F2 x Return", "0=x 0:1 #0"},
        {"a line, back", "L", "Tab Return x Escape", "0:0 #0"},
        {"on to a line", "LBL", "Tab Return Tab where space Tab F2", "0:2 #1 1=true @2=old"},
        {"from line to line, and out", "LL", "Tab F2 x Tab y Tab", "0=x 0:2 1=y 1:2 #last"},
        {"back and out", "L", "Tab F2 shift+Tab", "0:3 #first"},
        {"a read-only line is for copying", "l", "Tab F2 x", "@0=old"},
        {"and the next one is not", "lL", "Tab F2 Tab x", "0:2 @1=x"},
        {"a list by space", "E", "Tab space Down Return", "0=3 0:4 #0"},
        {"by Down, back", "E", "Tab Down Up Escape", "0:0 #0"},
        {"by Alt+Down", "E", "Tab alt+Down End Return", "0=9 0:4 #0"},
        {"Home, Page Down, Up at the end", "E", "Tab space Next where Home Up Return", "# 0=1 0:4 #0"},
        {"type-ahead", "E", "Tab space s e Return", "0=7 0:4 #0"},
        {"a read-only list stays closed", "e", "Tab space", "#0"},
        {"a second press closes", "EL", "click0 click0", "0:4 #0"},
        {"a third one opens again", "EL", "click0 click0 click0", "0:4 @0=Two"},
        {"a press on another row", "EE", "click1 click0", "1:4 @0=Two"},
        {"hidden rows are passed over", "LBB", "hide Tab", "#last"},
        {"a page that is built anew by a press", "BPL", "rebuildlater Tab Tab space where Tab",
         "command:1 0- 1- 2- #1 #2"},
    };
    AddCases(cases);
}

INSPECTOR_TEST_MAIN(KeyboardTest)
#include "keyboardtest.moc"
