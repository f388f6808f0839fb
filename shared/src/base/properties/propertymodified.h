#ifndef PROPERTYMODIFIED_H
#define PROPERTYMODIFIED_H

/// What the values of a page are compared with and reset to. Only a page that compares has one, shared with whoever
/// asks it: reading a value may end the page. Private to the library.
/// \file

#include "propertypage.h"

#include <QHash>

class CPropertyReferences
{
public:
    explicit CPropertyReferences(CPropertyPage::eModifiedAgainst in_eAgainst) : m_eAgainst(in_eAgainst) {}

    /// Whether a row's property, or one of those that it stands for, has another value.
    bool IsModified(const tPropertyPtr& in_pRow);

    /// Keeps the value as the property's first, unless one is known.
    void Note(const tPropertyPtr& in_pMember, const QVariant& in_value);

    /// Keeps the value as what the property's own reset makes.
    void Learn(const tPropertyPtr& in_pMember, const QVariant& in_value);

    /// The first value; invalid when none is known.
    QVariant First(const tPropertyPtr& in_pMember) const;

    bool AgainstFirst() const { return m_eAgainst == CPropertyPage::eFirstValues; }
    void Forget() { m_first.clear(); }

    /// What the application says that a property, which a row's stands for, is reset to; invalid when it does not.
    static QVariant Default(const CProperty& in_row, const CProperty& in_member);

private:
    struct sFirst
    {
        std::weak_ptr<CProperty> property; ///< another may come to have its address
        QVariant value;
    };

    QVariant Reference(const CProperty& in_row, const tPropertyPtr& in_pMember);

    const CPropertyPage::eModifiedAgainst m_eAgainst;
    QHash<const CProperty*, sFirst> m_first;
};

#endif
