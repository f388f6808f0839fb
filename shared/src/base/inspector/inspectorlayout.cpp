/// How the rows of a view split their width: into labels and controls, normally and in preview mode.
/// \file

#include "inspectorview.h"

#include <algorithm>

namespace
{
const int g_iGapInContainer = 2;      ///< between two controls of a single-line container
const int g_iPreviewWishDefault = 20; ///< what a control without a wish counts for when preview drops labels

typedef CInspectorView::sInspectorHolder sHolder;
typedef CInspectorView::sPositionHolder sRecord;

int RequiredWidth(const sHolder& in_holder)
{
    return in_holder.widget ? in_holder.widget->GetRequiredWidth() : g_iInspectorNotGiven;
}

int Count(const std::list<sRecord>& in_records)
{
    return static_cast<int>(in_records.size());
}

int Gaps(const std::list<sRecord>& in_records)
{
    return g_iGapInContainer * (Count(in_records) - 1);
}

int SumOfMinimums(const std::list<sRecord>& in_records)
{
    int iSum = 0;
    for (const sRecord& record : in_records)
    {
        iSum += record.minimum;
    }
    return iSum;
}

int SumOfMaximums(const std::list<sRecord>& in_records)
{
    int iSum = 0;
    for (const sRecord& record : in_records)
    {
        iSum += record.maximum;
    }
    return iSum;
}

int CountGrowable(const std::list<sRecord>& in_records)
{
    return static_cast<int>(std::count_if(in_records.begin(), in_records.end(),
                                          [](const sRecord& in_record) { return in_record.remaining > 0; }));
}

void PlaceInPreview(sHolder& out_holder, int in_iX, int in_iWidth, int in_iHeight)
{
    out_holder.x = in_iX;
    out_holder.y = 0;
    out_holder.width = in_iWidth;
    out_holder.height = in_iHeight;
}

/// Gives each record its share of the available pixels, the one with the least room first.
void ShareOut(std::list<sRecord>& io_records, int in_iAvailable, int in_iGrowable)
{
    for (sRecord& record : io_records)
    {
        if (record.remaining == 0)
        {
            continue;
        }
        if (in_iAvailable <= 0 || in_iGrowable == 0)
        {
            return;
        }
        int iShare = in_iAvailable / in_iGrowable;
        if (record.width + iShare > record.maximum)
        {
            iShare = record.maximum - record.width;
        }
        record.width += iShare;
        in_iAvailable -= iShare;
        --in_iGrowable;
    }
}
} // namespace

struct CInspectorView::sBounds
{
    /// What the holder's request says of a row `in_iTotal` wide; -1 where it says nothing.
    static sBounds Requested(const sInspectorHolder& in_holder, int in_iTotal)
    {
        if (!in_holder.request)
        {
            return {g_iInspectorNotGiven, g_iInspectorNotGiven};
        }
        return {in_holder.request->GetMinValue(in_iTotal), in_holder.request->GetMaxValue(in_iTotal)};
    }

    /// The bounds of a control that stands in a row of its own.
    static sBounds OfControl(const sInspectorHolder& in_holder, int in_iTotal)
    {
        sBounds bounds = Requested(in_holder, in_iTotal);
        if (bounds.minimum == g_iInspectorNotGiven)
        {
            bounds.minimum = RequiredWidth(in_holder);
        }
        if (bounds.maximum == g_iInspectorNotGiven)
        {
            bounds.maximum = in_iTotal;
        }
        return bounds;
    }

    int minimum;
    int maximum;
};

struct CInspectorView::sPreview
{
    std::list<sInspectorElement*> nodes;
    std::vector<int> wishes; ///< one per control
    int labelSum = 0;
    int minimumSum = 0;
    int controls = 0; ///< how many controls share the width
    bool labels = true;
};

