#ifndef INSPECTORQT_H
#define INSPECTORQT_H

/// What differs between Qt 4, 5 and 6, in one place. Private to the library.
/// \file

#include <QApplication>
#include <QKeyEvent>
#include <QTextLayout>
#include <QWidget>

#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
#include <QInputMethod>
#include <QScreen>
#include <QWindow>
#else
#include <QDesktopWidget>
#include <QInputContext>
#include <QtGui> // all of it: its headers bring in less of each other than later ones
#endif

#include <string>

namespace InspectorQt
{
/// Text of the model side as text of Qt. Neither `in_strBytes` may be null.
QString Text(const char* in_strBytes);
QString Text(const std::string& in_strBytes);

/// Text of Qt as text of the model side, up to the first NUL.
std::string Bytes(const QString& in_strText);

/// The conversions of a process that did not ask for UTF-8: Latin-1, on Qt 4 the application's codec for C strings.
inline QString FromNarrow(const char* in_strBytes)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return QString::fromLatin1(in_strBytes);
#else
    return QString::fromAscii(in_strBytes);
#endif
}

inline QByteArray ToNarrow(const QString& in_strText)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return in_strText.toLatin1();
#else
    return in_strText.toAscii();
#endif
}

/// The rectangle of the whole desktop, in global coordinates; its origin may be negative on Qt 5 and 6.
inline QRect DesktopRect()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return QGuiApplication::primaryScreen()->virtualGeometry();
#else
    return QApplication::desktop()->rect();
#endif
}

/// Whether no client of the window system may place its windows.
inline bool IsWayland()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
#else
    return false;
#endif
}

/// Whether Qt has an X server to ask, and not itself to wait until a window is on the screen. One that it is asked to
/// activate before counts as active when it gets there, though it may be closed by then.
inline bool IsXcb()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return QGuiApplication::platformName() == QLatin1String("xcb");
#else
    return false;
#endif
}

/// Whether a window that was shown has got there.
inline bool IsOnScreen(const QWidget* in_pWindow)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return in_pWindow->windowHandle() && in_pWindow->windowHandle()->isExposed();
#else
    return in_pWindow->testAttribute(Qt::WA_Mapped);
#endif
}

/// Whether a window believes to be at a place. Qt may tell its widget one place and count from another, (0, 0) for
/// instance, when the window manager has moved it twice.
inline bool IsAt(const QWidget* in_pWindow, const QRect& in_place)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    if (in_pWindow->windowHandle() && in_pWindow->windowHandle()->geometry() != in_place)
    {
        return false;
    }
#endif
    return in_pWindow->geometry() == in_place;
}

/// Puts both, widget and window, at a place.
inline void PlaceAt(QWidget* in_pWindow, const QRect& in_place)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    if (QWindow* pWindow = in_pWindow->windowHandle())
    {
        pWindow->setGeometry(in_place);
    }
#endif
    in_pWindow->setGeometry(in_place);
}

/// Activates a window. On Wayland that is not for a client to ask for: Qt 5 warns, and a pop-up gets the keys anyway.
inline void Activate(QWidget* in_pWindow)
{
    if (!IsWayland())
    {
        in_pWindow->activateWindow();
    }
}

/// Whether the X server is behind: Qt 4 activates no window of no window manager's before it is on the screen, and says
/// nothing when a window that it has moved gets there.
inline bool HearsLate()
{
#if QT_VERSION < QT_VERSION_CHECK(5, 0, 0) && defined(Q_WS_X11)
    return true;
#else
    return false;
#endif
}

/// Puts a top-level window, which must not be on show, on the screen that another widget is on: places are counted in
/// the screen's own scale.
inline void ShareScreen(QWidget* in_pWindow, const QWidget* in_pOther)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    if (const QWindow* pOther = in_pOther->window()->windowHandle())
    {
        in_pWindow->winId();
        in_pWindow->windowHandle()->setScreen(pOther->screen());
    }
#else
    Q_UNUSED(in_pWindow);
    Q_UNUSED(in_pOther);
#endif
}

/// Makes a top-level window belong to the window of `in_pOver` (null: to none), so that a modal dialog does not block
/// it.
inline void SetTransientOwner(QWidget* in_pWindow, QWidget* in_pOver)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    in_pWindow->winId();
    in_pWindow->windowHandle()->setTransientParent(in_pOver ? in_pOver->window()->windowHandle() : nullptr);
#else
    in_pWindow->setAttribute(Qt::WA_GroupLeader, in_pOver != nullptr); // blocked by its own dialogs only
#endif
}

/// The widget that an object which got a window-system event stands for, null for none: a top-level one, or a native
/// one inside.
inline QWidget* WindowWidget(QObject* in_pObject)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    if (in_pObject->isWindowType())
    {
        return QWidget::find(static_cast<QWindow*>(in_pObject)->winId());
    }
#endif
    return in_pObject->isWidgetType() ? static_cast<QWidget*>(in_pObject)->window() : nullptr;
}

/// Whether keys of the window system come to this object first: to a window, on Qt 4 to a widget.
inline bool GetsKeysFirst(const QObject* in_pObject)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return in_pObject->isWindowType();
#else
    return in_pObject->isWidgetType();
#endif
}

