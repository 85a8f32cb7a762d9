#include "kxpanel/window/main_window.h"

#include <QtWidgets/QApplication>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    kxpanel::MainWindow window;
    window.show();
    return QApplication::exec();
}
