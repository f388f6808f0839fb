#include "apartwindow.h"

#include <QApplication>
#include <QStyle>
#include <QStyleFactory>
#include <QWindow>

#include <dlfcn.h>

#include <cstring>

namespace
{
/// Qt puts the application's style sheet over every style that a widget is given while there is such a sheet. For as
/// long as this lives there is none: nobody is told, and nobody but the setter of a style looks. Without effect in a
/// Qt that has no such symbol.
class CNoStyleSheet
{
public:
    CNoStyleSheet() : m_pSheet(Sheet()) { Swap(); }
    ~CNoStyleSheet() { Swap(); }
    CNoStyleSheet(const CNoStyleSheet&) = delete;
    CNoStyleSheet& operator=(const CNoStyleSheet&) = delete;

private:
    static QString* Sheet()
    {
        const auto address = &QApplication::setStyleSheet; // the library that it is in, however that was loaded
        void* pSetter = nullptr;
        std::memcpy(&pSetter, &address, sizeof pSetter);
        Dl_info library;
        void* pLibrary = dladdr(pSetter, &library) ? dlopen(library.dli_fname, RTLD_LAZY | RTLD_NOLOAD) : nullptr;
        void* pSheet = pLibrary ? dlsym(pLibrary, "_ZN19QApplicationPrivate10styleSheetE") : nullptr;
        pLibrary ? dlclose(pLibrary) : 0;
        return static_cast<QString*>(pSheet);
    }

    void Swap()
    {
        if (m_pSheet)
        {
            m_pSheet->swap(m_strOther);
        }
    }

    QString* m_pSheet; ///< null: out of reach
    QString m_strOther;
};
} // namespace

CApartWindow::CApartWindow(CApartWindow* in_pOwner, Qt::WindowFlags in_eFlags)
    : QWidget(in_pOwner, in_eFlags),
      m_pStyle(QStyleFactory::create(QStringLiteral("fusion")))
{
    m_pStyle->setParent(this);
    setAttribute(Qt::WA_QuitOnClose, false);
    KeepStyle(this);
}

bool CApartWindow::Owns(const QObject* in_pObject)
{
    while (in_pObject && !qobject_cast<const CApartWindow*>(in_pObject))
    {
        in_pObject = in_pObject->parent();
    }
    return in_pObject;
}

bool CApartWindow::FilterEvent(QObject* in_pReceiver, QEvent* in_pEvent)
{
    switch (in_pEvent->type())
    {
    case QEvent::ShortcutOverride:
        if (Owns(in_pReceiver))
        {
            in_pEvent->accept(); // then the key is typed, whatever shortcut it may be
            return true;
        }
        return false;
    case QEvent::Polish:
    case QEvent::ParentChange:
        Owns(in_pReceiver) ? KeepStyle(static_cast<QWidget*>(in_pReceiver)) : void();
        return false;
    case QEvent::WindowBlocked:
    case QEvent::Hide:
        StayUsable(in_pReceiver, in_pEvent->type());
        return false;
    default:
        return false;
    }
}

/// A modal dialog blocks all windows but those that belong to it: so this belongs to it for as long as it is there.
void CApartWindow::StayUsable(const QObject* in_pReceiver, QEvent::Type in_eType)
{
    QWindow* pWindow = windowHandle();
    if (pWindow && in_pReceiver == pWindow && in_eType == QEvent::WindowBlocked)
    {
        pWindow->setTransientParent(QGuiApplication::modalWindow());
    }
    else if (pWindow && in_pReceiver == pWindow->transientParent() && in_eType == QEvent::Hide)
    {
        pWindow->setTransientParent(nullptr);
    }
}

void CApartWindow::KeepStyle(QWidget* in_pWidget)
{
    QWidgetList widgets = in_pWidget->findChildren<QWidget*>();
    widgets << in_pWidget;
    const CNoStyleSheet noStyleSheet;
    for (QWidget* pWidget : std::as_const(widgets))
    {
        if (pWidget->style() != m_pStyle)
        {
            pWidget->setStyle(m_pStyle);
        }
    }
}
