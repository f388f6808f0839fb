#include "inplacekeeper.h"

#include "inspectorqt.h"

/// What a keeper does with keys.
/// \file

namespace
{
const int g_iPatience = 500; ///< in milliseconds; a window manager may refuse to activate an editor
} // namespace

bool CInPlaceKeeper::KeepsKeysWaiting() const
{
    return m_iReports > 0 || (m_bAwaited && !m_bOverdue);
}

/// While an editor is open, what reaches the window that it belongs to was typed for it: Qt may take it for active
/// before the X server does. The keys wait until Qt does, because an editor that ended before would be told of its
/// activation later, over another row.
bool CInPlaceKeeper::TakeKey(QObject* in_pWatched, QEvent* in_pEvent)
{
    const bool bComposed = in_pEvent->type() == QEvent::InputMethod;
    const bool bLineOpen = m_pOver && m_eKind == eLine && !IsInside();
    if ((!bLineOpen && m_iReports == 0) || !m_pKeysOf || m_iDeliveries > 0 ||
        !(bComposed ? in_pWatched->isWidgetType()
                    : in_pEvent->spontaneous() && InspectorQt::GetsKeysFirst(in_pWatched)))
    {
        return false;
    }
    QWidget* pWindow = InspectorQt::WindowWidget(in_pWatched);
    const bool bThereAlready = bComposed && in_pWatched == m_pEditor && m_keys.IsEmpty();
    const bool bWaits = m_bAwaited || m_iReports > 0;
    if (!pWindow || bThereAlready || (pWindow->window() != m_pKeysOf && !(bWaits && pWindow == m_pEditor)))
    {
        return false;
    }
    in_pEvent->accept();
    if (in_pEvent->type() != QEvent::ShortcutOverride)
    {
        m_keys.Hold(*in_pEvent);
        KeepsKeysWaiting() ? m_patience.start(g_iPatience, this) : DeliverKeys();
    }
    return true;
}

/// A key may end the edit, and the next one has to be waited for again. Without a next one the keys are the owner's.
void CInPlaceKeeper::DeliverKeys()
{
    const CBusy busy(this);
    ++m_iDeliveries;
    while (!m_keys.IsEmpty() && !KeepsKeysWaiting())
    {
        QWidget* pFocused = m_pKeysOf && m_pKeysOf->focusWidget() ? m_pKeysOf->focusWidget() : m_pKeysOf.data();
        m_keys.DeliverOne(m_pOver ? m_pEditor : pFocused);
    }
    --m_iDeliveries;
    m_keys.IsEmpty() ? void() : m_patience.start(g_iPatience, this); // for the next editor
}

void CInPlaceKeeper::FlushKeys()
{
    m_patience.stop();
    m_bOverdue = true;
    DeliverKeys();
}
