#include "testsupport.h"

using TestSupport::ClickThroughWindow;
using TestSupport::Latin;
using TestSupport::Painted;
using TestSupport::Pixels;

class BoolAndTextTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::FailOnWarnings(); }
    void BoolToggles_data();
    void BoolToggles();
    void TextIsReported_data();
    void TextIsReported();
    void TextSurvivesRefresh();
    void ButtonTakesPressesWhereItIsPainted_data();
    void ButtonTakesPressesWhereItIsPainted();
};

void BoolAndTextTest::BoolToggles_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<QString>("log");
    QTest::newRow("first column") << 0 << int(Qt::LeftButton) << false << "flag=true";
    QTest::newRow("last column of the box") << 19 << int(Qt::LeftButton) << false << "flag=true";
    QTest::newRow("beside the box") << 20 << int(Qt::LeftButton) << false << "";
    QTest::newRow("right button") << 10 << int(Qt::RightButton) << false << "flag=true";
    QTest::newRow("read-only") << 10 << int(Qt::LeftButton) << true << "";
}

void BoolAndTextTest::BoolToggles()
{
    QFETCH(int, x);
    QFETCH(int, button);
    QFETCH(bool, readOnly);
    CTestPage page;
    page.Add<CQTSimpleBoolWidget, CBoolDataElement>("flag")->SetReadOnly(readOnly);
    QVERIFY(page.Open());
    ClickThroughWindow(page.WidgetAt<QWidget>(0), static_cast<Qt::MouseButton>(button), QPoint(x, 10));
    QTEST(page.m_log.Take(), "log");
}

void BoolAndTextTest::TextIsReported_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<QString>("log");
    QTest::newRow("typed") << "abc" << Latin("x") << false << "note=xabc";
    QTest::newRow("only looked at") << "abc" << Latin("") << false << "";
    QTest::newRow("tags, only looked at") << "<b>a</b> <i>b</i>" << Latin("") << false << "";
    QTest::newRow("tags, typed") << "<b>a</b>" << Latin("x") << false << "note=xa";
    QTest::newRow("other line ends, only looked at") << "a\r\nb" << Latin("") << false << "";
    QTest::newRow("read-only") << "abc" << Latin("x") << true << "";
}

void BoolAndTextTest::TextIsReported()
{
    QFETCH(QString, value);
    QFETCH(QString, keys);
    QFETCH(bool, readOnly);
    CTestPage page;
    CTestElement<CSimpleDataElement>* pNote = page.Add<CQTSimpleTextWidget, CSimpleDataElement>("note");
    pNote->SetText(value.toLatin1().constData());
    pNote->SetReadOnly(readOnly);
    QVERIFY(page.Open());
    CQTSimpleTextWidget* pText = page.WidgetAt<CQTSimpleTextWidget>(0);
    for (int i = 0; i < 2; ++i)
    {
        pText->setFocus();
        QTest::keyClicks(pText, i == 0 ? keys : QString()); // the second time nothing has changed
        pText->clearFocus();
    }
    QTEST(page.m_log.Take(), "log");
}

/// The text that the user is typing is kept, one that he only looks at follows the element; the same text
/// once more neither moves the cursor nor forgets what can be undone.
void BoolAndTextTest::TextSurvivesRefresh()
{
    CTestPage page;
    CTestElement<CSimpleDataElement>* pNote = page.Add<CQTSimpleTextWidget, CSimpleDataElement>("note");
    QVERIFY(page.Open());
    CQTSimpleTextWidget* pText = page.WidgetAt<CQTSimpleTextWidget>(0);
    pText->setFocus();
    pNote->SetText("abc");
    QCOMPARE(pText->toPlainText(), Latin("abc"));
    QTest::keyClick(pText, Qt::Key_End);
    QTest::keyClicks(pText, Latin("x"));
    pNote->SetText("elsewhere");
    QCOMPARE(pText->toPlainText(), Latin("abcx"));
    pText->clearFocus();
    QCOMPARE(page.m_log.Take(), Latin("note=abcx"));
    pNote->UpdateData();
    QCOMPARE(pText->textCursor().position(), 4);
    QVERIFY(pText->document()->isUndoAvailable());
    pNote->SetText("elsewhere");
    QCOMPARE(pText->toPlainText(), Latin("elsewhere"));

    pText->setFocus();
    QTest::keyClicks(pText, Latin("x"));
    pNote->SetText("newer");
    pText->undo();
    pText->clearFocus();
    QCOMPARE(page.m_log.Take(), QString()); // nothing typed is left that could replace the newer text
}

void BoolAndTextTest::ButtonTakesPressesWhereItIsPainted_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("narrow") << "Go" << true;
    QTest::newRow("wider than the widget") << "A caption that does not fit into the row" << true;
    QTest::newRow("disabled") << "Go" << false;
}

void BoolAndTextTest::ButtonTakesPressesWhereItIsPainted()
{
    QFETCH(QString, caption);
    QFETCH(bool, enabled);
    CTestPage page;
    CTestElement<CButtonDataElement>* pGo = page.Add<CQTButtonWidget, CButtonDataElement>("go");
    pGo->m_strCaption = caption.toLatin1().constData();
    pGo->m_bEnabled = enabled;
    CQTButtonWidget* pButton = page.WidgetAt<CQTButtonWidget>(0);
    QTest::mouseClick(pButton, Qt::LeftButton, Qt::NoModifier, pButton->rect().center());
    QCOMPARE(page.m_log.Take(), QString()); // nothing is painted yet
    QVERIFY(page.Open(160));

    const QRegion painted = Pixels(Painted(pButton));
    QCOMPARE(painted.boundingRect() == pButton->rect(), caption.size() > 2);
    for (int iX = 0; iX < pButton->width(); ++iX)
    {
        ClickThroughWindow(pButton, iX % 2 ? Qt::LeftButton : Qt::RightButton, QPoint(iX, 10));
        const bool bHit = enabled && painted.contains(QPoint(iX, 10));
        QCOMPARE(page.m_log.Take(), Latin(bHit ? "command:" : ""));
    }
}

INSPECTOR_TEST_MAIN(BoolAndTextTest)
#include "boolandtexttest.moc"
