#include "propertyview.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    std::string name = "Desk lamp";
    int brightness = 40;
    bool lit = true;

    CPropertyView view;
    CPropertyGroup lamp = view.Page().AddGroup("Lamp");
    lamp.Add("Name", name);
    lamp.Add("Brightness", brightness).Range(0, 100).Suffix(" %").Tip("How bright it is");
    lamp.Add("Lit", lit);
    lamp.AddCommand("Off", [&] { lit = false; });
    view.show();
    return application.exec();
}
