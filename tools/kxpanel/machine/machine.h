#ifndef KX_KXPANEL_MACHINE_MACHINE_H
#define KX_KXPANEL_MACHINE_MACHINE_H

#include "kxhost/options/connection_options.h"
#include "kxpanel/machine/machine_events.h"
#include "panel/jobs/job.h"

#include <functional>
#include <memory>

namespace kxpanel
{

class MachineJobs;
class MachineSession;

/// Makes a job of a session that runs, in the machine's thread. It may connect the job's signals
/// to objects of other threads, which then get them queued.
using JobMaker = std::function<std::unique_ptr<kx::Job>(kx::Session*)>;

/// The line and the driver at work on it, for a window: opens, polls, counts and runs jobs.
///
/// The program has it in a thread of its own, so that a busy screen neither slows the line nor
/// finds time-outs where there are none; tests may keep it in theirs. The methods may be called in
/// any thread and return at once: they are carried out in the machine's, in their order. Its
/// signals carry plain values.
class Machine : public QObject
{
    Q_OBJECT

public:
    explicit Machine(QObject* parent = nullptr);
    ~Machine() override;

    /// Opens a line, instead of the one that is open. opened or a fault comes as lineChanged().
    void openLine(const kx::ConnectionOptions& options);
    /// Ends all jobs and closes the line.
    void closeLine();
    /// Replaces what is polled, also while the line is open. What is known of addresses that stay
    /// is kept.
    void setValues(const QList<WatchedValue>& values);
    /// Longest requests from now on, whatever line is opened; 0: chosen so that they take the least
    /// time. While jobs run on an open line, once they have ended. Counts begin anew.
    void setLimits(int maxWords, int maxBits);
    /// Begins a job; jobEnded() comes exactly once, also when the line is not open.
    /// @param ticket names the job in the signals about it; newTicket()
    void startJob(int ticket, const JobMaker& make);
    void abortJob(int ticket);

    /// A number that no job has had yet, 1 or more. Any thread.
    static int newTicket();

signals:
    void lineChanged(const kxpanel::LineStatus& status);
    /// Gathered for up to 50 ms. All of a value are sent once more after setValues().
    void valuesRead(const QVector<kxpanel::Reading>& readings);
    /// Gathered for up to 50 ms, in the order of their ends.
    void exchanged(const QVector<kxpanel::Exchange>& exchanges);
    /// Twice a second while the line is open, and at its end.
    void counted(const kx::WatchSummary& summary);
    void cycleFinished(qint64 cycles);
    void jobProgress(int ticket, int done, int total);
    /// @param failure None when all was done
    void jobEnded(int ticket, const kx::Failure& failure);

private:
    struct Parts;

    /// In the machine's thread, later.
    void call(const std::function<void()>& function);
    void open(const kx::ConnectionOptions& options);
    /// @param reason empty: as asked for
    void close(const QString& reason);
    void failLater(const QString& reason);
    void onOpened();
    void beginSession();
    void beginWork(std::unique_ptr<MachineSession> work);
    void endSession();
    void useLimits();
    void tellLine(LineState state, const QString& fault);

    std::unique_ptr<Parts> m_parts;
    MachineJobs* m_jobs; ///< a child
};

} // namespace kxpanel

#endif
