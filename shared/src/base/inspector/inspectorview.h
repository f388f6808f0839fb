#ifndef INSPECTORVIEW_H
#define INSPECTORVIEW_H

#include "inspectordataelement.h"

#include <iterator>
#include <list>
#include <set>
#include <string>
#include <vector>

/// The inspector's view without a toolkit: the tree of groups, single-line containers and controls, and the layout that
/// turns it into rectangles.
///
/// The application fills the tree (AddGroup, AddElement, AddSingleLineContainer), then gives the view its size
/// (ResizeInspector). Adding lays nothing out: after changing a tree of unchanged size call RecomputeLayout.
///
/// All sizes and positions are pixels of the content, before scrolling; 32-bit arithmetic on them wraps. A size of -1
/// (g_iInspectorNotGiven) is "not given". The view owns its tree and its holders, never the elements and widgets. All
/// calls belong to the user-interface thread.
class INSPECTOR_EXPORT CInspectorView
{
public:
    struct sInspectorHolder;

    /// What a tree node is.
    enum eElementKind
    {
        eGroup = 0,  ///< a titled frame round its children
        eHolder = 1, ///< a row: one control, or a single-line container
    };

    /// A node of the tree. The address is stable as long as the node stays in the tree.
    struct sInspectorElement
    {
        int kind = eGroup;                     ///< an eElementKind
        std::list<sInspectorElement> children; ///< what stands in a group
        sInspectorHolder* holder = nullptr;    ///< the row's holder, owned by the view; null for a group
        std::string name;                      ///< a group's title or a row's label; may be empty
        sInspectorElement* parent = nullptr;   ///< null for a top-level node
        int width = 0;                         ///< the rectangle, as of the last layout
        int height = 0;
        int x = 0;
        int y = 0;
        int labelColumn = 0; ///< how much of a row's width its label takes, as of the last layout
    };

    /// The width that a row asks for its control. Percentages are of the row's width (in preview of the view's).
    /// Bounds that compute to -1 are absent.
    struct INSPECTOR_EXPORT sRequestSize
    {
        int minimumIsPercent = 0; ///< not 0: `minimum` is a percentage
        int minimum = g_iInspectorNotGiven;
        int maximumIsPercent = 0; ///< not 0: `maximum` is a percentage
        int maximum = g_iInspectorNotGiven;
        int flags = 0; ///< eNoLabelColumn or 0; other bits are free

        /// The minimum in pixels for a total width of `in_iTotal`, -1 for none.
        virtual int GetMinValue(int in_iTotal);

        /// The maximum in pixels for a total width of `in_iTotal`, -1 for none.
        virtual int GetMaxValue(int in_iTotal);

        virtual ~sRequestSize();
    };

    /// A bit of sRequestSize::flags: in a group whose labels are aligned, the row's control takes the whole row.
    enum
    {
        eNoLabelColumn = 1
    };

    /// One control, or one single-line container, with the rectangle that the last layout gave it. Made by the view's
    /// AddElement and AddSingleLineContainer: only they see to it that no pointer dangles.
    struct INSPECTOR_EXPORT sInspectorHolder
    {
        sInspectorHolder() = default;
        ~sInspectorHolder();
        sInspectorHolder(const sInspectorHolder&) = delete;
        sInspectorHolder& operator=(const sInspectorHolder&) = delete;

        CInspectorDataElement* element = nullptr; ///< not owned; null for a container and once the element has died
        CInspectorDataWidget* widget = nullptr;   ///< not owned; null for a container and once the widget has died
        int container = 0;                        ///< 1 for a single-line container, else 0
        sRequestSize* request = nullptr;          ///< owned; null when no request was given
        std::list<sInspectorHolder*> subHolders;  ///< a container's controls, owned by the view
        int width = 0;
        int height = 0;
        int x = 0;
        int y = 0;

    private:
        friend class CInspectorView;

        CInspectorLink<CInspectorDataElement> m_elementLink;
        CInspectorLink<CInspectorDataWidget> m_widgetLink;
    };

