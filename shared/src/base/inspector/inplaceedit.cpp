#include "qtsimpledatawidget.h"

#include "inplacekeeper.h"
#include "inspectorqt.h"
#include "viewkeyboard.h"

#include <limits>

namespace
{
bool EndsEditing(const QKeyEvent& in_key, CInspectorDataElement::eEndEditCause& out_eCause)
{
    switch (in_key.key())
    {
    case Qt::Key_Escape:
        out_eCause = CInspectorDataElement::eEndEditCancel;
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        out_eCause = CInspectorDataElement::eEndEditValidate;
        return true;
    case Qt::Key_Tab:
        out_eCause = in_key.modifiers() & Qt::ShiftModifier ? CInspectorDataElement::eEndEditPrevious
                                                            : CInspectorDataElement::eEndEditNext;
        return true;
    case Qt::Key_Backtab:
        out_eCause = CInspectorDataElement::eEndEditPrevious;
        return true;
    default:
        return false;
    }
}
} // namespace

CInPlaceEdit::CInPlaceEdit() : m_pKeeper(new CInPlaceKeeper(this, CInPlaceKeeper::eLine, [this] { EndNestedEdit(); }))
{
    setMaxLength(std::numeric_limits<int>::max());
    connect(this, SIGNAL(editingFinished()), this, SLOT(OnFinishEditing()));
}

void CInPlaceEdit::SetSink(IInPlaceEditSink* in_pSink)
{
    const CInPlaceKeeper::CBusy busy(m_pKeeper);
    const CInPlaceSinkWatch watch(in_pSink);
    FinishRunningEdit();
    m_pSink = watch.IsAlive() ? in_pSink : nullptr;
    m_pKeeper->m_sinkWatch = watch;
}

void CInPlaceEdit::SetText(const char* in_strText)
{
    const CInPlaceKeeper::CBusy busy(m_pKeeper);
    const QString strText = InspectorQt::Text(in_strText);
    FinishRunningEdit();
    m_strInitialText = strText;
    m_strText = strText;
    setText(m_strInitialText);
}

/// A report may move the editing on to another row and so open the editor again. Whoever is starting something else now
/// wins: that nested edit is closed, and reported only if something was typed into it meanwhile.
void CInPlaceEdit::FinishRunningEdit()
{
    m_pKeeper->FlushKeys();
    OnFinishEditing();
    EndNestedEdit();
}

void CInPlaceEdit::EndNestedEdit()
{
    while (m_bEditing && isModified())
    {
        OnFinishEditing();
    }
    if (m_bEditing)
    {
        ReleaseInteraction();
    }
}

void CInPlaceEdit::InPlaceEdit(QWidget* in_pOver, QRect in_rect)
{
    const CInPlaceKeeper::CBusy busy(m_pKeeper);
    const QPointer<QWidget> pOver = in_pOver;
    FinishRunningEdit();
    if (!pOver)
    {
        return;
    }
    m_pKeeper->Open(pOver, InspectorGlobalRect(pOver, in_rect), Qt::Dialog | Qt::CustomizeWindowHint);
    if (!pOver || m_pKeeper->Over() != pOver)
    {
        return; // showing the editor took the focus from somebody who ended this edit or began another
    }
    m_bEditing = true;
    setReadOnly(CViewKeyboard::IsForReading(pOver));
    setFocus(Qt::OtherFocusReason);
    selectAll();
}

void CInPlaceEdit::ReleaseInteraction()
{
    m_bEditing = false;
    m_pKeeper->Close();
}

void CInPlaceEdit::UpdateText(IInPlaceEditSink* in_pSink, const QString& in_strText)
{
    if (!m_bEditing || m_pSink != in_pSink)
    {
        return;
    }
    m_strInitialText = in_strText;
    if (!isModified() && text() != in_strText)
    {
        setText(in_strText);
        selectAll();
    }
}

void CInPlaceEdit::ForgetSink(IInPlaceEditSink* in_pSink)
{
    if (m_pSink == in_pSink)
    {
        m_pSink = nullptr;
        ReleaseInteraction();
    }
}

void CInPlaceEdit::Retire()
{
    m_bEditing = false;
    m_pSink = nullptr;
    m_pKeeper->Retire();
}

void CInPlaceEdit::OnFinishEditing()
{
    if (!m_bEditing)
    {
        return;
    }
    const CInPlaceKeeper::CBusy busy(m_pKeeper);
    if (hasFocus())
    {
        InspectorQt::CommitComposition(this);
    }
    m_strText = text();
    const std::string strText = InspectorQt::Bytes(m_strText);
    const CInspectorDataElement::eEndEditCause eCause = m_eCause;
    m_bEditing = false;
    m_pKeeper->Close();
    if (m_pSink && m_pKeeper->m_sinkWatch.IsAlive())
    {
        const CInPlaceKeeper::CReport report(m_pKeeper);
        m_pSink->FinishValueEdit(strText.c_str(), eCause);
    }
}

bool CInPlaceEdit::event(QEvent* in_pEvent)
{
    const QEvent::Type eType = in_pEvent->type();
    if (eType == QEvent::ShortcutOverride || eType == QEvent::KeyPress)
    {
        CInspectorDataElement::eEndEditCause eCause = m_eCause;
        if (EndsEditing(*static_cast<QKeyEvent*>(in_pEvent), eCause))
        {
            return eType == QEvent::KeyPress ? EndWith(eCause) : ClaimKey(in_pEvent);
        }
        if (InspectorQt::IsMnemonic(*static_cast<QKeyEvent*>(in_pEvent)))
        {
            in_pEvent->ignore();
            return false;
        }
    }
    const bool bDeactivated = eType == QEvent::WindowDeactivate;
    const bool bLeft =
        eType == QEvent::FocusOut && static_cast<QFocusEvent*>(in_pEvent)->reason() != Qt::PopupFocusReason;
    if (m_bEditing && m_pKeeper->IsAwaited() && (bDeactivated || bLeft))
    {
        return true; // a late word of an earlier edit
    }
    if (m_bEditing && (bDeactivated || (bLeft && !isWindow() && isVisible())))
    {
        return EndWith(CInspectorDataElement::eEndEditFocusLost);
    }
    if (eType == QEvent::Hide && m_bEditing && isHidden())
    {
        EndWith(CInspectorDataElement::eEndEditFocusLost); // hidden by somebody else: a pop-up by a press outside
    }
    // A line edit that has not the focus yet when its window is activated drops its selection some time later.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    return eType == QEvent::WindowActivate ? QWidget::event(in_pEvent) : QLineEdit::event(in_pEvent);
}

/// Keeps a key that ends editing from the application's shortcuts.
bool CInPlaceEdit::ClaimKey(QEvent* in_pOverride)
{
    in_pOverride->setAccepted(m_bEditing);
    return true;
}

bool CInPlaceEdit::EndWith(CInspectorDataElement::eEndEditCause in_eCause)
{
    const CInPlaceKeeper::CBusy busy(m_pKeeper);
    m_eCause = in_eCause;
    if (in_eCause == CInspectorDataElement::eEndEditCancel)
    {
        setText(m_strInitialText);
    }
    emit editingFinished();
    return true;
}
