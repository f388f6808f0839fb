#include "viewdriver.h"

namespace
{
enum ePlatforms
{
    eSent, ///< by events only
    eX11,  ///< through an X server too; a compositor closes a list whose key is released at once
    eAll,
};

/// What is done in a window with a view of these rows, and what comes of it.
struct sKeys
{
    const char* m_strName;
    const char* m_strRows;
    const char* m_strScript;
    const char* m_strState;
    ePlatforms m_ePlatforms = eAll;
};
} // namespace

class PageTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::FailOnWarnings(); }
    void Worked_data();
    void Worked();
    void Deaths_data();
    void Deaths();

private:
    static std::vector<sKeys> MovingAndTyping();
    static std::vector<sKeys> WorkingAndTab();
    static std::vector<sKeys> Mouse();
};

std::vector<sKeys> PageTest::MovingAndTyping()
{
    return {
        {"arrows", "TTT", "Down Down Up Down Down", "@2"},
        {"arrows stop at the ends", "TT", "Up Up Up", "@0"},
        {"Home and End", "TTT", "End Home End", "@2"},
        {"pages", "TTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTT", "Home Next Next Prior Prior", "@0"},
        {"Left folds, Right unfolds", "GTT", "Home Left Down Right Down Down", "@1"},
        {"Space and Enter fold", "GTT", "Home Space Return Space Down", "@group"},
        {"Left to the group, which is folded with its row", "GTT", "End Left Left End", "@group"},

        {"Enter edits, Enter takes over", "TT", "Down Return x Return", "0=x @0"},
        {"F2 edits, Escape leaves", "TT", "Down F2 x Escape", "@0"},
        {"Enter of the keypad", "T", "Down KP_Enter x KP_Enter", "0=x @0"},
        {"nothing changed, nothing written", "TN", "Down Return Tab Return", "@1"},
        {"Down leaves a text", "TT", "Down x Down", "0=x @1"},
        {"Home leaves flags", "TF", "Down Tab Home", "@0"},
        {"typing on a text", "T", "Down x y z Return", "0=xyz @0"},
        {"typing on a number", "N", "Down 4 2 Return", "0=42 @0"},
        {"an expression", "N", "Down 2 * 3 * 2 Return", "0=12 @0"},
        {"typing on a real number", "R", "Down 2 . 5 Return", "0=2.5 @0"},
        {"no number", "N", "Down x Return", "@0"},
        {"typing on a colour", "c", "Down b l u e Return", "0=#0000ff @0"},
        {"typing on a file", "f", "Down x y Return", "0=xy @0"},
        {"typing a space", "T", "Down Space x Return", "0=_x @0"},
        {"typing on a long text adds", "L", "Down x ctrl+Return", "0=vx @0"},
        {"Enter in a long text", "L", "Down x Return y ctrl+Return", "0=vx/y @0"},
        {"typing on a part", "P", "Down Right 7 Return", "0=1,7 @0"},
        {"Tab through parts", "PT", "Down 8 Tab 9 Tab", "0=8,2 0=8,9 @1[v]"},
        {"Shift+Tab into the last part", "PT", "End Return shift+Tab", "@0[2]"},
        {"typing on a key sequence records", "K", "Down a Tab", "0=A @0 after"},
        {"Shift is no key sequence", "TK", "End Return shift+Tab", "@0[v]"},
        {"read-only", "X", "Down Return x F2 Space", "@0"},
        {"read-only is copied", "XT", "Down ctrl+c Down Return x Return ctrl+v", "1=x 1=v @1"},
        {"copy, paste into a number", "NN", "Down 4 2 Return ctrl+c Down ctrl+v", "0=42 1=42 @1"},
        {"paste of no number", "TN", "Down ctrl+c Down ctrl+v", "@1"},
        {"paste into a box and a choice", "BBEE", "Down Space ctrl+c Down ctrl+v", "0=true 1=true @1"},
    };
}

