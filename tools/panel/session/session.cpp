#include "panel/session/session.h"

#include "data/reply_handling.h"
#include "panel/session/recipe_checks.h"
#include "panel/session/request_checks.h"
#include "panel/session/session_parts.h"
#include "system/translated_text.h"

#include <algorithm>
#include <utility>

namespace kx
{

std::unique_ptr<Session> Session::create(const DriverEntryPoints& entryPoints, Line* line,
                                         const SessionSettings& settings, QString* error,
                                         LoopClock* clock)
{
    std::unique_ptr<Session> session(new Session(entryPoints, line, settings, clock));
    if (session->m_parts->port.isHeld())
        return session;
    *error = DriverLease::refusal();
    return nullptr;
}

Session::Session(const DriverEntryPoints& entryPoints, Line* line, const SessionSettings& settings,
                 LoopClock* clock)
    : m_parts(new Parts(entryPoints, line, settings, clock, this)),
      m_line(line),
      m_settings(settings)
{
    registerEventTypes();
    connect(m_parts->loop, &ExchangeLoop::exchanged, this, &Session::onExchange);
    connect(m_parts->loop, &ExchangeLoop::idle, this, &Session::onIdle);
    connect(m_parts->loop, &ExchangeLoop::lineFailed, this, &Session::onLineLost);
}

Session::~Session()
{
    m_isGone = true;
    stop();
    tellWaitingEnds();
}

void Session::stop()
{
    m_parts->loop->stop();
    endAll(failureOf(FailureKind::SessionEnded, Text::tr("the session has ended")));
}

void Session::initialise()
{
    m_parts->polling.replace({});
    endAll(failureOf(FailureKind::DriverInitialised, Text::tr("the driver was initialised again")));
    m_parts->loop->wake();
}

void Session::onLineLost(const QString& error)
{
    const Failure failure = failureOf(FailureKind::LineLost, error);
    endAll(failure);
    emit lineFailed(failure);
}

int Session::read(const AddressRange& range)
{
    const int handle = newHandle();
    if (accepts(handle, CONDITION_READ_JOB, readRefusal(range, m_settings.maxWords)))
        m_parts->reads.add(handle, {range, {}});
    return issued(handle);
}

int Session::write(const Assignment& assignment)
{
    const int handle = newHandle();
    if (!accepts(handle, WRITE_JOB, writeRefusal(assignment, m_settings.maxWords)))
        return handle;
    if (m_settings.writeLocalOnly) {
        m_parts->port.write(assignment);
        tellLater({handle, WRITE_JOB, RecipeEnd()});
    } else {
        m_parts->writes.add(handle, assignment);
    }
    return issued(handle);
}

int Session::transferRecipe(RecipeDirection direction, const QList<RecipePass>& passes)
{
    const int handle = newHandle();
    const int maxWords = std::min(m_settings.maxWords, MOST_REGISTERS_PER_WRITE);
    if (accepts(handle, RECIPE_WRITE_JOB, recipeRefusal(direction, passes, maxWords)))
        m_parts->recipes.add(handle, direction, passes);
    return issued(handle);
}

bool Session::accepts(int handle, JobKind kind, Failure refusal)
{
    if (handle == 0)
        return false;
    if (refusal.isNone() && !isRunning())
        refusal = failureOf(FailureKind::SessionEnded, Text::tr("the session does not run"));
    if (!refusal.isNone())
        tellLater({handle, kind, {refusal, AddressRange()}});
    return refusal.isNone();
}

/// Nothing about a handle is told before the caller knows it, even if a slot stops the session.
int Session::issued(int handle)
{
    m_issuing.append(handle);
    handOver();
    m_parts->loop->wake();
    m_issuing.removeLast();
    return handle;
}

void Session::handOver()
{
    m_parts->writes.feed();
    m_parts->reads.feed();
    if (!m_isTelling)
        m_parts->recipes.feed();
    tellChanges();
}

bool Session::cancel(int handle, const QString& reason)
{
    Ended ended = {handle, NO_JOB, {failureOf(FailureKind::Aborted, reason), AddressRange()}};
    if (m_parts->reads.take(handle).handle != 0) {
        ended.kind = CONDITION_READ_JOB;
    } else if (m_parts->writes.take(handle).handle != 0) {
        ended.kind = WRITE_JOB;
    } else {
        const RecipeFeed::Step recipe = m_parts->recipes.take(handle, m_parts->loop->jobInFlight());
        if (recipe.handle == 0)
            return false;
        ended.kind = RECIPE_WRITE_JOB;
        ended.end.unsettled = recipe.end.unsettled;
    }
    tell(ended);
    handOver();
    m_parts->loop->wake();
    return true;
}

void Session::onExchange(const ExchangeRecord& record)
{
    m_wasAskedAgain = false;
    // What has ended has ended, whatever a slot does next.
    const RequestFeed::Request read = m_parts->reads.takeEnded(record);
    const RequestFeed::Request write = m_parts->writes.takeEnded(record);
    const RecipeFeed::Step recipe = m_parts->recipes.onExchange(record);
    const bool isPoll = record.job.kind == CYCLIC_READ_JOB;
    const PollEvents poll = isPoll ? m_parts->polling.onExchange(record) : PollEvents();
    QList<qint64> values;
    if (read.handle != 0 && record.result == REPLY_ACCEPTED)
        values = m_parts->port.answeredValues(read.wanted.range);
    if (recipe.block.type && record.job.kind == RECIPE_READ_JOB)
        m_uploaded = m_parts->port.answeredValues(recipe.block);

    m_isTelling = true;
    emit exchanged(record);
    tellChanges();
    if (read.handle != 0)
        emit readFinished(read.handle, {values, failureOf(record), record});
    if (write.handle != 0)
        emit writeFinished(write.handle, {failureOf(record), record});
    if (recipe.block.type)
        emit recipeBlockDone(recipe.handle, recipe.block);
    if (recipe.hasEnded)
        emit recipeFinished(recipe.handle, recipe.end);
    if (isPoll)
        tellPoll(record, poll);
    m_isTelling = false;
    handOver();
}

/// After five writes, or three reads, in a row without a polled read the driver says once that
/// it has nothing, though more wait; and a request that was given up makes room for the next.
void Session::onIdle()
{
    const bool isAskedAgain = m_wasAskedAgain;
    if (!isAskedAgain)
        handOver();
    m_wasAskedAgain =
        !isAskedAgain && (m_parts->port.hasQueued() || m_parts->port.isRecipePending());
    if (m_wasAskedAgain)
        return m_parts->loop->wake();
    m_parts->loop->wakeBy(m_parts->port.polls().schedule().nextAt());
    emit idle();
}

void Session::tellChanges()
{
    // A slot may write, which adds changes.
    const QList<ValueChange> changes = m_parts->port.takeChanges();
    for (ValueChange change : changes) {
        change.value = m_parts->port.values(change.range).first();
        emit valueChanged(change);
    }
}

void Session::endAll(const Failure& failure)
{
    const QList<RecipeFeed::Step> recipes = m_parts->recipes.takeAll(m_parts->loop->jobInFlight());
    QList<Ended> all;
    for (const RequestFeed::Request& write : m_parts->writes.takeAll())
        all << Ended{write.handle, WRITE_JOB, {failure, AddressRange()}};
    for (const RequestFeed::Request& read : m_parts->reads.takeAll())
        all << Ended{read.handle, CONDITION_READ_JOB, {failure, AddressRange()}};
    for (const RecipeFeed::Step& recipe : recipes)
        all << Ended{recipe.handle, RECIPE_WRITE_JOB, {failure, recipe.end.unsettled}};
    if (failure.kind == FailureKind::DriverInitialised)
        m_parts->port.initialise();
    else
        m_parts->port.giveUpQueued();
    tellChanges();
    for (const Ended& ended : all)
        tell(ended);
}

void Session::tellLater(const Ended& ended)
{
    if (m_toTell.isEmpty())
        QMetaObject::invokeMethod(this, &Session::tellWaitingEnds, Qt::QueuedConnection);
    m_toTell.append(ended);
}

void Session::tellWaitingEnds()
{
    const QList<Ended> all = std::exchange(m_toTell, {});
    for (const Ended& ended : all)
        tell(ended);
}

void Session::tell(const Ended& ended)
{
    if (m_issuing.contains(ended.handle))
        tellLater(ended);
    else if (ended.kind == CYCLIC_READ_JOB)
        emit failed(ended.end.failure);
    else if (ended.kind == CONDITION_READ_JOB)
        emit readFinished(ended.handle, {{}, ended.end.failure, ExchangeRecord()});
    else if (ended.kind == WRITE_JOB)
        emit writeFinished(ended.handle, {ended.end.failure, ExchangeRecord()});
    else
        emit recipeFinished(ended.handle, ended.end);
}

} // namespace kx
