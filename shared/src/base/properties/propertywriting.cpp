/// How a page writes values, and takes back what it wrote.
/// \file

#include "propertychange.h"
#include "propertymodified.h"
#include "propertyrows.h"
#include "propertyundo.h"

#include <algorithm>
#include <unordered_set>

namespace
{
/// What some properties were, to be compared with what they are after a write.
class CPropertyWatch
{
public:
    /// The first ones of them are those to be written.
    CPropertyWatch(const std::vector<tPropertyPtr>& in_properties, std::size_t in_uWritten) : m_uWritten(in_uWritten)
    {
        for (const tPropertyPtr& pProperty : in_properties)
        {
            m_watched.push_back({pProperty, pProperty->Read(), QVariant()});
        }
    }

    const std::vector<sPropertyChange>& Watched() const { return m_watched; }

    /// Takes in what has another value now. What died has none, and is no change that could be taken back.
    void PutInto(CPropertyStep& io_step)
    {
        for (std::size_t u = 0; u < m_watched.size(); ++u)
        {
            sPropertyChange& watched = m_watched[u];
            watched.now = watched.property->Read();
            const bool bByWrite = u < m_uWritten || CPropertyStep::IsSame(watched.before, watched.now) ||
                                  CPropertyStep::IsSteady(*watched.property, watched.now);
            watched.now.isValid() && bByWrite ? io_step.Put(watched) : void();
        }
    }

private:
    std::vector<sPropertyChange> m_watched;
    const std::size_t m_uWritten;
};
} // namespace

std::vector<tPropertyPtr> CPropertyRows::Members(const tPropertyPtr& in_pProperty)
{
    std::vector<tPropertyPtr> members;
    for (CProperty* pMember : in_pProperty->Members())
    {
        members.push_back(tPropertyPtr(in_pProperty, pMember));
    }
    return members;
}

/// The properties that a write may change: those written and, where that matters, all else that the page shows of
/// their objects.
std::vector<tPropertyPtr> CPropertyRows::Watched(const tPropertyPtr& in_pProperty) const
{
    std::vector<tPropertyPtr> watched = Members(in_pProperty);
    std::unordered_set<const QObject*> objects;
    std::unordered_set<const CProperty*> known;
    for (const tPropertyPtr& pMember : watched)
    {
        objects.insert(pMember->Object());
        known.insert(pMember.get());
    }
    objects.erase(nullptr);
    const bool bAll = (m_pUndo->Stack() || (m_pReferences && m_pReferences->AgainstFirst())) && !objects.empty();
    for (auto it = m_items.begin(); bAll && it != m_items.end(); ++it)
    {
        const bool bWritten = (*it)->property && !(*it)->property->IsReadOnly();
        for (const tPropertyPtr& pMember : bWritten ? Members((*it)->property) : std::vector<tPropertyPtr>())
        {
            const bool bNew = objects.count(pMember->Object()) && known.insert(pMember.get()).second;
            bNew ? watched.push_back(pMember) : void();
        }
    }
    return watched;
}

bool CPropertyRows::Write(const tPropertyPtr& in_pProperty, const QVariant& in_value)
{
    return Write(in_pProperty, in_value, std::make_shared<CPropertyStep>());
}

bool CPropertyRows::Write(const tPropertyPtr& in_pProperty, const QVariant& in_value, const tPropertyStepPtr& in_pStep)
{
    const QVariant value = in_value;
    const auto write = [value](const tPropertyPtr& in_pMember) { return in_pMember->Write(value); };
    return Change(in_pProperty, value, write, in_pStep);
}

bool CPropertyRows::Change(const tPropertyPtr& in_pProperty, const QVariant& in_value, const tWriter& in_write,
                           const tPropertyStepPtr& in_pStep)
{
    const QPointer<CPropertyRows> self(this);
    const tPropertyPtr pProperty = in_pProperty; // the argument may be a row's, which may go meanwhile
    const tPropertyStepPtr pStep = in_pStep;
    bool bAllowed = !pProperty->IsReadOnly();
    const std::vector<tPropertyPtr> watched = bAllowed ? Watched(pProperty) : std::vector<tPropertyPtr>();
    if (bAllowed)
    {
        Q_EMIT m_page.ValueAboutToChange(pProperty.get(), in_value, &bAllowed);
    }
    const auto writeAll = [&] {
        bool bTaken = false;
        for (const tPropertyPtr& pMember : Members(pProperty))
        {
            bTaken = in_write(pMember) || bTaken;
        }
        return bTaken;
    };
    return self && bAllowed && Perform(pProperty, watched, writeAll, pStep);
}

