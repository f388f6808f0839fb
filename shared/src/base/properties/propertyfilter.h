#ifndef PROPERTYFILTER_H
#define PROPERTYFILTER_H

/// Which rows of a page a filter leaves, and what of their texts is marked. Private to the library.
/// \file

#include "propertyitem.h"

#include <QStringList>

#include <utility>

/// A row stays when every word stands somewhere in its label, its value, its tip or the titles above it, whatever its
/// case; a group while it holds such a row, or when its own title has them all.
///
/// All texts of the page stand folded in one, which is searched in one go for each word. It is made when a filter
/// begins and kept until the rows change: what the user does to a value never takes the row away under his hands.
class CPropertyFilter
{
public:
    /// What to look for: words with spaces between. Without any, all rows stay.
    /// \return whether these are other words than before
    bool SetText(const QString& in_strText);

    /// \return whether that is something else than before
    bool SetOnlyModified(bool in_bOnlyModified);

    const QString& Text() const { return m_strText; }
    bool IsOnlyModified() const { return m_bOnlyModified; }
    bool IsOn() const { return !m_words.isEmpty() || m_bOnlyModified; }

    /// The rows are others: they are to be read and compared again.
    void Forget();

    /// Whether all rows were read for this filter. Without that, values count as far as they are known.
    bool IsRead() const { return m_bRead; }
    void SetRead();

    /// Whether Apply was called since the rows or the filter changed.
    bool IsApplied() const { return m_bApplied; }

    /// Tells each row whether it is left out. Those that are have no height.
    /// \return whether that is something else than before for any
    bool Apply(const tItems& in_items);

    /// Whether it leaves out the row at a place among those that Apply was called with.
    bool LeavesOut(std::size_t in_uPlace) const
    {
        return in_uPlace < m_states.size() && m_states[in_uPlace] == eLeftOut;
    }

    /// Where the words stand in a text: the places of their first characters, and of those after their last.
    std::vector<std::pair<int, int>> Marks(const QString& in_strText) const;

private:
    enum
    {
        eLeftOut = 1,
        eRevealed, ///< a group that holds what was found
        eUnknown,
    };

    std::vector<quint8> States(const tItems& in_items);
    void Gather(const tItems& in_items);
    void Append(const QString& in_strText);
    void Find(const QString& in_strWord, quint64 in_ulBit, std::vector<quint64>& io_found) const;

    QString m_strText;
    QStringList m_words;
    bool m_bOnlyModified = false;
    bool m_bRead = false;
    bool m_bApplied = true;
    QString m_strAll;             ///< what can be found in the rows, one after the other
    std::vector<int> m_ends;      ///< where in it each row ends
    std::vector<quint8> m_states; ///< of each row what Apply told it; empty for nothing
    std::vector<int> m_parents;   ///< the place of each row's group among the rows, -1 for none
};

#endif
