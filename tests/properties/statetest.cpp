#include "propertyview.h"
#include "testsupport.h"

namespace
{
/// Groups of groups; the texts tell which rows are shown.
struct sPage
{
    sPage() { Fill(); }

    void Fill()
    {
        view.Page().Clear();
        rows.clear();
        CPropertyGroup lamp = view.Page().AddGroup(QStringLiteral("Lamp"));
        rows << lamp.Add(QStringLiteral("a"), iValue);
        rows << lamp.AddGroup(QStringLiteral("Bulb")).Add(QStringLiteral("b"), iValue);
        rows << view.Page().AddGroup(QStringLiteral("Door")).Add(QStringLiteral("c"), iValue);
        view.Page().AddGroup(QString()).Add(QStringLiteral("d"), iValue);
    }

    QString Shown()
    {
        QString strShown;
        for (const CPropertyRow& row : rows)
        {
            strShown += view.ValueRect(row).isEmpty() ? QString() : row.Property()->Label();
        }
        return strShown;
    }

    void Key(int in_iKey, Qt::KeyboardModifiers in_modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(in_iKey), in_modifiers);
    }

    int iValue = 1;
    CPropertyView view;
    QVector<CPropertyRow> rows;
};
} // namespace

class CStateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { TestSupport::FailOnWarnings(); }

    void FoldedByKeys()
    {
        sPage page;
        QVERIFY(TestSupport::ShowWindow(&page.view));
        page.view.setFocus();
        page.view.SetCurrentRow(page.rows[1]);
        page.Key(Qt::Key_Left, Qt::ControlModifier);
        QCOMPARE(page.Shown(), QString());
        page.Key(Qt::Key_Right); // the current row's outermost title is current
        QCOMPARE(page.Shown(), QStringLiteral("a"));
        page.Fill();
        QCOMPARE(page.Shown(), QStringLiteral("a"));
        page.Key(Qt::Key_Right, Qt::ControlModifier);
        QCOMPARE(page.Shown(), QStringLiteral("abc"));
    }

    /// The user's choice outlasts what the application says of a new group, not what it says of one that is shown.
    void ApplicationFolds()
    {
        sPage page;
        page.view.ExpandAll();
        page.Fill();
        CPropertyGroup other = page.view.Page().AddGroup(QStringLiteral("Door"));
        page.rows << other.Expand(false).Add(QStringLiteral("e"), page.iValue);
        QCOMPARE(page.Shown(), QStringLiteral("abce"));
        other.Expand(false);
        QCOMPARE(page.Shown(), QStringLiteral("abc"));
    }

    /// Of the current row: what looks like markup in a label is none.
    void Description()
    {
        sPage page;
        page.rows[0].Label(QStringLiteral("a<b>")).Tip(QStringLiteral("less < more"));
        page.view.SetDescriptionVisible(true);
        page.view.SetCurrentRow(page.rows[0]);
        const auto* pLabel = page.view.findChild<QLabel*>();
        QTextDocument document;
        document.setHtml(pLabel->text());
        QCOMPARE(document.toPlainText(), QStringLiteral("a<b>\nless < more"));
        page.Fill();
        page.view.SetCurrentRow(page.rows[1]);
        document.setHtml(pLabel->text());
        QCOMPARE(document.toPlainText(), QStringLiteral("b\n"));
        page.view.Page().Clear();
        QTRY_VERIFY(!pLabel->text().contains(QLatin1Char('b') + QStringLiteral("</b>")));
    }

    void NextRun()
    {
        sPage page;
        page.view.ExpandAll(false);
        page.view.SetLabelColumn(123);
        page.view.SetFilterVisible(true);
        page.view.SetFilter(QStringLiteral("b"));
        sPage next;
        QVERIFY(next.view.RestoreState(page.view.SaveState()));
        QCOMPARE(next.view.LabelColumn(), 123);
        QCOMPARE(next.Shown(), QStringLiteral("b"));
        QVERIFY(next.view.IsFilterVisible());
        next.view.SetFilter(QString());
        QCOMPARE(next.Shown(), QString());
    }

    /// Each byte changed, each length, and what another widget saved.
    void BrokenState()
    {
        sPage page;
        page.view.ExpandAll(false);
        const QByteArray state = page.view.SaveState();
        sPage other;
        for (int i = 0; i < state.size(); ++i)
        {
            QByteArray broken = state;
            broken[i] = static_cast<char>(broken[i] ^ 0x10);
            QVERIFY(!other.view.RestoreState(broken));
            QVERIFY(!other.view.RestoreState(state.left(i)));
        }
        QVERIFY(!other.view.RestoreState(state + '\0'));
        QCOMPARE(other.Shown(), QStringLiteral("abc"));
    }
};

INSPECTOR_TEST_MAIN(CStateTest)
#include "statetest.moc"
