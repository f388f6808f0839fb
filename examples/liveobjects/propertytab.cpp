#include "propertytab.h"

#include "stage.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QUndoStack>
#include <QUndoView>

CPropertyTab::CPropertyTab(CStage& in_stage, QMainWindow& in_window)
{
    connect(&in_stage, &CStage::Selected, this, [this, &in_stage] { ShowObjects(in_stage.GetSelection()); });
    connect(this, &CPropertyView::LinkActivated, this, &CPropertyView::ShowObject);
    QMenu* pMenu = in_window.menuBar()->addMenu(tr("&Properties"));
    AddUndo(*pMenu, in_window);
    AddView(*pMenu);
}

void CPropertyTab::AddUndo(QMenu& io_menu, QMainWindow& in_window)
{
    QUndoStack& stack = Page().UseOwnUndoStack();
    io_menu.addAction(stack.createUndoAction(this));
    io_menu.addAction(stack.createRedoAction(this));
    auto* pDock = new QDockWidget(tr("What can be undone"), &in_window);
    pDock->setWidget(new QUndoView(&stack));
    in_window.addDockWidget(Qt::BottomDockWidgetArea, pDock);
    pDock->hide();
    io_menu.addAction(pDock->toggleViewAction());
    io_menu.addSeparator();
}

QAction* CPropertyTab::AddSwitch(QMenu& io_menu, const QString& in_strText, bool in_bOn)
{
    QAction* pSwitch = io_menu.addAction(in_strText);
    pSwitch->setCheckable(true);
    pSwitch->setChecked(in_bOn);
    return pSwitch;
}

void CPropertyTab::AddView(QMenu& io_menu)
{
    connect(AddSwitch(io_menu, tr("&Mark Modified Values"), false), &QAction::toggled, this, [this](bool in_bOn) {
        Page().SetModifiedAgainst(in_bOn ? CPropertyPage::eFirstValues : CPropertyPage::eNothing);
    });
    connect(AddSwitch(io_menu, tr("&Only Modified Values"), false), &QAction::toggled, this,
            &CPropertyView::SetOnlyModified);
    connect(AddSwitch(io_menu, tr("&Description"), false), &QAction::toggled, this,
            &CPropertyView::SetDescriptionVisible);
    io_menu.addAction(tr("&Filter"), this, [this] { SetFilterVisible(true); });
    io_menu.addAction(tr("&Unfold All"), this, [this] { ExpandAll(); });
    io_menu.addAction(tr("F&old All"), this, [this] { ExpandAll(false); });
    io_menu.addAction(tr("&Read Again"), &Page(), &CPropertyPage::Refresh);
}
