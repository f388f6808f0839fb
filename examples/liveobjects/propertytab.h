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

    /// Shows the page as the user left it in the last run, and keeps for the next how this one leaves it.
    void KeepState();

private:
    template <class Slot> QAction* AddSwitch(QMenu& io_menu, const QString& in_strText, Slot in_slot);
    void AddUndo(QMenu& io_menu, QMainWindow& in_window);
    void AddModified(QMenu& io_menu);
    void AddCopy(QMenu& io_menu);
    void AddView(QMenu& io_menu);
};
#endif

#endif
