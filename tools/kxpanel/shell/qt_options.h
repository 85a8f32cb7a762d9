#ifndef KX_KXPANEL_SHELL_QT_OPTIONS_H
#define KX_KXPANEL_SHELL_QT_OPTIONS_H

#include <QtCore/QStringList>

namespace kxpanel
{

/// What is left of a command line when Qt has taken its own options, such as -platform or -style,
/// which QApplication does by itself; this works without a display.
/// @param arguments without the program's name
QStringList withoutQtOptions(const QStringList& arguments);

} // namespace kxpanel

#endif
