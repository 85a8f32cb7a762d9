#include "kxhost/terminal/exit_codes.h"
#include "kxpanel/machine/machine_thread.h"
#include "kxpanel/shell/main_window.h"
#include "kxpanel/translations/translations.h"
#include "kxpanel/trend/trend_page.h"
#include "system/printable_text.h"
#include "system/standard_streams.h"

#include <QtCore/QSettings>
#include <QtWidgets/QApplication>

#include <cstdio>

using namespace kxpanel;

namespace
{

int complain(const QString& message, int exitCode)
{
    const QByteArray line = kx::printableText(QStringLiteral("kxpanel: ") + message).toLocal8Bit();
    std::fprintf(stderr, "%s\n", line.constData());
    return exitCode;
}

/// Without a window, so that it works without a display.
/// @return whether a window is to be shown; else `*exitCode` says how the program ends
bool readCommandLine(int argc, char** argv, WindowOptions* options, int* exitCode)
{
    const QCoreApplication application(argc, argv);
    const CommandLineResult result =
        parseWindowOptions(QCoreApplication::arguments().mid(1), options);
    if (!result.error.isEmpty())
        *exitCode = complain(result.error, kx::EXIT_WRONG_USAGE);
    else if (!result.showsWindow)
        std::fputs(result.output.toLocal8Bit().constData(), stdout);
    return result.showsWindow;
}

bool hasDisplay()
{
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name))
            return true;
    }
    return false;
}

int showWindow(int argc, char** argv, const WindowOptions& options)
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("kxpanel"));
    QApplication::setApplicationName(QStringLiteral("kxpanel"));
    takeLanguage(QLocale::system());
    QSettings settings;
    std::vector<PageMaker> pages = pageMakers();
    pages.insert(pages.begin() + 1, makerOf<TrendPage>()); // beside the values
    const MachineThread machine;
    MainWindow window(machine.machine(), &settings, pages);
    window.show();
    window.begin(options);
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[])
{
    kx::occupyClosedStreams();
    WindowOptions options;
    int exitCode = kx::EXIT_FINE;
    if (!readCommandLine(argc, argv, &options, &exitCode))
        return exitCode;
    if (!hasDisplay())
        return complain(QStringLiteral("no display: DISPLAY and WAYLAND_DISPLAY are not set"),
                        kx::EXIT_CANNOT_OPEN);
    return showWindow(argc, argv, options);
}
