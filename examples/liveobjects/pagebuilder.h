#ifndef PAGEBUILDER_H
#define PAGEBUILDER_H

#include "inspectorview.h"
#include "liveproperty.h"

class CInspectorController;

/// Fills a view and its controller with the rows of an object. Knows no class of objects, only kinds of properties.
class CPageBuilder
{
public:
    CPageBuilder(QObject* in_pObject, CInspectorView& in_view, CInspectorController& in_controller);

    /// The commands; then every readable property, in a group per class, the most derived first.
    void BuildPage();

    /// The few values that a strip has room for: the one that the object is there for, then the first ones.
    void BuildPreview();

private:
    typedef CInspectorView::sInspectorElement sNode;

    void AddClassName();
    void AddClass(const QMetaObject& in_class);
    void AddProperty(const CLiveProperty& in_property, sNode* in_pParent);
    void AddText(const CLiveProperty& in_property, sNode* in_pParent);
    void AddFlags(const CLiveProperty& in_property, sNode* in_pParent);
    void AddParts(const CLiveProperty& in_property, sNode* in_pParent);
    void AddCommands();
    void AddCommand(const QByteArray& in_strSlot, bool in_bNeedsEnabled, sNode* in_pGroup);
    template <class Widget>
    void AddRow(CInspectorDataElement* in_pElement, Widget* in_pWidget, const char* in_strName, sNode* in_pParent);

    QObject* m_pObject;
    CInspectorView& m_view;
    CInspectorController& m_controller;
    sNode* m_pCommandRow = nullptr;
};

#endif
