#ifndef PROPERTYCONTROLS_H
#define PROPERTYCONTROLS_H

/// The controls of the first library that stand among the rows of a page. Private to the library.
/// \file

#include "inspectorcontroller.h"

class CPropertyArea;

/// Registers the first library's controls that stand among the rows.
class CPropertyControls : public CInspectorController
{
public:
    explicit CPropertyControls(CPropertyArea& in_area);

    /// Takes over both, puts the control into the view and lets it show its value.
    void Adopt(CInspectorDataWidget& io_control, CInspectorDataElement* in_pElement);

    // Tab in the control's editor.

    void GiveFocusToNextElement(CInspectorDataWidget* in_pWidget) override;
    void GiveFocusToPrevElement(CInspectorDataWidget* in_pWidget) override;
    void ApplicationHook1() override {}
    void ApplicationHook2() override {}
    void HandleDirtyItem(sInspectorControllerData*, IDirtyControllerDataInfo*) override {}
    void HandleDirtyController(std::vector<IDirtyControllerDataInfo*>&) override {}

private:
    CPropertyArea& m_area;
};

#endif
