#ifndef REPORT_H
#define REPORT_H

#include "measuring.h"

#include <QString>

namespace Report
{
/// The tables of a run in Markdown, under a heading that names the version of Qt.
QString Text(const tResults& in_results, const sPlan& in_plan);

/// Writes a text of Report::Text to a file, in place of the part for the same major version of Qt if it has one; the
/// rest of the file stays.
bool Write(const QString& in_strText, const QString& in_strFile);
} // namespace Report

#endif
