#include "testsupport.h"

using TestSupport::Latin;
using TestSupport::Painted;
using TestSupport::Pixels;

class InspectorViewTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::FailOnWarnings(); }
    void Sizes_data();
    void Sizes();
    void EnsureVisibleScrolls_data();
    void EnsureVisibleScrolls();
    void WheelScrolls_data();
    void WheelScrolls();
    void Paints_data();
    void Paints();
    void ScreenFollowsValues();
    void ScrolledViewShowsAPartOfTheTall();
    void LabelsAreMeasuredAnew();
    void AddedRowsAppear();
};

namespace
{
/// What the user sees of a page; first everything is painted again if asked for.
QImage OnScreen(CTestPage& io_page, bool in_bPaintAgain = false)
{
    QTest::qWait(1);
    in_bPaintAgain ? io_page.m_window.repaint() : void();
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return io_page.m_window.windowHandle()->screen()->grabWindow(io_page.m_window.winId()).toImage();
#else
    return QPixmap::grabWindow(io_page.m_window.winId()).toImage();
#endif
}
} // namespace

void InspectorViewTest::Sizes_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("viewHeight");
    QTest::addColumn<int>("maximum"); // of the scroll bar, 0 while it is hidden
    QTest::newRow("as tall as the content") << 4 << -1 << 110 << 0;
    QTest::newRow("as tall as nothing") << 0 << -1 << 10 << 0;
    QTest::newRow("content fits exactly") << 4 << 110 << 110 << 0;
    QTest::newRow("content is one pixel too tall") << 4 << 109 << 109 << 1;
}

void InspectorViewTest::Sizes()
{
    QFETCH(int, rows);
    QFETCH(int, height);
    QFETCH(int, viewHeight);
    QFETCH(int, maximum);
    CTestPage page;
    for (int i = 0; i < rows; ++i)
    {
        page.AddLine("row", "");
    }
    QVERIFY(page.Open(200, 50));
    CTestView& view = *page.m_pView;
    view.m_pScrollBar->setValue(10);
    view.ResizeInspector(300, height);
    QCOMPARE(view.size(), QSize(300, viewHeight));
    QCOMPARE(view.m_pContentWidget->geometry(), QRect(0, 0, 280, viewHeight));
    QCOMPARE(view.m_pScrollBar->isVisible(), maximum > 0);
    QCOMPARE(view.m_iOffsetY, maximum);
    QCOMPARE(view.m_pScrollBar->value(), maximum);
}

void InspectorViewTest::EnsureVisibleScrolls_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("row"); // of 5 rows of 20 pixels, then 2 of 100; -1: one that is not in the view
    QTest::addColumn<int>("value");
    QTest::newRow("in sight") << 20 << 2 << 20;
    QTest::newRow("at both edges") << 55 << 2 << 55;
    QTest::newRow("cut off below") << 0 << 3 << 20;
    QTest::newRow("cut off above") << 70 << 2 << 55;
    QTest::newRow("taller than the view, below") << 0 << 5 << 150;
    QTest::newRow("taller than the view, begins inside") << 120 << 5 << 150;
    QTest::newRow("taller than the view, begins above") << 180 << 5 << 130;
    QTest::newRow("not in the view") << 42 << -1 << 42;
}

void InspectorViewTest::EnsureVisibleScrolls()
{
    QFETCH(int, start);
    QFETCH(int, row);
    CTestPage page;
    for (int i = 0; i < 5; ++i)
    {
        page.AddLine("row", "");
    }
    page.Add<CQTSimpleTextWidget, CSimpleDataElement>("text");
    page.Add<CQTSimpleTextWidget, CSimpleDataElement>("text");
    QVERIFY(page.Open(200, 80));
    CTestView& view = *page.m_pView;
    view.m_pScrollBar->setValue(start);
    CQTSimpleBoolWidget stranger;
    view.EnsureVisible(row < 0 ? &stranger : page.WidgetAt<CInspectorDataWidget>(row));
    QTEST(view.m_pScrollBar->value(), "value");
    QCOMPARE(page.WidgetAt<QWidget>(2)->y(), 55 - view.m_pScrollBar->value());
}

