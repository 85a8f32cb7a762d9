#include "panel/session/recipe_feed.h"

#include "data/reply_handling.h"
#include "exchange/driver_memory.h"
#include "panel/session/driver_values.h"

#include <utility>

namespace kx
{

namespace
{

bool isRecipeJob(const VARIABLE& job)
{
    return job.kind == RECIPE_WRITE_JOB || job.kind == RECIPE_READ_JOB;
}

/// A refusal tells of this request only: an earlier try may have been obeyed.
bool leavesOpen(const ExchangeRecord& record)
{
    return record.replyKind != ReplyKind::NotSent && record.replyKind != ReplyKind::NeverSilent
           && record.replyKind != ReplyKind::Exception;
}

} // namespace

bool RecipeFeed::load(const std::vector<quint16>& words)
{
    const bool fits = words.size() <= static_cast<size_t>(RECIPE_BUFFER_WORDS);
    if (fits)
        m_words = words;
    return fits;
}

void RecipeFeed::add(int handle, RecipeDirection direction, const QList<RecipePass>& passes)
{
    const bool sendsWords = direction == RecipeDirection::Download;
    m_waiting.append({handle, direction, sendsWords ? m_words : std::vector<quint16>(), passes});
}

void RecipeFeed::feed()
{
    if (m_current.handle == 0) {
        if (m_waiting.isEmpty())
            return;
        m_current = m_waiting.takeFirst();
        m_unsettled = AddressRange();
        m_port->recipeMemory().load(m_current.words);
    }
    if (m_isPassUnderWay)
        return;
    m_isPassUnderWay = true;
    m_port->startRecipe(m_current.direction, m_current.passes.first().variables);
}

RecipeFeed::Step RecipeFeed::onExchange(const ExchangeRecord& record)
{
    if (!m_isPassUnderWay || !isRecipeJob(record.job) || record.result == REPLY_IGNORED)
        return Step();
    Step step;
    step.handle = m_current.handle;
    const AddressRange block = rangeOf(record.job);
    if (record.result != REPLY_ACCEPTED) {
        if (leavesOpen(record))
            m_unsettled = block;
        if (record.result == REPLY_RETRY)
            return step;
        step = takeCurrent(nullptr);
        step.end.failure = failureOf(record);
        return step;
    }
    m_unsettled = AddressRange();
    const bool isPassOver = !m_port->isRecipePending();
    if (isPassOver) {
        m_isPassUnderWay = false;
        m_current.passes.removeFirst();
        if (m_current.passes.isEmpty())
            step = takeCurrent(nullptr);
    }
    step.block = block;
    return step;
}

RecipeFeed::Step RecipeFeed::takeCurrent(const VARIABLE* inFlight)
{
    Step step;
    step.handle = std::exchange(m_current, Recipe()).handle;
    step.hasEnded = true;
    // What is in flight may be a block of one that was given up before.
    step.end.unsettled = inFlight && m_port->isRecipeOut() ? rangeOf(*inFlight) : m_unsettled;
    m_unsettled = AddressRange();
    m_isPassUnderWay = false;
    return step;
}

RecipeFeed::Step RecipeFeed::take(int handle, const VARIABLE* inFlight)
{
    if (handle == 0)
        return Step();
    if (handle == m_current.handle) {
        Step step = takeCurrent(inFlight);
        m_port->withdrawRecipe();
        return step;
    }
    for (int i = 0; i < m_waiting.size(); ++i) {
        if (m_waiting.at(i).handle != handle)
            continue;
        m_waiting.removeAt(i);
        Step step;
        step.handle = handle;
        step.hasEnded = true;
        return step;
    }
    return Step();
}

QList<RecipeFeed::Step> RecipeFeed::takeAll(const VARIABLE* inFlight)
{
    QList<Step> steps;
    while (m_current.handle != 0 || !m_waiting.isEmpty())
        steps << take(m_current.handle != 0 ? m_current.handle : m_waiting.first().handle,
                      inFlight);
    return steps;
}

} // namespace kx
