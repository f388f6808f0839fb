#include "inspectordataelement.h"

#include "inspectorcontroller.h"

CInspectorDataElement::~CInspectorDataElement() = default;

void CInspectorDataElement::SetDataControl(CInspectorDataWidget* in_pWidget, CInspectorController* in_pController)
{
    m_widgetLink.Bind(m_pWidget, in_pWidget);
    m_controllerLink.Bind(m_pController, in_pController);
}

void CInspectorDataElement::OnCtrlValueChange(CInspectorDataWidget*) {}

void CInspectorDataElement::OnEndEditing(CInspectorDataWidget* in_pWidget, eEndEditCause in_eCause)
{
    if (!m_pController)
    {
        return;
    }
    if (in_eCause == eEndEditNext)
    {
        m_pController->GiveFocusToNextElement(in_pWidget);
    }
    else if (in_eCause == eEndEditPrevious)
    {
        m_pController->GiveFocusToPrevElement(in_pWidget);
    }
}

void CInspectorDataElement::Mute() {}

void CInspectorDataElement::Unmute() {}

void CInspectorDataElement::Connect() {}

void CInspectorDataElement::Disconnect() {}

void CInspectorDataElement::UpdateData()
{
    if (m_pWidget)
    {
        m_pWidget->OnValueChange(nullptr);
    }
}

bool CInspectorDataElement::IsReadOnly()
{
    return m_bReadOnly;
}

void CInspectorDataElement::SetReadOnly(bool in_bReadOnly)
{
    m_bReadOnly = in_bReadOnly;
}

void CInspectorDataElement::InternalValueChanged() {}

CInspectorDataWidget::~CInspectorDataWidget() = default;

void CInspectorDataWidget::SetDataElement(CInspectorDataElement* in_pElement)
{
    m_elementLink.Bind(m_pElement, in_pElement);
}

void CInspectorDataWidget::StartEditing() {}

void CInspectorDataWidget::OnValueChange(sValueChangeInfo*) {}

void CInspectorDataWidget::OnTopoChange(sTopoChangeInfo*) {}

void CInspectorDataWidget::ReleaseOwners()
{
    CInspectorDataElement* pElement = m_pElement;
    const bool bPaired = pElement && pElement->m_pWidget == this;
    m_anchor.Break();
    if (bPaired)
    {
        pElement->m_widgetLink.Bind(pElement->m_pWidget, this);
    }
}

ISimpleDataProvider::~ISimpleDataProvider() = default;

IInPlaceEditSink::~IInPlaceEditSink() = default;
