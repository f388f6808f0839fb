#undef QT_NO_CAST_FROM_ASCII
#undef QT_NO_CAST_TO_ASCII
#include "propertyview.h"
#include "testsupport.h"

#include <QPointF>
#include <QUndoStack>

namespace
{
/// Nobody can tell whether two of them are the same.
struct sOdd
{
    int number;
};
} // namespace

Q_DECLARE_METATYPE(sOdd)

namespace
{
/// Something to be edited, whose setters round, refuse and mind each other.
class CThing : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString text MEMBER m_strText NOTIFY Changed)
    Q_PROPERTY(int limit READ Limit WRITE SetLimit NOTIFY Changed)
    Q_PROPERTY(int value READ Value WRITE SetValue NOTIFY Changed)
    Q_PROPERTY(int even READ Even WRITE SetEven RESET ResetEven NOTIFY Changed)
    Q_PROPERTY(double real READ Real WRITE SetReal NOTIFY Changed)
    Q_PROPERTY(sOdd odd READ Odd WRITE SetOdd)
    Q_PROPERTY(bool box MEMBER m_bBox NOTIFY Changed)
    Q_PROPERTY(QPointF place MEMBER m_place NOTIFY Changed)
    Q_PROPERTY(Qt::Alignment sides MEMBER m_eSides NOTIFY Changed)
    Q_PROPERTY(eWay way MEMBER m_eWay NOTIFY Changed)

public:
    enum eWay : int // any number may be pasted
    {
        Across,
        Up
    };
    Q_ENUM(eWay)

    explicit CThing(const QString& in_strText, int in_iEven = 4) : m_strText(in_strText), m_iEven(in_iEven) {}

    int Limit() const { return m_iLimit; }
    int Value() const { return m_iValue; }
    int Even() const { return m_iEven; }
    double Real() const { return m_real; }
    sOdd Odd() const { return {1}; }
    void SetOdd(const sOdd&) { QFAIL("nobody did"); }

    void SetLimit(int in_iLimit)
    {
        m_iLimit = in_iLimit;
        SetValue(m_iValue);
    }

    void SetValue(int in_iValue)
    {
        m_iValue = qMin(in_iValue, m_iLimit);
        Tell();
    }

    void SetEven(int in_iEven)
    {
        m_iEven = in_iEven / 2 * 2;
        Tell();
    }

    void SetReal(double in_real)
    {
        m_real = in_real;
        Tell();
    }

    void ResetEven() { SetEven(100); }

    /// All that it is.
    QByteArray Bytes() const
    {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << m_strText << m_iLimit << m_iValue << m_iEven << m_real << m_bBox << m_place << int(m_eSides)
               << int(m_eWay);
        return bytes;
    }

    std::function<void()> m_hook; ///< what a setter does, once

Q_SIGNALS:
    void Changed();

private:
    void Tell()
    {
        const std::function<void()> hook = std::move(m_hook);
        m_hook = nullptr;
        hook ? hook() : Q_EMIT Changed();
    }

    QString m_strText;
    int m_iLimit = 50;
    int m_iValue = 40;
    int m_iEven = 4;
    double m_real = 0;
    bool m_bBox = false;
    QPointF m_place{1, 2};
    Qt::Alignment m_eSides = Qt::AlignLeft | Qt::AlignTop;
    eWay m_eWay = Across;
};

/// A page of two things that differ here and there, and what the user does to it.
struct sBench
{
    explicit sBench(int in_iThings = 2) : view(new CPropertyView(&window))
    {
        second->setProperty("place", QPointF(1, 7));
        second->setProperty("sides", int(Qt::AlignRight | Qt::AlignTop));
        view->resize(400, 500);
        view->Page().SetUndoStack(stack);
        in_iThings == 1 ? view->ShowObject(first) : view->ShowObjects({first, second});
    }

    ~sBench() { delete stack; }

    CPropertyRow Row(const QString& in_strName) const { return view->Page().Row(in_strName); }

    QWidget* Area() const { return view->focusProxy(); }

    /// Words: a row to be made current ("value:"), something else that happens ("!undo"), a key ("Return"), a text.
    void Do(const QString& in_strScript)
    {
        for (const QString& strWord : in_strScript.split(' '))
        {
            strWord.endsWith(':')     ? GoTo(strWord.chopped(1))
            : strWord.startsWith('!') ? Act(strWord.mid(1))
                                      : Press(strWord);
            QCoreApplication::processEvents(); // what is worked is written from the loop, and then painted
        }
    }

