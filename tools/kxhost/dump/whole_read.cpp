#include "kxhost/dump/whole_read.h"

#include "kxhost/commands/connection.h"
#include "kxhost/commands/run_to_end.h"
#include "kxhost/terminal/exit_codes.h"

namespace kx
{

void WholeRead::listenTo(const ReadJob* job)
{
    QObject::connect(job, &ReadJob::rangeFinished, job, [this](const ReadOutcome& outcome) {
        if (outcome.failure.isNone())
            m_values.take(outcome.tag.range, outcome.values);
        else
            m_failed << outcome;
    });
}

int readWhole(const ConnectionOptions& asked, const QList<AddressRange>& ranges, WholeRead* whole)
{
    ConnectionOptions options = asked;
    simulateStationsOf(ranges, &options);
    HostSession host;
    const int result = openSession(options, &host);
    if (result != EXIT_FINE)
        return result;
    showFrames(host.session.get(), options);
    ReadJob job(host.session.get(), piecesToRead(ranges));
    whole->listenTo(&job);
    runToItsEnd(host.session.get(), &job);
    return EXIT_FINE;
}

} // namespace kx
