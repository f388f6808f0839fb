#ifndef VIEWDRIVER_H
#define VIEWDRIVER_H

#include "propertyview.h"
#include "testsupport.h"

#include <map>

/// A property view between two lines in a window, and a person who works it with mouse and keyboard: by events sent to
/// the window, or through an X server or a compositor.
class CViewDriver : public QObject
{
public:
    /// \param in_strRows a letter each; see Initial and AddRow
    explicit CViewDriver(const QString& in_strRows)
    {
        m_pWindow = new QWidget;
        m_pBefore = new QLineEdit(m_pWindow);
        m_pView = new CPropertyView(m_pWindow);
        m_pAfter = new QLineEdit(m_pWindow);
        auto* pLayout = new QVBoxLayout(m_pWindow);
        pLayout->addWidget(m_pBefore);
        pLayout->addWidget(m_pView);
        pLayout->addWidget(m_pAfter);
        m_pWindow->setGeometry(50, 50, 400, 400);
        Fill(in_strRows);
        qApp->installEventFilter(this);
        CPropertyPage& page = m_pView->Page();
        connect(&page, &CPropertyPage::ValueAboutToChange, this, [this] { Note("about"); });
        connect(&page, &CPropertyPage::ValueChanged, this, [this] { Note("changed"); });
        connect(m_pView, &CPropertyView::CurrentRowChanged, this, [this] { Note("current"); });
        connect(m_pView, &CPropertyView::LinkActivated, this, [this] { Note("link"); });
    }

    ~CViewDriver() override
    {
        m_hooks.clear();
        delete m_pWindow;
    }

    static bool IsReal() { return QGuiApplication::platformName() != QLatin1String("offscreen"); }

    bool Open()
    {
        const bool bShown = TestSupport::ShowWindow(m_pWindow);
        m_pView->setFocus();
        return bShown && TestSupport::WaitUntil([this] { return IsIn(QApplication::focusWidget(), m_pView); }) &&
               (!IsReal() || TestSupport::WaitUntil([this] { return GetsKeys(); }));
    }

    /// Qt may take a window for active before its keys come.
    bool GetsKeys()
    {
        Drive({"key", "Shift_L"});
        QCoreApplication::processEvents();
        return m_bGetsKeys;
    }

    /// Fills the page of a view.
    void Fill(const QString& in_strRows)
    {
        CPropertyPage& page = m_pView->Page();
        CPropertyGroup group = page.AddGroup(QString());
        m_rows.clear();
        for (const QChar row : in_strRows)
        {
            if (row == QLatin1Char('G'))
            {
                group = page.AddGroup("group");
                continue;
            }
            const int iRow = static_cast<int>(m_rows.size());
            m_values.try_emplace(iRow, Initial(row));
            m_rows.push_back(AddRow(group, row, iRow));
        }
    }

    /// Words: an act with a row's number (and a '+' or '-' with pixels), else the name that the X server has for a key.
    /// Keys that follow each other are typed without a pause.
    void Run(const QString& in_strScript)
    {
        QStringList keys;
        for (const QString& strWord : in_strScript.split(QLatin1Char(' ')))
        {
            static const QRegularExpression act("^([a-z]{4,})(\\d*)([+-]\\d+)?$");
            const QRegularExpressionMatch match = act.match(strWord);
            if (!match.hasMatch())
            {
                keys << strWord;
                continue;
            }
            Type(std::exchange(keys, {}));
            m_pView ? Act(match.captured(1), match.captured(2).toInt(), match.captured(3).toInt()) : void();
        }
        Type(keys);
    }

    /// What was written, "@" and the current row, "[what its open editor holds]", "list" and "after" or "before" when
    /// they have the focus.
    QString State() const
    {
        QStringList words = m_log;
        for (std::size_t u = 0; m_pView && u < m_rows.size(); ++u)
        {
            const bool bCurrent = m_rows[u] && m_pView->CurrentRow() == m_rows[u];
            words << (bCurrent ? QStringList("@" + QString::number(u) + Edited()) : QStringList());
        }
        words << (m_pView && m_pView->CurrentRow() && !words.join(" ").contains("@") ? QStringList("@group")
                                                                                     : QStringList());
        const QWidget* pFocus = QApplication::focusWidget();
        words << (QApplication::activePopupWidget() ? QStringList("list") : QStringList());
        words << (pFocus && pFocus == m_pBefore  ? QStringList("before")
                  : pFocus && pFocus == m_pAfter ? QStringList("after")
                                                 : QStringList());
        return words.join(QLatin1Char(' ')).trimmed();
    }

