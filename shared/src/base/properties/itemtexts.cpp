#include "valuetypes.h"

namespace
{
const QChar g_quote = QLatin1Char('"');
const QChar g_backslash = QLatin1Char('\\');

QString Quoted(const QString& in_strItem)
{
    QString strQuoted = in_strItem;
    strQuoted.replace(g_backslash, QLatin1String("\\\\")).replace(g_quote, QLatin1String("\\\""));
    strQuoted.replace(QLatin1Char('\n'), QLatin1String("\\n")).replace(QLatin1Char('\r'), QLatin1String("\\r"));
    strQuoted.replace(QLatin1Char('\t'), QLatin1String("\\t")).replace(QChar(0x2028), QLatin1String("\\l"));
    return g_quote + strQuoted.replace(QChar(0x2029), QLatin1String("\\p")) + g_quote;
}

QChar Unescaped(QChar in_c)
{
    return in_c == QLatin1Char('n')   ? QLatin1Char('\n')
           : in_c == QLatin1Char('r') ? QLatin1Char('\r')
           : in_c == QLatin1Char('t') ? QLatin1Char('\t')
           : in_c == QLatin1Char('l') ? QChar(QChar::LineSeparator)
           : in_c == QLatin1Char('p') ? QChar(QChar::ParagraphSeparator)
                                      : in_c;
}

bool IsMisread(const QString& in_strItem, QChar in_separator)
{
    return in_strItem.isEmpty() || in_strItem.contains(in_separator) || in_strItem.trimmed() != in_strItem ||
           in_strItem.startsWith(g_quote) || InOneLine(in_strItem) != in_strItem;
}

/// Reads from after a quote to after the next; -1 when there is none.
int ReadQuoted(const QString& in_strText, int in_iAt, QString& out_strItem)
{
    for (int i = in_iAt; i < in_strText.size(); ++i)
    {
        const QChar c = in_strText.at(i);
        if (c == g_quote)
        {
            return i + 1;
        }
        const bool bEscape = c == g_backslash && i + 1 < in_strText.size();
        i += bEscape;
        out_strItem += bEscape ? Unescaped(in_strText.at(i)) : c;
    }
    return -1;
}

int SkipSpace(const QString& in_strText, int in_iAt)
{
    while (in_iAt < in_strText.size() && in_strText.at(in_iAt).isSpace() && in_strText.at(in_iAt) != QLatin1Char('\n'))
    {
        ++in_iAt;
    }
    return in_iAt;
}
} // namespace

QString JoinedItems(const QStringList& in_items, QChar in_separator)
{
    QStringList texts;
    for (const QString& strItem : in_items)
    {
        texts << (IsMisread(strItem, in_separator) ? Quoted(strItem) : strItem);
    }
    const bool bLines = in_separator == QLatin1Char('\n');
    return texts.join(bLines ? QString(in_separator) : in_separator + QStringLiteral(" "));
}

bool SplitItems(const QString& in_strText, QChar in_separator, QStringList& out_items)
{
    int iAt = 0;
    while (iAt < in_strText.size())
    {
        const int iStart = SkipSpace(in_strText, iAt);
        const bool bQuoted = iStart < in_strText.size() && in_strText.at(iStart) == g_quote;
        QString strItem;
        const int iItemEnd = bQuoted ? ReadQuoted(in_strText, iStart + 1, strItem) : iStart;
        const int iFound = iItemEnd < 0 ? -1 : int(in_strText.indexOf(in_separator, iItemEnd));
        const int iEnd = iFound < 0 ? int(in_strText.size()) : iFound;
        const QString strRest = iItemEnd < 0 ? QString() : in_strText.mid(iItemEnd, iEnd - iItemEnd).trimmed();
        if (iItemEnd < 0 || (bQuoted && !strRest.isEmpty()))
        {
            return false;
        }
        out_items << (bQuoted ? QStringList(strItem) : strRest.isEmpty() ? QStringList() : QStringList(strRest));
        iAt = iEnd + 1;
    }
    return true;
}
