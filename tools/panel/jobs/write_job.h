#ifndef KX_PANEL_JOBS_WRITE_JOB_H
#define KX_PANEL_JOBS_WRITE_JOB_H

#include "addresses/export.h"
#include "panel/jobs/job.h"

namespace kx
{

struct WriteOutcome {
    Assignment assignment;
    Failure failure;   ///< none when the station confirmed all values
    int confirmed = 0; ///< values, from the first
};

/// Writes assignments of any length, one after the other. An assignment of which a piece
/// failed is given up; the next one is tried all the same. Progress counts assignments.
class KXRUNTIME_EXPORT WriteJob : public Job
{
    Q_OBJECT

public:
    /// @param assignments their ranges must name their stations
    WriteJob(Session* session, const QList<Assignment>& assignments, QObject* parent = nullptr);

signals:
    /// For each assignment once, in their order.
    void assignmentFinished(const kx::WriteOutcome& outcome);

private:
    void begin() override { writeNextAssignment(); }
    void giveUp(const Failure& reason) override;
    void writeNextAssignment();
    void writeNextPiece();
    void onEnd(int handle, const WriteEnd& end);
    void tell(const Failure& failure);
    void settle(const Failure& failure);

    QList<Assignment> m_assignments; ///< not yet finished
    QList<Assignment> m_pieces;      ///< of the first assignment, not yet confirmed
    int m_confirmed = 0;             ///< values of the first assignment
    int m_total;
};

} // namespace kx

Q_DECLARE_METATYPE(kx::WriteOutcome)

#endif
