#ifndef LAYOUTCHECK_H
#define LAYOUTCHECK_H

#include "inspectorview.h"

/// What must hold after every layout, whatever the tree. `View` is a view that makes its members public.
template <class View> class CLayoutCheck
{
public:
    explicit CLayoutCheck(View& in_view) : m_view(in_view) {}

    /// What is wrong with the layout, empty when nothing is.
    std::string Fault()
    {
        if (m_view.m_bPreviewMode)
        {
            CheckStrip();
            return m_strFault;
        }
        const unsigned uLeft = U(m_view.GetInspectorLeftMargin());
        const unsigned uWidth = U(m_view.m_iViewWidth) - uLeft - U(m_view.GetInspectorRightMargin());
        const unsigned uEnd = CheckStack(m_view.m_root, uLeft, uWidth, U(m_view.GetInspectorTopMargin()));
        Check(U(m_view.m_iContentHeight) == uEnd + U(m_view.GetInspectorBottomMargin()), "content", "height");
        return m_strFault;
    }

private:
    typedef CInspectorView::sInspectorElement sNode;
    typedef CInspectorView::sInspectorHolder sHolder;

    static unsigned U(int in_iPixels) { return static_cast<unsigned>(in_iPixels); } // wraps as the layout does

    void Check(bool in_bGood, const std::string& in_strName, const char* in_strWhat)
    {
        m_strFault = in_bGood || !m_strFault.empty() ? m_strFault : in_strName + ": " + in_strWhat;
    }

    unsigned CheckStack(const std::list<sNode>& in_nodes, unsigned in_uX, unsigned in_uWidth, unsigned in_uY)
    {
        std::set<int> columns;
        for (const sNode& node : in_nodes)
        {
            Check(U(node.x) == in_uX && U(node.width) == in_uWidth, node.name, "not between the margins");
            Check(U(node.y) == in_uY, node.name, "not below the node before");
            node.holder ? CheckRow(node) : CheckGroup(node);
            if (node.holder && !(node.holder->request && (node.holder->request->flags & 1)))
            {
                columns.insert(node.labelColumn);
            }
            in_uY += U(node.height) + U(m_view.GetHeightBetweenControl());
        }
        Check(!m_view.m_bLabelGrouping || columns.size() < 2, "rows", "labels not aligned");
        return in_uY;
    }

    void CheckGroup(const sNode& in_group)
    {
        unsigned uEnd = U(in_group.y);
        if (!in_group.children.empty())
        {
            const unsigned uLeft = U(m_view.GetGroupLeftMargin());
            const unsigned uWidth = U(in_group.width) - uLeft - U(m_view.GetGroupRightMargin());
            uEnd += U(m_view.GetGroupTopMargin()) + (in_group.name.empty() ? 0 : U(m_view.GetGroupLabelHeight()));
            uEnd = CheckStack(in_group.children, U(in_group.x) + uLeft, uWidth, uEnd);
            uEnd += U(m_view.GetGroupBottomMargin());
        }
        Check(U(in_group.y) + U(in_group.height) == uEnd, in_group.name, "frame not as high as its children");
    }

    void CheckRow(const sNode& in_row)
    {
        const sHolder& holder = *in_row.holder;
        const int iTop = m_view.m_bPreviewMode ? 0 : in_row.y;
        Check(U(holder.x) - U(in_row.x) == U(in_row.labelColumn), in_row.name, "control not behind its label");
        Check(U(holder.width) == U(in_row.width) - U(in_row.labelColumn), in_row.name, "not all of the row used");
        Check(holder.y == iTop && holder.height == in_row.height, in_row.name, "not level with its row");
        unsigned uX = U(holder.x);
        for (const sHolder* pSub : holder.subHolders)
        {
            const bool bLevel = pSub->y == iTop && pSub->height == in_row.height;
            Check(!holder.container || (U(pSub->x) == uX && bLevel), in_row.name, "controls not side by side");
            uX += U(pSub->width) + (m_view.m_bPreviewMode ? 0 : 2);
        }
    }

    /// In preview what has room stands side by side from the left edge on. The first node is still as wide as the view
    /// when nothing fits, or nothing else.
    void CheckStrip()
    {
        std::list<sNode*> nodes;
        m_view.recBuildListElementToComputeWidth(nullptr, nodes);
        nodes.remove_if([](const sNode* in_pNode) { return !in_pNode->holder; });
        unsigned uX = nodes.empty() ? 0 : U(nodes.front()->width);
        uX = uX == U(m_view.m_iViewWidth) ? uX : 0;
        for (auto it = nodes.begin(); it != nodes.end() && static_cast<int>(U(m_view.m_iViewWidth) - uX) > 0; ++it)
        {
            Check(U((*it)->x) == uX, (*it)->name, "not behind the node before");
            CheckRow(**it);
            uX += U((*it)->width);
        }
    }

    View& m_view;
    std::string m_strFault;
};

#endif
