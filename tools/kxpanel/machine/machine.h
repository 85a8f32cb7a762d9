#ifndef KX_KXPANEL_MACHINE_MACHINE_H
#define KX_KXPANEL_MACHINE_MACHINE_H

#include "kxhost/options/connection_options.h"
#include "kxpanel/machine/machine_events.h"
#include "kxpanel/machine/session_times.h"
#include "panel/jobs/job.h"

#include <atomic>
#include <functional>
#include <memory>

namespace kxpanel
{

class Backlog;
class MachineJobs;
class MachineSession;

/// Makes a job of a session that runs, in the machine's thread. It may connect the job's signals
/// to objects of other threads, which then get them queued.
using JobMaker = std::function<std::unique_ptr<kx::Job>(kx::Session*)>;

/// Requests no longer than that, and within it as long as takes the least time, as the window
/// predicts.
/// @param maxWords in registers; 0: as many as a request can ask for, as of maxBits
kx::SessionSettings limited(const kx::SessionSettings& settings, int maxWords, int maxBits);

/// The line and the driver at work on it, for a window: opens, polls, counts and runs jobs.
///
/// The program has it in a thread of its own, so that a busy screen neither slows the line nor
/// finds time-outs where there are none; tests may keep it in theirs. The methods may be called in
/// any thread and return at once: they are carried out in the machine's, in their order. Its
/// signals carry plain values.
///
/// What is told to a thread that stands still waits there. takeListener() bounds how much; beyond
/// that only the latest is kept, and missed() says so.
class Machine : public QObject
{
    Q_OBJECT

public:
    /// @param clocks called in the machine's thread
    explicit Machine(QObject* parent = nullptr, const Clocks& clocks = &systemTimes);
    ~Machine() override;

    /// From now on what is told waits for the thread of `listener`, which must outlive this. Before
    /// anything else, and once.
    /// @param backlog stays the caller's and must outlive this
    void takeListener(QObject* listener, Backlog* backlog);

    /// Opens a line, instead of the one that is open. opened or a fault comes as lineChanged().
    /// @param readsValues false: the line is for jobs alone, and values stay as they are known
    void openLine(const kx::ConnectionOptions& options, bool readsValues = true);
    /// Ends all jobs and closes the line.
    void closeLine();
    /// The same at once, for good. In the machine's thread, behind all else that is asked of it.
    void end();
    /// Replaces what is polled, also while the line is open. What is known of addresses that stay
    /// is kept. On a simulated line each of their stations answers.
    void setValues(const QList<WatchedValue>& values);
    /// Longest requests of the open line from now on, as limited(). While jobs run, once they have
    /// ended. Counts begin anew.
    void setLimits(int maxWords, int maxBits);
    /// Begins a job; jobEnded() comes exactly once. It fails at once when the line is not open or
    /// lost, and when the line stays lost for as long as a request to a silent station is tried:
    /// nobody expects it to be carried out hours later.
    /// @param ticket names the job in the signals about it; newTicket()
    void startJob(int ticket, const JobMaker& make);
    void abortJob(int ticket);
    /// Whether a job was asked for that has not ended. Any thread.
    bool isAtWork() const { return m_jobsAsked > 0; }

    /// A number that no job has had yet, 1 or more. Any thread.
    static int newTicket();

signals:
    /// By setLimits(), in the thread that called it: whoever opens the line later may want them.
    void limitsSet(int maxWords, int maxBits);
    void lineChanged(const kxpanel::LineStatus& status);
    /// Gathered for up to 50 ms: of each value its changes in the order of their reads, and its
    /// latest read. That of all values is sent once more after setValues().
    void valuesRead(const QVector<kxpanel::Reading>& readings);
    /// Gathered for up to 50 ms, in the order of their ends.
    void exchanged(const QVector<kxpanel::Exchange>& exchanges);
    /// Twice a second while the line is open, and at its end.
    void counted(const kx::WatchSummary& summary);
    /// Gathered for up to 50 ms: the latest.
    void cycleFinished(qint64 cycles);
    /// Before what follows it.
    void missed(const kxpanel::Missed& missed);
    /// The system's time of day was set, which moves all times told before. While the line is open
    /// what is known of all values follows, with the new ones.
    /// @param by milliseconds; negative: back
    void clockSet(qint64 by);
    /// Behind each batch, for the backlog: how much it was.
    void told(int amount);
    void jobProgress(int ticket, int done, int total);
    /// @param failure None when all was done
    void jobEnded(int ticket, const kx::Failure& failure);

private:
    struct Parts;

    /// In the machine's thread, later.
    void call(const std::function<void()>& function);
    void open(const kx::ConnectionOptions& options, bool readsValues);
    /// @param reason empty: as asked for
    void close(const QString& reason);
    void failLater(const QString& reason);
    void onOpened();
    QString holders() const;
    void simulateStations();
    void beginSession();
    void beginWork(std::unique_ptr<MachineSession> work);
    void endSession();
    void useLimits();
    void onLinkChanged(bool isLost, const QString& fault);
    void onRequestsShortened(int station, const kx::StationRules& rules);
    void onJobEnded(int ticket, const kx::Failure& failure);
    void tellLine(LineState state, const QString& fault);
    void lookAtClocks();

    std::unique_ptr<Parts> m_parts;
    MachineJobs* m_jobs; ///< a child
    std::atomic<int> m_jobsAsked{0};
};

} // namespace kxpanel

#endif
