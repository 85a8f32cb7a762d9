#include "kxhost/commands/commands.h"

#include "kxhost/commands/connection.h"
#include "kxhost/commands/run_to_end.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/sequence/report_file.h"
#include "kxhost/sequence/sequence_file.h"
#include "kxhost/sequence/sequence_view.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "kxhost/terminal/interrupt.h"
#include "panel/sequence/sequence_run.h"

#include <QtCore/QCoreApplication>

namespace kx
{

namespace
{

const CommandHelp SEQUENCE_HELP = {
    "run [options] FILE",
    "Does the steps of a sequence, one a line, and ends with the first that fails:\n"
    "    tags pumps.csv                    names, from a file beside this one\n"
    "    write pump = on                   until the station confirms it\n"
    "    wait pressure > 4.5 within 10s    reads again and again\n"
    "    expect level = 7 +- 0.5           reads once; = != < <= > >= or in 1..5\n"
    "    expect D100/float in 1..5         an address instead of a name\n"
    "    pause 200ms\n"
    "    finally                           what follows is done in the end, also\n"
    "    write pump = off                  after a failure or Ctrl-C\n"
    "A name with blanks, or a text, stands in double quotes; # begins a comment. All of\n"
    "the file is checked before anything is sent. After a failure the machine is left as\n"
    "it is, but for what finally does. Exit code 1 when a step failed.",
    "kxhost run filling.kxs --port /dev/ttyUSB0 --junit report.xml\n"
    "kxhost run filling.kxs --tags pumps.csv --check\n"
    "kxhost run filling.kxs --simulate --json"};

struct Run {
    const SequenceOptions& options;
    Sequence sequence;
    SequenceView view;
    ReportFile report;
    bool isInterrupted = false;
};

void interrupt(Run* run, SequenceRun* steps)
{
    const bool isTaken = steps->interrupt();
    run->isInterrupted = run->isInterrupted || isTaken;
    if (run->sequence.mainSteps < run->sequence.steps.size())
        complain(QStringLiteral("doing the steps behind finally; Ctrl-C again ends the program at "
                                "once"),
                 EXIT_DEVICE_FAILED);
}

/// False when a step failed.
bool doSteps(Run* run, Session* session)
{
    SystemClock clock;
    SequenceRun steps(session, run->sequence, &clock);
    const Interrupt interruption;
    QObject::connect(&interruption, &Interrupt::interrupted, &steps,
                     [run, &steps] { interrupt(run, &steps); });
    QObject::connect(&steps, &SequenceRun::stepStarted, &run->view, &SequenceView::onStarted);
    QObject::connect(&steps, &SequenceRun::valueRead, &run->view, &SequenceView::onValue);
    QObject::connect(&steps, &SequenceRun::stepFinished, &run->view, &SequenceView::onFinished);
    QObject::connect(&steps, &SequenceRun::stepFinished, &steps,
                     [run](const StepResult& result) { run->report.add(result); });
    QObject::connect(&steps, &SequenceRun::finished, session, &Session::stop);
    QObject::connect(&steps, &SequenceRun::finished, qApp, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    session->start();
    steps.start();
    QCoreApplication::exec();
    return !steps.hasFailed();
}

int runOnLine(Run* run)
{
    QString error;
    if (!run->report.write(&error))
        return complain(error, EXIT_WRONG_USAGE);
    ConnectionOptions connection = run->options.connection;
    for (const Step& step : run->sequence.steps) {
        if (step.kind != StepKind::Pause)
            simulateStation(step.tag.range.station, &connection);
    }
    HostSession host;
    const int opened = openSession(connection, &host);
    if (opened != EXIT_FINE)
        return opened;
    showFrames(host.session.get(), connection);
    int exitCode = doSteps(run, host.session.get()) ? EXIT_FINE : EXIT_DEVICE_FAILED;
    run->view.showSummary(run->isInterrupted);
    if (!run->report.write(&error))
        exitCode = complain(error, EXIT_DEVICE_FAILED);
    return exitCode;
}

} // namespace

int runSequence(const QStringList& arguments)
{
    QCommandLineParser parser;
    addConnectionOptions(&parser);
    addSequenceOptions(&parser);
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, SEQUENCE_HELP, &exitCode))
        return exitCode;
    SequenceOptions options;
    QString error;
    if (!parseSequenceOptions(parser, &options, &error))
        return complain(error, EXIT_WRONG_USAGE);
    Sequence sequence;
    exitCode = readSequenceFile(options, &sequence);
    if (exitCode != EXIT_FINE)
        return exitCode;
    Run run = {options,
               sequence,
               {options.file, sequence, options.connection.json},
               {options.report, options.file, sequence}};
    if (!options.checks)
        return runOnLine(&run);
    run.view.showSteps();
    return EXIT_FINE;
}

} // namespace kx
