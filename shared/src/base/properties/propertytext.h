#ifndef PROPERTYTEXT_H
#define PROPERTYTEXT_H

/// The values of rows as text and as JSON, and back. Private to the library.
/// \file

#include "propertyitem.h"

#include <QByteArray>

namespace PropertyText
{
/// A value that was copied: of which row, and what would be typed for it.
struct sCopied
{
    QString group; ///< the title that it stood under; may be empty
    QString name;  ///< of the property, or its label
    QString text;
};

/// A row's value as it is typed; of objects that differ, and of what has none, null. Reads the property, which may do
/// anything meanwhile.
QString Of(const tPropertyPtr& in_pProperty);

/// A line for each value, label and text with a tab between, and one for each title. Texts with tabs, line ends and
/// quotes are quoted as spreadsheets do it.
QString Lines(const tItems& in_items);

/// An object of values by the names of their properties, with an object within for each title.
QByteArray Json(const tItems& in_items);

/// What Lines or Json gave.
std::vector<sCopied> Parse(const QString& in_strText);
} // namespace PropertyText

#endif