    void GoTo(const QString& in_strRow) const
    {
        if (view)
        {
            Area()->setFocus();
            view->SetCurrentRow(Row(in_strRow));
        }
    }

    static void Press(const QString& in_strKey)
    {
        if (QWidget* pFocus = QApplication::focusWidget())
        {
            in_strKey.at(0).isUpper() ? QTest::keySequence(pFocus, QKeySequence(in_strKey))
                                      : QTest::keyClicks(pFocus, in_strKey);
        }
    }

    void Act(const QString& in_strAct)
    {
        const std::map<QString, std::function<void()>> acts = {
            {"undo", [this] { stack->undo(); }},
            {"redo", [this] { stack->redo(); }},
            {"saved", [this] { stack->setClean(); }},
            {"push", [this] { stack->push(new QUndoCommand("other")); }},
            {"rebuild",
             [this] {
                 view->ShowObjects({second, first});
             }},
            {"clear", [this] { view->Page().Clear(); }},
            {"clearing",
             [this] {
                 QObject::connect(&view->Page(), &CPropertyPage::ValueAboutToChange, view,
                                  [this] { view->Page().Clear(); });
             }},
            {"drag", [this] { Drag(); }},
            {"zero", [this] { view->Page().Write(Row("real").Property(), -0.0); }},
            {"press", [this] { QTest::mouseClick(Area(), Qt::LeftButton, Qt::NoModifier, ButtonPlace()); }},
            {"flags",
             [this] { view->findChild<QComboBox*>()->setProperty("value", int(Qt::AlignTop | Qt::AlignJustify)); }},
            {"again", [this] { first->m_hook = [this] { view->Page().Write(Row("value").Property(), 3); }; }},
            {"nested", [this] { first->m_hook = [this] { view->Page().Write(Row("text").Property(), "nested"); }; }},
        };
        acts.at(in_strAct)();
    }

    /// On the label of the current row.
    void Drag() const
    {
        QWindow* pWindow = window.windowHandle();
        const QPoint label(9, view->ValueRect(view->CurrentRow()).center().y());
        const QPoint place = view->mapTo(&window, label);
        QTest::mousePress(pWindow, Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseMove(pWindow, place + QPoint(20, 0));
        QTest::mouseMove(pWindow, place + QPoint(40, 0));
        QTest::mouseRelease(pWindow, Qt::LeftButton, Qt::NoModifier, place + QPoint(40, 0));
    }

    /// Beside the current row's value.
    QPoint ButtonPlace() const
    {
        const QRect value = view->ValueRect(view->CurrentRow());
        return QPoint(value.right() + value.height() / 2, value.center().y());
    }

    QByteArray Bytes() const
    {
        return (first ? first->Bytes() : QByteArray()) + (second ? second->Bytes() : QByteArray());
    }

    QString Steps() const
    {
        QStringList texts;
        for (int i = 0; i < stack->count(); ++i)
        {
            texts << stack->text(i).remove("Change ");
        }
        return texts.join(' ');
    }

    void UndoAll() const
    {
        while (stack && stack->canUndo())
        {
            stack->undo();
        }
    }

    void RedoAll() const
    {
        while (stack && stack->canRedo())
        {
            stack->redo();
        }
    }

    bool Open()
    {
        QApplication::clipboard()->setText("77");
        window.resize(400, 500);
        return TestSupport::ShowWindow(&window);
    }

    /// What the rows show as modified.
    QString Modified() const
    {
        QStringList names;
        for (int i = 0; i < CThing::staticMetaObject.propertyCount(); ++i)
        {
            const QString strName = CThing::staticMetaObject.property(i).name();
            names << (Row(strName).IsModified() ? QStringList(strName) : QStringList());
        }
        return names.join(' ');
    }

    QWidget window;
    QPointer<CPropertyView> view;
    QPointer<QUndoStack> stack = new QUndoStack;
    std::unique_ptr<CThing> ownFirst{new CThing("one")};
    std::unique_ptr<CThing> ownSecond{new CThing("two", 6)};
    QPointer<CThing> first = ownFirst.get();
    QPointer<CThing> second = ownSecond.get();
};

/// Somebody who works the page at random, beside a model: an act changes no other row than those that it is about, what
/// was typed is not lost, and each index of the stack has the values that were when it was there.
struct sUser : sBench
{
    typedef QMap<QString, QByteArray> tValues; ///< by the number of the thing and the name of the property

