#ifndef PROPERTIESQT_H
#define PROPERTIESQT_H

/// What differs between Qt 5 and 6, in one place. Private to the library.
/// \file

#include <QMouseEvent>
#include <QVariant>

#include <cstring>

namespace PropertiesQt
{
/// The number of a value whose type is an enumeration that Qt does not convert.
inline int EnumNumber(const QVariant& in_value)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    const int iSize = static_cast<int>(in_value.metaType().sizeOf());
#else
    const int iSize = QMetaType::sizeOf(in_value.userType());
#endif
    int iNumber = 0;
    const std::size_t uSize = qMin(sizeof iNumber, static_cast<std::size_t>(qMax(iSize, 0)));
    std::memcpy(&iNumber, in_value.constData(), uSize);
    return iNumber;
}

/// Where a mouse event is, in the receiver's coordinates and in global ones.
inline QPoint Position(const QMouseEvent& in_event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return in_event.position().toPoint();
#else
    return in_event.pos();
#endif
}
} // namespace PropertiesQt

#endif
