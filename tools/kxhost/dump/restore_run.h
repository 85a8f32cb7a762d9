#ifndef KX_KXHOST_DUMP_RESTORE_RUN_H
#define KX_KXHOST_DUMP_RESTORE_RUN_H

#include "kxhost/dump/restore_view.h"
#include "kxhost/dump/whole_read.h"
#include "kxhost/options/dump_options.h"
#include "kxhost/terminal/question.h"
#include "panel/dump/differences.h"
#include "panel/jobs/write_job.h"

#include <QtCore/QStringList>

#include <memory>

namespace kx
{

/// Gives the controllers the values of a dump.
///
///     Reading --differ--> Asking --yes--> Writing --all tried--> Verifying
///        |                  |                |                       |
///        +-same, unread-----+-no-------------+-line lost-------------+--> Ended
///
/// An interrupt ends each state; with --yes nobody is asked. Nothing is written unless all was
/// read. A refused write leaves the others, a station that does not answer is left alone; what
/// the controllers hold in the end is read and decides.
class RestoreRun : public QObject
{
    Q_OBJECT

public:
    /// @param kept the values that can be written
    RestoreRun(Session* session, const KeptOptions& options, const QList<Assignment>& kept);
    ~RestoreRun() override;

    /// Runs the event loop until all is done or the user interrupts.
    /// @return an ExitCode
    int run();

private:
    enum class State { Reading, Asking, Writing, Verifying, Ended };

    void startJob(Job* job, void (RestoreRun::*next)());
    void read(State state, WholeRead* whole, void (RestoreRun::*next)());
    void onRead();
    void onAnswer(bool isYes);
    void writeNext();
    void onWritten(const WriteOutcome& outcome);
    void leaveAlone(int station);
    void onVerified();
    QString causeOf(const Difference& difference) const;
    void onInterrupt();
    void onLineLost(const Failure& failure);
    /// Nothing more is to be asked for; what is under way is called off.
    void onStop(const QString& reason);
    /// Ends with what was written until then.
    void stop(const QString& reason);
    RestoreResult resultSoFar() const;
    void conclude(const RestoreResult& result);

    Session* m_session;
    RestoreView m_view;
    QList<Assignment> m_kept;
    int m_maxWords; ///< of a write
    bool m_isAgreed;
    State m_state = State::Reading;
    QString m_stopReason; ///< empty while nothing stops the run
    std::unique_ptr<Job> m_job;
    Question m_question;
    WholeRead m_before;
    WholeRead m_after;
    QList<Difference> m_differences;
    QList<Assignment> m_writes; ///< not yet tried
    ControllerValues m_written; ///< and confirmed
    QStringList m_perhaps;      ///< writes that no station confirmed or refused
    int m_exitCode = 0;
};

} // namespace kx

#endif