/// The widget in whose coordinates a window-system event is: the one of the window that got it, on Qt 4 the receiver.
inline QWidget* EventWidget(QObject* in_pReceiver)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return WindowWidget(in_pReceiver);
#else
    return static_cast<QWidget*>(in_pReceiver);
#endif
}

#if QT_VERSION < QT_VERSION_CHECK(5, 0, 0)
/// Qt 4 has no windows to watch. Filters there see what the window system sends on its way to the widgets, by a
/// callback that is half private to Qt: what is public sees it too late, when Qt has already begun to go on with a
/// receiver that may die.
template <class Filter> class CInputWatch
{
public:
    static void Add(Filter* in_pFilter)
    {
        static const bool bRegistered = QInternal::registerCallback(QInternal::EventNotifyCallback, &Notify);
        Q_UNUSED(bRegistered);
        Filters().removeAll(QPointer<Filter>());
        Filters().removeAll(QPointer<Filter>(in_pFilter));
        Filters().append(QPointer<Filter>(in_pFilter));
    }

private:
    static QList<QPointer<Filter>>& Filters()
    {
        static QList<QPointer<Filter>> filters;
        return filters;
    }

    static bool Notify(void** io_parameters)
    {
        QEvent* pEvent = static_cast<QEvent*>(io_parameters[1]);
        const bool bKept = pEvent->spontaneous() && Keeps(static_cast<QObject*>(io_parameters[0]), pEvent);
        *static_cast<bool*>(io_parameters[2]) |= bKept;
        return bKept;
    }

    /// Qt asks the receiver of a right press for a context menu, be it dead or alive.
    static bool Keeps(QObject* in_pReceiver, QEvent* in_pEvent)
    {
        static const QObject* pPressed = nullptr;
        const QObject* pMenuFor = pPressed;
        if (in_pEvent->type() == QEvent::ContextMenu)
        {
            pPressed = nullptr;
            return static_cast<QContextMenuEvent*>(in_pEvent)->reason() == QContextMenuEvent::Mouse &&
                   pMenuFor == in_pReceiver;
        }
        if (!dynamic_cast<QMouseEvent*>(in_pEvent) || !in_pReceiver->isWidgetType())
        {
            return false;
        }
        bool bKept = false;
        const QList<QPointer<Filter>> filters = Filters();
        for (auto it = filters.begin(); it != filters.end() && !bKept; ++it)
        {
            bKept = *it && (*it)->FilterWindow(in_pReceiver, in_pEvent);
        }
        pPressed = bKept && static_cast<QMouseEvent*>(in_pEvent)->button() == Qt::RightButton ? in_pReceiver : nullptr;
        return bKept;
    }
};
#endif

/// Lets a filter, a QObject, see what the window system sends to the windows that a widget is in: its top-level one,
/// and those of native widgets between. On Qt 4 its FilterWindow sees that of all windows.
template <class Filter> void WatchWindows(QWidget* in_pWidget, Filter* in_pFilter)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    for (QWidget* pWidget = in_pWidget; pWidget; pWidget = pWidget->isWindow() ? nullptr : pWidget->parentWidget())
    {
        if (QWindow* pWindow = pWidget->windowHandle())
        {
            pWindow->installEventFilter(in_pFilter);
        }
    }
#else
    Q_UNUSED(in_pWidget);
    CInputWatch<Filter>::Add(in_pFilter);
#endif
}

/// Whether a key with its modifiers is no text but asks for a mnemonic; Qt would type its letter.
inline bool IsMnemonic(const QKeyEvent& in_key)
{
#ifdef Q_OS_MAC
    Q_UNUSED(in_key);
    return false; // there Alt makes other letters
#else
    return (in_key.modifiers() & (Qt::AltModifier | Qt::ControlModifier)) == Qt::AltModifier &&
           !in_key.text().isEmpty();
#endif
}

/// The height by which QPainter::drawText centres a line.
inline qreal LineHeight(const QTextLine& in_line)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return in_line.ascent() + in_line.descent(); // height() is rounded up
#else
    return in_line.height();
#endif
}

/// Whether a press that a window got comes to its widgets as a double click instead.
inline bool BeginsDoubleClick(const QMouseEvent& in_press)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return in_press.flags() & Qt::MouseEventCreatedDoubleClick;
#else
    Q_UNUSED(in_press);
    return false;
#endif
}

/// Sends a wheel step to a widget and nobody else: Qt 4 passes on to the parents whatever was not taken.
inline void SendWheel(QWidget* in_pReceiver, QEvent* in_pWheel)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    QCoreApplication::sendEvent(in_pReceiver, in_pWheel);
#else
    static_cast<QObject*>(in_pReceiver)->event(in_pWheel);
#endif
}

/// On which event of the right button the platform asks for a context menu.
inline QEvent::Type ContextMenuTrigger()
{
#ifdef Q_OS_WIN
    return QEvent::MouseButtonRelease;
#else
    return QEvent::MouseButtonPress;
#endif
}

/// Takes over what an input method is composing in the widget that has the focus.
inline void CommitComposition(QWidget* in_pFocused)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    Q_UNUSED(in_pFocused);
    QGuiApplication::inputMethod()->commit();
#else
    if (QInputContext* pContext = in_pFocused->inputContext())
    {
        pContext->reset();
    }
#endif
}
} // namespace InspectorQt

#endif
