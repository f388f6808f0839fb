#include "inplacekeeper.h"

#include "inspectorqt.h"
#include "viewaccessible.h"

#include <vector>

namespace
{
const int g_iLookInterval = 20; ///< in milliseconds
const QEvent::Type g_eReplay = static_cast<QEvent::Type>(QEvent::User + 1);
const int g_iLooks = 25;       ///< somebody else who wants the activation keeps it after half a second
const int g_iPatientLooks = 5; ///< a window manager has a tenth of a second to activate the editor by itself

/// To a widget and on to what is around it, until somebody takes it.
void PassWheel(QPointer<QWidget> in_pWidget, QEvent* in_pWheel)
{
    in_pWheel->ignore();
    while (in_pWidget && !in_pWheel->isAccepted())
    {
        QCoreApplication::sendEvent(in_pWidget, in_pWheel);
        in_pWidget = in_pWidget && !in_pWidget->isWindow() ? in_pWidget->parentWidget() : nullptr;
    }
}
} // namespace

CInPlaceKeeper::CBusy::CBusy(CInPlaceKeeper* in_pKeeper) : m_pKeeper(in_pKeeper)
{
    ++m_pKeeper->m_iBusy;
}

CInPlaceKeeper::CBusy::~CBusy()
{
    if (--m_pKeeper->m_iBusy == 0 && m_pKeeper->m_bRetired)
    {
        m_pKeeper->m_pEditor->deleteLater();
    }
}

CInPlaceKeeper::CReport::CReport(CInPlaceKeeper* in_pKeeper) : m_busy(in_pKeeper), m_pKeeper(in_pKeeper)
{
    ++m_pKeeper->m_iReports;
    qApp->installEventFilter(m_pKeeper);
}

CInPlaceKeeper::CReport::~CReport()
{
    if (--m_pKeeper->m_iReports == 0 && !m_pKeeper->m_pOver)
    {
        qApp->removeEventFilter(m_pKeeper);
    }
    m_pKeeper->DeliverKeys();
}

CInPlaceKeeper* CInPlaceKeeper::s_pFirst = nullptr;

CInPlaceKeeper::CInPlaceKeeper(QWidget* in_pEditor, eKind in_eKind, const std::function<void()>& in_drop)
    : QObject(in_pEditor),
      m_pNext(s_pFirst),
      m_pEditor(in_pEditor),
      m_eKind(in_eKind),
      m_drop(in_drop)
{
    s_pFirst = this;
    m_pEditor->setAttribute(Qt::WA_QuitOnClose, false);
}

CInPlaceKeeper::~CInPlaceKeeper()
{
    CInPlaceKeeper** ppKeeper = &s_pFirst;
    while (*ppKeeper != this)
    {
        ppKeeper = &(*ppKeeper)->m_pNext;
    }
    *ppKeeper = m_pNext;
}

void CInPlaceKeeper::EndEdits(const QWidget* in_pAround)
{
    EndAll(in_pAround, [](CInPlaceKeeper& io_keeper) { io_keeper.EndEditing(); });
}

void CInPlaceKeeper::DropEdits(const QWidget* in_pAround)
{
    EndAll(in_pAround, [](CInPlaceKeeper& io_keeper) { io_keeper.m_drop(); });
}

void CInPlaceKeeper::CloseLists()
{
    EndAll(nullptr,
           [](CInPlaceKeeper& io_keeper) { io_keeper.m_eKind == eDropDown ? io_keeper.EndEditing() : void(); });
}

/// Each that is open now is ended once: a report may open it again, or destroy it, or what it is to be open in.
void CInPlaceKeeper::EndAll(const QWidget* in_pAround, const std::function<void(CInPlaceKeeper&)>& in_end)
{
    std::vector<QPointer<CInPlaceKeeper>> keepers;
    for (CInPlaceKeeper* pKeeper = s_pFirst; pKeeper; pKeeper = pKeeper->m_pNext)
    {
        pKeeper->IsOpenIn(in_pAround) ? keepers.push_back(pKeeper) : void();
    }
    for (const QPointer<CInPlaceKeeper>& pKeeper : keepers)
    {
        pKeeper && pKeeper->m_pOver ? in_end(*pKeeper) : void();
    }
}

bool CInPlaceKeeper::IsOpenOver(const QWidget* in_pWidget)
{
    const CInPlaceKeeper* pKeeper = s_pFirst;
    while (pKeeper && pKeeper->m_pOver != in_pWidget)
    {
        pKeeper = pKeeper->m_pNext;
    }
    return pKeeper;
}