    sUser(unsigned in_uSeed, std::map<QString, int>& io_seen)
        : sBench(1 + in_uSeed % 2),
          random(in_uSeed),
          seen(io_seen)
    {
        view->Page().SetModifiedAgainst(CPropertyPage::eModifiedAgainst(in_uSeed % 3));
        view->resize(400, in_uSeed % 4 ? 500 : 120);
        in_uSeed % 5 < 2 ? delete stack, void(stack = &view->Page().UseOwnUndoStack()) : void();
        QObject::connect(stack, &QUndoStack::indexChanged, stack, [this] { Record(); });
        states.push_back(Values());
    }

    ~sUser() { delete stack; } // which tells of it

    int Pick(int in_iCount) { return static_cast<int>(random() % static_cast<unsigned>(in_iCount)); }

    tValues Values() const
    {
        tValues values;
        for (const CThing* pThing : {first.data(), second.data()})
        {
            for (int i = 0; pThing && i < pThing->metaObject()->propertyCount(); ++i)
            {
                const QMetaProperty property = pThing->metaObject()->property(i);
                const QVariant value = property.read(pThing);
                QDataStream stream(&values[QString::number(pThing == second) + property.name()], QIODevice::WriteOnly);
                stream << value.toString() << value.toInt() << value.toPointF();
            }
        }
        return values;
    }

    /// What is another value, of things that are alive.
    static QStringList Differing(const tValues& in_values, const tValues& in_others)
    {
        QStringList names;
        for (auto it = in_values.begin(); it != in_values.end(); ++it)
        {
            const bool bSame = !in_others.contains(it.key()) || in_others[it.key()] == *it;
            bSame ? names : names << it.key().mid(1);
        }
        return names;
    }

    QString CurrentName() const
    {
        const tPropertyPtr pProperty = view ? view->CurrentRow().Property() : nullptr;
        return pProperty ? pProperty->Name() : QString();
    }

    QString NameAt(const QPoint& in_place) const
    {
        for (const char* strRow : {"text", "limit", "value", "even", "real", "box", "place", "sides", "way"})
        {
            const QRect value = view->ValueRect(Row(strRow));
            const int iY = in_place.y() - view->y();
            if (!value.isEmpty() && value.top() <= iY && iY <= value.bottom())
            {
                return strRow;
            }
        }
        return QString();
    }

    QWidget* Editor() const
    {
        const QList<QWidget*> all = view ? Area()->findChildren<QWidget*>() : QList<QWidget*>();
        const auto isEditor = [](const QWidget* in_p) {
            return in_p->property("frame").isValid() && in_p->isVisible();
        };
        const auto it = std::find_if(all.begin(), all.end(), isEditor);
        return it == all.end() ? nullptr : *it;
    }

    /// Undo and redo lead to what was at each index of the stack.
    void Record()
    {
        const auto uIndex = static_cast<std::size_t>(stack->index());
        const bool bUndone = uIndex < index && stack->canRedo();
        const bool bRedone = uIndex > index && stack->command(static_cast<int>(index)) == next;
        undoing = undoing || bUndone || bRedone;
        seen["undone"] += bUndone && !Differing(states[index], states[uIndex]).isEmpty();
        seen["redone"] += bRedone && !Differing(states[index], states[uIndex]).isEmpty();
        if (!bUndone && !bRedone)
        {
            states.resize(uIndex + (uIndex < index)); // less: of what was taken back nothing is left
            uIndex < index ? void() : states.push_back(Values());
            const bool bNothing = first && uIndex > 0 && Differing(states[uIndex - 1], states[uIndex]).isEmpty();
            fault += bNothing ? "a step of nothing; " : "";
        }
        index = uIndex;
        next = stack->command(stack->index());
    }

    QString Misfit() const
    {
        const QStringList wrong = stack ? Differing(states[index], Values()) : QStringList();
        return wrong.isEmpty() ? "" : QString("not as it was at index %1: ").arg(index) + wrong.join(' ') + "; ";
    }

