#include "propertyview.h"
#include "testsupport.h"

namespace
{
struct sValues
{
    QString strName = QStringLiteral("tab\tquote\" line\nend");
    double factor = 0.1;
    qint64 iLarge = std::numeric_limits<qint64>::max();
    bool bOn = true;
    int iMode = 1;
    QPoint place = QPoint(3, -4);
};

bool operator==(const sValues& in_a, const sValues& in_b)
{
    return in_a.strName == in_b.strName && in_a.factor == in_b.factor && in_a.iLarge == in_b.iLarge &&
           in_a.bOn == in_b.bOn && in_a.iMode == in_b.iMode && in_a.place == in_b.place;
}

/// Two groups with the same names in them.
struct sPage
{
    explicit sPage(const sValues& in_first, const sValues& in_second) : first(in_first), second(in_second)
    {
        Fill(view.Page().AddGroup(QStringLiteral("First")), first);
        Fill(view.Page().AddGroup(QStringLiteral("Second \"group\"")).AddGroup(QStringLiteral("Inner")), second);
        view.resize(300, 400);
        QObject::connect(&view.Page(), &CPropertyPage::PasteRefused,
                         [this](const QStringList& in_names) { refused += in_names; });
    }

    void Fill(CPropertyGroup in_group, sValues& io_values)
    {
        rows << in_group.Add(QStringLiteral("Name"), io_values.strName);
        rows << in_group.Add(QStringLiteral("Factor"), io_values.factor);
        rows << in_group.Add(QStringLiteral("Large"), io_values.iLarge);
        rows << in_group.Add(QStringLiteral("On"), io_values.bOn);
        rows << in_group.Add(QStringLiteral("Mode"), io_values.iMode).Choices({{0, "Off"}, {1, "On"}});
        rows << in_group.Add(QStringLiteral("Place"), io_values.place);
        in_group.Add(QStringLiteral("Fixed"), [] { return 1; });
    }

    QString Paste(const QString& in_strText)
    {
        refused.clear();
        return view.Page().Paste(in_strText) ? refused.join(QLatin1Char(' ')) : QStringLiteral("nothing");
    }

    sValues first;
    sValues second;
    CPropertyView view;
    QVector<CPropertyRow> rows;
    QStringList refused;
};

const sValues g_other{QStringLiteral("other"), -2e-300, -7, false, 0, QPoint()};
} // namespace

class CCopyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { TestSupport::FailOnWarnings(); }

    /// Every value arrives where it was, exactly, and as one step.
    void ThereAndBack()
    {
        sPage from(sValues(), g_other);
        QCursor shown; // which nothing can be pasted on, but is so already
        from.view.Page().AddGroup(QString()).Add(QStringLiteral("Shape"), shown);
        for (const QString& strText : {from.view.Page().Text(), QString::fromUtf8(from.view.Page().Json())})
        {
            sPage to(g_other, sValues());
            to.view.Page().AddGroup(QString()).Add(QStringLiteral("Shape"), shown);
            QUndoStack stack;
            to.view.Page().SetUndoStack(&stack);
            QCOMPARE(to.Paste(strText), QString());
            QVERIFY2(to.first == from.first && to.second == from.second, qPrintable(strText));
            QCOMPARE(stack.count(), 1);
            stack.undo();
            QVERIFY2(to.first == g_other && to.second == sValues(), qPrintable(strText));
        }
    }

    void Pasted_data()
    {
        // what is pasted, what is refused, the names in the groups then
        const char* const cases[][5] = {
            {"nothing", "no values", "nothing", "other", "other"},
            {"a line", "Name\tnew", "", "new", "other"},
            {"of another program", "Name\tnew\r\nMode\tOn\r\n", "", "new", "other"},
            {"under its title", "Inner\nName\tnew", "", "other", "new"},
            {"under an unknown title", "Lamp\nName\tnew", "", "new", "other"},
            {"twice", "Name\tone\nName\ttwo\nName\tthree", "Name", "one", "two"},
            {"no such row", "Colour\tred\nName\tnew", "Colour", "new", "other"},
            {"does not fit", "Factor\tlarge\nMode\tBlue\nFixed\t7\nName\tnew", "Factor Mode", "new", "other"},
            {"JSON", R"({"Inner":{"Name":"new","Mode":null,"Factor":[1]}})", "Factor Mode", "other", "new"},
            {"quote never closed", "Name\t\"new\nMode\tOn", "", "new\nMode\tOn", "other"},
        };
        TestSupport::Columns<QString, QString, QString, QString>("text", "refused", "name", "second");
        for (const auto& row : cases)
        {
            QTest::newRow(row[0]) << row[1] << row[2] << row[3] << row[4];
        }
    }

    void Pasted()
    {
        QFETCH(QString, text);
        sPage page(g_other, g_other);
        QTEST(page.Paste(text), "refused");
        QTEST(page.first.strName, "name");
        QTEST(page.second.strName, "second");
        QCOMPARE(page.first.factor, g_other.factor);
    }

    void SetterMayDestroy()
    {
        auto* pView = new CPropertyView;
        CPropertyGroup group = pView->Page().AddGroup(QString());
        int iWritten = 0;
        const auto destroy = [pView, &iWritten](int) {
            ++iWritten;
            delete pView;
        };
        const auto zero = [] { return 0; };
        group.Add(QStringLiteral("a"), zero, destroy);
        group.Add(QStringLiteral("b"), zero, destroy);
        QApplication::clipboard()->setText(QStringLiteral("a\t1\nb\t1\nc\t1"));
        QVERIFY(TestSupport::ShowWindow(pView));
        QTest::keyClick(pView->focusProxy(), Qt::Key_F10, Qt::ShiftModifier);
        const QPointer<QWidget> pMenu = QApplication::activePopupWidget();
        pMenu->actions().value(8)->trigger();
        QCOMPARE(iWritten, 1);
        QVERIFY(pMenu); // Qt is not done with it
    }

    /// With the menu's keys: what its entries do, to the row that it was opened on.
    void Menu()
    {
        sPage page(sValues(), g_other);
        QVERIFY(TestSupport::ShowWindow(&page.view));
        page.view.setFocus();
        QStringList texts;
        connect(&page.view, &CPropertyView::MenuAboutToShow, &page.view,
                [&page, &texts](QMenu* in_pMenu, const CPropertyRow& in_row) {
                    in_pMenu->addAction(QStringLiteral("of %1").arg(in_row.Property()->Label()));
                    texts << in_pMenu->actions().last()->text();
                });
        const auto choose = [&page](int in_iRow, const QString& in_strEntry) {
            page.view.SetCurrentRow(page.rows[in_iRow]);
            QTest::keyClick(page.view.focusProxy(), Qt::Key_F10, Qt::ShiftModifier);
            const QPointer<QWidget> pMenu = QApplication::activePopupWidget();
            for (QAction* pAction : pMenu->actions())
            {
                pAction->text().remove(QLatin1Char('&')) == in_strEntry && pAction->isEnabled() ? pAction->trigger()
                                                                                                : void();
            }
            pMenu->close();
            TestSupport::WaitUntil([&pMenu] { return !pMenu; });
            return QApplication::clipboard()->text();
        };
        QCOMPARE(choose(8, QStringLiteral("Copy Label and Value")), QStringLiteral("Large\t-7"));
        QCOMPARE(choose(8, QStringLiteral("Copy Value")), QStringLiteral("-7"));
        choose(2, QStringLiteral("Paste Value"));
        QCOMPARE(page.first.iLarge, qint64(-7));
        choose(3, QStringLiteral("Paste Value")); // no truth value
        QVERIFY(page.first.bOn);
        choose(8, QStringLiteral("Copy Group"));
        choose(0, QStringLiteral("Paste into Page"));
        QCOMPARE(page.first.strName, sValues().strName);
        QCOMPARE(texts.join(QLatin1Char(' ')), QStringLiteral("of Large of Large of Large of On of Large of Name"));
    }
};

INSPECTOR_TEST_MAIN(CCopyTest)
#include "copytest.moc"
