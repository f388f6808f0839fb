/// How the rows are painted.
/// \file

#include "propertyaccessible.h"
#include "propertyarea.h"
#include "propertyedit.h"
#include "propertytype.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace
{
const int g_iPadding = 4; ///< between a value's edge and its text
const QString g_strDiffer = QString(QChar(0x2014));
} // namespace

/// Reads a row again if that is due, and tells the editor that is open on it.
void CPropertyArea::Load(sPropertyItem& io_item)
{
    if (!io_item.stale)
    {
        return;
    }
    const QPointer<CPropertyArea> self(this);
    const tItemPtr pItem = io_item.shared_from_this();
    const QString strBefore = pItem->text;
    pItem->Load(m_pItemEditors.get());
    const bool bModified = self && m_rows.IsModified(pItem->property);
    const bool bOther = pItem->modified != bModified;
    pItem->modified = bModified;
    if (self && bOther)
    {
        UpdateRow(*pItem); // its label has another font, and its value another width
    }
    if (self && pItem->text != strBefore)
    {
        PropertyAccessible::TellValue(*this, *pItem);
    }
    if (self && m_pEdit && m_pEdit->Item() == pItem)
    {
        bOther ? m_pEdit->Place() : void(); // beside the button
        m_pEdit->Follow();
    }
}

/// Values are read when they are about to be seen, and before anything is painted: what reading does to the page is
/// then painted at once.
void CPropertyArea::LoadInSight(const QRect& in_exposed)
{
    const QPointer<CPropertyArea> self(this);
    const int iEnd = in_exposed.bottom() + m_iOffsetY;
    int iY = in_exposed.top() + m_iOffsetY;
    while (self && iY <= iEnd)
    {
        const auto it = FirstBelow(iY);
        if (it == m_shown.end())
        {
            return;
        }
        iY = (*it)->top + (*it)->height;
        Load(**it);
    }
}

void CPropertyArea::paintEvent(QPaintEvent* in_pEvent)
{
    const QRect exposed = in_pEvent->rect();
    OnPreDraw();
    ReadForFilter();
    LoadInSight(exposed);
    EnsureLayout();
    QPainter painter(this);
    const auto last = m_shown.cend();
    for (auto it = FirstBelow(exposed.top() + m_iOffsetY); it != last && (*it)->top - m_iOffsetY <= exposed.bottom();
         ++it)
    {
        PaintItem(painter, **it, exposed);
    }
    m_shown.empty() && m_filter.IsOn() && !m_rows.Items().empty() ? PaintNothingFound(painter) : void();
}

/// Why a page that has rows shows none: the user may have forgotten the filter, or it is from the last run.
void CPropertyArea::PaintNothingFound(QPainter& in_painter)
{
    const QString strWhy = m_filter.IsOnlyModified() ? tr("No modified value") : tr("Nothing found");
    in_painter.setPen(MutedColour());
    in_painter.drawText(rect().adjusted(0, m_iRowHeight, 0, 0), Qt::AlignHCenter | Qt::TextWordWrap, strWhy);
}

void CPropertyArea::PaintItem(QPainter& in_painter, const sPropertyItem& in_item, const QRect& in_exposed)
{
    if (in_item.kind == sPropertyItem::eGroup)
    {
        PaintTitle(in_painter, in_item, in_exposed);
        return;
    }
    const bool bCurrent = m_current.lock().get() == &in_item;
    if (bCurrent)
    {
        PaintCurrent(in_painter, in_item);
    }
    if (in_item.kind == sPropertyItem::eCommand)
    {
        PaintCommand(in_painter, in_item);
    }
    else if (in_exposed.intersects(LabelRect(in_item)))
    {
        const QPalette::ColorRole eRole = bCurrent ? QPalette::HighlightedText : QPalette::Text;
        in_item.modified ? in_painter.setFont(LabelFont(in_item)) : void();
        PaintText(in_painter, LabelRect(in_item), in_item.Label(), TextColour(eRole));
        in_item.modified ? in_painter.setFont(font()) : void();
    }
    if (in_item.kind == sPropertyItem::eProperty)
    {
        PaintValue(in_painter, in_item);
        in_item.modified ? PaintReset(in_painter, in_item) : void();
    }
    PaintGrid(in_painter, in_item);
}

