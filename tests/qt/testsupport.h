#ifndef TESTSUPPORT_H
#define TESTSUPPORT_H

#include "inspectorcontroller.h"
#include "qtinspectorview.h"
#include "qtsimpledataelement.h"
#include "qtsimpledatawidget.h"

#include <QtGlobal>

#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
#include <QtWidgets>
#else
#include <QtGui>
#endif

#include <QtTest>

#include <functional>
#include <iterator>
#include <memory>
#include <set>
#include <string>

/// A QTest program: the same font and style on every machine and version of Qt.
#define INSPECTOR_TEST_MAIN(TestClass)                                                                                 \
    int main(int in_iCount, char** in_pArguments)                                                                      \
    {                                                                                                                  \
        QApplication application(in_iCount, in_pArguments);                                                            \
        application.setApplicationName(QLatin1String(#TestClass));                                                     \
        QApplication::setStyle(QLatin1String("windows"));                                                              \
        QFont font(QLatin1String("DejaVu Sans"));                                                                      \
        font.setPixelSize(12);                                                                                         \
        QApplication::setFont(font);                                                                                   \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, in_iCount, in_pArguments);                                                          \
    }

namespace TestSupport
{
inline QString Latin(const std::string& in_strBytes)
{
    return QString::fromLatin1(in_strBytes.c_str());
}

/// What a platform says of itself, whatever the program does: what offscreen cannot do; on X11 that a window of another
/// program's, the window manager's frame, went away while Qt looked for what is under a point.
inline bool IsOfThePlatform(const QString& in_strMessage)
{
    const std::set<std::string> sayings = {"This plugin does not support propagateSizeHints()",
                                           "This plugin does not support raise()",
                                           "This plugin does not support grabbing the keyboard"};
    return sayings.count(in_strMessage.toStdString()) > 0 ||
           (in_strMessage.contains(QLatin1String("XCB error: 3 (BadWindow)")) &&
            in_strMessage.contains(QLatin1String("major code: 40 (TranslateCoords)")));
}

inline void FailOnMessage(QtMsgType in_eType, const QString& in_strMessage)
{
    if (in_eType != QtDebugMsg && !IsOfThePlatform(in_strMessage))
    {
        QTest::qFail(qPrintable(in_strMessage), "a message of Qt's", 0);
    }
}

#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
inline void HandleMessage(QtMsgType in_eType, const QMessageLogContext&, const QString& in_strMessage)
{
    FailOnMessage(in_eType, in_strMessage);
}
#else
inline void HandleMessage(QtMsgType in_eType, const char* in_strMessage)
{
    FailOnMessage(in_eType, QString::fromLocal8Bit(in_strMessage));
}
#endif

/// Call it in initTestCase (QTest puts in a handler of its own before): from there on a warning fails the
/// test that is running.
inline void FailOnWarnings()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    qInstallMessageHandler(HandleMessage);
#else
    qInstallMsgHandler(HandleMessage);
#endif
}

/// Runs the event loop until the condition holds; false when it still does not after five seconds.
template <class Condition> bool WaitUntil(Condition in_condition)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 5000)
    {
        if (in_condition())
        {
            return true;
        }
        QTest::qWait(5);
    }
    return false;
}

inline QRect DesktopRect()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return QGuiApplication::primaryScreen()->virtualGeometry();
#else
    return QApplication::desktop()->rect();
#endif
}

/// Shows a window and waits until it is on the screen and active.
inline bool ShowWindow(QWidget* in_pWindow)
{
    in_pWindow->show();
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    if (QGuiApplication::platformName() != QLatin1String("wayland"))
    {
        in_pWindow->activateWindow();
    }
    const bool bShown = QTest::qWaitForWindowExposed(in_pWindow);
#else
    in_pWindow->activateWindow();
    const bool bShown = QTest::qWaitForWindowShown(in_pWindow);
#endif
    return bShown && WaitUntil([in_pWindow] { return QApplication::activeWindow() == in_pWindow; });
}

