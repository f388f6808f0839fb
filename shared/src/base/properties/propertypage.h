#ifndef PROPERTYPAGE_H
#define PROPERTYPAGE_H

#include "propertyvalue.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <utility>

class CInspectorDataElement;
class CInspectorDataWidget;
class CPropertyAdapter;
class CPropertyRows;
class QUndoStack;
class QWidget;
struct sPropertyItem;

/// One row of a page, to say more about it. A small value that may be copied and kept: once the row is gone its
/// operations do nothing. Each returns the row, so that one line says it all.
class PROPERTIES_EXPORT CPropertyRow
{
public:
    CPropertyRow() = default;

    /// Whether the row is still there.
    explicit operator bool() const { return !m_pItem.expired(); }

    /// Whether both are the same row; rows that are gone are all alike.
    bool operator==(const CPropertyRow& in_other) const { return m_pItem.lock() == in_other.m_pItem.lock(); }
    bool operator!=(const CPropertyRow& in_other) const { return !(*this == in_other); }

    /// The least and the greatest value of a number or a date, or of each part of a point, size and the like. Typed
    /// values are kept within.
    CPropertyRow& Range(const QVariant& in_minimum, const QVariant& in_maximum);

    /// How much Up, Down, the wheel and a drag on the label change a number. Without it: 1, of real numbers a tenth of
    /// the last digit but one.
    CPropertyRow& Step(const QVariant& in_step);

    /// How many digits a real number shows after its point; -1: as many as it takes.
    CPropertyRow& Decimals(int in_iDecimals);

    /// What stands before and after a number; it is neither typed nor copied.
    CPropertyRow& Prefix(const QString& in_strPrefix);
    CPropertyRow& Suffix(const QString& in_strSuffix);

    /// What the row's tool tip says of it.
    CPropertyRow& Tip(const QString& in_strTip);

    /// The value is one of these, chosen from a list by its text. Rows given the same vector share it.
    CPropertyRow& Choices(const QVector<sPropertyChoice>& in_choices);

    /// The value is an int: one of the enumeration's keys or, if it is a flag, any number of them.
    CPropertyRow& Keys(const QMetaEnum& in_keys);

    /// The text has several lines, names a file, or names a folder.
    CPropertyRow& LongText();
    CPropertyRow& File();
    CPropertyRow& Folder();

    /// Whether the user can only look at the value and copy it.
    CPropertyRow& ReadOnly(bool in_bReadOnly = true);

    /// What the row's value is reset to.
    CPropertyRow& Default(const QVariant& in_value);

    /// What stands before the value.
    CPropertyRow& Label(const QString& in_strLabel);

    /// What a screen reader calls the row, in place of its label.
    CPropertyRow& AccessibleName(const QString& in_strName);

    /// Makes the editor of this row alone, as for item views: the editor's USER property is the value. Takes it over.
    CPropertyRow& Editor(QItemEditorCreatorBase* in_pCreator);

    /// Reads the value again before the next paint.
    void Refresh();

    /// Whether the value is another than SetModifiedAgainst compares it with. Reads it.
    bool IsModified() const;

    /// Gives the value back that SetModifiedAgainst compares it with; without that, the default or what the property's
    /// RESET function makes. Nothing for what cannot be reset.
    void Reset();

    /// The row's property; null for a command, a widget and a row that is gone.
    tPropertyPtr Property() const;

private:
    friend class CPropertyRows;

    CPropertyRow(CPropertyRows* in_pRows, const std::shared_ptr<sPropertyItem>& in_pItem);
    template <class Change> CPropertyRow& ChangeFormat(Change in_change);
    void Changed();

    QPointer<CPropertyRows> m_pRows;
    std::weak_ptr<sPropertyItem> m_pItem;
};

/// A titled group of a page: rows and further groups. A small value that may be copied and kept: once the group is
/// gone, what is added to it is not shown.
class PROPERTIES_EXPORT CPropertyGroup
{
public:
    CPropertyGroup() = default;

