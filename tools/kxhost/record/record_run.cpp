#include "kxhost/record/record_run.h"

#include "kxhost/record/recorded_entries.h"
#include "kxhost/terminal/console.h"
#include "panel/text/counted.h"

#include <QtCore/QDateTime>

namespace kx
{

namespace
{

const int SERVE_INTERVAL = 100; // milliseconds
const int LONGEST_REST = 2000;  // milliseconds, which a busy machine may take

qint64 timeOfDay()
{
    return QDateTime::currentMSecsSinceEpoch();
}

bool hasValue(const WatchEntry& entry)
{
    return entry.state == WatchState::Ok && entry.isKnown;
}

} // namespace

RecordRun::RecordRun(Session* session, const RecordOptions& options)
    : m_session(session), m_options(options), m_watch(session), m_recorder(options.recording)
{
    m_watch.setTags(options.tags);
    m_sample.setSingleShot(true);
    m_sample.setTimerType(Qt::PreciseTimer);
    connect(&m_serve, &QTimer::timeout, this, &RecordRun::onServe);
    connect(&m_sample, &QTimer::timeout, this, &RecordRun::onSample);
    connect(&m_watch, &Watch::entriesChanged, this, &RecordRun::onEntries);
    connect(&m_watch, &Watch::linkChanged, this, &RecordRun::onLink);
    connect(&m_watch, &Watch::cycleFinished, this, &RecordRun::onCycle);
    connect(&m_watch, &Watch::lineLost, this, &RecordRun::onLineLost);
}

bool RecordRun::start(QString* error)
{
    if (!m_recorder.open(recordedTags(m_watch.list().entries()), timeOfDay(), error))
        return false;
    announce();
    m_awake = timeOfDay();
    m_session->start();
    m_serve.start(SERVE_INTERVAL);
    startSampling();
    return true;
}

void RecordRun::startSampling()
{
    if (m_options.recording.every > 0)
        m_sample.start(static_cast<int>(untilNextSample(timeOfDay(), m_options.recording.every)));
}

/// A program that was stopped, or a machine that was suspended, has read nothing meanwhile.
void RecordRun::noticeRest()
{
    const qint64 now = timeOfDay();
    if (now - m_awake > LONGEST_REST) {
        m_recorder.rest(m_awake);
        m_fresh.skip(m_watch.list().entries());
        m_mayBeBack = true;
    }
    m_awake = now;
}

void RecordRun::onSample()
{
    noticeRest();
    takeReads();
    m_recorder.sample(timeOfDay());
    startSampling();
}

/// What was read since the last sample, when there will be no other one.
void RecordRun::takeNews(qint64 now)
{
    if (m_options.recording.every == 0)
        return;
    takeReads();
    m_recorder.recordNews(now);
}

void RecordRun::onServe()
{
    noticeRest();
    const qint64 now = timeOfDay();
    if (m_mayBeBack)
        takeReturns();
    if (m_recorder.serve(now))
        announce();
    if (!m_recorder.failure().isEmpty())
        fail(m_recorder.failure());
    else if (m_options.duration > 0 && m_session->elapsed() >= m_options.duration)
        finish();
}

void RecordRun::onEntries(const QList<int>& indexes)
{
    noticeRest();
    for (const int index : indexes) {
        const WatchEntry& entry = m_watch.list().entries().at(index);
        if (entry.state != WatchState::Ok && !m_isLineLost)
            m_recorder.onGap(timeOfDay(), index, gapReason(entry));
        else if (hasValue(entry) && m_options.recording.every == 0)
            m_recorder.onRead(timeOfDay(), index, recordedValue(entry));
    }
}

/// Of samples: what was read since the one before.
void RecordRun::takeReads()
{
    const QVector<WatchEntry>& entries = m_watch.list().entries();
    if (m_isLineLost)
        return;
    for (const int index : m_fresh.take(entries))
        m_recorder.onRead(timeOfDay(), index, recordedValue(entries.at(index)));
}

/// What is read again after the line was lost: the watch tells it only where a value has changed.
void RecordRun::takeReturns()
{
    m_mayBeBack = false;
    const QVector<WatchEntry>& entries = m_watch.list().entries();
    for (int index = 0; index < entries.size() && m_options.recording.every == 0; ++index) {
        const WatchEntry& entry = entries.at(index);
        if (!hasValue(entry) || !m_recorder.isInGap(index))
            continue;
        if (m_fresh.isFresh(entries, index))
            m_recorder.onRead(timeOfDay(), index, recordedValue(entry));
        else
            m_mayBeBack = true;
    }
}

void RecordRun::onLink(const LinkEvent& event)
{
    const QDateTime time = QDateTime::currentDateTime();
    if (m_options.connection.json)
        printJson(linkEventJson(event, time));
    else
        say(linkEventRow(event, time));
    if (event.kind != LinkEvent::LineLost && event.kind != LinkEvent::LineOpened)
        return;
    if (event.kind == LinkEvent::LineLost)
        return loseLine();
    m_isLineLost = false;
    const QVector<WatchEntry>& entries = m_watch.list().entries();
    for (int index = 0; index < entries.size(); ++index) {
        if (kx::hasFailed(entries.at(index)))
            m_recorder.onGap(timeOfDay(), index, gapReason(entries.at(index)));
    }
}

/// What was read before is still recorded; what is read from now on ends the gap.
void RecordRun::loseLine()
{
    noticeRest();
    const qint64 now = timeOfDay();
    takeNews(now);
    for (int index = 0; index < m_watch.list().entries().size(); ++index)
        m_recorder.onGap(now, index, GapReason::LineLost);
    m_isLineLost = true;
    m_fresh.skip(m_watch.list().entries());
    m_mayBeBack = true;
}

void RecordRun::onCycle(qint64 cycles)
{
    if (m_options.cycles == 0 || cycles < m_options.cycles)
        return;
    m_session->stop();
    // The changes that the last reply brought are reported after it.
    QMetaObject::invokeMethod(this, &RecordRun::finish, Qt::QueuedConnection);
}

void RecordRun::onLineLost(const Failure& failure)
{
    loseLine();
    fail(failure.text);
}

void RecordRun::fail(const QString& failure)
{
    if (m_failure.isEmpty())
        m_failure = failure;
    finish();
}

void RecordRun::finish()
{
    if (m_isFinished)
        return;
    m_isFinished = true;
    m_session->stop();
    m_serve.stop();
    m_sample.stop();
    noticeRest();
    const qint64 now = timeOfDay();
    takeNews(now);
    m_recorder.finish(now);
    if (m_failure.isEmpty())
        m_failure = m_recorder.failure();
    printSummary();
    emit finished();
}

bool RecordRun::hasFailed() const
{
    return !m_failure.isEmpty() || m_watch.hasDeviceFailed();
}

void RecordRun::announce() const
{
    const int values = static_cast<int>(m_watch.list().entries().size());
    if (m_options.connection.json)
        printJson({{QStringLiteral("event"), QStringLiteral("recording")},
                   {QStringLiteral("file"), m_recorder.file()},
                   {QStringLiteral("values"), values}});
    else
        say(QStringLiteral("recording %1 in %2; Ctrl-C ends")
                .arg(counted(values, "value", "values"), m_recorder.file()));
}

void RecordRun::printSummary() const
{
    const WatchSummary summary = m_watch.summary();
    if (m_options.connection.json) {
        QJsonObject json = summaryJson(summary);
        json[QLatin1String("samples")] = m_recorder.samples();
        json[QLatin1String("gaps")] = m_recorder.gaps();
        return printJson(json);
    }
    say(QStringLiteral("%1 and %2 recorded")
            .arg(counted(m_recorder.samples(), "value", "values"),
                 counted(m_recorder.gaps(), "gap", "gaps")));
    for (const QString& row : summaryRows(summary))
        say(row);
}

} // namespace kx