    static bool IsIn(const QWidget* in_pWidget, const QWidget* in_pAncestor)
    {
        return in_pWidget && in_pAncestor && (in_pWidget == in_pAncestor || in_pAncestor->isAncestorOf(in_pWidget));
    }

    /// The open editor, null for none.
    QWidget* Editor() const
    {
        QWidget* pFocus = QApplication::focusWidget();
        const bool bEdits = IsIn(pFocus, m_pView) && pFocus != m_pView->focusProxy();
        return bEdits && !pFocus->objectName().startsWith("own") ? pFocus : nullptr;
    }

    static QString TextOf(const QVariant& in_value)
    {
        const QPoint point = in_value.toPoint();
        return in_value.userType() == QMetaType::QPoint   ? QString("%1,%2").arg(point.x()).arg(point.y())
               : in_value.userType() == QMetaType::QColor ? in_value.value<QColor>().name()
                                                          : in_value.toString().replace('\n', '/').replace(' ', '_');
    }

    QPointer<QWidget> m_pWindow;
    QPointer<QLineEdit> m_pBefore;
    QPointer<QLineEdit> m_pAfter;
    QPointer<CPropertyView> m_pView;
    std::map<int, QVariant> m_values;
    std::vector<CPropertyRow> m_rows;
    QStringList m_log;                                ///< "row=value" for what was written, and more
    std::map<QString, std::function<void()>> m_hooks; ///< what happens in a setter, once

    /// Notes a word, and lets what is to happen then happen.
    void Note(const QString& in_strPlace, const QString& in_strWord = QString())
    {
        m_log << (in_strWord.isEmpty() ? QStringList() : QStringList(in_strWord));
        if (const std::function<void()> hook = std::exchange(m_hooks[in_strPlace], nullptr))
        {
            hook();
        }
    }

    bool eventFilter(QObject*, QEvent* in_pEvent) override
    {
        const bool bKey = in_pEvent->type() == QEvent::KeyRelease;
        const int iKey = bKey ? static_cast<QKeyEvent*>(in_pEvent)->key() : 0;
        m_iReleases += in_pEvent->spontaneous() && bKey && iKey != Qt::Key_Shift && iKey != Qt::Key_Control;
        m_bGetsKeys = m_bGetsKeys || (in_pEvent->spontaneous() && bKey);
        m_iClicks += in_pEvent->spontaneous() && in_pEvent->type() == QEvent::MouseButtonRelease;
        return false;
    }

private:
    static QVariant Initial(QChar in_row)
    {
        static const std::map<QChar, QVariant> values = {{'T', "v"},
                                                         {'X', "v"},
                                                         {'N', 5},
                                                         {'Z', 5},
                                                         {'R', 1.5},
                                                         {'B', false},
                                                         {'E', 0},
                                                         {'F', 1},
                                                         {'L', "v"},
                                                         {'P', QPoint(1, 2)},
                                                         {'D', QDate(2020, 5, 17)},
                                                         {'K', QVariant::fromValue(QKeySequence("F7"))},
                                                         {'c', QColor(Qt::red)},
                                                         {'f', "v"}};
        const auto it = values.find(in_row);
        return it == values.end() ? QVariant() : it->second;
    }

    /// X is read-only, Z takes numbers up to 7, O is an object, C a command, W a widget of the application's own.
    CPropertyRow AddRow(CPropertyGroup& io_group, QChar in_row, int in_iRow)
    {
        const QString strLabel = QString::number(in_iRow);
        if (in_row == QLatin1Char('C'))
        {
            return io_group.AddCommand(strLabel, [this, in_iRow] { Note("setter", QString("%1!").arg(in_iRow)); });
        }
        if (in_row == QLatin1Char('O'))
        {
            return io_group.Add(strLabel, [this]() -> QObject* { return this; });
        }
        if (in_row == QLatin1Char('W'))
        {
            QLineEdit* pOwn = new QLineEdit;
            pOwn->setObjectName("own" + strLabel);
            return io_group.AddWidget(strLabel, pOwn);
        }
        const auto get = [this, in_iRow] { return m_values[in_iRow]; };
        const auto set = [this, in_iRow, in_row](const QVariant& in_value) {
            const bool bTooLarge = in_row == QLatin1Char('Z') && in_value.toInt() > 7;
            m_values[in_iRow] = bTooLarge ? QVariant(7) : in_value;
            Note("setter", QString("%1=%2").arg(in_iRow).arg(TextOf(in_value)));
        };
        CPropertyRow row =
            io_group.AddProperty(std::make_shared<CFunctionProperty>(strLabel, m_values[in_iRow].userType(), get, set));
        in_row == QLatin1Char('E') ? row.Choices({{0, "Off"}, {1, "On"}, {2, "Blink"}}) : row;
        in_row == QLatin1Char('F') ? row.Keys(QMetaEnum::fromType<Qt::Orientations>()) : row;
        in_row == QLatin1Char('f') ? row.File() : row;
        in_row == QLatin1Char('L') ? row.LongText() : row;
        in_row == QLatin1Char('X') ? row.ReadOnly() : row;
        return row;
    }

