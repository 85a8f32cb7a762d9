#include "kxhost/scan/scan_run.h"

#include "kxhost/commands/connection.h"
#include "kxhost/commands/run_to_end.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "kxhost/terminal/interrupt.h"

#include <QtCore/QCoreApplication>

namespace kx
{

namespace
{

QSerialPort::Parity portParity(char parity)
{
    if (parity == 'N')
        return QSerialPort::NoParity;
    return parity == 'E' ? QSerialPort::EvenParity : QSerialPort::OddParity;
}

} // namespace

ScanRun::ScanRun(const ConnectionOptions& options, const QList<LineFormat>& formats,
                 const QList<int>& stations)
    : m_options(options),
      m_formats(formats),
      m_stations(stations),
      m_view(formats.size() > 1, options.timing.stopBits, options.json),
      m_total(static_cast<int>(formats.size() * stations.size()))
{
}

int ScanRun::run()
{
    const Interrupt interrupt;
    QObject::connect(&interrupt, &Interrupt::interrupted, [this] {
        m_isInterrupted = true;
        if (m_job)
            m_job->abort(QStringLiteral("interrupted"));
    });
    m_time.start();
    const LineFormat format = search();
    if (m_answered > 0)
        askTheOthers(format);
    return m_openResult == EXIT_FINE ? conclude(format) : m_openResult;
}

LineFormat ScanRun::search()
{
    LineFormat format = m_formats.first();
    for (const SearchStep& step : searchSteps(m_formats, m_stations)) {
        format = step.format;
        if (!ask(step) || m_answered > 0)
            break;
    }
    return format;
}

void ScanRun::askTheOthers(const LineFormat& format)
{
    const QList<int> left = stationsLeft(m_asked, format, m_stations);
    const bool isOver = m_isInterrupted || !m_lost.isEmpty() || left.isEmpty();
    if (isOver)
        return;
    m_total = m_done + static_cast<int>(left.size());
    ask({format, left});
}

bool ScanRun::ask(const SearchStep& step)
{
    ConnectionOptions options = m_options;
    options.timing.baud = step.format.baud;
    options.timing.parityBits = step.format.parity == 'N' ? 0 : 1;
    options.parity = portParity(step.format.parity);
    HostSession host;
    m_openResult = openSession(options, &host);
    if (m_openResult != EXIT_FINE || m_isInterrupted)
        return false;
    Session* const session = host.session.get();
    showFrames(session, options);
    ScanJob job(session, step.stations);
    runToItsEnd(&job, session, step.format);
    m_done += job.asked();
    m_answered += job.answered();
    m_asked << SearchStep{step.format, step.stations.mid(0, job.asked())};
    if (job.failure().kind == FailureKind::LineLost)
        m_lost = job.failure().text;
    m_view.showTried(step.format, job.asked(), job.answered(), progress());
    return m_lost.isEmpty() && !m_isInterrupted;
}

void ScanRun::runToItsEnd(ScanJob* job, Session* session, const LineFormat& format)
{
    QObject::connect(job, &ScanJob::stationAnswered, job,
                     [this, format](const ScanReply& reply) { m_view.showAnswer(format, reply); });
    QObject::connect(job, &Job::progress, job,
                     [this, format] { m_view.showProgress(format, progress()); });
    QObject::connect(job, &Job::finished, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    QObject::connect(job, &Job::finished, session, &Session::stop);
    m_job = job;
    session->start();
    job->start();
    QCoreApplication::exec();
    m_job = nullptr;
}

int ScanRun::conclude(const LineFormat& format)
{
    const int all = static_cast<int>(m_stations.size());
    const int asked = all - static_cast<int>(stationsLeft(m_asked, format, m_stations).size());
    if (m_formats.size() == 1 || m_answered > 0)
        m_view.showSummary(format, m_answered, asked, all - asked);
    else
        m_view.showNothingFound(static_cast<int>(m_formats.size()), progress());
    if (!m_lost.isEmpty())
        return complain(m_lost, EXIT_DEVICE_FAILED);
    return m_answered > 0 ? EXIT_FINE : EXIT_DEVICE_FAILED;
}

ScanProgress ScanRun::progress() const
{
    return {m_done + (m_job ? m_job->asked() : 0), m_total,
            m_answered + (m_job ? m_job->answered() : 0), m_time.elapsed()};
}

} // namespace kx
