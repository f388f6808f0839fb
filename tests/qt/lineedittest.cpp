#include "workedpage.h"

#include <random>

using TestSupport::Latin;

namespace
{
class CLinePage : public CWorkedPage
{
public:
    /// \param in_strRows L a line, R a read-only one, B a bool, T a long text, C a command, (...) a single-line
    /// container
    CLinePage(const QString& in_strRows, QWidget* in_pOther) : CWorkedPage(in_pOther)
    {
        AddRows(in_strRows);
        const QKeySequence keys[] = {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Backtab};
        for (const QKeySequence& key : keys)
        {
            new QShortcut(key, &m_window, nullptr, nullptr, Qt::ApplicationShortcut);
        }
        m_acts["set"] = [this](int in_iRow) { m_lines[in_iRow]->SetText("m"); };
        m_acts["into"] = [this](int in_iRow) { Click(Aim(in_iRow), QPoint(60, 9)); };
        m_acts["menu"] = [this](int in_iRow) { Click(Aim(in_iRow), QPoint(60, 9), Qt::RightButton); };
        m_acts["edge"] = [this](int) { m_pView->m_pScrollBar->setValue(20); };
        m_acts["beside"] = [this](int) { WatchBeside(); };
        m_acts["shortcut"] = [this](int) {
            QEvent event(QEvent::Shortcut);
            QCoreApplication::sendEvent(&m_window, &event);
        };
        m_acts["look"] = [this](int) {
            m_pView->setFont(QFont(QLatin1String("DejaVu Sans"), 14));
            m_pView->setPalette(QPalette(Qt::darkGreen));
            m_pView->setLayoutDirection(Qt::RightToLeft);
        };
        m_acts["alike"] = [this](int in_iRow) {
            const QWidget* pRow = WidgetAt<QWidget>(in_iRow);
            const bool bText = Editor()->font().pointSize() == pRow->font().pointSize();
            const bool bColours = Editor()->palette().color(QPalette::Base) == pRow->palette().color(QPalette::Base);
            const bool bSide = Editor()->layoutDirection() == pRow->layoutDirection();
            m_log.Note(eCommand, bText && bColours && bSide ? "alike" : "other");
        };
        m_acts["slow"] = [this](int) { BeSlow(); };
        m_acts["finish"] = [this](int) { m_pView->FinishEditing(); };
        m_acts["edit"] = [this](int in_iRow) { WidgetAt<CQTSimpleDataWidget>(in_iRow)->StartEditing(); };
        m_acts["latehide"] = [this](int) {
            QHideEvent event;
            QCoreApplication::sendEvent(Editor(), &event);
        };
        m_acts["wheel"] = [this](int in_iRow) { TurnWheel(Aim(in_iRow)); };
    }

    static CInPlaceEdit* Editor() { return CQTSimpleDataWidget::g_pInPlace; }

    /// Values, the row that is edited and what is in its editor; "inactive" when no window gets the keys.
    QString Content() const
    {
        QStringList words;
        for (const auto& line : m_lines)
        {
            words << Latin(ValueOf(*line.second));
        }
        words << (QApplication::activeWindow() ? Editing() : QLatin1String("inactive"));
        return words.join(QLatin1Char(' ')).trimmed();
    }

    using CWorkedPage::KeysTyped;
    using CWorkedPage::Press;

    std::map<int, CTestElement<CSimpleDataElement>*> m_lines;

private:
    /// What is to be aimed at: the X server finds the editor over a row by itself.
    QWidget* Aim(int in_iRow) const { return IsReal() ? WidgetAt<QWidget>(in_iRow) : Editor(); }

    /// A button beside the view has the focus at first, and is not to be pressed.
    void WatchBeside()
    {
        if (QPushButton* pButton = m_window.findChild<QPushButton*>())
        {
            pButton->isChecked() ? m_log.Note(eCommand, "pressed") : void();
            return;
        }
        auto* pButton = new QPushButton(&m_window);
        pButton->setCheckable(true);
        pButton->setGeometry(0, 300, 50, 20);
        pButton->show();
        pButton->setFocus();
    }

