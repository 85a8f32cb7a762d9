#include "panel/watch/link_events.h"

#include "data/reply_handling.h"
#include "panel/text/json_time.h"
#include "system/translated_text.h"

#include <QtCore/QStringList>

#include <algorithm>

namespace kx
{

namespace
{

bool isAnswer(const ExchangeRecord& record)
{
    return record.replyKind == ReplyKind::Good
           || (record.replyKind == ReplyKind::Exception
               && !isGatewayException(record.exceptionCode));
}

/// The request went out, and its station should have answered.
bool isStationsFault(ReplyKind kind)
{
    // An exception that is no answer is a gateway's.
    return kind == ReplyKind::Exception || kind == ReplyKind::None || kind == ReplyKind::Short
           || kind == ReplyKind::Bad || kind == ReplyKind::Foreign;
}

const char* stateOf(LinkEvent::Kind kind)
{
    switch (kind) {
    case LinkEvent::LineLost:
        return "lost";
    case LinkEvent::LineOpened:
        return "open";
    case LinkEvent::LineNeverSilent:
        return "never silent";
    case LinkEvent::LineSilent:
        return "silent";
    case LinkEvent::StationSilent:
        return "no answer";
    case LinkEvent::StationBack:
        return "answering";
    case LinkEvent::RequestsShortened:
        return "short requests";
    }
    return "";
}

QString shortenedText(const LinkEvent& event)
{
    const QString text =
        event.rules.maySpanGaps
            ? Text::tr("station %1 refuses requests; it is asked for at most %2 or %3 at once")
            : Text::tr("station %1 refuses requests; it is asked for at most %2 or %3 at once; "
                       "addresses between are not read along");
    return text.arg(
        QString::number(event.station),
        countedText(event.rules.maxWords, "%1 register", QT_TRANSLATE_N_NOOP("kx", "%1 registers")),
        countedText(event.rules.maxBits, "%1 coil", QT_TRANSLATE_N_NOOP("kx", "%1 coils")));
}

/// "1-3, 7".
/// @param stations rising
QString stationRuns(const QList<int>& stations)
{
    QStringList runs;
    for (int first = 0, next = 0; first < stations.size(); first = next) {
        for (next = first + 1; next < stations.size(); ++next) {
            if (stations.at(next) != stations.at(next - 1) + 1)
                break;
        }
        const QString run = QString::number(stations.at(first));
        runs << (next - first == 1
                     ? run
                     : run + QLatin1Char('-') + QString::number(stations.at(next - 1)));
    }
    return runs.join(QLatin1String(", "));
}

} // namespace

QString linkEventText(const LinkEvent& event)
{
    switch (event.kind) {
    case LinkEvent::LineLost:
        return Text::tr("line lost");
    case LinkEvent::LineOpened:
        return Text::tr("line open again");
    case LinkEvent::LineNeverSilent:
        return Text::tr("line never silent");
    case LinkEvent::LineSilent:
        return Text::tr("line silent again");
    case LinkEvent::StationSilent:
        return Text::tr("station %1 does not answer").arg(event.station);
    case LinkEvent::StationBack:
        return Text::tr("station %1 answers again").arg(event.station);
    case LinkEvent::RequestsShortened:
        return shortenedText(event);
    }
    return QString();
}

QString linkEventRow(const LinkEvent& event, const QDateTime& time)
{
    return time.toString(Qt::ISODateWithMs) + QLatin1Char(' ') + linkEventText(event);
}

QJsonObject linkEventJson(const LinkEvent& event, const QDateTime& time)
{
    const bool isShortened = event.kind == LinkEvent::RequestsShortened;
    const bool isOfStation = isShortened || event.kind == LinkEvent::StationSilent
                             || event.kind == LinkEvent::StationBack;
    QJsonObject json;
    json[QLatin1String("event")] = QLatin1String(isOfStation ? "station" : "line");
    json[QLatin1String("time")] = jsonTime(time);
    if (isOfStation)
        json[QLatin1String("station")] = event.station;
    json[QLatin1String("state")] = QLatin1String(stateOf(event.kind));
    if (isShortened) {
        json[QLatin1String("registers")] = event.rules.maxWords;
        json[QLatin1String("coils")] = event.rules.maxBits;
        json[QLatin1String("gaps")] = event.rules.maySpanGaps;
    }
    return json;
}

QList<LinkEvent> LinkState::onExchange(const ExchangeRecord& record)
{
    QList<LinkEvent> events;
    const bool isNeverSilent = record.replyKind == ReplyKind::NeverSilent;
    if (isNeverSilent != m_isNeverSilent && (isNeverSilent || record.replyKind != ReplyKind::Bad)) {
        m_isNeverSilent = isNeverSilent;
        events << LinkEvent{isNeverSilent ? LinkEvent::LineNeverSilent : LinkEvent::LineSilent};
    }
    const int station = record.job.station;
    if (isAnswer(record)) {
        if (m_silentStations.remove(station))
            events << LinkEvent{LinkEvent::StationBack, station};
    } else if (record.result == REPLY_FAILED && isStationsFault(record.replyKind)
               && !m_silentStations.contains(station)) {
        m_silentStations.insert(station);
        events << LinkEvent{LinkEvent::StationSilent, station};
    }
    return events;
}

QList<LinkEvent> LinkState::onLineLost()
{
    m_isLost = true;
    return {LinkEvent{LinkEvent::LineLost}};
}

QList<LinkEvent> LinkState::onLineOpened()
{
    if (!m_isLost)
        return {};
    m_isLost = false;
    return {LinkEvent{LinkEvent::LineOpened}};
}

QString LinkState::faultText() const
{
    QStringList faults;
    if (m_isLost)
        faults << linkEventText({LinkEvent::LineLost});
    if (m_isNeverSilent)
        faults << linkEventText({LinkEvent::LineNeverSilent});
    QList<int> stations(m_silentStations.begin(), m_silentStations.end());
    std::sort(stations.begin(), stations.end());
    if (stations.size() == 1)
        faults << linkEventText({LinkEvent::StationSilent, stations.first()});
    else if (!stations.isEmpty())
        faults << Text::tr("stations %1 do not answer").arg(stationRuns(stations));
    return faults.join(QLatin1String("; "));
}

} // namespace kx
