#ifndef INSPECTORCONTROLLER_H
#define INSPECTORCONTROLLER_H

#include "inspectordataelement.h"

#include <list>
#include <map>
#include <vector>

class CInspectorView;

/// Owns every inspected value with its element, its widget and the application's own data; gathers notices of change
/// and hands them to the application before the next paint; moves the editing from control to control.
///
/// The application derives from it, sets `m_pView` to the view and the view's `m_pController` to the controller. To
/// build a page: AddItem each pair and add it to the view, then ConnectDataElements, then lay the view out. To build
/// another: ClearAllData, and start again. All calls belong to the user-interface thread.
class INSPECTOR_EXPORT CInspectorController
{
public:
    /// The application's own data of an item; derive from it.
    class INSPECTOR_EXPORT IControllerData
    {
    public:
        virtual ~IControllerData();
    };

    /// The application's notice of what became dirty; derive from it.
    class INSPECTOR_EXPORT IDirtyControllerDataInfo
    {
    public:
        virtual ~IDirtyControllerDataInfo();
    };

    /// One registered value. Owns the three it points at; `element` and `widget` are null once they have died, `data`
    /// is the item's alone to delete.
    struct INSPECTOR_EXPORT sInspectorControllerData
    {
        /// Takes over element and widget, but does not link them to each other.
        explicit sInspectorControllerData(CInspectorDataElement* in_pElement = nullptr,
                                          CInspectorDataWidget* in_pWidget = nullptr);
        ~sInspectorControllerData();
        sInspectorControllerData(const sInspectorControllerData&) = delete;
        sInspectorControllerData& operator=(const sInspectorControllerData&) = delete;

        IControllerData* data = nullptr;
        CInspectorDataElement* element = nullptr;
        CInspectorDataWidget* widget = nullptr;

    private:
        friend class CInspectorController;
        friend class CInspectorLink<sInspectorControllerData>;

        void DeleteOwned();

        unsigned m_uConnectPass = 0; ///< the last pass of ConnectDataElements that met the item
        bool m_bLeaving = false;     ///< being disconnected: whoever does that destroys it
        bool m_bListed = true;       ///< false once off the list; destruction may come later
        CInspectorLink<CInspectorDataElement> m_elementLink;
        CInspectorLink<CInspectorDataWidget> m_widgetLink;
        CInspectorAnchor<sInspectorControllerData> m_anchor{this};
    };

    CInspectorController() = default;

    /// Clears all data; a view wired to this controller forgets it. The derived controller is gone by then: when an
    /// element's Disconnect or the destructor of an item's data uses it, call ClearAllData in its own destructor.
    virtual ~CInspectorController();
    CInspectorController(const CInspectorController&) = delete;
    CInspectorController& operator=(const CInspectorController&) = delete;

    /// The application's own operation; the library never calls it.
    virtual void ApplicationHook1() = 0;

    /// Registers a value and takes over all three: links element, widget and controller to each other. Neither
    /// connects the element nor adds to the view. `in_pElement` and `in_pWidget` must not be null, `in_pData` may be.
    virtual void AddItem(CInspectorDataElement* in_pElement, CInspectorDataWidget* in_pWidget,
                         IControllerData* in_pData);

    /// Disconnects and destroys the item first registered with this element, its element, widget and data, and its
    /// pending notices unhandled. An unknown element is ignored. The view keeps an empty place until it is rebuilt.
    virtual void RemoveItem(CInspectorDataElement* in_pElement);

    /// Lets every element take its initial value and every widget show it, in the order of registration.
    virtual void ConnectDataElements();

    /// Moves the editing to the control after `in_pWidget` in the view, from the last to the first: scrolls it into
    /// view and calls its StartEditing. Nothing is skipped: read-only values are reached, and at a control that does
    /// not edit in place the editing ends. Does nothing when the widget is null or not in the view.
    virtual void GiveFocusToNextElement(CInspectorDataWidget* in_pWidget);

