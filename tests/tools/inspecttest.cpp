#include "inspectwindow.h"
#include "objecttree.h"
#include "probe.h"
#include "signalear.h"
#include "testsupport.h"
#include "widgetframe.h"

using TestSupport::WaitUntil;

namespace
{
/// A program with two buttons in a window, and the inspector in it.
class CProgram
{
public:
    CProgram() : m_pOk(new QPushButton(QStringLiteral("OK"), &m_window)), m_pNo(new QPushButton(&m_window))
    {
        m_pNo->setGeometry(0, 60, 80, 30);
        m_window.setGeometry(40, 40, 200, 120);
    }

    bool Open() { return TestSupport::ShowWindow(&Inspector()) && TestSupport::ShowWindow(&m_window); }

    CInspectWindow& Inspector() { return m_probe.Window(); }
    QLineEdit* Filter() { return Inspector().findChild<QLineEdit*>(QStringLiteral("treeFilter")); }

    QString Selected()
    {
        return Inspector()
            .findChild<QTreeView*>()
            ->currentIndex()
            .siblingAtColumn(CObjectTree::eText)
            .data()
            .toString();
    }

    CProbe m_probe;
    QWidget m_window;
    QPushButton* m_pOk;
    QPushButton* m_pNo;
};

/// The first row of the tree that is not as the live objects are; empty when all are.
QString Difference(CObjectTree& in_tree)
{
    QSet<QObject*> found;
    const QList<QObject*> objects = in_tree.Objects();
    for (QObject* pObject : objects)
    {
        found << pObject;
        const QModelIndex index = in_tree.IndexOf(pObject);
        if (in_tree.ObjectAt(index) != pObject || in_tree.rowCount(index) != pObject->children().size() ||
            (pObject->parent() && in_tree.ObjectAt(index.parent()) != pObject->parent()))
        {
            return pObject->objectName() + QLatin1Char(' ') + QLatin1String(pObject->metaObject()->className());
        }
    }
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget* pWidget : widgets)
    {
        if (found.contains(pWidget) == CApartWindow::Owns(pWidget))
        {
            return QStringLiteral("a widget of ") + QLatin1String(pWidget->metaObject()->className());
        }
    }
    return QString();
}

class CNoisy : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void Told(int in_iNumber, const QString& in_strText, QObject* in_pObject);
};
} // namespace

class InspectTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::FailOnWarnings(); }

    /// Whatever the program makes, moves and deletes, the tree is as the objects are, and a dead one is gone at once.
    void TreeFollows()
    {
        CProgram program;
        CObjectTree& tree = program.Inspector().Tree();
        const QAbstractItemModelTester tester(&tree, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QList<QPointer<QObject>> objects = {&program.m_window};
        QRandomGenerator random(1);
        for (int i = 0; i < 400; ++i)
        {
            QPointer<QObject>& pAny = objects[random.bounded(static_cast<int>(objects.size()))];
            QWidget* pWidget = qobject_cast<QWidget*>(pAny);
            switch (random.bounded(5))
            {
            case 0:
                objects << new QObject(pAny);
                break;
            case 1:
                objects << new QPushButton(QStringLiteral("new"), pWidget);
                break;
            case 2:
                pWidget&& pWidget != &program.m_window ? pWidget->setParent(nullptr) : void();
                break;
            case 3:
                pWidget && !pWidget->parent() && pWidget != &program.m_window ? pWidget->setParent(&program.m_window)
                                                                              : void();
                break;
            default:
                const QPointer<QObject> pGone = pAny == &program.m_window ? nullptr : pAny;
                QObject* pAddress = pGone;
                delete pGone;
                QVERIFY(!pAddress || !tree.Objects().contains(pAddress));
                break;
            }
            objects.removeAll(QPointer<QObject>());
            if (random.bounded(4) == 0)
            {
                QCoreApplication::processEvents();
                QCOMPARE(Difference(tree), QString());
            }
        }
        for (const QPointer<QObject>& pObject : std::as_const(objects))
        {
            pObject && !pObject->parent() && pObject != &program.m_window ? delete pObject : void();
        }
    }

    void Filter()
    {
        const struct
        {
            const char* m_strTyped;
            int m_iColumn; ///< class, name, text; 0: any
            bool m_bFound;
        } cases[] = {{"pushbut", 1, true}, {"pushbut", 2, false}, {"the name", 2, true},
                     {"ok", 3, true},      {"ok", 0, true},       {"no such thing", 0, false}};
        for (const auto& row : cases)
        {
            CProgram program;
            program.m_pOk->setObjectName(QStringLiteral("the name"));
            program.Inspector().findChild<QComboBox*>()->setCurrentIndex(row.m_iColumn);
            program.Filter()->setText(row.m_strTyped);
            program.Inspector().Select(program.m_pOk);
            QVERIFY2(program.Selected() == (row.m_bFound ? QStringLiteral("OK") : QString()), row.m_strTyped);
        }
    }

    /// Ctrl+Shift+click selects the widget, which notices nothing; other clicks are the program's.
    void Pick()
    {
        CProgram program;
        QVERIFY(program.Open());
        program.Inspector().move(400, 0); // the frame leaves out what it covers
        int iClicks = 0;
        connect(program.m_pOk, &QPushButton::clicked, this, [&] { ++iClicks; });
        QWindow* pWindow = program.m_window.windowHandle();
        QTest::mouseClick(pWindow, Qt::LeftButton, Qt::ControlModifier | Qt::ShiftModifier, QPoint(5, 5));
        QCOMPARE(program.Selected(), QStringLiteral("OK"));
        QCOMPARE(iClicks, 0);
        const auto* pFrame = program.Inspector().findChild<CWidgetFrame*>();
        const auto isRound = [&] {
            const QRect button(program.m_pOk->mapToGlobal(QPoint()), program.m_pOk->size());
            return pFrame->isVisible() && pFrame->geometry().contains(button) &&
                   !pFrame->mask().contains(button.center());
        };
        QVERIFY(WaitUntil(isRound));
        program.m_pOk->move(30, 20);
        QVERIFY(WaitUntil(isRound));
        QTest::mouseClick(pWindow, Qt::LeftButton, Qt::NoModifier, QPoint(35, 25));
        QCOMPARE(iClicks, 1);
        delete program.m_pOk;
        QVERIFY(program.Selected() != QStringLiteral("OK"));
        program.Inspector().close();
        QTRY_VERIFY(!QApplication::allWidgets().contains(const_cast<CWidgetFrame*>(pFrame)));
        QTest::mouseClick(pWindow, Qt::LeftButton, Qt::ControlModifier | Qt::ShiftModifier, QPoint(100, 110));
        QVERIFY(program.Inspector().isVisible());
    }

    /// A modal dialog of the program's leaves the inspector usable, and keys typed there are no shortcuts.
    void StaysUsable()
    {
        CProgram program;
        QShortcut shortcut(QKeySequence(QStringLiteral("A")), &program.m_window);
        shortcut.setContext(Qt::ApplicationShortcut);
        int iTriggered = 0;
        connect(&shortcut, &QShortcut::activated, this, [&] { ++iTriggered; });
        QVERIFY(program.Open());
        QDialog dialog(&program.m_window);
        dialog.setModal(true);
        QVERIFY(TestSupport::ShowWindow(&dialog));
        for (const char* strWhen : {"while the dialog is open", "afterwards"})
        {
            QVERIFY2(TestSupport::ShowWindow(&program.Inspector()), strWhen);
            QTest::mouseClick(program.Inspector().windowHandle(), Qt::LeftButton, Qt::NoModifier,
                              program.Filter()->mapTo(&program.Inspector(), program.Filter()->rect().center()));
            QTest::keyClick(program.Inspector().windowHandle(), Qt::Key_A);
            QCOMPARE(program.Filter()->text(), QStringLiteral("a"));
            QCOMPARE(iTriggered, 0);
            program.Filter()->clear();
            dialog.hide();
        }
        QVERIFY(TestSupport::ShowWindow(&program.m_window));
        QTest::keyClick(program.m_window.windowHandle(), Qt::Key_A);
        QCOMPARE(iTriggered, 1);
    }

    /// Set before the inspector opens, and while it is open.
    void StyleSheet()
    {
        const QString strSheet = QStringLiteral("* { background: #ff0102; color: #ff0102; border: 3px solid #ff0102 }");
        for (const bool bBefore : {true, false})
        {
            CProgram program;
            bBefore ? qApp->setStyleSheet(strSheet) : void();
            QVERIFY(program.Open());
            qApp->setStyleSheet(strSheet);
            QComboBox late(&program.Inspector());
            late.show();
            const QImage image = program.Inspector().grab().toImage();
            const QRgb inProgram = program.m_window.grab().toImage().pixel(199, 60);
            qApp->setStyleSheet(QString());
            QCOMPARE(inProgram, qRgb(0xff, 1, 2));
            QVERIFY2(!Pixels(image).contains(inProgram), bBefore ? "before" : "while open");
        }
    }

    void LastWindowClosed()
    {
        CProgram program;
        QVERIFY(program.Open());
        program.Inspector().move(400, 0);
        program.Inspector().Select(program.m_pOk);
        QVERIFY(WaitUntil([&] { return program.Inspector().findChild<CWidgetFrame*>()->isVisible(); }));
        QTimer::singleShot(0, qApp, &QApplication::closeAllWindows);
        QTimer::singleShot(5000, &program.m_window, [] { QCoreApplication::exit(1); });
        QCOMPARE(QCoreApplication::exec(), 0);
    }

    void Signals()
    {
        QStringList heard;
        CNoisy noisy;
        CSignalEar ear(&noisy, [&](const QString& in_strSignal) { heard << in_strSignal; });
        noisy.setObjectName(QStringLiteral("name"));
        Q_EMIT noisy.Told(7, QStringLiteral("text"), &noisy);
        QCOMPARE(heard, QStringList() << QStringLiteral("objectNameChanged(name)")
                                      << QStringLiteral("Told(7, text, QObject*)"));
    }

private:
    static QSet<QRgb> Pixels(const QImage& in_image)
    {
        QSet<QRgb> pixels;
        for (int i = 0; i < in_image.width() * in_image.height(); ++i)
        {
            pixels << in_image.pixel(i % in_image.width(), i / in_image.width());
        }
        return pixels;
    }
};

INSPECTOR_TEST_MAIN(InspectTest)

#include "inspecttest.moc"
