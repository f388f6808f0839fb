#ifndef PROPERTYADAPTER_H
#define PROPERTYADAPTER_H

#include "propertypage.h"
#include "propertysource.h"

#include <QMap>
#include <QStringList>

/// What a page does with the properties of one class and the classes derived from it. Each operation returns the rules,
/// so that one statement says it all. Properties go by their names; what an object does not have is passed over.
class PROPERTIES_EXPORT CPropertyRules
{
public:
    typedef std::function<void(CPropertyRow in_row)> tChange;

    /// Leaves properties out.
    CPropertyRules& Hide(const QStringList& in_names);

    /// Leaves out all but these.
    CPropertyRules& Only(const QStringList& in_names);

    /// Puts properties under a title of their own, in this order, before the groups there are.
    CPropertyRules& Group(const QString& in_strTitle, const QStringList& in_names);

    /// Puts these first in their groups, in this order.
    CPropertyRules& Order(const QStringList& in_names);

    /// Gives a group another title; that of a class is the class's name.
    CPropertyRules& Title(const QString& in_strTitle, const QString& in_strNewTitle);

    /// Says more about a property's row: its label, limits, tip and so on.
    CPropertyRules& For(const QString& in_strName, tChange in_change);

private:
    friend class CPropertyRows;

    void Apply(std::vector<PropertySource::sGroup>& io_groups) const;
    void Change(const CPropertyRow& in_row) const;

    QStringList m_hidden;
    QStringList m_only;
    std::vector<std::pair<QString, QStringList>> m_groups;
    QStringList m_order;
    QMap<QString, QString> m_titles;
    QMap<QString, tChange> m_changes;
};

/// Adapts the properties of objects and gadgets that one does not own to what users want to see, class by class:
///
/// \code
/// CPropertyAdapter adapter;
/// adapter.Of<QWidget>()
///     .Hide({"styleSheet", "palette"})
///     .Group("Place", {"pos", "size"})
///     .For("windowOpacity", [](CPropertyRow row) { row.Range(0, 1).Label("Opacity"); });
/// view.Page().SetAdapter(adapter);
/// view.ShowObject(pButton);
/// \endcode
class PROPERTIES_EXPORT CPropertyAdapter
{
public:
    /// The rules for a class and those derived from it; empty at first. Those of a base class come first, whichever
    /// was asked for first. The reference is good until Of is called again.
    template <class Class> CPropertyRules& Of() { return Of(Class::staticMetaObject); }
    CPropertyRules& Of(const QMetaObject& in_class);

private:
    friend class CPropertyRows;

    std::vector<CPropertyRules> For(const QMetaObject& in_class) const;

    std::vector<std::pair<const QMetaObject*, CPropertyRules>> m_rules;
};

#endif
