#include "slider.h"

#include "inspectorcontroller.h"

CSliderElement::CSliderElement(int& io_iModel, int in_iMinimum, int in_iMaximum)
    : m_iModel(io_iModel),
      m_iMinimum(in_iMinimum),
      m_iMaximum(in_iMaximum)
{}

const char* CSliderElement::GetType()
{
    return "example.slider.data";
}

void CSliderElement::Connect()
{
    m_iValue = m_iModel;
}

void CSliderElement::TakeOver(int in_iValue)
{
    if (IsReadOnly())
    {
        UpdateData();
    }
    else if (in_iValue != m_iValue)
    {
        m_iValue = in_iValue;
        InternalValueChanged();
    }
}

/// Other rows may show the same number: the controller refreshes them before the next paint.
void CSliderElement::InternalValueChanged()
{
    m_iModel = m_iValue;
    m_pController->DirtifyController(nullptr);
}

CSliderWidget::CSliderWidget() : QSlider(Qt::Horizontal)
{
    connect(this, SIGNAL(valueChanged(int)), this, SLOT(OnMoved(int)));
}

void CSliderWidget::InitFromElement()
{
    OnValueChange(nullptr);
}

const char* CSliderWidget::GetType()
{
    return "example.slider";
}

void CSliderWidget::StartEditing()
{
    setFocus(Qt::TabFocusReason);
}

/// Shows what the element holds; that is no change by the user.
void CSliderWidget::OnValueChange(sValueChangeInfo*)
{
    if (CSliderElement* pElement = GetSafeData())
    {
        const bool bWasBlocked = blockSignals(true);
        setRange(pElement->GetMinimum(), pElement->GetMaximum());
        setValue(pElement->GetValue());
        blockSignals(bWasBlocked);
    }
}

/// As wide as the row lets it be.
int CSliderWidget::GetRequiredWidth()
{
    return g_iInspectorNotGiven;
}

int CSliderWidget::GetRequiredHeight(int)
{
    return sizeHint().height();
}

void CSliderWidget::ResizeWidget(int in_iWidth, int in_iHeight)
{
    resize(in_iWidth, in_iHeight);
}

void CSliderWidget::MoveWidget(int in_iX, int in_iY)
{
    move(in_iX, in_iY);
}

void CSliderWidget::Show()
{
    show();
}

void CSliderWidget::Hide()
{
    hide();
}

bool CSliderWidget::focusNextPrevChild(bool in_bNext)
{
    if (!m_pElement)
    {
        return QSlider::focusNextPrevChild(in_bNext);
    }
    m_pElement->OnEndEditing(this,
                             in_bNext ? CInspectorDataElement::eEndEditNext : CInspectorDataElement::eEndEditPrevious);
    return true;
}

void CSliderWidget::OnMoved(int in_iValue)
{
    if (CSliderElement* pElement = GetSafeData())
    {
        pElement->TakeOver(in_iValue);
    }
}

CSliderElement* CSliderWidget::GetSafeData()
{
    return dynamic_cast<CSliderElement*>(m_pElement);
}
