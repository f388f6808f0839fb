#include "report.h"

#include <QFile>
#include <QRegularExpression>
#include <QSysInfo>
#include <QTextStream>

#include <algorithm>

namespace
{
const QString g_strNone = QStringLiteral("–");

double Median(tSamples in_samples)
{
    std::sort(in_samples.begin(), in_samples.end());
    const std::size_t uHalf = in_samples.size() / 2;
    return in_samples.size() % 2 ? in_samples[uHalf] : (in_samples[uHalf - 1] + in_samples[uHalf]) / 2;
}

const tSamples* Find(const tSizeResults& in_results, const std::string& in_strCase, const std::string& in_strSubject)
{
    const auto itCase = in_results.find(in_strCase);
    if (itCase == in_results.end())
    {
        return nullptr;
    }
    const auto itSubject = itCase->second.find(in_strSubject);
    return itSubject == itCase->second.end() ? nullptr : &itSubject->second;
}

QString Number(double in_number)
{
    return QString::number(in_number, 'f', in_number < 10 ? 2 : in_number < 100 ? 1 : 0);
}

/// The median of the ratios that each repetition has by itself.
QString Ratio(const tSamples& in_samples, const tSamples* in_pReference)
{
    if (!in_pReference)
    {
        return QString();
    }
    tSamples ratios;
    for (std::size_t i = 0; i < std::min(in_samples.size(), in_pReference->size()); ++i)
    {
        ratios.push_back(in_samples[i] / (*in_pReference)[i]);
    }
    return QStringLiteral(" (%1)").arg(QString::number(Median(ratios), 'f', 3));
}

QString Row(const tSizeResults& in_results, const std::string& in_strCase)
{
    QString strRow = QStringLiteral("| %1 |").arg(QString::fromStdString(in_strCase));
    const tSamples* pReference = Find(in_results, in_strCase, Measuring::g_strReference);
    for (const std::string& strSubject : Measuring::SubjectNames())
    {
        const tSamples* pSamples = Find(in_results, in_strCase, strSubject);
        const QString strRatio = pSamples && pSamples != pReference ? Ratio(*pSamples, pReference) : QString();
        strRow += QStringLiteral(" %1%2 |").arg(pSamples ? Number(Median(*pSamples)) : g_strNone, strRatio);
    }
    return strRow + QLatin1Char('\n');
}

/// The heads of the columns: the case and the subjects.
QString Head()
{
    QString strHead = QStringLiteral("\n| |");
    QString strRule = QStringLiteral("\n|---|");
    for (const std::string& strSubject : Measuring::SubjectNames())
    {
        strHead += QStringLiteral(" %1 |").arg(QString::fromStdString(strSubject));
        strRule += QStringLiteral("---:|");
    }
    return strHead + strRule + QLatin1Char('\n');
}

QString GrowthRow(const tSizeResults& in_small, const tSizeResults& in_large, const std::string& in_strCase)
{
    QString strRow = QStringLiteral("| %1 |").arg(QString::fromStdString(in_strCase));
    for (const std::string& strSubject : Measuring::SubjectNames())
    {
        const tSamples* pSmall = Find(in_small, in_strCase, strSubject);
        const tSamples* pLarge = Find(in_large, in_strCase, strSubject);
        strRow += QStringLiteral(" %1 |").arg(pSmall && pLarge ? Number(Median(*pLarge) / Median(*pSmall)) : g_strNone);
    }
    return strRow + QLatin1Char('\n');
}

QString Growth(const tResults& in_results)
{
    const auto itSmall = in_results.find(1000);
    const auto itLarge = in_results.find(10000);
    if (itSmall == in_results.end() || itLarge == in_results.end())
    {
        return QString();
    }
    QString strText = QStringLiteral("\n### Growth from 1000 to 10000 rows, times\n") + Head();
    for (const std::string& strCase : Measuring::CaseNames())
    {
        strText += GrowthRow(itSmall->second, itLarge->second, strCase);
    }
    return strText;
}

QString Machine()
{
    QFile file(QStringLiteral("/proc/cpuinfo"));
    file.open(QIODevice::ReadOnly);
    const QRegularExpression model(QStringLiteral("model name\\s*:\\s*(.*)"));
    const QRegularExpressionMatch match = model.match(QString::fromLatin1(file.readAll()));
    return match.hasMatch() ? match.captured(1) : QSysInfo::currentCpuArchitecture();
}
} // namespace

QString Report::Text(const tResults& in_results, const sPlan& in_plan)
{
    QString strText =
        QStringLiteral("## Qt %1\n\n%2, %3. Medians of processor time, and of the ratios within each repetition.\n")
            .arg(QString::fromLatin1(qVersion()), Machine(), QSysInfo::prettyProductName());
    for (const auto& size : in_results)
    {
        strText += QStringLiteral("\n### %1 rows, %2 repetitions, µs, heap in bytes per row (ratio to %3)\n")
                       .arg(size.first)
                       .arg(in_plan.iRepetitions)
                       .arg(QString::fromLatin1(Measuring::g_strReference));
        strText += Head();
        for (const std::string& strCase : Measuring::CaseNames())
        {
            strText += Row(size.second, strCase);
        }
    }
    return strText + Growth(in_results);
}

bool Report::Write(const QString& in_strText, const QString& in_strFile)
{
    QFile file(in_strFile);
    QString strContent;
    if (file.open(QIODevice::ReadOnly))
    {
        strContent = QString::fromUtf8(file.readAll());
        file.close();
    }
    const QString strHeading = in_strText.left(in_strText.indexOf(QLatin1Char('.')));
    const int iBegin = static_cast<int>(strContent.indexOf(strHeading));
    int iEnd = static_cast<int>(strContent.indexOf(QStringLiteral("\n## "), iBegin + 1));
    iEnd = iEnd < 0 ? static_cast<int>(strContent.size()) : iEnd;
    if (iBegin < 0)
    {
        strContent += (strContent.isEmpty() ? QString() : QStringLiteral("\n")) + in_strText;
    }
    else
    {
        strContent.replace(iBegin, iEnd - iBegin, in_strText);
    }
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(strContent.toUtf8()) >= 0;
}
