#include "testsupport.h"

using TestSupport::ClickThroughWindow;
using TestSupport::Latin;

namespace
{
enum eRow
{
    eLine,
    eOther,
    eList,
    eBool,
    eButton,
    eText,
    eOtherText,
    eRows,
    eNone = eRows
};

class CDyingData : public CInspectorController::IControllerData
{
public:
    explicit CDyingData(CTestLog& in_log) : m_log(in_log) {}
    ~CDyingData() override { m_log.Note(eDataDestructor, "data"); }

private:
    CTestLog& m_log;
};

/// A page with a row of every kind.
class CScene : public CTestPage
{
public:
    CScene() { Build(); }

    void Build()
    {
        Add<CQTSimpleDataWidget, CSimpleDataElement>("line", nullptr, new CDyingData(m_log));
        AddLine("other", "");
        CEnumDataElement* pEnum = Add<CQTEnumDataWidget, CEnumDataElement>("list");
        pEnum->CreateEnum();
        pEnum->AddEnum("1", "One");
        Add<CQTSimpleBoolWidget, CBoolDataElement>("bool");
        Add<CQTButtonWidget, CButtonDataElement>("button");
        Add<CQTSimpleTextWidget, CSimpleDataElement>("text");
        Add<CQTSimpleTextWidget, CSimpleDataElement>("text");
        m_pController->ConnectDataElements();
        m_pView->RecomputeLayout();
        auto it = m_pController->m_items.begin();
        for (int iRow = 0; iRow < eRows; ++iRow, ++it)
        {
            m_elements[iRow] = (*it)->element;
            m_widgets[iRow] = dynamic_cast<QWidget*>((*it)->widget);
        }
    }

    void Click(eRow in_eRow, Qt::MouseButton in_eButton = Qt::LeftButton)
    {
        TestSupport::Painted(m_widgets[in_eRow]); // a button takes no press before
        const QPoint position(in_eRow == eButton ? m_widgets[in_eRow]->width() / 2 : 10, 10);
        ClickThroughWindow(m_widgets[in_eRow], in_eButton, position);
    }

    /// Opens what the row has to offer, and types into it.
    void OpenRow(eRow in_eRow)
    {
        Click(in_eRow);
        if (in_eRow == eText || in_eRow == eLine)
        {
            QWidget* pEditor = in_eRow == eText ? m_widgets[eText].data() : CQTSimpleDataWidget::g_pInPlace;
            QTest::keyClicks(pEditor, Latin("x"));
        }
    }

