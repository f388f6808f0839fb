#ifndef TESTSUPPORT_H
#define TESTSUPPORT_H

#include "inspectorcontroller.h"
#include "qtdifferences.h"
#include "qtinspectorview.h"
#include "qtsimpledataelement.h"
#include "qtsimpledatawidget.h"

#include <QtTest>

#include <functional>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <utility>

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
/// The columns of a test's table: Columns<QString, int>("words", "count").
template <class... Values, class... Names> void Columns(Names... in_names)
{
    const int indices[] = {(QTest::addColumn<Values>(in_names), 0)...};
    Q_UNUSED(indices);
}

inline QString Latin(const std::string& in_strBytes)
{
    return QString::fromLatin1(in_strBytes.c_str());
}

/// Lets pass what a platform says of itself, whatever the program does: what offscreen cannot do; on X11 that a window
/// of another program's, the window manager's frame, went away while Qt looked for what is under a point, or that a
/// window to be activated is not on the screen any more.
inline void FailOnMessage(QtMsgType in_eType, const QString& in_strMessage)
{
    const bool bOfThePlatform = in_strMessage.startsWith(QLatin1String("This plugin does not support ")) ||
                                (in_strMessage.contains(QLatin1String("XCB error: 3 (BadWindow)")) &&
                                 in_strMessage.contains(QLatin1String("major code: 40 (TranslateCoords)"))) ||
                                in_strMessage.contains(QLatin1String("SetInputFocus)"));
    if (in_eType != QtDebugMsg && !bOfThePlatform)
    {
        QTest::qFail(qPrintable(in_strMessage), "a message of Qt's", 0);
    }
}

/// Call it in initTestCase (QTest puts in a handler of its own before): from there on a warning fails the
/// test that is running.
inline void FailOnWarnings()
{
    TellMessages<FailOnMessage>();
}

/// Runs the event loop until the condition holds; false when it still does not after five seconds.
template <class Condition> bool WaitUntil(Condition in_condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!in_condition() && timer.elapsed() < 5000)
    {
        QTest::qWait(5);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // qWait does so itself only since Qt 5
    }
    return in_condition();
}

/// Shows a window and waits until it is on the screen and active.
inline bool ShowWindow(QWidget* in_pWindow)
{
    in_pWindow->show();
    InspectorQt::Activate(in_pWindow);
    return WaitUntil([in_pWindow] { return IsActive(in_pWindow); });
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

/// All pixels that were painted.
inline QRegion Pixels(const QImage& in_image)
{
    return QBitmap::fromImage(in_image.createMaskFromColor(g_untouched, Qt::MaskInColor));
}
} // namespace TestSupport

/// Where the library calls the application.
enum ePlace
{
    eInternalValueChanged,
    eEndEditing,
    eConnect,
    eDisconnect,
    eDataDestructor,
    eElementDestructor,
    eWidgetDestructor,
    eNoticeDestructor,
    eHandleItem,
    eHandleController,
    eCommand,
    eMove,
    ePaint,
    ePlaces
};

/// What the application was told, as "name=value" words, and what it does in return: each hook runs once.
class CTestLog
{
public:
    void Note(ePlace in_ePlace, const std::string& in_strWhat)
    {
        m_words << (in_strWhat.empty() ? QStringList() : QStringList(TestSupport::Latin(in_strWhat)));
        if (const std::function<void()> hook = std::exchange(m_hooks[in_ePlace], nullptr))
        {
            hook(); // it may run this place again, or destroy whoever called
        }
    }

    QString Text() const { return m_words.join(QLatin1String(" ")); }

    QString Take()
    {
        const QStringList words = std::exchange(m_words, QStringList());
        return words.join(QLatin1String(" "));
    }

    std::function<void()> m_hooks[ePlaces];

private:
    QStringList m_words;
};