    /// Each report takes a tenth of a second from here on.
    void BeSlow()
    {
        m_log.m_hooks[eEndEditing] = [this] {
            QTest::qSleep(100);
            BeSlow();
        };
    }

    QWidget* SharedEditor() const override { return Editor(); }
    QRect EditorRect(const QRect& in_row) const override { return in_row; }
    QString EditedText() const override
    {
        return Editor()->text() + Latin(Editor()->windowFlags() & Qt::WindowStaysOnTopHint ? ", on top" : "");
    }

    void AddRow(char in_cRow) override
    {
        const std::string strName = std::to_string(m_iRows);
        switch (in_cRow)
        {
        case '(':
            m_pContainer = m_pView->AddSingleLineContainer("", nullptr, nullptr);
            return;
        case ')':
            m_pContainer = nullptr;
            return;
        case 'B':
            Add<CQTSimpleBoolWidget, CBoolDataElement>(strName.c_str());
            break;
        case 'C':
            Add<CQTButtonWidget, CButtonDataElement>(strName.c_str())->m_strCaption.assign(60, 'x'); // fills the row
            break;
        case 'T':
            Add<CQTSimpleTextWidget, CSimpleDataElement>(strName.c_str());
            break;
        default:
            m_lines[m_iRows] = Add<CQTSimpleDataWidget, CSimpleDataElement>(strName.c_str(), m_pContainer);
            m_lines[m_iRows]->SetText("v");
            m_lines[m_iRows]->SetReadOnly(in_cRow == 'R');
        }
        ++m_iRows;
    }

    CInspectorView::sInspectorElement* m_pContainer = nullptr;
};
/// What must come of the keys typed so far, whenever they arrive.
class CTypedModel
{
public:
    explicit CTypedModel(const std::string& in_strRows) : m_strRows(in_strRows), m_values(in_strRows.size(), "v") {}

    void Press(int in_iRow)
    {
        End(true);
        Open(in_iRow);
    }

    /// A letter, or a name of the X server's.
    void Key(const std::string& in_strKey)
    {
        if (in_strKey == "Return" || in_strKey == "Escape")
        {
            End(in_strKey == "Return");
        }
        else if (in_strKey == "Tab" || in_strKey == "shift+Tab")
        {
            const int iRows = static_cast<int>(m_strRows.size());
            const int iNext = (m_iEdited + (in_strKey == "Tab" ? 1 : iRows - 1)) % iRows;
            End(true);
            Open(iNext);
        }
        else
        {
            m_strText = m_bSelected ? "" : m_strText;
            in_strKey != "BackSpace" ? m_strText += in_strKey : m_strText = m_strText.substr(0, m_strText.size() - 1);
            m_bSelected = false;
        }
    }

    QString Content() const
    {
        std::string strContent;
        for (std::size_t uRow = 0; uRow < m_values.size(); ++uRow)
        {
            strContent += m_strRows[uRow] == 'L' ? m_values[uRow] + " " : "";
        }
        return Latin(IsEditing() ? strContent + "@" + std::to_string(m_iEdited) + "=" + m_strText : strContent)
            .trimmed();
    }

    bool IsEditing() const { return m_iEdited >= 0; }
    int Edited() const { return m_iEdited; }

private:
    /// Anything but a line only takes the focus.
    void Open(int in_iRow)
    {
        if (m_strRows[in_iRow] != 'L')
        {
            return;
        }
        m_iEdited = in_iRow;
        m_strText = m_values[in_iRow];
        m_bSelected = true;
    }

    void End(bool in_bTake)
    {
        if (IsEditing() && in_bTake)
        {
            m_values[m_iEdited] = m_strText;
        }
        m_iEdited = -1;
    }

    std::string m_strRows;
    std::vector<std::string> m_values;
    int m_iEdited = -1;
    std::string m_strText;
    bool m_bSelected = false;
};

/// Presses rows and types bursts of keys at random, with no time for the windows to come to rest but before a press.
class CTypist
{
public:
    CTypist(std::mt19937& io_random, QWidget* in_pOther)
        : m_random(io_random),
          m_page(Latin(m_strRows), in_pOther),
          m_model(m_strRows)
    {}