    /// A variable, edited in place; read-only when it is const. It must live as long as the page shows it.
    template <class T, class = std::enable_if_t<!std::is_invocable<T&>::value>>
    CPropertyRow Add(const QString& in_strLabel, T&& io_variable)
    {
        static_assert(std::is_lvalue_reference<T>::value,
                      "This value ends with the statement. Give a variable that lives as long as the page shows it, or "
                      "a function that tells the value.");
        return AddProperty(PropertyDetail::OfVariable(in_strLabel, io_variable));
    }

    /// What a function tells; read-only.
    template <class Get, class = std::enable_if_t<std::is_invocable<const Get&>::value>>
    CPropertyRow Add(const QString& in_strLabel, const Get& in_get)
    {
        return AddProperty(PropertyDetail::OfFunction(in_strLabel, in_get));
    }

    /// What one function tells and another changes.
    template <class Get, class Set> CPropertyRow Add(const QString& in_strLabel, Get in_get, Set in_set)
    {
        return AddProperty(PropertyDetail::OfFunctions(in_strLabel, std::move(in_get), std::move(in_set)));
    }

    /// A property of the application's own making, shared with it.
    CPropertyRow AddProperty(const tPropertyPtr& in_pProperty);

    /// One property of an object, by its name: declared or dynamic. An unknown one is not added.
    CPropertyRow AddPropertyOf(QObject* in_pObject, const char* in_strName);

    /// Every property of a Q_GADGET, which must live as long as the page shows it.
    template <class Gadget> void AddGadget(Gadget& io_gadget) { AddGadget(Gadget::staticMetaObject, &io_gadget); }
    void AddGadget(const QMetaObject& in_meta, void* io_pGadget);

    /// A button that works `in_command`, after which the page reads its values again.
    CPropertyRow AddCommand(const QString& in_strLabel, std::function<void()> in_command);

    /// A widget of the application's own. Takes it over; it is deleted with the row. Without a label it gets the whole
    /// row. Null is ignored.
    CPropertyRow AddWidget(const QString& in_strLabel, QWidget* in_pWidget);

    /// A control of the first library with its element. Takes over both, connects the element and shows the control as
    /// soon as the page is laid out; Tab goes on from its editor to the next row. A control that is no QWidget is
    /// ignored, and left alone with its element.
    CPropertyRow AddControl(const QString& in_strLabel, CInspectorDataElement* in_pElement,
                            CInspectorDataWidget* in_pControl);

    /// A group within this one.
    CPropertyGroup AddGroup(const QString& in_strTitle);

    /// Shows the title alone, or what it holds too.
    CPropertyGroup& Expand(bool in_bExpand = true);

    /// What CPropertyPage::Text and Json tell, of this group alone.
    QString Text() const;
    QByteArray Json() const;

    /// What the title's tool tip says.
    CPropertyGroup& Tip(const QString& in_strTip);

private:
    friend class CPropertyRows;

    CPropertyGroup(CPropertyRows* in_pRows, const std::shared_ptr<sPropertyItem>& in_pItem);
    CPropertyRow AddItem(const std::shared_ptr<sPropertyItem>& in_pItem);

    QPointer<CPropertyRows> m_pRows;
    std::weak_ptr<sPropertyItem> m_pItem;
};

/// What a view shows: groups of rows, each row a property, a command or a widget. It belongs to its view.
///
/// Everything may be done from inside any function, setter, slot or signal that the page calls: clearing it, filling it
/// anew, deleting its view or the objects shown. (Only what a paint calls, the functions that read values, may delete
/// the view by deleteLater alone.)
class PROPERTIES_EXPORT CPropertyPage : public QObject
{
    Q_OBJECT

public:
    explicit CPropertyPage(QObject* in_pParent = nullptr);
    ~CPropertyPage() override;

    /// A group after all others; without a title its rows stand by themselves.
    CPropertyGroup AddGroup(const QString& in_strTitle);

    /// A group per class for what the object's meta-object declares, and one for its dynamic properties. Null adds
    /// nothing.
    void AddObject(QObject* in_pObject);