    /// One control of a single-line container while the container's width is shared out.
    struct sPositionHolder
    {
        int minimum;
        int maximum;
        sInspectorHolder* holder; ///< not owned
        int width;                ///< the width given so far
        int remaining;            ///< how much the control may grow beyond its minimum
        int index;                ///< the control's place in the container, from 0
    };

    /// Orders records by what they may still grow, the smallest first.
    struct sSortHolderByRemainingMax
    {
        /// Whether the first record comes before the second.
        bool operator()(const sPositionHolder& in_first, const sPositionHolder& in_second) const
        {
            return in_first.remaining < in_second.remaining;
        }
    };

    /// One row of a group while the label column that the group's rows share is computed.
    struct sHolderForGroup
    {
        int minimum;
        int maximum;
        int labelWidth;  ///< the width of the row's label
        int labelColumn; ///< the label column that the row would have by itself
        int room;        ///< the widest label column that leaves the control its minimum
        sInspectorElement* node;
    };

    /// Hands out every node of a tree, breadth first, for painting. The tree must not change meanwhile.
    struct INSPECTOR_EXPORT sDrawElementVisitor
    {
        /// Starts on the view's top-level nodes.
        explicit sDrawElementVisitor(CInspectorView* in_pView);

        /// The next node, null after the last.
        sInspectorElement* GetNext();

        CInspectorView* view;
        std::list<sInspectorElement>* current; ///< the list being walked, null at the end
        std::list<sInspectorElement>::iterator position;
        std::list<std::list<sInspectorElement>*> waiting; ///< children still to be walked
    };

    /// An empty view, 0 by 0, its content shown.
    CInspectorView() = default;

    /// Empties the tree; a controller wired to this view forgets it.
    virtual ~CInspectorView();
    CInspectorView(const CInspectorView&) = delete;
    CInspectorView& operator=(const CInspectorView&) = delete;

    /// Empties the tree and frees all nodes and holders. Elements and widgets are left alone, and no repaint is asked
    /// for.
    virtual void RemoveAll();

    /// Adds a titled group after the last child of `in_pParent`, or at top level when that is null, and asks for a
    /// repaint. A null `in_strName` is an empty title: a frame only. Under anything but a group nothing is laid out.
    /// \return the group, to be given as parent; owned by the view
    virtual sInspectorElement* AddGroup(const char* in_strName, sInspectorElement* in_pParent);

    /// Adds a control. Under a group, or at top level for a null `in_pParent`, it becomes a row labelled `in_strLabel`
    /// (null: no label); under a container from AddSingleLineContainer it joins the container's controls and the
    /// label is ignored. The widget is parented into the view and shown, and a repaint is asked for.
    /// \param in_pRequest its five values are copied when it is not null; overrides of a derived class are not called
    /// \return the control's holder, owned by the view; null when showing the widget destroyed or emptied the view
    virtual sInspectorHolder* AddElement(CInspectorDataElement* in_pElement, CInspectorDataWidget* in_pWidget,
                                         const char* in_strLabel, sRequestSize* in_pRequest,
                                         sInspectorElement* in_pParent);

    /// Adds a row whose width several controls share, and asks for a repaint. Parameters as of AddElement.
    /// \return the container, to be given as parent to AddElement; owned by the view
    virtual sInspectorElement* AddSingleLineContainer(const char* in_strName, sRequestSize* in_pRequest,
                                                      sInspectorElement* in_pParent);

    /// Removes every group that holds no row, however deep. Rows stay, containers without controls included.
    virtual void RemoveEmptyGroups();

    /// Asks for a repaint; called by the controller when something became dirty.
    virtual void DirtyView();

    /// Gives the view its size and lays out, unless the size is the one it has. A height of -1 makes the view as tall
    /// as its content is at this layout.
    virtual void ResizeInspector(int in_iWidth, int in_iHeight);

