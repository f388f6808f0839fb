#ifndef PROPERTYTYPE_H
#define PROPERTYTYPE_H

/// What a page knows of a kind of value: its text, its parts, how it is painted, stepped and edited. Private to the
/// library; the page asks it and knows no types itself.
/// \file

#include "property.h"

#include <QHash>
#include <QIcon>
#include <QMetaProperty>

class QItemEditorFactory;
class QWidget;

/// An editor made for a value.
struct sPropertyEditor
{
    QWidget* widget = nullptr; ///< null: there is none
    QMetaProperty value;       ///< of the widget: carries the value
    bool live = false;         ///< each change that the property's NOTIFY signal tells is written as it comes
};

/// The editors that an application registered as for its item views. What Qt registers itself does not count: the
/// library's own editors know limits, expressions and 64 bits.
class CItemEditors
{
public:
    /// Null stands for QItemEditorFactory::defaultFactory(). Otherwise the factory must outlive this.
    explicit CItemEditors(const QItemEditorFactory* in_pFactory = nullptr) : m_pFactory(in_pFactory) {}

    /// Whether there is one for values of a QMetaType. The answer is kept.
    bool Has(int in_iType) const;

    /// Makes one; null when there is none.
    QWidget* Create(int in_iType, QWidget* in_pParent) const;

    /// The name of the property that carries the value, for editors without a USER property.
    QByteArray ValueName(int in_iType) const;

private:
    const QItemEditorFactory& Factory() const;

    const QItemEditorFactory* m_pFactory;
    mutable QHash<int, bool> m_known;
};

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

    /// The kind of a property's values; never fails: there is one for what nobody knows. Where the property's format or
    /// the application (null: not asked) brings an editor, the value is typed and has one part.
    static const CPropertyType& Of(const CProperty& in_property, const CItemEditors* in_pEditors = nullptr);

    /// Makes the editor of a property, or of one part of it where its kind has several: that of its format, else the
    /// application's (null: not asked), else the library's. It is a child of `in_pParent`, and hidden.
    ///
    /// The property `value` is written before the editor is shown; an invalid one, to those that take a QVariant, where
    /// several objects differ. What it reads right after that stands for "not
    /// changed": some editors cannot show every value. For a text that stands for no value it reads the last one that
    /// did. Numbers, dates and texts being typed are told by no signal; steps, choices and dialogs are.
    static sPropertyEditor Edit(const CProperty& in_property, int in_iPart, const CItemEditors* in_pEditors,
                                QWidget* in_pParent);

    /// Opens the list of an editor that is one, the dialog of one that has one; nothing for others.
    static void OpenList(QWidget* in_pEditor);

    /// Whether a widget (null: none) is the editor or belongs to it: its children, its pop-ups and its dialogs.
    static bool IsWithin(const QWidget* in_pWidget, const QWidget* in_pEditor);

    virtual ~CPropertyType();

    virtual eWork Work() const = 0;

    /// The value as the row shows it, in one line (prefix and suffix too), and as it is typed and copied (without).
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

    /// The value with one part exchanged; the value as it is when that part does not go with the others.
    virtual QVariant WithPart(const QVariant& in_value, int in_iPart, const QVariant& in_part) const;

    /// The kind of a part, by which it is worked, shown and stepped, with the format of the whole.
    virtual const CPropertyType& PartType(int in_iPart) const;

    /// The value some steps up (below 0: down), within the limits; invalid when it cannot be stepped.
    virtual QVariant Stepped(const sPropertyFormat& in_format, const QVariant& in_value, int in_iSteps) const;

    /// Whether Enter is part of what is typed: Ctrl+Enter takes the edit over.
    virtual bool TakesEnter() const;

    /// The library's own editor for the value, hidden, or null. Its USER property is the value. Its sizeHint tells how
    /// tall it wants to be.
    virtual QWidget* CreateEditor(const sPropertyFormat& in_format, QWidget* in_pParent) const;
};

#endif
