#ifndef TYPEDNUMBER_H
#define TYPEDNUMBER_H

/// Numbers as they are typed: expressions, whole numbers of 64 bits kept exact. Private to the library.
/// \file

#include <QVariant>

#include <optional>

/// A real number that knows whether it is a whole one, and then is exact from -(2^64 - 1) to 2^64 - 1.
class CTypedNumber
{
public:
    CTypedNumber() = default;
    explicit CTypedNumber(double in_real) : m_real(in_real) {}
    static CTypedNumber Whole(qint64 in_iValue);
    static CTypedNumber Whole(quint64 in_uSize, bool in_bNegative);

    /// The number that a value of any numeric type is; nothing when it is none.
    static std::optional<CTypedNumber> FromValue(const QVariant& in_value);

    /// The number that a text stands for: digits of any script, '.' or the locale's decimal point, exponents,
    /// parentheses, + - * / and signs; `nan` and `inf` alone. Nothing for an overflow, a division by zero and what is
    /// no expression.
    static std::optional<CTypedNumber> FromText(const QString& in_strText);

    double Real() const { return m_real; }

    /// The low 64 bits of a whole number: converted to its type, they are its value.
    quint64 Bits() const { return m_bNegative ? 0 - m_uSize : m_uSize; }

    /// The nearest whole number; nothing when that has more than 64 bits.
    std::optional<CTypedNumber> Rounded() const;

    CTypedNumber operator-() const;
    CTypedNumber operator+(const CTypedNumber& in_other) const;
    CTypedNumber operator*(const CTypedNumber& in_other) const;
    CTypedNumber operator/(const CTypedNumber& in_other) const;
    bool operator<(const CTypedNumber& in_other) const;

private:
    double m_real = 0;
    quint64 m_uSize = 0;
    bool m_bWhole = false;
    bool m_bNegative = false;
};

#endif
