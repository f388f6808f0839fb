#ifndef PROPERTYACCESSIBLE_H
#define PROPERTYACCESSIBLE_H

class CPropertyArea;
struct sPropertyItem;

/// What assistive technology is told of a page, whose rows are no widgets. Nothing is made before it asks, and nothing
/// is told unless it listens. Private to the library.
namespace PropertyAccessible
{
/// Lets Qt ask here about areas.
void Install();

/// Another row has become the current one, or the area has got the focus.
void TellCurrent(CPropertyArea& in_area);

/// A row shows another value.
void TellValue(CPropertyArea& in_area, sPropertyItem& in_item);

/// A group was folded or unfolded.
void TellExpanded(CPropertyArea& in_area, sPropertyItem& in_group);

/// Rows came or went, or may have.
void TellRows(CPropertyArea& in_area);
} // namespace PropertyAccessible

#endif
