#include "kxhost/summary_text.h"

namespace
{

QString decimal(double value)
{
    return QString::number(value, 'f', 1);
}

double loadPercent(const WatchSummary& summary)
{
    return 100 * summary.statistics.lineLoad(summary.timing, summary.elapsed);
}

} // namespace

QString speedText(const WatchSummary& summary)
{
    QString text = QString::fromLatin1("%1 requests/s")
                       .arg(decimal(summary.statistics.requestsPerSecond(summary.elapsed)));
    if (summary.timing.baud > 0)
        text += QString::fromLatin1(", line load %1 %").arg(decimal(loadPercent(summary)));
    return text;
}

QStringList summaryLines(const WatchSummary& summary)
{
    const Statistics& counts = summary.statistics;
    QString requests =
        QString::fromLatin1("%1 requests in %2 cycles: %3 accepted, %4 repeated, %5 failed")
            .arg(counts.requests)
            .arg(summary.cycles)
            .arg(counts.accepted)
            .arg(counts.repeated)
            .arg(counts.failed);
    if (counts.exceptions > 0)
        requests += QString::fromLatin1(", %1 refused by the station").arg(counts.exceptions);
    if (counts.foreign > 0)
        requests += QString::fromLatin1(", %1 replies of other requests").arg(counts.foreign);
    if (counts.notSent > 0)
        requests += QString::fromLatin1(", %1 too long to send").arg(counts.notSent);
    const QString time = QString::fromLatin1("%1 s, %2 bytes sent, %3 received, ")
                             .arg(decimal(static_cast<double>(summary.elapsed) / 1000))
                             .arg(counts.bytesSent)
                             .arg(counts.bytesReceived);
    return {requests, time + speedText(summary)};
}

QJsonObject summaryJson(const WatchSummary& summary)
{
    const Statistics& counts = summary.statistics;
    QJsonObject json;
    json[QLatin1String("event")] = QLatin1String("summary");
    json[QLatin1String("milliseconds")] = summary.elapsed;
    json[QLatin1String("cycles")] = summary.cycles;
    json[QLatin1String("requests")] = counts.requests;
    json[QLatin1String("accepted")] = counts.accepted;
    json[QLatin1String("repeated")] = counts.repeated;
    json[QLatin1String("failed")] = counts.failed;
    json[QLatin1String("refused")] = counts.exceptions;
    json[QLatin1String("foreign")] = counts.foreign;
    json[QLatin1String("notSent")] = counts.notSent;
    json[QLatin1String("bytesSent")] = counts.bytesSent;
    json[QLatin1String("bytesReceived")] = counts.bytesReceived;
    json[QLatin1String("requestsPerSecond")] = counts.requestsPerSecond(summary.elapsed);
    if (summary.timing.baud > 0)
        json[QLatin1String("lineLoad")] = counts.lineLoad(summary.timing, summary.elapsed);
    return json;
}
