// kx_relay: a serial line of pseudo-terminals that takes its time, and says how it was used.

#include "relay/line_use.h"
#include "relay/relay.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QTextStream>

#include <csignal>
#include <cstdio>

namespace
{

const int WRONG_USAGE = 2;
const int NO_LINE = 3;

const char* const OPTIONS[][3] = {
    {"baud", "Bits per second (default 9600).", "BAUD"},
    {"bits", "Bits of a character, 10 or 11 (default 10).", "BITS"},
    {"turnaround", "Microseconds that the station inside takes (default 0).", "US"},
};

struct Options {
    kx::RelaySettings relay;
    bool isVerbose = false;
};

bool parse(Options* options, QString* error)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Names the ports of a line, carries bytes until it is ended by a signal, and prints how\n"
        "the line was used: exchanges, unanswered requests, percent of the limit in all and of\n"
        "the median exchange, gaps too short, below 1.1, below 1.5 and longer, shortest and\n"
        "median gap in microseconds."));
    parser.addHelpOption();
    for (const auto& option : OPTIONS)
        parser.addOption({QString::fromLatin1(option[0]), QString::fromLatin1(option[1]),
                          QString::fromLatin1(option[2])});
    parser.addOption({QStringLiteral("answers"), QStringLiteral("Be the station, too.")});
    parser.addOption({QStringLiteral("frames"), QStringLiteral("Print each frame at the end.")});
    parser.process(*QCoreApplication::instance());
    int* const numbers[] = {&options->relay.baud, &options->relay.bitsPerCharacter,
                            &options->relay.turnaround};
    for (int i = 0; i < 3; ++i) {
        const QString name = QString::fromLatin1(OPTIONS[i][0]);
        bool isNumber = true;
        if (parser.isSet(name))
            *numbers[i] = parser.value(name).toInt(&isNumber);
        if (!isNumber || *numbers[i] < (i == 2 ? 0 : 1)) {
            *error = QStringLiteral("--%1 %2: must be a number").arg(name, parser.value(name));
            return false;
        }
    }
    options->relay.answers = parser.isSet(QStringLiteral("answers"));
    options->isVerbose = parser.isSet(QStringLiteral("frames"));
    return true;
}

void waitForSignal(const sigset_t& signals_)
{
    int signal = 0;
    sigwait(&signals_, &signal);
}

void printFrames(const QList<kx::RelayedFrame>& frames, QTextStream* out)
{
    for (const kx::RelayedFrame& frame : frames)
        *out << frame.start << ' ' << frame.end << (frame.isFromMaster ? " request " : " reply ")
             << QString::fromLatin1(frame.bytes.toHex(' ')) << '\n';
}

void printUse(const kx::LineUse& use, QTextStream* out)
{
    *out << "exchanges " << use.exchanges << "\nunanswered " << use.unanswered << "\npercent "
         << QString::number(use.share * 100, 'f', 1) << "\nmedian_percent "
         << QString::number(use.medianShare * 100, 'f', 1) << "\ntoo_short " << use.gaps.tooShort
         << "\nbelow_1.1 " << use.gaps.close << "\nbelow_1.5 " << use.gaps.fair << "\nlonger "
         << use.gaps.longer << "\nshortest_us " << use.gaps.shortest << "\nmedian_us "
         << use.gaps.median << '\n';
}

} // namespace

int main(int argc, char* argv[])
{
    // Before there is a thread that could be interrupted instead.
    sigset_t ends;
    sigemptyset(&ends);
    sigaddset(&ends, SIGINT);
    sigaddset(&ends, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &ends, nullptr);
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream errors(stderr);
    Options options;
    QString error;
    if (!parse(&options, &error)) {
        errors << "kx_relay: " << error << '\n';
        return WRONG_USAGE;
    }
    const auto relay = kx::Relay::open(options.relay, &error);
    if (!relay) {
        errors << "kx_relay: " << error << '\n';
        return NO_LINE;
    }
    if (!relay->hasRealTimePriority())
        errors << "kx_relay: no real-time priority is allowed; times are less exact\n" << Qt::flush;
    out << "master " << relay->masterPort() << '\n';
    if (!options.relay.answers)
        out << "slave " << relay->slavePort() << '\n';
    out << Qt::flush;
    waitForSignal(ends);
    const QList<kx::RelayedFrame> frames = relay->takeFrames();
    if (options.isVerbose)
        printFrames(frames, &out);
    printUse(kx::lineUse(frames, timingOf(options.relay)), &out);
    return 0;
}