    /// \return how many keys were typed until that was enough or something was wrong
    int Run(int in_iKeys)
    {
        m_xdotool.start(QLatin1String("xdotool"), QStringList(QLatin1String("-")));
        bool bRight = m_page.Open() && m_xdotool.waitForStarted() && Rests();
        while (bRight && m_iKeys < in_iKeys)
        {
            bRight = (m_model.IsEditing() && Any(4) > 0) || PressAny();
            TypeBurst();
            bRight = bRight && ((m_model.IsEditing() && Any(3) > 0 && m_iKeys < in_iKeys) || Rests());
        }
        bRight ? void() : Complain();
        m_xdotool.closeWriteChannel();
        m_xdotool.waitForFinished();
        return m_iKeys;
    }

private:
    int Any(int in_iCount) { return static_cast<int>(m_random() % static_cast<unsigned>(in_iCount)); }

    void Do(const std::string& in_strCommand) { m_xdotool.write((in_strCommand + "\n").c_str()); }

    bool Rests()
    {
        m_strScript += " .";
        return TestSupport::WaitUntil(
            [this] { return m_page.KeysTyped() == m_iKeys && m_page.Content() == m_model.Content(); });
    }

    bool PressAny()
    {
        const int iRow = Any(static_cast<int>(m_strRows.size()));
        if (iRow == m_model.Edited() || m_strRows[iRow] != 'L')
        {
            return true;
        }
        if (!Rests())
        {
            return false;
        }
        m_model.Press(iRow);
        m_strScript += " click" + std::to_string(iRow);
        return m_page.Press(iRow);
    }

    void TypeBurst()
    {
        static const char* const keys[] = {"a",   "b",   "c",         "BackSpace", "Tab",
                                           "Tab", "Tab", "shift+Tab", "Return",    "Escape"};
        static const char* const pauses[] = {"0", "0", "0", "1", "5", "20", "40"};
        std::string strBurst;
        for (int iLeft = 1 + Any(12); iLeft > 0 && m_model.IsEditing(); --iLeft, ++m_iKeys)
        {
            const std::string strKey = keys[Any(10)];
            m_model.Key(strKey);
            strBurst += " " + strKey;
        }
        const std::string strPause = pauses[Any(7)];
        strBurst.empty() ? void() : Do("key --delay " + strPause + strBurst);
        m_strScript += " " + strPause + ":" + strBurst;
    }

    void Complain() const
    {
        const std::string strEnd =
            m_strScript.substr(m_strScript.size() - std::min<std::size_t>(m_strScript.size(), 300));
        const QString strIs = m_page.Content() + QLatin1String("\n   not ") + m_model.Content();
        QTest::qFail((strEnd + "\n   is  " + strIs.toStdString()).c_str(), __FILE__, __LINE__);
    }

    const std::string m_strRows = "LLBLLLL";
    std::mt19937& m_random;
    CLinePage m_page;
    CTypedModel m_model;
    QProcess m_xdotool;
    int m_iKeys = 0;
    std::string m_strScript;
};
} // namespace

class LineEditTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(PrepareOther(m_other)); }
    void Editing_data();
    void Editing();
    void Typing_data();
    void Typing();
    void AnyTyping();
    void UnchangedTextStays();
    void LastWindowClosed();

private:
    QWidget m_other;
};

