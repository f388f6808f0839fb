#ifndef PROPERTYUNDO_H
#define PROPERTYUNDO_H

/// The undo stack of a page, and what stands on it. Private to the library.
/// \file

#include "propertychange.h"

#include <QPointer>
#include <QUndoStack>

class CPropertyPage;

class CPropertyUndo
{
public:
    CPropertyUndo() = default;
    CPropertyUndo(const CPropertyUndo&) = delete;
    CPropertyUndo& operator=(const CPropertyUndo&) = delete;
    ~CPropertyUndo();

    /// Null for none.
    QUndoStack* Stack() const { return m_pStack; }
    bool IsOwn() const { return m_pStack && m_bOwn; }
    void SetStack(QUndoStack* in_pStack, bool in_bOwn);

    /// Puts what has just been written on the stack, together with what the same step wrote before. What hears of it
    /// may do anything.
    void Push(CPropertyPage& in_page, const tPropertyPtr& in_pProperty, const CPropertyStep& in_changes,
              const tPropertyStepPtr& in_pStep) const;

private:
    QPointer<QUndoStack> m_pStack;
    bool m_bOwn = false;
};

#endif
