#include "livepage.h"

#include <climits>
#include <iostream>

using TestSupport::Latin;

namespace
{
const char* const g_strPlaces = "InternalValueChanged OnEndEditing Connect Disconnect ~data ~element ~widget ~notice "
                                "HandleDirtyItem HandleDirtyController CallCommand MoveWidget paint";

std::shared_ptr<CInPlaceList> g_pHeld; ///< lives longer than the application object
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
    void Hiding();
    void AnyNumber();
    void AnyText();

private:
    std::string RunCell(int in_iWay, int in_iOpening, int in_iPlace, int in_iAction);

    bool m_bCalled = false;
    int m_iCells = 0;
    QStringList m_unsafe; ///< cells that Qt forbids
};

void LifetimeTest::cleanupTestCase()
{
    m_unsafe.removeDuplicates();
    std::cout << m_iCells << " cells run; in a paint Qt forbids " << qPrintable(m_unsafe.join(Latin("; "))) << "\n";
}

void LifetimeTest::Survives_data()
{
    QTest::addColumn<int>("way");
    const CLivePage page;
    for (std::size_t u = 0; u < page.m_input.size() + 7; ++u)
    {
        QTest::newRow(page.Way(u).m_strName) << static_cast<int>(u);
    }
}

/// Whatever the application does wherever it is called, whatever the user or it is doing and has open.
void LifetimeTest::Survives()
{
    QFETCH(int, way);
    const CLivePage page;
    const int iOpenings = static_cast<int>(page.m_opening.size());
    const int iPlaces = way + 1 == static_cast<int>(page.m_input.size()) ? ePlaces : ePaint; // the paint
    for (int iCell = 0; iCell < iPlaces * iOpenings; ++iCell)
    {
        m_bCalled = true;
        for (int iAction = 0; m_bCalled && iAction < static_cast<int>(page.m_calls.size()); ++iAction)
        {
            const std::string strFault = RunCell(way, iCell / iPlaces, iCell % iPlaces, iAction);
            QVERIFY2(strFault.empty(), strFault.c_str());
        }
    }
}

std::string LifetimeTest::RunCell(int in_iWay, int in_iOpening, int in_iPlace, int in_iAction)
{
    CLivePage page;
    const sAct& opening = page.m_opening[in_iOpening];
    const sAct& action = page.m_calls[in_iAction];
    const QString strPlace = Latin(g_strPlaces).section(QLatin1Char(' '), in_iPlace, in_iPlace);
    const bool bNative = (in_iOpening + in_iAction) % 2; // beside a native widget the view is native too
    bNative ? void((new QWidget(&page.m_window))->winId()) : void();
    page.m_pView->SetKeyboardNavigation((in_iPlace + in_iOpening) % 2);
    const QString strCell = strPlace + Latin(", ") + Latin(action.m_strName);
    page.Do(opening);
    const QPointer<QWidget> pRow = page.WidgetOf(page.m_strOpen);
    m_bCalled = false;
    page.m_log.m_hooks[in_iPlace] = [&] {
        m_bCalled = true;
        page.Do(action) ? void(++m_iCells) : m_unsafe.append(strCell);
    };
    page.Do(page.Way(in_iWay));
    page.Settle();

    const CLivePage::sItem* pItem = page.Find(page.m_strOpen);
    const bool bTyped = pRow && page.m_strOpen != "enum" && pItem && !pItem->element->IsReadOnly();
    const std::string strTyped = page.m_strOpen + "=" + page.m_strOpen.substr(0, 1);
    const std::string strFault = page.NextEdit();
    const QString strLog = page.m_log.Text();
    const bool bGood = strLog.count(Latin("enum:")) < 2 && (!bTyped || strLog.contains(Latin(strTyped)));
    return strFault.empty() && bGood ? ""
                                     : qPrintable(Latin(opening.m_strName) + Latin(", ") + strCell +
                                                  Latin(": " + strFault + " in ") + strLog);
}

void LifetimeTest::DestructionInEveryOrder()
{
    int order[] = {0, 1, 2, 3, 4};
    int iOrders = 0;
    do
    {
        CLivePage page;
        const QPointer<QWidget> pWindow = new QWidget;
        page.m_pView->setParent(pWindow);
        page.m_pView->show();
        pWindow->resize(320, 380);
        pWindow->show();
        pWindow->activateWindow();
        page.Settle();
        page.Do(page.m_opening[1 + iOrders++ % 3]);
        g_pHeld = CQTEnumDataWidget::g_pInPlaceList;
        const CLivePage::sItem* pItem = page.Find(page.m_strOpen); // lives as long as the controller
        const std::function<void()> ends[] = {
            [&] { page.m_pController ? delete pItem->element : void(); },
            [&] { page.m_pController ? delete pItem->widget : void(); },
            [&] { page.m_pController.reset(); },
            [&] { page.DeleteView(); },
            [&] { delete pWindow; },
        };
        for (int iEnd : order)
        {
            ends[iEnd]();
            QCoreApplication::processEvents();
        }
        page.Settle();
        QVERIFY(!CQTSimpleDataWidget::g_pInPlace);
    } while (std::next_permutation(std::begin(order), std::end(order)));
}

/// Content that a layout's move hides stays hidden. Typed text is reported when the content is hidden; the report
/// deletes the view, which is the window with the focus.
void LifetimeTest::Hiding()
{
    CLivePage page;
    page.m_log.m_hooks[eMove] = [&page] { page.m_pView->ShowContent(false, false); };
    page.m_pView->RecomputeLayout();
    QVERIFY(page.WidgetOf("app")->size().isEmpty());
    page.m_pView->ShowContent(true, false);
    page.m_pView->setParent(nullptr);
    page.m_pView->show();
    page.m_pView->activateWindow();
    page.Settle();
    page.Open("text");
    page.m_log.m_hooks[eInternalValueChanged] = [&page] { page.DeleteView(); };
    page.m_pView->ShowContent(false, false);
    QVERIFY(!page.m_pView && page.m_log.Take().contains(Latin("text=t")));
    QCOMPARE(page.NextEdit(), std::string());
}

/// What the layout does with any number is tested without Qt.
void LifetimeTest::AnyNumber()
{
    const int numbers[] = {INT_MIN, -1, 0, 1 << 24, INT_MAX};
    for (int iPair = 0; iPair < 25; ++iPair)
    {
        const int iFirst = numbers[iPair / 5];
        const int iSecond = numbers[iPair % 5];
        CLivePage page;
        page.WidgetAt<CAppWidget>(7)->m_iWidth = iSecond;
        page.WidgetAt<CAppWidget>(7)->m_iHeight = iFirst;
        page.m_pView->ResizeInspector(iFirst, iSecond);
        page.m_pView->OffsetControls(iFirst, iSecond);
        page.Settle();
    }
}

/// Composed with an input method. What a value cannot hold it shows as a question mark; it ends at a NUL.
void LifetimeTest::AnyText()
{
    const QString strLong(1 << 20, QLatin1Char('l'));
    CLivePage page;
    page.Click("line");
    page.Settle();
    QInputMethodEvent event;
    event.setCommitString(strLong + QChar(0xd800) + QChar(0x20ac) + QChar(0) + QLatin1Char('l'));
    QCoreApplication::sendEvent(CQTSimpleDataWidget::g_pInPlace, &event);
    page.Key(Qt::Key_Return);
    QCOMPARE(Latin(ValueOf(static_cast<CSimpleDataElement&>(*page.Find("line")->element))), strLong + Latin("??"));
}

INSPECTOR_TEST_MAIN(LifetimeTest)
#include "lifetimetest.moc"
