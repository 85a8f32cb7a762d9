#include "kxhost/views/watch/watch_screen.h"

#include "kxhost/views/watch/watch_table.h"
#include "panel/text/summary_text.h"

namespace kx
{

namespace
{

const int LINES_ABOVE = 2;
const int HEADING = 1;
const int LINES_BELOW = 2;

} // namespace

QString lineSettingsText(const LineTiming& timing, QChar parity)
{
    if (timing.baud <= 0)
        return QString();
    return QStringLiteral("%1 %2%3%4")
        .arg(timing.baud)
        .arg(timing.dataBits)
        .arg(parity)
        .arg(timing.stopBits);
}

int linesForEntries(int height, bool takesKeys)
{
    return height - LINES_ABOVE - HEADING - (takesKeys ? LINES_BELOW : 0);
}

QStringList screenRows(const WatchScreen& screen, int width, int height)
{
    const QString mark = screen.fault.isEmpty()
                             ? QString()
                             : QLatin1String("! ") + screen.fault + QLatin1String("  ");
    QStringList lines = {mark + screen.line + QLatin1String("  ") + speedText(screen.summary),
                         summaryRows(screen.summary).first()};
    lines += tableRows(screen.entries, screen.longestName, screen.now, width);
    if (!screen.position.isEmpty())
        lines << screen.position;
    if (screen.takesKeys)
        lines << screen.message << screen.prompt;
    // A terminal too low for all keeps the prompt.
    while (lines.size() > qMax(0, height))
        lines.removeFirst();
    for (QString& line : lines)
        line = cutRow(line, width);
    return lines;
}

} // namespace kx
