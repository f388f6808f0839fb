#ifndef INSPECTORTEXT_H
#define INSPECTORTEXT_H

#include "inspectorexport.h"

/// How the texts of elements, which are bytes, become text of Qt.
namespace InspectorText
{
/// Makes all texts of the process UTF-8: labels, titles, values, display texts, captions and the message. Call it once,
/// before the first widget is made. Without it they are Latin-1, on Qt 4 what QTextCodec::setCodecForCStrings says.
INSPECTOR_EXPORT void UseUtf8();
} // namespace InspectorText

#endif
