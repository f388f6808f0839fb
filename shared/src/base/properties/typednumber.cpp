#include "typednumber.h"

#include <QLocale>

#include <cmath>
#include <limits>

namespace
{
/// Digits, signs and the decimal point as a program writes them.
QString Plain(const QString& in_strText)
{
    const QString strPoint = QLocale().decimalPoint();
    QString strPlain;
    for (const QChar c : in_strText)
    {
        const bool bMark = c.category() == QChar::Other_Format; // which locales put around signs
        strPlain += bMark                    ? QString()
                    : c.isDigit()            ? QString(QChar(u'0' + c.digitValue()))
                    : c == QChar(0x2212)     ? QStringLiteral("-")
                    : c == QChar(0xd7)       ? QStringLiteral("*")
                    : c == QChar(0xf7)       ? QStringLiteral("/")
                    : strPoint == QString(c) ? QStringLiteral(".")
                                             : QString(c);
    }
    return strPlain.trimmed().toLower();
}

/// Reads sums of products of signed numbers and parentheses.
class CExpression
{
public:
    explicit CExpression(const QString& in_strPlain) : m_strText(in_strPlain) {}

    std::optional<CTypedNumber> Value()
    {
        const std::optional<CTypedNumber> sum = Sum();
        return m_iAt == m_strText.size() ? sum : std::nullopt;
    }

private:
    typedef std::optional<CTypedNumber> tResult;

    bool Take(char in_c)
    {
        const bool bThere = m_iAt < m_strText.size() && m_strText.at(m_iAt) == QLatin1Char(in_c);
        m_iAt += bThere;
        SkipSpace();
        return bThere;
    }

    void SkipSpace()
    {
        while (m_iAt < m_strText.size() && m_strText.at(m_iAt).isSpace())
        {
            ++m_iAt;
        }
    }

    static tResult Finite(const CTypedNumber& in_number)
    {
        return std::isfinite(in_number.Real()) ? tResult(in_number) : std::nullopt;
    }

    tResult Sum()
    {
        tResult sum = Product();
        while (sum)
        {
            const bool bPlus = Take('+');
            if (!bPlus && !Take('-'))
            {
                break;
            }
            const tResult next = Product();
            sum = next ? Finite(*sum + (bPlus ? *next : -*next)) : std::nullopt;
        }
        return sum;
    }

    tResult Product()
    {
        tResult product = Signed();
        while (product)
        {
            const bool bTimes = Take('*');
            if (!bTimes && !Take('/'))
            {
                break;
            }
            const tResult next = Signed();
            product = next ? Finite(bTimes ? *product * *next : *product / *next) : std::nullopt;
        }
        return product;
    }

    tResult Signed()
    {
        bool bNegative = false;
        for (bool bMinus = Take('-'); bMinus || Take('+'); bMinus = Take('-'))
        {
            bNegative ^= bMinus;
        }
        const tResult number = Take('(') ? InParentheses() : Number();
        return number && bNegative ? -*number : number;
    }

    tResult InParentheses()
    {
        const int iDeepest = 100; // nobody types more, and the stack is finite
        if (++m_iDepth > iDeepest)
        {
            return std::nullopt;
        }
        const tResult sum = Sum();
        --m_iDepth;
        return Take(')') ? sum : std::nullopt;
    }

    int DigitsFrom(int in_iAt) const
    {
        int iEnd = in_iAt;
        while (iEnd < m_strText.size() && m_strText.at(iEnd).isDigit())
        {
            ++iEnd;
        }
        return iEnd;
    }

    bool Is(int in_iAt, const char* in_strOneOf) const
    {
        return in_iAt < m_strText.size() && QString::fromLatin1(in_strOneOf).contains(m_strText.at(in_iAt));
    }

    int EndOfNumber() const
    {
        int iEnd = DigitsFrom(m_iAt);
        iEnd = Is(iEnd, ".") ? DigitsFrom(iEnd + 1) : iEnd;
        if (Is(iEnd, "e"))
        {
            const int iExponent = Is(iEnd + 1, "+-") ? iEnd + 2 : iEnd + 1;
            iEnd = Is(iExponent, "0123456789") ? DigitsFrom(iExponent) : iEnd;
        }
        return iEnd;
    }

    tResult Number()
    {
        const int iEnd = EndOfNumber();
        const QString strNumber = m_strText.mid(m_iAt, iEnd - m_iAt);
        m_iAt = iEnd;
        SkipSpace();
        bool bWhole = false;
        const quint64 uWhole = strNumber.toULongLong(&bWhole);
        bool bReal = false;
        const double real = strNumber.toDouble(&bReal);
        return bWhole ? tResult(CTypedNumber::Whole(uWhole, false)) : bReal ? Finite(CTypedNumber(real)) : std::nullopt;
    }

    QString m_strText;
    int m_iAt = 0;
    int m_iDepth = 0;
};
} // namespace

