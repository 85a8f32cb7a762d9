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
    qint64 word = -1;  ///< as which a single bit was written; -1: it was not, or is no single bit
};

/// Writes assignments of any length, one after the other. An assignment of which a piece
/// failed is given up; the next one is tried all the same. Progress counts assignments.
///
/// A single bit of a word (Assignment::bit) takes a read of the word and a write of all of it; what
/// the controller changes in the word between the two is lost. Only D and Z take it.
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
    void readWord();
    bool hasSucceeded(int handle, const Failure& failure);
    void onWord(int handle, const ReadEnd& end);
    void writeNextPiece();
    void onEnd(int handle, const WriteEnd& end);
    void tell(const Failure& failure);
    void settle(const Failure& failure);

    QList<Assignment> m_assignments; ///< not yet finished
    QList<Assignment> m_pieces;      ///< of the first assignment, not yet confirmed
    int m_confirmed = 0;             ///< values of the first assignment
    qint64 m_word = -1;              ///< of the first assignment, a single bit
    int m_total;
};

} // namespace kx

Q_DECLARE_METATYPE(kx::WriteOutcome)

#endif
