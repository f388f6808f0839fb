#ifndef LIVEPAGE_H
#define LIVEPAGE_H

#include "testsupport.h"

/// A row of the application's own: it is painted and moved by the application's code.
class CAppWidget : public CQTStaticWidget
{
public:
    ~CAppWidget() override
    {
        ReleaseOwners();
        resize(1, 1);       // Qt 4 makes it a window of the X server's, for which there are limits
        setParent(nullptr); // what is called now may delete the view
        m_pLog->Note(eWidgetDestructor, "");
    }
    int GetRequiredWidth() override { return m_iWidth; }
    int GetRequiredHeight(int) override { return m_iHeight; }
    void MoveWidget(int in_iX, int in_iY) override
    {
        move(in_iX, in_iY);
        m_pLog->Note(eMove, "");
    }
    void paintEvent(QPaintEvent*) override { m_pLog->Note(ePaint, ""); }

    CTestLog* m_pLog = nullptr;
    int m_iWidth = -1;
    int m_iHeight = 20;
};

struct sAct
{
    const char* m_strName;
    int m_iHarm; ///< 1: destroys, 2: runs an event loop; neither is safe everywhere
    std::function<void()> m_act;
};

/// A page with a row of every kind, and what the user and the application do with it. A row is known by the initial of
/// its name: every value that it is given, and all that is typed into it, is made of that letter.
class CLivePage : public CTestPage
{
public:
    typedef CInspectorController::sInspectorControllerData sItem;

    CLivePage()
    {
        Build();
        m_pView->ResizeInspector(320, 380);
        m_window.show();
        m_window.activateWindow();
        Settle();
    }
    ~CLivePage() { Unhook(); }

    void Build()
    {
        Add<CQTSimpleDataWidget, CSimpleDataElement>("line", nullptr, new CTestData(m_log));
        AddLine("other", "", m_pView->AddSingleLineContainer("", nullptr, m_pView->AddGroup("group", nullptr)));
        CEnumDataElement* pEnum = Add<CQTEnumDataWidget, CEnumDataElement>("enum");
        pEnum->CreateEnum();
        pEnum->AddEnum("e", "One");
        Add<CQTSimpleBoolWidget, CBoolDataElement>("flag");
        Add<CQTButtonWidget, CButtonDataElement>("go");
        Add<CQTSimpleTextWidget, CSimpleDataElement>("text");
        Add<CQTSimpleTextWidget, CSimpleDataElement>("second");
        Add<CAppWidget, CStaticDataElement>("app", nullptr, new CTestData(m_log));
        static_cast<CAppWidget*>(m_pController->m_items.back()->widget)->m_pLog = &m_log;
        m_pController->ConnectDataElements();
        m_pView ? m_pView->RecomputeLayout() : void();
    }

    void Unhook() { std::fill(std::begin(m_log.m_hooks), std::end(m_log.m_hooks), nullptr); }

    std::list<sItem*> Items() const { return m_pController ? m_pController->m_items : std::list<sItem*>(); }

    /// Null when the row is gone or has lost its widget.
    sItem* Find(const std::string& in_strName) const
    {
        const std::list<sItem*> items = Items();
        const QWidget* pWidget = WidgetOf(in_strName);
        const auto isIt = [pWidget](const sItem* in_p) { return dynamic_cast<QWidget*>(in_p->widget) == pWidget; };
        const auto it = std::find_if(items.begin(), items.end(), isIt);
        return pWidget && it != items.end() ? *it : nullptr;
    }

    QWidget* WidgetOf(const std::string& in_strName) const
    {
        return m_pView ? m_pView->findChild<QWidget*>(TestSupport::Latin(in_strName)) : nullptr;
    }

    void Remove(sItem* in_pItem) { in_pItem ? m_pController->RemoveItem(in_pItem->element) : void(); }

    /// Does what is not too harmful: in a paint no event loop may run, and in that of a row nothing may be destroyed.
    bool Do(const sAct& in_act)
    {
        const QWidgetList widgets = QApplication::allWidgets();
        const auto it = std::find_if(widgets.begin(), widgets.end(), [](const QWidget* in_pWidget) {
            return in_pWidget->testAttribute(Qt::WA_WState_InPaintEvent);
        });
        const int iUnsafe = it != widgets.end() && qobject_cast<CQTInspectorView*>(*it) ? 2 : 1;
        const bool bSafe = it == widgets.end() || in_act.m_iHarm < iUnsafe;
        bSafe ? Wire(), in_act.m_act() : void();
        return bSafe;
    }

    /// Later in its own paint, with which Qt goes on.
    void DeleteView()
    {
        CTestView* pView = std::exchange(m_pView, nullptr);
        pView && pView->testAttribute(Qt::WA_WState_InPaintEvent) ? pView->deleteLater() : delete pView;
    }

