#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include "objectinspector.h"

#include <QMainWindow>

class CInspectorHost;
class CStage;
class QAction;
class QMenu;
class QTabWidget;

/// The stage on the left, the inspector on the right.
class CMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    CMainWindow();

    CStage* GetStage() const { return m_pStage; }
    CInspectorHost* GetHost() const { return m_pHost; }
    QTabWidget* GetTabs() const { return m_pTabs; }
    CObjectInspector& GetInspector() { return m_inspector; }

    /// Goes on as the user left it in the last run.
    void KeepState();

private slots:
    void OnPreview(bool in_bPreview);
    void OnShowContent(bool in_bShow);

private:
    void CreateMenu();
    QAction* AddAction(QMenu* in_pMenu, const char* in_strText, const char* in_strKey);
    void AddCommand(QMenu* in_pMenu, const char* in_strText, const char* in_strKey, QObject* in_pReceiver,
                    const char* in_strSlot);
    void AddSwitch(QMenu* in_pMenu, const char* in_strText, const char* in_strKey, bool in_bOn, const char* in_strSlot);

    CStage* m_pStage;
    CInspectorHost* m_pHost;
    QTabWidget* m_pTabs;          ///< the ways to show the selected objects
    CObjectInspector m_inspector; ///< dies before the view in the host
};

#endif
