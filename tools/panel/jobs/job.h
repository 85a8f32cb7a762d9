#ifndef KX_PANEL_JOBS_JOB_H
#define KX_PANEL_JOBS_JOB_H

#include "addresses/export.h"
#include "panel/session/session.h"

#include <QtCore/QPointer>

#include <functional>

namespace kx
{

/// Something that takes several requests of a running session, and ends exactly once.
///
///     Waiting --start()--> Running --done, failed, abort(), session ended--> Ended
///        |                                                                    ^
///        +--abort()-----------------------------------------------------------+
///
/// A job neither starts nor stops the session. Several may run on one session: each follows its
/// own requests by their handles, and their requests are sent in the order in which they
/// were asked for. A job ends early, with the reason in failure(), when the line is lost for good,
/// the session stops, is initialised again or deleted, and at once when it is started on a
/// session that does not run.
///
/// Call it on the session's thread. It may be deleted at any time, but inside its own signals and
/// those of the session with deleteLater(); then what it still waits for is called off and
/// finished() does not come.
class KXRUNTIME_EXPORT Job : public QObject
{
    Q_OBJECT

public:
    ~Job() override;

    /// Once; later calls do nothing. finished() may come before it returns.
    void start();
    /// Ends the job with FailureKind::Aborted and `reason` as its text; finished() comes before
    /// it returns. A request that is on its way may still be carried out. Nothing happens when
    /// the job has ended.
    void abort(const QString& reason);

    bool isRunning() const { return m_state == State::Running; }
    bool hasEnded() const { return m_state == State::Ended; }

    /// Why not all was done: the first failure. Kind None while nothing has failed.
    const Failure& failure() const { return m_failure; }

signals:
    /// @param done parts that have ended, well or not, of `total`; which parts, each job says
    void progress(int done, int total);
    /// The last signal, once.
    void finished();

protected:
    explicit Job(Session* session, QObject* parent = nullptr);

    /// Asks for the first request, or ends the job.
    virtual void begin() = 0;
    /// The job is about to end early: tell what will not be done.
    virtual void giveUp(const Failure& reason) = 0;

    /// Null once the session is deleted; never null while the job runs.
    Session* session() const { return m_session; }
    /// Makes a request, of which it returns the handle, and waits for its end; that and no other
    /// is for the job. A slot may call the job off meanwhile: then the request is, too.
    /// Nothing may follow, since a slot may even have deleted the job.
    void await(const std::function<int(Session*)>& request);
    /// Whether this is the end of the request awaited, which is then no longer.
    bool takesEnd(int handle);
    bool isAwaited(int handle) const { return handle != 0 && handle == m_awaited; }
    /// Whether a request failed since the session does not go on with it or with others.
    bool isSessionOver(const Failure& failure) const;
    /// Keeps the first failure.
    void noteFailure(const Failure& failure);
    /// All was tried.
    void end();
    void endEarly(const Failure& reason);

private:
    enum class State { Waiting, Running, Ended };

    QPointer<Session> m_session;
    State m_state = State::Waiting;
    int m_awaited = 0;
    Failure m_failure;
};

} // namespace kx

#endif