    /// As GiveFocusToNextElement, backwards.
    virtual void GiveFocusToPrevElement(CInspectorDataWidget* in_pWidget);

    /// The application's own operation; the library never calls it.
    virtual void ApplicationHook2() = 0;

    /// Tells the application's tree-building code whether to put a group round the whole content; the library never
    /// asks. True here.
    virtual bool WantGroupAroundRoot();

    /// Runs a command; called by a button's element. `in_strName` is valid during the call only. Does nothing here.
    virtual void CallCommand(const char* in_strName, unsigned long in_ulArgument);

    /// Stores the flag here and in the view, and neither lays out nor repaints: call the view's RecomputeLayout after
    /// it.
    virtual void SetPreviewMode(bool in_bPreview);

    /// The flag that SetPreviewMode stored last, false at first.
    virtual bool IsPreviewMode();

    /// The application handles one notice of an item; `in_pInfo` is null for an item that is dirty without one. The
    /// notice is deleted afterwards. May change, remove and add items.
    virtual void HandleDirtyItem(sInspectorControllerData* in_pItem, IDirtyControllerDataInfo* in_pInfo) = 0;

    /// The application handles the notices of the controller as a whole, in the order queued; entries may be null.
    /// What it leaves in the vector is deleted afterwards, what it takes out is its own.
    virtual void HandleDirtyController(std::vector<IDirtyControllerDataInfo*>& in_infos) = 0;

    /// Disconnects and destroys every item, deletes all notices unhandled and empties the view.
    void ClearAllData();

    /// Hands all queued notices to the application and deletes them, the controller's first. The view calls it before
    /// each paint, where a handler must not throw. Elsewhere an exception reaches the caller, and all notices that are
    /// still queued are deleted. A call from inside a handler returns at once: the pass under way goes on.
    void HandleDirtyItems();

    /// Queues a notice (null: dirty without saying how) for a registered item, takes it over, and asks the view for a
    /// repaint. A notice queued while HandleDirtyItems runs is handled in the same pass if its turn is yet to come,
    /// and otherwise deleted unhandled.
    void DirtifyItem(sInspectorControllerData* in_pItem, IDirtyControllerDataInfo* in_pInfo);

    /// Queues a notice (may be null) for the controller as a whole, takes it over, and asks the view for a repaint. A
    /// notice queued from inside HandleDirtyController is deleted unhandled.
    void DirtifyController(IDirtyControllerDataInfo* in_pInfo);

protected:
    /// The view; not owned. Null until the derived controller sets it, and again once the view has died.
    CInspectorView* m_pView = nullptr;
    bool m_bPreviewMode = false;
    std::list<sInspectorControllerData*> m_items; ///< in the order of registration; owned
    std::map<sInspectorControllerData*, std::vector<IDirtyControllerDataInfo*>> m_dirtyItems;
    std::vector<IDirtyControllerDataInfo*> m_dirtyController;

private:
    friend class CInspectorView;
    friend class CInspectorLink<CInspectorController>;
    typedef CInspectorWatch<CInspectorController> tSelf;
    struct sPass;

    CInspectorView* View();
    void DirtyView();
    void Dismiss(sInspectorControllerData* in_pItem);
    void Unlist(sInspectorControllerData* in_pItem);
    void DropNotices(sInspectorControllerData* in_pItem);
    void DropAllItemNotices();
    void DropControllerNotices(std::size_t in_uFirst);
    void HandleControllerNotices(const tSelf& in_self);
    void HandleItemNotices(const tSelf& in_self);
    void HandleNoticesOf(sInspectorControllerData* in_pItem, const tSelf& in_self);
    template <class Direction> void GiveFocusToNeighbour(CInspectorDataWidget* in_pWidget);

    unsigned m_uConnectPass = 0;
    bool m_bHandling = false; ///< HandleDirtyItems is running
    CInspectorLink<CInspectorView> m_viewLink;
    CInspectorAnchor<CInspectorController> m_anchor{this};
};

#endif