void CInspectorView::recBuildListElementToComputeWidth(sInspectorElement* in_pParent,
                                                       std::list<sInspectorElement*>& io_units)
{
    std::list<sInspectorElement>& children = in_pParent ? in_pParent->children : m_root;
    if (m_bPreviewMode)
    {
        recGatherForPreview(children, io_units);
        return;
    }
    const auto rows = std::count_if(children.begin(), children.end(),
                                    [](const sInspectorElement& in_node) { return in_node.kind == eHolder; });
    const bool bAligned = m_bLabelGrouping && rows > 1;
    if (bAligned)
    {
        io_units.push_front(in_pParent);
    }
    for (sInspectorElement& child : children)
    {
        if (child.kind == eGroup)
        {
            recBuildListElementToComputeWidth(&child, io_units);
        }
        else if (!bAligned)
        {
            io_units.push_front(&child);
        }
    }
}

void CInspectorView::recGatherForPreview(std::list<sInspectorElement>& in_nodes,
                                         std::list<sInspectorElement*>& io_units)
{
    for (sInspectorElement& node : in_nodes)
    {
        io_units.push_back(&node);
        recGatherForPreview(node.children, io_units);
    }
}

void CInspectorView::ComputeHoldersWidth()
{
    std::list<sInspectorElement*> units;
    recBuildListElementToComputeWidth(nullptr, units);
    for (sInspectorElement* pUnit : units)
    {
        if (pUnit && pUnit->kind == eHolder)
        {
            LayOutSingleRow(*pUnit);
        }
        else
        {
            LayOutAlignedRows(pUnit ? pUnit->children : m_root);
        }
    }
}

int CInspectorView::LabelWidth(sInspectorElement& in_row)
{
    return m_bPreviewMode ? 0 : GetElementLabelWidth(&in_row);
}

/// Gives the row's holder what the label column leaves of the row.
void CInspectorView::PlaceRow(sInspectorElement& in_row, int in_iLabelColumn)
{
    in_row.labelColumn = m_bPreviewMode ? 0 : in_iLabelColumn;
    sInspectorHolder& holder = *in_row.holder;
    holder.width = in_row.width - in_row.labelColumn;
    holder.x = in_row.x + in_row.labelColumn;
    holder.y = in_row.y;
    holder.height = in_row.height;
}

void CInspectorView::LayOutSingleRow(sInspectorElement& in_row)
{
    const int iRowWidth = in_row.width;
    const int iLabelWidth = GetElementLabelWidth(&in_row);
    const bool bContainer = in_row.holder->container != 0;
    sBounds bounds = sBounds::Requested(*in_row.holder, iRowWidth);
    std::list<sPositionHolder> records;
    if (bContainer)
    {
        BuildPositionHolderListFromContainer(&in_row, records);
        bounds.minimum =
            bounds.minimum == g_iInspectorNotGiven ? SumOfMinimums(records) + Gaps(records) : bounds.minimum;
        bounds.maximum = bounds.maximum == g_iInspectorNotGiven ? SumOfMaximums(records) : bounds.maximum;
    }
    else
    {
        bounds = sBounds::OfControl(*in_row.holder, iRowWidth);
    }
    int iLabelColumn = iLabelWidth;
    if (iRowWidth > iLabelWidth + bounds.maximum)
    {
        iLabelColumn = iRowWidth - bounds.maximum;
    }
    else if (iRowWidth < iLabelWidth + bounds.minimum)
    {
        iLabelColumn = 0;
    }
    PlaceRow(in_row, iLabelColumn);
    if (bContainer)
    {
        PositionChildrenInContainer(&in_row, records, g_iInspectorNotGiven, g_iInspectorNotGiven);
    }
}

