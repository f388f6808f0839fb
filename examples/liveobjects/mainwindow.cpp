#include "mainwindow.h"

#include "inspectorhost.h"
#include "propertytab.h"
#include "stage.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QTabWidget>

CMainWindow::CMainWindow()
    : m_pStage(new CStage),
      m_pHost(new CInspectorHost),
      m_pTabs(new QTabWidget),
      m_inspector(m_pHost->GetView())
{
    m_pTabs->addTab(m_pHost, QLatin1String("Rows"));
    m_pTabs->setDocumentMode(true);

    setWindowTitle(QLatin1String("Live objects"));
    QSplitter* pSplitter = new QSplitter;
    pSplitter->addWidget(m_pStage);
    pSplitter->addWidget(m_pTabs);
    pSplitter->setStretchFactor(1, 1);
    pSplitter->setSizes(QList<int>() << m_pStage->minimumWidth() << width());
    pSplitter->setChildrenCollapsible(false);
    setCentralWidget(pSplitter);
    connect(m_pStage, SIGNAL(Selected(QObject*)), &m_inspector, SLOT(ShowObject(QObject*)));
    connect(&m_inspector, SIGNAL(PageRebuilt()), m_pHost, SLOT(LayOutNewPage()));
    CreateMenu();
#ifdef WITH_PROPERTIES
    m_pTabs->insertTab(0, new CPropertyTab(*m_pStage, *this), QLatin1String("Properties"));
    m_pTabs->setCurrentIndex(0);
#endif
    resize(780, 720);
}

void CMainWindow::KeepState()
{
#ifdef WITH_PROPERTIES
    findChild<CPropertyTab*>()->KeepState();
#endif
}

void CMainWindow::CreateMenu()
{
    QMenu* pObject = menuBar()->addMenu(QLatin1String("&Object"));
    AddCommand(pObject, "&Next Object", "F6", m_pStage, SLOT(SelectNext()));
    AddCommand(pObject, "Next Object &Too", "Shift+F6", m_pStage, SLOT(SelectNextToo()));
    AddCommand(pObject, "&Restore Objects", "F5", m_pStage, SLOT(Restore()));
    AddCommand(pObject, "&Quit", "Ctrl+Q", this, SLOT(close()));
    QMenu* pInspector = menuBar()->addMenu(QLatin1String("&Inspector"));
    AddSwitch(pInspector, "&Preview", "F7", false, SLOT(OnPreview(bool)));
    AddSwitch(pInspector, "Show &Content", "F8", true, SLOT(OnShowContent(bool)));
}

QAction* CMainWindow::AddAction(QMenu* in_pMenu, const char* in_strText, const char* in_strKey)
{
    QAction* pAction = in_pMenu->addAction(QLatin1String(in_strText));
    pAction->setShortcut(QKeySequence(QLatin1String(in_strKey)));
    pAction->setShortcutContext(Qt::ApplicationShortcut); // an editor in place is a window of its own
    return pAction;
}

void CMainWindow::AddCommand(QMenu* in_pMenu, const char* in_strText, const char* in_strKey, QObject* in_pReceiver,
                             const char* in_strSlot)
{
    connect(AddAction(in_pMenu, in_strText, in_strKey), SIGNAL(triggered()), in_pReceiver, in_strSlot);
}

void CMainWindow::AddSwitch(QMenu* in_pMenu, const char* in_strText, const char* in_strKey, bool in_bOn,
                            const char* in_strSlot)
{
    QAction* pAction = AddAction(in_pMenu, in_strText, in_strKey);
    pAction->setCheckable(true);
    pAction->setChecked(in_bOn);
    connect(pAction, SIGNAL(toggled(bool)), this, in_strSlot);
}

void CMainWindow::OnPreview(bool in_bPreview)
{
    m_inspector.SetPreviewMode(in_bPreview);
}

void CMainWindow::OnShowContent(bool in_bShow)
{
    m_pHost->GetView()->ShowContent(in_bShow, false);
    m_pHost->GetView()->RecomputeLayout();
}