void CPropertyRows::TakeBack(const tPropertyPtr& in_pProperty, const tPropertyStepPtr& in_pStep)
{
    const tPropertyPtr pProperty = in_pProperty;
    const tPropertyStepPtr pStep = in_pStep;
    if (!pStep->IsEmpty())
    {
        Perform(
            pProperty, Watched(pProperty), [&] { return pStep->Undo(), true; }, pStep);
    }
}

/// Lets `in_write` write, puts what came of it on the stack and tells of it. The arguments are the caller's own.
bool CPropertyRows::Perform(const tPropertyPtr& in_pProperty, const std::vector<tPropertyPtr>& in_watched,
                            const std::function<bool()>& in_write, const tPropertyStepPtr& in_pStep)
{
    const QPointer<CPropertyRows> self(this);
    const QPointer<QUndoStack> pStack(m_iReplays == 0 && !m_pWriting ? m_pUndo->Stack() : nullptr);
    const tPropertyStepPtr pOuter = m_pWriting;
    const tPropertyStepPtr pChanges = std::make_shared<CPropertyStep>();
    CPropertyWatch watch(in_watched, in_pProperty->Members().size());
    Note(watch.Watched());
    const QVariant before = in_pProperty->Read();
    m_pWriting = pChanges; // a setter that writes is part of the same step
    const bool bTaken = in_write();
    self ? void(m_pWriting = pOuter) : void();
    watch.PutInto(*pChanges);
    in_pStep->Add(*pChanges);
    pOuter ? pOuter->Add(*pChanges) : void();
    const QVariant now = in_pProperty->Read();
    self ? Refresh() : void();
    if (pStack && !pChanges->IsEmpty())
    {
        CPropertyUndo::Push(*pStack, self, in_pProperty, *pChanges, in_pStep);
    }
    if (self && !pChanges->IsEmpty())
    {
        Q_EMIT m_page.ValueChanged(in_pProperty.get(), before, now);
    }
    return bTaken;
}

/// Values that are about to be written over are first values.
void CPropertyRows::Note(const std::vector<sPropertyChange>& in_properties)
{
    for (const sPropertyChange& property : in_properties)
    {
        m_pReferences ? m_pReferences->Note(property.property, property.before) : void();
    }
}

void CPropertyRows::Replay(const tPropertyPtr& in_pProperty, const CPropertyStep& in_step,
                           void (CPropertyStep::*in_pDirection)() const)
{
    const QPointer<CPropertyRows> self(this);
    const tPropertyPtr pProperty = in_pProperty;
    const QVariant before = pProperty->Read();
    ++m_iReplays; // what is written meanwhile comes of this, and is no step of its own
    (in_step.*in_pDirection)();
    const QVariant now = pProperty->Read();
    if (self)
    {
        Refresh();
        Reveal(*pProperty);
    }
    if (self)
    {
        Q_EMIT m_page.ValueChanged(pProperty.get(), before, now);
    }
    self ? void(--m_iReplays) : void();
}

/// Scrolls to the row of a property, also when the page was filled anew since it was written.
void CPropertyRows::Reveal(const CProperty& in_property)
{
    const auto isSame = [&](const tItemPtr& in_pItem) {
        const CProperty* pProperty = in_pItem->property.get();
        return pProperty == &in_property ||
               (pProperty && in_property.Object() && pProperty->Name() == in_property.Name() &&
                pProperty->Object() == in_property.Object());
    };
    const auto it = std::find_if(m_items.begin(), m_items.end(), isSame);
    if (m_pClient && it != m_items.end())
    {
        m_pClient->Reveal(tItemPtr(*it));
    }
}