    void EndEdit(eRow in_eOpen)
    {
        if (in_eOpen == eText)
        {
            m_window.setFocus();
        }
        else if (in_eOpen == eList)
        {
            QWidget* pViewport = CQTEnumDataWidget::g_pInPlaceList->viewport();
            QTest::mouseClick(pViewport, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
        }
        else
        {
            QTest::keyClick(CQTSimpleDataWidget::g_pInPlace, Qt::Key_Return);
        }
    }

    void EndSomeEdit(eRow in_eOpen)
    {
        if (in_eOpen == eLine || in_eOpen == eList)
        {
            EndEdit(in_eOpen);
            return;
        }
        Click(eOther);
        EndEdit(eOther);
    }

    void CloseMenu()
    {
        if (QWidget* pMenu = QApplication::activePopupWidget())
        {
            pMenu->close();
        }
        m_window.setFocus();
    }

    void Remove(eRow in_eRow) { m_pController->RemoveItem(m_elements[in_eRow]); }

    void RemoveAll()
    {
        while (!m_pController->m_items.empty())
        {
            m_pController->RemoveItem(m_pController->m_items.front()->element);
        }
    }

    void Dirtify()
    {
        m_pController->DirtifyController(new CTestNotice(""));
        m_pController->DirtifyItem(m_pController->m_items.front(), new CTestNotice("1"));
        m_pController->DirtifyItem(m_pController->m_items.front(), new CTestNotice("2"));
        m_pController->DirtifyItem(m_pController->m_items.back(), nullptr);
    }

    void CheckEditors() const;
    void CheckNextEdit();

    CInspectorDataElement* m_elements[eRows]; ///< may be dead
    QPointer<QWidget> m_widgets[eRows];
    eRow m_eConcerned = eNone;
    bool m_bPainting = false;
};

/// An editor on the screen must be at a row that is there too.
void CScene::CheckEditors() const
{
    foreach (const QWidget* pWindow, QApplication::topLevelWidgets())
    {
        bool bInPlace = pWindow == &m_window || !pWindow->isVisible();
        for (int iRow = eLine; iRow <= eList; ++iRow)
        {
            const QWidget* pRow = m_widgets[iRow];
            const QPoint corner(0, pRow && iRow == eList ? pRow->height() : 0);
            bInPlace = bInPlace || (pRow && pRow->mapToGlobal(corner) == pWindow->geometry().topLeft());
        }
        QVERIFY2(bInPlace, pWindow->metaObject()->className());
    }
}

void CScene::CheckNextEdit()
{
    AddLine("next", "");
    m_pView->ShowContent(true, false);
    QVERIFY(Open(320, 400));
    ClickThroughWindow(dynamic_cast<QWidget*>(m_pController->m_items.back()->widget), Qt::LeftButton, QPoint(10, 10));
    QTest::keyClicks(CQTSimpleDataWidget::g_pInPlace, Latin("7"));
    EndEdit(eOther);
}

/// How the library comes to call the application; the last ones are those after which Qt goes on with a widget: it
/// follows a right press by a context menu, and a click by giving the focus to the clicked widget.
const struct
{
    const char* m_strName;
    ePlace m_ePlace;
    eRow m_eConcerned; ///< when nothing is open
    void (*m_pAct)(CScene& io_scene, eRow in_eOpen);
} g_triggers[] = {
    {"InternalValueChanged", eInternalValueChanged, eBool,
     [](CScene& io_scene, eRow in_eOpen) { in_eOpen == eNone ? io_scene.Click(eBool) : io_scene.EndEdit(in_eOpen); }},
    {"OnEndEditing", eEndEditing, eOther, [](CScene& io_scene, eRow in_eOpen) { io_scene.EndSomeEdit(in_eOpen); }},
    {"Disconnect", eDisconnect, eLine, [](CScene& io_scene, eRow) { io_scene.Remove(eLine); }},
    {"data destructor", eDataDestructor, eLine, [](CScene& io_scene, eRow) { io_scene.Remove(eLine); }},
    {"HandleDirtyItem", eHandleItem, eLine, [](CScene& io_scene, eRow) { io_scene.Dirtify(); }},
    {"HandleDirtyController", eHandleController, eLine, [](CScene& io_scene, eRow) { io_scene.Dirtify(); }},
    {"CallCommand", eCommand, eButton, [](CScene& io_scene, eRow) { io_scene.Click(eButton); }},
    {"right press, bool", eInternalValueChanged, eBool,
     [](CScene& io_scene, eRow) { io_scene.Click(eBool, Qt::RightButton); }},
    {"right press, button", eCommand, eButton,
     [](CScene& io_scene, eRow) { io_scene.Click(eButton, Qt::RightButton); }},
    {"context menu", eInternalValueChanged, eText,
     [](CScene& io_scene, eRow) { io_scene.Click(eText, Qt::RightButton), io_scene.CloseMenu(); }},
    {"click on another text", eInternalValueChanged, eText, [](CScene& io_scene, eRow) { io_scene.Click(eOtherText); }},
    {"hidden content", eInternalValueChanged, eText,
     [](CScene& io_scene, eRow) { io_scene.m_pView->ShowContent(false, false); }},
};

const struct
{
    const char* m_strName;
    eRow m_eRow;
} g_open[] = {{"nothing", eNone}, {"line", eLine}, {"list", eList}, {"text", eText}};

/// What the application does in the callback.
const struct
{
    const char* m_strName;
    void (*m_pAct)(CScene& io_scene);
} g_actions[] = {
    {"rebuild", [](CScene& io_scene) { io_scene.m_pController->ClearAllData(), io_scene.Build(); }},
    {"delete the view",
     [](CScene& io_scene) { io_scene.m_bPainting ? io_scene.m_pView->deleteLater() : delete io_scene.m_pView.data(); }},
    {"delete the controller", [](CScene& io_scene) { io_scene.m_pController.reset(); }},
    {"remove the item", [](CScene& io_scene) { io_scene.Remove(io_scene.m_eConcerned); }},
    {"remove all items", [](CScene& io_scene) { io_scene.RemoveAll(); }},
    {"add items", [](CScene& io_scene) { io_scene.AddLine("added", ""), io_scene.m_pView->RecomputeLayout(); }},
    {"lay out again", [](CScene& io_scene) { io_scene.m_pView->ResizeInspector(300, 100); }},
    {"edit another row",
     [](CScene& io_scene) { dynamic_cast<CQTSimpleDataWidget&>(*io_scene.m_widgets[eOther]).StartEditing(); }},
    {"nested event loop", [](CScene& io_scene) { io_scene.Click(eOther), QTest::qWait(1); }},
};
} // namespace

class LifetimeTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::FailOnWarnings(); }
    void Survives_data();
    void Survives();
};

