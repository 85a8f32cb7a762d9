#include "kxhost/views/scan_progress.h"

#include "panel/text/counted.h"

namespace kx
{

namespace
{

const int BAR_WIDTH = 40;

} // namespace

QString scanBar(int done, int stations, int answered)
{
    const int filled = done * BAR_WIDTH / stations;
    return QStringLiteral("[%1%2] %3/%4 stations, %5 answered")
        .arg(QString(filled, QLatin1Char('#')), QString(BAR_WIDTH - filled, QLatin1Char('.')),
             QString::number(done), QString::number(stations), QString::number(answered));
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
