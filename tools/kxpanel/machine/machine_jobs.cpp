#include "kxpanel/machine/machine_jobs.h"

#include <vector>

namespace kxpanel
{

void MachineJobs::start(int ticket, const JobMaker& make, kx::Session* session)
{
    std::unique_ptr<kx::Job> made = make(session);
    if (!made) // whoever makes it knows why
        return emit ended(ticket,
                          kx::failureOf(kx::FailureKind::SessionEnded, tr("it was not begun")));
    kx::Job* const job = made.get();
    m_running[ticket] = std::move(made);
    connect(job, &kx::Job::progress, this,
            [this, ticket](int done, int total) { emit progress(ticket, done, total); });
    connect(job, &kx::Job::finished, this, [this, ticket] { onFinished(ticket); });
    job->start();
}

void MachineJobs::abort(int ticket)
{
    const auto job = m_running.find(ticket);
    if (job != m_running.end())
        job->second->abort(tr("cancelled"));
}

void MachineJobs::endAll(const kx::Failure& failure)
{
    m_failure = failure;
    std::vector<kx::Job*> jobs;
    for (const auto& running : m_running)
        jobs.push_back(running.second.get());
    for (kx::Job* const job : jobs) // of which each deletes itself later
        job->abort(failure.text);
    m_failure = kx::Failure();
}

void MachineJobs::onFinished(int ticket)
{
    const auto found = m_running.find(ticket);
    kx::Job* const job = found->second.release(); // this is one of its own signals
    m_running.erase(found);
    emit ended(ticket, m_failure.isNone() ? job->failure() : m_failure);
    job->setParent(this); // at the thread's end no event comes by any more that would delete it
    job->deleteLater();
}

} // namespace kxpanel
