/// A page of the library, as an application writes it.
/// \file

#include "subject.h"

#include "inspectorcontroller.h"
#include "qtinspectorview.h"
#include "qtsimpledatawidget.h"

namespace
{
typedef CEnumDataElement::sEnumDefinition sChoices;

/// Takes the element's value from the model.
class ILoad : public CInspectorController::IControllerData
{
public:
    virtual void Load() = 0;
};

/// An element that connects to one property.
template <class Base> class CBound : public Base
{
public:
    explicit CBound(const CProperties::sProperty& in_property) : m_property(in_property) {}
    void Connect() override { Load(); }
    void Load();

private:
    const CProperties::sProperty& m_property;
};

template <class Base> void CBound<Base>::Load()
{
    this->m_strValue = m_property.text;
}

template <> void CBound<CBoolDataElement>::Load()
{
    SetValue(m_property.flag);
}

template <> void CBound<CStaticDataElement>::Load()
{
    m_strText = m_property.text;
}

template <class Element> class CLoad : public ILoad
{
public:
    explicit CLoad(Element* in_pElement) : m_pElement(in_pElement) {}
    void Load() override { m_pElement->Load(); }

private:
    Element* m_pElement;
};

class CInspectorSubject : public ISubject, private CInspectorController
{
public:
    CInspectorSubject(QWidget* in_pWindow, const CProperties& in_properties) : ISubject(in_properties)
    {
        m_view.setParent(in_pWindow);
        m_pView = &m_view;
        m_view.m_pController = this;
        for (int i = 0; i < CProperties::eChoices; ++i)
        {
            m_choices.AddItem(CProperties::ChoiceText(i), CProperties::ChoiceText(i));
        }
    }

    ~CInspectorSubject() override { ClearAllData(); }

    void Resize(const QSize& in_size) override { m_view.ResizeInspector(in_size.width(), in_size.height()); }

    void Build() override
    {
        CInspectorView::sInspectorElement* pGroup = nullptr;
        for (int i = 0; i < m_properties.Count(); ++i)
        {
            if (i % CProperties::eGroupSize == 0)
            {
                pGroup = m_view.AddGroup(CProperties::GroupTitle(i).c_str(), nullptr);
            }
            AddRow(m_properties[i], pGroup);
        }
        m_rows.assign(m_items.begin(), m_items.end());
        ConnectDataElements();
        m_view.RecomputeLayout();
    }

    void Clear() override
    {
        ClearAllData();
        m_view.RecomputeLayout();
    }

    void Replace() override
    {
        ClearAllData();
        Build();
    }

    void Update(int in_iRow) override { DirtifyItem(m_rows[static_cast<std::size_t>(in_iRow)], nullptr); }
    QScrollBar* ScrollBar() override { return m_view.findChild<QScrollBar*>(); }

    QRect Control(int in_iRow) override
    {
        return InWindow(dynamic_cast<QWidget*>(m_rows[static_cast<std::size_t>(in_iRow)]->widget));
    }

    bool OpensOnPress(CProperties::eKind in_eKind) override
    {
        return in_eKind == CProperties::eText || in_eKind == CProperties::eChoice;
    }

private:
    void ApplicationHook1() override {}
    void ApplicationHook2() override {}
    void HandleDirtyController(std::vector<IDirtyControllerDataInfo*>&) override {}

    void HandleDirtyItem(sInspectorControllerData* in_pItem, IDirtyControllerDataInfo*) override
    {
        static_cast<ILoad*>(in_pItem->data)->Load();
        in_pItem->element->UpdateData();
    }

    void AddRow(const CProperties::sProperty& in_property, CInspectorView::sInspectorElement* in_pGroup)
    {
        switch (in_property.kind)
        {
        case CProperties::eText:
            Add(new CBound<CSimpleDataElement>(in_property), new CQTSimpleDataWidget, in_property, in_pGroup);
            return;
        case CProperties::eFlag:
            Add(new CBound<CBoolDataElement>(in_property), new CQTSimpleBoolWidget, in_property, in_pGroup);
            return;
        case CProperties::eFixed:
            Add(new CBound<CStaticDataElement>(in_property), new CQTStaticWidget, in_property, in_pGroup);
            return;
        case CProperties::eChoice:
            break;
        }
        auto* pElement = new CBound<CEnumDataElement>(in_property);
        pElement->SetExternalEnum(&m_choices);
        Add(pElement, new CQTEnumDataWidget, in_property, in_pGroup);
    }

    template <class Element>
    void Add(Element* in_pElement, CInspectorDataWidget* in_pWidget, const CProperties::sProperty& in_property,
             CInspectorView::sInspectorElement* in_pGroup)
    {
        AddItem(in_pElement, in_pWidget, new CLoad<Element>(in_pElement));
        m_view.AddElement(in_pElement, in_pWidget, in_property.label.c_str(), nullptr, in_pGroup);
    }

    CQTInspectorView m_view;
    sChoices m_choices;
    std::vector<sInspectorControllerData*> m_rows; ///< by row
};
} // namespace

std::unique_ptr<ISubject> CreateInspectorSubject(QWidget* in_pWindow, const CProperties& in_properties)
{
    return std::unique_ptr<ISubject>(new CInspectorSubject(in_pWindow, in_properties));
}