/// A line under the row and one between label and value.
void CPropertyArea::PaintGrid(QPainter& in_painter, const sPropertyItem& in_item)
{
    const QRect row = RowRect(in_item);
    const QRect value = ValueRect(in_item);
    const int iBorder = layoutDirection() == Qt::RightToLeft ? value.right() + 1 : value.left() - 1;
    in_painter.fillRect(row.left(), row.bottom(), row.width(), 1, m_gridColour);
    in_painter.fillRect(iBorder, row.top(), 1, row.height(), m_gridColour);
}

/// The current row has a highlighted label, and in a page with the focus a frame round the value (the part) that the
/// keyboard works.
void CPropertyArea::PaintCurrent(QPainter& in_painter, const sPropertyItem& in_item)
{
    const QRect value = ValueRect(in_item);
    const QRect row = RowRect(in_item);
    const bool bRightToLeft = layoutDirection() == Qt::RightToLeft;
    const QRect label = bRightToLeft ? QRect(QPoint(value.right() + 2, row.top()), row.bottomRight())
                                     : QRect(row.topLeft(), QPoint(value.left() - 2, row.bottom()));
    in_painter.fillRect(label,
                        palette().color(IsActive() ? QPalette::Active : QPalette::Inactive, QPalette::Highlight));
    if (hasFocus())
    {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = PartRect(in_item, m_iPart);
        option.backgroundColor = palette().color(QPalette::Base);
        option.state |= QStyle::State_KeyboardFocusChange;
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &in_painter, this);
    }
}

void CPropertyArea::UpdateRow(const sPropertyItem& in_item, bool in_bOnlyValue)
{
    if (in_item.height > 0 && !m_bLayoutDue)
    {
        update(in_bOnlyValue ? ValueRect(in_item) : RowRect(in_item));
    }
}

void CPropertyArea::UpdateCurrent()
{
    const tItemPtr pItem = Current();
    if (pItem)
    {
        UpdateRow(*pItem);
    }
}

void CPropertyArea::PaintTitle(QPainter& in_painter, const sPropertyItem& in_item, const QRect& in_exposed)
{
    const bool bCurrent = m_current.lock().get() == &in_item;
    const QPalette::ColorGroup eColours = IsActive() ? QPalette::Active : QPalette::Inactive;
    const QColor text = TextColour(bCurrent ? QPalette::HighlightedText : QPalette::ButtonText);
    const QRect title = LabelRect(in_item);
    const QRect arrow =
        QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter, QSize(m_iIndent, m_iIndent), title);
    in_painter.fillRect(RowRect(in_item), palette().color(eColours, bCurrent ? QPalette::Highlight : QPalette::Button));
    if (in_exposed.intersects(arrow))
    {
        PaintArrow(in_painter, arrow, in_item.IsExpanded(), text);
    }
    const int iArrow = m_iIndent + g_iPadding;
    const bool bRightToLeft = layoutDirection() == Qt::RightToLeft;
    QFont bold = font();
    bold.setBold(true);
    in_painter.setFont(bold);
    PaintText(in_painter, title.adjusted(bRightToLeft ? 0 : iArrow, 0, bRightToLeft ? -iArrow : 0, 0), in_item.label,
              text);
    in_painter.setFont(font());
}

void CPropertyArea::PaintArrow(QPainter& in_painter, const QRect& in_rect, bool in_bExpanded, const QColor& in_colour)
{
    QStyleOption option;
    option.initFrom(this);
    option.rect = in_rect;
    option.palette.setColor(QPalette::ButtonText, in_colour);
    const QStyle::PrimitiveElement eFolded =
        layoutDirection() == Qt::RightToLeft ? QStyle::PE_IndicatorArrowLeft : QStyle::PE_IndicatorArrowRight;
    style()->drawPrimitive(in_bExpanded ? QStyle::PE_IndicatorArrowDown : eFolded, &option, &in_painter, this);
}

void CPropertyArea::PaintValue(QPainter& in_painter, const sPropertyItem& in_item)
{
    const int iParts = in_item.value.isValid() ? in_item.type->Parts() : 0; // else whose value it was is gone
    const bool bNamed = HasRoomForNames(in_item);
    for (int iPart = 0; iPart < iParts; ++iPart)
    {
        const bool bEdited = m_pEdit && m_pEdit->Item().get() == &in_item && m_pEdit->Part() == iPart;
        bEdited ? void() : PaintPart(in_painter, in_item, iPart, bNamed);
    }
}

