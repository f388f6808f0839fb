#ifndef VIEWROWS_H
#define VIEWROWS_H

#include "inspectorview.h"

#include <QString>

#include <unordered_map>
#include <vector>

class QWidget;

/// The controls of a view in the order of the page, and what is written around them. Looked for when asked, and kept as
/// long as the page stays the same. Private to the library.
class CViewRows
{
public:
    /// A data widget, and where it stands. Valid until the page changes.
    struct sRow
    {
        QWidget* control;
        const CInspectorView::sInspectorHolder* holder; ///< its widget is null once that has died
        const CInspectorView::sInspectorElement* node;
        int number; ///< which of the values that stand in the row side by side, from 1; 0 for the only one
    };

    /// \param in_pContent the parent of the data widgets
    CViewRows(CInspectorView* in_pView, const QWidget* in_pContent);

    const std::vector<sRow>& All();

    /// Where the control stands in All, -1 for one that is not there.
    int IndexOf(const QWidget* in_pControl);

    /// The row of a control, null for none.
    const sRow* Find(const QWidget* in_pControl);

    /// The label and the number; without a label the title of the group around.
    static QString NameOf(const sRow& in_row);

    /// The titles of the groups around, the outermost first.
    static QString GroupsOf(const sRow& in_row);

    /// The tree may have changed in a way that nothing tells of.
    void Forget();

private:
    void Gather();

    CInspectorView* m_pView;
    const QWidget* m_pContent;
    std::vector<sRow> m_rows;
    std::unordered_map<const QWidget*, int> m_indices;
    bool m_bKnown = false;
    unsigned m_uKnownAt = 0; ///< the view's count of changes when they were gathered
    int m_iChildren = 0;     ///< how many children the content had then; dying rows are not counted otherwise
};

#endif
