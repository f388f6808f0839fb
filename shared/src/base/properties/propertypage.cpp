#include "propertypage.h"

#include "propertyadapter.h"
#include "propertyrows.h"
#include "propertyundo.h"

#include <algorithm>

CPropertyPage::CPropertyPage(QObject* in_pParent) : QObject(in_pParent), m_pRows(new CPropertyRows(*this)) {}

CPropertyPage::~CPropertyPage() = default;

CPropertyGroup CPropertyPage::AddGroup(const QString& in_strTitle)
{
    return m_pRows->AddGroup(in_strTitle);
}

void CPropertyPage::AddObject(QObject* in_pObject)
{
    const QMetaObject* pClass = in_pObject ? in_pObject->metaObject() : nullptr;
    m_pRows->AddGroups(PropertySource::OfObject(in_pObject), pClass, CPropertyGroup());
}

/// The rules that hold are those for the class that all objects have in common.
void CPropertyPage::AddObjects(const QList<QObject*>& in_objects)
{
    const QMetaObject* pClass = nullptr;
    for (const QObject* pObject : in_objects)
    {
        const QMetaObject* pOwn = pObject ? pObject->metaObject() : pClass;
        pClass = pClass ? pClass : pOwn;
        while (pClass && !pOwn->inherits(pClass))
        {
            pClass = pClass->superClass();
        }
    }
    m_pRows->AddGroups(PropertySource::OfObjects(in_objects), pClass, CPropertyGroup());
}

void CPropertyPage::SetAdapter(const CPropertyAdapter& in_adapter)
{
    m_pRows->SetAdapter(in_adapter);
}

CPropertyRow CPropertyPage::Row(const QString& in_strName) const
{
    const tItems& items = m_pRows->Items();
    const auto it = std::find_if(items.begin(), items.end(), [&in_strName](const tItemPtr& in_pItem) {
        return in_pItem->property && in_pItem->property->Name() == in_strName;
    });
    return it == items.end() ? CPropertyRow() : m_pRows->RowOf(*it);
}

void CPropertyPage::Clear()
{
    m_pRows->Clear();
}

void CPropertyPage::Refresh()
{
    m_pRows->Refresh();
}

bool CPropertyPage::Write(const tPropertyPtr& in_pProperty, const QVariant& in_value)
{
    return m_pRows->Write(in_pProperty, in_value);
}

void CPropertyPage::SetUndoStack(QUndoStack* in_pStack)
{
    m_pRows->Undo().SetStack(in_pStack, false);
}

QUndoStack& CPropertyPage::UseOwnUndoStack()
{
    CPropertyUndo& undo = m_pRows->Undo();
    undo.IsOwn() ? void() : undo.SetStack(new QUndoStack, true);
    return *undo.Stack();
}

QUndoStack* CPropertyPage::UndoStack() const
{
    return m_pRows->Undo().Stack();
}

void CPropertyPage::SetModifiedAgainst(eModifiedAgainst in_eAgainst)
{
    m_pRows->SetModifiedAgainst(in_eAgainst);
}

QString CPropertyPage::Text() const
{
    return m_pRows->Text();
}

QByteArray CPropertyPage::Json() const
{
    return m_pRows->Json();
}

bool CPropertyPage::Paste(const QString& in_strText)
{
    return m_pRows->Paste(in_strText);
}
