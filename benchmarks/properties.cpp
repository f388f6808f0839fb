#include "properties.h"

namespace
{
CProperties::eKind KindOf(int in_iPlace)
{
    if (in_iPlace < 5)
    {
        return CProperties::eText;
    }
    if (in_iPlace < 7)
    {
        return CProperties::eFlag;
    }
    return in_iPlace < 9 ? CProperties::eChoice : CProperties::eFixed;
}
} // namespace

CProperties::CProperties(int in_iCount)
{
    for (int i = 0; i < in_iCount; ++i)
    {
        m_properties.push_back({KindOf(i % eGroupSize), "Property " + std::to_string(i), "", false, 0});
        Change(i);
    }
}

void CProperties::Change(int in_iIndex)
{
    sProperty& property = m_properties[static_cast<std::size_t>(in_iIndex)];
    property.flag = !property.flag;
    property.choice = (property.choice + 1) % eChoices;
    property.text = property.kind == eChoice ? ChoiceText(property.choice) : "value " + std::to_string(++m_iChanges);
}

std::string CProperties::ChoiceText(int in_iChoice)
{
    return "choice " + std::to_string(in_iChoice);
}

std::string CProperties::GroupTitle(int in_iFirst)
{
    return "Group " + std::to_string(in_iFirst / eGroupSize);
}
