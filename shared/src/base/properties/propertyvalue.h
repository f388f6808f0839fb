#ifndef PROPERTYVALUE_H
#define PROPERTYVALUE_H

#include "property.h"

#include <functional>
#include <string>
#include <type_traits>
#include <utility>

/// How a C++ type becomes a property's value. Specialise it for types of your own that should stand for a text, a
/// number or another type that has an editor: \code template <> struct sPropertyValue<CMoney>
/// {
///     static int Type() { return QMetaType::LongLong; }
///     static QVariant To(const CMoney& in_money) { return QVariant(in_money.Cents()); }
///     static CMoney From(const QVariant& in_value) { return CMoney(in_value.toLongLong()); }
/// };
/// \endcode
template <class T, class = void> struct sPropertyValue
{
    static_assert(QMetaTypeId2<T>::Defined,
                  "A property of this type has no editor. Declare the type with Q_DECLARE_METATYPE to have it shown, "
                  "or specialise sPropertyValue to have it edited as a text, a number or the like.");

    static int Type() { return qMetaTypeId<T>(); }
    static QVariant To(const T& in_value) { return QVariant::fromValue(in_value); }
    static T From(const QVariant& in_value) { return in_value.value<T>(); }
};

/// Text of the standard library is UTF-8.
template <> struct sPropertyValue<std::string>
{
    static int Type() { return QMetaType::QString; }
    static QVariant To(const std::string& in_strValue) { return QString::fromStdString(in_strValue); }
    static std::string From(const QVariant& in_value) { return in_value.toString().toStdString(); }
};

/// Enumerations are ints: by their keys when Qt knows those (Q_ENUM, Q_FLAG), else by the choices given to the row.
template <class T> struct sPropertyValue<T, std::enable_if_t<std::is_enum<T>::value>>
{
    static int Type() { return QMetaType::Int; }
    static QVariant To(T in_value) { return static_cast<int>(in_value); }
    static T From(const QVariant& in_value) { return static_cast<T>(in_value.toInt()); }
};

template <class Enum> struct sPropertyValue<QFlags<Enum>, void>
{
    static int Type() { return QMetaType::Int; }
    static QVariant To(QFlags<Enum> in_value) { return static_cast<int>(in_value); }
    static QFlags<Enum> From(const QVariant& in_value) { return QFlags<Enum>(QFlag(in_value.toInt())); }
};

/// A property that two functions stand for.
class PROPERTIES_EXPORT CFunctionProperty : public CProperty
{
public:
    typedef std::function<QVariant()> tGet;
    typedef std::function<void(const QVariant&)> tSet;

    /// `in_set` may be empty: the property is read-only then. What the functions use must live as long as the page
    /// shows the property and undo commands know it.
    CFunctionProperty(const QString& in_strName, int in_iType, tGet in_get, tSet in_set);

    QVariant Read() const override;
    bool Write(const QVariant& in_value) override;

private:
    tGet m_get;
    tSet m_set;
};

/// \internal What the rows' Add makes of variables and functions.
namespace PropertyDetail
{
template <class T> using tPlain = std::remove_cv_t<std::remove_reference_t<T>>;

template <class T, class = void> struct sKeys
{
    static void Give(CProperty&) {}
};

template <class T> struct sKeys<T, std::enable_if_t<QtPrivate::IsQEnumHelper<T>::Value>>
{
    static void Give(CProperty& io_property) { io_property.EditFormat().keys = QMetaEnum::fromType<T>(); }
};

template <class T>
tPropertyPtr Make(const QString& in_strName, CFunctionProperty::tGet in_get, CFunctionProperty::tSet in_set)
{
    auto pProperty = std::make_shared<CFunctionProperty>(in_strName, sPropertyValue<T>::Type(), std::move(in_get),
                                                         std::move(in_set));
    sKeys<T>::Give(*pProperty);
    return pProperty;
}

template <class T> tPropertyPtr OfVariable(const QString& in_strName, T& io_variable)
{
    typedef sPropertyValue<tPlain<T>> tValue;
    CFunctionProperty::tGet get = [&io_variable] { return tValue::To(io_variable); };
    if constexpr (std::is_const<T>::value)
    {
        return Make<tPlain<T>>(in_strName, std::move(get), {});
    }
    else
    {
        return Make<T>(in_strName, std::move(get),
                       [&io_variable](const QVariant& in_value) { io_variable = tValue::From(in_value); });
    }
}

template <class Get> tPropertyPtr OfFunction(const QString& in_strName, Get in_get)
{
    typedef tPlain<decltype(in_get())> T;
    return Make<T>(in_strName, [in_get] { return sPropertyValue<T>::To(in_get()); }, {});
}

template <class Get, class Set> tPropertyPtr OfFunctions(const QString& in_strName, Get in_get, Set in_set)
{
    static_assert(std::is_invocable<Get&>::value, "The first function tells the value: it takes nothing.");
    typedef tPlain<decltype(in_get())> T;
    static_assert(std::is_invocable<Set&, T>::value, "The second function takes the value that the first one tells.");
    return Make<T>(
        in_strName, [in_get] { return sPropertyValue<T>::To(in_get()); },
        [in_set](const QVariant& in_value) { in_set(sPropertyValue<T>::From(in_value)); });
}
} // namespace PropertyDetail

#endif
