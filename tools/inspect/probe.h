#ifndef PROBE_H
#define PROBE_H

#include <QObject>
#include <QPointer>

class CInspectWindow;
class QEvent;
class QMouseEvent;
class QWindow;

/// What of the inspector is always in the program: one event filter. It opens the window when the program's event loop
/// begins, and again on Ctrl+Shift+click; the window is gone before the program's application object is.
class CProbe : public QObject
{
    Q_OBJECT

public:
    CProbe();
    ~CProbe() override;

    bool eventFilter(QObject* in_pReceiver, QEvent* in_pEvent) override;

    /// The window, which it opens where there is none.
    CInspectWindow& Window();

    /// Deletes the window.
    void Close();

private:
    bool FilterMouse(QWindow* in_pWindow, const QMouseEvent& in_event);
    bool Pick(QWindow* in_pWindow, const QMouseEvent& in_event);

    QPointer<CInspectWindow> m_pWindow;
    bool m_bPicking = false; ///< from the press to the release of the button
};

#endif
