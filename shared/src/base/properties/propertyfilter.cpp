#include "propertyfilter.h"

#include "propertyarea.h"
#include "propertyedit.h"

#include <QRegularExpression>
#include <QScrollBar>

#include <algorithm>

namespace
{
const int g_iMostWords = 63; ///< as many as a number has bits, less one
const QChar g_end(QLatin1Char('\n'));

/// Of the same length as the text, unlike QString::toCaseFolded: places in the one are places in the other.
QChar Folded(QChar in_char)
{
    if (in_char.unicode() < 0x80)
    {
        return in_char >= QLatin1Char('A') && in_char <= QLatin1Char('Z') ? QChar(in_char.unicode() | 0x20) : in_char;
    }
    return in_char.toCaseFolded();
}

} // namespace

bool CPropertyFilter::SetText(const QString& in_strText)
{
    static const QRegularExpression space(QStringLiteral("\\s+"));
    QStringList words;
    for (const QString& strWord : in_strText.split(space).mid(0, g_iMostWords))
    {
        QString strFolded = strWord;
        std::transform(strFolded.begin(), strFolded.end(), strFolded.begin(), &Folded);
        strFolded.isEmpty() || words.contains(strFolded) ? words : words << strFolded;
    }
    m_strText = in_strText;
    if (words == m_words)
    {
        return false;
    }
    m_words = words;
    IsOn() ? void(m_bApplied = false) : Forget();
    return true;
}

bool CPropertyFilter::SetOnlyModified(bool in_bOnlyModified)
{
    if (in_bOnlyModified == m_bOnlyModified)
    {
        return false;
    }
    m_bOnlyModified = in_bOnlyModified;
    Forget();
    return true;
}

void CPropertyFilter::Forget()
{
    m_bRead = false;
    m_bApplied = false;
    m_strAll.clear();
    m_ends.clear();
    m_parents.clear();
    m_states.assign(m_states.size(), eUnknown);
}

void CPropertyFilter::SetRead()
{
    Forget();
    m_bRead = true;
}

void CPropertyFilter::Append(const QString& in_strText)
{
    const auto iBegin = m_strAll.size();
    m_strAll.resize(iBegin + in_strText.size() + 1);
    QChar* pTo = m_strAll.data() + iBegin;
    for (const QChar c : in_strText)
    {
        *pTo++ = Folded(c);
    }
    *pTo = g_end;
}

void CPropertyFilter::Gather(const tItems& in_items)
{
    m_strAll.reserve(static_cast<int>(in_items.size()) * 32);
    std::vector<std::pair<const sPropertyItem*, int>> groups; // those that the row stands in
    for (const tItemPtr& pItem : in_items)
    {
        while (!groups.empty() && groups.back().first != pItem->parent)
        {
            groups.pop_back();
        }
        m_parents.push_back(groups.empty() ? -1 : groups.back().second);
        if (pItem->kind == sPropertyItem::eGroup)
        {
            groups.emplace_back(pItem.get(), static_cast<int>(m_ends.size()));
        }
        Append(pItem->Label());
        pItem->mixed ? void() : Append(pItem->text);
        pItem->Tip().isEmpty() ? void() : Append(pItem->Tip());
        m_ends.push_back(static_cast<int>(m_strAll.size()));
    }
}

/// Looks for the first letter, which Qt does many letters at a time. Once found, a word need not be found in that row
/// again.
void CPropertyFilter::Find(const QString& in_strWord, quint64 in_ulBit, std::vector<quint64>& io_found) const
{
    const QChar first = in_strWord.at(0);
    const QStringView all(m_strAll);
    auto itEnd = m_ends.begin();
    int iPlace = static_cast<int>(m_strAll.indexOf(first));
    while (iPlace >= 0)
    {
        while (*itEnd <= iPlace)
        {
            ++itEnd;
        }
        const bool bFound = in_strWord.size() == 1 || all.mid(iPlace).startsWith(in_strWord);
        io_found[static_cast<std::size_t>(itEnd - m_ends.begin())] |= bFound ? in_ulBit : 0;
        iPlace = static_cast<int>(m_strAll.indexOf(first, bFound ? *itEnd : iPlace + 1));
    }
}

/// The rows stand far apart in memory, so that most of what a filter costs is looking at each: only those for which it
/// comes to something else than before are touched.
bool CPropertyFilter::Apply(const tItems& in_items)
{
    m_bApplied = true;
    std::vector<quint8> before = std::exchange(m_states, IsOn() ? States(in_items) : std::vector<quint8>());
    if (before.empty() && m_states.empty())
    {
        return false;
    }
    bool bOther = false;
    before.resize(in_items.size(), eUnknown);
    for (std::size_t u = 0; u < before.size(); ++u)
    {
        const int iState = m_states.empty() ? 0 : m_states[u];
        sPropertyItem& item = *in_items[u];
        if (iState != before[u] || (iState == eRevealed && !item.revealed)) // which the user has folded since
        {
            bOther = true;
            item.filtered = iState == eLeftOut;
            item.revealed = iState == eRevealed;
            item.height = item.filtered ? 0 : item.height;
        }
    }
    return bOther;
}