/// A row's bounds where labels are aligned: unlike in a row by itself, a container without controls needs 0 pixels.
CInspectorView::sBounds CInspectorView::BoundsInGroup(sInspectorElement& in_row)
{
    if (!in_row.holder->container)
    {
        return sBounds::OfControl(*in_row.holder, in_row.width);
    }
    sBounds bounds = sBounds::Requested(*in_row.holder, in_row.width);
    if (bounds.minimum != g_iInspectorNotGiven && bounds.maximum != g_iInspectorNotGiven)
    {
        return bounds;
    }
    std::list<sPositionHolder> records;
    BuildPositionHolderListFromContainer(&in_row, records);
    if (bounds.minimum == g_iInspectorNotGiven)
    {
        bounds.minimum = records.empty() ? 0 : SumOfMinimums(records) + Gaps(records);
    }
    if (bounds.maximum == g_iInspectorNotGiven)
    {
        bounds.maximum = SumOfMaximums(records);
    }
    return bounds;
}

CInspectorView::sHolderForGroup CInspectorView::MeasureInGroup(sInspectorElement& in_row)
{
    const int iLabelWidth = LabelWidth(in_row);
    const sBounds bounds = BoundsInGroup(in_row);
    const int iRoom = in_row.width - bounds.minimum;
    int iLabelColumn = 0;
    if (iLabelWidth <= iRoom)
    {
        const bool bSurplus = in_row.width > iLabelWidth + bounds.maximum;
        iLabelColumn = bSurplus ? in_row.width - bounds.maximum : iLabelWidth;
    }
    return {bounds.minimum, bounds.maximum, iLabelWidth, iLabelColumn, iRoom, &in_row};
}

void CInspectorView::LayOutAlignedRows(std::list<sInspectorElement>& in_rows)
{
    std::vector<sHolderForGroup> rows;
    rows.reserve(in_rows.size());
    for (sInspectorElement& node : in_rows)
    {
        if (node.kind == eHolder)
        {
            rows.push_back(MeasureInGroup(node));
        }
    }
    int iColumn = -1;
    for (const sHolderForGroup& row : rows)
    {
        iColumn = std::max(iColumn, row.labelColumn);
    }
    for (const sHolderForGroup& row : rows)
    {
        iColumn = std::min(iColumn, row.room);
    }
    for (const sHolderForGroup& row : rows)
    {
        const sInspectorHolder& holder = *row.node->holder;
        const bool bNoLabel = holder.request && (holder.request->flags & eNoLabelColumn);
        PlaceRow(*row.node, bNoLabel ? 0 : iColumn);
        if (holder.container)
        {
            std::list<sPositionHolder> records;
            BuildPositionHolderListFromContainer(row.node, records);
            PositionChildrenInContainer(row.node, records, g_iInspectorNotGiven, g_iInspectorNotGiven);
        }
    }
}

void CInspectorView::BuildPositionHolderListFromContainer(sInspectorElement* in_pContainer,
                                                          std::list<sPositionHolder>& out_records)
{
    out_records.clear();
    int iIndex = 0;
    for (sInspectorHolder* pSub : in_pContainer->holder->subHolders)
    {
        sBounds bounds = sBounds::Requested(*pSub, in_pContainer->width);
        if (bounds.minimum == g_iInspectorNotGiven)
        {
            const int iWish = RequiredWidth(*pSub);
            bounds.minimum = iWish == g_iInspectorNotGiven ? 0 : iWish;
        }
        if (bounds.maximum == g_iInspectorNotGiven)
        {
            bounds.maximum = in_pContainer->width;
        }
        const int iRemaining = bounds.maximum - bounds.minimum;
        out_records.push_back({bounds.minimum, bounds.maximum, pSub, bounds.minimum, iRemaining, iIndex});
        ++iIndex;
    }
}

