#include "inspectorcontroller.h"
#include "inspectortext.h"
#include "qtinspectorview.h"
#include "qtsimpledatawidget.h"

#include <QApplication>

struct sLamp
{
    std::string name = "Desk lamp";
    bool lit = true;
    std::string light = "warm";
};

/// A row that edits a string of the lamp: a text, or one of several choices.
template <class Element> class CStringRow : public Element
{
    std::string& m_strModel;

public:
    explicit CStringRow(std::string& io_strModel) : m_strModel(io_strModel) {}
    void Connect() override { this->m_strValue = m_strModel; }
    void InternalValueChanged() override { m_strModel = this->m_strValue; }
};

class CBoolRow : public CBoolDataElement
{
    bool& m_bModel;

public:
    explicit CBoolRow(bool& io_bModel) : m_bModel(io_bModel) {}
    void Connect() override { SetValue(m_bModel); }
    void InternalValueChanged() override { m_bModel = GetValue(); }
};

class CLampController : public CInspectorController
{
public:
    explicit CLampController(CInspectorView& in_view)
    {
        m_pView = &in_view;
        in_view.m_pController = this;
    }
    void Add(const char* in_strLabel, CInspectorDataElement* in_pElement, CInspectorDataWidget* in_pWidget)
    {
        AddItem(in_pElement, in_pWidget, nullptr);
        m_pView->AddElement(in_pElement, in_pWidget, in_strLabel, nullptr, nullptr);
    }
    void ApplicationHook1() override {}
    void ApplicationHook2() override {}
    void HandleDirtyItem(sInspectorControllerData*, IDirtyControllerDataInfo*) override {}
    void HandleDirtyController(std::vector<IDirtyControllerDataInfo*>&) override {}
};

int main(int argc, char** argv)
{
    InspectorText::UseUtf8(); // otherwise texts are Latin-1
    QApplication application(argc, argv);
    sLamp lamp;
    CQTInspectorView view;
    CLampController controller(view);
    controller.Add("Name", new CStringRow<CSimpleDataElement>(lamp.name), new CQTSimpleDataWidget);
    controller.Add("Lit", new CBoolRow(lamp.lit), new CQTSimpleBoolWidget);
    CEnumDataElement* pLight = new CStringRow<CEnumDataElement>(lamp.light);
    pLight->CreateEnum();
    pLight->AddEnum("warm", "Warm white");
    pLight->AddEnum("cold", "Daylight");
    controller.Add("Light", pLight, new CQTEnumDataWidget);
    controller.ConnectDataElements();
    view.SetKeyboardNavigation(true);
    view.ResizeInspector(300, -1);
    view.setFixedSize(view.size());
    view.show();
    return application.exec();
}