/// Presses and releases a button the way the window system does, so that what follows from a press follows
/// too. The widget may die of it.
inline void ClickThroughWindow(QWidget* in_pWidget, Qt::MouseButton in_eButton, const QPoint& in_position)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    QWidget* pWindow = in_pWidget->window();
    QTest::mouseClick(pWindow->windowHandle(), in_eButton, Qt::NoModifier, in_pWidget->mapTo(pWindow, in_position));
#else
    QPointer<QWidget> pWidget = in_pWidget;
    QTest::mousePress(pWidget, in_eButton, Qt::NoModifier, in_position);
    if (pWidget)
    {
        QTest::mouseRelease(pWidget, in_eButton, Qt::NoModifier, in_position);
    }
#endif
}

const QRgb g_untouched = qRgb(1, 2, 3); ///< no widget paints it

/// What a widget and its children paint.
inline QImage Painted(QWidget* in_pWidget)
{
    QImage image(in_pWidget->size(), QImage::Format_RGB32);
    image.fill(g_untouched);
    in_pWidget->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

/// The pixels of a colour (null: of all that was painted).
inline QRegion Pixels(const QImage& in_image, QRgb in_colour = 0)
{
    QRegion region;
    for (int iPixel = 0; iPixel < in_image.width() * in_image.height(); ++iPixel)
    {
        const QPoint point(iPixel % in_image.width(), iPixel / in_image.width());
        const QRgb colour = in_image.pixel(point);
        if (in_colour ? colour == in_colour : colour != g_untouched)
        {
            region += QRect(point, QSize(1, 1));
        }
    }
    return region;
}

/// One notch of the wheel towards the user, aimed at the middle of a widget; false when nobody takes it.
inline bool TurnWheel(QWidget* in_pWidget)
{
    const QPoint position = in_pWidget->rect().center();
#if QT_VERSION >= QT_VERSION_CHECK(5, 12, 0)
    QWheelEvent event(position, in_pWidget->mapToGlobal(position), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
#else
    QWheelEvent event(position, -120, Qt::NoButton, Qt::NoModifier);
#endif
    QSpontaneKeyEvent::setSpontaneous(&event); // others stay with the widget they are sent to
    qApp->notify(in_pWidget, &event);
    return event.isAccepted();
}
} // namespace TestSupport

/// Where the library calls the application.
enum ePlace
{
    eInternalValueChanged,
    eEndEditing,
    eDisconnect,
    eDataDestructor,
    eHandleItem,
    eHandleController,
    eCommand,
    ePlaces
};

/// What the application was told, as "name=value" words, and what it does in return: each hook runs once.
class CTestLog
{
public:
    void Note(ePlace in_ePlace, const std::string& in_strWhat)
    {
        m_words << TestSupport::Latin(in_strWhat);
        std::function<void()> hook;
        hook.swap(m_hooks[in_ePlace]); // it may run this place again, or destroy whoever called
        if (hook)
        {
            hook();
        }
    }

    QString Text() const { return m_words.join(QLatin1String(" ")); }

    QString Take()
    {
        const QString strWords = Text();
        m_words.clear();
        return strWords;
    }

    std::function<void()> m_hooks[ePlaces];

private:
    QStringList m_words;
};

inline std::string ValueOf(CSimpleDataElement& in_element)
{
    std::string strValue;
    in_element.GetDataAsString(strValue);
    return strValue;
}

inline std::string ValueOf(CBoolDataElement& in_element)
{
    return in_element.GetValue() ? "true" : "false";
}

inline std::string ValueOf(CInspectorDataElement&)
{
    return std::string();
}

/// An element that notes: "name=value" for a change, "name:cause" for the end of an edit, "name-" for
/// Disconnect. It keeps the value it is given, through Connect and Disconnect.
template <class Base> class CTestElement : public Base
{
public:
    CTestElement(CTestLog& in_log, const std::string& in_strName) : m_log(in_log), m_strName(in_strName) {}

    void Connect() override {}
    void Disconnect() override { m_log.Note(eDisconnect, m_strName + "-"); }
    void InternalValueChanged() override { m_log.Note(eInternalValueChanged, m_strName + "=" + ValueOf(*this)); }

    void OnEndEditing(CInspectorDataWidget* in_pWidget, CInspectorDataElement::eEndEditCause in_eCause) override
    {
        const CInspectorWatch<CInspectorDataElement> self(this);
        m_log.Note(eEndEditing, m_strName + ":" + std::to_string(in_eCause));
        if (self)
        {
            Base::OnEndEditing(in_pWidget, in_eCause);
        }
    }

    /// For text and enumeration elements.
    void SetText(const std::string& in_strValue)
    {
        this->m_strValue = in_strValue;
        this->UpdateData();
    }

private:
    CTestLog& m_log;
    std::string m_strName;
};

class CTestNotice : public CInspectorController::IDirtyControllerDataInfo
{
public:
    explicit CTestNotice(const std::string& in_strText) : m_strText(in_strText) {}

    std::string m_strText;
};

/// Notes "item:text" and "controller:text" for notices, "command:name" for commands.
class CTestController : public CInspectorController
{
public:
    explicit CTestController(CTestLog& in_log) : m_log(in_log) {}

    using CInspectorController::m_items;
    using CInspectorController::m_pView;

    void ApplicationHook1() override {}
    void ApplicationHook2() override {}
    void CallCommand(const char* in_strName, unsigned long) override
    {
        m_log.Note(eCommand, std::string("command:") + in_strName);
    }
    void HandleDirtyItem(sInspectorControllerData*, IDirtyControllerDataInfo* in_pInfo) override
    {
        m_log.Note(eHandleItem, "item:" + TextOf(in_pInfo));
    }
    void HandleDirtyController(std::vector<IDirtyControllerDataInfo*>& in_infos) override
    {
        m_log.Note(eHandleController, "controller:" + TextOf(in_infos.front()));
    }

private:
    static std::string TextOf(IDirtyControllerDataInfo* in_pInfo)
    {
        return in_pInfo ? static_cast<CTestNotice*>(in_pInfo)->m_strText : std::string();
    }

    CTestLog& m_log;
};

class CTestView : public CQTInspectorView
{
public:
    using CQTInspectorView::m_iContentHeight;
    using CQTInspectorView::m_iOffsetY;
    using CQTInspectorView::m_pContentWidget;
    using CQTInspectorView::m_pScrollBar;
};

/// A view and its controller in a window; either may be deleted before the page.
class CTestPage
{
public:
    CTestPage() : m_pView(new CTestView), m_pController(new CTestController(m_log))
    {
        m_pView->setParent(&m_window);
        m_pView->m_pController = m_pController.get();
        m_pController->m_pView = m_pView;
        m_window.resize(340, 400);
    }

    /// Adds a row; the label is the element's name as well.
    template <class Widget, class Element>
    CTestElement<Element>* Add(const char* in_strName, CInspectorView::sInspectorElement* in_pParent = nullptr,
                               CInspectorController::IControllerData* in_pData = nullptr)
    {
        CTestElement<Element>* pElement = new CTestElement<Element>(m_log, in_strName);
        Widget* pWidget = new Widget;
        m_pController->AddItem(pElement, pWidget, in_pData);
        m_pView->AddElement(pElement, pWidget, in_strName, nullptr, in_pParent);
        return pElement;
    }

    /// Adds a single-line value.
    CTestElement<CSimpleDataElement>* AddLine(const char* in_strName, const std::string& in_strValue)
    {
        CTestElement<CSimpleDataElement>* pElement = Add<CQTSimpleDataWidget, CSimpleDataElement>(in_strName);
        pElement->SetText(in_strValue);
        return pElement;
    }

    /// The widget of the row registered as the given one, from 0; null when there is none of this class.
    template <class Widget> Widget* WidgetAt(int in_iIndex) const
    {
        return dynamic_cast<Widget*>((*std::next(m_pController->m_items.begin(), in_iIndex))->widget);
    }

    /// Lays out for the present rows and shows the window.
    bool Open(int in_iWidth = 320, int in_iHeight = 200)
    {
        m_pController->ConnectDataElements();
        m_pView->ResizeInspector(in_iWidth, in_iHeight);
        m_pView->RecomputeLayout();
        return TestSupport::ShowWindow(&m_window);
    }

    CTestLog m_log;
    QWidget m_window;
    QPointer<CTestView> m_pView;
    std::unique_ptr<CTestController> m_pController;
};

#endif
