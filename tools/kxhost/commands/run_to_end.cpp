#include "kxhost/commands/run_to_end.h"

#include "kxhost/terminal/console.h"
#include "kxhost/terminal/interrupt.h"
#include "panel/text/frame_text.h"

#include <QtCore/QCoreApplication>

namespace kx
{

void showFrames(const Session* session, const ConnectionOptions& options)
{
    if (!options.frames)
        return;
    const bool asJson = options.json;
    QObject::connect(session, &Session::exchanged, session, [asJson](const ExchangeRecord& record) {
        if (asJson)
            return printJson(exchangeJson(record));
        for (const QString& line : exchangeRows(record))
            say(line);
    });
}

void runToItsEnd(Session* session, Job* job)
{
    const Interrupt interrupt;
    QObject::connect(&interrupt, &Interrupt::interrupted, job,
                     [job] { job->abort(QStringLiteral("interrupted")); });
    QObject::connect(job, &Job::finished, QCoreApplication::instance(), &QCoreApplication::quit,
                     Qt::QueuedConnection);
    QObject::connect(job, &Job::finished, session, &Session::stop);
    session->start();
    job->start();
    QCoreApplication::exec();
}

} // namespace kx
