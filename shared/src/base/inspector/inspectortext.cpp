#include "inspectortext.h"

#include "inspectorqt.h"

namespace
{
bool g_bUtf8 = false;

const QChar g_nulSymbol(0x2400);
} // namespace

void InspectorText::UseUtf8()
{
    g_bUtf8 = true;
}

QString InspectorQt::Text(const char* in_strBytes)
{
    return g_bUtf8 ? QString::fromUtf8(in_strBytes) : FromNarrow(in_strBytes);
}

/// A NUL inside is shown as its symbol: a text that ended there would hide the rest.
QString InspectorQt::Text(const std::string& in_strBytes)
{
    QString strText = Text(in_strBytes.c_str());
    for (std::size_t uEnd = in_strBytes.find('\0'); uEnd != std::string::npos; uEnd = in_strBytes.find('\0', uEnd + 1))
    {
        strText += g_nulSymbol;
        strText += Text(in_strBytes.c_str() + uEnd + 1);
    }
    return strText;
}

std::string InspectorQt::Bytes(const QString& in_strText)
{
    return (g_bUtf8 ? in_strText.toUtf8() : ToNarrow(in_strText)).constData();
}