    /// Schedules a repaint.
    virtual void UpdateView() = 0;

    /// Lays the tree out for the present size, then moves and resizes every widget.
    virtual void RecomputeLayout();

    /// A step of RecomputeLayout: splits every row into label and control.
    virtual void ComputeHoldersWidth();

    /// A step of RecomputeLayout in preview mode: puts the controls side by side, sharing the view's width.
    virtual void ComputeHoldersWidthForPreview();

    /// Scrolls as little as needed to show the widget's row. Does nothing here.
    virtual void EnsureVisible(CInspectorDataWidget* in_pWidget);

    /// The space between the view's edge and the content, in pixels: 5, in preview mode 0.
    /// \{
    virtual int GetInspectorLeftMargin();
    virtual int GetInspectorRightMargin();
    virtual int GetInspectorTopMargin();
    virtual int GetInspectorBottomMargin();
    /// \}

    /// The space between a group's frame and what it holds, in pixels: 5, in preview mode 0.
    /// \{
    virtual int GetGroupLeftMargin();
    virtual int GetGroupRightMargin();
    virtual int GetGroupTopMargin();
    virtual int GetGroupBottomMargin();
    /// \}

    /// The height of a group's title in pixels: 10, in preview mode 0.
    virtual int GetGroupLabelHeight();

    /// The space after every node in pixels: 5, in preview mode 0.
    virtual int GetHeightBetweenControl();

    /// The width that the label of a row needs, in pixels. 0 here.
    virtual int GetElementLabelWidth(sInspectorElement* in_pElement);

    /// The height of the whole content as of the last layout, 0 before the first.
    virtual int GetCurrentContentHeight();

    /// Called by ShowContent: places all controls, or shrinks them to 0 by 0.
    virtual void OnToggleShowContent(bool in_bShow);

    /// Called before each paint: lets the controller handle what became dirty.
    virtual void OnPreDraw();

    /// Called when a layout has found the content's height. Does nothing here.
    virtual void OnContentHeightSet();

    /// Makes the widget a child of the view's. `in_pWidget` may be null, and may be no widget of the toolkit: nothing
    /// happens then.
    virtual void ParentControlToInspector(CInspectorDataWidget* in_pWidget) = 0;

    /// Moves and sizes a holder's widget to the holder's rectangle, without the scroll offset; 0 by 0 while the
    /// content is hidden.
    virtual void PositionControl(sInspectorHolder* in_pHolder);

    /// Scrolls: moves every widget `in_iX` to the left and `in_iY` up from its rectangle.
    virtual void OffsetControls(int in_iX, int in_iY);

    /// Asked by the controller before it moves the editing on from a control: a view that has a keyboard of its own
    /// moves the focus itself, and answers true. False here.
    virtual bool MoveFocusFrom(CInspectorDataWidget* in_pWidget, bool in_bForward);

    /// Called by the controller when a control that Tab reached has been asked to start editing: the control takes the
    /// focus, so that no key reaches anything else. Does nothing here.
    virtual void GiveFocusTo(CInspectorDataWidget* in_pWidget);

    /// A new empty holder, owned by the view.
    sInspectorHolder* CreateNewHolder();

    /// Shows or hides the whole content. Does nothing when that is the present state, unless forced. Shown controls
    /// stand as if nothing were scrolled, until the next layout or scroll step: call RecomputeLayout after it.
    void ShowContent(bool in_bShow, bool in_bForce);

    /// The holder of a widget, null when the widget is null or not in the tree.
    sInspectorHolder* GetHolderFromControl(CInspectorDataWidget* in_pWidget);

    /// The vertical step of the layout on one list: places its nodes between `io_iLeft` and `io_iRight` from `io_iY`
    /// on, and moves `io_iY` behind them.
    void recRecomputeLayout(std::list<sInspectorElement>* in_pList, int& io_iLeft, int& io_iRight, int& io_iY);