std::vector<sKeys> PageTest::WorkingAndTab()
{
    return {
        {"Up and Down work a number at once", "N", "Down Return Up Up Down", "0=6 0=7 0=6 @0[6]", eSent},
        {"Escape takes back", "N", "Down Return Up Escape", "0=6 0=5 @0", eSent},
        {"refused", "Z", "Down 9 Return Return", "0=9 @0[7]"},
        {"refused while it is worked", "Z", "Down 7 Return Return Up", "0=7 0=8 @0[7]"},
        {"refreshed under an open editor", "N", "Down Return given0+9 refresh", "@0[9]"},
        {"refreshed under what is typed", "N", "Down Return 4 given0+9 refresh 2 Return", "0=42 @0"},

        {"Space on a box", "B", "Down Space", "0=true @0"},
        {"Enter on a box", "B", "Down Return", "0=true @0"},
        {"Space and Enter on a command", "C", "Down Space Return", "0! 0! @0"},
        {"Space opens a choice", "E", "Down Space Down Return", "0=1 @0[On]", eX11},
        {"Enter opens a choice", "E", "Down Return Down Down Return Return", "0=2 @0", eX11},
        {"F2 opens a choice", "E", "Down F2 Down Return Return", "0=1 @0", eX11},
        {"typing opens a choice", "E", "Down b Return Return", "0=2 @0", eX11},
        {"Escape closes the list, then the edit", "E", "Down Return Down Escape Escape", "@0", eX11},
        {"Space opens flags and ticks", "F", "Down Space Down Space Return", "0=3 @0[Vertical]", eX11},
        {"typing opens flags", "F", "Down v Space Return Return", "0=3 @0", eX11},
        {"Tab onto a choice", "TE", "Down Return Tab Down Tab", "1=1 @1 after"},

        {"Tab takes over and edits the next", "TT", "Down x Tab y Tab", "0=x 1=y @1 after"},
        {"Shift+Tab", "TT", "End x shift+Tab y shift+Tab", "1=x 0=y @0 before"},
        {"Tab passes what is read-only", "TXT", "Down Return Tab", "@2[v]"},
        {"Tab onto boxes and commands", "TBC", "Down Return Tab Tab Space Tab", "2! @2 after"},
        {"Tab onto the application's widget", "TWT", "Down Return Tab x Tab", "@2[v]"},
        {"Shift+Tab through the application's widget", "TWT", "End Return shift+Tab x shift+Tab", "@0[v]"},
        {"the widget is the last", "TW", "Down Return Tab x Tab", "@1 after"},
        {"the widget is the first", "WT", "End Return shift+Tab x shift+Tab", "@0 before"},
        {"Tab from a row", "TT", "Down Tab", "@1[v]"},
        {"Tab out and in", "TT", "End Tab shift+Tab", "@1"},
        {"Tab onto a row out of sight", "TTTTTTTTTTTTTTTTTTTTTTTTT", "End Home Return shift+Tab", "@0 before"},
    };
}

std::vector<sKeys> PageTest::Mouse()
{
    return {
        {"click edits", "TT", "click1 x Return", "1=x @1"},
        {"click elsewhere takes over", "TT", "click0 x click1", "0=x @1[v]"},
        {"click on a label takes over", "TT", "click0 x label1", "0=x @1"},
        {"click on a widget among the rows, then on a row", "TWT", "click0 x click1 click2 y Return", "0=x 2=y @2"},
        {"click on another widget", "TT", "click0 x leave", "0=x @0 after"},
        {"right click takes over and opens the menu", "TT", "click0 x right1", "0=x @1 list"},
        {"click on what is elsewhere then", "TBBB", "shift0 click0 x click2", "0=x"},
        // A compositor closes a menu that was opened by keys in a hurry.
        {"the menu's key takes over", "L", "Down x shift+F10", "0=vx @0 list", eSent},
        {"click on a box", "TB", "click0 x click1", "0=x 1=true @1"},
        {"click far from a box", "TB", "click0 x middle1", "0=x @1"},
        {"click on a command", "TC", "click0 x middle1", "0=x 1! @1"},
        {"click on a choice", "TE", "click0 x click1", "0=x @1 list"},
        {"click on a colour or a file edits", "cf", "click1 x Return", "1=x @1"},
        {"double click on a label", "TB", "twice1", "1=true @1"},
        {"double click on a label of a text", "TT", "click0 x twice1 y Return", "0=x 1=y @1"},
        {"click on a title", "GTT", "title0 End", "@group"},
        {"a drag on a label", "N", "drag0+40", "0=7 0=10 0=12 0=15 @0", eSent},
        {"a drag on a label and back", "N", "label0 drag0-20", "0=4 0=3 0=2 0=0 @0", eSent},
        {"a drag on a label of a text", "T", "drag0+40", "@0"},
        {"the wheel works an open editor", "N", "click0 wheel0+1", "0=6 @0[6]"},
        {"the wheel works nothing else", "NN", "label0 wheel0+1 click0 wheel1+1", "@0[5]"},
    };
}

void PageTest::Worked_data()
{
    TestSupport::Columns<QString, QString, QString>("rows", "script", "state");
    const ePlatforms eHere = !CViewDriver::IsReal() ? eSent : InspectorQt::IsWayland() ? eAll : eX11;
    for (const std::vector<sKeys>& cases : {MovingAndTyping(), WorkingAndTab(), Mouse()})
    {
        for (const sKeys& keys : cases)
        {
            if (keys.m_ePlatforms >= eHere)
            {
                QTest::newRow(keys.m_strName) << keys.m_strRows << keys.m_strScript << keys.m_strState;
            }
        }
    }
}

