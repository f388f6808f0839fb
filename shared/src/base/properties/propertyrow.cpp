/// What is said of rows and groups while a page is made.
/// \file

#include "propertyrows.h"

#include <QItemEditorFactory>

CPropertyRow::CPropertyRow(CPropertyRows* in_pRows, const tItemPtr& in_pItem) : m_pRows(in_pRows), m_pItem(in_pItem) {}

tPropertyPtr CPropertyRow::Property() const
{
    const tItemPtr pItem = m_pItem.lock();
    return pItem ? pItem->property : nullptr;
}

/// Lets `in_change` change the format of a property's row; nothing for others.
template <class Change> CPropertyRow& CPropertyRow::ChangeFormat(Change in_change)
{
    const tItemPtr pItem = m_pItem.lock();
    if (pItem && pItem->property)
    {
        in_change(pItem->property->EditFormat());
        Changed();
    }
    return *this;
}

void CPropertyRow::Changed()
{
    const tItemPtr pItem = m_pItem.lock();
    if (pItem && m_pRows)
    {
        pItem->type = nullptr;
        m_pRows->ItemChanged(*pItem);
    }
}

CPropertyRow& CPropertyRow::Range(const QVariant& in_minimum, const QVariant& in_maximum)
{
    return ChangeFormat([&](sPropertyFormat& io_format) {
        io_format.minimum = in_minimum;
        io_format.maximum = in_maximum;
    });
}

CPropertyRow& CPropertyRow::Step(const QVariant& in_step)
{
    return ChangeFormat([&](sPropertyFormat& io_format) { io_format.step = in_step; });
}

CPropertyRow& CPropertyRow::Decimals(int in_iDecimals)
{
    return ChangeFormat([&](sPropertyFormat& io_format) { io_format.decimals = in_iDecimals; });
}

CPropertyRow& CPropertyRow::Prefix(const QString& in_strPrefix)
{
    return ChangeFormat([&](sPropertyFormat& io_format) { io_format.prefix = in_strPrefix; });
}

CPropertyRow& CPropertyRow::Suffix(const QString& in_strSuffix)
{
    return ChangeFormat([&](sPropertyFormat& io_format) { io_format.suffix = in_strSuffix; });
}

CPropertyRow& CPropertyRow::Tip(const QString& in_strTip)
{
    const tItemPtr pItem = m_pItem.lock();
    if (pItem && !pItem->property)
    {
        pItem->tip = in_strTip;
    }
    return ChangeFormat([&](sPropertyFormat& io_format) { io_format.tip = in_strTip; });
}

CPropertyRow& CPropertyRow::Choices(const QVector<sPropertyChoice>& in_choices)
{
    return ChangeFormat([&](sPropertyFormat& io_format) { io_format.choices = in_choices; });
}

CPropertyRow& CPropertyRow::Keys(const QMetaEnum& in_keys)
{
    return ChangeFormat([&](sPropertyFormat& io_format) { io_format.keys = in_keys; });
}

CPropertyRow& CPropertyRow::LongText()
{
    return ChangeFormat([](sPropertyFormat& io_format) { io_format.editor = sPropertyFormat::eLongText; });
}

CPropertyRow& CPropertyRow::File()
{
    return ChangeFormat([](sPropertyFormat& io_format) { io_format.editor = sPropertyFormat::eFile; });
}

CPropertyRow& CPropertyRow::Folder()
{
    return ChangeFormat([](sPropertyFormat& io_format) { io_format.editor = sPropertyFormat::eFolder; });
}

CPropertyRow& CPropertyRow::Default(const QVariant& in_value)
{
    return ChangeFormat([&](sPropertyFormat& io_format) { io_format.defaultValue = in_value; });
}

CPropertyRow& CPropertyRow::AccessibleName(const QString& in_strName)
{
    return ChangeFormat([&](sPropertyFormat& io_format) { io_format.accessibleName = in_strName; });
}

CPropertyRow& CPropertyRow::Editor(QItemEditorCreatorBase* in_pCreator)
{
    return ChangeFormat([in_pCreator](sPropertyFormat& io_format) { io_format.creator.reset(in_pCreator); });
}

CPropertyRow& CPropertyRow::ReadOnly(bool in_bReadOnly)
{
    if (const tPropertyPtr pProperty = Property())
    {
        pProperty->SetReadOnly(in_bReadOnly);
        Changed();
    }
    return *this;
}

