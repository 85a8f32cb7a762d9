#ifndef KX_KXPANEL_SHELL_WINDOW_MENUS_H
#define KX_KXPANEL_SHELL_WINDOW_MENUS_H

#include "kxpanel/window/theme.h"

#include <QtCore/QObject>

class QAction;
class QMenu;
class QSettings;

namespace kxpanel
{

class MainWindow;
class ProjectKeeper;

/// The window's menus. What is edited belongs to the page that is shown, and so do the actions of
/// "Edit".
class WindowMenus : public QObject
{
    Q_OBJECT

public:
    /// @param window owns it, and has all else already
    /// @param settings keep the theme
    WindowMenus(MainWindow* window, ProjectKeeper* project, QSettings* settings);

    /// The page that is shown is another.
    void showPageActions();

private:
    QAction* add(QMenu* menu, const QString& text, const QKeySequence& shortcut,
                 const QString& tip);
    void makeFileMenu();
    void makeLineMenu();
    void makeEditMenu();
    void makeViewMenu();
    void makeThemeMenu(QMenu* view);
    void makeHelpMenu();
    void showRecentFiles();
    void chooseTheme(Theme theme);
    void showAbout();

    MainWindow* m_window;
    ProjectKeeper* m_project;
    QSettings* m_settings;
    QMenu* m_recent = nullptr;
    QMenu* m_edit = nullptr;
};

} // namespace kxpanel

#endif