void CPropertyArea::PaintPart(QPainter& in_painter, const sPropertyItem& in_item, int in_iPart, bool in_bNamed)
{
    const CPropertyType& type = *in_item.type;
    QRect rect = PartRect(in_item, in_iPart).adjusted(g_iPadding, 0, -g_iPadding, -1);
    if (type.Work() == CPropertyType::eToggle)
    {
        PaintBox(in_painter, in_item, rect);
        return;
    }
    const QSize size(m_iRowHeight - 8, m_iRowHeight - 8);
    const QIcon icon = in_item.mixed ? QIcon() : type.Decoration(in_item.value, size);
    const bool bRightToLeft = layoutDirection() == Qt::RightToLeft;
    if (!icon.isNull())
    {
        icon.paint(&in_painter, QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter, size, rect));
        const int iIcon = size.width() + g_iPadding;
        rect.adjust(bRightToLeft ? 0 : iIcon, 0, bRightToLeft ? -iIcon : 0, 0);
    }
    const bool bLink = type.Work() == CPropertyType::eLink;
    const bool bShown = in_item.property->IsReadOnly() || type.Work() == CPropertyType::eShown;
    PaintText(in_painter, rect, in_bNamed ? NamedPart(in_item, in_iPart) : PartText(in_item, in_iPart),
              bLink    ? TextColour(QPalette::Link)
              : bShown ? MutedColour()
                       : TextColour(QPalette::Text));
}

/// What a value's part shows; of several objects that differ, a dash.
QString CPropertyArea::PartText(const sPropertyItem& in_item, int in_iPart) const
{
    const CPropertyType& type = *in_item.type;
    if (type.Parts() == 1)
    {
        return in_item.mixed ? g_strDiffer : in_item.text;
    }
    const QVariant part = type.Part(in_item.value, in_iPart);
    return in_item.IsMixed(in_iPart) ? g_strDiffer : type.PartType(in_iPart).Shown(in_item.property->Format(), part);
}

QString CPropertyArea::NamedPart(const sPropertyItem& in_item, int in_iPart) const
{
    return in_item.type->PartLabel(in_iPart) + QLatin1Char(' ') + PartText(in_item, in_iPart);
}

/// Whether there is room for the names of a value's parts, for all or for none.
bool CPropertyArea::HasRoomForNames(const sPropertyItem& in_item) const
{
    bool bRoom = in_item.type->Parts() > 1;
    for (int i = 0; bRoom && i < in_item.type->Parts(); ++i)
    {
        const int iWidth = fontMetrics().horizontalAdvance(NamedPart(in_item, i));
        bRoom = iWidth <= PartRect(in_item, i).width() - 2 * g_iPadding;
    }
    return bRoom;
}

void CPropertyArea::PaintBox(QPainter& in_painter, const sPropertyItem& in_item, const QRect& in_rect)
{
    QStyleOptionButton option;
    option.initFrom(this);
    option.state &= ~QStyle::State_HasFocus;
    option.state.setFlag(QStyle::State_Enabled, isEnabled() && !in_item.property->IsReadOnly());
    const QStyle::StateFlag eState = in_item.value.toBool() ? QStyle::State_On : QStyle::State_Off;
    option.state |= in_item.mixed ? QStyle::State_NoChange : eState;
    const QPixmap& box = Box(option);
    const QSize size = box.size() / box.devicePixelRatio();
    in_painter.drawPixmap(
        QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter, size, in_rect).topLeft(), box);
}

/// A box drawn by the style, which takes its time, is kept until the look is another.
const QPixmap& CPropertyArea::Box(QStyleOptionButton& io_option)
{
    QPixmap& box = m_boxes[int(io_option.state)];
    if (box.isNull() || box.devicePixelRatio() != devicePixelRatioF())
    {
        io_option.rect = QRect(0, 0, style()->pixelMetric(QStyle::PM_IndicatorWidth, &io_option, this),
                               style()->pixelMetric(QStyle::PM_IndicatorHeight, &io_option, this));
        box = QPixmap(io_option.rect.size() * devicePixelRatioF());
        box.setDevicePixelRatio(devicePixelRatioF());
        box.fill(Qt::transparent);
        QPainter painter(&box);
        style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &io_option, &painter, this);
    }
    return box;
}

