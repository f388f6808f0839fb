#ifndef QTCOMPAT_H
#define QTCOMPAT_H

/// What the demo does differently with Qt 4, 5 and 6, in one place.
/// \file

#include <QApplication>
#include <QByteArray>
#include <QImage>
#include <QMetaMethod>
#include <QMetaType>
#include <QVariant>
#include <QWidget>

namespace QtCompat
{
/// A method's name and parameter types, for instance "setValue(int)".
inline QByteArray Signature(const QMetaMethod& in_method)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return in_method.methodSignature();
#else
    return in_method.signature();
#endif
}

/// Converts a value to another type; false when it has no meaning there.
inline bool Convert(QVariant& io_value, int in_iType)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return io_value.convert(QMetaType(in_iType));
#else
    return io_value.convert(static_cast<QVariant::Type>(in_iType));
#endif
}

/// To be called before the application object exists. Qt 6 scales by itself, Qt 4 not at all.
inline void EnableHighDpiScaling()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 6, 0) && QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
#endif
}

/// An image to paint a widget on, as fine as the widget is on its screen.
inline QImage ImageFor(const QWidget& in_widget)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 6, 0)
    QImage image(in_widget.size() * in_widget.devicePixelRatioF(), QImage::Format_RGB32);
    image.setDevicePixelRatio(in_widget.devicePixelRatioF());
    return image;
#else
    return QImage(in_widget.size(), QImage::Format_RGB32);
#endif
}
} // namespace QtCompat

#endif