CPropertyRow& CPropertyRow::Label(const QString& in_strLabel)
{
    if (const tItemPtr pItem = m_pItem.lock())
    {
        pItem->property ? pItem->property->SetLabel(in_strLabel) : void(pItem->label = in_strLabel);
        Changed();
    }
    return *this;
}

void CPropertyRow::Refresh()
{
    const tItemPtr pItem = m_pItem.lock();
    if (pItem && m_pRows)
    {
        m_pRows->ItemChanged(*pItem);
    }
}

CPropertyGroup::CPropertyGroup(CPropertyRows* in_pRows, const tItemPtr& in_pItem) : m_pRows(in_pRows), m_pItem(in_pItem)
{}

CPropertyRow CPropertyGroup::AddItem(const tItemPtr& in_pItem)
{
    const tItemPtr pGroup = m_pItem.lock();
    return m_pRows && pGroup ? m_pRows->RowOf(m_pRows->Insert(in_pItem, pGroup)) : CPropertyRow();
}

CPropertyRow CPropertyGroup::AddProperty(const tPropertyPtr& in_pProperty)
{
    const tItemPtr pItem = std::make_shared<sPropertyItem>(sPropertyItem::eProperty);
    pItem->property = in_pProperty;
    return AddItem(pItem);
}

CPropertyRow CPropertyGroup::AddPropertyOf(QObject* in_pObject, const char* in_strName)
{
    const QString strName = QString::fromUtf8(in_strName);
    for (const PropertySource::sGroup& group : PropertySource::OfObject(in_pObject))
    {
        for (const tPropertyPtr& pProperty : group.properties)
        {
            if (pProperty->Name() == strName)
            {
                return AddProperty(pProperty);
            }
        }
    }
    return CPropertyRow();
}

void CPropertyGroup::AddGadget(const QMetaObject& in_meta, void* io_pGadget)
{
    if (m_pRows)
    {
        m_pRows->AddGroups({{QString(), PropertySource::OfGadget(in_meta, io_pGadget)}}, &in_meta, *this);
    }
}

CPropertyRow CPropertyGroup::AddCommand(const QString& in_strLabel, std::function<void()> in_command)
{
    const tItemPtr pItem = std::make_shared<sPropertyItem>(sPropertyItem::eCommand);
    pItem->label = in_strLabel;
    pItem->command = std::move(in_command);
    return AddItem(pItem);
}

CPropertyRow CPropertyGroup::AddWidget(const QString& in_strLabel, QWidget* in_pWidget)
{
    if (!in_pWidget)
    {
        return CPropertyRow();
    }
    const tItemPtr pItem = std::make_shared<sPropertyItem>(sPropertyItem::eWidget);
    pItem->label = in_strLabel;
    pItem->widget = in_pWidget;
    return AddItem(pItem);
}

CPropertyRow CPropertyGroup::AddControl(const QString& in_strLabel, CInspectorDataElement* in_pElement,
                                        CInspectorDataWidget* in_pControl)
{
    CPropertyRow row = AddWidget(in_strLabel, dynamic_cast<QWidget*>(in_pControl));
    if (const tItemPtr pItem = CPropertyRows::ItemOf(row))
    {
        pItem->control = in_pControl;
        pItem->element.reset(in_pElement);
    }
    return row;
}

CPropertyGroup CPropertyGroup::AddGroup(const QString& in_strTitle)
{
    const tItemPtr pItem = std::make_shared<sPropertyItem>(sPropertyItem::eGroup);
    pItem->label = in_strTitle;
    AddItem(pItem);
    return CPropertyGroup(m_pRows, pItem);
}

CPropertyGroup& CPropertyGroup::Expand(bool in_bExpand)
{
    const tItemPtr pItem = m_pItem.lock();
    if (pItem && pItem->expanded != in_bExpand)
    {
        pItem->expanded = in_bExpand;
        m_pRows ? m_pRows->RowsChanged() : void();
    }
    return *this;
}

CPropertyGroup& CPropertyGroup::Tip(const QString& in_strTip)
{
    if (const tItemPtr pItem = m_pItem.lock())
    {
        pItem->tip = in_strTip;
    }
    return *this;
}
