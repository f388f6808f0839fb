#include "inspectorcontroller.h"
#include "qtinspectorview.h"
#include "qtsimpledatawidget.h"
#include "slider.h"

#include <QApplication>

#include <cstdlib>

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
    explicit CNumberElement(int& io_iModel) : m_iModel(io_iModel) {}
    void Connect() override { m_strValue = std::to_string(m_iModel); }
    void InternalValueChanged() override
    {
        m_iModel = std::atoi(m_strValue.c_str());
        m_pController->DirtifyController(nullptr);
    }

private:
    int& m_iModel;
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
        AddTo(pRow, new CNumberElement(io_iModel), new CQTSimpleDataWidget, &width);
    }

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
    QApplication application(argc, argv);
    sSound sound;
    CWindow window;
    CSoundController controller(window);
    controller.AddNumber("Volume", sound.volume, 0, 100);
    controller.AddNumber("Balance", sound.balance, -50, 50);
    controller.ConnectDataElements();
    window.resize(360, 80);
    window.show();
    return application.exec();
}
