#ifndef WORKEDPAGE_H
#define WORKEDPAGE_H

#include "testsupport.h"

#include <map>
#include <sstream>

/// How a page is worked and what takes part.
enum ePlatform
{
    eSent = 1,    ///< input is sent as events
    eX11 = 2,     ///< it goes through an X server; a window manager and windows of others take part
    eWayland = 4, ///< it goes through a compositor, which shows one window, filling the screen, and its pop-ups
};

/// A page, what is done on it, and what comes of that: values, causes, and what is being edited then.
struct sCase
{
    const char* m_strName;
    const char* m_strRows;
    const char* m_strScript;
    const char* m_strOutcome;
    int m_iPlatforms = eSent | eX11 | eWayland;
};

/// Counts the events that reach the application, by type; presses of the Shift key itself aside.
class CEventCounter : public QObject
{
public:
    CEventCounter() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* in_pReceiver, QEvent* in_pEvent) override
    {
        const QEvent::Type eType = in_pEvent->type();
        const bool bShift = eType == QEvent::KeyPress && static_cast<QKeyEvent*>(in_pEvent)->key() == Qt::Key_Shift;
        m_counts[eType] += bShift ? 0 : 1;
        m_iTyped += eType == QEvent::KeyPress && !bShift && in_pReceiver->inherits("CInPlaceEdit") ? 1 : 0;
        return false;
    }

    std::map<QEvent::Type, int> m_counts;
    int m_iTyped = 0; ///< keys that have come to the line editor
};

/// A page whose rows are named by their numbers, and a person who works it. Each act waits until its input has arrived
/// and the windows have come to rest.
class CWorkedPage : private CEventCounter, public CTestPage
{
public:
    explicit CWorkedPage(QWidget* in_pOther) : m_pOther(in_pOther)
    {
        m_window.move(100, 100);
        AddInput();
        AddChanges();
    }

    static ePlatform Platform()
    {
        const QString strName = TestSupport::PlatformName();
        return strName == QLatin1String("xcb") ? eX11 : strName == QLatin1String("wayland") ? eWayland : eSent;
    }

    static bool IsReal() { return Platform() != eSent; }

    /// What the application was told, and what is being edited now.
    QString State() const { return (m_log.Text() + QLatin1Char(' ') + Editing()).trimmed(); }

    /// "@name=text" of the row that the shared editor is open for, ready for keys; empty when it is closed.
    QString Editing() const
    {
        const QWidget* pEditor = SharedEditor();
        if (!pEditor || pEditor->isHidden())
        {
            return QString();
        }
        for (int iRow = 0; iRow < m_iRows && IsReady(pEditor); ++iRow)
        {
            if (EditorRect(RowRect(iRow)) == OnScreen(pEditor))
            {
                return TestSupport::Latin("@" + std::to_string(iRow) + "=") + EditedText();
            }
        }
        return QLatin1String("@astray");
    }

    /// Acts word by word: the name of an act and a row's number, or else a key as the X server names it. "when:word" is
    /// put off until the application is told of a changed value. Keys joined by "," are typed without a pause or,
    /// after a number of milliseconds and a colon, with so little; nobody waits for what they do.
    void Run(const QString& in_strScript)
    {
        std::istringstream script(in_strScript.toLatin1().constData());
        for (std::string strWord; script >> strWord;)
        {
            if (strWord.find(',') != std::string::npos)
            {
                Type(strWord);
                continue;
            }
            if (strWord.compare(0, 5, "when:") != 0)
            {
                Act(strWord);
                continue;
            }
            m_log.m_hooks[eInternalValueChanged] = [=] { Act(strWord.substr(5)); };
        }
    }

protected:
    virtual QWidget* SharedEditor() const = 0; ///< null when there is none
    virtual QRect EditorRect(const QRect& in_row) const = 0;
    virtual QString EditedText() const = 0;
    virtual void AddRow(char in_cRow) = 0;

    /// A row by each letter; M: in a modal window, O: in one that stays on top.
    void AddRows(const QString& in_strRows)
    {
        for (const QChar row : in_strRows)
        {
            row == QLatin1Char('M')   ? m_window.setWindowModality(Qt::ApplicationModal)
            : row == QLatin1Char('O') ? m_window.setWindowFlags(Qt::WindowStaysOnTopHint)
                                      : AddRow(row.toLatin1());
        }
    }