inline std::string ValueOf(CInspectorDataElement& in_element)
{
    std::string strValue;
    ISimpleDataProvider* pText = dynamic_cast<ISimpleDataProvider*>(&in_element);
    pText ? pText->GetDataAsString(strValue) : void();
    CBoolDataElement* pBool = dynamic_cast<CBoolDataElement*>(&in_element);
    return !pBool ? strValue : pBool->GetValue() ? "true" : "false";
}

/// An element that notes: "name=value" for a change, "name:cause" for the end of an edit, "name-" for
/// Disconnect. It keeps the value it is given, through Connect and Disconnect.
template <class Base> class CTestElement : public Base
{
public:
    CTestElement(CTestLog& in_log, const std::string& in_strName) : m_log(in_log), m_strName(in_strName) {}
    ~CTestElement() override { m_log.Note(eElementDestructor, ""); }

    void Connect() override { m_log.Note(eConnect, ""); }
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

/// A data widget of an application's own.
template <class Base> class COwnWidget : public Base, public CInspectorDataWidget
{
public:
    void InitFromElement() override {}
    const char* GetType() override { return "own"; }
    int GetRequiredWidth() override { return -1; }
    int GetRequiredHeight(int) override { return 20; }
    void ResizeWidget(int in_iWidth, int in_iHeight) override { this->resize(in_iWidth, in_iHeight); }
    void MoveWidget(int in_iX, int in_iY) override { this->move(in_iX, in_iY); }
    void Show() override { this->show(); }
    void Hide() override { this->hide(); }
};

/// Data of the application's, or a notice of it.
template <class Base, ePlace Destructor> struct CTestOwned : Base
{
    explicit CTestOwned(CTestLog& in_log) : m_log(in_log) {}
    ~CTestOwned() override { m_log.Note(Destructor, ""); }

    CTestLog& m_log;
};
typedef CTestOwned<CInspectorController::IControllerData, eDataDestructor> CTestData;
typedef CTestOwned<CInspectorController::IDirtyControllerDataInfo, eNoticeDestructor> CTestNotice;

/// Notes "command:name" for commands.
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
    void HandleDirtyItem(sInspectorControllerData*, IDirtyControllerDataInfo*) override { m_log.Note(eHandleItem, ""); }
    void HandleDirtyController(std::vector<IDirtyControllerDataInfo*>&) override { m_log.Note(eHandleController, ""); }

private:
    CTestLog& m_log;
};

class CTestView : public CQTInspectorView
{
public:
    using CQTInspectorView::m_iOffsetY;
    using CQTInspectorView::m_pContentWidget;
    using CQTInspectorView::m_pScrollBar;
};

/// A view and its controller in a window; either may be deleted before the page.
class CTestPage
{
public:
    CTestPage()
    {
        Wire();
        m_window.resize(340, 400);
    }

    /// Makes a view and a controller where there are none.
    void Wire()
    {
        m_pController.reset(m_pController ? m_pController.release() : new CTestController(m_log));
        if (!m_pView)
        {
            m_pView = new CTestView;
            m_pView->setParent(&m_window);
            m_pView->show();
        }
        m_pView->m_pController = m_pController.get();
        m_pController->m_pView = m_pView;
    }

    /// Adds a row; the label is the name of element and widget as well.
    template <class Widget, class Element>
    CTestElement<Element>* Add(const char* in_strName, CInspectorView::sInspectorElement* in_pParent = nullptr,
                               CInspectorController::IControllerData* in_pData = nullptr)
    {
        CTestElement<Element>* pElement = new CTestElement<Element>(m_log, in_strName);
        Widget* pWidget = new Widget;
        pWidget->setObjectName(TestSupport::Latin(in_strName));
        m_pController->AddItem(pElement, pWidget, in_pData);
        m_pView->AddElement(pElement, pWidget, in_strName, nullptr, in_pParent);
        return pElement;
    }

    /// Adds a single-line value.
    CTestElement<CSimpleDataElement>* AddLine(const char* in_strName, const std::string& in_strValue,
                                              CInspectorView::sInspectorElement* in_pParent = nullptr)
    {
        auto* pElement = Add<CQTSimpleDataWidget, CSimpleDataElement>(in_strName, in_pParent);
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