    void Dirtify()
    {
        m_pController->DirtifyController(new CTestNotice(m_log));
        for (sItem* pItem : Items())
        {
            m_pController->DirtifyItem(pItem, new CTestNotice(m_log));
        }
    }

    /// Where there is no window manager that activates the window.
    void Click(const std::string& in_strName, Qt::MouseButton in_eButton = Qt::LeftButton)
    {
        QWidget* pWidget = WidgetOf(in_strName);
        QWidget* pWindow = pWidget && pWidget->isVisible() ? pWidget->window() : nullptr;
        const QPoint position(in_strName == "go" && pWidget ? pWidget->width() / 2 : 10, 10);
        QWidget* pHit = pWindow ? pWindow->childAt(pWidget->mapTo(pWindow, position)) : nullptr;
        m_strPressed = in_strName;
        if (pHit && (pHit == pWidget || pWidget->isAncestorOf(pHit)))
        {
            TestSupport::ClickThroughWindow(pWidget, in_eButton, position);
        }
    }

    void VisitOther()
    {
        m_other.show();
        m_other.activateWindow();
        QCoreApplication::processEvents();
        TestSupport::AwaitActive(&m_other);
        m_other.hide();
    }

    void Key(int in_iKey) const
    {
        QWidget* pFocus = QApplication::focusWidget();
        pFocus ? QTest::keyClick(pFocus, Qt::Key(in_iKey)) : void();
    }

    /// Types the letter of the row that is to get it.
    void Type() const
    {
        const std::string strRows = QApplication::focusWidget() ? RowsAt(*QApplication::focusWidget()) : "";
        strRows.size() == 1 ? QTest::keyClick(QApplication::focusWidget(), strRows[0]) : void();
    }

    void Open(const std::string& in_strName)
    {
        Click(in_strName);
        Settle();
        in_strName == "enum" ? void() : Type();
        m_strOpen = in_strName;
    }

    /// The initials of the rows in sight that a widget covers or a list hangs under. A row without a size is as good as
    /// in sight.
    std::string RowsAt(const QWidget& in_widget) const
    {
        std::string strRows;
        // Qt moves no window that has no size, which a row in hidden content gives its editor.
        const QPoint origin = in_widget.isWindow() ? in_widget.geometry().topLeft() : in_widget.mapToGlobal(QPoint());
        const QObjectList widgets = m_pView ? m_pView->m_pContentWidget->children() : QObjectList();
        for (const QObject* pObject : widgets)
        {
            const QWidget* p = qobject_cast<const QWidget*>(pObject);
            const bool bList = &in_widget == CQTEnumDataWidget::g_pInPlaceList.get();
            const QPoint place = p->mapToGlobal(QPoint(0, bList ? p->height() : 0));
            const bool bHere = (place - origin).manhattanLength() <= 4; // frames
            const bool bInSight = p->isVisible() && (!p->visibleRegion().isEmpty() || p->size().isEmpty());
            strRows.append(bHere && bInSight ? 1 : 0, p->objectName().at(0).toLatin1());
        }
        return strRows;
    }

    /// Lets everything posted arrive.
    static void Settle()
    {
        for (int iTurn = 0; iTurn < 3; ++iTurn)
        {
            TestSupport::AwaitActive();
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QApplication::activePopupWidget() ? QApplication::activePopupWidget()->close() : false;
        }
    }

    /// What is wrong on the screen, or was reported wrongly; empty for nothing.
    std::string Fault() const
    {
        const auto isAstray = [this](const QWidget* in_p) {
            return in_p && in_p->isVisible() && RowsAt(*in_p).empty();
        };
        const bool bAstray =
            isAstray(CQTSimpleDataWidget::g_pInPlace) || isAstray(CQTEnumDataWidget::g_pInPlaceList.get());
        const QStringList words = m_log.Text().split(QLatin1Char(' '));
        const bool bForeign = std::any_of(words.begin(), words.end(), [](const QString& in_word) {
            const QString strValue = in_word.section(QLatin1Char('='), 1).remove(in_word.left(1));
            return !in_word.startsWith(QLatin1String("flag")) && !strValue.trimmed().isEmpty();
        });
        return bAstray ? "an editor over no row" : bForeign ? "a foreign value" : "";
    }

    /// Edits another row after all this.
    /// \return what is wrong, empty for nothing
    std::string NextEdit()
    {
        Unhook();
        Wire();
        m_pController->SetPreviewMode(false);
        AddLine("next", "");
        m_pView->ShowContent(true, false);
        m_window.resize(340, 400);
        VisitOther(); // the platform activates no window that it takes for the active one
        m_window.activateWindow();
        Settle();
        const bool bShown = CTestPage::Open(320, 400);
        m_pView->EnsureVisible(m_pController->m_items.back()->widget);
        Settle();
        Open("next");
        Key(Qt::Key_Return);
        return bShown && m_log.Text().endsWith(QLatin1String("next=n next:1")) ? Fault() : "no further edit";
    }