std::vector<quint8> CPropertyFilter::States(const tItems& in_items)
{
    if (m_ends.empty())
    {
        Gather(in_items);
    }
    std::vector<quint64> found(in_items.size(), 0);
    quint64 ulAll = 0;
    for (const QString& strWord : m_words)
    {
        const quint64 ulBit = ulAll + 1;
        Find(strWord, ulBit, found);
        ulAll |= ulBit;
    }
    std::vector<quint8> states(in_items.size(), 0);
    for (std::size_t u = 0; u < found.size(); ++u)
    {
        found[u] |= m_parents[u] >= 0 ? found[static_cast<std::size_t>(m_parents[u])] : 0;
        const bool bLeft = found[u] == ulAll && (!m_bOnlyModified || in_items[u]->modified);
        states[u] = bLeft ? 0 : eLeftOut;
    }
    for (std::size_t u = found.size(); u-- > 0;)
    {
        if (states[u] != eLeftOut && m_parents[u] >= 0)
        {
            states[static_cast<std::size_t>(m_parents[u])] = eRevealed;
        }
    }
    return states;
}

std::vector<std::pair<int, int>> CPropertyFilter::Marks(const QString& in_strText) const
{
    std::vector<std::pair<int, int>> marks;
    for (const QString& strWord : m_words)
    {
        int iPlace = static_cast<int>(in_strText.indexOf(strWord, 0, Qt::CaseInsensitive));
        while (iPlace >= 0)
        {
            const int iEnd = iPlace + static_cast<int>(strWord.size());
            marks.emplace_back(iPlace, iEnd);
            iPlace = static_cast<int>(in_strText.indexOf(strWord, iEnd, Qt::CaseInsensitive));
        }
    }
    return marks;
}

void CPropertyArea::SetFilter(const QString& in_strText, bool in_bOnlyModified)
{
    if (!m_filter.IsOn())
    {
        m_beforeFilter = m_current;
        m_iOffsetBeforeFilter = m_iOffsetY;
    }
    const bool bOtherText = m_filter.SetText(in_strText);
    if (m_filter.SetOnlyModified(in_bOnlyModified) || bOtherText)
    {
        PlaceFiltered();
    }
}

/// A filter finds values too, so that each must be known once. Whatever reading does to the rows, they are then read
/// again.
void CPropertyArea::ReadForFilter()
{
    if (!m_filter.IsOn() || m_filter.IsRead())
    {
        return;
    }
    const QPointer<CPropertyArea> self(this);
    m_filter.SetRead();
    for (std::size_t u = 0; self && m_filter.IsRead() && u < m_rows.Items().size(); ++u)
    {
        Load(*m_rows.Items()[u]);
    }
    if (self)
    {
        m_bLayoutDue = true;
    }
}

void CPropertyArea::Reenter()
{
    const QPointer<CPropertyArea> self(this);
    setFocus(Qt::OtherFocusReason);
    if (self && IndexOf(Current().get()) < 0)
    {
        MoveCurrent(1);
    }
}

/// Lays out for another filter. Of what was in sight, what stays keeps its place, the current row before others; when
/// the filter ends, all is as before it.
void CPropertyArea::PlaceFiltered()
{
    const QPointer<CPropertyArea> self(this);
    std::vector<std::pair<tItemPtr, int>> places;
    for (auto it = FirstBelow(m_iOffsetY); it != m_shown.end() && (*it)->top < m_iOffsetY + height(); ++it)
    {
        const tItemPtr pItem = (*it)->shared_from_this();
        places.insert(pItem == Current() ? places.begin() : places.end(), {pItem, pItem->top - m_iOffsetY});
    }
    ReadForFilter();
    if (self)
    {
        m_bLayoutDue = m_filter.Apply(m_rows.Items()) || m_bLayoutDue;
        m_pEdit && m_pEdit->Item()->filtered ? TakeOver() : void();
    }
    self ? EnsureLayout() : void();
    if (!self)
    {
        return;
    }
    const auto kept =
        std::find_if(places.begin(), places.end(), [](const auto& in_p) { return in_p.first->height > 0; });
    update(QRect(0, 0, RowWidth(), height())); // the marks
    if (!m_filter.IsOn() && m_beforeFilter.lock() == Current())
    {
        CQTInspectorView::ScrollTo(m_iOffsetBeforeFilter);
    }
    else if (kept != places.end())
    {
        CQTInspectorView::ScrollTo(kept->first->top - kept->second);
    }
}
