#include "propertytab.h"

#include "stage.h"

#include <QMenuBar>

CPropertyTab::CPropertyTab(CStage& in_stage, QMenuBar& in_menus)
{
    connect(&in_stage, &CStage::Selected, this, [this, &in_stage] { ShowObjects(in_stage.GetSelection()); });
    connect(this, &CPropertyView::LinkActivated, &in_stage, [this](QObject* in_pObject) { ShowObject(in_pObject); });
    QMenu* pMenu = in_menus.addMenu(tr("P&roperties"));
    pMenu->addAction(tr("&Refresh"), &Page(), &CPropertyPage::Refresh);
}