    QString Edited() const
    {
        const QWidget* pEditor = Editor();
        const QVariant text = pEditor ? pEditor->property("text") : QVariant();
        const QVariant item = pEditor ? pEditor->property("currentText") : QVariant();
        const auto* pSequence = qobject_cast<const QKeySequenceEdit*>(pEditor);
        const auto* pLong = qobject_cast<const QPlainTextEdit*>(pEditor);
        return !pEditor ? QString()
                        : "[" +
                              TextOf(pSequence        ? pSequence->keySequence().toString()
                                     : pLong          ? pLong->toPlainText()
                                     : text.isValid() ? text
                                                      : item) +
                              "]";
    }

    static void Drive(const QStringList& in_arguments)
    {
        if (QProcess::execute("xdotool", in_arguments) != 0)
        {
            QTest::qFail("xdotool does not work", __FILE__, __LINE__);
        }
    }

    void Type(const QStringList& in_keys)
    {
        if (IsReal() && !in_keys.isEmpty())
        {
            const int iReleases = m_iReleases;
            QStringList named = in_keys;
            named.replaceInStrings("Space", "space").replaceInStrings("*", "asterisk").replaceInStrings(".", "period");
            Drive(QStringList{"key", "--delay", "0"} + named);
            const int iKeys = static_cast<int>(in_keys.size());
            TestSupport::WaitUntil([=] { return m_iReleases >= iReleases + iKeys || !m_pWindow; });
            return;
        }
        for (const QString& strKey : in_keys)
        {
            if (QWindow* pWindow = QGuiApplication::focusWindow())
            {
                Press(pWindow, strKey);
            }
        }
    }

    static void Press(QWindow* in_pWindow, const QString& in_strKey)
    {
        static const std::map<QString, Qt::Key> keys = {
            {"Escape", Qt::Key_Escape}, {"Return", Qt::Key_Return}, {"KP_Enter", Qt::Key_Enter},
            {"Tab", Qt::Key_Tab},       {"Down", Qt::Key_Down},     {"Up", Qt::Key_Up},
            {"Left", Qt::Key_Left},     {"Right", Qt::Key_Right},   {"Home", Qt::Key_Home},
            {"End", Qt::Key_End},       {"Next", Qt::Key_PageDown}, {"Prior", Qt::Key_PageUp},
            {"F2", Qt::Key_F2},         {"F4", Qt::Key_F4},         {"Space", Qt::Key_Space},
            {"c", Qt::Key_C},           {"v", Qt::Key_V},           {"F5", Qt::Key_F5},
            {"F10", Qt::Key_F10}};
        const QString strName = in_strKey.section('+', -1);
        Qt::KeyboardModifiers eModifiers = in_strKey.startsWith("shift+")  ? Qt::ShiftModifier
                                           : in_strKey.startsWith("ctrl+") ? Qt::ControlModifier
                                                                           : Qt::NoModifier;
        const QPointer<QWindow> pWindow(in_pWindow); // a press may be the end of it
        for (const QTest::KeyAction eAction : {QTest::Press, QTest::Release})
        {
            const bool bLetter = in_strKey.size() == 1;
            pWindow&& bLetter ? QTest::keyEvent(eAction, pWindow, in_strKey.at(0).toLatin1()) : void();
            pWindow && !bLetter ? QTest::keyEvent(eAction, pWindow, keys.at(strName), eModifiers) : void();
        }
    }