    void Call(int in_iCall)
    {
        const std::function<void()> calls[] = {
            [this] { Act("rebuild"); },
            [this] { view->ShowObject(Pick(3) ? second : nullptr); },
            [this] { Pick(2) ? view->SetFilter(Pick(2) ? "e" : "") : view->SetOnlyModified(Pick(2)); },
            [this] { view->ExpandAll(Pick(3)); },
            [this] { view->Page().Refresh(); },
            [this] { ownFirst.reset(); },
            [this] { Act("clear"); },
            [this] { delete view; },
            [this] { view->TakeOver(); },
            [this] { view->TakeOver(), GoTo("text"); }, // first: Qt does not stand it when what gets the focus goes
            [this] { view->TakeOver(), GoTo("value"); },
            [this] { Replay(&QUndoStack::undo); },
            [this] { Replay(&QUndoStack::redo); },
            [this] { Act("saved"); },
            [this] { edited.undone = true, view->CurrentRow().Reset(); },
            [this] { PastePage(); },
            [this] { Wheel(); },
        };
        program << QString("call %1").arg(in_iCall);
        view ? calls[in_iCall]() : void();
    }

    /// A setter that ended the page would have what is typed taken over within, which is then no step.
    void Replay(void (QUndoStack::*in_pDirection)())
    {
        if (first && Editor())
        {
            first->m_hook = nullptr;
        }
        (stack->*in_pDirection)();
    }

    /// All undone, redone and undone again.
    QString ReplayAll()
    {
        view ? view->TakeOver() : void();
        QString strFault = Misfit();
        for (const int iEnd : {0, stack ? stack->count() : 0, 0})
        {
            while (strFault.isEmpty() && stack && stack->index() != iEnd)
            {
                Replay(stack->index() > iEnd ? &QUndoStack::undo : &QUndoStack::redo);
                strFault = Misfit();
            }
        }
        return strFault;
    }

    /// What the page tells, to what it shows then. Undo would not give back what the page does not show meanwhile.
    void PastePage()
    {
        first ? void(first->m_hook = nullptr) : void();
        const QString strText = view->Page().Text();
        const QString strCopy = Pick(2) ? strText : QString::fromUtf8(view->Page().Json());
        anywhere = edited.undone = true;
        view->ShowObject(Pick(2) && first ? first : second);
        view->Page().Paste(strCopy);
        const QStringList now = view->Page().Text().split('\n');
        for (const QString& strLine : strText.split('\n'))
        {
            fault += now.contains(strLine) ? "" : "not pasted: " + strLine + "; ";
        }
    }

    /// It works an open editor; where there is none the page scrolls.
    void Wheel()
    {
        QWidget* pPopup = QApplication::activePopupWidget();
        still = Area()->hasFocus() && !pPopup;
        TestSupport::TurnWheel(pPopup ? pPopup : Editor() && Pick(2) ? Editor() : Area());
    }

    void Key()
    {
        const char* const keys[] = {"Tab",    "Shift+Tab", "Up",     "Down",        "Left",      "Right",
                                    "Home",   "End",       "Escape", "Escape",      "Return",    "Return",
                                    "Space",  "Delete",    "F2",     "Ctrl+V",      "Backspace", "Ctrl+F",
                                    "Ctrl+A", "F4",        "Ctrl+Z", "Ctrl+Shift+Z"};
        const int iKey = Pick(44);
        QWindow* pFocus = window.windowHandle(); // a pop-up's may go with the press of a key
        program << (iKey < 22 ? QString(keys[iKey]) : QString("a.x0123456789").mid(iKey % 13, 1));
        anywhere = anywhere || (program.last() == "Ctrl+V" && CurrentName().isEmpty()); // on a title
        iKey < 22 ? QTest::keySequence(pFocus, QKeySequence(keys[iKey]))
                  : QTest::keyClick(pFocus, program.last().at(0).toLatin1());
    }

    void Click(const QPoint& in_place)
    {
        const Qt::MouseButton eButton = Pick(8) ? Qt::LeftButton : Qt::RightButton;
        program << QString("press %1").arg(NameAt(in_place));
        QTest::mousePress(window.windowHandle(), eButton, Qt::NoModifier, in_place);
        Pick(5) ? void() : QTest::mouseMove(window.windowHandle(), QPoint(Pick(window.width()), in_place.y()));
        QTest::mouseRelease(window.windowHandle(), eButton, Qt::NoModifier, in_place);
    }

