#include "qtsimpledatawidget.h"

#include "datawidgettools.h"
#include "qtinspectorview.h"
#include "shapedtexts.h"
#include "viewaccessible.h"
#include "viewfilter.h"
#include "viewkeyboard.h"

#include <algorithm>
#include <utility>

using namespace InspectorWidgets;

namespace
{
/// A row that Tab has reached has the focus, and does nothing with it; but Escape and shortcuts are the window's.
bool IsForRow(const QKeyEvent& in_key)
{
    return in_key.key() != Qt::Key_Escape && !(in_key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
}
} // namespace

bool CQTControl::event(QEvent* in_pEvent)
{
    CQTInspectorView* pView = CViewFilter::Handles(*in_pEvent) ? CQTInspectorView::Of(this) : nullptr;
    if (pView && pView->m_pFilter->eventFilter(this, in_pEvent))
    {
        return true;
    }
    if (CViewKeyboard* pKeyboard = CViewKeyboard::For(this, *in_pEvent))
    {
        return pKeyboard->Deliver(this, in_pEvent);
    }
    const bool bHandled = QWidget::event(in_pEvent);
    if (in_pEvent->type() == QEvent::KeyPress && IsForRow(*static_cast<QKeyEvent*>(in_pEvent)))
    {
        in_pEvent->accept(); // it is not for what is around
    }
    return bHandled;
}

void CQTControl::PaintText(QPainter& in_painter, const QRect& in_rect, const QString& in_strText) const
{
    if (CQTInspectorView* pView = CQTInspectorView::Of(this))
    {
        pView->m_pTexts->Draw(in_painter, in_rect, in_strText);
    }
    else
    {
        in_painter.drawText(in_rect, eLeftCentred, in_strText);
    }
}

CInPlaceEdit* CQTSimpleDataWidget::g_pInPlace = nullptr;
int CQTSimpleDataWidget::g_iInPlaceRefCount = 0;

CQTSimpleDataWidget::CQTSimpleDataWidget()
{
    if (!g_pInPlace)
    {
        g_pInPlace = new CInPlaceEdit;
    }
    ++g_iInPlaceRefCount;
}

CQTSimpleDataWidget::~CQTSimpleDataWidget()
{
    if (g_pInPlace->parent() == this)
    {
        g_pInPlace->ReleaseInteraction();
        g_pInPlace->setParent(nullptr); // the application's doing; the editor must not die with this widget
    }
    g_pInPlace->ForgetSink(this);
    if (--g_iInPlaceRefCount == 0)
    {
        CInPlaceEdit* pEdit = g_pInPlace;
        g_pInPlace = nullptr;
        pEdit->Retire();
    }
}

void CQTSimpleDataWidget::InitFromElement()
{
    OnValueChange(nullptr);
}

const char* CQTSimpleDataWidget::GetType()
{
    return "qt.simple.edit";
}

int CQTSimpleDataWidget::GetRequiredWidth()
{
    return g_iInspectorNotGiven;
}

int CQTSimpleDataWidget::GetRequiredHeight(int)
{
    return eRowHeight;
}

void CQTSimpleDataWidget::ResizeWidget(int in_iWidth, int in_iHeight)
{
    resize(in_iWidth, in_iHeight);
}

void CQTSimpleDataWidget::MoveWidget(int in_iX, int in_iY)
{
    MoveTo(this, in_iX, in_iY);
}

void CQTSimpleDataWidget::Show()
{
    show();
}

void CQTSimpleDataWidget::Hide()
{
    hide();
}

void CQTSimpleDataWidget::StartEditing()
{
    const QPointer<QWidget> self(this);
    const bool bHidden = size().isEmpty();
    g_pInPlace->SetSink(this);
    if (!self || !isVisible() || (!bHidden && size().isEmpty()))
    {
        return; // ending another row's edit rebuilt the page, or hid it or its content
    }
    g_pInPlace->SetText(InspectorQt::Bytes(m_strValue).c_str());
    g_pInPlace->InPlaceEdit(this, rect());
}

void CQTSimpleDataWidget::GetDataAsString(std::string& out_strValue)
{
    out_strValue = BytesOf(m_strValue, m_strLoaded);
}

void CQTSimpleDataWidget::FinishValueEdit(const char* in_strText, CInspectorDataElement::eEndEditCause in_eCause)
{
    m_strValue = InspectorQt::Text(in_strText);
    update();
    InspectorAccessible::TellValue(this);
    ReportEnd(this, GetSafeSimpleData(), in_eCause);
}

void CQTSimpleDataWidget::OnValueChange(CInspectorDataWidget::sValueChangeInfo*)
{
    if (ReadText(GetSafeControlDataProvider(), m_strLoaded, m_strValue))
    {
        g_pInPlace->UpdateText(this, m_strValue);
        CQTInspectorView::UpdateControl(this);
        InspectorAccessible::TellValue(this);
    }
}

CSimpleDataElement* CQTSimpleDataWidget::GetSafeSimpleData()
{
    return dynamic_cast<CSimpleDataElement*>(m_pElement);
}

ISimpleDataProvider* CQTSimpleDataWidget::GetSafeControlDataProvider()
{
    return dynamic_cast<ISimpleDataProvider*>(m_pElement);
}

void CQTSimpleDataWidget::mousePressEvent(QMouseEvent* in_pEvent)
{
    if (in_pEvent->button() == Qt::LeftButton && m_pElement && !m_pElement->IsReadOnly())
    {
        StartEditing();
    }
}

void CQTSimpleDataWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(0, 0, width(), height(), Colour(this, QPalette::Base));
    if (!m_strValue.isEmpty())
    {
        PaintText(painter, TextRect(this, painter), m_strValue);
    }
}

