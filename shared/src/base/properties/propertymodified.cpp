/// Which values are others than they were, and how they are reset.
/// \file

#include "propertymodified.h"

#include "propertiesqt.h"
#include "propertychange.h"
#include "propertyrows.h"

#include <QCoreApplication>

#include <algorithm>

void CPropertyReferences::Note(const tPropertyPtr& in_pMember, const QVariant& in_value)
{
    const auto it = m_first.constFind(in_pMember.get());
    if (it == m_first.constEnd() || it->property.expired())
    {
        Learn(in_pMember, in_value);
    }
}

void CPropertyReferences::Learn(const tPropertyPtr& in_pMember, const QVariant& in_value)
{
    m_first.insert(in_pMember.get(), {in_pMember, in_value});
}

QVariant CPropertyReferences::First(const tPropertyPtr& in_pMember) const
{
    const sFirst first = m_first.value(in_pMember.get());
    return first.property.expired() ? QVariant() : first.value;
}

QVariant CPropertyReferences::Default(const CProperty& in_row, const CProperty& in_member)
{
    const QVariant value = in_row.Format().defaultValue;
    const QVariant own = value.isValid() ? value : in_member.Format().defaultValue;
    return own.isValid() ? PropertiesQt::Converted(own, in_member.Type()) : own;
}

/// What a function resets to is not known before it did: until then the first value stands for it.
QVariant CPropertyReferences::Reference(const CProperty& in_row, const tPropertyPtr& in_pMember)
{
    const QVariant given = AgainstFirst() ? QVariant() : Default(in_row, *in_pMember);
    return given.isValid() || !(AgainstFirst() || in_pMember->CanReset()) ? given : First(in_pMember);
}

bool CPropertyReferences::IsModified(const tPropertyPtr& in_pRow)
{
    const std::vector<tPropertyPtr> members = CPropertyRows::Members(in_pRow);
    return !in_pRow->IsReadOnly() && std::any_of(members.begin(), members.end(), [&](const tPropertyPtr& in_pMember) {
        const QVariant value = in_pMember->Read();
        Note(in_pMember, value);
        const QVariant reference = Reference(*in_pRow, in_pMember);
        const bool bOther = value.isValid() && reference.isValid() && !CPropertyStep::IsSame(value, reference);
        return bOther && CPropertyStep::IsSteady(*in_pMember, value);
    });
}

void CPropertyRows::SetModifiedAgainst(CPropertyPage::eModifiedAgainst in_eAgainst)
{
    m_pReferences =
        in_eAgainst == CPropertyPage::eNothing ? nullptr : std::make_shared<CPropertyReferences>(in_eAgainst);
    Refresh();
    m_pClient ? m_pClient->PageChanged() : void(); // other rows are left, and labels need other room
}

bool CPropertyRows::IsModified(const tPropertyPtr& in_pProperty) const
{
    const std::shared_ptr<CPropertyReferences> pReferences = m_pReferences;
    return pReferences && in_pProperty && pReferences->IsModified(in_pProperty);
}

bool CPropertyRows::CanReset(const tPropertyPtr& in_pProperty) const
{
    const bool bFirst = m_pReferences && m_pReferences->AgainstFirst();
    return in_pProperty && !in_pProperty->IsReadOnly() &&
           (bFirst ? IsModified(in_pProperty) : in_pProperty->CanReset());
}

bool CPropertyRows::Reset(const tPropertyPtr& in_pProperty)
{
    const QPointer<CPropertyRows> self(this);
    const tPropertyPtr pProperty = in_pProperty;
    const std::shared_ptr<CPropertyReferences> pReferences = m_pReferences;
    if (!CanReset(pProperty) || !self)
    {
        return false;
    }
    const bool bFirst = pReferences && pReferences->AgainstFirst();
    const auto target = [=](const tPropertyPtr& in_pMember) {
        return bFirst ? pReferences->First(in_pMember) : CPropertyReferences::Default(*pProperty, *in_pMember);
    };
    const auto reset = [=](const tPropertyPtr& in_pMember) {
        const QVariant value = target(in_pMember);
        value.isValid() ? void(in_pMember->Write(value)) : in_pMember->Reset();
        value.isValid() || !pReferences ? void() : pReferences->Learn(in_pMember, in_pMember->Read());
        return true;
    };
    const QString strText = QCoreApplication::translate("CPropertyPage", "Reset %1").arg(pProperty->Label());
    return Change(pProperty, target(Members(pProperty).front()), reset, std::make_shared<CPropertyStep>(strText));
}

bool CPropertyRow::IsModified() const
{
    return m_pRows && m_pRows->IsModified(Property());
}

void CPropertyRow::Reset()
{
    const tPropertyPtr pProperty = Property();
    m_pRows&& pProperty ? void(m_pRows->Reset(pProperty)) : void();
}
