#include "probe.h"

#include "exercise.h"
#include "inspectqt.h"
#include "inspectwindow.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace
{
CProbe* g_pProbe = nullptr; ///< for the routine that Qt calls when the application ends

/// A window of the program's that is on the screen; null for none.
QWidget* ProgramWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto isShown = [](const QWidget* in_pWindow) {
        return in_pWindow->isVisible() && in_pWindow->windowType() == Qt::Window && !CApartWindow::Owns(in_pWindow);
    };
    const auto ppWindow = std::find_if(windows.begin(), windows.end(), isShown);
    return ppWindow == windows.end() ? nullptr : *ppWindow;
}

/// Right of the program's window, as far as there is room.
void PutBesideProgram(QWidget& io_window)
{
    if (const QWidget* pOther = ProgramWindow())
    {
        const QRect room = pOther->screen()->availableGeometry();
        const int iLeft = qMin(pOther->frameGeometry().right() + 1, room.right() - io_window.width());
        io_window.move(qMax(room.left(), iLeft), qMax(room.top(), pOther->frameGeometry().top()));
    }
}
} // namespace

CProbe::CProbe()
{
    g_pProbe = this;
    qAddPostRoutine([] { g_pProbe ? g_pProbe->Close() : void(); });
    connect(qApp, &QCoreApplication::aboutToQuit, this, &CProbe::Close);
    qApp->installEventFilter(this);
    QMetaObject::invokeMethod(
        this,
        [this] {
            Window();
            CExercise::BeginIfAsked(*this);
        },
        Qt::QueuedConnection);
}

CProbe::~CProbe()
{
    Close();
    g_pProbe = nullptr;
}

bool CProbe::eventFilter(QObject* in_pReceiver, QEvent* in_pEvent)
{
    switch (in_pEvent->type())
    {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        return in_pReceiver->isWindowType() &&
               FilterMouse(static_cast<QWindow*>(in_pReceiver), static_cast<QMouseEvent&>(*in_pEvent));
    default:
        return false;
    }
}

CInspectWindow& CProbe::Window()
{
    if (!m_pWindow)
    {
        m_pWindow = new CInspectWindow;
        PutBesideProgram(*m_pWindow);
        m_pWindow->show();
    }
    return *m_pWindow;
}

void CProbe::Close()
{
    delete m_pWindow;
}

/// The program sees nothing of a click that picks a widget.
bool CProbe::FilterMouse(QWindow* in_pWindow, const QMouseEvent& in_event)
{
    const bool bPress = in_event.type() == QEvent::MouseButtonPress || in_event.type() == QEvent::MouseButtonDblClick;
    if (!m_bPicking)
    {
        m_bPicking = bPress && Pick(in_pWindow, in_event);
        return m_bPicking;
    }
    m_bPicking = in_event.type() != QEvent::MouseButtonRelease;
    return true;
}

bool CProbe::Pick(QWindow* in_pWindow, const QMouseEvent& in_event)
{
    QWidget* pTop = QWidget::find(in_pWindow->winId());
    const bool bAsked =
        in_event.button() == Qt::LeftButton && in_event.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    if (!bAsked || !pTop || CApartWindow::Owns(pTop))
    {
        return false;
    }
    QWidget* pChild = pTop->childAt(pTop->mapFromGlobal(InspectQt::GlobalPosition(in_event)));
    Window().Select(pChild ? pChild : pTop);
    return true;
}