void CQTSimpleDataWidget::showEvent(QShowEvent* in_pEvent)
{
    QWidget::showEvent(in_pEvent);
}

void CQTSimpleDataWidget::hideEvent(QHideEvent* in_pEvent)
{
    QWidget::hideEvent(in_pEvent);
}

CQTSimpleBoolWidget::CQTSimpleBoolWidget() = default;

void CQTSimpleBoolWidget::InitFromElement()
{
    OnValueChange(nullptr);
}

const char* CQTSimpleBoolWidget::GetType()
{
    return "qt.simple.bool";
}

int CQTSimpleBoolWidget::GetRequiredWidth()
{
    return eRowHeight;
}

int CQTSimpleBoolWidget::GetRequiredHeight(int)
{
    return eRowHeight;
}

void CQTSimpleBoolWidget::ResizeWidget(int in_iWidth, int in_iHeight)
{
    resize(in_iWidth, std::min<int>(in_iHeight, eRowHeight));
}

void CQTSimpleBoolWidget::MoveWidget(int in_iX, int in_iY)
{
    MoveTo(this, in_iX, in_iY);
}

void CQTSimpleBoolWidget::Show()
{
    setVisible(true);
}

void CQTSimpleBoolWidget::Hide()
{
    setVisible(false);
}

void CQTSimpleBoolWidget::OnValueChange(CInspectorDataWidget::sValueChangeInfo*)
{
    if (CBoolDataElement* pElement = GetSafeData())
    {
        const bool bOld = std::exchange(m_bValue, pElement->GetValue());
        CQTInspectorView::UpdateControl(this);
        bOld != m_bValue ? InspectorAccessible::TellValue(this) : void();
    }
}

bool CQTSimpleBoolWidget::GetValue()
{
    return m_bValue;
}

CBoolDataElement* CQTSimpleBoolWidget::GetSafeData()
{
    return dynamic_cast<CBoolDataElement*>(m_pElement);
}

void CQTSimpleBoolWidget::mousePressEvent(QMouseEvent* in_pEvent)
{
    CBoolDataElement* pElement = GetSafeData();
    if (in_pEvent->pos().x() >= eRowHeight || !pElement || pElement->IsReadOnly())
    {
        return;
    }
    m_bValue = !m_bValue;
    update(); // ahead of the report, which may destroy this widget
    InspectorAccessible::TellValue(this);
    pElement->OnCtrlValueChange();
}

void CQTSimpleBoolWidget::paintEvent(QPaintEvent*)
{
    const int iWidth = std::min<int>(width(), eRowHeight);
    const int iHeight = std::min<int>(height(), eRowHeight);
    QPainter painter(this);
    painter.fillRect(0, 0, iWidth, iHeight, Colour(this, QPalette::Base));
    if (m_bValue)
    {
        const int iRight = iWidth - eCrossInset;
        const int iBottom = iHeight - eCrossInset;
        painter.setPen(Colour(this, QPalette::WindowText));
        painter.drawLine(eCrossInset, eCrossInset, iRight, iBottom);
        painter.drawLine(eCrossInset, iBottom, iRight, eCrossInset);
    }
}

CQTSimpleTextWidget::CQTSimpleTextWidget()
{
    setReadOnly(false);
}

