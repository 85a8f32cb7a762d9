#include "kxhost/terminal/terminal.h"

#include "kxhost/terminal/console.h"
#include "system/printable_text.h"

#include <QtCore/QtGlobal>

#include <sys/ioctl.h>
#include <unistd.h>

namespace kx
{

namespace
{

const int USUAL_WIDTH = 80;
const int USUAL_HEIGHT = 24;

// Second screen, no cursor, the wheel as arrows; then empty.
const char* const SECOND_SCREEN = "\x1b[?1049h\x1b[?25l\x1b[?1007h\x1b[H\x1b[2J";
const char* const FIRST_SCREEN = "\x1b[?1007l\x1b[?25h\x1b[?1049l";

winsize sizeOfTerminal()
{
    winsize size = {};
    ioctl(STDOUT_FILENO, TIOCGWINSZ, &size);
    return size;
}

} // namespace

Terminal::Terminal()
{
    take();
}

Terminal::~Terminal()
{
    release();
}

void Terminal::take()
{
    const bool hasSettings =
        isStandardInputTerminal() && (m_isTaken || tcgetattr(STDIN_FILENO, &m_before) == 0);
    if (hasSettings) {
        termios keys = m_before;
        keys.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
        keys.c_cc[VMIN] = 1;
        keys.c_cc[VTIME] = 0;
        m_takesKeys = tcsetattr(STDIN_FILENO, TCSANOW, &keys) == 0;
    }
    m_isTaken = true;
    print(QLatin1String(SECOND_SCREEN));
}

void Terminal::release()
{
    if (!m_isTaken)
        return;
    m_isTaken = false;
    print(QLatin1String(FIRST_SCREEN));
    if (m_takesKeys)
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_before);
}

bool Terminal::isUsable()
{
    const QByteArray kind = qgetenv("TERM");
    return isStandardOutputTerminal() && !kind.isEmpty() && kind != "dumb";
}

int Terminal::width() const
{
    const winsize size = sizeOfTerminal();
    return size.ws_col > 0 ? size.ws_col : USUAL_WIDTH;
}

int Terminal::height() const
{
    const winsize size = sizeOfTerminal();
    return size.ws_row > 0 ? size.ws_row : USUAL_HEIGHT;
}

void Terminal::draw(const QStringList& lines)
{
    QStringList printable;
    for (const QString& line : lines)
        printable << printableText(line);
    // To the end of each line, and below the last one, what was there is erased.
    print(QLatin1String("\x1b[H") + printable.join(QLatin1String("\x1b[K\r\n"))
          + QLatin1String("\x1b[K\x1b[J"));
}

} // namespace kx
