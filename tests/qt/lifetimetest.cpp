#include "livepage.h"

#include <climits>
#include <iostream>
#include <numeric>

using TestSupport::Latin;

namespace
{
const char* const g_places[] = {"InternalValueChanged",
                                "OnEndEditing",
                                "Connect",
                                "Disconnect",
                                "data destructor",
                                "element destructor",
                                "widget destructor",
                                "notice destructor",
                                "HandleDirtyItem",
                                "HandleDirtyController",
                                "CallCommand",
                                "MoveWidget",
                                "paint"};

std::shared_ptr<CInPlaceList> g_pHeld; ///< lives longer than the application object

/// Every measure that an application can give.
struct CMeasuredView : CTestView
{
    explicit CMeasuredView(int in_iMeasure) : m_iMeasure(in_iMeasure) {}

    int GetElementLabelWidth(sInspectorElement*) override { return m_iMeasure; }
    int GetGroupLeftMargin() override { return m_iMeasure; }
    int GetGroupLabelHeight() override { return m_iMeasure; }
    int GetHeightBetweenControl() override { return m_iMeasure; }

    int m_iMeasure;
};
} // namespace

class LifetimeTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::FailOnWarnings(); }
    void cleanupTestCase();
    void Survives_data();
    void Survives();
    void DestructionInEveryOrder();
    void AnyNumber();
    void AnyText();

private:
    std::string RunCell(int in_iWay, int in_iOpening, int in_iPlace, int in_iAction);

    bool m_bCalled = false;
    int m_iCells = 0;
    std::set<std::string> m_unsafe; ///< cells that Qt forbids
};

void LifetimeTest::cleanupTestCase()
{
    std::cout << m_iCells << " cells run; in a paint Qt forbids:\n";
    std::for_each(m_unsafe.begin(), m_unsafe.end(), [](const std::string& in_str) { std::cout << in_str << "\n"; });
}

void LifetimeTest::Survives_data()
{
    QTest::addColumn<int>("way");
    QTest::addColumn<int>("opening");
    const CLivePage page;
    std::vector<sAct> ways = page.m_input;
    ways.insert(ways.end(), page.m_calls.begin(), page.m_calls.end());
    for (std::size_t u = 0; u < ways.size() * page.m_opening.size(); ++u)
    {
        const std::size_t uOpening = u % page.m_opening.size();
        const std::size_t uWay = u / page.m_opening.size();
        const std::string strName = std::string(ways[uWay].m_strName) + ", " + page.m_opening[uOpening].m_strName;
        if (uWay < page.m_input.size() + 5 || uOpening == 2)
        {
            QTest::newRow(strName.c_str()) << static_cast<int>(uWay) << static_cast<int>(uOpening);
        }
    }
}

/// Whatever the application does wherever it is called, whatever the user or it is doing and has open.
void LifetimeTest::Survives()
{
    QFETCH(int, way);
    QFETCH(int, opening);
    const bool bPaint = way == static_cast<int>(CLivePage().m_input.size()) - 1;
    for (int iPlace = 0; iPlace < (bPaint ? ePlaces : ePaint); ++iPlace)
    {
        m_bCalled = true;
        for (int iAction = 0; m_bCalled && iAction < static_cast<int>(CLivePage().m_calls.size()); ++iAction)
        {
            const std::string strFault = RunCell(way, opening, iPlace, iAction);
            const std::string strCell = std::string(g_places[iPlace]) + ", " + CLivePage().m_calls[iAction].m_strName;
            QVERIFY2(strFault.empty(), (strCell + ": " + strFault).c_str());
        }
    }
}

std::string LifetimeTest::RunCell(int in_iWay, int in_iOpening, int in_iPlace, int in_iAction)
{
    CLivePage page;
    const int iInputs = static_cast<int>(page.m_input.size());
    const sAct& way = in_iWay < iInputs ? page.m_input[in_iWay] : page.m_calls[in_iWay - iInputs];
    const sAct& action = page.m_calls[in_iAction];
    page.CTestPage::Open(320, 380);
    page.Settle();
    page.Do(page.m_opening[in_iOpening]);
    const QPointer<QWidget> pRow = page.WidgetOf(page.m_strOpen);
    bool bDone = true;
    m_bCalled = false;
    page.m_log.m_hooks[in_iPlace] = [&] {
        m_bCalled = true;
        bDone = page.Do(action);
    };
    page.Do(way);
    page.Settle();
    m_iCells += m_bCalled && bDone;
    bDone ? void() : void(m_unsafe.insert(std::string(g_places[in_iPlace]) + ", " + action.m_strName));

    const CLivePage::sItem* pItem = page.Find(page.m_strOpen);
    const bool bTyped = pRow && page.m_strOpen != "enum" && pItem && !pItem->element->IsReadOnly();
    const std::string strTyped = page.m_strOpen + "=" + page.m_strOpen.substr(0, 1);
    const bool bNext = page.NextEdit();
    const std::string strFault = page.Fault();
    const QString strLog = page.m_log.Text();
    const bool bGood = bNext && strLog.count(Latin("enum:")) < 2 && (!bTyped || strLog.contains(Latin(strTyped)));
    return !strFault.empty() || bGood ? strFault : strLog.toLatin1().constData();
}

