#include "numbereditor.h"
#include "typednumber.h"
#include "valuetypes.h"

#include <QLocale>

#include <cfloat>
#include <cmath>
#include <limits>
#include <type_traits>

namespace
{
/// Values beyond that are written with an exponent.
const double g_largest = 1e15;
const double g_smallest = 1e-5;

/// As many digits as it takes to read the same value back.
double Digits(float in_value)
{
    for (int iDigits = FLT_DIG; iDigits < FLT_DECIMAL_DIG; ++iDigits)
    {
        const QString strText = QString::number(static_cast<double>(in_value), 'g', iDigits);
        if (strText.toFloat() == in_value)
        {
            return strText.toDouble();
        }
    }
    return QString::number(static_cast<double>(in_value), 'g', FLT_DECIMAL_DIG).toDouble();
}

QString RealText(double in_value, int in_iDecimals)
{
    const double size = std::fabs(in_value);
    const bool bFixed = size < g_largest && (size >= g_smallest || size == 0 || in_iDecimals >= 0);
    const int iDigits = bFixed && in_iDecimals >= 0 ? in_iDecimals : int(QLocale::FloatingPointShortest);
    QString strText = QString::number(in_value, bFixed ? 'f' : 'g', iDigits);
    if (in_value == 0 && std::signbit(in_value) && !strText.startsWith(QLatin1Char('-')))
    {
        strText.prepend(QLatin1Char('-'));
    }
    return strText.replace(QLatin1Char('.'), QLocale().decimalPoint());
}

/// A tenth of the number's first digit: 0.1 at 1.5 and at 1 when it grows, 0.01 at 1 when it shrinks.
double RealStep(double in_value, bool in_bUp, int in_iDecimals)
{
    const bool bShrinks = in_value != 0 && in_bUp == (in_value < 0);
    const double size = std::fabs(in_value) * (bShrinks ? 1 - 1e-12 : 1 + 1e-12);
    const double step = size == 0 ? 0.1 : std::pow(10, std::floor(std::log10(size)) - 1);
    return in_iDecimals < 0 ? step : std::max(step, std::pow(10, -in_iDecimals));
}

/// The sum as somebody who knows decimal numbers expects it.
double Tidy(double in_value, int in_iDigits)
{
    return QString::number(in_value, 'g', in_iDigits).toDouble();
}

template <class T> class CNumberType final : public CPropertyType
{
public:
    eWork Work() const override { return eTyped; }
    QString Shown(const sPropertyFormat& in_format, const QVariant& in_value) const override
    {
        return in_format.prefix + NumberText(in_value, in_format.decimals) + in_format.suffix;
    }

    QString Text(const sPropertyFormat&, const QVariant& in_value) const override { return NumberText(in_value, -1); }

    QVariant FromText(const sPropertyFormat& in_format, const QString& in_strText, const QVariant&) const override
    {
        QString strText = in_strText.trimmed();
        strText = strText.mid(strText.startsWith(in_format.prefix) ? in_format.prefix.size() : 0);
        strText.chop(strText.endsWith(in_format.suffix) ? in_format.suffix.size() : 0);
        const std::optional<CTypedNumber> number = CTypedNumber::FromText(strText);
        return number ? Value(in_format, *number) : QVariant();
    }

    QVariant Stepped(const sPropertyFormat& in_format, const QVariant& in_value, int in_iSteps) const override
    {
        const std::optional<CTypedNumber> present = CTypedNumber::FromValue(in_value);
        const std::optional<CTypedNumber> step = CTypedNumber::FromValue(in_format.step);
        if (!present || !std::isfinite(present->Real()))
        {
            return QVariant();
        }
        CTypedNumber sum =
            *present + StepOr(step, *present, in_iSteps, in_format.decimals) * CTypedNumber::Whole(qint64(in_iSteps));
        sum = std::is_floating_point<T>() ? CTypedNumber(Tidy(sum.Real(), std::numeric_limits<T>::digits10)) : sum;
        return Value(in_format, std::max(Lowest(), std::min(sum, Highest())));
    }

    QWidget* CreateEditor(const sPropertyFormat& in_format, QWidget* in_pParent) const override
    {
        return new CNumberEditor(*this, in_format, in_pParent);
    }

private:
    static CTypedNumber Number(T in_value)
    {
        if constexpr (std::is_floating_point<T>())
        {
            return CTypedNumber(static_cast<double>(in_value));
        }
        else if constexpr (std::is_signed<T>())
        {
            return CTypedNumber::Whole(static_cast<qint64>(in_value));
        }
        else
        {
            return CTypedNumber::Whole(static_cast<quint64>(in_value), false);
        }
    }

    static CTypedNumber Lowest() { return Number(std::numeric_limits<T>::lowest()); }
    static CTypedNumber Highest() { return Number(std::numeric_limits<T>::max()); }

    static CTypedNumber StepOr(const std::optional<CTypedNumber>& in_step, const CTypedNumber& in_present,
                               int in_iSteps, int in_iDecimals)
    {
        const bool bReal = std::is_floating_point<T>();
        return in_step ? *in_step
               : bReal ? CTypedNumber(RealStep(in_present.Real(), in_iSteps > 0, in_iDecimals))
                       : CTypedNumber::Whole(qint64(1));
    }

    static QString NumberText(const QVariant& in_value, int in_iDecimals)
    {
        if constexpr (std::is_same<T, float>())
        {
            return RealText(in_iDecimals < 0 ? Digits(in_value.toFloat()) : in_value.toDouble(), in_iDecimals);
        }
        else if constexpr (std::is_floating_point<T>())
        {
            return RealText(in_value.toDouble(), in_iDecimals);
        }
        else
        {
            return std::is_signed<T>() ? QString::number(in_value.toLongLong())
                                       : QString::number(in_value.toULongLong());
        }
    }

    /// The number within the limits, as a value of the type; invalid when the type has no such number.
    static QVariant Value(const sPropertyFormat& in_format, CTypedNumber in_number)
    {
        const std::optional<CTypedNumber> minimum = CTypedNumber::FromValue(in_format.minimum);
        const std::optional<CTypedNumber> maximum = CTypedNumber::FromValue(in_format.maximum);
        if (std::isnan(in_number.Real()) && (minimum || maximum))
        {
            return QVariant();
        }
        in_number = maximum && *maximum < in_number ? *maximum : in_number;
        in_number = minimum && in_number < *minimum ? *minimum : in_number;
        if constexpr (std::is_floating_point<T>())
        {
            // Half a digit more than the largest still is the largest.
            const double largest = Highest().Real() * (1 + static_cast<double>(std::numeric_limits<T>::epsilon()) / 4);
            const bool bFits = !std::isfinite(in_number.Real()) || std::fabs(in_number.Real()) <= largest;
            return bFits ? QVariant::fromValue(static_cast<T>(in_number.Real())) : QVariant();
        }
        else
        {
            const std::optional<CTypedNumber> whole = in_number.Rounded();
            const bool bFits = whole && !(Highest() < *whole) && !(*whole < Lowest());
            return bFits ? QVariant::fromValue(static_cast<T>(whole->Bits())) : QVariant();
        }
    }
};

class CBoolType final : public CPropertyType
{
public:
    eWork Work() const override { return eToggle; }

