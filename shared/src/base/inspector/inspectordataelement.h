#ifndef INSPECTORDATAELEMENT_H
#define INSPECTORDATAELEMENT_H

#include "inspectorexport.h"
#include "inspectorlink.h"

#include <string>

class CInspectorController;
class CInspectorDataWidget;

/// Stands for a size that is not given: no bound in a width request, no width wish of a widget, a view as tall as
/// its content.
constexpr int g_iInspectorNotGiven = -1;

/// One inspected value on the model side. Applications derive from the concrete elements of qtsimpledataelement.h, or
/// from this class for values of their own.
///
/// All calls belong to the user-interface thread. Texts are byte strings.
class INSPECTOR_EXPORT CInspectorDataElement
{
public:
    /// Why editing in place ended.
    enum eEndEditCause
    {
        eEndEditCancel = 0,    ///< Escape; the text reported is the element's
        eEndEditValidate = 1,  ///< Return or Enter
        eEndEditNext = 2,      ///< Tab: editing moves on to the next control
        eEndEditPrevious = 3,  ///< Shift+Tab: editing moves back to the previous control
        eEndEditFocusLost = 4, ///< the editor's window was deactivated, its row went out of sight, a choice was picked
    };

    CInspectorDataElement() = default;

    /// The widget, and every registered item that holds this element, forget it.
    virtual ~CInspectorDataElement();
    CInspectorDataElement(const CInspectorDataElement&) = delete;
    CInspectorDataElement& operator=(const CInspectorDataElement&) = delete;

    /// The identifier of the kind of element, for instance "qt.simple.data". A literal that lives as long as the
    /// program.
    virtual const char* GetType() = 0;

    /// Called by CInspectorController::AddItem: remembers, without owning them, the widget that shows this element
    /// and the controller that registered it. Either may be null.
    virtual void SetDataControl(CInspectorDataWidget* in_pWidget, CInspectorController* in_pController);

    /// Called by a widget without a value (a push button) when the user works it. Does nothing here.
    virtual void OnCtrlValueChange(CInspectorDataWidget* in_pWidget);

    /// Called by the widget, after the value was taken over, when editing in place ends. The causes eEndEditNext and
    /// eEndEditPrevious move the editing to the control after or before `in_pWidget`; others do nothing. Without a
    /// controller nothing happens.
    virtual void OnEndEditing(CInspectorDataWidget* in_pWidget, eEndEditCause in_eCause);

    /// For the application's own elements; the library never calls it.
    virtual void Mute();

    /// For the application's own elements; the library never calls it.
    virtual void Unmute();

    /// Takes the initial value from the application's data. Called by CInspectorController::ConnectDataElements.
    virtual void Connect();

    /// Lets go of the application's data. Called before the controller destroys the element; when that is because it
    /// dies itself, what the application derived from it is gone already, unless that has called ClearAllData.
    virtual void Disconnect();

    /// Makes the widget show the element's present value. Call it after changing the value; does nothing without a
    /// widget.
    virtual void UpdateData();

    /// Whether the user may not change the value: a press on a line or a box does nothing then, and the element does
    /// not take over what its widget reports.
    virtual bool IsReadOnly();

    /// Stores the flag that IsReadOnly answers. Neither notifies anybody nor refreshes the widget.
    virtual void SetReadOnly(bool in_bReadOnly);

    /// The application's hook: called after the user's change was stored in the element. It may rebuild the page,
    /// which destroys this element, as long as the override touches nothing of it afterwards.
    virtual void InternalValueChanged();

protected:
    bool m_bReadOnly = false;
    CInspectorDataWidget* m_pWidget = nullptr;     ///< not owned; null before registration and once it has died
    CInspectorController* m_pController = nullptr; ///< not owned; null before registration and once it has died

private:
    friend class CInspectorController;
    friend class CInspectorDataWidget;
    friend class CInspectorLink<CInspectorDataElement>;

