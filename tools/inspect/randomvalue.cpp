#include "randomvalue.h"

#include "property.h"

#include <QColor>
#include <QFont>
#include <QRect>

namespace
{
const int g_iFar = 20; ///< how far a number goes from where it is

/// Below the present one, but not below 0 if that is not: no value is too small or too large for a size.
int Near(int in_iPresent, QRandomGenerator& io_random)
{
    const int iNear = in_iPresent - io_random.bounded(1, g_iFar);
    return in_iPresent >= 0 ? qAbs(iNear) : iNear;
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
        return Near(in_present.toInt(), io_random);
    case QMetaType::Double:
        return in_present.toDouble() / io_random.bounded(2, g_iFar);
    case QMetaType::QString:
        return in_present.toString() + QChar('a' + io_random.bounded(26));
    case QMetaType::QColor:
        return QColor::fromRgb(io_random.generate());
    case QMetaType::QFont:
        return RandomFont(in_present.value<QFont>(), io_random);
    case QMetaType::QPoint:
        return in_present.toPoint() + QPoint(0, Near(0, io_random));
    case QMetaType::QSize:
        return QSize(Near(in_present.toSize().width(), io_random), in_present.toSize().height());
    case QMetaType::QRect:
        return in_present.toRect().translated(Near(0, io_random), 0);
    default:
        return QVariant();
    }
}