    /// Does something; what is wrong then, empty for nothing.
    QString Fault()
    {
        const QPoint place(Pick(window.width()), Pick(window.height()));
        const int iKind = Pick(23);
        anywhere = QApplication::activePopupWidget(); // a menu may paste into all rows
        QTimer::singleShot(0, &window, [] {
            const bool bLoop = QThread::currentThread()->loopLevel() > 0; // some of Qt's menus run one
            bLoop&& QApplication::activePopupWidget() ? void(QApplication::activePopupWidget()->close()) : void();
        });
        undoing = still = false;
        const tValues before = Values();
        QStringList rows{edited.row, CurrentName(), iKind < 6 ? NameAt(place) : QString()};
        const QString strHeld = edited.editor ? edited.editor->property("text").toString() : QString();
        const QRect value = view && iKind < 6 ? view->ValueRect(Row(edited.row)) : QRect();
        const bool bReset = !value.isEmpty() && NameAt(place) == edited.row && place.x() > view->x() + value.right();
        edited.undone = edited.undone || bReset; // by the button beside it
        first&& iKind == 0 ? void(first->m_hook = [this, iCall = Pick(8)] { Call(iCall); }) : void();
        iKind < 6                 ? Click(place)
        : iKind < 18              ? Key()
        : iKind < 21 || !anywhere ? Call(iKind < 21 ? Pick(17) : 9)
                                  : void();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        rows << CurrentName() << (rows.contains("limit") || CurrentName() == "limit" ? "value" : "");
        fault += Compare(before, rows) + Misfit() + Ended(strHeld);
        FindEdit();
        return fault;
    }

    QString Compare(const tValues& in_before, const QStringList& in_rows)
    {
        const QStringList changed = Differing(in_before, Values());
        for (const QString& strRow : undoing || anywhere ? QStringList() : changed)
        {
            if (still || !in_rows.contains(strRow))
            {
                return "misdirected: " + strRow + "; ";
            }
        }
        seen["written"] += !undoing && !changed.isEmpty();
        return !stack || int(states.size()) == stack->count() + 1 ? "" : "steps; ";
    }

    /// An edit of a text gives what was typed to all things, or what they were.
    QString Ended(const QString& in_strHeld)
    {
        if (edited.row != "text" || (Editor() && Editor() == edited.editor) || !view)
        {
            return QString();
        }
        const bool bBack = program.last() == "Escape";
        const bool bUntouched = in_strHeld == edited.text;
        seen[bBack ? "escaped" : "taken over"] += !bUntouched;
        for (CThing* pThing : {first.data(), second.data()})
        {
            const QString strText = pThing ? pThing->property("text").toString() : QString();
            const QString strDue = bBack ? edited.before.value(pThing) : in_strHeld;
            if (pThing && edited.before.contains(pThing) && !bUntouched && !edited.undone && !undoing &&
                strText != strDue)
            {
                return "lost: " + strDue + " is " + strText + "; ";
            }
        }
        return QString();
    }

    void FindEdit()
    {
        QWidget* pEditor = Editor();
        edited.undone = edited.undone || undoing;
        if (pEditor && pEditor == edited.editor)
        {
            return;
        }
        edited = sEdited();
        edited.editor = pEditor;
        edited.row = pEditor ? CurrentName() : QString();
        const CPropertyRow row = pEditor ? view->CurrentRow() : CPropertyRow();
        for (CProperty* pProperty : row.Property() ? row.Property()->Members() : std::vector<CProperty*>())
        {
            edited.before[pProperty->Object()] = pProperty->Read().toString();
        }
        edited.text = row.Property() && !row.Property()->IsMixed() ? row.Property()->Read().toString() : QString();
    }

    /// An edit, as its editor was first seen.
    struct sEdited
    {
        QPointer<QWidget> editor;
        QString row;
        QString text;                   ///< in the editor before anything is typed
        QMap<QObject*, QString> before; ///< what the things have
        bool undone = false;            ///< something was undone meanwhile
    };

    std::minstd_rand random;
    sEdited edited;
    QString fault;
    bool undoing = false;               ///< something was undone or redone
    bool anywhere = false;              ///< any row may get another value
    bool still = false;                 ///< none may
    std::vector<tValues> states;        ///< by index of the stack
    std::size_t index = 0;              ///< of the stack
    const QUndoCommand* next = nullptr; ///< what it would redo
    QStringList program;
    std::map<QString, int>& seen;
};
} // namespace

class UndoTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::FailOnWarnings(); }
    void Steps_data();
    void Steps();
    void RandomUser();
    void Deaths_data();
    void Deaths();
    void Keys();
    void Several_data();
    void Several();
    void Modified_data();
    void Modified();
};

