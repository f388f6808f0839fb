#include "valuetypes.h"

#include <QCoreApplication>
#include <QLine>
#include <QLocale>
#include <QMargins>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QVector2D>
#include <QVector3D>
#include <QVector4D>

#include <array>
#include <limits>
#include <type_traits>

Q_DECLARE_METATYPE(QMargins) // Qt 6 would know them without
Q_DECLARE_METATYPE(QMarginsF)

namespace
{
template <class Number, int Count> using tParts = std::array<Number, Count>;

/// How a type is taken apart: Get and Set are inverse to each other.
template <class T, class Number, int Count> struct sAnatomy
{
    typedef T tWhole;
    typedef Number tNumber;
    static const int count = Count;
    const char* labels[Count];
    tParts<Number, Count> (*get)(const T&);
    T (*set)(const tParts<Number, Count>&);
};

/// Whether rectangles can say where they end: they keep the last point, not the size.
bool HasEnd(const tParts<int, 4>& in_parts)
{
    const auto Fits = [](int in_iStart, int in_iSize) {
        const qint64 iEnd = qint64(in_iStart) + in_iSize - 1;
        return iEnd >= std::numeric_limits<int>::min() && iEnd <= std::numeric_limits<int>::max();
    };
    return Fits(in_parts[0], in_parts[2]) && Fits(in_parts[1], in_parts[3]);
}

template <class T, class Number, int Count> class CPartsType final : public CPropertyType
{
public:
    typedef sAnatomy<T, Number, Count> tAnatomy;
    typedef tParts<Number, Count> tNumbers;

    explicit CPartsType(const tAnatomy& in_anatomy)
        : m_anatomy(in_anatomy),
          m_part(*NumberTypeOf(qMetaTypeId<Number>()))
    {}

    eWork Work() const override { return eTyped; }
    int Parts() const override { return Count; }
    const CPropertyType& PartType(int) const override { return m_part; }

    QString PartLabel(int in_iPart) const override
    {
        return QCoreApplication::translate("CPropertyType", m_anatomy.labels[in_iPart]);
    }

    QVariant Part(const QVariant& in_value, int in_iPart) const override
    {
        return QVariant::fromValue(Numbers(in_value)[size_t(in_iPart)]);
    }

    QVariant WithPart(const QVariant& in_value, int in_iPart, const QVariant& in_part) const override
    {
        tNumbers numbers = Numbers(in_value);
        numbers[size_t(in_iPart)] = in_part.value<Number>();
        const QVariant value = Value(numbers);
        return value.isValid() ? value : in_value;
    }

    QString Shown(const sPropertyFormat& in_format, const QVariant& in_value) const override
    {
        return Joined(in_value, [&](const QVariant& in_part) { return m_part.Shown(in_format, in_part); });
    }

    QString Text(const sPropertyFormat& in_format, const QVariant& in_value) const override
    {
        return Joined(in_value, [&](const QVariant& in_part) { return m_part.Text(in_format, in_part); });
    }

    QVariant FromText(const sPropertyFormat& in_format, const QString& in_strText, const QVariant&) const override
    {
        const bool bSemicolons = in_strText.contains(QLatin1Char(';'));
        const QStringList texts = in_strText.split(QLatin1Char(bSemicolons ? ';' : ','));
        tNumbers numbers{};
        for (int i = 0; texts.size() == Count && i < Count; ++i)
        {
            const QVariant part = m_part.FromText(in_format, texts.at(i), QVariant());
            if (!part.isValid())
            {
                return QVariant();
            }
            numbers[size_t(i)] = part.value<Number>();
        }
        return texts.size() == Count ? Value(numbers) : QVariant();
    }

private:
    tNumbers Numbers(const QVariant& in_value) const { return m_anatomy.get(in_value.value<T>()); }

    QVariant Value(const tNumbers& in_numbers) const
    {
        if constexpr (std::is_same<T, QRect>())
        {
            if (!HasEnd(in_numbers))
            {
                return QVariant();
            }
        }
        return QVariant::fromValue(m_anatomy.set(in_numbers));
    }

    template <class ToText> QString Joined(const QVariant& in_value, ToText in_toText) const
    {
        QStringList texts;
        for (const Number part : Numbers(in_value))
        {
            texts << in_toText(QVariant::fromValue(part));
        }
        const bool bCommaIsPoint = QString(QLocale().decimalPoint()) == QLatin1String(",");
        return texts.join(QLatin1String(bCommaIsPoint ? "; " : ", "));
    }

    tAnatomy m_anatomy;
    const CPropertyType& m_part;
};

template <class T, class Number, int Count> const CPropertyType* Kind(const sAnatomy<T, Number, Count>& in_anatomy)
{
    static const CPartsType<T, Number, Count> type(in_anatomy);
    return &type;
}

#define PART(text) QT_TRANSLATE_NOOP("CPropertyType", text)

template <class T, class Number> const CPropertyType* PointKind()
{
    return Kind<T, Number, 2>({{PART("x"), PART("y")},
                               [](const T& in_point) {
                                   return tParts<Number, 2>{in_point.x(), in_point.y()};
                               },
                               [](const tParts<Number, 2>& in_parts) { return T(in_parts[0], in_parts[1]); }});
}

template <class T, class Number> const CPropertyType* SizeKind()
{
    return Kind<T, Number, 2>({{PART("width"), PART("height")},
                               [](const T& in_size) {
                                   return tParts<Number, 2>{in_size.width(), in_size.height()};
                               },
                               [](const tParts<Number, 2>& in_parts) { return T(in_parts[0], in_parts[1]); }});
}

template <class T, class Number> const CPropertyType* RectKind()
{
    return Kind<T, Number, 4>(
        {{PART("x"), PART("y"), PART("width"), PART("height")},
         [](const T& in_rect) {
             return tParts<Number, 4>{in_rect.x(), in_rect.y(), in_rect.width(), in_rect.height()};
         },
         [](const tParts<Number, 4>& in_parts) { return T(in_parts[0], in_parts[1], in_parts[2], in_parts[3]); }});
}

template <class T, class Number> const CPropertyType* MarginsKind()
{
    return Kind<T, Number, 4>(
        {{PART("left"), PART("top"), PART("right"), PART("bottom")},
         [](const T& in_margins) {
             return tParts<Number, 4>{in_margins.left(), in_margins.top(), in_margins.right(), in_margins.bottom()};
         },
         [](const tParts<Number, 4>& in_parts) { return T(in_parts[0], in_parts[1], in_parts[2], in_parts[3]); }});
}

template <class T, class Number> const CPropertyType* LineKind()
{
    return Kind<T, Number, 4>(
        {{PART("x1"), PART("y1"), PART("x2"), PART("y2")},
         [](const T& in_line) {
             return tParts<Number, 4>{in_line.x1(), in_line.y1(), in_line.x2(), in_line.y2()};
         },
         [](const tParts<Number, 4>& in_parts) { return T(in_parts[0], in_parts[1], in_parts[2], in_parts[3]); }});
}

const CPropertyType* Vector3Kind()
{
    return Kind<QVector3D, float, 3>(
        {{PART("x"), PART("y"), PART("z")},
         [](const QVector3D& in_vector) {
             return tParts<float, 3>{in_vector.x(), in_vector.y(), in_vector.z()};
         },
         [](const tParts<float, 3>& in_parts) { return QVector3D(in_parts[0], in_parts[1], in_parts[2]); }});
}

const CPropertyType* Vector4Kind()
{
    return Kind<QVector4D, float, 4>(
        {{PART("x"), PART("y"), PART("z"), PART("w")},
         [](const QVector4D& in_vector) {
             return tParts<float, 4>{in_vector.x(), in_vector.y(), in_vector.z(), in_vector.w()};
         },
         [](const tParts<float, 4>& in_parts) {
             return QVector4D(in_parts[0], in_parts[1], in_parts[2], in_parts[3]);
         }});
}

#undef PART
} // namespace

const CPropertyType* PartsTypeOf(int in_iType)
{
    switch (in_iType)
    {
    case QMetaType::QPoint:
        return PointKind<QPoint, int>();
    case QMetaType::QPointF:
        return PointKind<QPointF, qreal>();
    case QMetaType::QSize:
        return SizeKind<QSize, int>();
    case QMetaType::QSizeF:
        return SizeKind<QSizeF, qreal>();
    case QMetaType::QRect:
        return RectKind<QRect, int>();
    case QMetaType::QRectF:
        return RectKind<QRectF, qreal>();
    case QMetaType::QLine:
        return LineKind<QLine, int>();
    case QMetaType::QLineF:
        return LineKind<QLineF, qreal>();
    case QMetaType::QVector2D:
        return PointKind<QVector2D, float>();
    case QMetaType::QVector3D:
        return Vector3Kind();
    case QMetaType::QVector4D:
        return Vector4Kind();
    default:
        return in_iType == qMetaTypeId<QMargins>()    ? MarginsKind<QMargins, int>()
               : in_iType == qMetaTypeId<QMarginsF>() ? MarginsKind<QMarginsF, qreal>()
                                                      : nullptr;
    }
}