    /// The properties that the objects share, by name and type. A row whose objects differ says so; an edit writes to
    /// all. Null and what is there already count for nothing.
    void AddObjects(const QList<QObject*>& in_objects);

    /// Lets the rules of an adapter, which is copied, say which properties of objects and gadgets added from now on are
    /// there, where and how; of several objects those of the class that all have in common.
    void SetAdapter(const CPropertyAdapter& in_adapter);

    /// The first row of that name, to say more about it; one that is no row when there is none.
    CPropertyRow Row(const QString& in_strName) const;

    /// Takes everything away. What is being typed is taken over first.
    void Clear();

    /// Reads all values again before the next paint. Rows whose property tells of its changes do so by themselves, and
    /// after an edit or a command the page reads all.
    void Refresh();

    /// Writes a value as the user does, with everything that comes with it.
    /// \return whether it was taken: not when it is read-only or refused by ValueAboutToChange
    bool Write(const tPropertyPtr& in_pProperty, const QVariant& in_value);

    /// Makes every write a command on this stack: one for all that one edit writes. Undo and redo scroll to the row and
    /// give every object its own former value, also what else the setter changed of that which the page shows of the
    /// object. They know no page: what was written stays undoable when the page is cleared or gone, and when an object
    /// is gone its commands do nothing. What a variable or a function's row writes to must live as long.
    ///
    /// Null: no undo, which is how it begins. Not taken over; it may go at any time.
    void SetUndoStack(QUndoStack* in_pStack);

    /// Gives the page an undo stack of its own, which ends with it. Only then are Ctrl+Z and Ctrl+Shift+Z in the page
    /// undo and redo: another stack's keys are the application's.
    QUndoStack& UseOwnUndoStack();

    /// The stack that commands go to; null for none.
    QUndoStack* UndoStack() const;

    /// What a value is compared with.
    enum eModifiedAgainst
    {
        eNothing,     ///< none is modified, which is how it begins
        eDefaults,    ///< what CPropertyRow::Default gave; else what the RESET function made when it was last called
                      ///< here, and until then the first value that the page read
        eFirstValues, ///< the value that the page read first: before it was shown, or written by the page
    };

    /// Chooses which values count as modified. Their rows have a bold label, and a button at the end of the value that
    /// resets it; Delete on the row does too. Read-only values are never modified.
    void SetModifiedAgainst(eModifiedAgainst in_eAgainst);

    /// Every value as text: a line with the label, a tab and the value as it is typed, after a line with the title
    /// where one begins. Texts with tabs, line ends or quotes are quoted, as spreadsheets do it. Values that differ
    /// among objects are left out.
    QString Text() const;

    /// Every value as a JSON object by the names of the properties, with an object for each titled group. Truth values
    /// and numbers are such in JSON, all else is as it is typed. Of several with one name in a group the first is told.
    QByteArray Json() const;

    /// Gives the values that Text or Json told, of this page or of another object's, to those of the same name or
    /// label, rather under the same title than under another; all that changes is one step of the undo stack. Read-only
    /// values stay. What has no place here, does not fit or is refused is told by PasteRefused.
    /// \return false when there was no value in the text
    bool Paste(const QString& in_strText);

Q_SIGNALS:
    /// A value is about to be written or reset, by the user or the application. Set `io_pAllowed` to false to refuse
    /// it. For direct connections. Invalid: a RESET function is about to be called. Escape, undo and redo do not ask:
    /// they give back what was allowed before.
    void ValueAboutToChange(CProperty* in_pProperty, const QVariant& in_value, bool* io_pAllowed);

    /// A value was changed by an edit, its Escape, Write, reset, undo or redo: what it was before, and what the object
    /// made of it. Of several objects the first one's values; the property's Members tell the others.
    void ValueChanged(CProperty* in_pProperty, const QVariant& in_before, const QVariant& in_now);

    /// After Paste, what was not taken: names or labels.
    void PasteRefused(const QStringList& in_names);

private:
    friend class CPropertyRows;

    const std::unique_ptr<CPropertyRows> m_pRows;
};

#endif
