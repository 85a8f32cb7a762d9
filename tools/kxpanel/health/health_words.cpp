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

struct Heading {
    const char* heading;
    const char* tip;
};

const Heading HEADINGS[HealthModel::COLUMNS] = {
    {QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Station"),
     QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Number of the station")},
    {QT_TRANSLATE_NOOP("kxpanel::HealthWords", "State"),
     QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Whether the station answers now")},
    {QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Requests"),
     QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Requests that are over, each try counted")},
    {QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Accepted"),
     QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Requests whose reply the driver took")},
    {QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Repeated"),
     QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Requests that were sent once more")},
    {QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Failed"),
     QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Requests that failed for good")},
    {QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Median"),
     QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Half of the replies began within this time, in "
                                               "milliseconds from the end of the request")},
    {QT_TRANSLATE_NOOP("kxpanel::HealthWords", "99 %"),
     QT_TRANSLATE_NOOP(
         "kxpanel::HealthWords",
         "99 of 100 replies began within this time, in milliseconds from the end of the request")},
    {QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Longest"),
     QT_TRANSLATE_NOOP(
         "kxpanel::HealthWords",
         "The slowest reply, in milliseconds from the end of the request to its first character")},
    {QT_TRANSLATE_NOOP("kxpanel::HealthWords", "No reply"),
     QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Repeated or failed: nothing came")},
    {QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Cut short"),
     QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Repeated or failed: too few bytes came")},
    {QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Damaged"),
     QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Repeated or failed: no frame in the bytes")},
    {QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Refused"),
     QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Repeated or failed: the station refused")},
    {QT_TRANSLATE_NOOP("kxpanel::HealthWords", "Other"),
     QT_TRANSLATE_NOOP("kxpanel::HealthWords",
                       "Repeated or failed for any other reason; point at a station to see which")},
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
    const Heading& heading = HEADINGS[column];
    return {Words::tr(heading.heading), Words::tr(heading.tip)};
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
    if (faults.missed > 0)
        texts << Words::tr("%n interval(s) missed", nullptr, number(faults.missed));
    if (faults.reopened > 0)
        texts << Words::tr("line opened again %n time(s)", nullptr, number(faults.reopened));
    return texts.join(QStringLiteral(", "));
}

} // namespace kxpanel
