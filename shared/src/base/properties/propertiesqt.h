#ifndef PROPERTIESQT_H
#define PROPERTIESQT_H

/// What differs between Qt 5 and 6, in one place. Private to the library.
/// \file

#include <QKeySequence>
#include <QMouseEvent>
#include <QVariant>

#include <cstring>

namespace PropertiesQt
{
/// How many bytes the values of a type have.
inline std::size_t SizeOf(const QVariant& in_value)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return static_cast<std::size_t>(in_value.metaType().sizeOf());
#else
    return static_cast<std::size_t>(QMetaType::sizeOf(in_value.userType()));
#endif
}

/// The number of a value whose type is an enumeration that Qt does not convert.
inline int EnumNumber(const QVariant& in_value)
{
    int iNumber = 0;
    std::memcpy(&iNumber, in_value.constData(), qMin(sizeof iNumber, SizeOf(in_value)));
    return iNumber;
}

/// The value as one of another type, as it is when there is no such.
inline QVariant Converted(const QVariant& in_value, int in_iType)
{
    QVariant converted = in_value;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return converted.convert(QMetaType(in_iType)) ? converted : in_value;
#else
    return converted.convert(in_iType) ? converted : in_value;
#endif
}

/// One of a sequence's keys, without those that go with it.
inline int KeyAt(const QKeySequence& in_keys, int in_iIndex)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return in_keys[static_cast<uint>(in_iIndex)].key();
#else
    return in_keys[static_cast<uint>(in_iIndex)] & ~static_cast<int>(Qt::KeyboardModifierMask);
#endif
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

inline QPoint GlobalPosition(const QMouseEvent& in_event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return in_event.globalPosition().toPoint();
#else
    return in_event.globalPos();
#endif
}
} // namespace PropertiesQt

#endif
