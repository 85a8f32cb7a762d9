#include "panel/text/summary_text.h"

#include "panel/text/counted.h"
#include "system/translated_text.h"

namespace kx
{

namespace
{

struct NamedCount {
    qint64 count;
    const char* one;
    const char* many;
};

NamedCount named(qint64 count, const char* text)
{
    return {count, text, text};
}

/// "3 with no reply, 1 refused by the station"; counts of 0 are left out.
QString listText(const QList<NamedCount>& counts)
{
    QStringList texts;
    for (const NamedCount& named : counts) {
        if (named.count > 0)
            texts << counted(named.count, named.one, named.many);
    }
    return texts.join(QLatin1String(", "));
}

void addLine(const char* title, const QList<NamedCount>& counts, QStringList* lines)
{
    const QString list = listText(counts);
    if (!list.isEmpty())
        *lines << QLatin1String(title) + list;
}

/// What went wrong on the line; nothing on a sound one.
QStringList faultLines(const Statistics& counts)
{
    const BadReplies& bad = counts.bad;
    const ThrownAway& thrown = counts.thrownAway;
    QStringList lines;
    addLine("repeated or failed: ",
            {named(bad.none, "without a reply"), named(bad.incomplete, "cut short"),
             named(bad.damaged, "damaged"), named(bad.byteCounts, "with a wrong byte count"),
             named(bad.exceptions, "refused by the station"),
             named(bad.foreign, "answered by replies of other requests only"),
             named(bad.lost, "cut off by the loss of the line"), named(bad.broadcasts, "broadcast"),
             named(bad.ignored, "ignored by the driver"),
             named(bad.neverSilent, "kept back by a line that was never silent")},
            &lines);
    addLine("thrown away: ",
            {{thrown.foreign, "reply of another request", "replies of other requests"},
             {thrown.late, "late reply", "late replies"},
             {thrown.duplicates, "duplicate", "duplicates"},
             {thrown.echoes, "echo", "echoes"},
             {thrown.bytes, "byte in no frame", "bytes in no frame"}},
            &lines);
    addLine("line: ",
            {{counts.heldBack, "request held back until a late reply could come no more",
              "requests held back until a late reply could come no more"},
             {counts.reopened, "time opened again", "times opened again"}},
            &lines);
    return lines;
}

QString decimal(double value)
{
    return QString::number(value, 'f', 1);
}

double requestsPerSecond(const WatchSummary& summary)
{
    return summary.statistics.requestsPerSecond(summary.timing, summary.elapsed);
}

double loadPercent(const WatchSummary& summary)
{
    return 100 * summary.statistics.lineLoad(summary.timing, summary.elapsed);
}

QJsonObject badRepliesJson(const BadReplies& bad)
{
    return {{QLatin1String("none"), bad.none},
            {QLatin1String("short"), bad.incomplete},
            {QLatin1String("damaged"), bad.damaged},
            {QLatin1String("byteCount"), bad.byteCounts},
            {QLatin1String("refused"), bad.exceptions},
            {QLatin1String("foreign"), bad.foreign},
            {QLatin1String("lineLost"), bad.lost},
            {QLatin1String("broadcast"), bad.broadcasts},
            {QLatin1String("ignored"), bad.ignored},
            {QLatin1String("neverSilent"), bad.neverSilent}};
}

QJsonObject thrownAwayJson(const ThrownAway& thrown)
{
    return {{QLatin1String("foreign"), thrown.foreign},
            {QLatin1String("late"), thrown.late},
            {QLatin1String("duplicates"), thrown.duplicates},
            {QLatin1String("echoes"), thrown.echoes},
            {QLatin1String("bytes"), thrown.bytes}};
}

} // namespace

QString speedText(const WatchSummary& summary)
{
    const QString requests = decimal(requestsPerSecond(summary));
    if (summary.timing.baud <= 0)
        return Text::tr("%1 requests/s").arg(requests);
    return Text::tr("%1 requests/s, line load %2 %").arg(requests, decimal(loadPercent(summary)));
}

QStringList summaryRows(const WatchSummary& summary)
{
    const Statistics& counts = summary.statistics;
    QString requests = QStringLiteral("%1 in %2: %3 accepted, %4 repeated, %5 failed")
                           .arg(counted(counts.requests, "request", "requests"),
                                counted(summary.cycles, "cycle", "cycles"))
                           .arg(counts.accepted)
                           .arg(counts.repeated)
                           .arg(counts.failed);
    if (summary.missed > 0)
        requests += QStringLiteral("; %1").arg(
            counted(summary.missed, "interval missed", "intervals missed"));
    if (counts.notSent > 0)
        requests += QStringLiteral("; %1 not whole, so not sent").arg(counts.notSent);
    const QString time = QStringLiteral("%1 s, %2 bytes sent, %3 received, ")
                             .arg(decimal(static_cast<double>(summary.elapsed) / 1000))
                             .arg(counts.bytesSent)
                             .arg(counts.bytesReceived);
    return QStringList({requests}) + faultLines(counts) + QStringList({time + speedText(summary)});
}

QJsonObject summaryJson(const WatchSummary& summary)
{
    const Statistics& counts = summary.statistics;
    QJsonObject json;
    json[QLatin1String("event")] = QStringLiteral("summary");
    json[QLatin1String("milliseconds")] = summary.elapsed;
    json[QLatin1String("cycles")] = summary.cycles;
    json[QLatin1String("missedIntervals")] = summary.missed;
    json[QLatin1String("requests")] = counts.requests;
    json[QLatin1String("accepted")] = counts.accepted;
    json[QLatin1String("repeated")] = counts.repeated;
    json[QLatin1String("failed")] = counts.failed;
    json[QLatin1String("notSent")] = counts.notSent;
    json[QLatin1String("badReplies")] = badRepliesJson(counts.bad);
    json[QLatin1String("thrownAway")] = thrownAwayJson(counts.thrownAway);
    json[QLatin1String("heldBack")] = counts.heldBack;
    json[QLatin1String("reopened")] = counts.reopened;
    json[QLatin1String("bytesSent")] = counts.bytesSent;
    json[QLatin1String("bytesReceived")] = counts.bytesReceived;
    json[QLatin1String("requestsPerSecond")] = requestsPerSecond(summary);
    if (summary.timing.baud > 0)
        json[QLatin1String("lineLoad")] = counts.lineLoad(summary.timing, summary.elapsed);
    return json;
}

} // namespace kx