bool CInPlaceKeeper::IsOpenIn(const QWidget* in_pAround) const
{
    return m_pOver && (!in_pAround || in_pAround->isAncestorOf(m_pOver));
}

void CInPlaceKeeper::Open(QWidget* in_pOver, const QRect& in_geometry, Qt::WindowFlags in_flags)
{
    m_pOver = in_pOver;
    m_pOwner = in_pOver->window();
    m_overRect = OverRect();
    m_ownerRect = m_pOwner->geometry();
    m_geometry = in_geometry;
    m_bInSight = IsInSight();
    m_bPlacedAgain = false;
    m_pKeysOf = m_pOwner;
    m_bAwaited = m_eKind == eLine && !IsInside();
    m_bOverdue = false;
    qApp->installEventFilter(this);
    InspectorAccessible::NameEditor(m_pEditor, in_pOver);
    m_eKind == eLine ? TakeLook(m_pEditor, in_pOver) : void(); // a list has it since before its rows were measured
    IsInside() ? OpenInside() : OpenWindow(in_flags);
    m_iLooks = g_iLooks;
    m_look.start(g_iLookInterval, this);
}

/// On Wayland a window of its own would be a pop-up, which a compositor refuses when a newer key has come.
bool CInPlaceKeeper::IsInside() const
{
    return m_eKind == eLine && InspectorQt::IsWayland();
}

void CInPlaceKeeper::OpenInside()
{
    const QPointer<QWidget> pOver = m_pOver;
    m_pOwner->setFocus(Qt::OtherFocusReason); // what loses the focus by this reports, and may do anything
    if (!pOver || m_pOver != pOver)
    {
        return;
    }
    m_pEditor->setParent(pOver);
    connect(pOver, SIGNAL(destroyed()), this, SLOT(OnOverDies()));
    m_pEditor->setGeometry(m_geometry.translated(-m_overRect.topLeft()));
    m_pEditor->show();
}

void CInPlaceKeeper::OpenWindow(Qt::WindowFlags in_flags)
{
    // The flags come first: they would shift a geometry that was set before. On Wayland only a pop-up can be placed.
    // An owner that stays on top would cover an editor that the window manager does not know to belong to it.
    const Qt::WindowFlags onTop = m_pOwner->windowFlags() & Qt::WindowStaysOnTopHint;
    m_pEditor->setWindowFlags(InspectorQt::IsWayland() ? Qt::WindowFlags(Qt::Popup) : in_flags | onTop);
    m_pEditor->setWindowState(Qt::WindowNoState); // it may have been minimized together with its owner
    m_pEditor->setGeometry(m_geometry); // a native window that is born elsewhere may be believed to be there for ever
    InspectorQt::ShareScreen(m_pEditor, m_pOver);
    if (m_eKind == eLine || InspectorQt::IsWayland() || QApplication::activeModalWidget())
    {
        InspectorQt::SetTransientOwner(m_pEditor, m_pOver);
    }
    m_pEditor->setGeometry(m_geometry); // once more, in the scale of its screen
    m_pEditor->show();
    if (m_eKind == eDropDown || !InspectorQt::IsXcb()) // there it is too early; see IsMissing
    {
        InspectorQt::Activate(m_pEditor);
    }
}

/// With it would die the editor, whose children's parent it is.
void CInPlaceKeeper::OnOverDies()
{
    m_sinkWatch.Forget();
    m_drop();
}

/// On Qt 4, which does not tell, this looks for where the row is as well.
void CInPlaceKeeper::timerEvent(QTimerEvent* in_pEvent)
{
    if (in_pEvent->timerId() == m_patience.timerId())
    {
        FlushKeys();
        return;
    }
    if (m_iLooks-- > 0 && IsMissing())
    {
        InspectorQt::Activate(m_pEditor);
    }
    if (InspectorQt::HearsLate())
    {
        RequestCheck();
    }
    else if (m_iLooks == 0 || !m_bAwaited)
    {
        m_look.stop();
    }
}

/// Whether the editor should be the active window and is not. A window manager activates it by itself; one that is late
/// may activate nothing at all when one window has gone and come again.
bool CInPlaceKeeper::IsMissing() const
{
    const QWidget* pActive = QApplication::activeWindow();
    if (InspectorQt::HearsLate())
    {
        return pActive != m_pEditor;
    }
    return m_bAwaited && (!pActive || pActive == m_pOwner) && m_iLooks < g_iLooks - g_iPatientLooks &&
           InspectorQt::IsOnScreen(m_pEditor);
}