void PageTest::Worked()
{
    QFETCH(QString, rows);
    QFETCH(QString, script);
    QFETCH(QString, state);
    CViewDriver driver(rows);
    QVERIFY(driver.Open());
    driver.Run(script);
    TestSupport::WaitUntil([&] { return driver.State() == state; });
    QCOMPARE(driver.State(), state);
}

/// Where the application is called, by what, what is written then, and what the application does there.
void PageTest::Deaths_data()
{
    const struct
    {
        const char* m_strName;
        const char* m_strScript;
        const char* m_strWritten;
    } ends[] = {
        {"Enter", "click0 x Return", "0=x"},
        {"Tab", "click0 x Tab", "0=x"},
        {"Shift+Tab", "click1 x shift+Tab", "1=x"},
        {"press", "click0 x click1", "0=x"},
        {"label", "click0 x label1", "0=x"},
        {"other widget", "click0 x leave", "0=x"},
        {"box", "click0 x click3", "0=x 3=true"},
        {"step", "click2 wheel2+1 Return", "2=6"},
        {"Escape", "click2 wheel2+1 rest Escape", "2=6 2=5"},
        {"drag", "click0 x drag2+40", "0=x 2=7 2=10 2=12 2=15"},
        {"paste", "label1 ctrl+v", "1=p"},
        {"choice", "click4 Down Return Return", "4=1"},
        {"command", "click0 x middle5", "0=x 5!"},
        {"link", "click0 x click6", "0=x"},
        {"double click", "click0 x twice3", "0=x 3=true"},
        {"arrows", "label2 Down Up Return", ""},
        {"another page", "click0 x show", "0=x"},
    };
    using tWords = std::vector<const char*>;
    const tWords deeds = CViewDriver::IsReal()
                             ? tWords{"rebuild", "window"}
                             : tWords{"rebuild", "object", "view", "window", "disable", "loop", "select"};
    // Before and after the setter it is the same to a window system.
    const tWords places =
        CViewDriver::IsReal() ? tWords{"setter", "current"} : tWords{"setter", "about", "changed", "current", "link"};
    TestSupport::Columns<QString, QString, QString, QString>("place", "script", "deed", "written");
    for (const char* strPlace : places)
    {
        for (const auto& end : ends)
        {
            for (const char* strDeed : deeds)
            {
                QTest::addRow("%s: %s in %s", end.m_strName, strDeed, strPlace)
                    << strPlace << end.m_strScript << strDeed << end.m_strWritten;
            }
        }
    }
}

/// Whatever happens meanwhile, a value is written to its row and once, and nothing of what is gone is touched.
void PageTest::Deaths()
{
    QFETCH(QString, place);
    QFETCH(QString, script);
    QFETCH(QString, deed);
    QFETCH(QString, written);
    const QString strRows = "TTNBECON";
    CViewDriver driver(strRows);
    QVERIFY(driver.Open());
    QApplication::clipboard()->setText("p");
    QTimer dialogs;
    connect(&dialogs, &QTimer::timeout, [] { QApplication::activeModalWidget()->close(); });
    const std::map<QString, std::function<void()>> deeds = {
        {"rebuild", [&] { driver.m_pView->Page().Clear(), driver.Fill(strRows); }},
        {"object", [&] { driver.m_pView->ShowObject(driver.m_pBefore); }},
        {"view", [&] { delete driver.m_pView; }},
        {"window", [&] { delete driver.m_pWindow; }},
        {"disable", [&] { driver.m_pView->setEnabled(false); }},
        {"loop", [&] { dialogs.start(0), QDialog().exec(), dialogs.stop(); }},
        {"select", [&] { driver.m_pView->SetCurrentRow(driver.m_rows[7]); }},
    };
    driver.m_hooks[place] = deeds.at(deed);
    driver.Run(script);
    QCoreApplication::processEvents();                                 // what a live editor puts off
    const bool bCurrentWent = place == "current" && deed == "rebuild"; // keys work another row then
    QStringList unexpected = bCurrentWent ? QStringList() : driver.m_log;
    for (const QString& strWord : written.split(' '))
    {
        unexpected.removeOne(strWord);
    }
    QVERIFY2(unexpected.isEmpty(), qPrintable(driver.m_log.join(' ')));
    QVERIFY2(place != "setter" || driver.m_log.isEmpty() == written.isEmpty(), "what was typed is lost");
    QVERIFY(!driver.m_pView || !driver.m_pView->isEnabled() || driver.m_pWindow->focusWidget());
}

INSPECTOR_TEST_MAIN(PageTest)

#include "pagetest.moc"