void InspectorViewTest::WheelScrolls_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::newRow("label") << QPoint(8, 15);
    QTest::newRow("line") << QPoint(90, 15);
    QTest::newRow("bool") << QPoint(90, 40);
    QTest::newRow("inside the application's widget") << QPoint(60, 65);
    QTest::newRow("text") << QPoint(90, 100);
}

void InspectorViewTest::WheelScrolls()
{
    QFETCH(QPoint, position);
    CTestPage page;
    page.AddLine("line", "");
    page.Add<CQTSimpleBoolWidget, CBoolDataElement>("bool");
    page.Add<CQTStaticWidget, CStaticDataElement>("nested");
    page.Add<CQTSimpleTextWidget, CSimpleDataElement>("text")->SetText("1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n");
    (new QSpinBox(page.WidgetAt<QWidget>(2)))->show();
    QVERIFY(page.Open(200, 150));
    QWidget* pAim = page.m_window.childAt(position);
    QVERIFY(TestSupport::TurnWheel(pAim));
    QVERIFY(page.m_pView->m_pScrollBar->value() >= 25); // a row and more
    page.m_pView->ResizeInspector(200, -1);
    QVERIFY(!TestSupport::TurnWheel(pAim)); // left to what is around the view
}

void InspectorViewTest::Paints_data()
{
    QTest::addColumn<int>("frame"); // the y of the frame's upper edge, -1: none
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("message");
    QTest::newRow("untitled group") << 5 << Latin("|") << "";
    QTest::newRow("title, frame through its middle") << 12 << Latin("|") << "";
    QTest::newRow("preview") << -1 << Latin("|=") << "";
    QTest::newRow("hidden content") << -1 << Latin("") << "";
    QTest::newRow("message") << -1 << Latin("") << "|||";
}

void InspectorViewTest::Paints()
{
    const QByteArray state(QTest::currentDataTag());
    QFETCH(QString, label);
    QFETCH(QString, message);
    CTestPage page;
    CTestView& view = *page.m_pView;
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::red);
    view.setPalette(palette);
    QFont font = view.font();
    font.setStyleStrategy(QFont::NoAntialias);
    view.setFont(font);
    view.m_messageColor = Qt::blue;
    view.m_strMessage = state == "message" ? "|||" : "";
    page.m_pController->SetPreviewMode(state == "preview");
    CInspectorView::sInspectorElement* pGroup = view.AddGroup(state == "untitled group" ? "" : "Group", nullptr);
    page.Add<CQTSimpleBoolWidget, CBoolDataElement>("|", pGroup);
    QVERIFY(page.Open(200, 100));
    view.ShowContent(state != "hidden content", false);

    const QImage image = Painted(&view);
    const QRegion frame = Pixels(image, QColor(Qt::red).darker(175).rgb()) & QRect(0, 0, 200, 30);
    QTEST(frame.isEmpty() ? -1 : frame.boundingRect().top(), "frame");
    const int iTitleWidth = QFontMetrics(font).boundingRect(Latin("Group")).width();
    QVERIFY(state == "untitled group" || !frame.intersects(QRect(11, 0, iTitleWidth - 2, 20)));
    const QWidget* pControl = page.WidgetAt<QWidget>(0);
    const QRegion labels = Pixels(image, qRgb(255, 0, 0)) & QRect(0, pControl->y(), pControl->x(), 20);
    QVERIFY(qAbs(labels.boundingRect().width() - QFontMetrics(font).boundingRect(label).width()) <= 1);
    QVERIFY(label.isEmpty() || qAbs(labels.boundingRect().center().y() - pControl->geometry().center().y()) <= 2);
    const QRect ink = Pixels(image, qRgb(0, 0, 255)).boundingRect();
    QVERIFY(qAbs(ink.width() - QFontMetrics(font).boundingRect(message).width()) <= 1);
    QVERIFY(ink.isEmpty() || qAbs(ink.center().y() - 50) <= 2);
}