void CPropertyArea::PaintCommand(QPainter& in_painter, const sPropertyItem& in_item)
{
    QStyleOptionButton option;
    option.initFrom(this);
    option.rect = ValueRect(in_item).adjusted(1, 1, -1, -2);
    option.text = in_item.label;
    option.state &= ~QStyle::State_HasFocus;
    option.state |= m_pressed.lock().get() == &in_item ? QStyle::State_Sunken : QStyle::State_Raised;
    style()->drawControl(QStyle::CE_PushButton, &option, &in_painter, this);
}

QColor CPropertyArea::TextColour(QPalette::ColorRole in_eRole) const
{
    const QPalette::ColorGroup eColours =
        IsActive() || in_eRole != QPalette::HighlightedText ? QPalette::Active : QPalette::Inactive;
    return palette().color(isEnabled() ? eColours : QPalette::Disabled, in_eRole);
}

/// Of what can only be looked at. Still to be read with ease, unlike disabled texts of most styles.
QColor CPropertyArea::MutedColour() const
{
    const QColor text = TextColour(QPalette::Text);
    const QColor base = palette().color(QPalette::Base);
    const auto mix = [](int in_iA, int in_iB) { return (in_iA * 2 + in_iB) / 3; };
    return QColor(mix(text.red(), base.red()), mix(text.green(), base.green()), mix(text.blue(), base.blue()));
}

/// One line, cut with an ellipsis where it does not fit, in which what the filter looks for is marked.
void CPropertyArea::PaintText(QPainter& in_painter, const QRect& in_rect, const QString& in_strText,
                              const QColor& in_colour)
{
    if (in_strText.isEmpty())
    {
        return;
    }
    const QTextLayout& text = m_texts.Line(in_strText, in_painter.font(), in_rect.width());
    const QTextLine line = text.lineAt(0);
    const qreal height = line.ascent() + line.descent();
    const qreal free = layoutDirection() == Qt::RightToLeft ? in_rect.width() - line.naturalTextWidth() : 0;
    const QPointF origin(in_rect.left() + free, in_rect.top() + (in_rect.height() - height) / 2);
    for (const auto& mark : m_filter.Marks(text.text()))
    {
        const qreal begin = line.cursorToX(mark.first);
        const QRectF place(begin, 0, line.cursorToX(mark.second) - begin, height);
        in_painter.fillRect(place.normalized().translated(origin), MarkColour(in_colour));
    }
    in_painter.setPen(in_colour);
    text.draw(&in_painter, origin);
}

/// Behind what the filter found, in a text of the colour given.
QColor CPropertyArea::MarkColour(const QColor& in_text) const
{
    QColor mark = palette().color(QPalette::Highlight);
    mark = in_text == TextColour(QPalette::HighlightedText) ? in_text : mark;
    mark.setAlpha(100);
    return mark;
}

bool CPropertyArea::IsCut(const sHit& in_hit) const
{
    const sPropertyItem& item = *in_hit.item;
    const bool bValue = in_hit.zone == sHit::eValue && item.kind == sPropertyItem::eProperty;
    if (bValue && item.type->Parts() > 1)
    {
        return !HasRoomForNames(item);
    }
    const QRect rect = bValue ? PartRect(item, 0).adjusted(g_iPadding, 0, -g_iPadding, 0) : LabelRect(item);
    return QFontMetricsF(bValue ? font() : LabelFont(item)).horizontalAdvance(WholeText(in_hit)) > rect.width();
}

/// What a label or a value shows where there is room enough.
QString CPropertyArea::WholeText(const sHit& in_hit) const
{
    const sPropertyItem& item = *in_hit.item;
    const bool bValue = in_hit.zone == sHit::eValue && item.kind == sPropertyItem::eProperty;
    const int iParts = bValue ? item.type->Parts() : 0;
    QStringList parts;
    for (int i = 0; iParts > 1 && i < iParts; ++i)
    {
        parts << NamedPart(item, i);
    }
    const QString strOne = bValue ? PartText(item, 0) : item.Label();
    return iParts > 1 ? parts.join(QStringLiteral(", ")) : strOne;
}
