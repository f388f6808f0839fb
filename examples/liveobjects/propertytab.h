#ifndef PROPERTYTAB_H
#define PROPERTYTAB_H

#ifdef WITH_PROPERTIES
#include "propertyview.h"

class CStage;
class QMainWindow;
class QMenu;

/// The selected objects on a page of the property page library, with everything that it offers in a menu.
class CPropertyTab : public CPropertyView
{
    Q_OBJECT

public:
    /// Both must outlive it. Its menu goes to the window's menu bar, the list of what can be undone to its side.
    CPropertyTab(CStage& in_stage, QMainWindow& in_window);

private:
    QAction* AddSwitch(QMenu& io_menu, const QString& in_strText, bool in_bOn);
    void AddUndo(QMenu& io_menu, QMainWindow& in_window);
    void AddView(QMenu& io_menu);
};
#endif

#endif
