#include "inspectorcontroller.h"
#include "inspectortext.h"
#include "qtinspectorview.h"
#include "qtsimpledatawidget.h"
#include "slider.h"

#include <QApplication>

#include <sstream>

namespace
{
struct sSound
{
    int volume = 40;
    int balance = 0;
};

/// The same number as a text.
class CNumberElement : public CSimpleDataElement
{
public:
    CNumberElement(int& io_iModel, int in_iMinimum, int in_iMaximum, std::string& out_strRefusal)
        : m_iModel(io_iModel),
          m_iMinimum(in_iMinimum),
          m_iMaximum(in_iMaximum),
          m_strRefusal(out_strRefusal)
    {}
    void Connect() override { m_strValue = std::to_string(m_iModel); }

    /// The rows then show the model: this one, too, in place of what was refused.
    void InternalValueChanged() override
    {
        std::istringstream stream(m_strValue);
        int iNumber = 0;
        const bool bNumber = stream >> iNumber && (stream >> std::ws).eof(); // too large a number is none either
        const bool bFits = bNumber && iNumber >= m_iMinimum && iNumber <= m_iMaximum;
        m_iModel = bFits ? iNumber : m_iModel;
        m_strRefusal = bFits ? "" : "Not within the slider's limits: " + m_strValue;
        m_pController->DirtifyController(nullptr);
    }

private:
    int& m_iModel;
    int m_iMinimum;
    int m_iMaximum;
    std::string& m_strRefusal;
};

/// Says what was refused last.
class CRefusalElement : public CStaticDataElement
{
public:
    explicit CRefusalElement(const std::string& in_strRefusal) : m_strRefusal(in_strRefusal) {}
    void Connect() override { m_strText = m_strRefusal; }

private:
    const std::string& m_strRefusal;
};

class CSoundController : public CInspectorController
{
public:
    explicit CSoundController(CInspectorView& in_view)
    {
        m_pView = &in_view;
        in_view.m_pController = this;
    }

    /// A row that a slider and a number of 50 pixels share.
    void AddNumber(const char* in_strLabel, int& io_iModel, int in_iMinimum, int in_iMaximum)
    {
        CInspectorView::sRequestSize width;
        width.minimum = width.maximum = 50;
        CInspectorView::sInspectorElement* pRow = m_pView->AddSingleLineContainer(in_strLabel, nullptr, nullptr);
        AddTo(pRow, new CSliderElement(io_iModel, in_iMinimum, in_iMaximum), new CSliderWidget, nullptr);
        AddTo(pRow, new CNumberElement(io_iModel, in_iMinimum, in_iMaximum, m_strRefusal), new CQTSimpleDataWidget,
              &width);
    }

    void AddRefusal() { AddTo(nullptr, new CRefusalElement(m_strRefusal), new CQTStaticWidget, nullptr); }

    void ApplicationHook1() override {}
    void ApplicationHook2() override {}
    void HandleDirtyItem(sInspectorControllerData*, IDirtyControllerDataInfo*) override {}

    /// Every row takes its value from the model again, and shows it.
    void HandleDirtyController(std::vector<IDirtyControllerDataInfo*>&) override
    {
        for (sInspectorControllerData* pItem : m_items)
        {
            pItem->element->Connect();
            pItem->element->UpdateData();
        }
    }

private:
    void AddTo(CInspectorView::sInspectorElement* in_pRow, CInspectorDataElement* in_pElement,
               CInspectorDataWidget* in_pWidget, CInspectorView::sRequestSize* in_pRequest)
    {
        AddItem(in_pElement, in_pWidget, nullptr);
        m_pView->AddElement(in_pElement, in_pWidget, nullptr, in_pRequest, in_pRow);
    }

    std::string m_strRefusal; ///< what was typed last, if it made no sense
};

/// Lays its rows out again whenever its window is resized.
class CWindow : public CQTInspectorView
{
protected:
    void resizeEvent(QResizeEvent*) override { ResizeInspector(width(), height()); }
};
} // namespace

int main(int argc, char** argv)
{
    InspectorText::UseUtf8();
    QApplication application(argc, argv);
    sSound sound;
    CWindow window;
    CSoundController controller(window);
    controller.AddNumber("Volume", sound.volume, 0, 100);
    controller.AddNumber("Balance", sound.balance, -50, 50);
    controller.AddRefusal();
    controller.ConnectDataElements();
    window.resize(360, 100);
    window.show();
    return application.exec();
}
