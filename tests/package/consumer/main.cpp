#include "inspectorcontroller.h"
#include "inspectortext.h"
#include "qtinspectorview.h"
#include "qtsimpledatawidget.h"

#include <QApplication>

namespace
{
class CController : public CInspectorController
{
public:
    explicit CController(CInspectorView& in_view) { m_pView = &in_view; }
    void ApplicationHook1() override {}
    void ApplicationHook2() override {}
    void HandleDirtyItem(sInspectorControllerData*, IDirtyControllerDataInfo*) override {}
    void HandleDirtyController(std::vector<IDirtyControllerDataInfo*>&) override {}
};

class CElement : public CSimpleDataElement
{
public:
    void InternalValueChanged() override { m_bTold = m_strValue == "typed"; }

    bool m_bTold = false;
};
} // namespace

/// Answers 0 if calls, casts and data find their way across the border of the library.
int main(int argc, char** argv)
{
    InspectorText::UseUtf8();
    QApplication application(argc, argv);
    CQTInspectorView view;
    CController controller(view);
    CElement* pElement = new CElement;
    CQTSimpleDataWidget* pWidget = new CQTSimpleDataWidget;
    controller.AddItem(pElement, pWidget, nullptr);
    view.AddElement(pElement, pWidget, "label", nullptr, view.AddGroup("group", nullptr));
    controller.ConnectDataElements();
    view.ResizeInspector(200, g_iInspectorNotGiven);
    pWidget->FinishValueEdit("typed", CInspectorDataElement::eEndEditValidate);
    return pElement->m_bTold && CQTSimpleDataWidget::g_pInPlace ? 0 : 1;
}
