#include "propertyitem.h"

#include "propertytype.h"

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
    text = type->Shown(pProperty->Format(), value);
}
