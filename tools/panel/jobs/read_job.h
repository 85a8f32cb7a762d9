#ifndef KX_PANEL_JOBS_READ_JOB_H
#define KX_PANEL_JOBS_READ_JOB_H

#include "addresses/export.h"
#include "panel/files/tags_file.h"
#include "panel/jobs/job.h"

namespace kx
{

struct ReadOutcome {
    Tag tag;
    Failure failure;      ///< none when all values were read
    QList<qint64> values; ///< one per address, none after a failure
};

/// Reads ranges of any length once, one after the other. A range that failed is given up; the
/// next one is tried all the same. Progress counts ranges.
class KXRUNTIME_EXPORT ReadJob : public Job
{
    Q_OBJECT

public:
    /// @param tags their ranges must name their stations
    ReadJob(Session* session, const QList<Tag>& tags, QObject* parent = nullptr);

signals:
    /// For each range once, in their order.
    void rangeFinished(const kx::ReadOutcome& outcome);

private:
    void begin() override { readNextRange(); }
    void giveUp(const Failure& reason) override;
    void readNextRange();
    void readNextPiece();
    void onEnd(int handle, const ReadEnd& end);
    void settle(const Failure& failure);

    QList<Tag> m_tags;            ///< not yet finished
    QList<AddressRange> m_pieces; ///< of the first tag, not yet read
    QList<qint64> m_values;       ///< of the first tag
    int m_total;
};

} // namespace kx

Q_DECLARE_METATYPE(kx::ReadOutcome)

#endif