/// What is done, and the steps that it leaves with one thing and with two.
void UndoTest::Steps_data()
{
    const struct
    {
        const char* m_strName;
        const char* m_strScript;
        const char* m_strSteps;
        const char* m_strStepsOfTwo = nullptr;
    } cases[] = {
        {"typed", "value: F2 7 Return", "value"},
        {"stepped", "value: F2 Up Up Up Return", "value"},
        {"stepped and typed", "value: F2 Up Up 7 Return", "value"},
        {"two edits", "value: F2 7 Return value: F2 8 Return", "value value"},
        {"Escape", "value: F2 Down Down Escape", ""},
        {"Escape from what is typed", "value: F2 7 Escape", ""},
        {"back where it was", "value: F2 Down Up Return", ""},
        {"a drag", "real: !drag", "real"},
        {"rounded", "even: F2 9 Return", "even"},
        {"rounded to what it was", "even: F2 4 Return even: F2 5 Return", "", "even"},
        {"the same again", "value: F2 40 Return", ""},
        {"box", "box: Space Space Space", "box box box"},
        {"part", "place: Right F2 9 Return", "place"},
        {"flags", "sides: F2 !flags Return", "sides"},
        {"a zero's sign", "!zero", "real"},
        {"pasted", "value: Ctrl+V text: Ctrl+V", "value text"},
        {"reset", "even: Delete", "Reset even"},
        {"a limit that takes others along", "limit: F2 5 Return", "limit"},
        {"a limit, of a page that is cleared meanwhile", "!clearing limit: F2 5 Return", "limit"},
        {"what was taken along is edited", "limit: F2 5 Return value: F2 3 Return", "limit value"},
        {"a setter that writes", "!nested value: F2 7 Return", "value"},
        {"a setter that writes once more", "!again value: F2 7 Return", "value"},
        {"filled anew", "value: F2 7 Return !rebuild text: F2 x Return", "value text"},
        {"cleared", "value: F2 7 Return !clear", "value"},
        {"undone", "value: F2 7 Return !undo text: F2 x Return", "text"},
        {"undone under an open edit", "value: F2 Down !undo Down Return", "value"},
        {"undone under what is typed", "value: F2 7 Return limit: F2 5 !undo !clear", "limit"},
        {"undone under an open edit, then Escape", "text: F2 x Return value: F2 Down !undo Escape !undo !redo",
         "text value"},
        {"something else meanwhile", "value: F2 Down !push Down Return", "value other value"},
        {"saved meanwhile", "value: F2 Down !saved Down Return", "value value"},
    };
    TestSupport::Columns<int, QString, QString>("things", "script", "steps");
    for (const auto& row : cases)
    {
        QTest::newRow(row.m_strName) << 1 << row.m_strScript << row.m_strSteps;
        QTest::addRow("%s, two things", row.m_strName)
            << 2 << row.m_strScript << (row.m_strStepsOfTwo ? row.m_strStepsOfTwo : row.m_strSteps);
    }
}

void UndoTest::Steps()
{
    QFETCH(int, things);
    QFETCH(QString, script);
    QFETCH(QString, steps);
    sBench bench(things);
    QVERIFY(bench.Open());
    bench.view->Page().SetModifiedAgainst(CPropertyPage::eDefaults);
    const QByteArray first = bench.Bytes();
    bench.Do(script);
    QCOMPARE(bench.Steps(), steps);
    bench.RedoAll();
    const QByteArray last = bench.Bytes();
    QCOMPARE(last == first, steps.isEmpty());
    bench.UndoAll();
    QCOMPARE(bench.Bytes(), first);
    bench.RedoAll();
    QCOMPARE(bench.Bytes(), last);
}

/// Whatever is done in whatever order: RANDOM_USER_EVENTS says how often, RANDOM_USER_SEED begins elsewhere.
void UndoTest::RandomUser()
{
    const int iSeed = qEnvironmentVariableIntValue("RANDOM_USER_SEED");
    const int iEvents = qMax(10000, qEnvironmentVariableIntValue("RANDOM_USER_EVENTS"));
    std::map<QString, int> seen;
    for (int i = 0; i < iEvents / 100; ++i)
    {
        sUser user(static_cast<unsigned>(iSeed + i), seen);
        QVERIFY(user.Open());
        QString strFault;
        for (int iEvent = 0; iEvent < 100 && user.view && strFault.isEmpty(); ++iEvent)
        {
            strFault = user.Fault();
        }
        strFault += user.ReplayAll();
        QVERIFY2(strFault.isEmpty(), qPrintable(QString("life %1: ").arg(i) + strFault + user.program.join(" | ")));
    }
    for (const char* strWhat : {"written", "taken over", "escaped", "undone", "redone"})
    {
        QVERIFY2(seen[strWhat] > 0, strWhat);
    }
}