    /// Gathers under `in_pParent` (null: the whole tree) what is laid out independently: groups whose rows align
    /// their labels (null stands for the top level), and single rows. In preview mode: every node.
    void recBuildListElementToComputeWidth(sInspectorElement* in_pParent, std::list<sInspectorElement*>& io_units);

    /// Removes the empty groups of one list.
    void recRemoveEmptyGroups(std::list<sInspectorElement>* in_pList);

    /// Fills `out_records` with one record per control of a container, from the requests and the widgets' wishes.
    void BuildPositionHolderListFromContainer(sInspectorElement* in_pContainer,
                                              std::list<sPositionHolder>& out_records);

    /// Shares `in_iAvailable` pixels beyond the minimums among the `in_iGrowable` records that may grow, and places the
    /// container's controls, 2 pixels apart. When either number is -1 both are computed.
    void PositionChildrenInContainer(sInspectorElement* in_pContainer, std::list<sPositionHolder>& io_records,
                                     int in_iAvailable, int in_iGrowable);

protected:
    std::set<sInspectorHolder*> m_controlHolders; ///< the holders made by AddElement
    std::set<sInspectorHolder*> m_allHolders;     ///< every holder; owns them
    std::list<sInspectorElement> m_root;          ///< the top-level nodes

public:
    /// Handles dirty notices before each paint; not owned. Null, or set by the application to a controller that wires
    /// this view in turn; either of two so wired forgets the other when it dies.
    CInspectorController* m_pController = nullptr;

protected:
    int m_iViewWidth = 0;
    int m_iViewHeight = 0; ///< -1 until the next layout: as tall as the content
    int m_iContentHeight = 0;
    bool m_bLabelGrouping = true; ///< rows of one group share a label column
    int m_iOffsetX = 0;           ///< the scroll offset last given to OffsetControls
    int m_iOffsetY = 0;
    bool m_bPreviewMode = false; ///< written by CInspectorController::SetPreviewMode
    bool m_bShowContent = true;

private:
    friend class CInspectorController;
    friend class CInspectorLink<CInspectorView>;
    friend class CViewRows;
    struct sBounds;
    struct sPreview;

    CInspectorController* Controller();
    sInspectorElement* AddNode(int in_iKind, const char* in_strName, sInspectorHolder* in_pHolder,
                               sInspectorElement* in_pParent);
    void CopyRequest(sInspectorHolder* in_pHolder, const sRequestSize* in_pRequest);
    const std::vector<sInspectorHolder*>& Controls();
    template <class Operation> bool ForEachControl(Operation in_operation);
    void LayOutGroup(sInspectorElement& in_group, int& io_iLeft, int& io_iRight, int& io_iY);
    void AddRowHeight(const sInspectorElement& in_row, int& io_iY);
    int LabelWidth(sInspectorElement& in_row);
    void PlaceRow(sInspectorElement& in_row, int in_iLabelColumn);
    void LayOutSingleRow(sInspectorElement& in_row);
    sBounds BoundsInGroup(sInspectorElement& in_row);
    sHolderForGroup MeasureInGroup(sInspectorElement& in_row);
    void LayOutAlignedRows(std::list<sInspectorElement>& in_rows);
    sPreview MeasurePreview();
    void PlacePreview(const sPreview& in_preview);
    void recGatherForPreview(std::list<sInspectorElement>& in_nodes, std::list<sInspectorElement*>& io_units);

    unsigned m_uControlChanges = 0; ///< counts the changes of m_controlHolders and m_allHolders
    unsigned m_uListedAt = 0;       ///< the count when m_controlList was made
    std::vector<sInspectorHolder*> m_controlList;
    CInspectorLink<CInspectorController> m_controllerLink;
    CInspectorAnchor<CInspectorView> m_anchor{this};
};

/// Walks lists front to back.
struct sForwardLeafIterators
{
    typedef std::list<CInspectorView::sInspectorElement>::iterator tElementPosition;
    typedef std::list<CInspectorView::sInspectorHolder*>::iterator tHolderPosition;

