#include "testsupport.h"

using TestSupport::ClickThroughWindow;
using TestSupport::Latin;
using TestSupport::Painted;

class InspectorViewTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::FailOnWarnings(); }
    void Sizes();
    void EnsureVisibleScrolls();
    void AreasAroundScroll();
    void WheelScrolls();
    void RightButton();
    void MirroredValuesAreWhole();
    void ScreenFollowsValues();
    void ScrolledViewShowsAPartOfTheTall();
    void LabelsAreMeasuredAnew();
    void TextsLookAsQtDrawsThem();
    void FrameAndTitle();
    void AddedRowsAppear();
};

namespace
{
/// Notes what it gets.
struct CNotingRow : CQTStaticWidget
{
    bool event(QEvent* in_pEvent) override
    {
        m_types << in_pEvent->type();
        if (m_bDies && in_pEvent->type() == QEvent::MouseButtonPress)
        {
            delete this;
            return true;
        }
        return CQTStaticWidget::event(in_pEvent);
    }

    QList<int> m_types;
    bool m_bDies = false; ///< of a press
};

/// What the user sees of a page; first everything is painted again if asked for.
QImage OnScreen(CTestPage& io_page, bool in_bPaintAgain = false)
{
    QTest::qWait(1);
    in_bPaintAgain ? io_page.m_window.repaint() : void();
    return TestSupport::Grabbed(io_page.m_window);
}
} // namespace

void InspectorViewTest::Sizes()
{
    const struct
    {
        const char* m_strName;
        int m_iRows, m_iHeight, m_iViewHeight;
        int m_iMaximum; ///< of the scroll bar, 0 while it is hidden
    } cases[] = {{"as tall as the content", 4, -1, 110, 0},
                 {"as tall as nothing", 0, -1, 10, 0},
                 {"content fits exactly", 4, 110, 110, 0},
                 {"content is one pixel too tall", 4, 109, 109, 1}};
    for (const auto& row : cases)
    {
        CTestPage page;
        for (int i = 0; i < row.m_iRows; ++i)
        {
            page.AddLine("row", "");
        }
        QVERIFY(page.Open(200, 50));
        CTestView& view = *page.m_pView;
        view.ScrollTo(10);
        QCOMPARE(view.m_iOffsetY, row.m_iRows ? 10 : 0);
        view.ResizeInspector(300, row.m_iHeight);
        QVERIFY2(view.size() == QSize(300, row.m_iViewHeight), row.m_strName);
        QVERIFY2(view.m_pContentWidget->size() == QSize(280, row.m_iViewHeight), row.m_strName);
        QVERIFY2(view.m_pScrollBar->isVisible() == (row.m_iMaximum > 0), row.m_strName);
        QVERIFY2(view.m_iOffsetY == row.m_iMaximum, row.m_strName);
        view.ScrollTo(1000);
        QVERIFY2(view.m_iOffsetY == row.m_iMaximum, row.m_strName);
    }
}

void InspectorViewTest::EnsureVisibleScrolls()
{
    const struct
    {
        const char* m_strName;
        int m_iStart;
        int m_iRow; ///< of 5 rows of 20 pixels, then 2 of 100; -1: one that is not in the view
        int m_iValue;
    } cases[] = {{"in sight", 20, 2, 20},
                 {"at both edges", 55, 2, 55},
                 {"cut off below", 0, 3, 20},
                 {"cut off above", 70, 2, 55},
                 {"taller than the view, below", 0, 5, 150},
                 {"taller than the view, begins inside", 120, 5, 150},
                 {"taller than the view, begins above", 180, 5, 130},
                 {"not in the view", 42, -1, 42}};
    CTestPage page;
    for (int i = 0; i < 7; ++i)
    {
        i < 5 ? page.AddLine("row", "") : page.Add<CQTSimpleTextWidget, CSimpleDataElement>("text");
    }
    QVERIFY(page.Open(200, 80));
    const QScrollBar& bar = *page.m_pView->m_pScrollBar;
    CQTSimpleBoolWidget stranger;
    for (const auto& row : cases)
    {
        page.m_pView->m_pScrollBar->setValue(row.m_iStart);
        page.m_pView->EnsureVisible(row.m_iRow < 0 ? &stranger : page.WidgetAt<CInspectorDataWidget>(row.m_iRow));
        QVERIFY2(bar.value() == row.m_iValue, row.m_strName);
        QCOMPARE(page.WidgetAt<QWidget>(2)->y(), 55 - bar.value());
    }
}