/// Where the application is called while something is done, and what it does there.
void UndoTest::Deaths_data()
{
    TestSupport::Columns<QString, QString, QString>("place", "deed", "script");
    for (const char* strPlace : {"setter", "changed", "index"})
    {
        for (const char* strDeed : {"rebuild", "clear", "object", "view"})
        {
            for (const char* strScript : {"even: Delete", "!undo", "!undo !redo", "value: F2 7 Tab !undo !redo"})
            {
                QTest::addRow("%s in %s: %s", strDeed, strPlace, strScript) << strPlace << strDeed << strScript;
            }
        }
    }
}

/// Nothing is touched that is gone, and what is left can be undone.
void UndoTest::Deaths()
{
    QFETCH(QString, place);
    QFETCH(QString, deed);
    QFETCH(QString, script);
    sBench bench;
    QVERIFY(bench.Open());
    bench.view->Page().SetModifiedAgainst(CPropertyPage::eDefaults);
    const QByteArray second = bench.second->Bytes();
    bench.Do("even: F2 8 Return");
    bool bDone = false;
    const auto act = [&] {
        std::exchange(bDone, true) ? void()
        : deed == "object"         ? bench.ownFirst.reset()
        : deed == "view"           ? delete bench.view
                                   : bench.Act(deed);
    };
    place == "setter"    ? void(bench.first->m_hook = act)
    : place == "changed" ? void(connect(&bench.view->Page(), &CPropertyPage::ValueChanged, this, act))
                         : void(connect(bench.stack, &QUndoStack::indexChanged, this, act));
    for (const QString& strPart : script.split(' '))
    {
        bench.view || strPart.startsWith('!') ? bench.Do(strPart) : void();
    }
    bench.view ? bench.view->TakeOver() : void();
    bench.UndoAll();
    QVERIFY(bDone);
    QCOMPARE(bench.second->Bytes(), second);
}

/// The page's own stack is worked by keys in the page, another one is not.
void UndoTest::Keys()
{
    sBench bench;
    QVERIFY(bench.Open());
    const QByteArray first = bench.Bytes();
    bench.Do("value: F2 7 Return Ctrl+Z");
    QVERIFY(bench.Bytes() != first);
    bench.Do("text: F2");
    bench.stack->undo();
    QVERIFY(bench.Bytes() == first && bench.view->CurrentRow().Property()->Name() == "text"); // which is being edited
    const QUndoStack& own = bench.view->Page().UseOwnUndoStack();
    bench.Do("value: F2 8 Return");
    const QByteArray last = bench.Bytes();
    bench.Do("text: F2 x Return box: Ctrl+Z");
    QCOMPARE(bench.view->CurrentRow().Property()->Name(), "text"); // it is to be seen
    bench.Do("Ctrl+Z value: F2 Ctrl+Shift+Z F2 Up Ctrl+Z");
    QCOMPARE(bench.Bytes(), last);
    QCOMPARE(own.index(), 1);
    bench.view->SetUndoStack(nullptr);
    bench.Do("value: F2 9 Return Ctrl+Z value: F2 Up Escape");
    QCOMPARE(bench.first->Value(), 9);
}

/// What two things differ in, what is done, and what each is then.
void UndoTest::Several_data()
{
    const struct
    {
        const char* m_strName;
        const char* m_strScript;
        const char* m_strRow;
        QVariant m_first;
        QVariant m_second;
    } cases[] = {
        {"looked at", "text: F2 Return even: F2 Return place: F2 Tab Return", "even", 4, 6},
        {"text of the first", "text: F2 one Return", "text", "one", "one"},
        {"text of the first, by Tab", "text: F2 one Tab", "text", "one", "one"},
        {"number of the first", "even: F2 4 Return", "even", 4, 4},
        {"zero", "even: F2 0 Return", "even", 0, 0},
        {"no number", "even: F2 x Return", "even", 4, 6},
        {"drag", "even: !drag", "even", 4, 6},
        {"same part", "place: F2 9 Return", "place", QPointF(9, 2), QPointF(9, 7)},
        {"other part", "place: Right F2 9 Return", "place", QPointF(1, 9), QPointF(1, 9)},
        {"other part is the first's", "place: Right F2 2 Return", "place", QPointF(1, 2), QPointF(1, 2)},
        {"flags", "sides: F2 !flags Return", "sides", int(Qt::AlignTop | Qt::AlignJustify),
         int(Qt::AlignRight | Qt::AlignTop | Qt::AlignJustify)},
        {"box", "box: Space", "box", true, true},
        {"one is gone", "!dies text: F2 x Return", "text", "x", QVariant()},
    };
    TestSupport::Columns<QString, QString, QVariant, QVariant>("script", "row", "first", "second");
    for (const auto& row : cases)
    {
        QTest::newRow(row.m_strName) << row.m_strScript << row.m_strRow << row.m_first << row.m_second;
    }
}

