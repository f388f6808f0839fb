#include "inspectortext.h"
#include "page.h"

#include <QApplication>

namespace
{
/// Lays its rows out again whenever its window is resized.
class CWindow : public CQTInspectorView
{
protected:
    void resizeEvent(QResizeEvent*) override { ResizeInspector(width(), height()); }
};
} // namespace

int main(int argc, char** argv)
{
    InspectorText::UseUtf8();
    QApplication application(argc, argv);
    sShape shape;
    CWindow window;
    CShapePage page(shape, window);
    window.resize(320, 220);
    window.show();
    return application.exec();
}
