#include "recording/recorder.h"

#include <QtCore/QFileInfo>

#include <algorithm>

namespace kx
{

bool Recorder::open(const QList<RecordedTag>& tags, qint64 now, QString* error)
{
    m_tags = tags;
    m_states = QVector<State>(static_cast<int>(tags.size()));
    if (!openFile(now, error))
        return false;
    recordAll(now);
    return true;
}

bool Recorder::openFile(qint64 now, QString* error)
{
    m_file = m_settings.path;
    for (int number = 1; m_settings.rotation.isSet(); ++number) {
        m_file = rotatedName(m_settings.path, now, number);
        if (!QFileInfo::exists(m_file))
            break;
    }
    m_begin = now;
    m_writer = recordingWriterFor(m_settings.path, m_settings.every == 0);
    return m_writer->open(m_file, m_tags, error);
}

void Recorder::onRead(qint64 now, int tag, const RecordedValue& value)
{
    State& state = m_states[tag];
    const bool isOther = state.isGap || state.value != value;
    state.isGap = false;
    state.value = value;
    state.isNew = true;
    if (m_settings.every == 0 && isOther)
        record(now, tag);
}

void Recorder::onGap(qint64 now, int tag, GapReason reason)
{
    State& state = m_states[tag];
    if (state.isGap && state.reason == reason)
        return;
    beginGap(&state, reason);
    if (m_settings.every == 0)
        record(now, tag);
}

void Recorder::beginGap(State* state, GapReason reason)
{
    state->isGap = true;
    state->reason = reason;
    state->isNew = true;
}

void Recorder::beginGapsOfUnread()
{
    for (State& state : m_states) {
        if (!state.isNew && !state.isGap)
            beginGap(&state, GapReason::NotRead);
    }
}

void Recorder::sample(qint64 now)
{
    beginGapsOfUnread();
    recordNew(now);
    m_lastSample = now;
}

void Recorder::recordNews(qint64 now)
{
    if (std::any_of(m_states.cbegin(), m_states.cend(),
                    [](const State& state) { return state.isNew && !state.isGap; }))
        beginGapsOfUnread();
    recordNew(now);
}

void Recorder::recordNew(qint64 now)
{
    recordMissed(now);
    for (int tag = 0; tag < m_states.size(); ++tag) {
        if (m_states.at(tag).isNew)
            record(now, tag);
    }
}

/// The gap of samples that nobody took begins with the first of them. What is new comes behind it.
void Recorder::recordMissed(qint64 now)
{
    if (m_settings.every == 0 || m_lastSample == 0 || now - m_lastSample <= 2 * m_settings.every)
        return;
    for (int tag = 0; tag < m_states.size(); ++tag) {
        State& state = m_states[tag];
        if (!state.hasRecordedValue)
            continue;
        const State news = state;
        beginGap(&state, GapReason::NotRead);
        record(m_lastSample + m_settings.every, tag);
        if (news.isNew && (!news.isGap || news.reason != GapReason::NotRead)) {
            state = news;
            state.hasRecordedValue = false;
        }
    }
}

void Recorder::rest(qint64 since)
{
    for (int tag = 0; tag < m_states.size(); ++tag) {
        if (!isInGap(tag))
            onGap(since, tag, GapReason::NotRead);
    }
}

void Recorder::record(qint64 now, int tag)
{
    State& state = m_states[tag];
    state.isNew = false;
    state.hasRecordedValue = !state.isGap;
    if (!m_failure.isEmpty())
        return;
    m_flush.onRecord(now);
    if (state.isGap)
        m_writer->gap(now, tag, state.reason);
    else
        m_writer->sample(now, tag, state.value);
    ++(state.isGap ? m_gaps : m_samples);
}

/// What a file begins with.
void Recorder::recordAll(qint64 now)
{
    for (int tag = 0; tag < m_states.size(); ++tag) {
        if (m_states.at(tag).isGap || m_settings.every == 0)
            record(now, tag);
    }
}

bool Recorder::serve(qint64 now)
{
    if (!m_failure.isEmpty())
        return false;
    recordMissed(now);
    if (m_flush.isDue(now)) {
        m_writer->flush();
        m_flush.onFlush();
    }
    m_failure = m_writer->failure();
    return m_failure.isEmpty() && m_settings.rotation.isDue(m_begin, now, m_writer->size())
           && openNextFile(now);
}

bool Recorder::openNextFile(qint64 now)
{
    m_writer->close();
    m_failure = m_writer->failure();
    if (!m_failure.isEmpty() || !openFile(now, &m_failure))
        return false;
    m_flush.onFlush();
    recordAll(now);
    return true;
}

void Recorder::finish(qint64 now)
{
    if (m_failure.isEmpty()) {
        for (int tag = 0; tag < m_states.size(); ++tag)
            m_writer->gap(now, tag, GapReason::RecorderStopped);
    }
    m_writer->close();
    if (m_failure.isEmpty())
        m_failure = m_writer->failure();
}

} // namespace kx
