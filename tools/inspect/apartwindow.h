#ifndef APARTWINDOW_H
#define APARTWINDOW_H

#include <QEvent>
#include <QWidget>

/// A window that is in the program but no part of it: it has no parent, does not keep the program running, stays usable
/// when the program shows a modal dialog, is not styled by the program's style sheet, and keeps the program's
/// shortcuts from being triggered by what is typed into it.
class CApartWindow : public QWidget
{
    Q_OBJECT

public:
    explicit CApartWindow(CApartWindow* in_pOwner = nullptr, Qt::WindowFlags in_eFlags = Qt::Window);

    /// Whether an object is such a window or inside one.
    static bool Owns(const QObject* in_pObject);

    /// To be called with every event in the program.
    /// \return whether the event must go no further
    bool FilterEvent(QObject* in_pReceiver, QEvent* in_pEvent);

private:
    void StayUsable(const QObject* in_pReceiver, QEvent::Type in_eType);
    void KeepStyle(QWidget* in_pWidget);

    QStyle* m_pStyle; ///< a child
};

#endif
