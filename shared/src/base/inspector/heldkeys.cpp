#include "heldkeys.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>

#include <utility>

void CHeldKeys::Hold(const QEvent& in_event)
{
    if (in_event.type() == QEvent::InputMethod)
    {
        const QInputMethodEvent& event = static_cast<const QInputMethodEvent&>(in_event);
        auto* pCopy = new QInputMethodEvent(event.preeditString(), event.attributes());
        m_events.emplace_back(pCopy);
        pCopy->setCommitString(event.commitString(), event.replacementStart(), event.replacementLength());
        return;
    }
    const QKeyEvent& key = static_cast<const QKeyEvent&>(in_event);
    m_events.emplace_back(new QKeyEvent(key.type(), key.key(), key.modifiers(), key.text(), key.isAutoRepeat(),
                                        static_cast<ushort>(key.count())));
}

void CHeldKeys::DeliverOne(QWidget* in_pReceiver)
{
    const std::unique_ptr<QEvent> pEvent = std::move(m_events.front());
    m_events.pop_front();
    if (in_pReceiver)
    {
        QCoreApplication::sendEvent(in_pReceiver, pEvent.get());
    }
}
