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
    void drawPolygon(const QPoint*, int, PolygonDrawMode) override {}
    void drawTextItem(const QPointF&, const QTextItem& in_item) override { m_strDrawn += in_item.text(); }
    Type type() const override { return User; }
};
} // namespace

/// The switch is for the whole process, hence a program of its own.
class Utf8Test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::FailOnWarnings(); }
    void Texts_data();
    void Texts();
};

void Utf8Test::Texts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("accents") << QByteArray("d\xC3\xA9j\xC3\xA0");
    QTest::newRow("Greek") << QByteArray("\xCF\x86\xCF\x8E\xCF\x82");
    QTest::newRow("Cyrillic") << QByteArray("\xD1\x81\xD0\xB2\xD0\xB5\xD1\x82");
    QTest::newRow("Chinese") << QByteArray("\xE7\x81\xAF\xE5\x85\x89");
    QTest::newRow("Arabic") << QByteArray("\xD8\xB6\xD9\x88\xD8\xA1");
    QTest::newRow("beyond 16 bits") << QByteArray("\xF0\x9F\x92\xA1");
}

void Utf8Test::Texts()
{
    QFETCH(QByteArray, text);
    const QString strText = QString::fromUtf8(text.constData());
    CTestPage page;
    CInspectorView::sInspectorElement* pGroup = page.m_pView->AddGroup(text.constData(), nullptr);
    page.Add<CQTSimpleDataWidget, CSimpleDataElement>(text.constData(), pGroup)->SetText(text.constData());
    page.Add<CQTSimpleTextWidget, CSimpleDataElement>(text.constData(), pGroup)->SetText(text.constData());
    page.Add<CQTStaticWidget, CStaticDataElement>("", pGroup)->m_strText = text.constData();
    page.Add<CQTButtonWidget, CButtonDataElement>("", pGroup)->m_strCaption = text.constData();
    CTestElement<CEnumDataElement>* pChoice = page.Add<CQTEnumDataWidget, CEnumDataElement>(text.constData(), pGroup);
    pChoice->CreateEnum();
    pChoice->AddEnum(text.constData(), text.constData());
    pChoice->SetText(text.constData());
    QVERIFY(page.Open(320, 400));
    const auto drawn = [&page, &strText] {
        CTextCatcher catcher;
        page.m_pView->render(&catcher, QPoint(), QRegion(), QWidget::DrawChildren);
        return catcher.m_strDrawn.count(strText);
    };
    QCOMPARE(int(drawn()), 9); // a title, three labels, five values
    page.m_pView->m_strMessage = text.constData();
    QCOMPARE(int(drawn()), 6);

    QTest::mouseClick(page.WidgetAt<QWidget>(0), Qt::LeftButton);
    QCOMPARE(CQTSimpleDataWidget::g_pInPlace->text(), strText);
    QInputMethodEvent typed;
    typed.setCommitString(strText + strText);
    QApplication::sendEvent(CQTSimpleDataWidget::g_pInPlace, &typed);
    QTest::keyClick(CQTSimpleDataWidget::g_pInPlace, Qt::Key_Return);
    page.WidgetAt<QWidget>(1)->setFocus();
    QApplication::sendEvent(page.WidgetAt<QWidget>(1), &typed);
    page.WidgetAt<QWidget>(1)->clearFocus();
    QTest::mouseClick(page.WidgetAt<QWidget>(4), Qt::LeftButton);
    QCOMPARE(CQTEnumDataWidget::g_pInPlaceList->currentItem()->text(), strText);
    pChoice->SetText("");
    CQTEnumDataWidget::g_pInPlaceList->OnItemClicked(CQTEnumDataWidget::g_pInPlaceList->currentItem());
    const QByteArray once = text + "=" + text;
    const QByteArray log = once + text + " " + text + ":1 " + once + text + text + " " + once + " " + text + ":4";
    QCOMPARE(page.m_log.Text().toLatin1(), log);
}

int main(int in_iCount, char** in_pArguments)
{
    InspectorText::UseUtf8();
    QApplication application(in_iCount, in_pArguments);
    Utf8Test test;
    return QTest::qExec(&test, in_iCount, in_pArguments);
}

#include "utf8test.moc"
