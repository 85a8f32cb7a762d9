#include "kxhost/terminal/exit_codes.h"
#include "kxhost/terminal/interrupt.h"
#include "kxpanel/machine/machine_thread.h"
#include "kxpanel/shell/main_window.h"
#include "kxpanel/shell/qt_options.h"
#include "kxpanel/translations/translations.h"
#include "kxpanel/trend/trend_page.h"
#include "system/printable_text.h"
#include "system/prompt_end.h"
#include "system/standard_streams.h"

#include <QtCore/QSettings>
#include <QtWidgets/QApplication>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <unistd.h>

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
        parseWindowOptions(withoutQtOptions(QCoreApplication::arguments().mid(1)), options);
    if (!result.error.isEmpty())
        *exitCode = complain(result.error, kx::EXIT_WRONG_USAGE);
    else if (!result.showsWindow)
        std::fputs(result.output.toLocal8Bit().constData(), stdout);
    return result.showsWindow;
}

/// What Qt says of a display that it cannot open; the last of it is followed by abort().
void endWithoutDisplay(QtMsgType type, const QMessageLogContext&, const QString&)
{
    if (type == QtFatalMsg)
        _exit(
            complain(QStringLiteral("cannot open a window: no display, or Qt's platform plugin for "
                                    "it is missing; start it in a desktop session, or name the "
                                    "display in DISPLAY or WAYLAND_DISPLAY"),
                     kx::EXIT_CANNOT_OPEN));
}

/// Ends the program when there is no display.
std::unique_ptr<QApplication> openDisplay(int& argc, char** argv)
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    qInstallMessageHandler(endWithoutDisplay);
    auto application = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(nullptr);
    return application;
}

bool isWindowShown = false;
QtMessageHandler saysOfQt = nullptr;

/// Qt ends the program by itself when its display goes away, inside of what it is doing then and
/// with all threads at work.
void endWithDisplay()
{
    if (isWindowShown)
        _exit(complain(QStringLiteral("the display has gone away; the window is closed, and what "
                                      "was not saved is lost"),
                       kx::EXIT_CANNOT_OPEN));
}

/// All but what endWithDisplay() says better.
void sayOfQt(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.startsWith(QLatin1String("The X11 connection broke"))
        && !text.startsWith(QLatin1String("The Wayland connection broke")))
        saysOfQt(type, context, text);
}

/// Who presses Ctrl-C or closes the terminal can be asked; whoever shuts the computer down waits
/// for no answer.
void closeBy(int signal, MainWindow* window)
{
    if (signal != SIGTERM) {
        window->close();
        return;
    }
    window->closeUnasked();
    QApplication::quit(); // whatever question is open
}

/// When all is closed and kept.
struct PromptEnd {
    int exitCode = kx::EXIT_FINE;
    ~PromptEnd() { kx::endSoon(exitCode); }
};

/// Until the window is closed.
int run()
{
    std::atexit(endWithDisplay); // before what Qt has for that time
    saysOfQt = qInstallMessageHandler(sayOfQt);
    isWindowShown = true;
    const int exitCode = QApplication::exec();
    isWindowShown = false;
    return exitCode;
}

int showWindow(int argc, char** argv, const WindowOptions& options)
{
    const std::unique_ptr<QApplication> application = openDisplay(argc, argv);
    QApplication::setDesktopFileName(QStringLiteral("kxpanel"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("kxpanel")));
    QApplication::setOrganizationName(QStringLiteral("kxpanel"));
    QApplication::setApplicationName(QStringLiteral("kxpanel"));
    takeLanguage(QLocale::system());
    PromptEnd end;
    QSettings settings;
    std::vector<PageMaker> pages = pageMakers();
    pages.insert(pages.begin() + 1, makerOf<TrendPage>()); // beside the values
    MachineThread machine;
    MainWindow window(machine.machine(), &settings, pages);
    {
        const kx::Interrupt interrupt; // a second one ends the program at once
        QObject::connect(&interrupt, &kx::Interrupt::interrupted, &window,
                         [&] { closeBy(interrupt.signal(), &window); });
        window.show();
        window.begin(options);
        end.exitCode = run();
    }
    // A line that is slow to close does not keep the first signal from ending it.
    machine.stop(); // before the pages, of which jobs know, go
    return end.exitCode;
}

} // namespace

int main(int argc, char* argv[])
{
    kx::occupyClosedStreams();
    WindowOptions options;
    int exitCode = kx::EXIT_FINE;
    if (!readCommandLine(argc, argv, &options, &exitCode))
        return exitCode;
    return showWindow(argc, argv, options);
}
