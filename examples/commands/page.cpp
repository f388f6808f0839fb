#include "page.h"

#include "qtsimpledatawidget.h"

#include <algorithm>
#include <cstring>
#include <sstream>

namespace
{
const int g_iLongest = 10000;

/// False for what is no length: nothing is stored then.
bool Parse(const std::string& in_strText, int& out_iLength)
{
    std::istringstream stream(in_strText);
    int iLength = 0;
    const bool bNumber = stream >> iLength && (stream >> std::ws).eof(); // too large a number is none either
    if (bNumber && iLength >= 0 && iLength <= g_iLongest)
    {
        out_iLength = iLength;
        return true;
    }
    return false;
}

/// The rows themselves have to change, not only what they show.
struct sOtherRows : CInspectorController::IDirtyControllerDataInfo
{};

class CKindElement : public CEnumDataElement
{
public:
    explicit CKindElement(std::string& io_strModel) : m_strModel(io_strModel)
    {
        CreateEnum();
        AddEnum("circle", "Circle");
        AddEnum("rectangle", "Rectangle");
    }
    void Connect() override { m_strValue = m_strModel; }

    /// Only asks for the other rows: they are built before the next paint, when nobody is using this one any more.
    void InternalValueChanged() override
    {
        m_strModel = m_strValue;
        m_pController->DirtifyController(new sOtherRows);
    }

private:
    std::string& m_strModel;
};

class CLengthElement : public CSimpleDataElement
{
public:
    CLengthElement(int& io_iModel, std::string& out_strRefusal) : m_iModel(io_iModel), m_strRefusal(out_strRefusal) {}
    void Connect() override { m_strValue = std::to_string(m_iModel); }

    /// All rows then show the model: this one, too, in place of what was refused.
    void InternalValueChanged() override
    {
        m_strRefusal =
            Parse(m_strValue, m_iModel) ? "" : "Not a number up to " + std::to_string(g_iLongest) + ": " + m_strValue;
        m_pController->DirtifyController(nullptr);
    }

private:
    int& m_iModel;
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

class CAreaElement : public CStaticDataElement
{
public:
    explicit CAreaElement(const sShape& in_shape) : m_shape(in_shape) {}
    void Connect() override
    {
        const double dArea = m_shape.kind == "circle" ? 3.14159265 * m_shape.radius * m_shape.radius
                                                      : 1.0 * m_shape.width * m_shape.height;
        m_strText = std::to_string(dArea);
    }

private:
    const sShape& m_shape;
};

class CCommandElement : public CButtonDataElement
{
public:
    CCommandElement(const char* in_strCaption, const char* in_strCommand, unsigned long in_ulArgument)
    {
        m_strCaption = in_strCaption;
        m_strCommand = in_strCommand;
        m_ulArgument = in_ulArgument;
    }
};
} // namespace

CShapePage::CShapePage(sShape& io_shape, CQTInspectorView& in_view) : m_shape(io_shape), m_view(in_view)
{
    m_pView = &in_view;
    in_view.m_pController = this;
    Build();
}

void CShapePage::ApplicationHook1() {}

void CShapePage::ApplicationHook2() {}

void CShapePage::CallCommand(const char* in_strName, unsigned long in_ulArgument)
{
    m_strRefusal.clear();
    if (std::strcmp(in_strName, "scale") == 0)
    {
        Scale(static_cast<int>(in_ulArgument));
    }
    else
    {
        const std::string strKind = m_shape.kind;
        m_shape = sShape();
        m_shape.kind = strKind;
    }
    DirtifyController(nullptr);
}

void CShapePage::Scale(int in_iFactor)
{
    if (std::max({m_shape.radius, m_shape.width, m_shape.height}) > g_iLongest / in_iFactor)
    {
        m_strRefusal = "Too large";
        return;
    }
    m_shape.radius *= in_iFactor;
    m_shape.width *= in_iFactor;
    m_shape.height *= in_iFactor;
}

void CShapePage::HandleDirtyItem(sInspectorControllerData*, IDirtyControllerDataInfo*) {}

void CShapePage::HandleDirtyController(std::vector<IDirtyControllerDataInfo*>& in_infos)
{
    for (const IDirtyControllerDataInfo* pInfo : in_infos)
    {
        if (pInfo)
        {
            Build();
            return;
        }
    }
    for (sInspectorControllerData* pItem : m_items)
    {
        pItem->element->Connect();
        pItem->element->UpdateData();
    }
}

/// An edit that is still open would be lost with its row: it ends first.
void CShapePage::Build()
{
    m_view.FinishEditing();
    ClearAllData();
    sNode* pGroup = m_pView->AddGroup("Shape", nullptr);
    AddKind(pGroup);
    if (m_shape.kind == "circle")
    {
        AddRow(new CLengthElement(m_shape.radius, m_strRefusal), new CQTSimpleDataWidget, "Radius", pGroup);
    }
    else
    {
        AddRow(new CLengthElement(m_shape.width, m_strRefusal), new CQTSimpleDataWidget, "Width", pGroup);
        AddRow(new CLengthElement(m_shape.height, m_strRefusal), new CQTSimpleDataWidget, "Height", pGroup);
    }
    AddRow(new CAreaElement(m_shape), new CQTStaticWidget, "Area", pGroup);
    AddCommands();
    AddRow(new CRefusalElement(m_strRefusal), new CQTStaticWidget, nullptr, nullptr);
    ConnectDataElements();
    m_view.ScrollTo(0);
    m_pView->RecomputeLayout();
}

void CShapePage::AddKind(sNode* in_pGroup)
{
    AddRow(new CKindElement(m_shape.kind), new CQTEnumDataWidget, "Kind", in_pGroup);
}

void CShapePage::AddCommands()
{
    sNode* pRow = m_pView->AddSingleLineContainer(nullptr, nullptr, nullptr);
    AddRow(new CCommandElement("Double", "scale", 2), new CQTButtonWidget, nullptr, pRow);
    AddRow(new CCommandElement("Triple", "scale", 3), new CQTButtonWidget, nullptr, pRow);
    AddRow(new CCommandElement("Reset", "reset", 0), new CQTButtonWidget, nullptr, pRow);
}

void CShapePage::AddRow(CInspectorDataElement* in_pElement, CInspectorDataWidget* in_pWidget, const char* in_strLabel,
                        sNode* in_pParent)
{
    AddItem(in_pElement, in_pWidget, nullptr);
    m_pView->AddElement(in_pElement, in_pWidget, in_strLabel, nullptr, in_pParent);
}
