#include "pagebuilder.h"

#include "inspectorcontroller.h"
#include "propertyelements.h"
#include "qtcompat.h"
#include "qtsimpledatawidget.h"

#include <QMetaEnum>
#include <QMetaMethod>
#include <QMetaObject>
#include <QSet>

namespace
{
const int g_iPreviewValues = 3;
const std::size_t g_uCommandsPerRow = 3;

bool NeedsOneControl(const CLiveProperty& in_property)
{
    const CLiveProperty::eKind eKind = in_property.GetKind();
    return eKind != CLiveProperty::eFlags && eKind != CLiveProperty::eParts;
}

bool IsCommand(const QMetaMethod& in_method)
{
    return in_method.methodType() == QMetaMethod::Slot && in_method.access() == QMetaMethod::Public &&
           in_method.parameterTypes().isEmpty();
}
} // namespace

CPageBuilder::CPageBuilder(QObject* in_pObject, CInspectorView& in_view, CInspectorController& in_controller)
    : m_pObject(in_pObject),
      m_view(in_view),
      m_controller(in_controller)
{}

void CPageBuilder::BuildPage()
{
    AddClassName();
    AddCommands();
    for (const QMetaObject* pClass = m_pObject->metaObject(); pClass; pClass = pClass->superClass())
    {
        AddClass(*pClass);
    }
    m_view.RemoveEmptyGroups();
}

void CPageBuilder::BuildPreview()
{
    const QMetaProperty userProperty = m_pObject->metaObject()->userProperty();
    int iRoom = g_iPreviewValues;
    if (userProperty.isReadable())
    {
        AddProperty(CLiveProperty(m_pObject, userProperty), nullptr);
        --iRoom;
    }
    for (const QMetaObject* pClass = m_pObject->metaObject(); pClass; pClass = pClass->superClass())
    {
        for (int i = pClass->propertyOffset(); i < pClass->propertyCount() && iRoom > 0; ++i)
        {
            const CLiveProperty property(m_pObject, pClass->property(i));
            if (NeedsOneControl(property) && qstrcmp(property.GetMeta().name(), userProperty.name()) != 0)
            {
                AddProperty(property, nullptr);
                --iRoom;
            }
        }
    }
}

void CPageBuilder::AddClassName()
{
    const std::string strName = m_pObject->metaObject()->className();
    AddRow(new CStaticDataElement(strName, Qt::AlignLeft | Qt::AlignVCenter), new CQTStaticWidget, "class", nullptr);
}

void CPageBuilder::AddClass(const QMetaObject& in_class)
{
    sNode* pGroup = m_view.AddGroup(in_class.className(), nullptr);
    for (int i = in_class.propertyOffset(); i < in_class.propertyCount(); ++i)
    {
        AddProperty(CLiveProperty(m_pObject, in_class.property(i)), pGroup);
    }
}

void CPageBuilder::AddProperty(const CLiveProperty& in_property, sNode* in_pParent)
{
    const char* strName = in_property.GetMeta().name();
    if (!in_property.GetMeta().isReadable())
    {
        return;
    }
    switch (in_property.GetKind())
    {
    case CLiveProperty::eBool:
        AddRow(new CLiveBoolElement(in_property), new CQTSimpleBoolWidget, strName, in_pParent);
        break;
    case CLiveProperty::eEnum:
        AddRow(new CLiveEnumElement(in_property), new CQTEnumDataWidget, strName, in_pParent);
        break;
    case CLiveProperty::eFlags:
        AddFlags(in_property, in_pParent);
        break;
    case CLiveProperty::eParts:
        AddParts(in_property, in_pParent);
        break;
    case CLiveProperty::eText:
    case CLiveProperty::eOther:
        AddText(in_property, in_pParent);
        break;
    }
}

void CPageBuilder::AddText(const CLiveProperty& in_property, sNode* in_pParent)
{
    const char* strName = in_property.GetMeta().name();
    if (in_property.IsLongText())
    {
        AddRow(new CLiveTextElement(in_property), new CQTSimpleTextWidget, strName, in_pParent);
    }
    else
    {
        AddRow(new CLiveTextElement(in_property), new CQTSimpleDataWidget, strName, in_pParent);
    }
}

void CPageBuilder::AddFlags(const CLiveProperty& in_property, sNode* in_pParent)
{
    sNode* pGroup = m_view.AddGroup(in_property.GetMeta().name(), in_pParent);
    const QMetaEnum flags = in_property.GetMeta().enumerator();
    for (int i = 0; i < flags.keyCount(); ++i)
    {
        AddRow(new CLiveFlagElement(in_property, flags.value(i)), new CQTSimpleBoolWidget, flags.key(i), pGroup);
    }
}

void CPageBuilder::AddParts(const CLiveProperty& in_property, sNode* in_pParent)
{
    const char* strName = in_property.GetMeta().name();
    sNode* pRow = m_view.AddSingleLineContainer(strName, nullptr, in_pParent);
    for (int i = 0; i < in_property.CountParts(); ++i)
    {
        AddRow(new CLivePartElement(in_property, i), new CQTSimpleDataWidget, strName, pRow);
    }
}

/// A class may declare a slot of its base once more; it is still one command.
void CPageBuilder::AddCommands()
{
    sNode* pGroup = m_view.AddGroup("Commands", nullptr);
    QSet<QByteArray> added;
    for (const QMetaObject* pClass = m_pObject->metaObject(); pClass; pClass = pClass->superClass())
    {
        const bool bCanBeDisabled = pClass->indexOfProperty("enabled") >= 0;
        for (int i = pClass->methodOffset(); i < pClass->methodCount(); ++i)
        {
            const QByteArray strSlot = QtCompat::Signature(pClass->method(i));
            if (IsCommand(pClass->method(i)) && !added.contains(strSlot))
            {
                added.insert(strSlot);
                AddCommand(strSlot.left(strSlot.indexOf('(')), bCanBeDisabled, pGroup);
            }
        }
    }
}

void CPageBuilder::AddCommand(const QByteArray& in_strSlot, bool in_bNeedsEnabled, sNode* in_pGroup)
{
    if (!m_pCommandRow || m_pCommandRow->holder->subHolders.size() == g_uCommandsPerRow)
    {
        m_pCommandRow = m_view.AddSingleLineContainer(nullptr, nullptr, in_pGroup);
    }
    AddRow(new CLiveCommandElement(m_pObject, in_strSlot, in_bNeedsEnabled), new CQTButtonWidget,
           in_strSlot.constData(), m_pCommandRow);
}

/// A widget is named after its row for style sheets and tests.
template <class Widget>
void CPageBuilder::AddRow(CInspectorDataElement* in_pElement, Widget* in_pWidget, const char* in_strName,
                          sNode* in_pParent)
{
    in_pWidget->setObjectName(QLatin1String(in_strName));
    in_pWidget->setEnabled(!in_pElement->IsReadOnly());
    m_controller.AddItem(in_pElement, in_pWidget, nullptr);
    m_view.AddElement(in_pElement, in_pWidget, in_strName, nullptr, in_pParent);
}
