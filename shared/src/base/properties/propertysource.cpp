#include "propertysource.h"

#include "propertiesqt.h"
#include "propertychange.h"
#include "propertyvalue.h"

#include <QCoreApplication>

#include <algorithm>
#include <map>
#include <unordered_set>

namespace
{
/// A value as the page knows it: of an enumeration its number. Types of their own that Qt does not convert hold it.
QVariant Plain(const QVariant& in_value, bool in_bKeys)
{
    if (!in_bKeys || !in_value.isValid() || in_value.userType() == QMetaType::Int)
    {
        return in_value;
    }
    bool bIsNumber = false;
    const int iNumber = in_value.toInt(&bIsNumber);
    return bIsNumber ? iNumber : PropertiesQt::EnumNumber(in_value);
}

int PlainType(const QMetaProperty& in_meta)
{
    return in_meta.isEnumType() ? int(QMetaType::Int) : in_meta.userType();
}

void TakeKeys(CProperty& io_property, const QMetaProperty& in_meta)
{
    if (in_meta.isEnumType())
    {
        io_property.EditFormat().keys = in_meta.enumerator();
    }
}

/// A property that an object's class declares.
class CObjectProperty : public CProperty
{
public:
    CObjectProperty(QObject* in_pObject, const QMetaProperty& in_meta)
        : CProperty(QString::fromLatin1(in_meta.name()), PlainType(in_meta)),
          m_pObject(in_pObject),
          m_meta(in_meta)
    {
        SetReadOnly(!in_meta.isWritable());
        TakeKeys(*this, in_meta);
    }

    QVariant Read() const override
    {
        const bool bHasType = m_meta.userType() != QMetaType::UnknownType; // Qt 5 warns when it is asked for others
        return m_pObject && bHasType ? Plain(m_meta.read(m_pObject), m_meta.isEnumType()) : QVariant();
    }

    bool Write(const QVariant& in_value) override { return m_pObject && m_meta.write(m_pObject, in_value); }

    bool CanReset() const override
    {
        return m_pObject && !IsReadOnly() && (m_meta.isResettable() || CProperty::CanReset());
    }

    void Reset() override
    {
        if (Format().defaultValue.isValid())
        {
            CProperty::Reset();
        }
        else if (m_pObject)
        {
            m_meta.reset(m_pObject);
        }
    }

    std::vector<sNotifier> Notifiers() const override
    {
        return m_pObject && m_meta.hasNotifySignal() ? std::vector<sNotifier>{{m_pObject, m_meta.notifySignal()}}
                                                     : std::vector<sNotifier>();
    }

    QObject* Object() const override { return m_pObject; }

private:
    QPointer<QObject> m_pObject;
    QMetaProperty m_meta;
};

/// A property that was given to one object at run time.
class CDynamicProperty : public CProperty
{
public:
    CDynamicProperty(QObject* in_pObject, const QByteArray& in_strName)
        : CProperty(QString::fromUtf8(in_strName), in_pObject->property(in_strName.constData()).userType()),
          m_pObject(in_pObject),
          m_strKey(in_strName)
    {}

    QVariant Read() const override { return m_pObject ? m_pObject->property(m_strKey.constData()) : QVariant(); }

    bool Write(const QVariant& in_value) override
    {
        // An invalid value would remove the property.
        return m_pObject && in_value.isValid() && (m_pObject->setProperty(m_strKey.constData(), in_value), true);
    }

    QObject* Object() const override { return m_pObject; }

private:
    QPointer<QObject> m_pObject;
    QByteArray m_strKey;
};

class CGadgetProperty : public CProperty
{
public:
    CGadgetProperty(void* io_pGadget, const QMetaProperty& in_meta)
        : CProperty(QString::fromLatin1(in_meta.name()), PlainType(in_meta)),
          m_pGadget(io_pGadget),
          m_meta(in_meta)
    {
        SetReadOnly(!in_meta.isWritable());
        TakeKeys(*this, in_meta);
    }

