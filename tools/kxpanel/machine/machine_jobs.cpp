#include "kxpanel/machine/machine_jobs.h"

namespace kxpanel
{

void MachineJobs::start(int ticket, const JobMaker& make, kx::Session* session)
{
    std::unique_ptr<kx::Job> made = session ? make(session) : nullptr;
    if (!made) {
        emit ended(ticket,
                   kx::failureOf(kx::FailureKind::SessionEnded, tr("the line is not open")));
        return;
    }
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

void MachineJobs::onFinished(int ticket)
{
    const auto found = m_running.find(ticket);
    kx::Job* const job = found->second.release(); // this is one of its own signals
    m_running.erase(found);
    emit ended(ticket, job->failure());
    job->deleteLater();
}

} // namespace kxpanel