    void Key(const std::string& in_strKey)
    {
        static const std::map<std::string, int> keys = {
            {"Escape", Qt::Key_Escape}, {"Return", Qt::Key_Return}, {"KP_Enter", Qt::Key_Enter},
            {"Tab", Qt::Key_Tab},       {"shift+Tab", Qt::Key_Tab}, {"ISO_Left_Tab", Qt::Key_Backtab},
            {"Down", Qt::Key_Down},     {"alt+Down", Qt::Key_Down}, {"Up", Qt::Key_Up},
            {"Next", Qt::Key_PageDown}, {"Home", Qt::Key_Home},     {"End", Qt::Key_End},
            {"space", Qt::Key_Space},   {"F2", Qt::Key_F2}};
        const int iBefore = m_counts[QEvent::KeyPress];
        if (IsReal()) // a compositor lets a pop-up open only while the key is down
        {
            Drive("keydown " + in_strKey);
            Rest(QEvent::KeyPress, iBefore, in_strKey);
            Drive("keyup " + in_strKey);
            return;
        }
        QWidget* pMenu = QApplication::activePopupWidget();
        const int iKey = in_strKey.size() == 1 ? QTest::asciiToKey(in_strKey[0]) : keys.at(in_strKey);
        QTest::keyClick(pMenu ? pMenu : QApplication::focusWidget(), Qt::Key(iKey),
                        in_strKey == "shift+Tab"  ? Qt::ShiftModifier
                        : in_strKey == "alt+Down" ? Qt::AltModifier
                                                  : Qt::NoModifier);
        Rest(QEvent::KeyPress, iBefore, in_strKey);
    }

    /// Without a window manager the window is activated as one would do it.
    void Click(QWidget* in_pWidget, const QPoint& in_position, Qt::MouseButton in_eButton = Qt::LeftButton)
    {
        const int iBefore = m_counts[QEvent::MouseButtonRelease];
        if (IsReal())
        {
            const std::map<Qt::MouseButton, int> numbers{
                {Qt::LeftButton, 1}, {Qt::MiddleButton, 2}, {Qt::RightButton, 3}};
            DriveIn(in_pWidget, in_position, numbers.at(in_eButton));
        }
        else
        {
            in_pWidget->window()->activateWindow();
            QCoreApplication::processEvents();
            TestSupport::ClickThroughWindow(in_pWidget, in_eButton, in_position);
        }
        Rest(QEvent::MouseButtonRelease, iBefore, "a click");
    }

    void TurnWheel(QWidget* in_pWidget)
    {
        const int iBefore = m_counts[QEvent::Wheel];
        IsReal() ? DriveIn(in_pWidget, in_pWidget->rect().center(), 5) : void(TestSupport::TurnWheel(in_pWidget));
        Rest(QEvent::Wheel, iBefore, "the wheel");
    }

    int KeysTyped() const { return m_iTyped; }

    /// Waits for no more than that the press arrives; a window manager may keep it to itself for some time.
    bool Press(int in_iRow)
    {
        const int iBefore = m_counts[QEvent::MouseButtonPress];
        DriveIn(WidgetAt<QWidget>(in_iRow), QPoint(9, 9), 1);
        return TestSupport::WaitUntil([=] { return m_counts[QEvent::MouseButtonPress] > iBefore; });
    }

    /// The row's rectangle on the screen, empty when it cannot be seen.
    QRect RowRect(int in_iRow) const
    {
        const QWidget* pRow = WidgetAt<QWidget>(in_iRow);
        return pRow->isVisible() ? OnScreen(pRow) : QRect();
    }

    static QRect OnScreen(const QWidget* in_pWidget)
    {
        return QRect(in_pWidget->mapToGlobal(QPoint()), in_pWidget->size());
    }

    /// Whether an editor is on top where it believes to be, and would get keys.
    static bool IsReady(const QWidget* in_pEditor)
    {
        return KeyTaker() == in_pEditor->window() && QApplication::focusWidget() == in_pEditor &&
               QApplication::topLevelAt(OnScreen(in_pEditor).center()) == in_pEditor->window();
    }

