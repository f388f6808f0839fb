#ifndef DATAWIDGETTOOLS_H
#define DATAWIDGETTOOLS_H

/// What the data widgets have in common. Private to the library.
/// \file

#include "inplacekeeper.h"
#include "inspectorqt.h"
#include "qtsimpledataelement.h"

#include <QPainter>

#include <string>

namespace InspectorWidgets
{
enum
{
    eRowHeight = 20, ///< the height of every one-line control, and the side of the bool's box
    eTextHeight = 100,
    eTextIndent = 3, ///< from a control's left edge to its text
    eCrossInset = 7, ///< from the box's edges to the ends of the cross
    eLeftCentred = Qt::AlignLeft | Qt::AlignVCenter,
};

inline QColor Colour(const QWidget* in_pWidget, QPalette::ColorRole in_eRole)
{
    return in_pWidget->palette().brush(QPalette::Current, in_eRole).color();
}

/// Qt takes its time for a move to where the widget is already, of which a layout has two for every row.
inline void MoveTo(QWidget* in_pWidget, int in_iX, int in_iY)
{
    if (in_pWidget->pos() != QPoint(in_iX, in_iY))
    {
        in_pWidget->move(in_iX, in_iY);
    }
}

/// Where a value's text is painted. Mirrored, a rectangle keeps its place but the text begins at its other end.
inline QRect TextRect(const QWidget* in_pWidget, const QPainter& in_painter)
{
    const int iIndent = in_painter.layoutDirection() == Qt::RightToLeft ? -eTextIndent : eTextIndent;
    return in_pWidget->rect().translated(iIndent, 0);
}

/// What an element gives as text; false, and nothing changed, when it gives none.
inline bool ReadText(ISimpleDataProvider* in_pProvider, std::string& out_strBytes, QString& out_strText)
{
    if (!in_pProvider)
    {
        return false;
    }
    in_pProvider->GetDataAsString(out_strBytes);
    out_strText = InspectorQt::Text(out_strBytes);
    return true;
}

/// The bytes of a text on display: those that were loaded as long as it shows them, so that what the conversion cannot
/// carry over is not lost by looking at it.
inline std::string BytesOf(const QString& in_strText, const std::string& in_strLoaded)
{
    const std::string strBytes = InspectorQt::Bytes(in_strText);
    return strBytes == InspectorQt::Bytes(InspectorQt::Text(in_strLoaded)) ? in_strLoaded : strBytes;
}

/// Lets the element (may be null) take over what its widget holds, then tells it why editing ended. Taking over may
/// destroy either.
inline void ReportEnd(CInspectorDataWidget* in_pWidget, CSimpleDataElement* in_pElement,
                      CInspectorDataElement::eEndEditCause in_eCause)
{
    const CInspectorWatch<CInspectorDataWidget> widget(in_pWidget);
    const CInspectorWatch<CInspectorDataElement> element(in_pElement);
    if (in_pElement)
    {
        in_pElement->OnCtrlValueChange();
    }
    if (widget && element)
    {
        element->OnEndEditing(widget.Get(), in_eCause);
    }
}
} // namespace InspectorWidgets

#endif
