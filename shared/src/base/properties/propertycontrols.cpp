/// Widgets of the application's own among the rows, and controls of the first library.
/// \file

#include "propertycontrols.h"

#include "propertyarea.h"
#include "propertyedit.h"

#include <algorithm>

CPropertyControls::CPropertyControls(CPropertyArea& in_area) : m_area(in_area)
{
    m_pView = &in_area;
    in_area.m_pController = this;
}

void CPropertyControls::Adopt(CInspectorDataWidget& io_control, CInspectorDataElement* in_pElement)
{
    AddItem(in_pElement, &io_control, nullptr);
    m_pView->AddElement(in_pElement, &io_control, nullptr, nullptr, nullptr);
    in_pElement->Connect();
    io_control.InitFromElement();
}

void CPropertyControls::GiveFocusToNextElement(CInspectorDataWidget* in_pWidget)
{
    m_area.LeaveControl(in_pWidget, true);
}

void CPropertyControls::GiveFocusToPrevElement(CInspectorDataWidget* in_pWidget)
{
    m_area.LeaveControl(in_pWidget, false);
}

/// The application's widgets and the open editor; the rows themselves need no word.
void CPropertyArea::PlaceWidgets()
{
    const tItems widgets = m_widgets; // what a widget does when it is moved may change the page
    for (const tItemPtr& pItem : widgets)
    {
        pItem->widget ? AdoptWidget(*pItem) : void();
    }
    if (Editor())
    {
        m_pEdit->Place();
    }
}

void CPropertyArea::AdoptWidget(sPropertyItem& in_item)
{
    QWidget& widget = *in_item.widget;
    const QRect rect = in_item.label.isEmpty() ? RowRect(in_item) : ValueRect(in_item);
    if (in_item.element)
    {
        m_pControls->Adopt(*in_item.control, in_item.element.release());
    }
    else if (widget.parentWidget() != m_pContentWidget)
    {
        widget.setParent(m_pContentWidget);
    }
    if (sInspectorHolder* pHolder = GetHolderFromControl(in_item.control))
    {
        pHolder->x = rect.x();
        pHolder->y = in_item.top;
        pHolder->width = rect.width();
        pHolder->height = in_item.height;
    }
    widget.setGeometry(rect);
    widget.setVisible(in_item.height > 0);
}

/// Tab in the editor of a control of the first library: goes on from its row.
void CPropertyArea::LeaveControl(CInspectorDataWidget* in_pControl, bool in_bForward)
{
    const auto isIts = [in_pControl](const tItemPtr& in_pItem) { return in_pItem->control == in_pControl; };
    const auto it = std::find_if(m_widgets.begin(), m_widgets.end(), isIts);
    if (it != m_widgets.end())
    {
        const QPointer<CPropertyArea> self(this);
        SetCurrent(tItemPtr(*it));
        self ? Leave(in_bForward) : void();
    }
}

void CPropertyArea::WorkWidget(const sPropertyItem& in_item)
{
    if (in_item.widget && in_item.control)
    {
        in_item.control->StartEditing();
    }
    else if (in_item.widget)
    {
        in_item.widget->setFocus(Qt::OtherFocusReason);
    }
}
