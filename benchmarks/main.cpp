#include "measuring.h"
#include "report.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFont>
#include <QLoggingCategory>

#include <cstdio>

namespace
{
void Declare(QCommandLineParser& io_parser)
{
    const auto option = [&io_parser](const char* in_strName, const char* in_strText, const char* in_strValue,
                                     const char* in_strDefault) {
        io_parser.addOption(QCommandLineOption(QString::fromLatin1(in_strName), QString::fromLatin1(in_strText),
                                               QString::fromLatin1(in_strValue), QString::fromLatin1(in_strDefault)));
    };
    option("sizes", "Rows per page.", "numbers", "10,100,1000,10000");
    option("repetitions", "Repetitions of every case.", "number", "15");
    option("case", "Runs this case only (after building the page).", "name", "");
    option("subject", "Runs this subject only.", "name", "");
    option("once", "Runs one case of one subject at the first size, for a profiler; see instructions.sh.", "", "");
    option("write", "Puts the results into a Markdown file.", "file", "");
    io_parser.addHelpOption();
}

sPlan PlanOf(const QCommandLineParser& in_parser)
{
    sPlan plan;
    const QStringList sizes = in_parser.value(QStringLiteral("sizes")).split(QLatin1Char(','));
    for (const QString& strSize : sizes)
    {
        plan.sizes.push_back(strSize.toInt());
    }
    plan.iRepetitions = in_parser.value(QStringLiteral("repetitions")).toInt();
    plan.strCase = in_parser.value(QStringLiteral("case")).toStdString();
    plan.strSubject = in_parser.value(QStringLiteral("subject")).toStdString();
    return plan;
}

int Measure(const sPlan& in_plan, const QString& in_strFile)
{
    const QString strText = Report::Text(Measuring::Run(in_plan), in_plan);
    std::fputs(strText.toUtf8().constData(), stdout);
    return in_strFile.isEmpty() || Report::Write(strText, in_strFile) ? 0 : 1;
}
} // namespace

int main(int in_iCount, char** in_pArguments)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // The offscreen platform warns of everything that it cannot do to a window.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    QApplication application(in_iCount, in_pArguments);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QFont font = QApplication::font();
    font.setPixelSize(13);
    QApplication::setFont(font);
    QCommandLineParser parser;
    Declare(parser);
    parser.process(application);
    const sPlan plan = PlanOf(parser);
    if (parser.isSet(QStringLiteral("once")))
    {
        return Measuring::RunOnce(plan) ? 0 : 1;
    }
    return Measure(plan, parser.value(QStringLiteral("write")));
}
