#include "linetexts.h"

#include <QFontMetrics>

namespace
{
const int g_iLong = 200; ///< letters, of which a text is cut before it is shaped
const qreal g_unlimited = 0x01000000;
} // namespace

CLineTexts::sLine::sLine(const QString& in_strText, const QFont& in_font, int in_iWidth)
{
    layout.setFont(in_font);
    layout.setCacheEnabled(true);
    in_strText.size() > g_iLong ? void() : Shape(in_strText);
    if (in_strText.size() > g_iLong || layout.lineAt(0).naturalTextWidth() > in_iWidth)
    {
        cutTo = in_iWidth;
        Shape(QFontMetrics(in_font).elidedText(in_strText, Qt::ElideRight, in_iWidth));
    }
}

void CLineTexts::sLine::Shape(const QString& in_strText)
{
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    // A text reads in the direction of what it says, as in an editor: a unit stands after its number.
    option.setTextDirection(in_strText.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    layout.setTextOption(option);
    layout.setText(in_strText);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(g_unlimited);
    layout.endLayout();
}

bool CLineTexts::sLine::Is(const QFont& in_font, int in_iWidth) const
{
    const bool bWide = cutTo < 0 ? layout.lineAt(0).naturalTextWidth() <= in_iWidth : cutTo == in_iWidth;
    return bWide && layout.font() == in_font;
}

const QTextLayout& CLineTexts::Line(const QString& in_strText, const QFont& in_font, int in_iWidth)
{
    sLine* pLine = m_lines.object(in_strText);
    if (!pLine || !pLine->Is(in_font, in_iWidth))
    {
        const QString strLine = QString(in_strText).replace(QLatin1Char('\n'), QLatin1Char(' '));
        pLine = new sLine(strLine, in_font, in_iWidth);
        m_lines.insert(in_strText, pLine);
    }
    return pLine->layout;
}