void LineEditTest::Editing_data()
{
    const sCase cases[] = {
        {"Return, Escape", "LL", "click0 x Return click0 y Escape", "0=x 0:1 0:0"},
        {"Tab, at the last to the first; Enter", "LL", "click0 x Tab y Tab z KP_Enter", "0=x 0:2 1=y 1:2 0=z 0:1"},
        {"Shift+Tab and Backtab", "LLL", "click0 shift+Tab x ISO_Left_Tab", "0:3 2=x 2:3 @1=v"},
        {"Tab with one row", "L", "click0 x Tab Tab", "0=x 0:2 0:2 @0=x"},
        {"Tab through a container", "L(LL)L", "click0 Tab Tab Tab shift+Tab", "0:2 1:2 2:2 3:3 @2=v"},
        {"Tab onto a bool", "LBL", "click0 x Tab", "0=x 0:2"},
        {"Tab onto a read-only row", "LR", "click0 Tab x Return", "0:2 1:1"},
        {"Tab onto a row out of sight", "LLLLLLLLLLLL", "click0 shift+Tab x Tab", "0:3 11=x 11:2 @0=v"},
        {"over a modal window", "MLL", "click0 x Tab y blank click0 into0 z Return", "0=x 0:2 1=y 1:4 0=xz 0:1"},
        {"no press on a read-only row, no other button", "RL", "click0 right1", ""},

        {"click into the editor", "LL", "click1 x into1 y Return", "1=xy 1:1"},
        {"context menu", "LL", "click1 x menu1 Escape y Return", "1=xy 1:1"},
        {"context menu of a long text", "T", "click0 x right0 Escape y hide", "0=xy"},
        {"click beside the context menu", "LL", "click1 x menu1 blank y blank", "1=xy 1:4", eWayland},
        {"click another row after a Tab", "LLL", "click0 Tab x click0", "0:2 1=x 1:4 @0=v"},
        {"click beside the rows", "LL", "click0 x blank", "0=x 0:4"},
        {"click another window", "LL", "click0 x other", "0=x 0:4", eSent | eX11},

        {"follows the wheel", "LLLLLLLLLLLL", "click6 x wheel6 y", "@6=xy"},
        {"ends by the wheel", "LLLLLLLLLLLL", "click0 x wheel0", "0=x 0:4"},
        {"scrolled out of sight", "LLLLLLLLLLLL", "click0 x scroll", "0=x 0:4"},
        {"content hidden", "LL", "click0 x hide", "0=x 0:4"},
        {"page left", "LL", "click0 x leave", "0=x 0:4"},
        {"window closed", "LL", "click0 x close", "0=x 0:4"},
        {"follows a layout and the window", "LL", "click0 x narrow move y", "@0=xy"},

        {"follows the element", "LL", "click0 set0", "@0=m"},
        {"typed text is kept, Escape drops it", "LL", "click0 x set0 Return click0 y set0 Escape", "0=x 0:1 0:0"},
        {"word of an earlier hide", "LL", "click0 x latehide y", "@0=xy"},
        {"taken over, nothing goes on", "LLT", "click0 Tab x when:edit0 finish click2 y finish", "0:2 1=x 1:4 2=y"},
        {"view deleted by what is taken over", "TL", "when:delete click0 x finish", "0=x"},
        {"a command gets what was typed", "LTC", "press0 x press2 click1 y click2",
         "0=x 0:4 command: 1=y command:", eSent},
        {"so it does with real input", "LTC", "click0 x click2 click1 y click2", "0=x 0:4 command: 1=y command:"},
        {"Tab whose report hides the page", "LL", "when:leave click0 x Tab", "0=x 0:2"},
        {"keys after a Tab onto a box", "LB", "beside click0 x Tab space Down beside", "0=x 0:2"},
        {"Alt types nothing", "LL", "click0 x alt+y Return", "0=x 0:1", eX11 | eWayland},
        {"a shortcut gets what was typed", "LT", "click0 x shortcut click1 y shortcut z shortcut", "0=x 0:4 1=y 1=yz"},
        {"looks like its row", "LL", "look click0 alike0", "alike @0=v"},
        {"view disabled", "LL", "click0 x disable", "0=x 0:4"},
        {"only the edge was in sight", "LLLLLLLLLLLL", "edge edit0 scroll", "0:4"},
        {"row removed", "LL", "click0 x remove0", "0-"},
        {"last row removed in the report", "LL", "when:clear click0 x Tab", "0=x 0- 1-"},
        {"view deleted in the report", "LL", "when:delete click0 x Tab", "0=x"},

        {"over a window that stays on top", "OLL", "click0 x Tab y", "0=x 0:2 @1=y, on top", eSent | eX11},
        {"minimized", "LL", "click0 x iconify", "0=x 0:4 iconified", eSent | eX11},
        {"drag, minimize, restore", "LL", "click0 x drag click0 minimize click1 y Return", "0=x 0:4 0:4 1=y 1:1", eX11},

        // The cause is then that of the edit before, a lost focus when there was none.
        {"no window manager: press another row at first", "LL", "press0 press1", "0:4 @1=v", eSent},
        {"no window manager: right press after a Tab", "LLL", "click0 Tab x pressright2", "0:2 1=x 1:4", eSent},
        {"no window manager: after a Tab", "LLL", "click0 Tab x press0 y Return", "0:2 1=x 1:2 0=y 0:1", eSent},
    };
    AddCases(cases);
}

