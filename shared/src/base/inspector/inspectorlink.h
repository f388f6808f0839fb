#ifndef INSPECTORLINK_H
#define INSPECTORLINK_H

#include "inspectorexport.h"

/// Pointers that turn null when the object they point at dies.
///
/// The library's objects point at each other in every direction and applications destroy them in any order, often
/// from inside a callback. The object pointed at owns a CInspectorAnchor named `m_anchor`; whoever points at it owns
/// a CInspectorLink beside the plain pointer. Binding and dying cost a constant time per link, so that tearing down a
/// page stays linear. Nothing here allocates.
/// \file

/// The place of a link in the chain of links to one object.
class INSPECTOR_EXPORT CInspectorLinkBase
{
public:
    CInspectorLinkBase() = default;
    CInspectorLinkBase(const CInspectorLinkBase&) = delete;
    CInspectorLinkBase& operator=(const CInspectorLinkBase&) = delete;

protected:
    ~CInspectorLinkBase() { Unchain(); }

    /// Puts the link, which must be in no chain, in front of a chain.
    void Chain(CInspectorLinkBase*& io_pFirst);

    /// Takes the link out of its chain, if it is in one.
    void Unchain();

private:
    CInspectorLinkBase* m_pNext = nullptr;
    CInspectorLinkBase** m_ppThis = nullptr; ///< what points at this link in the chain; null in no chain
};

template <class T> class CInspectorLink;

/// Owned by an object that others point at; its destruction clears their pointers.
template <class T> class CInspectorAnchor
{
public:
    /// \param in_pOwner the object that has this anchor as a member
    explicit CInspectorAnchor(T* in_pOwner) : m_pOwner(in_pOwner) {}
    ~CInspectorAnchor() { Break(); }
    CInspectorAnchor(const CInspectorAnchor&) = delete;
    CInspectorAnchor& operator=(const CInspectorAnchor&) = delete;

    /// Clears every linked pointer now, ahead of the owner's death.
    void Break()
    {
        while (m_pFirst)
        {
            static_cast<CInspectorLink<T>*>(m_pFirst)->Break(m_pOwner);
        }
    }

private:
    friend class CInspectorLink<T>;

    T* m_pOwner;
    CInspectorLinkBase* m_pFirst = nullptr;
};

/// Owned by whoever owns a pointer of type `T*`: keeps that pointer from dangling. `T` must let this class reach its
/// `m_anchor`.
template <class T> class CInspectorLink : public CInspectorLinkBase
{
public:
    /// Stores `in_pTarget` (null allowed) in `out_pField` and keeps the field from outliving it. A field that was
    /// given another value meanwhile is left alone when the target dies.
    void Bind(T*& out_pField, T* in_pTarget)
    {
        Unchain();
        out_pField = in_pTarget;
        m_ppField = &out_pField;
        if (in_pTarget)
        {
            Chain(in_pTarget->m_anchor.m_pFirst);
        }
    }

private:
    friend class CInspectorAnchor<T>;

    void Break(T* in_pTarget)
    {
        Unchain();
        if (*m_ppField == in_pTarget)
        {
            *m_ppField = nullptr;
        }
    }

    T** m_ppField = nullptr;
};

/// A pointer for the stack: tells after a callback whether the object is still there.
template <class T> class CInspectorWatch
{
public:
    /// Starts watching; `in_pTarget` may be null.
    explicit CInspectorWatch(T* in_pTarget) { m_link.Bind(m_pTarget, in_pTarget); }

    /// Null once the object has died.
    T* Get() const { return m_pTarget; }

    /// Only while the object is there.
    T* operator->() const { return m_pTarget; }

    /// Whether the object is still there.
    explicit operator bool() const { return m_pTarget != nullptr; }

private:
    T* m_pTarget = nullptr;
    CInspectorLink<T> m_link;
};

#endif
