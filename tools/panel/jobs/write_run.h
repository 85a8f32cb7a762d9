/// Writes, one assignment after the other.
#ifndef KX_PANEL_JOBS_WRITE_RUN_H
#define KX_PANEL_JOBS_WRITE_RUN_H

#include "panel/session/driver_session.h"

namespace kx
{

struct WriteOutcome {
    Assignment assignment;
    QString failure;   ///< empty when the station confirmed all values
    int confirmed = 0; ///< values, from the first
};

/// Queues one write at a time, so that each answer is known to belong to it. An
/// assignment whose piece failed is given up; the next one is tried all the same.
class WriteRun : public QObject
{
    Q_OBJECT

public:
    WriteRun(DriverSession* session, const QList<Assignment>& assignments);

    void start();
    /// Ends the run; what was not confirmed has failed for that reason.
    void abort(const QString& reason);
    bool hasFailed() const { return m_hasFailed; }

signals:
    void assignmentFinished(const WriteOutcome& outcome);
    void finished();

private:
    void queueAssignment();
    void takeExchange(const ExchangeRecord& record);
    void tell(const QString& failure);
    void settle(const QString& failure);

    DriverSession* m_session;
    QList<Assignment> m_assignments; ///< not yet finished
    QList<Assignment> m_pieces;      ///< of the first assignment, not yet confirmed
    int m_confirmed = 0;             ///< values of the first assignment
    bool m_hasFailed = false;
};

} // namespace kx

#endif
