#ifndef INSPECTWINDOW_H
#define INSPECTWINDOW_H

#include "apartwindow.h"

#include <QPointer>

#include <memory>

class CObjectTree;
class CPropertyPage;
class CPropertyView;
class CSignalEar;
class CWidgetFrame;
class QPlainTextEdit;
class QSortFilterProxyModel;
class QTabWidget;
class QTreeView;

/// The inspector's window: the tree of the program's objects, and what is selected there. It watches
/// the program's events for as long as it lives, and deletes itself when it is closed.
class CInspectWindow : public CApartWindow
{
    Q_OBJECT

public:
    CInspectWindow();
    ~CInspectWindow() override;

    /// Selects an object in the tree, null for none.
    void Select(QObject* in_pObject);

    CObjectTree& Tree() { return *m_pTree; }

    /// The page of what is selected.
    CPropertyPage& Page();

    bool eventFilter(QObject* in_pReceiver, QEvent* in_pEvent) override;

private:
    QWidget* CreateTree();
    QWidget* CreateFilter();
    QWidget* CreatePages();
    void OnSelected();
    void ListenIfAsked();
    QList<QObject*> SelectedObjects() const;

    CObjectTree* m_pTree;
    QSortFilterProxyModel* m_pFiltered = nullptr;
    QTreeView* m_pTreeView = nullptr;
    QTabWidget* m_pPages = nullptr;
    CPropertyView* m_pProperties = nullptr;
    QPlainTextEdit* m_pSignals = nullptr;
    CWidgetFrame* m_pFrame = nullptr;
    std::unique_ptr<CSignalEar> m_pEar; ///< only while signals are looked at
};

#endif
