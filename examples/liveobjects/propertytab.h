#ifndef PROPERTYTAB_H
#define PROPERTYTAB_H

#ifdef WITH_PROPERTIES
#include "propertyview.h"

class CStage;
class QMenuBar;

/// The selected objects on a page of the property page library.
class CPropertyTab : public CPropertyView
{
    Q_OBJECT

public:
    /// Both must outlive it; it adds its menu to the menu bar.
    CPropertyTab(CStage& in_stage, QMenuBar& in_menus);
};
#endif

#endif
