#include "kxpanel/health/health_words.h"

#include "kxpanel/exchanges/exchange_verdict.h"
#include "kxpanel/exchanges/exchange_words.h"
#include "kxpanel/health/health_model.h"

#include <QtCore/QCoreApplication>

namespace kxpanel
{

namespace
{

struct Words {
    Q_DECLARE_TR_FUNCTIONS(kxpanel::HealthWords)
};

struct NamedCount {
    QString name;
    qint64 count;
};

QList<NamedCount> reasonsOf(const kx::BadReplies& bad)
{
    return {{Words::tr("no reply until the time-out"), bad.none},
            {Words::tr("reply cut short"), bad.incomplete},
            {Words::tr("damaged reply"), bad.damaged},
            {Words::tr("refused by the station"), bad.exceptions},
            {Words::tr("reply with a wrong byte count"), bad.byteCounts},
            {Words::tr("only replies of other requests"), bad.foreign},
            {Words::tr("line lost meanwhile"), bad.lost},
            {Words::tr("broadcast"), bad.broadcasts},
            {Words::tr("good reply that the driver did not take"), bad.ignored},
            {Words::tr("line never silent"), bad.neverSilent}};
}

} // namespace

HealthHeading healthHeading(int column)
{
    switch (column) {
    case HealthModel::Station:
        return {Words::tr("Station"), Words::tr("Number of the station")};
    case HealthModel::State:
        return {Words::tr("State"), Words::tr("Whether the station answers now")};
    case HealthModel::Requests:
        return {Words::tr("Requests"), Words::tr("Requests that are over, each try counted")};
    case HealthModel::Accepted:
        return {Words::tr("Accepted"), Words::tr("Requests whose reply the driver took")};
    case HealthModel::Repeated:
        return {Words::tr("Repeated"), Words::tr("Requests that were sent once more")};
    case HealthModel::Failed:
        return {Words::tr("Failed"), Words::tr("Requests that failed for good")};
    case HealthModel::NoReply:
        return {Words::tr("No reply"), Words::tr("Repeated or failed: nothing came")};
    case HealthModel::CutShort:
        return {Words::tr("Cut short"), Words::tr("Repeated or failed: too few bytes came")};
    case HealthModel::Damaged:
        return {Words::tr("Damaged"), Words::tr("Repeated or failed: no frame in the bytes")};
    case HealthModel::Refused:
        return {Words::tr("Refused"), Words::tr("Repeated or failed: the station refused")};
    case HealthModel::Other:
        return {Words::tr("Other"), Words::tr("Repeated or failed for any other reason; point at "
                                              "a station to see which")};
    case HealthModel::Median:
        return {Words::tr("Median"), Words::tr("Half of the replies began within this time, in "
                                               "milliseconds from the end of the request")};
    case HealthModel::MostOf100:
        return {Words::tr("99 %"), Words::tr("99 of 100 replies began within this time, in "
                                             "milliseconds from the end of the request")};
    case HealthModel::Longest:
        return {Words::tr("Longest"), Words::tr("The slowest reply, in milliseconds from the end "
                                                "of the request to its first character")};
    default:
        return {};
    }
}

QString stateWords(const StationHealth& station)
{
    if (station.isSilent)
        return verdictSymbol(ExchangeVerdict::Failed) + QLatin1Char(' ') + Words::tr("silent");
    if (station.answeredAt > 0)
        return verdictSymbol(ExchangeVerdict::Accepted) + QLatin1Char(' ') + Words::tr("answers");
    return QString(QChar(0x2013)) + QLatin1Char(' ') + Words::tr("no reply yet");
}

QString healthTip(int number, const StationHealth& station)
{
    QStringList rows = {Words::tr("Station %1: %2 accepted, %3 repeated, %4 failed")
                            .arg(number)
                            .arg(station.counts.accepted)
                            .arg(station.counts.repeated)
                            .arg(station.counts.failed)};
    for (const NamedCount& reason : reasonsOf(station.counts.bad)) {
        if (reason.count > 0)
            rows << QStringLiteral("%1: %2").arg(reason.name).arg(reason.count);
    }
    if (station.counts.notSent > 0)
        rows << Words::tr("not whole, so not sent: %1").arg(station.counts.notSent);
    if (station.answeredAt > 0)
        rows << Words::tr("answered last at %1").arg(timeOfDay(station.answeredAt));
    return rows.join(QLatin1Char('\n'));
}

QString faultWords(const LineFaults& faults)
{
    const auto number = [](qint64 count) { return static_cast<int>(count); };
    const kx::ThrownAway& thrown = faults.thrownAway;
    QStringList texts;
    if (thrown.foreign > 0)
        texts << Words::tr("%n repl(ies) of other requests", nullptr, number(thrown.foreign));
    if (thrown.late > 0)
        texts << Words::tr("%n late repl(ies)", nullptr, number(thrown.late));
    if (thrown.duplicates > 0)
        texts << Words::tr("%n duplicate(s)", nullptr, number(thrown.duplicates));
    if (thrown.echoes > 0)
        texts << Words::tr("%n echo(es)", nullptr, number(thrown.echoes));
    if (thrown.bytes > 0)
        texts << Words::tr("%n byte(s) in no frame", nullptr, number(thrown.bytes));
    if (faults.heldBack > 0)
        texts << Words::tr("%n request(s) held back for a late reply", nullptr,
                           number(faults.heldBack));
    if (faults.reopened > 0)
        texts << Words::tr("line opened again %n time(s)", nullptr, number(faults.reopened));
    return texts.join(QStringLiteral(", "));
}

} // namespace kxpanel