void UndoTest::Several()
{
    QFETCH(QString, script);
    QFETCH(QString, row);
    QFETCH(QVariant, first);
    QFETCH(QVariant, second);
    sBench bench;
    QVERIFY(bench.Open());
    bench.second->setProperty("box", true);
    script.startsWith("!dies") ? bench.ownSecond.reset() : void();
    QCoreApplication::processEvents();
    QCOMPARE(bench.Row("place").Property()->IsMixed(), !script.startsWith("!dies"));
    bench.Do(script.remove("!dies "));
    QCOMPARE(bench.Row(row).Property()->Members().front()->Read(), first);
    QCOMPARE(bench.Row(row).Property()->Members().back()->Read(), second);
}

/// What values are compared with, what is done, which rows are modified then, and a value.
void UndoTest::Modified_data()
{
    const struct
    {
        const char* m_strName;
        CPropertyPage::eModifiedAgainst m_eAgainst;
        const char* m_strScript;
        const char* m_strModified;
        int m_iValue;
    } cases[] = {
        {"nothing", CPropertyPage::eNothing, "value: F2 7 Return value: Delete", "", 7},
        {"defaults", CPropertyPage::eDefaults, "text: F2 x Return", "value", 40},
        {"to the default", CPropertyPage::eDefaults, "value: F2 7 Return", "", 7},
        {"Delete", CPropertyPage::eDefaults, "value: Delete", "", 7},
        {"Delete, undone", CPropertyPage::eDefaults, "value: Delete !undo", "value", 40},
        {"button", CPropertyPage::eDefaults, "value: !press", "", 7},
        {"button under an open edit", CPropertyPage::eDefaults, "value: F2 9 !press", "", 7},
        {"other rows have no button", CPropertyPage::eDefaults, "text: !press box: !press", "value", 40},
        {"function", CPropertyPage::eDefaults, "value: Delete even: F2 8 Return", "even", 7},
        {"function, reset", CPropertyPage::eDefaults, "value: Delete even: F2 8 Return Delete", "", 7},
        {"function, first value", CPropertyPage::eDefaults, "value: Delete even: Delete F2 4 Return", "even", 7},
        {"first values", CPropertyPage::eFirstValues, "value: Down", "", 40},
        {"first values, edited", CPropertyPage::eFirstValues, "limit: F2 5 Return", "limit value", 5},
        {"first values, reset", CPropertyPage::eFirstValues, "limit: F2 5 Return Delete value: Delete", "", 40},
        {"first values, filled anew", CPropertyPage::eFirstValues, "value: F2 9 Return !rebuild", "", 9},
        {"first values, stepped", CPropertyPage::eFirstValues, "value: F2 Down", "value", 39},
    };
    TestSupport::Columns<int, QString, QString, int>("against", "script", "modified", "value");
    for (const auto& row : cases)
    {
        QTest::newRow(row.m_strName) << int(row.m_eAgainst) << row.m_strScript << row.m_strModified << row.m_iValue;
    }
}

void UndoTest::Modified()
{
    QFETCH(int, against);
    QFETCH(QString, script);
    QFETCH(QString, modified);
    QFETCH(int, value);
    sBench bench;
    QVERIFY(bench.Open());
    bench.Row("value").Default(7.0);
    bench.view->Page().SetModifiedAgainst(static_cast<CPropertyPage::eModifiedAgainst>(against));
    QCoreApplication::processEvents();
    bench.Do(script);
    QCOMPARE(bench.Modified(), modified);
    QCOMPARE(bench.first->Value(), value);
    QCOMPARE(bench.second->Value(), value);
    bench.UndoAll();
    QCOMPARE(bench.second->Value(), 40);
}

INSPECTOR_TEST_MAIN(UndoTest)
#include "undotest.moc"
