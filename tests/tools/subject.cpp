/// A program to be inspected: subject WHAT, which it does as soon as the inspector is there.
/// exit: ends with 7; kill: kills itself; child: prints what a program that it starts has in its environment;
/// nothing: runs until its window is closed.
/// \file

#include <QtWidgets>

#include <csignal>

namespace
{
bool IsInspected()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget* in_pWindow) {
        return in_pWindow->isVisible() && in_pWindow->windowTitle().startsWith(QLatin1String("Inspector of"));
    });
}

void Do(const QString& in_strWhat)
{
    if (in_strWhat == QLatin1String("exit"))
    {
        QCoreApplication::exit(7);
    }
    else if (in_strWhat == QLatin1String("kill"))
    {
        std::raise(SIGTERM);
    }
    else if (in_strWhat == QLatin1String("child"))
    {
        QCoreApplication::exit(QProcess::execute(QStringLiteral("env"), QStringList()));
    }
}
} // namespace

int main(int in_iCount, char** in_pArguments)
{
    QApplication application(in_iCount, in_pArguments);
    QWidget window;
    QVBoxLayout layout(&window);
    layout.addWidget(new QCheckBox(QStringLiteral("A box")));
    layout.addWidget(new QSlider);
    window.show();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (IsInspected())
        {
            timer.stop();
            Do(application.arguments().value(1));
        }
    });
    timer.start(0);
    return application.exec();
}