    QVariant FromText(const sPropertyFormat&, const QString& in_strText, const QVariant&) const override
    {
        const QString strText = in_strText.trimmed().toLower();
        const bool bTrue = strText == QLatin1String("true") || strText == QLatin1String("1");
        const bool bFalse = strText == QLatin1String("false") || strText == QLatin1String("0");
        return bTrue || bFalse ? QVariant(bTrue) : QVariant();
    }
};

template <class T> const CPropertyType* Number()
{
    static const CNumberType<T> type;
    return &type;
}
} // namespace

const CPropertyType* NumberTypeOf(int in_iType)
{
    static const CBoolType boolean;
    switch (in_iType)
    {
    case QMetaType::Bool:
        return &boolean;
    case QMetaType::Char:
        return Number<char>();
    case QMetaType::SChar:
        return Number<signed char>();
    case QMetaType::UChar:
        return Number<uchar>();
    case QMetaType::Short:
        return Number<short>();
    case QMetaType::UShort:
        return Number<ushort>();
    case QMetaType::Int:
        return Number<int>();
    case QMetaType::UInt:
        return Number<uint>();
    case QMetaType::Long:
        return Number<long>();
    case QMetaType::ULong:
        return Number<ulong>();
    case QMetaType::LongLong:
        return Number<qlonglong>();
    case QMetaType::ULongLong:
        return Number<qulonglong>();
    case QMetaType::Float:
        return Number<float>();
    case QMetaType::Double:
        return Number<double>();
    default:
        return nullptr;
    }
}
