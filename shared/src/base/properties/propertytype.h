#ifndef PROPERTYTYPE_H
#define PROPERTYTYPE_H

/// What a page knows of a kind of value: its text, its parts, how it is painted, stepped and edited. Private to the
/// library; the page asks it and knows no types itself.
/// \file

#include "property.h"

#include <QIcon>

class QPainter;
class QRect;
class QStyleOption;
class QWidget;

class CPropertyType
{
public:
    /// How a value is worked.
    enum eWork
    {
        eShown,  ///< only looked at
        eTyped,  ///< an editor that takes a text, a number and so on
        eToggle, ///< a box: Space or a press changes it, there is no editor
        eList,   ///< an editor that is a list: it opens its list as soon as it is worked
        eLink,   ///< names another object, which a press follows
    };

    /// The kind of a property's values; never fails: there is one for what nobody knows.
    static const CPropertyType& Of(const CProperty& in_property);

    virtual ~CPropertyType();

    virtual eWork Work() const = 0;

    /// The value as the row shows it (prefix and suffix too), and as it is typed and copied (without).
    virtual QString Shown(const sPropertyFormat& in_format, const QVariant& in_value) const;
    virtual QString Text(const sPropertyFormat& in_format, const QVariant& in_value) const;

    /// The value that a text stands for, typed or pasted: an expression for a number, a key for an enumeration. Invalid
    /// when it stands for none. Limits are kept to. `in_present` is the present value, and of the type wanted.
    virtual QVariant FromText(const sPropertyFormat& in_format, const QString& in_strText,
                              const QVariant& in_present) const;

    /// What stands before the text, of the size given: a swatch, an icon, a cursor; null for nothing.
    virtual QIcon Decoration(const QVariant& in_value, const QSize& in_size) const;

    /// How many parts a value has that are shown and edited one by one side by side: 1 but for points and the like.
    virtual int Parts() const;
    virtual QString PartLabel(int in_iPart) const;
    virtual QVariant Part(const QVariant& in_value, int in_iPart) const;
    virtual QVariant WithPart(const QVariant& in_value, int in_iPart, const QVariant& in_part) const;

    /// The value some steps up (below 0: down), within the limits; invalid when it cannot be stepped.
    virtual QVariant Stepped(const sPropertyFormat& in_format, const QVariant& in_value, int in_iSteps) const;

    /// An editor for the value (of one part, where a value has several), or null: a child of `in_pParent` whose USER
    /// property is the value. Where that property has a NOTIFY signal, each change is written as it comes.
    virtual QWidget* CreateEditor(const CProperty& in_property, QWidget* in_pParent) const;
};

#endif
