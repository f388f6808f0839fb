#include "propertyview.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    double dWidth = 2.5;
    CPropertyView view;
    view.ShowObject(&application);
    view.Page().AddGroup(QStringLiteral("Size")).Add(QStringLiteral("Width"), dWidth).Range(0.0, 10.0);
    view.show();
    return application.exec();
}