    template <class List> static auto Begin(List& in_list) { return in_list.begin(); }
    template <class List> static auto End(List& in_list) { return in_list.end(); }
};

/// Walks lists back to front.
struct sReverseLeafIterators
{
    typedef std::list<CInspectorView::sInspectorElement>::reverse_iterator tElementPosition;
    typedef std::list<CInspectorView::sInspectorHolder*>::reverse_iterator tHolderPosition;

    template <class List> static auto Begin(List& in_list) { return in_list.rbegin(); }
    template <class List> static auto End(List& in_list) { return in_list.rend(); }
};

/// Gives the holders of a tree one by one: every control, in tree order or backwards, depth first. A container without
/// controls is given itself; it has no widget. The tree must not change meanwhile.
/// \tparam Direction sForwardLeafIterators or sReverseLeafIterators
template <class Direction> class CHolderLeafIterator
{
public:
    typedef CInspectorView::sInspectorElement sInspectorElement;
    typedef CInspectorView::sInspectorHolder sInspectorHolder;

    /// A list being walked, or (both lists null) a leaf.
    struct sIteratorItem
    {
        std::list<sInspectorElement>* elementList;
        std::list<sInspectorHolder*>* holderList;
        typename Direction::tElementPosition elementPosition;
        typename Direction::tHolderPosition holderPosition;
        sInspectorHolder* leaf;
    };

    /// Starts on the first leaf under the nodes of `in_root`.
    explicit CHolderLeafIterator(std::list<sInspectorElement>& in_root)
    {
        PushElements(in_root);
        FindNextLeafItem();
    }

    /// Whether all leaves have been given.
    bool IsAtEnd() const { return m_stack.empty(); }

    /// The present leaf; only valid before the end.
    sInspectorHolder* GetLeaf() const { return m_stack.back().leaf; }

    /// The row that the present leaf stands in; only valid before the end.
    const sInspectorElement& GetRow() const
    {
        auto item = m_stack.rbegin();
        while (!item->elementList)
        {
            ++item;
        }
        return *std::prev(item->elementPosition);
    }

    /// Steps on from the present leaf; does nothing at the end.
    void Next()
    {
        if (!IsAtEnd())
        {
            m_stack.pop_back();
            FindNextLeafItem();
        }
    }

    /// Advances until a leaf is on top of the stack or the stack is empty; stays on a leaf that is on top already.
    void FindNextLeafItem()
    {
        while (!m_stack.empty() && (m_stack.back().elementList || m_stack.back().holderList))
        {
            m_stack.back().elementList ? AdvanceElements() : AdvanceHolders();
        }
    }

private:
    void AdvanceElements()
    {
        sIteratorItem& item = m_stack.back();
        if (item.elementPosition == Direction::End(*item.elementList))
        {
            m_stack.pop_back();
            return;
        }
        sInspectorElement& element = *item.elementPosition++;
        if (!element.children.empty())
        {
            PushElements(element.children);
        }
        else if (element.holder)
        {
            PushHolder(element.holder);
        }
    }

    void AdvanceHolders()
    {
        sIteratorItem& item = m_stack.back();
        if (item.holderPosition == Direction::End(*item.holderList))
        {
            m_stack.pop_back();
            return;
        }
        PushHolder(*item.holderPosition++);
    }

    void PushElements(std::list<sInspectorElement>& in_list)
    {
        m_stack.push_back({&in_list, nullptr, Direction::Begin(in_list), {}, nullptr});
    }

    void PushHolder(sInspectorHolder* in_pHolder)
    {
        std::list<sInspectorHolder*>& subHolders = in_pHolder->subHolders;
        if (subHolders.empty())
        {
            m_stack.push_back({nullptr, nullptr, {}, {}, in_pHolder});
        }
        else
        {
            m_stack.push_back({nullptr, &subHolders, {}, Direction::Begin(subHolders), nullptr});
        }
    }

    std::vector<sIteratorItem> m_stack;
};

#endif
