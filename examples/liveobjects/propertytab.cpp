#include "propertytab.h"

#include "propertyadapter.h"
#include "stage.h"

#include <QAbstractSlider>
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QSettings>
#include <QStatusBar>
#include <QUndoStack>
#include <QUndoView>

namespace
{
const QString g_strStateKey = QStringLiteral("propertyPage");

/// What a user of the demo may ask about its objects.
CPropertyAdapter Tips()
{
    const auto tip = [](const QString& in_strTip) { return [=](CPropertyRow in_row) { in_row.Tip(in_strTip); }; };
    CPropertyAdapter adapter;
    adapter.Of<QWidget>()
        .For(QStringLiteral("geometry"), tip(QObject::tr("The place on the stage, and the size.")))
        .For(QStringLiteral("highlight"),
             tip(QObject::tr("The colour of the frame round the object when it is selected.")))
        .For(QStringLiteral("stage"), tip(QObject::tr("What the object stands on: a press shows that instead.")));
    adapter.Of<QAbstractSlider>().For(
        QStringLiteral("value"), tip(QObject::tr("From minimum to maximum. Drag the label sideways to change it.")));
    return adapter;
}
} // namespace

CPropertyTab::CPropertyTab(CStage& in_stage, QMainWindow& in_window)
{
    connect(&in_stage, &CStage::Selected, this, [this, &in_stage] { ShowObjects(in_stage.GetSelection()); });
    connect(this, &CPropertyView::LinkActivated, this, &CPropertyView::ShowObject);
    connect(&Page(), &CPropertyPage::PasteRefused, this, [&in_window](const QStringList& in_names) {
        in_window.statusBar()->showMessage(tr("Not pasted: %1").arg(in_names.join(QStringLiteral(", "))));
    });
    connect(&Page(), &CPropertyPage::ValueChanged, this, [&in_window](const CProperty* in_pProperty) {
        in_window.statusBar()->showMessage(tr("%1 has changed").arg(in_pProperty->Label()));
    });
    Page().SetAdapter(Tips());
    QMenu* pMenu = in_window.menuBar()->addMenu(tr("&Properties"));
    AddUndo(*pMenu, in_window);
    AddCopy(*pMenu);
    AddModified(*pMenu);
    AddView(*pMenu);
}

void CPropertyTab::KeepState()
{
    RestoreState(QSettings().value(g_strStateKey).toByteArray());
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { QSettings().setValue(g_strStateKey, SaveState()); });
}

void CPropertyTab::AddUndo(QMenu& io_menu, QMainWindow& in_window)
{
    QUndoStack& stack = Page().UseOwnUndoStack();
    QAction* pUndo = stack.createUndoAction(this);
    pUndo->setShortcut(QKeySequence::Undo); // in the page the page's own keys do so
    QAction* pRedo = stack.createRedoAction(this);
    pRedo->setShortcut(QKeySequence::Redo);
    io_menu.addActions({pUndo, pRedo});
    auto* pDock = new QDockWidget(tr("What can be undone"), &in_window);
    pDock->setWidget(new QUndoView(&stack));
    in_window.addDockWidget(Qt::BottomDockWidgetArea, pDock);
    pDock->hide();
    io_menu.addAction(pDock->toggleViewAction());
    io_menu.addSeparator();
}

void CPropertyTab::AddCopy(QMenu& io_menu)
{
    io_menu.addAction(tr("Copy Page as &Text"), this, [this] { QApplication::clipboard()->setText(Page().Text()); });
    io_menu.addAction(tr("Copy Page as &JSON"), this,
                      [this] { QApplication::clipboard()->setText(QString::fromUtf8(Page().Json())); });
    io_menu.addAction(tr("&Paste into Page"), this, [this] { Page().Paste(QApplication::clipboard()->text()); });
    io_menu.addSeparator();
}

void CPropertyTab::AddModified(QMenu& io_menu)
{
    QMenu* pMenu = io_menu.addMenu(tr("&Mark What Differs from"));
    auto* pChoice = new QActionGroup(pMenu);
    const std::pair<QString, CPropertyPage::eModifiedAgainst> choices[] = {
        {tr("&Nothing"), CPropertyPage::eNothing},
        {tr("The &First Values"), CPropertyPage::eFirstValues},
        {tr("The &Defaults"), CPropertyPage::eDefaults}};
    for (const auto& choice : choices)
    {
        const CPropertyPage::eModifiedAgainst eAgainst = choice.second;
        pChoice->addAction(AddSwitch(*pMenu, choice.first, [this, eAgainst] { Page().SetModifiedAgainst(eAgainst); }));
    }
    pChoice->actions().constFirst()->setChecked(true);
    io_menu.addAction(tr("R&eset Value"), this, [this] { CurrentRow().Reset(); });
    QAction* pOnly =
        AddSwitch(io_menu, tr("&Only Modified Values"), [this](bool in_bOnly) { SetOnlyModified(in_bOnly); });
    connect(&io_menu, &QMenu::aboutToShow, this, [=] { pOnly->setChecked(IsOnlyModified()); });
    io_menu.addSeparator();
}

/// `in_slot` is told what the user chose.
template <class Slot> QAction* CPropertyTab::AddSwitch(QMenu& io_menu, const QString& in_strText, Slot in_slot)
{
    QAction* pSwitch = io_menu.addAction(in_strText, this, in_slot);
    pSwitch->setCheckable(true);
    return pSwitch;
}

void CPropertyTab::AddView(QMenu& io_menu)
{
    QAction* pFilter =
        AddSwitch(io_menu, tr("&Filter"), [this](bool in_bOn) { in_bOn ? EnterFilter() : SetFilterVisible(false); });
    AddSwitch(io_menu, tr("&Description"), [this](bool in_bOn) { SetDescriptionVisible(in_bOn); });
    connect(&io_menu, &QMenu::aboutToShow, this, [=] { pFilter->setChecked(IsFilterVisible()); });
    io_menu.addAction(tr("E&xpand All"), this, [this] { ExpandAll(); });
    io_menu.addAction(tr("&Collapse All"), this, [this] { ExpandAll(false); });
    io_menu.addAction(tr("Re&ad Again"), &Page(), &CPropertyPage::Refresh);
}
