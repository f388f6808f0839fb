#ifndef VALUETYPES_H
#define VALUETYPES_H

/// The library's kinds of values, for who looks them up. Private to the library.
/// \file

#include "propertytype.h"

/// The kind of the values of a QMetaType; null when the room does not know it. They live as long as the program.
const CPropertyType* NumberTypeOf(int in_iType); ///< and of bool
const CPropertyType* PartsTypeOf(int in_iType);
const CPropertyType* TextTypeOf(int in_iType);
const CPropertyType* TimeTypeOf(int in_iType);
const CPropertyType* LookTypeOf(int in_iType); ///< colours, fonts, pictures

/// Kinds that the format of a property asks for.
const CPropertyType& ChoiceType();
const CPropertyType& KeysType(bool in_bFlags);
const CPropertyType& EnumType(const QMetaEnum& in_keys); ///< of keys that no format tells
const CPropertyType& EditedTextType(sPropertyFormat::eEditor in_eEditor);

const CPropertyType& SizePolicyType();

/// Other objects, and what nobody knows.
const CPropertyType& LinkType();
const CPropertyType& UnknownType();

/// A text in one line.
QString InOneLine(const QString& in_strText);

/// Items with commas between, and back: an item in quotes, in which a backslash stands before a quote, a backslash and
/// the n, r or t of a control character, where it would be misread else. Nothing when quotes do not match.
QString JoinedItems(const QStringList& in_items, QChar in_separator);
bool SplitItems(const QString& in_strText, QChar in_separator, QStringList& out_items);

#endif
