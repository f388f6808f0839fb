#ifndef HELDKEYS_H
#define HELDKEYS_H

#include <QEvent>
#include <QWidget>

#include <deque>
#include <memory>

/// What was typed, kept in its order until somebody can take it. Private to the library.
class CHeldKeys
{
public:
    bool IsEmpty() const { return m_events.empty(); }
    void Clear() { m_events.clear(); }

    /// Keeps a copy of a key event or of what an input method gives.
    void Hold(const QEvent& in_event);

    /// Sends the oldest one, of which there must be one, to a widget; null: to nobody. That may do anything.
    void DeliverOne(QWidget* in_pReceiver);

private:
    std::deque<std::unique_ptr<QEvent>> m_events;
};

#endif
