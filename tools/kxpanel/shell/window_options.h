#ifndef KX_KXPANEL_SHELL_WINDOW_OPTIONS_H
#define KX_KXPANEL_SHELL_WINDOW_OPTIONS_H

#include "kxhost/options/connection_options.h"

#include <QtCore/QStringList>

namespace kxpanel
{

/// How the window is to begin.
struct WindowOptions {
    kx::ConnectionOptions connection;
    bool connects = false; ///< a line was named
    QString file;          ///< a project, or tags when it ends in .csv; empty: none
};

/// What to do with a command line.
struct CommandLineResult {
    bool showsWindow = false;
    QString output; ///< for standard output: the help or the version
    QString error;  ///< one line; not empty: wrong usage
};

/// @param arguments without the program's name
CommandLineResult parseWindowOptions(const QStringList& arguments, WindowOptions* options);

} // namespace kxpanel

#endif