/// Below something else in an area that is in another one.
void InspectorViewTest::AreasAroundScroll()
{
    CTestPage page;
    for (int i = 0; i < 9; ++i)
    {
        page.AddLine("row", "");
    }
    QScrollArea outer(&page.m_window);
    QScrollArea* pArea = new QScrollArea;
    QWidget* pContent = new QWidget;
    page.m_pView->setParent(pContent);
    page.m_pView->move(0, 70);
    outer.setGeometry(0, 0, 230, 60);
    pArea->resize(200, 150);
    pContent->resize(180, 400);
    pArea->setWidget(pContent);
    outer.setWidget(pArea);
    const int heights[] = {-1, 100};
    for (const int iHeight : heights)
    {
        QVERIFY(page.Open(180, iHeight));
        const int rows[] = {8, 0, 4, 3, 7};
        for (const int iRow : rows)
        {
            QWidget* pRow = page.WidgetAt<QWidget>(iRow);
            page.m_pView->EnsureVisible(page.WidgetAt<CInspectorDataWidget>(iRow));
            QCOMPARE(pRow->visibleRegion().boundingRect(), pRow->rect());
        }
    }
}

void InspectorViewTest::WheelScrolls()
{
    // a label, a line, a bool, inside the application's widget, a text
    const QPoint positions[] = {QPoint(8, 15), QPoint(90, 15), QPoint(90, 40), QPoint(60, 65), QPoint(90, 100)};
    CTestPage page;
    page.AddLine("line", "");
    page.Add<CQTSimpleBoolWidget, CBoolDataElement>("bool");
    page.Add<CQTStaticWidget, CStaticDataElement>("nested");
    page.Add<CQTSimpleTextWidget, CSimpleDataElement>("text")->SetText("1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n");
    (new QSpinBox(page.WidgetAt<QWidget>(2)))->show();
    for (const QPoint& position : positions)
    {
        QVERIFY(page.Open(200, 150));
        page.m_pView->m_pScrollBar->setValue(0);
        TestSupport::TurnWheel(&page.m_window); // beside the view
        QCOMPARE(page.m_pView->m_pScrollBar->value(), 0);
        QWidget* pAim = page.m_window.childAt(position);
        QVERIFY(TestSupport::TurnWheel(pAim));
        QVERIFY(page.m_pView->m_pScrollBar->value() >= 25); // a row and more
        page.m_pView->m_pScrollBar->setValue(page.m_pView->m_pScrollBar->maximum());
        QVERIFY(!TestSupport::TurnWheel(page.m_window.childAt(position))); // left to what is around the view
        page.m_pView->ResizeInspector(200, -1);
        QVERIFY(!TestSupport::TurnWheel(pAim));
    }
}

