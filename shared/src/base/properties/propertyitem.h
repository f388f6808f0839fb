#ifndef PROPERTYITEM_H
#define PROPERTYITEM_H

/// A row of a page. Rows are records, not widgets: they are placed in one pass over a vector and painted by the view,
/// which is what makes ten thousand of them cheap. Private to the library.
/// \file

#include "inspectordataelement.h"
#include "property.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

class CItemEditors;
class CPropertyType;

struct sPropertyItem : std::enable_shared_from_this<sPropertyItem>
{
    enum eKind
    {
        eGroup,
        eProperty,
        eCommand,
        eWidget, ///< a widget of the application's own, or a control of the first library
    };

    explicit sPropertyItem(eKind in_eKind) : kind(in_eKind) {}

    bool IsMixed(int in_iPart) const { return mixedParts >> in_iPart & 1; }

    /// Whether the user can do something with it beyond making it the current one.
    bool IsWorked() const { return kind == eCommand || (kind == eProperty && !property->IsReadOnly()); }

    /// Whether what a group holds is shown when the group is.
    bool IsExpanded() const { return expanded || revealed; }

    const QString& Label() const { return property ? property->Label() : label; }
    const QString& Tip() const { return property ? property->Format().tip : tip; }

    /// Reads the property, and keeps what there is to be shown of it. The property may do anything in the meantime.
    void Load(const CItemEditors* in_pEditors);

    eKind kind;
    int depth = 0;                   ///< in how many groups it stands
    sPropertyItem* parent = nullptr; ///< the group, which the page keeps as long as the row

    // Where it is shown, in pixels of the content. Next to what decides it: ten thousand rows are placed at a letter.
    int top = 0;
    int height = 0;        ///< 0: not shown
    bool expanded = true;  ///< what a group holds is not folded away
    bool open = true;      ///< neither is the group itself
    bool filtered = false; ///< left out by the filter
    bool recalled = false; ///< expanded is as the user left a group of that name
    bool revealed = false; ///< unfolded by the filter for what it found within

    QString label;         ///< of all but properties, which have their own
    QString tip;           ///< likewise
    tPropertyPtr property; ///< null for all but a property
    std::function<void()> command;
    QPointer<QWidget> widget;
    CInspectorDataWidget* control = nullptr;        ///< the same, if it is a control of the first library
    std::unique_ptr<CInspectorDataElement> element; ///< of the control, until the view's controller has taken it over

    // What is shown.
    const CPropertyType* type = nullptr; ///< null until the first Load
    QVariant value;                      ///< as of the last Load
    QString text;
    bool mixed = false;
    quint8 mixedParts = 0; ///< a bit for each part of the value that differs, the first one's is 1
    bool modified = false;
    bool stale = true; ///< to be loaded before it is painted
};

typedef std::shared_ptr<sPropertyItem> tItemPtr;

/// What shows a page.
class IPropertyPageClient
{
public:
    virtual ~IPropertyPageClient() = default;

    /// Before rows go: an open edit is taken over.
    virtual void PageAboutToChange() = 0;

    /// Rows came or went.
    virtual void PageChanged() = 0;

    /// A row is to be read and shown again.
    virtual void ItemChanged(sPropertyItem& in_item) = 0;

    /// All are.
    virtual void AllItemsChanged() = 0;

    /// What was undone is to be seen.
    virtual void Reveal(const std::shared_ptr<sPropertyItem>& in_pItem) = 0;
};

/// The rows of a page in their order, groups before what they hold.
typedef std::vector<tItemPtr> tItems;

/// Some of them, which the page keeps.
typedef std::vector<sPropertyItem*> tItemPointers;

#endif