    /// The user's input, then calls.
    const sAct& Way(std::size_t in_uWay) const
    {
        return in_uWay < m_input.size() ? m_input[in_uWay] : m_calls[in_uWay - m_input.size()];
    }

    QWidget m_other;
    std::string m_strPressed = "app";
    std::string m_strOpen;

    const std::vector<sAct> m_opening = {{"nothing", 0, [] {}},
                                         {"line", 0, [this] { Open("line"); }},
                                         {"list", 0, [this] { Open("enum"); }},
                                         {"text", 0, [this] { Open("text"); }}};

    /// After the right presses, a click on another text and hidden content Qt goes on with a widget.
    const std::vector<sAct> m_input = {
        {"Return", 0, [this] { Key(Qt::Key_Return); }},
        {"Backtab", 0, [this] { Key(Qt::Key_Backtab); }},
        {"Tab", 0, [this] { Key(Qt::Key_Tab); }},
        {"Space on a button", 0,
         [this] {
             m_window.setFocus(); // what reports by that may destroy the button
             WidgetOf("go") ? WidgetOf("go")->setFocus() : void();
             Key(Qt::Key_Space);
         }},
        {"choice", 2,
         [] {
             const std::shared_ptr<CInPlaceList> p = CQTEnumDataWidget::g_pInPlaceList;
             p && p->isVisible() ? QTest::mouseClick(p->viewport(), Qt::LeftButton, {}, QPoint(5, 5)) : void();
         }},
        {"another window", 2, [this] { VisitOther(); }},
        {"flag", 0, [this] { Click("flag"); }},
        {"other line", 0, [this] { Click("other"), Key(Qt::Key_Tab); }},
        {"command", 0, [this] { Click("go"); }},
        {"flag, right button", 0, [this] { Click("flag", Qt::RightButton); }},
        {"command, right button", 0, [this] { Click("go", Qt::RightButton); }},
        {"context menu", 2, [this] { Click("text", Qt::RightButton), Settle(); }},
        {"second text", 0, [this] { Click("second"); }},
        {"paint", 2, [this] { Dirtify(), m_pView->update(), QCoreApplication::processEvents(); }}};

    /// What else may come in between.
    const std::vector<sAct> m_asides = {{"letter", 0, [this] { Type(); }},
                                        {"Escape", 0, [this] { Key(Qt::Key_Escape); }},
                                        {"Tab", 0, [this] { Key(Qt::Key_Tab); }},
                                        {"wheel", 0, [this] { TestSupport::TurnWheel(m_pView); }},
                                        {"move the window", 0, [this] { m_window.move(90 - m_window.x() % 90, 50); }},
                                        {"hide the window", 0, [this] { m_window.hide(); }},
                                        {"show the window", 0, [this] { m_window.show(), m_window.resize(340, 150); }}};

    /// The first seven are what makes the library call back in every place but the user's.
    const std::vector<sAct> m_calls = {
        {"remove the item", 1, [this] { Remove(Find(m_strOpen.empty() ? m_strPressed : m_strOpen)); }},
        {"rebuild", 1, [this] { m_pController->ClearAllData(), Wire(), Build(); }},
        {"handle notices", 1, [this] { Dirtify(), m_pController->HandleDirtyItems(); }},
        {"lay out", 0, [this] { m_pView->ResizeInspector(300, 100); }},
        {"hide the content", 0, [this] { m_pView->ShowContent(false, false); }},
        {"delete the view", 1, [this] { DeleteView(); }},
        {"delete the controller", 1, [this] { m_pController.reset(); }},
        {"delete the widget", 1, [this] { delete WidgetOf(m_strOpen.empty() ? m_strPressed : m_strOpen); }},
        {"remove the pressed item", 1, [this] { Remove(Find(m_strPressed)); }},
        {"clear", 1, [this] { m_pController->ClearAllData(); }},
        {"add items", 0, [this] { Build(); }},
        {"start another edit", 0,
         [this] {
             const bool bInSight = WidgetOf("other") && !WidgetOf("other")->visibleRegion().isEmpty();
             bInSight&& Find("other") ? Find("other")->widget->StartEditing() : void();
         }},
        {"dirty other items", 0, [this] { Dirtify(); }},
        {"toggle preview", 0,
         [this] { m_pController->SetPreviewMode(!m_pController->IsPreviewMode()), m_pView->RecomputeLayout(); }},
        {"change read-only", 0,
         [this] {
             sItem* p = Find(m_strOpen);
             p ? p->element->SetReadOnly(!p->element->IsReadOnly()) : void();
         }},
        {"nested event loop", 2, [this] { Click("other"), QCoreApplication::processEvents(); }},
        {"message box", 2, [] {
             QMessageBox box;
             QTimer::singleShot(0, &box, SLOT(accept()));
             box.exec();
         }}};
};

#endif
