#ifndef PAGE_H
#define PAGE_H

#include "inspectorcontroller.h"
#include "qtinspectorview.h"

#include <string>

struct sShape
{
    std::string kind = "circle"; ///< or "rectangle"
    int radius = 10;
    int width = 30;
    int height = 20;
};

/// Shows a shape, with the rows that its kind has, and works its commands.
class CShapePage : public CInspectorController
{
public:
    CShapePage(sShape& io_shape, CQTInspectorView& in_view);

    void ApplicationHook1() override;
    void ApplicationHook2() override;

    /// "scale" multiplies every length by the argument, "reset" brings the first shape of the kind back.
    void CallCommand(const char* in_strName, unsigned long in_ulArgument) override;

    void HandleDirtyItem(sInspectorControllerData* in_pItem, IDirtyControllerDataInfo* in_pInfo) override;

    /// A notice asks for other rows; without any, the rows only show their values again.
    void HandleDirtyController(std::vector<IDirtyControllerDataInfo*>& in_infos) override;

private:
    typedef CInspectorView::sInspectorElement sNode;

    void Scale(int in_iFactor);
    void Build();
    void AddKind(sNode* in_pGroup);
    void AddCommands();
    void AddRow(CInspectorDataElement* in_pElement, CInspectorDataWidget* in_pWidget, const char* in_strLabel,
                sNode* in_pParent);

    sShape& m_shape;
    CQTInspectorView& m_view; ///< the view that the base knows
    std::string m_strRefusal; ///< what was typed or asked for last, if it made no sense
};

#endif