    std::map<std::string, std::function<void(int)>> m_acts;
    int m_iRows = 0;

private:
    void AddInput()
    {
        const auto onRow = [=](Qt::MouseButton in_eButton) {
            return [=](int in_iRow) { Click(WidgetAt<QWidget>(in_iRow), QPoint(9, 9), in_eButton); };
        };
        m_acts["click"] = onRow(Qt::LeftButton);
        m_acts["right"] = onRow(Qt::RightButton);
        m_acts["middle"] = onRow(Qt::MiddleButton);
        const auto noManager = [=](Qt::MouseButton in_eButton) { // and so nobody activates the window
            return [=](int in_iRow) {
                TestSupport::ClickThroughWindow(WidgetAt<QWidget>(in_iRow), in_eButton, QPoint(9, 9));
            };
        };
        m_acts["press"] = noManager(Qt::LeftButton);
        m_acts["pressright"] = noManager(Qt::RightButton);
        m_acts["blank"] = [=](int) { Click(&m_window, QPoint(330, 230)); };
        m_acts["other"] = [=](int) { Click(m_pOther, QPoint(9, 9)); };
        m_acts["minimize"] = [=](int) { MinimizeAndRestore(); };
        m_acts["iconify"] = [=](int) { Iconify(); };
        m_acts["drag"] = [=](int) { DragWindow(); };
    }

    void AddChanges()
    {
        m_acts["scroll"] = [=](int) { m_pView->m_pScrollBar->setValue(m_pView->m_pScrollBar->maximum()); };
        m_acts["hide"] = [=](int) { m_pView->ShowContent(false, false); };
        m_acts["disable"] = [=](int) { m_pView->setEnabled(false); };
        m_acts["leave"] = [=](int) { m_pView->hide(); };
        m_acts["narrow"] = [=](int) { m_pView->ResizeInspector(250, 200); };
        m_acts["move"] = [=](int) { m_window.move(170, 190); };
        m_acts["close"] = [=](int) { m_window.close(); };
        m_acts["remove"] = [=](int in_iRow) {
            m_pController->RemoveItem((*std::next(m_pController->m_items.begin(), in_iRow))->element);
        };
        m_acts["clear"] = [=](int) { m_pController->ClearAllData(); };
        m_acts["delete"] = [=](int) { delete m_pView; };
    }

    void Act(const std::string& in_strWord)
    {
        const std::size_t uDigits = in_strWord.find_first_of("0123456789");
        const int iRow = uDigits == std::string::npos ? 0 : std::stoi(in_strWord.substr(uDigits));
        const auto it = m_acts.find(in_strWord.substr(0, uDigits));
        it == m_acts.end() ? Key(in_strWord) : it->second(iRow);
    }

    static void Type(std::string io_strKeys)
    {
        const std::size_t uColon = io_strKeys.find(':');
        const std::string strPause = uColon == std::string::npos ? "0" : io_strKeys.substr(0, uColon);
        std::replace(io_strKeys.begin(), io_strKeys.end(), ',', ' ');
        const QString strCommand = TestSupport::Latin("key --delay " + strPause + " " + io_strKeys.substr(uColon + 1));
        QProcess typist;
        typist.start(QLatin1String("xdotool"), strCommand.split(QLatin1Char(' ')));
        TestSupport::WaitUntil([&typist] { return typist.state() == QProcess::NotRunning; });
    }

    static void Drive(const std::string& in_strCommand)
    {
        const QStringList arguments = TestSupport::Latin(in_strCommand).split(QLatin1Char(' '));
        if (QProcess::execute(QLatin1String("xdotool"), arguments) != 0)
        {
            QTest::qFail("xdotool does not work", __FILE__, __LINE__);
        }
    }

    /// A window manager takes its frame off the screen only some time after the window, so this waits for a window of
    /// ours to be on top. A compositor finds a new window under a pointer that moves, and not always at once.
    static void DriveIn(const QWidget* in_pWidget, const QPoint& in_position, int in_iButton)
    {
        const QPoint position = in_pWidget->mapToGlobal(in_position);
        const std::string strMove = "mousemove " + std::to_string(position.x()) + " " + std::to_string(position.y());
        TestSupport::WaitUntil([&] { return QApplication::topLevelAt(position); });
        TestSupport::WaitUntil([&] {
            Drive("mousemove 0 0 " + strMove);
            QTest::qWait(5);
            return Platform() == eX11 || QApplication::activePopupWidget() || in_pWidget->window()->underMouse();
        });
        Drive("click " + std::to_string(in_iButton));
    }