void LifetimeTest::DestructionInEveryOrder()
{
    int order[] = {0, 1, 2, 3, 4};
    int iOrders = 0;
    do
    {
        CLivePage page;
        const QPointer<QWidget> pWindow = new QWidget;
        const auto deleteAll = [&page](bool in_bElements) {
            for (CLivePage::sItem* p : page.Items())
            {
                in_bElements ? delete p->element : delete p->widget;
            }
        };
        page.m_pView->setParent(pWindow);
        page.m_pView->ResizeInspector(320, 380);
        page.m_pView->show();
        pWindow->resize(320, 380);
        QVERIFY(TestSupport::ShowWindow(pWindow));
        page.Do(page.m_opening[1 + iOrders++ % 3]);
        g_pHeld = CQTEnumDataWidget::g_pInPlaceList;
        const std::function<void()> ends[] = {[&] { page.DeleteView(); }, [&] { page.m_pController.reset(); },
                                              [&] { delete pWindow; }, [&] { deleteAll(true); },
                                              [&] { deleteAll(false); }};
        for (int iEnd : order)
        {
            ends[iEnd]();
            QCoreApplication::processEvents();
        }
        page.Settle();
        QVERIFY(!CQTSimpleDataWidget::g_pInPlace);
    } while (std::next_permutation(std::begin(order), std::end(order)));
}

void LifetimeTest::AnyNumber()
{
    const int numbers[] = {INT_MIN, INT_MIN + 1, -1, 0, 1, 1 << 24, INT_MAX - 1, INT_MAX};
    for (int iFirst : numbers)
    {
        for (int iSecond : numbers)
        {
            CLivePage page;
            page.DeleteView();
            page.m_pView = new CMeasuredView(iFirst);
            page.m_pView->setParent(&page.m_window);
            page.Wire();
            page.Build();
            CAppWidget* pApp = static_cast<CAppWidget*>(page.Find("app")->widget);
            pApp->m_iWidth = iSecond;
            pApp->m_iHeight = iFirst;
            CInspectorView::sRequestSize request;
            request.minimum = iFirst;
            request.maximum = iSecond;
            request.maximumIsPercent = 1;
            page.AddLine("added", "", page.m_pView->AddSingleLineContainer("", &request, nullptr));
            QVERIFY(page.CTestPage::Open(320, 380));
            page.m_pView->ResizeInspector(iFirst, iSecond);
            page.m_pView->OffsetControls(iFirst, iSecond);
            page.Settle();
        }
    }
}

/// Composed with an input method. What a value cannot hold it shows as a question mark; it ends at a NUL.
void LifetimeTest::AnyText()
{
    const QString strLong(1 << 20, QLatin1Char('l'));
    const std::pair<QString, QString> texts[] = {{strLong, strLong},
                                                 {QString(3, QChar(0)), QString()},
                                                 {QString(2, QChar(0xd800)), Latin("??")},
                                                 {QString(2, QChar(0x20ac)), Latin("??")},
                                                 {Latin("<b>l</b>"), Latin("<b>l</b>")}};
    for (const std::pair<QString, QString>& text : texts)
    {
        CLivePage page;
        QVERIFY(page.CTestPage::Open(320, 380));
        page.Click("line");
        QInputMethodEvent event;
        event.setCommitString(text.first);
        QCoreApplication::sendEvent(CQTSimpleDataWidget::g_pInPlace, &event);
        page.Key(Qt::Key_Return);
        QCOMPARE(Latin(ValueOf(static_cast<CSimpleDataElement&>(*page.Find("line")->element))), text.second);
        page.Settle();
    }
}

INSPECTOR_TEST_MAIN(LifetimeTest)
#include "lifetimetest.moc"
