#include "kxhost/views/scan_progress.h"

#include "panel/text/counted.h"

namespace kx
{

namespace
{

const int SCAN_BAR_WIDTH = 24; // of 80 columns, beside the longest text of a search
const int MILLISECONDS = 1000;
const int SECONDS = 60; // per minute

QString bar(const ScanProgress& progress)
{
    const int filled = progress.done * SCAN_BAR_WIDTH / progress.total;
    return QStringLiteral("[%1%2]").arg(QString(filled, QLatin1Char('#')),
                                        QString(SCAN_BAR_WIDTH - filled, QLatin1Char('.')));
}

/// ", 44 s left", ", 6 min 29 s left".
QString timeText(const ScanProgress& progress)
{
    if (progress.done == 0 || progress.done == progress.total)
        return QString();
    const qint64 seconds = (timeLeft(progress) + MILLISECONDS - 1) / MILLISECONDS;
    const qint64 minutes = seconds / SECONDS;
    const QString inMinutes = minutes == 0 ? QString() : QStringLiteral("%1 min ").arg(minutes);
    return QStringLiteral(", %1%2 s left").arg(inMinutes, QString::number(seconds % SECONDS));
}

} // namespace

qint64 timeLeft(const ScanProgress& progress)
{
    if (progress.done == 0)
        return 0;
    return progress.milliseconds * (progress.total - progress.done) / progress.done;
}

QString scanBar(const ScanProgress& progress)
{
    return QStringLiteral("%1 %2/%3 stations, %4 answered%5")
        .arg(bar(progress), QString::number(progress.done), QString::number(progress.total),
             QString::number(progress.answered), timeText(progress));
}

QString searchBar(const QString& format, const ScanProgress& progress)
{
    return QStringLiteral("%1 %2 %3/%4, %5 answered%6")
        .arg(bar(progress), format, QString::number(progress.done), QString::number(progress.total),
             QString::number(progress.answered), timeText(progress));
}

QString scanSummary(int answered, int asked, int notAsked)
{
    const QString summary =
        QStringLiteral("%1 of %2 answered")
            .arg(QString::number(answered), counted(asked, "station", "stations"));
    return notAsked == 0 ? summary
                         : QStringLiteral("%1; stopped before the other %2 had been asked")
                               .arg(summary, QString::number(notAsked));
}

} // namespace kx