void CQTSimpleTextWidget::InitFromElement()
{
    OnValueChange(nullptr);
}

const char* CQTSimpleTextWidget::GetType()
{
    return "qt.simple.text";
}

int CQTSimpleTextWidget::GetRequiredWidth()
{
    return eRowHeight;
}

int CQTSimpleTextWidget::GetRequiredHeight(int)
{
    return eTextHeight;
}

void CQTSimpleTextWidget::ResizeWidget(int in_iWidth, int in_iHeight)
{
    resize(in_iWidth, in_iHeight);
}

void CQTSimpleTextWidget::MoveWidget(int in_iX, int in_iY)
{
    MoveTo(this, in_iX, in_iY);
}

void CQTSimpleTextWidget::Show()
{
    setVisible(true);
}

void CQTSimpleTextWidget::Hide()
{
    setVisible(false);
}

void CQTSimpleTextWidget::OnValueChange(CInspectorDataWidget::sValueChangeInfo*)
{
    std::string strBytes;
    QString strText;
    if (!ReadText(GetSafeData(), strBytes, strText))
    {
        return;
    }
    std::string strPresent;
    GetDataAsString(strPresent);
    m_strLoaded = strBytes;
    m_bOutdated = hasFocus() && document()->isModified();
    if (!m_bOutdated)
    {
        ShowLoaded(strBytes != strPresent); // the same text again would move the cursor and forget what can be undone
    }
}

void CQTSimpleTextWidget::ShowLoaded(bool in_bReplaceText)
{
    if (in_bReplaceText)
    {
        setText(InspectorQt::Text(m_strLoaded));
    }
    m_bOutdated = false;
    m_strShown = toPlainText();
    document()->setModified(false);
    update();
}

void CQTSimpleTextWidget::GetDataAsString(std::string& out_strValue)
{
    const QString strText = toPlainText();
    out_strValue = strText == m_strShown ? m_strLoaded : InspectorQt::Bytes(strText);
}

CSimpleDataElement* CQTSimpleTextWidget::GetSafeData()
{
    return dynamic_cast<CSimpleDataElement*>(m_pElement);
}

void CQTSimpleTextWidget::focusOutEvent(QFocusEvent* in_pEvent)
{
    const QWidget* pPopup = in_pEvent->reason() == Qt::PopupFocusReason ? QApplication::activePopupWidget() : nullptr;
    if (pPopup && (pPopup->parentWidget() == this || pPopup->parentWidget() == viewport()))
    {
        return; // its own context menu: the editing goes on, and so does Qt with this widget
    }
    qApp->removeEventFilter(this);
    m_bLeaving ? void() : ReportText();
}

void CQTSimpleTextWidget::focusInEvent(QFocusEvent* in_pEvent)
{
    qApp->installEventFilter(this);
    QTextEdit::focusInEvent(in_pEvent);
}

bool CQTSimpleTextWidget::eventFilter(QObject* in_pWatched, QEvent* in_pEvent)
{
    if (in_pEvent->type() != QEvent::Shortcut)
    {
        return false;
    }
    const QPointer<QObject> pWatched = in_pWatched;
    ReportText();
    return !pWatched;
}

/// Losing the focus reports, which may destroy the widget that Qt has found to get it: reported before Qt looks. A Tab
/// that is typed takes the focus nowhere, but from control to control where the page is worked by keys.
bool CQTSimpleTextWidget::focusNextPrevChild(bool in_bNext)
{
    const bool bKeyboard = CViewKeyboard::Of(this);
    if (!bKeyboard && in_bNext && !tabChangesFocus() && (textInteractionFlags() & Qt::TextEditable))
    {
        return QTextEdit::focusNextPrevChild(in_bNext);
    }
    const QPointer<CQTSimpleTextWidget> self(this);
    ReportText();
    if (!self)
    {
        return true;
    }
    m_bLeaving = true;
    // QTextEdit would leave Shift+Tab to its parents.
    const bool bMoved = QWidget::focusNextPrevChild(in_bNext); // NOLINT(bugprone-parent-virtual-call)
    if (self)
    {
        m_bLeaving = false;
    }
    return bMoved;
}

void CQTSimpleTextWidget::ReportText()
{
    if (m_bOutdated && toPlainText() == m_strShown)
    {
        ShowLoaded(true); // what was typed has been taken back
    }
    update(); // ahead of the report, which may destroy this widget
    document()->setModified(false);
    if (CSimpleDataElement* pElement = GetSafeData())
    {
        pElement->OnCtrlValueChange();
    }
}
