#include "propertyundo.h"

#include "propertyrows.h"

#include <QCoreApplication>
#include <QUndoCommand>

namespace
{
const int g_iCommandId = 0x50726f70; ///< no number that an application gives its commands

/// Something written, which is done before it is pushed: what the objects' code does then never meets the stack half
/// way. It outlives page and objects.
class CPropertyCommand final : public QUndoCommand
{
public:
    CPropertyCommand(CPropertyRows* in_pRows, const tPropertyPtr& in_pProperty, const CPropertyStep& in_changes,
                     const tPropertyStepPtr& in_pStep)
        : m_pRows(in_pRows),
          m_pProperty(in_pProperty),
          m_changes(in_changes),
          m_pStep(in_pStep)
    {
        const QString strChange = QCoreApplication::translate("CPropertyPage", "Change %1");
        setText(m_pStep->Text().isEmpty() ? strChange.arg(in_pProperty->Label()) : m_pStep->Text());
    }

    int id() const override { return g_iCommandId; }

    bool mergeWith(const QUndoCommand* in_pLater) override
    {
        const auto* pLater = dynamic_cast<const CPropertyCommand*>(in_pLater);
        if (!pLater || pLater->m_pStep != m_pStep)
        {
            return false;
        }
        m_changes.Add(pLater->m_changes);
        setObsolete(m_changes.IsEmpty());
        return true;
    }

    void undo() override { Replay(&CPropertyStep::Undo); }

    void redo() override
    {
        if (m_bPushed)
        {
            Replay(&CPropertyStep::Redo);
            return; // this may be gone
        }
        m_bPushed = true;
    }

private:
    void Replay(void (CPropertyStep::*in_pDirection)() const)
    {
        m_pRows ? m_pRows->Replay(m_pProperty, m_changes, in_pDirection) : (m_changes.*in_pDirection)();
    }

    const QPointer<CPropertyRows> m_pRows;
    const tPropertyPtr m_pProperty; ///< of the row
    CPropertyStep m_changes;
    const tPropertyStepPtr m_pStep;
    bool m_bPushed = false;
};
} // namespace

CPropertyUndo::~CPropertyUndo()
{
    SetStack(nullptr, false);
}

void CPropertyUndo::SetStack(QUndoStack* in_pStack, bool in_bOwn)
{
    if (IsOwn() && m_pStack != in_pStack)
    {
        m_pStack->deleteLater(); // what it is undoing may be what ends it
    }
    m_pStack = in_pStack;
    m_bOwn = in_bOwn;
}

void CPropertyUndo::Push(QUndoStack& io_stack, CPropertyRows* in_pRows, const tPropertyPtr& in_pProperty,
                         const CPropertyStep& in_changes, const tPropertyStepPtr& in_pStep)
{
    io_stack.push(new CPropertyCommand(in_pRows, in_pProperty, in_changes, in_pStep));
}