void InspectorViewTest::MirroredValuesAreWhole()
{
    CTestPage page;
    page.AddLine("size", "20");
    QVERIFY(page.Open());
    QWidget* pLine = page.WidgetAt<QWidget>(0);
    int columns[2] = {}; // with ink; how much of each is inked depends on where between two pixels a letter begins
    for (int iMirrored : {0, 1})
    {
        QApplication::setLayoutDirection(iMirrored ? Qt::RightToLeft : Qt::LeftToRight); // a picture's is this one
        const QImage image = TestSupport::Painted(pLine);
        for (int iX = 0; iX < image.width(); ++iX)
        {
            bool bInk = false;
            for (int iY = 0; iY < image.height(); ++iY)
            {
                bInk = bInk || image.pixel(iX, iY) != image.pixel(image.width() / 2, 1);
            }
            columns[iMirrored] += bInk;
        }
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QVERIFY(columns[0] > 0);
    QVERIFY2(qAbs(columns[1] - columns[0]) <= 1, qPrintable(QString::number(columns[1] - columns[0])));
}

/// What the right button does on a row reaches it whole; none of it while another widget has the mouse.
void InspectorViewTest::RightButton()
{
    CTestPage page;
    page.Add<CNotingRow, CStaticDataElement>("row");
    QVERIFY(page.Open());
    CNotingRow* pRow = page.WidgetAt<CNotingRow>(0);
    pRow->setFocusPolicy(Qt::ClickFocus);
    ClickThroughWindow(&page.m_window, Qt::LeftButton, QPoint(9, 390), QTest::MousePress);
    ClickThroughWindow(pRow, Qt::RightButton, QPoint(9, 9));
    ClickThroughWindow(&page.m_window, Qt::LeftButton, QPoint(9, 390), QTest::MouseRelease);
    QVERIFY(!pRow->m_types.contains(QEvent::MouseButtonPress) || TestSupport::g_bQt4); // which gets it sent to the row
    ClickThroughWindow(pRow, Qt::RightButton, QPoint(9, 9), QTest::MousePress);
    ClickThroughWindow(pRow, Qt::NoButton, QPoint(30, 9), QTest::MouseMove);
    ClickThroughWindow(pRow, Qt::RightButton, QPoint(30, 9), QTest::MouseRelease);
    QVERIFY(pRow->m_types.contains(QEvent::MouseMove) || TestSupport::g_bQt4); // which moves the cursor only
    QVERIFY(pRow->m_types.contains(QEvent::MouseButtonRelease));
    QVERIFY(pRow->m_types.contains(QEvent::MouseButtonPress) && pRow->hasFocus());
    (new QWidget(pRow))->show(); // passes the press on to the row
    pRow->m_bDies = true;
    ClickThroughWindow(pRow, Qt::RightButton, QPoint(9, 9));
    QVERIFY(!page.WidgetAt<QWidget>(0));
}

void InspectorViewTest::ScreenFollowsValues()
{
    CTestPage page;
    std::vector<CTestElement<CSimpleDataElement>*> lines;
    for (int i = 0; i < 12; ++i)
    {
        lines.push_back(page.AddLine("line", ""));
        page.WidgetAt<QWidget>(i)->setAutoFillBackground(i % 6 == 1); // not painted with what is around it
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
        QImage after;
        QVERIFY(TestSupport::WaitUntil([&] {
            after = OnScreen(page);
            return after != before && after.copy(0, 5, 180, 20) == after.copy(0, 30, 180, 20);
        }));
        QVERIFY(after == OnScreen(page, true));
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
        i % 3 == 2 ? page.m_pView->AddGroup("empty", pGroup) : nullptr; // its title hangs out of the group
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

/// Not as they were with another font.
void InspectorViewTest::TextsLookAsQtDrawsThem()
{
    const char* const texts[] = {"fits", "two\nlines", "tab\tkey", "AV far too long for the place it has \xe9"};
    CTestView view;
    view.resize(90, 20);
    for (int i = 0; i < 120; ++i)
    {
        QFont font = view.font();
        font.setPixelSize(9 + i % 3 * 5);
        font.setItalic(i % 2);
        view.setFont(font);
        QApplication::setLayoutDirection(i % 5 ? Qt::LeftToRight : Qt::RightToLeft);
        view.m_strMessage = texts[i % 4];
        QImage expected(view.size(), QImage::Format_RGB32);
        expected.fill(TestSupport::g_untouched);
        QPainter painter(&expected);
        painter.setFont(font);
        TestSupport::g_bQt4 ? painter.setLayoutDirection(view.layoutDirection()) : void(); // not so on an image
        painter.drawText(expected.rect(), Qt::AlignLeft | Qt::AlignVCenter, Latin(view.m_strMessage));
        painter.end();
        QVERIFY2(Painted(&view) == expected, texts[i % 4]);
    }
}

/// The frame runs through the middle of the title, behind it; only where the content is shown, and not in preview.
void InspectorViewTest::FrameAndTitle()
{
    CTestPage page;
    CTestView& view = *page.m_pView;
    QPalette palette(Qt::green);
    palette.setColor(QPalette::WindowText, QColor(175, 0, 0));
    view.setPalette(palette);
    page.AddLine("", "", view.AddGroup(" ", nullptr));
    for (int iState = 0; iState < 4; ++iState)
    {
        view.m_strMessage = iState == 1 ? "-" : "";
        view.ShowContent(iState != 2, false);
        page.m_pController->SetPreviewMode(iState == 3);
        QVERIFY(page.Open(200, 100));
        const QImage image = Painted(&view);
        const QRegion frame = QBitmap::fromImage(image.createMaskFromColor(qRgb(100, 0, 0), Qt::MaskOutColor));
        QCOMPARE(frame.isEmpty(), iState != 0);
        QVERIFY(iState || (frame.contains(QPoint(100, 12)) && !frame.contains(QPoint(11, 12))));
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