    void Act(const QString& in_strAct, int in_iRow, int in_iPixels)
    {
        const QRect value = m_pView->ValueRect(m_rows.at(static_cast<std::size_t>(in_iRow)));
        const QPoint inValue(value.left() + 9, value.center().y());
        const QPoint onLabel(9, value.center().y());
        const QPoint onBorder(value.left() - 1, value.center().y());
        const QPoint by(in_iPixels, 0);
        const std::map<QString, std::function<void()>> acts = {
            {"click", [&] { Mouse(m_pView, inValue, 1); }},
            {"label", [&] { Mouse(m_pView, onLabel, 1); }},
            {"right", [&] { Mouse(m_pView, inValue, 3); }},
            {"middle", [&] { Mouse(m_pView, QPoint(value.center()), 1); }},
            {"twice", [&] { Mouse(m_pView, onLabel, 1, 2); }},
            {"drag", [&] { Drag(onLabel, onLabel + by); }},
            {"border", [&] { Drag(onBorder, onBorder + by); }},
            {"wheel", [&] { Mouse(m_pView, inValue, in_iPixels < 0 ? 5 : 4); }},
            {"leave", [&] { Mouse(m_pAfter, QPoint(9, 9), 1); }},
            {"title", [&] { Mouse(m_pView, QPoint(9, m_pView->ValueRect(m_rows[0]).top() - 9), 1); }},
            {"given", [&] { m_values[in_iRow] = in_iPixels; }},
            {"rest", [&] { QCoreApplication::processEvents(); }},
            {"show", [&] { m_pView->ShowObject(m_pAfter); }},
            {"refresh", [&] { m_pView->Page().Refresh(); }},
            {"shift", [&] { m_hooks["setter"] = [this] { m_pView->Page().Clear(), m_values.clear(), Fill("GBBB"); }; }},
        };
        acts.at(in_strAct)();
    }

    /// Buttons by the numbers that the X server has for them: 4 and 5 are the wheel.
    void Mouse(QWidget* in_pWidget, const QPoint& in_position, int in_iButton, int in_iTimes = 1)
    {
        if (IsReal())
        {
            const int iClicks = m_iClicks;
            Point(in_pWidget, in_position);
            QApplication::setDoubleClickInterval(in_iTimes > 1 ? 5000 : 0); // nor is it one with that of a test before
            Drive({"click", "--repeat", QString::number(in_iTimes), QString::number(in_iButton)});
            TestSupport::WaitUntil([=] { return m_iClicks > iClicks || in_iButton > 3 || !m_pWindow; });
            return;
        }
        QWindow* pWindow = m_pWindow->windowHandle();
        const QPoint position = in_pWidget->mapTo(m_pWindow.data(), in_position);
        if (in_iButton > 3)
        {
            QWheelEvent wheel(position, m_pWindow->mapToGlobal(position), QPoint(),
                              QPoint(0, in_iButton == 4 ? 120 : -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                              false);
            TestSupport::SendLikeWindowSystem(pWindow, wheel);
            return;
        }
        if (in_iTimes == 2)
        {
            QTest::mouseDClick(pWindow, Qt::LeftButton, Qt::NoModifier, position);
            return;
        }
        QTest::mouseClick(pWindow, in_iButton == 1 ? Qt::LeftButton : Qt::RightButton, Qt::NoModifier, position);
    }

    void Point(QWidget* in_pWidget, const QPoint& in_position)
    {
        const QPoint global = in_pWidget->mapToGlobal(in_position);
        const QStringList move{"mousemove", QString::number(global.x()), QString::number(global.y())};
        TestSupport::WaitUntil([&] {
            Drive(QStringList{"mousemove", "0", "0"} + move);
            QTest::qWait(5);
            return !m_pWindow || m_pWindow->underMouse();
        });
    }

    void Drag(const QPoint& in_from, const QPoint& in_to)
    {
        if (IsReal())
        {
            const int iClicks = m_iClicks;
            Point(m_pView, in_from);
            QApplication::setDoubleClickInterval(0);
            Drive({"mousedown", "1", "mousemove_relative", "--", QString::number(in_to.x() - in_from.x()), "0",
                   "mouseup", "1"});
            TestSupport::WaitUntil([=] { return m_iClicks > iClicks || !m_pWindow; });
            return;
        }
        QWindow* pWindow = m_pWindow->windowHandle();
        const QPoint origin = m_pView->mapTo(m_pWindow.data(), QPoint());
        QTest::mousePress(pWindow, Qt::LeftButton, Qt::NoModifier, origin + in_from);
        for (int i = 1; i <= 4 && m_pWindow; ++i)
        {
            QTest::mouseMove(pWindow, origin + in_from + (in_to - in_from) * i / 4);
        }
        m_pWindow ? QTest::mouseRelease(pWindow, Qt::LeftButton, Qt::NoModifier, origin + in_to) : void();
    }

    int m_iReleases = 0;
    int m_iClicks = 0;
    bool m_bGetsKeys = false;
};

#endif
