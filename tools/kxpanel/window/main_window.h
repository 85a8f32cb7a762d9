#ifndef KX_KXPANEL_WINDOW_MAIN_WINDOW_H
#define KX_KXPANEL_WINDOW_MAIN_WINDOW_H

#include <QtWidgets/QMainWindow>

namespace kxpanel
{

class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();
};

} // namespace kxpanel

#endif
