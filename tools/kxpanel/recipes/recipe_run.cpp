#include "kxpanel/recipes/recipe_run.h"

#include "addresses/request_limits.h"
#include "kxpanel/machine/machine.h"
#include "panel/jobs/recipe_job.h"

#include <algorithm>

namespace kxpanel
{

namespace
{

/// Null, with the reason in the outcome, when no request can hold a value of these rows.
std::unique_ptr<kx::Job> makeJob(kx::Session* session, const QList<kx::RecipeRow>& rows,
                                 const std::shared_ptr<RecipeOutcome>& outcome)
{
    const int maxWords = std::min(session->settings().maxWords, kx::MOST_REGISTERS_PER_WRITE);
    kx::RecipeLayout layout;
    if (!kx::layOutRecipe(rows, maxWords, &layout, &outcome->fault))
        return nullptr;
    outcome->blocks = layout.blocks();
    auto job = std::make_unique<kx::RecipeJob>(session, layout, outcome->direction);
    const kx::RecipeJob* const ending = job.get();
    QObject::connect(ending, &kx::Job::finished, ending, [ending, rows, outcome] {
        outcome->values = ending->values(rows);
        outcome->blocksDone = ending->blocksDone();
        outcome->blockMaybeDone = ending->blockMaybeDone();
    });
    return job;
}

} // namespace

RecipeRun::RecipeRun(Machine* machine, QObject* parent) : QObject(parent), m_machine(machine)
{
    connect(machine, &Machine::jobProgress, this, [this](int ticket, int done, int total) {
        if (isRunning() && ticket == m_ticket)
            emit progress(done, total);
    });
    connect(machine, &Machine::jobEnded, this, &RecipeRun::onJobEnded);
}

void RecipeRun::start(kx::RecipeDirection direction, const QList<kx::RecipeRow>& rows)
{
    if (isRunning())
        return;
    m_ticket = Machine::newTicket();
    m_outcome = std::make_shared<RecipeOutcome>();
    m_outcome->direction = direction;
    m_machine->startJob(m_ticket, [rows, outcome = m_outcome](kx::Session* session) {
        return makeJob(session, rows, outcome);
    });
}

void RecipeRun::abort()
{
    if (isRunning())
        m_machine->abortJob(m_ticket);
}

void RecipeRun::onJobEnded(int ticket, const kx::Failure& failure)
{
    if (!isRunning() || ticket != m_ticket)
        return;
    m_ticket = 0;
    const std::shared_ptr<RecipeOutcome> outcome = std::move(m_outcome);
    if (outcome->fault.isEmpty() && !failure.isNone())
        outcome->fault = failure.text;
    outcome->wasAborted = failure.kind == kx::FailureKind::Aborted;
    emit ended(*outcome);
}

} // namespace kxpanel
