#include "kxhost/commands/commands.h"

#include "addresses/request_limits.h"
#include "exchange/driver_lease.h"
#include "exchange/exchange_settings.h"
#include "exchange/loop_clock.h"
#include "kxhost/commands/connection.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/offline_options.h"
#include "kxhost/options/plan_options.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "kxhost/views/plan_json.h"
#include "kxhost/views/plan_text.h"
#include "panel/plan/time_out_rules.h"
#include "panel/plan/watch_plan.h"

namespace kx
{

namespace
{

const CommandHelp PLAN_HELP = {
    "plan [options] ADDRESS|FILE...",
    "Shows the requests with which the driver would read the addresses, how long they\n"
    "take on a line, beside what each fixed request limit would take (--max-words of\n"
    "kxhost watch). Neighbouring addresses share a request; those in the gaps between\n"
    "are bridged, that is, read along. UNREAD counts bits and registers that a\n"
    "controller would refuse or answer with others. FILE is a tags file. Needs no\n"
    "controller.",
    "kxhost plan D100:4 D110:2 M0:8 X10\n"
    "kxhost plan tags.csv --baud 19200 --parity even --turnaround 8ms\n"
    "kxhost plan --tags pump.csv --tags valves.csv --max-words 64\n"
    "kxhost plan D0:100 D200 --json"};

void printAll(const QStringList& lines)
{
    for (const QString& line : lines)
        say(line);
}

QString limitText(const Plan& plan)
{
    return plan.maxWords == 0 ? QStringLiteral("auto") : QString::number(plan.maxWords);
}

void printPlan(const Plan& plan, const QList<LengthResult>& lengths, const LengthResult& chosen,
               const WatchedRanges& watched, const PlanTiming& timing)
{
    say(QStringLiteral("Request limit %1, %2").arg(limitText(plan), lineText(timing)));
    say(QString());
    printAll(requestRows(plan, watched, timing));
    say(QString());
    say(QLatin1String("Asked for (#), bridged (.), both (+):"));
    printAll(pictureRows(plan, watched));
    say(QString());
    for (const QString& warning : warningRows(plan, watched))
        say(QLatin1String("Warning: ") + warning);
    say(cycleText(resultOf(plan, watched, timing).cost));
    say(QString());
    say(QStringLiteral("Lengths chosen for this list and line (auto), and limits of 1 to %1 "
                       "registers up to which the driver joins them:")
            .arg(MOST_REGISTERS_PER_READ));
    printAll(lengthRows(lengths, chosen, plan.maxWords));
}

ReadRules rulesOf(const PlanOptions& options)
{
    ReadRules rules;
    rules.line = options.timing.line;
    rules.usual.turnaround = options.timing.turnaround;
    rules.usual.maxBits = options.lengths.maxBits;
    return rules;
}

/// One plan at a time: of tens of thousands of tags, all together take much memory.
QList<LengthResult> lengthsOf(const DriverEntryPoints& entryPoints, const PlanOptions& options,
                              const WatchedRanges& watched)
{
    QList<LengthResult> lengths;
    for (int maxWords = 1; maxWords <= MOST_REGISTERS_PER_READ; ++maxWords) {
        const std::optional<Plan> plan =
            limitedPlan(entryPoints, options.watched, maxWords, rulesOf(options));
        if (plan)
            lengths << resultOf(*plan, watched, options.timing);
    }
    return lengths;
}

} // namespace

int runPlan(const QStringList& arguments)
{
    QCommandLineParser parser;
    addPlanOptions(&parser);
    addOfflineOptions(&parser);
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, PLAN_HELP, &exitCode))
        return exitCode;
    PlanOptions options;
    QString error;
    if (!parsePlanOptions(parser, &options, &error))
        return complain(error, EXIT_WRONG_USAGE);
    DriverEntryPoints entryPoints;
    exitCode = openDriver(askedLibrary(parser), &entryPoints);
    if (exitCode != EXIT_FINE)
        return exitCode;
    const WatchedRanges watched(options.watched);
    const QList<LengthResult> lengths = lengthsOf(entryPoints, options, watched);
    const qint64 timeOut = ExchangeSettings().replyTimeout * MICROSECONDS_PER_MILLISECOND;
    const Plan chosen = chosenPlan(options.watched, rulesWithin(timeOut, rulesOf(options)));
    const LengthResult ofChosen = resultOf(chosen, watched, options.timing);
    std::optional<Plan> plan = chosen;
    if (!options.lengths.choosesLengths)
        plan =
            limitedPlan(entryPoints, options.watched, options.lengths.maxWords, rulesOf(options));
    if (!plan)
        return complain(DriverLease::refusal(), EXIT_CANNOT_OPEN);
    if (wantsJson(parser))
        printJson(planJson(*plan, lengths, ofChosen, watched, options.timing));
    else
        printPlan(*plan, lengths, ofChosen, watched, options.timing);
    return EXIT_FINE;
}

} // namespace kx