void LineEditTest::Editing()
{
    RunCase<CLinePage>(&m_other);
}

void LineEditTest::Typing_data()
{
    const char* const strRows = "LLLL";
    const char* const strOutcome = "0=11 0:2 1=22 1:2 2=33 2:2 3=44 3:1";
    const sCase cases[] = {
        {"key by key", strRows, "click0 1 1 Tab 2 2 Tab 3 3 Tab 4 4 Return", strOutcome},
        {"without a pause", strRows, "click0 1,1,Tab,2,2,Tab,3,3,Tab,4,4,Return", strOutcome, eX11 | eWayland},
        {"fast", strRows, "click0 7:1,1,Tab,2,2,Tab,3,3,Tab,4,4,Return", strOutcome, eX11 | eWayland},
        {"in a hurry", strRows, "click0 30:1,1,Tab,2,2,Tab,3,3,Tab,4,4,Return", strOutcome, eX11 | eWayland},
        {"slow reports", strRows, "slow click0 40:1,1,Tab,2,2,Tab,3,3,Tab,4,4,Return", strOutcome, eX11 | eWayland},
    };
    AddCases(cases);
}

/// Nobody waits for the windows here. A key that went astray would be missing, or in another row.
void LineEditTest::Typing()
{
    RunCase<CLinePage>(&m_other);
}

/// For longer runs INSPECTOR_TYPING="<seed> <keys>". A page is typed into until a thousand keys, or a fault.
void LineEditTest::AnyTyping()
{
    if (!CWorkedPage::IsReal())
    {
        return; // events that are sent have no races
    }
    unsigned uSeed = 1;
    int iKeys = 100;
    std::istringstream(qgetenv("INSPECTOR_TYPING").constData()) >> uSeed >> iKeys;
    for (std::mt19937 random(uSeed); iKeys > 0;)
    {
        iKeys -= std::max(1, CTypist(random, &m_other).Run(std::min(iKeys, 1000)));
    }
}

void LineEditTest::UnchangedTextStays()
{
    const std::string texts[] = {std::string(40000, 'x'), "two\nlines\ttab", "\x80\xe9\xff",
                                 std::string("nul\0nul", 7)};
    CLinePage page(QLatin1String("L"), &m_other);
    QVERIFY(page.Open());
    CTestElement<CSimpleDataElement>* pLine = page.m_lines[0];
    for (const std::string& strText : texts)
    {
        pLine->SetText(strText);
        page.Run(QLatin1String("click0 Return click0 Escape"));
        QCOMPARE(page.m_log.Take(), QLatin1String("0:1 0:0"));
        QVERIFY(ValueOf(*pLine) == strText);
    }
}

void LineEditTest::LastWindowClosed()
{
    m_other.hide();
    CLinePage page(QLatin1String("LL"), &m_other);
    QVERIFY(page.Open());
    page.Run(QLatin1String("click0 x"));
    QTimer::singleShot(0, &page.m_window, SLOT(close()));
    QTimer giveUp;
    giveUp.setSingleShot(true);
    connect(&giveUp, SIGNAL(timeout()), qApp, SLOT(quit()));
    giveUp.start(5000);
    QApplication::exec();
    QVERIFY(giveUp.isActive());
}

INSPECTOR_TEST_MAIN(LineEditTest)

#include "lineedittest.moc"
