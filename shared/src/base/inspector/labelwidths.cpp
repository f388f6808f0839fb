#include "labelwidths.h"

#include "inspectorqt.h"

#include <QFontMetrics>

namespace
{
const int g_iMost = 50000; ///< more labels than this are no page but ever new names
const QChar g_lengthSeparator(0x9c);
} // namespace

CLabelWidths::CLabelWidths()
{
    connect(qApp, SIGNAL(fontDatabaseChanged()), this, SLOT(Forget()));
}

void CLabelWidths::Forget()
{
    m_present.clear();
    m_before.clear();
}

int CLabelWidths::WidthOf(const QString& in_strLabel, const QFont& in_font, const QRect& in_rect)
{
    if (!in_font.isCopyOf(m_font))
    {
        Forget();
        m_font = in_font;
    }
    const QHash<QString, int>::const_iterator known = m_present.constFind(in_strLabel);
    if (known != m_present.constEnd())
    {
        return known.value();
    }
    const QHash<QString, int>::const_iterator before = m_before.constFind(in_strLabel);
    const int iFlags = Qt::AlignLeft | Qt::AlignVCenter;
    const int iWidth = before != m_before.constEnd()
                           ? before.value()
                           : QFontMetrics(in_font).boundingRect(in_rect, iFlags, in_strLabel).width();
    if (m_present.size() >= g_iMost)
    {
        StartPage();
    }
    if (!in_strLabel.contains(g_lengthSeparator))
    {
        m_present.insert(in_strLabel, iWidth);
    }
    return iWidth;
}

void CLabelWidths::StartPage()
{
    m_before.swap(m_present);
    m_present.clear();
}
