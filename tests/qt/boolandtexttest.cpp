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
    void BoolToggles();
    void TextIsReported();
    void TextIsReportedOnce();
    void TextSurvivesRefresh();
    void ButtonTakesPressesWhereItIsPainted();
};

void BoolAndTextTest::BoolToggles()
{
    for (int iX : {0, 10, 19, 20}) // the box has 20 columns and takes any button
    {
        for (bool bReadOnly : {false, true})
        {
            CTestPage page;
            page.Add<CQTSimpleBoolWidget, CBoolDataElement>("flag")->SetReadOnly(bReadOnly);
            QVERIFY(page.Open());
            ClickThroughWindow(page.WidgetAt<QWidget>(0), iX == 10 ? Qt::RightButton : Qt::LeftButton, QPoint(iX, 10));
            QCOMPARE(page.m_log.Take(), Latin(iX < 20 && !bReadOnly ? "flag=true" : ""));
        }
    }
}

void BoolAndTextTest::TextIsReported()
{
    const struct
    {
        const char* m_strName;
        const char* m_strValue;
        const char* m_strKeys;
        bool m_bReadOnly;
        const char* m_strLog;
    } cases[] = {{"typed", "abc", "x", false, "note=xabc"},
                 {"typed with a Tab", "abc", "x\ty", false, "note=x\tyabc"},
                 {"only looked at", "abc", "", false, ""},
                 {"tags, only looked at", "<b>a</b> <i>b</i>", "", false, ""},
                 {"tags, typed", "<b>a</b>", "x", false, "note=xa"},
                 {"other line ends, only looked at", "a\r\nb", "", false, ""},
                 {"read-only", "abc", "x", true, ""}};
    for (const auto& row : cases)
    {
        CTestPage page;
        CTestElement<CSimpleDataElement>* pNote = page.Add<CQTSimpleTextWidget, CSimpleDataElement>("note");
        pNote->SetText(row.m_strValue);
        pNote->SetReadOnly(row.m_bReadOnly);
        QVERIFY(page.Open());
        QWidget* pText = page.WidgetAt<QWidget>(0);
        for (const char* strKeys : {row.m_strKeys, ""}) // the second time nothing has changed
        {
            pText->setFocus();
            QTest::keyClicks(pText, Latin(strKeys));
            pText->clearFocus();
        }
        QVERIFY2(page.m_log.Take() == Latin(row.m_strLog), row.m_strName);
    }
}

void BoolAndTextTest::TextIsReportedOnce()
{
    struct CCountingElement : CSimpleDataElement
    {
        using CSimpleDataElement::OnCtrlValueChange;
        void OnCtrlValueChange() override { ++m_iReports; }
        int m_iReports = 0;
    };
    CTestPage page;
    page.Add<CQTSimpleTextWidget, CSimpleDataElement>("other");
    auto* pElement = new CCountingElement;
    auto* pText = new CQTSimpleTextWidget;
    page.m_pController->AddItem(pElement, pText, nullptr);
    page.m_pView->AddElement(pElement, pText, "text", nullptr, nullptr);
    QVERIFY(page.Open());
    pText->setFocus();
    QTest::keyClick(pText, Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(!pText->hasFocus());
    QCOMPARE(pElement->m_iReports, 1);
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

void BoolAndTextTest::ButtonTakesPressesWhereItIsPainted()
{
    for (const char* strCaption : {"Go", "A caption that does not fit into the row", "disabled"})
    {
        CTestPage page;
        CTestElement<CButtonDataElement>* pGo = page.Add<CQTButtonWidget, CButtonDataElement>("go");
        pGo->m_strCaption = strCaption;
        pGo->m_bEnabled = pGo->m_strCaption != "disabled";
        CQTButtonWidget* pButton = page.WidgetAt<CQTButtonWidget>(0);
        QTest::mouseClick(pButton, Qt::LeftButton, Qt::NoModifier, pButton->rect().center());
        QCOMPARE(page.m_log.Take(), QString()); // nothing is painted yet
        QVERIFY(page.Open(160));
        const QRegion painted = Pixels(Painted(pButton));
        QCOMPARE(painted.boundingRect() == pButton->rect(), pGo->m_strCaption.size() > 20);
        for (int iX = 0; iX < pButton->width(); ++iX)
        {
            ClickThroughWindow(pButton, iX % 2 ? Qt::LeftButton : Qt::RightButton, QPoint(iX, 10));
            const bool bHit = pGo->m_bEnabled && painted.contains(QPoint(iX, 10));
            QCOMPARE(page.m_log.Take(), Latin(bHit ? "command:" : ""));
        }
    }
}

INSPECTOR_TEST_MAIN(BoolAndTextTest)
#include "boolandtexttest.moc"
