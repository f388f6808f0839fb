#ifndef PICTURES_H
#define PICTURES_H

/// Small pictures, painted anew at any size and scale. Private to the library.
/// \file

#include <QBrush>
#include <QIcon>

namespace Pictures
{
/// A framed sample; of no brush: a frame that is crossed out.
QIcon Swatch(const QBrush& in_brush);

/// Three dots, in the colour of the palette's texts.
QIcon Ellipsis();
} // namespace Pictures

#endif
