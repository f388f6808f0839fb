#include "shapedtexts.h"

#include "inspectorqt.h"

#include <algorithm>

namespace
{
/// Whether QPainter::drawText would draw the text as it stands, in one line. Long ones are not worth their memory.
bool IsPlainLine(const QString& in_strText)
{
    const auto isControl = [](QChar in_char) {
        const QChar::Category eCategory = in_char.category();
        return eCategory == QChar::Other_Control || eCategory == QChar::Separator_Line ||
               eCategory == QChar::Separator_Paragraph;
    };
    return !in_strText.isEmpty() && in_strText.size() <= 200 &&
           std::none_of(in_strText.begin(), in_strText.end(), isControl);
}

/// A new layout of one line, however long.
QTextLayout* Shape(const QString& in_strText, const QFont& in_font)
{
    QTextLayout* pLayout = new QTextLayout(in_strText, in_font);
    QTextOption option;
    option.setTextDirection(Qt::LeftToRight);
    pLayout->setTextOption(option);
    pLayout->setCacheEnabled(true);
    pLayout->beginLayout();
    QTextLine line = pLayout->createLine();
    line.setLineWidth(0x01000000);
    pLayout->endLayout();
    return pLayout;
}
} // namespace

CShapedTexts::CShapedTexts()
{
    connect(qApp, SIGNAL(fontDatabaseChanged()), this, SLOT(Forget()));
}

void CShapedTexts::Forget()
{
    m_layouts.clear();
}

void CShapedTexts::Draw(QPainter& in_painter, const QRect& in_rect, const QString& in_strText)
{
    const bool bMirrored = in_painter.layoutDirection() != Qt::LeftToRight;
    const QTextLayout* pLayout = bMirrored ? nullptr : Layout(in_strText, in_painter.font());
    if (!pLayout)
    {
        in_painter.drawText(in_rect, Qt::AlignLeft | Qt::AlignVCenter, in_strText);
        return;
    }
    const QTextLine line = pLayout->lineAt(0);
    const QRectF rect(in_rect);
    const qreal height = InspectorQt::LineHeight(line);
    const QRectF bounds(rect.x(), rect.y() + (rect.height() - height) / 2, line.naturalTextWidth(), height);
    const bool bClip = !rect.contains(bounds);
    if (bClip)
    {
        in_painter.save();
        in_painter.setClipRect(rect, Qt::IntersectClip);
    }
    pLayout->draw(&in_painter, bounds.topLeft());
    if (bClip)
    {
        in_painter.restore();
    }
}

const QTextLayout* CShapedTexts::Layout(const QString& in_strText, const QFont& in_font)
{
    const QTextLayout* pKnown = m_layouts.object(in_strText);
    if (pKnown && pKnown->font().isCopyOf(in_font))
    {
        return pKnown;
    }
    if (IsPlainLine(in_strText))
    {
        m_layouts.insert(in_strText, Shape(in_strText, in_font));
    }
    return m_layouts.object(in_strText);
}
