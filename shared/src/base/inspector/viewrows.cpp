#include "viewrows.h"

#include "inspectorqt.h"

CViewRows::CViewRows(CInspectorView* in_pView, const QWidget* in_pContent) : m_pView(in_pView), m_pContent(in_pContent)
{}

const std::vector<CViewRows::sRow>& CViewRows::All()
{
    const int iChildren = static_cast<int>(m_pContent->children().size());
    if (!m_bKnown || m_uKnownAt != m_pView->m_uControlChanges || m_iChildren != iChildren)
    {
        m_bKnown = true;
        m_uKnownAt = m_pView->m_uControlChanges;
        m_iChildren = iChildren;
        Gather();
    }
    return m_rows;
}

void CViewRows::Gather()
{
    m_rows.clear();
    m_indices.clear();
    const CInspectorView::sInspectorElement* pRow = nullptr;
    int iNumber = 0;
    for (CHolderLeafIterator<sForwardLeafIterators> leaf(m_pView->m_root); !leaf.IsAtEnd(); leaf.Next())
    {
        iNumber = &leaf.GetRow() == pRow ? iNumber + 1 : 1;
        pRow = &leaf.GetRow();
        QWidget* pControl = dynamic_cast<QWidget*>(leaf.GetLeaf()->widget);
        if (pControl && pControl->parentWidget() == m_pContent)
        {
            const bool bSeveral = pRow->holder->subHolders.size() > 1;
            m_indices[pControl] = static_cast<int>(m_rows.size());
            m_rows.push_back({pControl, leaf.GetLeaf(), pRow, bSeveral ? iNumber : 0});
        }
    }
}

int CViewRows::IndexOf(const QWidget* in_pControl)
{
    All();
    const auto it = m_indices.find(in_pControl);
    return it == m_indices.end() ? -1 : it->second;
}

const CViewRows::sRow* CViewRows::Find(const QWidget* in_pControl)
{
    const int iIndex = IndexOf(in_pControl);
    const sRow* pRow = iIndex < 0 ? nullptr : &m_rows[static_cast<std::size_t>(iIndex)];
    return pRow && pRow->holder->widget ? pRow : nullptr;
}

QString CViewRows::NameOf(const sRow& in_row)
{
    const CInspectorView::sInspectorElement* pNamed = in_row.node;
    while (pNamed->name.empty() && pNamed->parent)
    {
        pNamed = pNamed->parent;
    }
    const QString strName = InspectorQt::Text(pNamed->name);
    return in_row.number > 0 ? strName + QString::fromLatin1(" %1").arg(in_row.number) : strName;
}

QString CViewRows::GroupsOf(const sRow& in_row)
{
    QStringList titles;
    for (const CInspectorView::sInspectorElement* pGroup = in_row.node->parent; pGroup; pGroup = pGroup->parent)
    {
        if (!pGroup->name.empty())
        {
            titles.prepend(InspectorQt::Text(pGroup->name));
        }
    }
    return titles.join(QLatin1String(", "));
}

void CViewRows::Forget()
{
    m_bKnown = false;
}