    void DragWindow()
    {
        const QPoint before = m_window.pos();
        Drive("mousemove " + std::to_string(before.x() + 150) + " " + std::to_string(before.y() + 5) + " mousedown 1");
        Drive("mousemove_relative 20 20");
        Drive("mousemove_relative 20 20");
        Drive("mouseup 1");
        TestSupport::WaitUntil([&] { return m_window.pos() != before; });
    }

    void MinimizeAndRestore()
    {
        const QPoint before = m_window.mapToGlobal(QPoint());
        Drive("windowminimize " + std::to_string(m_window.winId()));
        TestSupport::WaitUntil([this] { return m_window.isMinimized(); });
        Drive("windowactivate " + std::to_string(m_window.winId()));
        TestSupport::WaitUntil([this, before] { // Qt 4 asks the X server for the place; openbox moves it for a while
            return QApplication::activeWindow() == &m_window && m_window.mapToGlobal(QPoint()) == before;
        });
    }

    /// Ends an edit, and does not come back by itself.
    void Iconify()
    {
        m_window.showMinimized();
        TestSupport::WaitUntil([this] { return m_window.isMinimized() && !SharedEditor()->isVisible(); });
        IsReal() ? Drive("windowfocus --sync " + std::to_string(m_pOther->winId()))
                 : void(); // after what was asked for
        QCoreApplication::processEvents();
        m_window.isMinimized() ? m_log.Note(eCommand, "iconified") : void();
    }

    /// The window that gets the keys.
    static const QWidget* KeyTaker()
    {
        const QWidget* pPopup = QApplication::activePopupWidget();
        return pPopup ? pPopup : QApplication::activeWindow();
    }

    /// Some window gets the keys and is on the screen; an open editor is that window, or below its menu.
    static bool IsAtRest()
    {
        const QWidget* pActive = KeyTaker();
        const QWidgetList windows = QApplication::topLevelWidgets();
        return pActive && pActive->testAttribute(Qt::WA_Mapped) &&
               std::none_of(windows.begin(), windows.end(), [pActive](const QWidget* in_pWindow) {
                   return in_pWindow != pActive && in_pWindow->isVisible() && !pActive->inherits("QMenu") &&
                          (in_pWindow->inherits("CInPlaceEdit") || in_pWindow->inherits("CInPlaceList"));
               });
    }

    void Rest(QEvent::Type in_eType, int in_iBefore, const std::string& in_strAct)
    {
        if (!TestSupport::WaitUntil([=] { return m_counts[in_eType] > in_iBefore && IsAtRest(); }))
        {
            QTest::qFail((in_strAct + " did not arrive, or no window is active").c_str(), __FILE__, __LINE__);
        }
    }

    QWidget* m_pOther;
};

/// To be called in initTestCase.
inline bool PrepareOther(QWidget& io_other)
{
    TestSupport::FailOnWarnings();
    io_other.setGeometry(600, 100, 150, 80);
    return CWorkedPage::Platform() == eWayland || TestSupport::ShowWindow(&io_other);
}

/// The rows of a test function that calls RunCase: those for this platform.
template <std::size_t Count> void AddCases(const sCase (&in_cases)[Count])
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("outcome");
    for (const sCase& testCase : in_cases)
    {
        if (testCase.m_iPlatforms & CWorkedPage::Platform())
        {
            QTest::newRow(testCase.m_strName) << testCase.m_strRows << testCase.m_strScript << testCase.m_strOutcome;
        }
    }
}

/// \tparam Page a CWorkedPage with a static function Editor: the shared editor, null when there is none
template <class Page> void RunCase(QWidget* in_pOther)
{
    QFETCH(QString, rows);
    QFETCH(QString, script);
    QFETCH(QString, outcome);
    QPointer<QWidget> pEditor;
    {
        Page page(rows, in_pOther);
        QVERIFY(page.Open());
        pEditor = Page::Editor();
        page.Run(script);
        TestSupport::WaitUntil([&] { return page.State() == outcome; });
        QCOMPARE(page.State(), outcome);
    }
    QVERIFY(!Page::Editor());
    QVERIFY(TestSupport::WaitUntil([&] { return !pEditor; }));
}

#endif
