#ifndef KEYTEXTS_H
#define KEYTEXTS_H

/// The keys of enumerations and flags as texts. Private to the library.
/// \file

#include <QMetaEnum>
#include <QString>

#include <optional>
#include <vector>

namespace KeyTexts
{
/// The indices of an enumeration's keys, without those that only are other names of an earlier one.
std::vector<int> Distinct(const QMetaEnum& in_keys);

/// A key; of a value without one, its number.
QString OfKey(const QMetaEnum& in_keys, int in_iValue);

/// Keys with '|' between, those of many bits first; what has no key as a number at the end.
QString OfFlags(const QMetaEnum& in_keys, int in_iValue);

/// The value of a key, with or without its scope, or of a number; of several with '|' between.
std::optional<int> Value(const QMetaEnum& in_keys, const QString& in_strText);
std::optional<int> FlagsValue(const QMetaEnum& in_keys, const QString& in_strText);
} // namespace KeyTexts

#endif