void CInPlaceKeeper::Close()
{
    const CBusy busy(this);
    const bool bOverInPlace = m_pOver && !m_pOver->isWindow(); // a dying one may have left its window
    const QPointer<QWidget> pOwner = bOverInPlace ? m_pOver->window() : m_pOwner.data();
    const bool bWasActive = m_bAwaited || QApplication::activeWindow() == m_pEditor;
    m_bAwaited = false;
    m_look.stop();
    m_patience.stop();
    m_iDeliveries == 0 ? m_keys.Clear() : void(); // they were typed for a row that was taken away
    qApp->removeEventFilter(this);
    m_pOver ? void(m_pOver->disconnect(this)) : void();
    QWidget* pHeir = bOverInPlace && m_pOver->focusPolicy() != Qt::NoFocus ? m_pOver.data() : m_pEditor->window();
    m_pOver = nullptr;
    m_pOwner = nullptr;
    if (m_eKind == eDropDown && m_pEditor->testAttribute(Qt::WA_WState_Created))
    {
        InspectorQt::SetTransientOwner(m_pEditor, nullptr); // or a window manager takes the activation away
    }
    if (!m_pEditor->isWindow() && m_pEditor->hasFocus())
    {
        pHeir->setFocus(Qt::OtherFocusReason); // or Qt would give it to some other row
    }
    const bool bActivate = bWasActive && pOwner && !pOwner->isMinimized(); // which would bring it back
    if (bActivate && m_eKind == eLine && InspectorQt::IsXcb())
    {
        InspectorQt::Activate(pOwner); // a focus that goes with its window is nobody's for a while
    }
    m_pEditor->hide();
    m_pEditor->isWindow() ? void() : m_pEditor->setParent(nullptr);
    if (bActivate)
    {
        InspectorQt::Activate(pOwner);
        ClaimOwnerActive(pOwner);
    }
}

/// Where a window belongs to another, Qt asks the X server for that other one, and is told nothing if it has the focus
/// already. Asked once more, of a window that none belongs to, Qt asks the window manager and takes it for active.
void CInPlaceKeeper::ClaimOwnerActive(QWidget* in_pOwner)
{
    if (m_eKind == eLine && InspectorQt::IsXcb() && m_pEditor->testAttribute(Qt::WA_WState_Created))
    {
        InspectorQt::SetTransientOwner(m_pEditor, nullptr);
        InspectorQt::Activate(in_pOwner);
    }
}

/// An editor that has been on the screen may be about to get the focus: taking it from another widget made that one
/// report, the report ended everything, and Qt will go on with the editor.
void CInPlaceKeeper::Retire()
{
    Close();
    m_bRetired = true;
    if (m_iBusy == 0)
    {
        m_pEditor->testAttribute(Qt::WA_WState_Created) ? m_pEditor->deleteLater() : delete m_pEditor;
    }
}

bool CInPlaceKeeper::eventFilter(QObject* in_pWatched, QEvent* in_pEvent)
{
    switch (in_pEvent->type())
    {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
        return TakeKey(in_pWatched, in_pEvent);
    default:
        return m_pOver && WatchOver(in_pWatched, in_pEvent);
    }
}

/// What happens elsewhere while the editor is open.
bool CInPlaceKeeper::WatchOver(QObject* in_pWatched, QEvent* in_pEvent)
{
    switch (in_pEvent->type())
    {
    case QEvent::WindowActivate:
        if (in_pWatched == m_pEditor && m_bAwaited && !m_bReplayPosted)
        {
            m_bReplayPosted = true;
            QCoreApplication::postEvent(this, new QEvent(g_eReplay)); // Qt still goes on with the activation
        }
        return false;
    case QEvent::Shortcut:
        return EndOnShortcut(in_pWatched);
    case QEvent::MouseButtonPress:
        FlushKeys();
        return m_pOver && (m_eKind == eDropDown || InspectorQt::IsWayland()) && !IsOnEditor(in_pWatched, in_pEvent) &&
               EndOnPress(in_pWatched);
    case QEvent::Wheel:
        if (m_eKind == eLine && in_pWatched == m_pEditor)
        {
            PassWheel(m_pOver, in_pEvent);
            return true;
        }
        return false;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Hide:
    case QEvent::ParentChange:
    case QEvent::WindowStateChange:
    case QEvent::EnabledChange:
        if (in_pWatched == m_pEditor || IsOverOrAround(in_pWatched))
        {
            RequestCheck();
        }
        return false;
    default:
        return false;
    }
}

