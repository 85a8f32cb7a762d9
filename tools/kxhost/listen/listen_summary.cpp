#include "kxhost/listen/listen_summary.h"

#include "kxhost/views/aligned_rows.h"
#include "listen/heard_text.h"
#include "panel/text/counted.h"

#include <QtCore/QJsonArray>

namespace kx
{

namespace
{

const double MICROSECONDS_PER_SECOND = 1e6;

double loadOf(const ListenSummary& summary)
{
    const auto busy = static_cast<double>(summary.timing.transmissionTime(summary.counts.bytes));
    return summary.elapsed > 0 ? busy / static_cast<double>(summary.elapsed) : 0;
}

QString heardText(const ListenSummary& summary)
{
    return QStringLiteral("%1 s, %2, %3, line load %4 %")
        .arg(
            QString::number(static_cast<double>(summary.elapsed) / MICROSECONDS_PER_SECOND, 'f', 1),
            counted(summary.counts.bytes, "byte", "bytes"),
            counted(summary.counts.frames, "frame", "frames"),
            QString::number(100 * loadOf(summary), 'f', 1));
}

QStringList timesOf(const ResponseTimes& times)
{
    if (times.count == 0)
        return {QString(), QString(), QString()};
    return {millisecondsText(times.shortest), millisecondsText(times.mean()),
            millisecondsText(times.longest)};
}

QStringList stationRows(const QMap<int, StationCounts>& stations)
{
    if (stations.isEmpty())
        return QStringList();
    QList<QStringList> rows = {QString(QLatin1String("STATION REQUESTS ANSWERED REFUSED NO-REPLY "
                                                     "DAMAGED BYTE-COUNT MIN-MS MEAN-MS MAX-MS"))
                                   .split(QLatin1Char(' '))};
    for (auto it = stations.begin(); it != stations.end(); ++it) {
        QStringList row;
        const StationCounts& counts = it.value();
        for (const qint64 count :
             {qint64(it.key()), counts.requests, counts.answered, counts.refused, counts.unanswered,
              counts.damaged, counts.unfitting})
            row << QString::number(count);
        rows << row + timesOf(counts.responses);
    }
    return alignedRows(rows, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
}

QString gapText(const GapCounts& gaps)
{
    QString tooShort = QString::number(gaps.tooShort);
    if (gaps.tooShort > 0)
        tooShort += QStringLiteral(" (down to %1 ms)").arg(millisecondsText(gaps.shortest));
    return QStringLiteral("kept %1, too short %2, unclear %3")
        .arg(QString::number(gaps.kept), tooShort, QString::number(gaps.unclear));
}

QStringList gapRows(const ListenSummary& summary)
{
    const LineCounts& counts = summary.counts;
    QStringList rows = {
        QStringLiteral("gap of %1 ms before requests: %2")
            .arg(QString::number(static_cast<double>(summary.timing.frameGap()) / 1000, 'f', 2),
                 gapText(counts.gaps))};
    for (auto it = counts.stations.begin(); it != counts.stations.end(); ++it) {
        if (it.value().gaps.tooShort > 0)
            rows << QStringLiteral("gap before replies of station %1: %2")
                        .arg(QString::number(it.key()), gapText(it.value().gaps));
    }
    return rows;
}

qint64 openRequests(const LineCounts& counts)
{
    qint64 open = 0;
    for (const StationCounts& station : counts.stations)
        open += station.open;
    return open;
}

/// What belongs to nothing; no row on a sound line.
QStringList restRows(const LineCounts& counts)
{
    QStringList rest;
    if (counts.broadcasts > 0)
        rest << counted(counts.broadcasts, "broadcast", "broadcasts");
    if (counts.strays > 0)
        rest << counted(counts.strays, "reply without its request",
                        "replies without their requests");
    if (counts.noise > 0)
        rest << counted(counts.noise, "byte in no frame", "bytes in no frame");
    if (openRequests(counts) > 0)
        rest << QStringLiteral("1 request still open at the end");
    return rest.isEmpty()
               ? QStringList()
               : QStringList(QLatin1String("besides: ") + rest.join(QLatin1String(", ")));
}

QJsonObject gapJson(const GapCounts& gaps)
{
    QJsonObject json{{QStringLiteral("kept"), gaps.kept},
                     {QStringLiteral("tooShort"), gaps.tooShort},
                     {QStringLiteral("unclear"), gaps.unclear}};
    if (gaps.tooShort > 0)
        json[QStringLiteral("shortestUs")] = gaps.shortest;
    return json;
}

QJsonObject stationJson(int number, const StationCounts& counts)
{
    QJsonObject json{{QStringLiteral("station"), number},
                     {QStringLiteral("requests"), counts.requests},
                     {QStringLiteral("answered"), counts.answered},
                     {QStringLiteral("refused"), counts.refused},
                     {QStringLiteral("noReply"), counts.unanswered},
                     {QStringLiteral("damaged"), counts.damaged},
                     {QStringLiteral("byteCount"), counts.unfitting},
                     {QStringLiteral("open"), counts.open},
                     {QStringLiteral("gaps"), gapJson(counts.gaps)}};
    if (counts.responses.count > 0)
        json[QStringLiteral("responseUs")] =
            QJsonObject{{QStringLiteral("min"), counts.responses.shortest},
                        {QStringLiteral("mean"), counts.responses.mean()},
                        {QStringLiteral("max"), counts.responses.longest}};
    return json;
}

} // namespace

QStringList listenRows(const ListenSummary& summary)
{
    return QStringList(heardText(summary)) + stationRows(summary.counts.stations) + gapRows(summary)
           + restRows(summary.counts);
}

QJsonObject listenJson(const ListenSummary& summary)
{
    const LineCounts& counts = summary.counts;
    QJsonArray stations;
    for (auto it = counts.stations.begin(); it != counts.stations.end(); ++it)
        stations << stationJson(it.key(), it.value());
    return {{QStringLiteral("event"), QStringLiteral("summary")},
            {QStringLiteral("milliseconds"), summary.elapsed / 1000},
            {QStringLiteral("bytes"), counts.bytes},
            {QStringLiteral("frames"), counts.frames},
            {QStringLiteral("lineLoad"), loadOf(summary)},
            {QStringLiteral("stations"), stations},
            {QStringLiteral("frameGapUs"), summary.timing.frameGap()},
            {QStringLiteral("requestGaps"), gapJson(counts.gaps)},
            {QStringLiteral("broadcasts"), counts.broadcasts},
            {QStringLiteral("strayReplies"), counts.strays},
            {QStringLiteral("noise"), counts.noise}};
}

} // namespace kx
