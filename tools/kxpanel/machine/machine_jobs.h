#ifndef KX_KXPANEL_MACHINE_MACHINE_JOBS_H
#define KX_KXPANEL_MACHINE_MACHINE_JOBS_H

#include "kxpanel/machine/machine.h"

#include <map>

namespace kxpanel
{

/// The jobs that run on a session, by the tickets of those who asked for them. Used in the
/// session's thread.
class MachineJobs : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Begins a job; ended() comes exactly once, possibly before this returns.
    void start(int ticket, const JobMaker& make, kx::Session* session);
    /// Nothing happens when it has ended.
    void abort(int ticket);
    /// Ends all; each with this failure.
    void endAll(const kx::Failure& failure);
    bool isEmpty() const { return m_running.empty(); }

signals:
    void progress(int ticket, int done, int total);
    void ended(int ticket, const kx::Failure& failure);

private:
    void onFinished(int ticket);

    std::map<int, std::unique_ptr<kx::Job>> m_running;
    kx::Failure m_failure; ///< of endAll(), while that is at work
};

} // namespace kxpanel

#endif