/// The check waits for the event loop: a layout moves a widget more than once before it is where it stays, and an edit
/// that ended from inside a widget's own hiding could destroy that widget.
void CInPlaceKeeper::RequestCheck()
{
    if (!m_bCheckPosted)
    {
        m_bCheckPosted = true;
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
}

void CInPlaceKeeper::customEvent(QEvent* in_pEvent)
{
    if (in_pEvent->type() == g_eReplay)
    {
        m_bReplayPosted = false;
        m_bAwaited = m_bAwaited && QApplication::activeWindow() != m_pEditor;
        m_bPlacedAgain = false; // by now it is where the window manager has it
        RequestCheck();
        DeliverKeys();
        return;
    }
    m_bCheckPosted = false;
    if (!m_pOver)
    {
        return;
    }
    const bool bWasInSight = m_bInSight;
    m_bInSight = IsInSight();
    const bool bOwnerChanged = m_eKind == eDropDown && m_pOver->window()->geometry() != m_ownerRect;
    if ((bWasInSight && !m_bInSight) || bOwnerChanged)
    {
        EndEditing();
    }
    else
    {
        Follow();
    }
}

void CInPlaceKeeper::Follow()
{
    const QRect overRect = OverRect();
    if (overRect != m_overRect)
    {
        m_geometry.translate(overRect.topLeft() - m_overRect.topLeft());
        if (m_eKind == eLine)
        {
            m_geometry.setSize(m_geometry.size() + overRect.size() - m_overRect.size());
        }
        m_overRect = overRect;
        m_bPlacedAgain = false;
    }
    if (!m_pEditor->isWindow())
    {
        m_pEditor->setGeometry(m_geometry.translated(-m_overRect.topLeft()));
    }
    else if (!InspectorQt::IsAt(m_pEditor, m_geometry) && !m_bPlacedAgain)
    {
        m_bPlacedAgain = true;
        InspectorQt::PlaceAt(m_pEditor, m_geometry);
    }
}

void CInPlaceKeeper::EndEditing()
{
    const CBusy busy(this);
    while (m_pOver && !m_keys.IsEmpty())
    {
        FlushKeys();
    }
    m_bAwaited = false;
    QEvent deactivation(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(m_pEditor, &deactivation);
}

/// What a shortcut does works on what was typed.
bool CInPlaceKeeper::EndOnShortcut(QObject* in_pWatched)
{
    const QPointer<QObject> pAlive = in_pWatched;
    EndEditing();
    return !pAlive;
}

bool CInPlaceKeeper::IsOnEditor(QObject* in_pWatched, QEvent* in_pEvent) const
{
    const QWidget* pPressed =
        in_pWatched->isWidgetType() ? static_cast<QWidget*>(in_pWatched) : InspectorQt::WindowWidget(in_pWatched);
    if (!pPressed || m_pEditor->isWindow() || pPressed->window() != m_pEditor->window())
    {
        return pPressed && pPressed->window() == m_pEditor;
    }
    const QPoint position = pPressed->mapTo(pPressed->window(), static_cast<QMouseEvent*>(in_pEvent)->pos());
    return m_pEditor->rect().contains(m_pEditor->mapFrom(m_pEditor->window(), position));
}

/// Neither a tool-tip window nor a pop-up loses the activation to a press elsewhere, so the press itself ends the
/// editing. It then goes on to where it was aimed, unless that has died of the report. The editor's context menu, a
/// pop-up over the pop-up, takes the next press for itself.
bool CInPlaceKeeper::EndOnPress(QObject* in_pWatched)
{
    const QPointer<QObject> pWatched = in_pWatched;
    const QPointer<QWidget> pPressed = InspectorQt::WindowWidget(in_pWatched);
    const QWidget* pPopup = QApplication::activePopupWidget();
    const bool bBelowMenu = InspectorQt::IsWayland() && pPopup && pPopup != m_pEditor;
    if (!pPressed || bBelowMenu)
    {
        return false;
    }
    EndEditing();
    if (pPressed)
    {
        InspectorQt::Activate(pPressed);
    }
    return !pWatched;
}

bool CInPlaceKeeper::IsOverOrAround(const QObject* in_pObject) const
{
    for (const QWidget* pWidget = m_pOver; pWidget; pWidget = pWidget->isWindow() ? nullptr : pWidget->parentWidget())
    {
        if (pWidget == in_pObject)
        {
            return true;
        }
    }
    return false;
}

QRect CInPlaceKeeper::OverRect() const
{
    return InspectorGlobalRect(m_pOver, m_pOver->rect());
}

bool CInPlaceKeeper::IsInSight() const
{
    return m_pOver->isVisible() && m_pOver->isEnabled() && !m_pOver->window()->isMinimized() &&
           !m_pOver->visibleRegion().isEmpty();
}