    QVariant Read() const override { return Plain(m_meta.readOnGadget(m_pGadget), m_meta.isEnumType()); }
    bool Write(const QVariant& in_value) override { return m_meta.writeOnGadget(m_pGadget, in_value); }
    bool CanReset() const override { return !IsReadOnly() && (m_meta.isResettable() || CProperty::CanReset()); }
    void Reset() override
    {
        Format().defaultValue.isValid() ? CProperty::Reset() : void(m_meta.resetOnGadget(m_pGadget));
    }

private:
    void* m_pGadget;
    QMetaProperty m_meta;
};

/// Several properties of the same name and type.
class CSharedProperty : public CProperty
{
public:
    explicit CSharedProperty(std::vector<tPropertyPtr> in_members)
        : CProperty(in_members.front()->Name(), in_members.front()->Type()),
          m_members(std::move(in_members))
    {
        SetLabel(m_members.front()->Label());
        EditFormat() = m_members.front()->Format();
        EditFormat().defaultValue = QVariant(); // each has its own, until the row is given one for all
        SetReadOnly(std::any_of(m_members.begin(), m_members.end(),
                                [](const tPropertyPtr& in_p) { return in_p->IsReadOnly(); }));
    }

    /// Of the first member that is still there.
    QVariant Read() const override
    {
        QVariant value;
        for (std::size_t u = 0; u < m_members.size() && !value.isValid(); ++u)
        {
            value = m_members[u]->Read();
        }
        return value;
    }

    bool Write(const QVariant& in_value) override
    {
        const std::vector<tPropertyPtr> members = m_members; // this may die with the page meanwhile
        bool bTaken = false;
        for (const tPropertyPtr& pMember : members)
        {
            bTaken = pMember->Write(in_value) || bTaken;
        }
        return bTaken;
    }

    bool CanReset() const override
    {
        return CProperty::CanReset() || std::any_of(m_members.begin(), m_members.end(),
                                                    [](const tPropertyPtr& in_p) { return in_p->CanReset(); });
    }

    void Reset() override
    {
        const std::vector<tPropertyPtr> members = m_members;
        const QVariant value = Format().defaultValue;
        for (const tPropertyPtr& pMember : members)
        {
            value.isValid() ? void(pMember->Write(value)) : pMember->Reset();
        }
    }

    bool IsMixed() const override
    {
        const QVariant first = Read();
        return std::any_of(m_members.begin(), m_members.end(), [&first](const tPropertyPtr& in_p) {
            const QVariant value = in_p->Read();
            return value.isValid() && !CPropertyStep::IsSame(value, first);
        });
    }

    std::vector<CProperty*> Members() override
    {
        std::vector<CProperty*> members;
        for (const tPropertyPtr& pMember : m_members)
        {
            members.push_back(pMember.get());
        }
        return members;
    }

    std::vector<sNotifier> Notifiers() const override
    {
        std::vector<sNotifier> all;
        for (const tPropertyPtr& pMember : m_members)
        {
            const std::vector<sNotifier> some = pMember->Notifiers();
            all.insert(all.end(), some.begin(), some.end());
        }
        return all;
    }

    QObject* Object() const override { return m_members.front()->Object(); }

private:
    std::vector<tPropertyPtr> m_members;
};

/// The properties that a class adds to those of its base.
PropertySource::sGroup OfClass(QObject* in_pObject, const QMetaObject& in_class)
{
    PropertySource::sGroup group{QString::fromLatin1(in_class.className()), {}};
    for (int i = in_class.propertyOffset(); i < in_class.propertyCount(); ++i)
    {
        const QMetaProperty meta = in_class.property(i);
        if (meta.isReadable())
        {
            group.properties.push_back(std::make_shared<CObjectProperty>(in_pObject, meta));
        }
    }
    return group;
}

typedef std::pair<QString, int> tKey; ///< name and type
typedef std::map<tKey, tPropertyPtr> tKnown;

tKey KeyOf(const CProperty& in_property)
{
    return tKey(in_property.Name(), in_property.Type());
}

tKnown PropertiesOf(QObject* in_pObject)
{
    tKnown known;
    for (const PropertySource::sGroup& group : PropertySource::OfObject(in_pObject))
    {
        for (const tPropertyPtr& pProperty : group.properties)
        {
            known.emplace(KeyOf(*pProperty), pProperty);
        }
    }
    return known;
}

/// One for the property and those of the same name and type of every other object; null when one has none.
tPropertyPtr SharedBy(const tPropertyPtr& in_pFirst, const std::vector<tKnown>& in_others)
{
    std::vector<tPropertyPtr> members{in_pFirst};
    for (const tKnown& known : in_others)
    {
        const auto it = known.find(KeyOf(*in_pFirst));
        if (it == known.end())
        {
            return nullptr;
        }
        members.push_back(it->second);
    }
    return PropertySource::Shared(std::move(members));
}
} // namespace

