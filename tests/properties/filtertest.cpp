#include "propertyview.h"
#include "testsupport.h"

namespace
{
/// A page of two groups in a window.
struct sPage
{
    sPage()
    {
        CPropertyGroup lamp = view.Page().AddGroup(QStringLiteral("Lamp"));
        rows << lamp.Add(QStringLiteral("Name"), strName).Tip(QStringLiteral("as on the plan"));
        rows << lamp.Add(QStringLiteral("Brightness"), iBrightness).Suffix(QStringLiteral(" %"));
        CPropertyGroup door = view.Page().AddGroup(QStringLiteral("Door"));
        rows << door.Add(QStringLiteral("ÖFFNUNG"), bOpen);
        rows << door.AddCommand(QStringLiteral("Ring the bell"), [] {});
        view.resize(300, 300);
    }

    bool IsShown(const CPropertyRow& in_row) { return !view.ValueRect(in_row).isEmpty(); }

    QString Shown()
    {
        QString strShown;
        for (int i = 0; i < 4; ++i)
        {
            strShown += IsShown(rows[i]) ? QStringLiteral("NBOR").mid(i, 1) : QString();
        }
        return strShown;
    }

    void Key(int in_iKey, Qt::KeyboardModifiers in_modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(in_iKey), in_modifiers);
    }

    void Type(const char* in_strText) { QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(in_strText)); }

    QString strName = QStringLiteral("Reading corner");
    int iBrightness = 40;
    bool bOpen = true;
    CPropertyView view;
    QVector<CPropertyRow> rows;
};

/// Whether the screen shows what a paint of the whole view does.
bool IsPainted(QWidget& in_view)
{
    const QImage screen = TestSupport::Grabbed(in_view);
    return screen == in_view.grab().toImage().convertToFormat(screen.format());
}
} // namespace

class CFilterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { TestSupport::FailOnWarnings(); }

    /// A change asks for no more than what it changes, and a text that was painted before is not shaped again.
    void PaintedInPart()
    {
        sPage page;
        page.view.Page().SetModifiedAgainst(CPropertyPage::eFirstValues);
        page.view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page.view));
        QFont large = page.view.font();
        large.setPointSize(large.pointSize() + 3);
        const std::function<void()> changes[] = {
            [&] { page.rows[0].Refresh(); },
            [&] { page.strName = QStringLiteral("Name"), page.rows[0].Refresh(); },
            [&] { page.iBrightness = 7, page.view.Page().Refresh(); },
            [&] { page.rows[1].Label(QStringLiteral("Light\nof it")).Suffix(QStringLiteral(" lm")); },
            [&] { page.rows[1].Reset(), page.bOpen = false, page.view.Page().Refresh(); },
            [&] { page.view.SetLabelColumn(30); },
            [&] { page.view.SetLabelColumn(60); },
            [&] { page.view.SetCurrentRow(page.rows[2]); },
            [&] { page.view.SetFilter(QStringLiteral("g")); },
            [&] { page.view.SetFilter(QStringLiteral("g o")); }, // leaves the same rows
            [&] { page.view.setFont(large); },
            [&] { page.view.setLayoutDirection(Qt::RightToLeft); },
        };
        for (const auto& change : changes)
        {
            change();
            TestSupport::WaitUntil([&] { return IsPainted(page.view); });
            QVERIFY2(IsPainted(page.view), QByteArray::number(int(&change - changes)));
        }
    }

    void Words_data()
    {
        const char* const cases[][3] = {
            {"none", " ", "NBOR"},
            {"label", "RIGHT", "B"},
            {"value", "corner", "N"},
            {"value with its unit", "40 %", "B"},
            {"tip", "plan", "N"},
            {"title", "door", "OR"},
            {"words in different places", "ring door", "R"},
            {"not only ASCII", "öff", "O"},
            {"not across places", "namereading", ""},
            {"one of two", "lamp bell", ""},
            {"a letter before the word", "lllll", ""},
        };
        TestSupport::Columns<QString, QString>("words", "shown");
        for (const auto& row : cases)
        {
            QTest::newRow(row[0]) << row[1] << row[2];
        }
    }

    void Words()
    {
        QFETCH(QString, words);
        sPage page;
        page.view.SetFilter(words);
        QTEST(page.Shown(), "shown");
        page.view.SetFilter(QString());
        QCOMPARE(page.Shown(), QStringLiteral("NBOR"));
    }

    void TypedInTheLine()
    {
        sPage page;
        QVERIFY(TestSupport::ShowWindow(&page.view));
        page.view.SetCurrentRow(page.rows[1]);
        page.view.setFocus();
        page.Key(Qt::Key_F, Qt::ControlModifier);
        page.Type("bri");
        QVERIFY(TestSupport::WaitUntil([&page] { return page.Shown() == QLatin1String("B"); }));
        page.Key(Qt::Key_Down);
        page.Type("7");
        page.Key(Qt::Key_Return);
        QCOMPARE(page.iBrightness, 7);
        page.Key(Qt::Key_Escape);
        QVERIFY(!page.view.IsFilterVisible());
        QCOMPARE(page.Shown(), QStringLiteral("NBOR"));
        QVERIFY(page.view.CurrentRow() == page.rows[1]);
    }

    /// Neither the value that is edited nor the rows of a new page stay or go otherwise than the words tell.
    void RowsComeAndGo()
    {
        sPage page;
        const int iX = page.view.ValueRect(page.rows[0]).x();
        page.view.SetFilter(QStringLiteral("corner"));
        page.strName = QStringLiteral("Hall");
        page.view.Page().Refresh();
        page.view.SetFilter(QStringLiteral("corner read"));
        QCOMPARE(page.Shown(), QStringLiteral("N")); // as when the filter began
        CPropertyRow other =
            page.view.Page().AddGroup(QString()).Add(QStringLiteral("Other"), [] { return QString("corner reader"); });
        QVERIFY(TestSupport::ShowWindow(&page.view));
        QVERIFY(TestSupport::WaitUntil([&] { return page.IsShown(other) && page.Shown().isEmpty(); }));
        QCOMPARE(page.view.ValueRect(other).x(), iX); // the label column is all labels'
    }

    void OnlyModified()
    {
        sPage page;
        page.view.Page().SetModifiedAgainst(CPropertyPage::eFirstValues);
        page.view.Page().Write(page.rows[0].Property(), QStringLiteral("other"));
        page.view.Page().Write(page.rows[2].Property(), false);
        page.view.SetOnlyModified(true);
        QCOMPARE(page.Shown(), QStringLiteral("NO"));
        page.view.SetFilter(QStringLiteral("lamp"));
        QCOMPARE(page.Shown(), QStringLiteral("N"));
        page.rows[0].Reset();
        QCOMPARE(page.Shown(), QStringLiteral("N"));
        page.view.SetFilter(QString());
        page.view.SetOnlyModified(false);
        page.view.SetOnlyModified(true);
        QCOMPARE(page.Shown(), QStringLiteral("O"));
        page.view.Page().SetModifiedAgainst(CPropertyPage::eNothing);
        QVERIFY(TestSupport::WaitUntil([&page] { return page.Shown().isEmpty(); }));
    }

    void FoldedGroupsOpen()
    {
        sPage page;
        CPropertyGroup folded = page.view.Page().AddGroup(QStringLiteral("More"));
        const CPropertyRow hidden = folded.Add(QStringLiteral("Hidden"), page.bOpen);
        folded.Expand(false);
        page.view.SetFilter(QStringLiteral("hid"));
        QVERIFY(page.IsShown(hidden));
        page.view.SetFilter(QString());
        QVERIFY(!page.IsShown(hidden));
    }

    void KeepsEditAndPlace()
    {
        sPage page;
        CPropertyGroup many = page.view.Page().AddGroup(QStringLiteral("Many"));
        QVector<CPropertyRow> rows;
        for (int i = 0; i < 100; ++i)
        {
            rows << many.Add(QStringLiteral("Row %1").arg(i), page.strName);
        }
        QVERIFY(TestSupport::ShowWindow(&page.view));
        page.view.SetCurrentRow(rows[99]);
        page.view.SetCurrentRow(rows[60]); // at the top
        page.view.setFocus();
        page.Key(Qt::Key_F2);
        page.Type("typed");
        const QPointer<QWidget> pEditor = QApplication::focusWidget();
        const int iY = page.view.ValueRect(rows[60]).y();
        page.view.SetFilter(QStringLiteral("row"));
        QCOMPARE(page.view.ValueRect(rows[60]).y(), iY);
        page.view.SetFilter(QStringLiteral("row 60"));
        QVERIFY(page.view.ValueRect(rows[60]).y() > iY); // its title is in sight
        QVERIFY(QApplication::focusWidget() == pEditor && page.strName == QLatin1String("Reading corner"));
        page.view.SetFilter(QStringLiteral("row 7"));
        QCOMPARE(page.strName, QStringLiteral("typed"));
        QVERIFY(page.view.CurrentRow() == rows[60]);
        page.Type("x"); // nothing that is left out is edited
        page.view.SetFilter(QString());
        QCOMPARE(page.view.ValueRect(rows[60]).y(), iY);
        page.view.TakeOver();
        QCOMPARE(page.strName, QStringLiteral("typed"));
    }

    void MarksWhatIsFound()
    {
        sPage page;
        page.view.SetFilter(QStringLiteral("am"));
        const QImage marked = TestSupport::Painted(&page.view);
        page.view.SetFilter(QStringLiteral("lan"));
        QVERIFY(page.Shown() == QLatin1String("N") && marked != TestSupport::Painted(&page.view));
    }

    void ReadingMayDestroy()
    {
        const auto pPage = std::make_unique<sPage>();
        auto* pView = new CPropertyView;
        pView->Page().AddGroup(QString()).Add(QStringLiteral("clears"), [&pPage] {
            pPage->view.Page().Clear();
            return 1;
        });
        pView->Page().AddGroup(QString()).Add(QStringLiteral("deletes"), [pView] {
            delete pView;
            return 1;
        });
        pPage->view.Page().AddGroup(QString()).Add(QStringLiteral("filters"), [pView] {
            pView->SetFilter(QStringLiteral("any"));
            return 1;
        });
        pPage->view.SetFilter(QStringLiteral("any"));
        QVERIFY(!pPage->rows[0]);
    }
};

INSPECTOR_TEST_MAIN(CFilterTest)
#include "filtertest.moc"
