#include "inspectortext.h"
#include "mainwindow.h"
#include "pictures.h"
#include "qtcompat.h"

#include <QStringList>

#include <cstdio>

int main(int argc, char** argv)
{
    InspectorText::UseUtf8();
    QtCompat::EnableHighDpiScaling();
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() == 1)
    {
        QApplication::setOrganizationName(QLatin1String("Inspector"));
        CMainWindow window;
        window.KeepState();
        window.show();
        return application.exec();
    }
    const bool bDark = arguments.last() == QLatin1String("--dark");
    if (arguments.size() == (bDark ? 4 : 3) && arguments.at(1) == QLatin1String("--pictures"))
    {
        return WritePictures(arguments.at(2), bDark) ? 0 : 1;
    }
    std::fputs("usage: liveobjects [--pictures DIRECTORY [--dark]]\n", stderr);
    return 2;
}
