#include "kxpanel/window/main_window.h"

namespace kxpanel
{

MainWindow::MainWindow()
{
    setWindowTitle(QStringLiteral("kxpanel"));
}

} // namespace kxpanel
