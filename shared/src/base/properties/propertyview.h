#ifndef PROPERTYVIEW_H
#define PROPERTYVIEW_H

#include "propertypage.h"

#include <QWidget>

class CPropertyArea;
class QLabel;
class QLineEdit;
class QMenu;
class QItemEditorFactory;

/// A widget that shows the properties of objects, or whatever else its page is filled with, and lets the user edit
/// them.
///
/// \code
/// CPropertyView view;
/// view.ShowObject(pObject);
/// view.show();
/// \endcode
///
/// It is a widget like any other. Tab and the arrow keys go from row to row; Enter, F2, Space and typing work them; the
/// border between labels and values can be dragged. Style sheets name it and what it is made of, for Qt hands on
/// nothing to children: \c "CPropertyView, CPropertyView * { font-size: 14px }".
class PROPERTIES_EXPORT CPropertyView : public QWidget
{
    Q_OBJECT

public:
    explicit CPropertyView(QWidget* in_pParent = nullptr);
    ~CPropertyView() override;

    /// Shows every property of an object in place of what was shown: a group per class of what its meta-object
    /// declares, and one for its dynamic properties. When the object dies its values go. Null: an empty page.
    void ShowObject(QObject* in_pObject);

    /// Shows the properties that the objects share, in place of what was shown.
    void ShowObjects(const QList<QObject*>& in_objects);

    /// What is shown, to be filled by hand.
    CPropertyPage& Page() { return *m_pPage; }

    /// Where editors come from, as for item views: by the type of a value, where it has one registered; else the
    /// library's own. Null: QItemEditorFactory::defaultFactory(), which is how it begins. Not taken over.
    void SetItemEditorFactory(const QItemEditorFactory* in_pFactory);

    /// Takes over what is being typed, for instance before the application saves.
    void TakeOver();

    /// Leaves those rows in which every word is found: in the label, the value, the tip or the titles above, wherever
    /// it stands and in whatever case. What is found is marked, and folded groups open for it. Values are compared as
    /// they are when a filter begins or the page changes: a row does not go while its value is edited. Empty: all rows.
    void SetFilter(const QString& in_strWords);
    QString Filter() const;

    /// Leaves out what is not modified as well, see CPropertyPage::SetModifiedAgainst. A row that is reset meanwhile
    /// stays until the filter or the page changes.
    void SetOnlyModified(bool in_bOnlyModified);
    bool IsOnlyModified() const;

    /// The line above the page in which the user types the filter. Ctrl+F shows it; Escape empties and hides it, as
    /// hiding it here does.
    void SetFilterVisible(bool in_bVisible);
    bool IsFilterVisible() const;

    /// Shows that line and lets the user type in it, as Ctrl+F does.
    void EnterFilter();

    /// Makes every edit a command on this stack, see CPropertyPage::SetUndoStack.
    void SetUndoStack(QUndoStack* in_pStack) { m_pPage->SetUndoStack(in_pStack); }

    /// A few lines at the foot that tell of the current row: its label and its tip. Hidden at first.
    void SetDescriptionVisible(bool in_bVisible);
    bool IsDescriptionVisible() const;

    /// The left edge of the values in pixels; -1: as wide as the labels need.
    int LabelColumn() const;
    void SetLabelColumn(int in_iWidth);

    /// Unfolds all groups, or folds them; Ctrl+Right and Ctrl+Left do so. A group that was folded or unfolded here or
    /// by the user is so again, by its title, on the pages shown later.
    void ExpandAll(bool in_bExpand = true);

    /// The label column, which groups are folded, and the filter, for the next run.
    QByteArray SaveState() const;

    /// Takes what SaveState gave.
    /// \return false, with nothing changed, when the bytes are broken or no such state
    bool RestoreState(const QByteArray& in_state);

    /// The current row; one that is no row when there is none.
    CPropertyRow CurrentRow() const;
    void SetCurrentRow(const CPropertyRow& in_row);

    /// Where a row's value is, in pixels of this widget; empty for a row that is not shown.
    QRect ValueRect(const CPropertyRow& in_row) const;

Q_SIGNALS:
    void CurrentRowChanged();

    /// The user follows a property that is another object.
    void LinkActivated(QObject* in_pObject);

    /// The menu of a row (of none: under the last one) is about to show: by the right button, the menu key or
    /// Shift+F10. Actions may be added and taken away; those added belong to the menu, which is deleted when it closes.
    void MenuAboutToShow(QMenu* io_pMenu, const CPropertyRow& in_row);

protected:
    bool event(QEvent* in_pEvent) override;
    void keyPressEvent(QKeyEvent* in_pEvent) override;

private:
    void LeaveFilter();
    void ApplyFilter();
    void Describe();

    CPropertyPage* m_pPage;
    CPropertyArea* m_pArea;
    QLineEdit* m_pFilterLine;
    QLabel* m_pDescription;
};

#endif