void LifetimeTest::Survives_data()
{
    QTest::addColumn<int>("trigger");
    QTest::addColumn<int>("open");
    QTest::addColumn<int>("action");
    const int iTriggers = std::end(g_triggers) - std::begin(g_triggers);
    const int iActions = std::end(g_actions) - std::begin(g_actions);
    for (int iCell = 0; iCell < iTriggers * 4 * iActions; ++iCell)
    {
        const int iTrigger = iCell / (4 * iActions);
        const int iOpen = iCell / iActions % 4;
        const int iAction = iCell % iActions;
        const bool bPainting =
            g_triggers[iTrigger].m_ePlace == eHandleItem || g_triggers[iTrigger].m_ePlace == eHandleController;
        // Qt does not allow a paint inside a paint.
        if ((iTrigger < ePlaces || g_open[iOpen].m_eRow == eText) && !(bPainting && iAction == iActions - 1))
        {
            const QString strName = Latin(g_triggers[iTrigger].m_strName) + Latin(", ") +
                                    Latin(g_open[iOpen].m_strName) + Latin(", ") + Latin(g_actions[iAction].m_strName);
            QTest::newRow(qPrintable(strName)) << iTrigger << iOpen << iAction;
        }
    }
}

void LifetimeTest::Survives()
{
    QFETCH(int, trigger);
    QFETCH(int, open);
    QFETCH(int, action);
    const eRow eOpen = g_open[open].m_eRow;
    const ePlace ePlaceCalled = g_triggers[trigger].m_ePlace;
    CScene scene;
    scene.m_eConcerned = eOpen == eNone ? g_triggers[trigger].m_eConcerned : eOpen;
    scene.m_bPainting = ePlaceCalled == eHandleItem || ePlaceCalled == eHandleController;
    QVERIFY(scene.Open(320, 380));
    if (eOpen != eNone)
    {
        scene.OpenRow(eOpen);
    }
    const QPointer<QWidget> pTyped = eOpen == eLine || eOpen == eText ? scene.m_widgets[eOpen] : nullptr;
    bool bActed = false;
    scene.m_log.m_hooks[ePlaceCalled] = [&] { bActed = true, g_actions[action].m_pAct(scene); };
    g_triggers[trigger].m_pAct(scene, eOpen);
    QVERIFY(TestSupport::WaitUntil([&bActed] { return bActed; }));
    QTest::qWait(1);
    scene.CheckEditors();

    CScene another;
    CScene& next = scene.m_pView && scene.m_pController ? scene : another;
    next.CheckNextEdit();
    const QString strLog = next.m_log.Take();
    QVERIFY2(strLog.endsWith(Latin("next=7 next:1")), qPrintable(strLog));
    QVERIFY2(!strLog.contains(Latin("other=x")) && strLog.count(Latin("list:")) < 2, qPrintable(strLog));
    QVERIFY2(!pTyped || strLog.contains(Latin(g_open[open].m_strName) + Latin("=x")), qPrintable(strLog));
}

INSPECTOR_TEST_MAIN(LifetimeTest)
#include "lifetimetest.moc"
