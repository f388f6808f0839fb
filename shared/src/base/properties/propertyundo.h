#ifndef PROPERTYUNDO_H
#define PROPERTYUNDO_H

/// The undo stack of a page, and what stands on it. Private to the library.
/// \file

#include "propertychange.h"

#include <QPointer>
#include <QUndoStack>

class CPropertyRows;

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

    /// Puts on a stack what was just written, together with what the same step wrote before. Null: the page is gone.
    /// What hears of it may do anything.
    static void Push(QUndoStack& io_stack, CPropertyRows* in_pRows, const tPropertyPtr& in_pProperty,
                     const CPropertyStep& in_changes, const tPropertyStepPtr& in_pStep);

private:
    QPointer<QUndoStack> m_pStack;
    bool m_bOwn = false;
};

#endif
