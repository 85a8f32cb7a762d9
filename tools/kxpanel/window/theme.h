#ifndef KX_KXPANEL_WINDOW_THEME_H
#define KX_KXPANEL_WINDOW_THEME_H

#include <QtCore/QString>
#include <QtGui/QPalette>

namespace kxpanel
{

enum class Theme {
    System, ///< as all other programs
    Light,
    Dark
};

/// "system", "light", "dark": as the settings keep it. What is none of them is the system's.
QString themeName(Theme theme);
Theme themeOf(const QString& name);

QPalette lightPalette();
QPalette darkPalette();

/// Paints the program's windows so from now on. The first call must be made before anybody
/// changes the program's style or palette.
void setTheme(Theme theme);

} // namespace kxpanel

#endif
