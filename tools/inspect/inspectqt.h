#ifndef INSPECTQT_H
#define INSPECTQT_H

/// What differs between Qt 5 and 6, in one place.
/// \file

#include <QMetaMethod>
#include <QMouseEvent>
#include <QVariant>

namespace InspectQt
{
/// An argument that a signal came with; invalid when Qt does not know its type.
inline QVariant Argument(const QMetaMethod& in_signal, int in_iIndex, const void* in_pValue)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QVariant(in_signal.parameterMetaType(in_iIndex), in_pValue);
#else
    const int iType = in_signal.parameterType(in_iIndex);
    return iType == QMetaType::UnknownType ? QVariant() : QVariant(iType, in_pValue);
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
} // namespace InspectQt

#endif