    CInspectorLink<CInspectorDataWidget> m_widgetLink;
    CInspectorLink<CInspectorController> m_controllerLink;
    CInspectorAnchor<CInspectorDataElement> m_anchor{this};
};

/// What shows one data element, on the toolkit side. A concrete widget derives from a toolkit widget first and from
/// this class second.
class INSPECTOR_EXPORT CInspectorDataWidget
{
public:
    /// What changed in a value. The library passes null; an application may derive richer notices for its own
    /// widgets.
    struct sValueChangeInfo
    {};

    /// What changed in the shape of a value. The library never passes one.
    struct sTopoChangeInfo
    {};

    CInspectorDataWidget() = default;

    /// The element, the registered item and the view's holder forget the widget.
    virtual ~CInspectorDataWidget();
    CInspectorDataWidget(const CInspectorDataWidget&) = delete;
    CInspectorDataWidget& operator=(const CInspectorDataWidget&) = delete;

    /// Called by CInspectorController::AddItem: remembers, without owning it, the element to show (null for none).
    virtual void SetDataElement(CInspectorDataElement* in_pElement);

    /// Loads what the control shows from the element, once that is connected.
    virtual void InitFromElement() = 0;

    /// The identifier of the kind of widget, for instance "qt.simple.edit". A literal that lives as long as the
    /// program.
    virtual const char* GetType() = 0;

    /// Opens the widget's editor in place; called when Tab or Shift+Tab reaches the widget. Does nothing here.
    virtual void StartEditing();

    /// The element's value changed: show it. `in_pInfo` may be null and is null whenever the library calls.
    virtual void OnValueChange(sValueChangeInfo* in_pInfo);

    /// For the application's own use; the library never calls it.
    virtual void OnTopoChange(sTopoChangeInfo* in_pInfo);

    /// The width in pixels that the control wants, -1 for no wish.
    virtual int GetRequiredWidth() = 0;

    /// The height in pixels that the control needs in a row `in_iWidth` pixels wide, label included.
    virtual int GetRequiredHeight(int in_iWidth) = 0;

    /// Gives the control its size in pixels. While the content is hidden the size is 0 by 0.
    virtual void ResizeWidget(int in_iWidth, int in_iHeight) = 0;

    /// Places the control, in pixels of the view's content widget. A layout calls it twice: first as if nothing were
    /// scrolled, then with the scroll offset taken off.
    virtual void MoveWidget(int in_iX, int in_iY) = 0;

    /// Shows the control; called when it is added to a view.
    virtual void Show() = 0;

    /// Hides the control. For the application's own use; the library never calls it.
    virtual void Hide() = 0;

protected:
    /// For destructors that still report to the element: from here on the view and the controller no longer know the
    /// widget, so that nothing done in the report can destroy it a second time. The element still reaches it.
    void ReleaseOwners();

    CInspectorDataElement* m_pElement = nullptr; ///< not owned; null before registration and once it has died

private:
    friend class CInspectorController;
    friend class CInspectorLink<CInspectorDataWidget>;

    CInspectorLink<CInspectorDataElement> m_elementLink;
    CInspectorAnchor<CInspectorDataWidget> m_anchor{this};
};

/// Whoever can give a value as text: string-valued elements to their widgets, and widgets to their elements.
class INSPECTOR_EXPORT ISimpleDataProvider
{
public:
    virtual ~ISimpleDataProvider();

    /// Replaces `out_strValue` by the present value.
    virtual void GetDataAsString(std::string& out_strValue) = 0;
};

/// Whoever is told the outcome by a shared in-place editor.
class INSPECTOR_EXPORT IInPlaceEditSink
{
public:
    virtual ~IInPlaceEditSink();

    /// Editing ended. `in_strText` is the final text, NUL-terminated, never null, and valid during the call only.
    virtual void FinishValueEdit(const char* in_strText, CInspectorDataElement::eEndEditCause in_eCause) = 0;
};

#endif