CFunctionProperty::CFunctionProperty(const QString& in_strName, int in_iType, tGet in_get, tSet in_set)
    : CProperty(in_strName, in_iType),
      m_get(std::move(in_get)),
      m_set(std::move(in_set))
{
    SetReadOnly(!m_set);
}

QVariant CFunctionProperty::Read() const
{
    return m_get();
}

bool CFunctionProperty::Write(const QVariant& in_value)
{
    if (m_set)
    {
        m_set(in_value);
    }
    return true;
}

std::vector<PropertySource::sGroup> PropertySource::OfObject(QObject* in_pObject)
{
    std::vector<sGroup> groups;
    for (const QMetaObject* pClass = in_pObject ? in_pObject->metaObject() : nullptr; pClass;
         pClass = pClass->superClass())
    {
        groups.push_back(OfClass(in_pObject, *pClass));
    }
    if (in_pObject && !in_pObject->dynamicPropertyNames().isEmpty())
    {
        sGroup dynamic{QCoreApplication::translate("PropertySource", "Dynamic properties"), {}};
        for (const QByteArray& strName : in_pObject->dynamicPropertyNames())
        {
            dynamic.properties.push_back(std::make_shared<CDynamicProperty>(in_pObject, strName));
        }
        groups.push_back(std::move(dynamic));
    }
    groups.erase(std::remove_if(groups.begin(), groups.end(),
                                [](const sGroup& in_group) { return in_group.properties.empty(); }),
                 groups.end());
    return groups;
}

std::vector<tPropertyPtr> PropertySource::OfGadget(const QMetaObject& in_meta, void* io_pGadget)
{
    std::vector<tPropertyPtr> properties;
    properties.reserve(static_cast<std::size_t>(in_meta.propertyCount()));
    for (int i = 0; i < in_meta.propertyCount(); ++i)
    {
        properties.push_back(std::make_shared<CGadgetProperty>(io_pGadget, in_meta.property(i)));
    }
    return properties;
}

tPropertyPtr PropertySource::Shared(std::vector<tPropertyPtr> in_members)
{
    return in_members.size() == 1 ? in_members.front() : std::make_shared<CSharedProperty>(std::move(in_members));
}

std::vector<PropertySource::sGroup> PropertySource::OfObjects(const QList<QObject*>& in_objects)
{
    std::unordered_set<QObject*> seen{nullptr};
    QObject* pFirst = nullptr;
    std::vector<tKnown> others;
    for (QObject* pObject : in_objects)
    {
        const bool bNew = seen.insert(pObject).second;
        bNew&& pFirst ? others.push_back(PropertiesOf(pObject)) : void();
        pFirst = pFirst ? pFirst : pObject;
    }
    std::vector<sGroup> shared;
    for (const sGroup& group : OfObject(pFirst))
    {
        sGroup kept{group.title, {}};
        for (const tPropertyPtr& pProperty : group.properties)
        {
            if (tPropertyPtr pShared = SharedBy(pProperty, others))
            {
                kept.properties.push_back(std::move(pShared));
            }
        }
        kept.properties.empty() ? void() : shared.push_back(std::move(kept));
    }
    return shared;
}
