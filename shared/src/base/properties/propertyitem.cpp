#include "propertyitem.h"

#include "propertychange.h"
#include "propertytype.h"

namespace
{
/// Which parts differ among the values that a property stands for, a bit for each.
quint8 DifferingParts(CProperty& io_property, const CPropertyType& in_type, const QVariant& in_first)
{
    int iDiffer = 0;
    for (const CProperty* pMember : io_property.Members())
    {
        const QVariant value = pMember->Read();
        for (int iPart = 0; value.isValid() && iPart < in_type.Parts(); ++iPart)
        {
            const bool bSame = CPropertyStep::IsSame(in_type.Part(value, iPart), in_type.Part(in_first, iPart));
            iDiffer |= bSame ? 0 : 1 << iPart;
        }
    }
    return static_cast<quint8>(iDiffer);
}
} // namespace

void sPropertyItem::Load(const CItemEditors* in_pEditors)
{
    stale = false;
    if (!property)
    {
        return;
    }
    const tPropertyPtr pProperty = property;
    if (!type)
    {
        type = &CPropertyType::Of(*pProperty, in_pEditors);
    }
    value = pProperty->Read();
    mixed = pProperty->IsMixed();
    mixedParts = mixed ? DifferingParts(*pProperty, *type, value) : quint8(0);
    text = value.isValid() ? type->Shown(pProperty->Format(), value) : QString();
}