void CInspectorView::PositionChildrenInContainer(sInspectorElement* in_pContainer,
                                                 std::list<sPositionHolder>& io_records, int in_iAvailable,
                                                 int in_iGrowable)
{
    if (in_iAvailable == g_iInspectorNotGiven || in_iGrowable == g_iInspectorNotGiven)
    {
        in_iGrowable = CountGrowable(io_records);
        in_iAvailable = in_pContainer->width - in_pContainer->labelColumn - Gaps(io_records);
        for (const sPositionHolder& record : io_records)
        {
            in_iAvailable -= record.width;
        }
    }
    io_records.sort(sSortHolderByRemainingMax());
    ShareOut(io_records, in_iAvailable, in_iGrowable);
    io_records.sort([](const sRecord& in_a, const sRecord& in_b) { return in_a.index < in_b.index; });
    int iX = in_pContainer->holder->x;
    for (const sPositionHolder& record : io_records)
    {
        record.holder->x = iX;
        record.holder->y = in_pContainer->holder->y;
        record.holder->width = record.width;
        record.holder->height = in_pContainer->holder->height;
        iX += record.width + g_iGapInContainer;
    }
}

void CInspectorView::ComputeHoldersWidthForPreview()
{
    sPreview preview = MeasurePreview();
    preview.labels = m_iViewWidth >= preview.labelSum + preview.minimumSum && preview.nodes.size() != 1;
    if (!preview.labels && preview.minimumSum >= m_iViewWidth)
    {
        preview.controls = 0;
        int iUsed = 0;
        for (int iWish : preview.wishes)
        {
            iUsed += iWish == g_iInspectorNotGiven ? g_iPreviewWishDefault : iWish;
            if (iUsed >= m_iViewWidth)
            {
                break;
            }
            ++preview.controls;
        }
    }
    if (preview.controls > 0)
    {
        PlacePreview(preview);
    }
}

CInspectorView::sPreview CInspectorView::MeasurePreview()
{
    sPreview preview;
    const auto count = [this, &preview](sInspectorHolder* in_pControl) {
        int iWish = sBounds::Requested(*in_pControl, m_iViewWidth).minimum;
        iWish = iWish == g_iInspectorNotGiven ? RequiredWidth(*in_pControl) : iWish;
        preview.minimumSum += std::max(iWish, 0);
        preview.wishes.push_back(iWish);
    };
    recBuildListElementToComputeWidth(nullptr, preview.nodes);
    for (sInspectorElement* pNode : preview.nodes)
    {
        pNode->labelColumn = pNode->kind == eGroup ? 0 : GetElementLabelWidth(pNode);
        preview.labelSum += pNode->labelColumn;
        if (pNode->kind == eHolder && pNode->holder->container)
        {
            std::for_each(pNode->holder->subHolders.begin(), pNode->holder->subHolders.end(), count);
        }
        else if (pNode->kind == eHolder)
        {
            count(pNode->holder);
        }
    }
    preview.controls = static_cast<int>(preview.wishes.size());
    return preview;
}

/// Nodes for which no pixel is left keep the rectangles of the layout before.
void CInspectorView::PlacePreview(const sPreview& in_preview)
{
    const int iShare = (m_iViewWidth - (in_preview.labels ? in_preview.labelSum : 0)) / in_preview.controls;
    int iX = 0;
    int iLeft = m_iViewWidth;
    for (sInspectorElement* pNode : in_preview.nodes)
    {
        if (iLeft < 1)
        {
            return;
        }
        pNode->labelColumn = in_preview.labels ? pNode->labelColumn : 0;
        if (pNode->kind == eGroup)
        {
            continue;
        }
        sInspectorHolder& holder = *pNode->holder;
        const int iControls = holder.container ? static_cast<int>(holder.subHolders.size()) : 1;
        pNode->x = iX;
        pNode->width = iShare * iControls + pNode->labelColumn;
        iX += pNode->labelColumn;
        PlaceInPreview(holder, iX, iShare * iControls, pNode->height);
        if (holder.container)
        {
            int iSubX = iX;
            for (sInspectorHolder* pSub : holder.subHolders)
            {
                PlaceInPreview(*pSub, iSubX, iShare, pNode->height);
                iSubX += iShare;
            }
        }
        iX += iShare * iControls;
        iLeft -= pNode->width;
    }
}