CTypedNumber CTypedNumber::Whole(qint64 in_iValue)
{
    const quint64 uBits = static_cast<quint64>(in_iValue);
    return Whole(in_iValue < 0 ? 0 - uBits : uBits, in_iValue < 0);
}

CTypedNumber CTypedNumber::Whole(quint64 in_uSize, bool in_bNegative)
{
    const double size = static_cast<double>(in_uSize);
    CTypedNumber number(in_bNegative ? -size : size);
    number.m_uSize = in_uSize;
    number.m_bWhole = true;
    number.m_bNegative = in_bNegative;
    return number;
}

std::optional<CTypedNumber> CTypedNumber::FromValue(const QVariant& in_value)
{
    bool bNumber = false;
    switch (in_value.userType())
    {
    case QMetaType::Double:
    case QMetaType::Float:
        return CTypedNumber(in_value.toDouble());
    case QMetaType::ULongLong:
    case QMetaType::ULong:
    {
        const quint64 uValue = in_value.toULongLong(&bNumber);
        return bNumber ? std::optional(Whole(uValue, false)) : std::nullopt;
    }
    default:
    {
        const qint64 iValue = in_value.toLongLong(&bNumber);
        return bNumber ? std::optional(Whole(iValue)) : std::nullopt;
    }
    }
}

std::optional<CTypedNumber> CTypedNumber::FromText(const QString& in_strText)
{
    const QString strPlain = Plain(in_strText);
    const bool bSigned = strPlain.startsWith(QLatin1Char('-')) || strPlain.startsWith(QLatin1Char('+'));
    const QString strName = strPlain.mid(bSigned);
    if (strName == QLatin1String("nan"))
    {
        return CTypedNumber(std::numeric_limits<double>::quiet_NaN());
    }
    if (strName == QLatin1String("inf") || strName == QLatin1String("infinity"))
    {
        const double infinity = std::numeric_limits<double>::infinity();
        return CTypedNumber(strPlain.startsWith(QLatin1Char('-')) ? -infinity : infinity);
    }
    return CExpression(strPlain).Value();
}

std::optional<CTypedNumber> CTypedNumber::Rounded() const
{
    const double rounded = std::round(std::fabs(m_real));
    if (!m_bWhole && !(rounded < 18446744073709551616.0))
    {
        return std::nullopt;
    }
    return m_bWhole ? *this : Whole(static_cast<quint64>(rounded), m_real < 0);
}

CTypedNumber CTypedNumber::operator-() const
{
    return m_bWhole ? Whole(m_uSize, !m_bNegative) : CTypedNumber(-m_real);
}

CTypedNumber CTypedNumber::operator+(const CTypedNumber& in_other) const
{
    const CTypedNumber real(m_real + in_other.m_real);
    if (!m_bWhole || !in_other.m_bWhole)
    {
        return real;
    }
    if (m_bNegative == in_other.m_bNegative)
    {
        const quint64 uSum = m_uSize + in_other.m_uSize;
        return uSum < m_uSize ? real : Whole(uSum, m_bNegative);
    }
    const bool bOtherIsLarger = in_other.m_uSize > m_uSize;
    const quint64 uDifference = bOtherIsLarger ? in_other.m_uSize - m_uSize : m_uSize - in_other.m_uSize;
    return Whole(uDifference, uDifference != 0 && (bOtherIsLarger ? in_other.m_bNegative : m_bNegative));
}

CTypedNumber CTypedNumber::operator*(const CTypedNumber& in_other) const
{
    const bool bFits = m_uSize == 0 || in_other.m_uSize <= std::numeric_limits<quint64>::max() / m_uSize;
    return m_bWhole && in_other.m_bWhole && bFits
               ? Whole(m_uSize * in_other.m_uSize, m_bNegative != in_other.m_bNegative)
               : CTypedNumber(m_real * in_other.m_real);
}

CTypedNumber CTypedNumber::operator/(const CTypedNumber& in_other) const
{
    const bool bWhole = m_bWhole && in_other.m_bWhole && in_other.m_uSize != 0 && m_uSize % in_other.m_uSize == 0;
    const double none = std::numeric_limits<double>::quiet_NaN();
    return bWhole ? Whole(m_uSize / in_other.m_uSize, m_bNegative != in_other.m_bNegative)
                  : CTypedNumber(in_other.m_real == 0 ? none : m_real / in_other.m_real);
}

bool CTypedNumber::operator<(const CTypedNumber& in_other) const
{
    if (!m_bWhole || !in_other.m_bWhole)
    {
        return m_real < in_other.m_real;
    }
    const bool bNegative = m_bNegative && m_uSize != 0;
    const bool bOtherNegative = in_other.m_bNegative && in_other.m_uSize != 0;
    if (bNegative != bOtherNegative)
    {
        return bNegative;
    }
    return bNegative ? in_other.m_uSize < m_uSize : m_uSize < in_other.m_uSize;
}
