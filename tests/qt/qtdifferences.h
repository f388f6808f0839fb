#ifndef QTDIFFERENCES_H
#define QTDIFFERENCES_H

/// What the tests do differently with Qt 4, 5 and 6, in one place.
/// \file

#include "inspectorqt.h"

#include <QtTest>
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
#include <QtWidgets>
#else
#include <QtGui>
#endif

namespace TestSupport
{
/// On Qt 4 the tests run on an X server, which answers only some time after.
const bool g_bQt4 = QT_VERSION < QT_VERSION_CHECK(5, 0, 0);

/// The platform that the program runs on, by Qt's name.
inline QString PlatformName()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return QGuiApplication::platformName();
#else
    return QLatin1String("xcb");
#endif
}

/// Has a function told what Qt warns of.
template <void (*Function)(QtMsgType, const QString&)> void TellMessages()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    qInstallMessageHandler([](QtMsgType in_eType, const QMessageLogContext&, const QString& in_strMessage) {
        Function(in_eType, in_strMessage);
    });
#else
    qInstallMsgHandler([](QtMsgType in_eType, const char* in_strMessage) {
        Function(in_eType, QString::fromLocal8Bit(in_strMessage));
    });
#endif
}

/// What the screen shows of a window.
inline QImage Grabbed(QWidget& in_window)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return in_window.windowHandle()->screen()->grabWindow(in_window.winId()).toImage();
#else
    return QPixmap::grabWindow(in_window.winId()).toImage();
#endif
}

/// Whether a window that was shown is on the screen by now and the active one.
inline bool IsActive(QWidget* in_pWindow)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return QTest::qWaitForWindowExposed(in_pWindow) && QApplication::activeWindow() == in_pWindow;
#else
    QApplication::syncX();
    const bool bActive = QApplication::activeWindow() == in_pWindow;
    bActive ? void() : in_pWindow->activateWindow(); // which was lost when the window was not on the screen yet
    return bActive;
#endif
}

/// What is on show: an editor, or else a dialog, or else the newest window; null for nothing.
inline QWidget* WindowOnTop()
{
    QWidget* pEditor = nullptr;
    QWidget* pNewest = nullptr;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* pWindow : windows)
    {
        const bool bShown = pWindow->isVisible() && !pWindow->size().isEmpty();
        const bool bEditor = pWindow->inherits("CInPlaceEdit") || pWindow->inherits("CInPlaceList");
        QWidget*& pFound = bEditor ? pEditor : pNewest;
        pFound = bShown && (!pFound || pFound->winId() < pWindow->winId()) ? pWindow : pFound;
    }
    QWidget* pDialog = QApplication::activeModalWidget();
    return pEditor ? pEditor : pDialog ? pDialog : pNewest;
}

/// On Qt 4 activates a window, by default what is on top, as often as it takes; elsewhere once is enough.
inline void AwaitActive(QWidget* in_pWindow = nullptr)
{
    QElapsedTimer timer;
    timer.start();
    while (g_bQt4 && timer.elapsed() < 300)
    {
        QCoreApplication::processEvents();
        QWidget* pWindow = in_pWindow ? in_pWindow : WindowOnTop();
        if (!pWindow || QApplication::activePopupWidget() || IsActive(pWindow))
        {
            return;
        }
    }
}

/// As the window system sends it, to a window or on Qt 4 to a widget: others stay with the widget they are sent to.
inline void SendLikeWindowSystem(QObject* in_pReceiver, QEvent& in_event)
{
    QSpontaneKeyEvent::setSpontaneous(&in_event);
#if QT_VERSION < QT_VERSION_CHECK(5, 0, 0)
    bool bResult = false;
    void* parameters[] = {in_pReceiver, &in_event, &bResult};
    if (QInternal::activateCallbacks(QInternal::EventNotifyCallback, parameters))
    {
        return;
    }
#endif
    qApp->notify(in_pReceiver, &in_event);
}

/// Presses and releases a button the way the window system does, so that what follows from a press follows
/// too. The widget may die of it.
inline void ClickThroughWindow(QWidget* in_pWidget, Qt::MouseButton in_eButton, const QPoint& in_position,
                               QTest::MouseAction in_eAction = QTest::MouseClick)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    QWidget* pNative = in_pWidget->internalWinId() ? in_pWidget : in_pWidget->nativeParentWidget();
    QTest::mouseEvent(in_eAction, pNative->windowHandle(), in_eButton, Qt::NoModifier,
                      in_pWidget->mapTo(pNative, in_position));
#else
    QWidget* pHit = in_pWidget->childAt(in_position);
    pHit = pHit ? pHit : in_pWidget;
    const QPoint global = in_pWidget->mapToGlobal(in_position);
    const QPoint position = pHit->mapFromGlobal(global);
    const QPointer<QWidget> pAlive(pHit);
    if (in_eAction == QTest::MousePress || in_eAction == QTest::MouseClick)
    {
        QMouseEvent press(QEvent::MouseButtonPress, position, global, in_eButton, in_eButton, {});
        QContextMenuEvent menu(QContextMenuEvent::Mouse, position, global);
        SendLikeWindowSystem(pHit, press);
        in_eButton == Qt::RightButton ? SendLikeWindowSystem(pHit, menu) : void(); // dead or alive
    }
    if (pAlive && (in_eAction == QTest::MouseRelease || in_eAction == QTest::MouseClick))
    {
        QMouseEvent release(QEvent::MouseButtonRelease, position, global, in_eButton, {}, {});
        SendLikeWindowSystem(pHit, release);
    }
#endif
}

/// One notch of the wheel towards the user, aimed at the middle of a widget; false when nobody takes it. For a window
/// it goes to what is there.
inline bool TurnWheel(QWidget* in_pWidget)
{
    const QPoint position = in_pWidget->rect().center();
    QObject* pReceiver = in_pWidget;
#if QT_VERSION >= QT_VERSION_CHECK(5, 12, 0)
    pReceiver = in_pWidget->windowHandle() ? static_cast<QObject*>(in_pWidget->windowHandle()) : in_pWidget;
    QWheelEvent event(position, in_pWidget->mapToGlobal(position), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
#else
    QWheelEvent event(position, -120, Qt::NoButton, Qt::NoModifier);
#endif
    SendLikeWindowSystem(pReceiver, event);
    return event.isAccepted();
}
} // namespace TestSupport

#endif
