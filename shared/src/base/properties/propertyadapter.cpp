#include "propertyadapter.h"

#include "propertyrows.h"

#include <algorithm>
#include <iterator>

namespace
{
using PropertySource::sGroup;

/// Takes out what a condition holds for, in the order it stood in.
template <class Condition> std::vector<tPropertyPtr> Take(sGroup& io_group, Condition in_condition)
{
    std::vector<tPropertyPtr>& all = io_group.properties;
    const auto taken = std::stable_partition(
        all.begin(), all.end(), [&in_condition](const tPropertyPtr& in_p) { return !in_condition(in_p->Name()); });
    std::vector<tPropertyPtr> out(std::make_move_iterator(taken), std::make_move_iterator(all.end()));
    all.erase(taken, all.end());
    return out;
}

/// Those named first, in the order of the names.
void Sort(std::vector<tPropertyPtr>& io_properties, const QStringList& in_names)
{
    const auto place = [&in_names](const tPropertyPtr& in_p) {
        const auto iPlace = in_names.indexOf(in_p->Name());
        return iPlace < 0 ? in_names.size() : iPlace;
    };
    std::stable_sort(
        io_properties.begin(), io_properties.end(),
        [&place](const tPropertyPtr& in_a, const tPropertyPtr& in_b) { return place(in_a) < place(in_b); });
}

/// How many classes a class derives from.
int Depth(const QMetaObject* in_pClass)
{
    int iDepth = 0;
    for (; in_pClass->superClass(); in_pClass = in_pClass->superClass())
    {
        ++iDepth;
    }
    return iDepth;
}
} // namespace

CPropertyRules& CPropertyRules::Hide(const QStringList& in_names)
{
    m_hidden += in_names;
    return *this;
}

CPropertyRules& CPropertyRules::Only(const QStringList& in_names)
{
    m_only += in_names;
    return *this;
}

CPropertyRules& CPropertyRules::Group(const QString& in_strTitle, const QStringList& in_names)
{
    m_groups.emplace_back(in_strTitle, in_names);
    return *this;
}

CPropertyRules& CPropertyRules::Order(const QStringList& in_names)
{
    m_order += in_names;
    return *this;
}

CPropertyRules& CPropertyRules::Title(const QString& in_strTitle, const QString& in_strNewTitle)
{
    m_titles[in_strTitle] = in_strNewTitle;
    return *this;
}

CPropertyRules& CPropertyRules::For(const QString& in_strName, tChange in_change)
{
    m_changes[in_strName] = std::move(in_change);
    return *this;
}

void CPropertyRules::Apply(std::vector<sGroup>& io_groups) const
{
    std::vector<sGroup> groups;
    for (const auto& wanted : m_groups)
    {
        groups.push_back({wanted.first, {}});
        for (sGroup& group : io_groups)
        {
            const std::vector<tPropertyPtr> taken =
                Take(group, [&wanted](const QString& in_strName) { return wanted.second.contains(in_strName); });
            groups.back().properties.insert(groups.back().properties.end(), taken.begin(), taken.end());
        }
        Sort(groups.back().properties, wanted.second);
    }
    groups.insert(groups.end(), io_groups.begin(), io_groups.end());
    for (sGroup& group : groups)
    {
        Take(group, [this](const QString& in_strName) {
            return m_hidden.contains(in_strName) || (!m_only.isEmpty() && !m_only.contains(in_strName));
        });
        Sort(group.properties, m_order);
        group.title = m_titles.value(group.title, group.title);
    }
    groups.erase(std::remove_if(groups.begin(), groups.end(),
                                [](const sGroup& in_group) { return in_group.properties.empty(); }),
                 groups.end());
    io_groups = std::move(groups);
}

void CPropertyRules::Change(const CPropertyRow& in_row) const
{
    const tPropertyPtr pProperty = in_row.Property();
    const tChange change = pProperty ? m_changes.value(pProperty->Name()) : tChange();
    change ? change(in_row) : void();
}

CPropertyRules& CPropertyAdapter::Of(const QMetaObject& in_class)
{
    auto it = std::find_if(m_rules.begin(), m_rules.end(),
                           [&in_class](const auto& in_rules) { return in_rules.first == &in_class; });
    if (it == m_rules.end())
    {
        it = std::find_if(m_rules.begin(), m_rules.end(),
                          [&in_class](const auto& in_rules) { return Depth(in_rules.first) > Depth(&in_class); });
        it = m_rules.insert(it, {&in_class, CPropertyRules()});
    }
    return it->second;
}

std::vector<CPropertyRules> CPropertyAdapter::For(const QMetaObject& in_class) const
{
    std::vector<CPropertyRules> rules;
    for (const auto& ofClass : m_rules)
    {
        in_class.inherits(ofClass.first) ? rules.push_back(ofClass.second) : void();
    }
    return rules;
}

void CPropertyRows::SetAdapter(const CPropertyAdapter& in_adapter)
{
    m_pAdapter = std::make_shared<CPropertyAdapter>(in_adapter);
}

/// Adds them to the page or, when `in_parent` is one, to a group, which takes in what has no title. Saying something of
/// a row may do anything, to the page too.
void CPropertyRows::AddGroups(std::vector<sGroup> in_groups, const QMetaObject* in_pClass,
                              const CPropertyGroup& in_parent)
{
    CPropertyGroup parent = in_parent;
    const QPointer<CPropertyRows> self(this);
    const std::vector<CPropertyRules> rules =
        m_pAdapter && in_pClass ? m_pAdapter->For(*in_pClass) : std::vector<CPropertyRules>();
    for (const CPropertyRules& some : rules)
    {
        some.Apply(in_groups);
    }
    for (const sGroup& group : in_groups)
    {
        const bool bInParent = parent.m_pRows;
        CPropertyGroup added = !bInParent && self ? AddGroup(group.title) : parent;
        added = bInParent && !group.title.isEmpty() ? parent.AddGroup(group.title) : added;
        for (const tPropertyPtr& pProperty : group.properties)
        {
            const CPropertyRow row = added.AddProperty(pProperty);
            for (const CPropertyRules& some : rules)
            {
                some.Change(row);
            }
        }
    }
}
