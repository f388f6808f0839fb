#ifndef RANDOMVALUE_H
#define RANDOMVALUE_H

#include <QRandomGenerator>
#include <QVariant>

class CProperty;

/// A value that a person could give to a property, not far from the present one; invalid for types that it has no
/// idea of.
QVariant RandomValue(const CProperty& in_property, const QVariant& in_present, QRandomGenerator& io_random);

#endif
