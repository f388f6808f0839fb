#include "randomvalue.h"

#include "property.h"

#include <QColor>
#include <QFont>
#include <QRectF>

namespace
{
const int g_iFar = 20; ///< how far a number goes from where it is

int Shift(QRandomGenerator& io_random)
{
    return io_random.bounded(-g_iFar, g_iFar + 1);
}

QVariant RandomKeys(const QMetaEnum& in_keys, int in_iPresent, QRandomGenerator& io_random)
{
    if (in_keys.keyCount() == 0)
    {
        return QVariant();
    }
    const int iKey = in_keys.value(io_random.bounded(in_keys.keyCount()));
    return in_keys.isFlag() ? in_iPresent ^ iKey : iKey;
}

QRect RandomRect(const QRect& in_rect, QRandomGenerator& io_random)
{
    const QPoint corner(in_rect.x() + Shift(io_random), in_rect.y() + Shift(io_random));
    return QRect(corner, QSize(qMax(0, in_rect.width() + Shift(io_random)), qMax(0, in_rect.height())));
}

QVariant RandomFont(QFont in_font, QRandomGenerator& io_random)
{
    in_font.setBold(!in_font.bold());
    in_font.setPixelSize(io_random.bounded(6, 40));
    return in_font;
}
} // namespace

QVariant RandomValue(const CProperty& in_property, const QVariant& in_present, QRandomGenerator& io_random)
{
    if (in_property.Format().keys.isValid())
    {
        return RandomKeys(in_property.Format().keys, in_present.toInt(), io_random);
    }
    switch (in_property.Type())
    {
    case QMetaType::Bool:
        return !in_present.toBool();
    case QMetaType::Int:
        return in_present.toInt() + Shift(io_random) * (in_present.toInt() < INT_MAX - g_iFar ? 1 : 0);
    case QMetaType::Double:
        return in_present.toDouble() + Shift(io_random) / 8.;
    case QMetaType::QString:
        return in_present.toString() + QChar('a' + io_random.bounded(26));
    case QMetaType::QColor:
        return QColor::fromRgb(io_random.generate());
    case QMetaType::QFont:
        return RandomFont(in_present.value<QFont>(), io_random);
    case QMetaType::QPoint:
        return RandomRect(QRect(in_present.toPoint(), QSize()), io_random).topLeft();
    case QMetaType::QSize:
        return RandomRect(QRect(QPoint(), in_present.toSize()), io_random).size();
    case QMetaType::QRect:
        return RandomRect(in_present.toRect(), io_random);
    default:
        return QVariant();
    }
}