void InspectorViewTest::ScreenFollowsValues()
{
    CTestPage page;
    std::vector<CTestElement<CSimpleDataElement>*> lines;
    for (int i = 0; i < 12; ++i)
    {
        lines.push_back(page.AddLine("line", ""));
    }
    QVERIFY(page.Open(200, 150));
    for (int iValue = 1; iValue < 4; ++iValue)
    {
        const QImage before = OnScreen(page);
        const auto setAll = [&lines, iValue] {
            for (CTestElement<CSimpleDataElement>* pLine : lines)
            {
                pLine->SetText(std::to_string(iValue));
            }
        };
        page.m_log.m_hooks[eHandleItem] = setAll;
        iValue == 2 ? page.m_pController->DirtifyItem(page.m_pController->m_items.front(), nullptr) : setAll();
        page.m_pView->m_pScrollBar->setValue(iValue == 3 ? 150 : 0); // to lines that were out of sight
        const QImage after = OnScreen(page);
        QVERIFY(after != before && after == OnScreen(page, true));
    }
}

void InspectorViewTest::ScrolledViewShowsAPartOfTheTall()
{
    CTestPage page;
    CInspectorView::sInspectorElement* pGroup = nullptr;
    for (int i = 0; i < 24; ++i)
    {
        pGroup = i % 3 ? pGroup : page.m_pView->AddGroup("group", i % 2 ? pGroup : nullptr);
        page.Add<CQTStaticWidget, CStaticDataElement>("static", pGroup)->m_strText = std::to_string(i);
    }
    QVERIFY(page.Open(200, -1));
    const QImage tall = Painted(page.m_pView);
    page.m_pView->ResizeInspector(200, 61);
    for (int iValue = 0; iValue < page.m_pView->m_pScrollBar->maximum(); iValue += 7)
    {
        page.m_pView->m_pScrollBar->setValue(iValue);
        QVERIFY(Painted(page.m_pView).copy(0, 0, 180, 61) == tall.copy(0, iValue, 180, 61));
    }
}

void InspectorViewTest::LabelsAreMeasuredAnew()
{
    CTestPage page;
    CInspectorView::sInspectorElement row;
    for (int iPixels = 20; iPixels < 80; ++iPixels)
    {
        QFont font = page.m_pView->font();
        font.setPixelSize(iPixels / 4);
        page.m_pView->setFont(font);
        page.m_pController->SetPreviewMode(iPixels % 2 != 0);
        row.name = iPixels % 3 ? "label" : "another";
        const QString strText = Latin(row.name + (iPixels % 2 ? "=" : ""));
        const int iWidth = QFontMetrics(font).boundingRect(QRect(), 0, strText).width();
        QCOMPARE(page.m_pView->GetElementLabelWidth(&row), iWidth + 2);
    }
}

/// The rows of a new page appear at the layout, or the paint, that comes first; a row more disturbs nobody.
void InspectorViewTest::AddedRowsAppear()
{
    for (int iWay = 0; iWay < 2; ++iWay)
    {
        CTestPage page;
        QVERIFY(page.Open());
        page.Add<CQTSimpleTextWidget, CSimpleDataElement>("text");
        QWidget* pText = page.WidgetAt<QWidget>(0);
        pText->setFocus();
        iWay ? page.m_pView->RecomputeLayout() : void();
        QVERIFY(TestSupport::WaitUntil([pText] { return pText->isVisible() && pText->hasFocus(); }));
        const QImage image = OnScreen(page);
        QVERIFY(image == OnScreen(page, true));
        page.AddLine("line", "");
        QVERIFY(pText->isVisible() && pText->hasFocus());
        page.m_pView->RecomputeLayout();
        page.WidgetAt<CQTSimpleDataWidget>(1)->StartEditing();
        page.AddLine("line", "");
        page.m_pView->RecomputeLayout();
        QTest::qWait(1);
        QVERIFY(CQTSimpleDataWidget::g_pInPlace->isVisible());
    }
}

INSPECTOR_TEST_MAIN(InspectorViewTest)
#include "inspectorviewtest.moc"
