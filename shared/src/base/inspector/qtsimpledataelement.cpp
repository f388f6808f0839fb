#include "qtsimpledataelement.h"

#include "inspectorcontroller.h"
#include "qtsimpledatawidget.h"

#include <algorithm>
#include <cstdlib>

const char* CSimpleDataElement::GetType()
{
    return "qt.simple.data";
}

void CSimpleDataElement::Connect()
{
    m_strValue = "Default";
}

void CSimpleDataElement::Disconnect()
{
    m_strValue.clear();
}

void CSimpleDataElement::InternalValueChanged() {}

void CSimpleDataElement::OnCtrlValueChange()
{
    if (IsReadOnly())
    {
        return;
    }
    ISimpleDataProvider* pProvider = GetSafeControlDataProvider();
    if (!pProvider)
    {
        return;
    }
    std::string strValue;
    pProvider->GetDataAsString(strValue);
    if (strValue != m_strValue)
    {
        m_strValue.swap(strValue);
        InternalValueChanged();
    }
}

void CSimpleDataElement::GetDataAsString(std::string& out_strValue)
{
    out_strValue = m_strValue;
}

ISimpleDataProvider* CSimpleDataElement::GetSafeControlDataProvider()
{
    return dynamic_cast<ISimpleDataProvider*>(m_pWidget);
}

const char* CBoolDataElement::GetType()
{
    return "qt.bool.data";
}

void CBoolDataElement::Connect()
{
    m_bValue = false;
}

void CBoolDataElement::Disconnect() {}

void CBoolDataElement::OnCtrlValueChange()
{
    CQTSimpleBoolWidget* pWidget = dynamic_cast<CQTSimpleBoolWidget*>(m_pWidget);
    if (!pWidget)
    {
        return;
    }
    const bool bValue = pWidget->GetValue();
    if (bValue != m_bValue)
    {
        m_bValue = bValue;
        InternalValueChanged();
    }
}

bool CBoolDataElement::GetValue()
{
    return m_bValue;
}

void CBoolDataElement::SetValue(bool in_bValue)
{
    m_bValue = in_bValue;
}

const char* CButtonDataElement::GetType()
{
    return "qt.button.data";
}

void CButtonDataElement::OnCtrlValueChange(CInspectorDataWidget*)
{
    if (m_bEnabled && m_pController)
    {
        const std::string strCommand = m_strCommand; // the command may destroy this element
        m_pController->CallCommand(strCommand.c_str(), static_cast<unsigned long>(m_ulArgument));
    }
}

CStaticDataElement::CStaticDataElement() : CStaticDataElement(std::string(), Qt::AlignLeft | Qt::AlignVCenter) {}

CStaticDataElement::CStaticDataElement(const std::string& in_strText, int in_iAlignment)
    : m_strText(in_strText),
      m_iAlignment(in_iAlignment)
{}

const char* CStaticDataElement::GetType()
{
    return "qt.static.data";
}

bool CEnumDataElement::sEnumDefinition::SortEnumItemOnValue::operator()(const sEnumItem& in_first,
                                                                        const sEnumItem& in_second) const
{
    return in_first.value < in_second.value;
}

bool CEnumDataElement::sEnumDefinition::SortEnumItemOnDisplay::operator()(const sEnumItem& in_first,
                                                                          const sEnumItem& in_second) const
{
    return in_first.display < in_second.display;
}

bool CEnumDataElement::sEnumDefinition::SortEnumItemOnNumericalValue::operator()(const sEnumItem& in_first,
                                                                                 const sEnumItem& in_second) const
{
    const auto number = [](const sEnumItem& in_item) {
        return static_cast<std::int32_t>(std::atol(in_item.value.c_str()));
    };
    return number(in_first) < number(in_second);
}

void CEnumDataElement::sEnumDefinition::AddItem(const std::string& in_strValue, const std::string& in_strDisplay)
{
    displays[in_strValue] = in_strDisplay;
    items.push_back({in_strValue, in_strDisplay});
}

void CEnumDataElement::sEnumDefinition::Clear()
{
    displays.clear();
}

std::string CEnumDataElement::sEnumDefinition::GetDisplayFromValue(const std::string& in_strValue)
{
    const auto it = displays.find(in_strValue);
    return it == displays.end() ? std::string() : it->second;
}

void CEnumDataElement::sEnumDefinition::GetAllItems(eSortingMethod in_eMethod, std::vector<sEnumItem>& out_items)
{
    out_items = items;
    switch (in_eMethod)
    {
    case eSortOnValue:
        std::sort(out_items.begin(), out_items.end(), SortEnumItemOnValue());
        break;
    case eSortOnDisplay:
        std::sort(out_items.begin(), out_items.end(), SortEnumItemOnDisplay());
        break;
    case eSortOnNumericalValue:
        std::sort(out_items.begin(), out_items.end(), SortEnumItemOnNumericalValue());
        break;
    case eSortNone:
        break;
    }
}

CEnumDataElement::~CEnumDataElement()
{
    ReleaseDefinition();
}

void CEnumDataElement::ReleaseDefinition()
{
    if (m_bOwnsDefinition)
    {
        delete m_pDefinition;
    }
    m_pDefinition = nullptr;
    m_bOwnsDefinition = false;
}

const char* CEnumDataElement::GetType()
{
    return "qt.simple.enum";
}

void CEnumDataElement::GetDisplayString(const char* in_strValue, std::string& out_strDisplay)
{
    out_strDisplay = m_pDefinition ? m_pDefinition->GetDisplayFromValue(in_strValue) : std::string();
}

void CEnumDataElement::CreateEnum()
{
    ReleaseDefinition();
    m_pDefinition = new sEnumDefinition;
    m_bOwnsDefinition = true;
}

void CEnumDataElement::ClearEnum()
{
    if (m_pDefinition)
    {
        m_pDefinition->Clear();
    }
}

void CEnumDataElement::AddEnum(const char* in_strValue, const char* in_strDisplay)
{
    if (m_pDefinition)
    {
        m_pDefinition->AddItem(in_strValue, in_strDisplay);
    }
}

void CEnumDataElement::SetExternalEnum(sEnumDefinition* in_pDefinition)
{
    if (in_pDefinition == m_pDefinition)
    {
        return; // already in use; the element's own must not be deleted here
    }
    ReleaseDefinition();
    m_pDefinition = in_pDefinition;
}
