/// How the inspector comes into a program: as a plug-in that Qt loads when the program makes its application object.
/// Unlike a preloaded library it comes into no other process, always fits the program's Qt, and its symbols are seen by
/// nobody.
/// \file

#include "probe.h"

#include <QApplication>
#include <QGenericPlugin>

#include <unistd.h>

namespace
{
/// Takes the launcher's entry out of a list in a variable, so that what the program starts is not inspected.
void RemoveEntry(const char* in_strVariable, char in_cSeparator, bool (*in_isOurs)(const QByteArray&))
{
    QList<QByteArray> entries = qgetenv(in_strVariable).split(in_cSeparator);
    entries.erase(std::remove_if(entries.begin(), entries.end(), in_isOurs), entries.end());
    entries.isEmpty() ? qunsetenv(in_strVariable) : qputenv(in_strVariable, entries.join(in_cSeparator));
}

void RestoreEnvironment()
{
    RemoveEntry("QT_QPA_GENERIC_PLUGINS", ',', [](const QByteArray& in_strEntry) { return in_strEntry == "inspect"; });
    RemoveEntry("QT_PLUGIN_PATH", ':', [](const QByteArray& in_strEntry) {
        return QByteArray(getenv("INSPECT_PLUGINS")).split(':').contains(in_strEntry);
    });
    qunsetenv("INSPECT_PLUGINS");
}

/// Tells the launcher that the inspector is here.
void Report()
{
    bool bNumber = false;
    const int iReport = qEnvironmentVariableIntValue("INSPECT_REPORT", &bNumber);
    if (bNumber && write(iReport, "+", 1) == 1)
    {
        close(iReport);
    }
    qunsetenv("INSPECT_REPORT");
}
} // namespace

class CInspectPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "inspect.json")

public:
    QObject* create(const QString&, const QString&) override
    {
        RestoreEnvironment();
        Report();
        if (qobject_cast<QApplication*>(QCoreApplication::instance()))
        {
            return new CProbe;
        }
        fputs("inspect: the program has no Qt Widgets, and only those can be inspected\n", stderr);
        return new QObject;
    }
};

#include "plugin.moc"
