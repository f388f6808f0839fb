/// How a page shows that a value is modified, resets it, and undoes by keys.
/// \file

#include "propertyarea.h"
#include "propertyundo.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

bool CPropertyArea::CanResetCurrent()
{
    const tItemPtr pItem = Current();
    return pItem && m_rows.Compares() && isEnabled() && m_rows.CanReset(pItem->property);
}

bool CPropertyArea::ResetCurrent()
{
    const QPointer<CPropertyArea> self(this);
    TakeOver();
    const bool bReset = self && CanResetCurrent() && self;
    const tItemPtr pItem = bReset ? Current() : nullptr;
    return pItem && m_rows.Reset(pItem->property);
}

int CPropertyArea::ResetWidth(const sPropertyItem& in_item) const
{
    return in_item.modified ? in_item.height : 0;
}

QRect CPropertyArea::ResetRect(const sPropertyItem& in_item) const
{
    const int iWidth = ResetWidth(in_item);
    return Mirrored(QRect(RowWidth() - iWidth, in_item.top - m_iOffsetY, iWidth, in_item.height));
}

/// An arrow that goes back in a circle.
void CPropertyArea::PaintReset(QPainter& in_painter, const sPropertyItem& in_item)
{
    const QPointF centre = QRectF(ResetRect(in_item)).center();
    const qreal radius = in_item.height * 0.24;
    const qreal head = in_item.height * 0.16;
    const QPointF tip = centre - QPointF(radius, 0);
    QPainterPath circle(tip);
    circle.arcTo(QRectF(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius), 180, -290);
    QPainterPath arrow(tip + QPointF(-head, -head * 0.3));
    arrow.lineTo(tip + QPointF(head, -head * 0.3));
    arrow.lineTo(tip + QPointF(0, head));
    in_painter.save();
    in_painter.setRenderHint(QPainter::Antialiasing);
    in_painter.strokePath(circle, QPen(MutedColour(), in_item.height / 14.0));
    in_painter.fillPath(arrow, MutedColour());
    in_painter.restore();
}

/// The font of a row's label: bold when its value is modified.
QFont CPropertyArea::LabelFont(const sPropertyItem& in_item) const
{
    QFont own = font();
    own.setBold(in_item.modified || own.bold());
    return own;
}

bool CPropertyArea::UndoKey(const QKeyEvent& in_event) const
{
    return m_rows.Undo().IsOwn() && (in_event.matches(QKeySequence::Undo) || in_event.matches(QKeySequence::Redo));
}

void CPropertyArea::UndoOrRedo(const QKeyEvent& in_event)
{
    const QPointer<CPropertyArea> self(this);
    const bool bUndo = in_event.matches(QKeySequence::Undo);
    TakeOver();
    QUndoStack* pStack = self ? m_rows.Undo().Stack() : nullptr;
    if (pStack)
    {
        bUndo ? pStack->undo() : pStack->redo();
    }
}
