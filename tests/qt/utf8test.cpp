#include "inspectortext.h"
#include "testsupport.h"

namespace
{
/// Keeps the texts that are drawn on it.
class CTextCatcher : public QImage, private QPaintEngine
{
public:
    CTextCatcher() : QImage(500, 500, Format_RGB32), QPaintEngine(AllFeatures) {}

    QPaintEngine* paintEngine() const override { return const_cast<CTextCatcher*>(this); }

    QString m_strDrawn;

private:
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawTextItem(const QPointF&, const QTextItem& in_item) override { m_strDrawn += in_item.text(); }
    Type type() const override { return User; }
};

/// How often a page draws a text.
int Drawn(CTestPage& io_page, const QString& in_strText)
{
    CTextCatcher catcher;
    io_page.m_pView->render(&catcher, QPoint(), QRegion(), QWidget::DrawChildren);
    return static_cast<int>(catcher.m_strDrawn.count(in_strText));
}
} // namespace

/// The switch is for the whole process, hence a program of its own.
class Utf8Test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::FailOnWarnings(); }
    void Texts();
};

void Utf8Test::Texts()
{
    // accents, Greek, Cyrillic, Chinese, Arabic, beyond 16 bits
    const std::string texts[] = {
        "d\xC3\xA9j\xC3\xA0",       "\xCF\x86\xCF\x8E\xCF\x82", "\xD1\x81\xD0\xB2\xD0\xB5\xD1\x82",
        "\xE7\x81\xAF\xE5\x85\x89", "\xD8\xB6\xD9\x88\xD8\xA1", "\xF0\x9F\x92\xA1"};
    for (const std::string& strBytes : texts)
    {
        const char* str = strBytes.c_str();
        const QString strText = QString::fromUtf8(str);
        CTestPage page;
        CInspectorView::sInspectorElement* pGroup = page.m_pView->AddGroup(str, nullptr);
        page.AddLine(str, strBytes, pGroup);
        page.Add<CQTSimpleTextWidget, CSimpleDataElement>(str, pGroup)->SetText(strBytes);
        page.Add<CQTStaticWidget, CStaticDataElement>("", pGroup)->m_strText = strBytes;
        page.Add<CQTButtonWidget, CButtonDataElement>("", pGroup)->m_strCaption = strBytes;
        CTestElement<CEnumDataElement>* pChoice = page.Add<CQTEnumDataWidget, CEnumDataElement>(str, pGroup);
        pChoice->CreateEnum();
        pChoice->AddEnum(str, str);
        pChoice->SetText(strBytes);
        QVERIFY(page.Open(320, 400));
        QCOMPARE(Drawn(page, strText), 9); // a title, three labels, five values
        page.m_pView->m_strMessage = strBytes;
        QCOMPARE(Drawn(page, strText), 6);

        QInputMethodEvent typed;
        typed.setCommitString(strText + strText);
        page.WidgetAt<CQTSimpleDataWidget>(0)->StartEditing();
        QApplication::sendEvent(CQTSimpleDataWidget::g_pInPlace, &typed);
        CQTSimpleDataWidget::g_pInPlace->OnFinishEditing();
        QTest::mouseClick(page.WidgetAt<QWidget>(4), Qt::LeftButton);
        QListWidgetItem* pShown = CQTEnumDataWidget::g_pInPlaceList->currentItem();
        QCOMPARE(pShown->text(), strText);
        pChoice->SetText("");
        CQTEnumDataWidget::g_pInPlaceList->OnItemClicked(pShown);
        const std::string strOnce = strBytes + "=" + strBytes;
        const std::string strEnd = strBytes + ":4";
        QCOMPARE(page.m_log.Text(),
                 TestSupport::Latin(strOnce + strBytes + " " + strEnd + " " + strOnce + " " + strEnd));
    }
}

int main(int in_iCount, char** in_pArguments)
{
    InspectorText::UseUtf8();
    QApplication application(in_iCount, in_pArguments);
    // Qt 4's usual ones etch a text by drawing it twice.
    QApplication::setStyle(QLatin1String(TestSupport::g_bQt4 ? "cleanlooks" : "fusion"));
    Utf8Test test;
    return QTest::qExec(&test, in_iCount, in_pArguments);
}

#include "utf8test.moc"
