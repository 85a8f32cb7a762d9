#ifndef KX_PANEL_JOBS_READ_JOB_H
#define KX_PANEL_JOBS_READ_JOB_H

#include "addresses/export.h"
#include "panel/files/tags_file.h"
#include "panel/jobs/job.h"

#include <memory>

namespace kx
{

struct ReadOutcome {
    Tag tag;
    Failure failure;      ///< none when all values were read
    QList<qint64> values; ///< one per address, none after a failure
};

class WantedValues;
class WholeValues;

/// Reads ranges of any length once. They are joined to the requests that take the least time on
/// the line, of at most the session's lengths; addresses between may be read along. A station
/// that does not answer is not asked again: all its ranges have failed. What a station refuses
/// is asked for in halves, down to single ranges, so that only what it lacks fails. A value of
/// several registers is of one reply. Progress counts ranges.
class KXRUNTIME_EXPORT ReadJob : public Job
{
    Q_OBJECT

public:
    /// @param tags their ranges must name their stations
    ReadJob(Session* session, const QList<Tag>& tags, QObject* parent = nullptr);
    ~ReadJob() override;

signals:
    /// For each range once, in their order.
    void rangeFinished(const kx::ReadOutcome& outcome);

private:
    void begin() override;
    void giveUp(const Failure& reason) override;
    void goOn();
    void tellFinished();
    void onEnd(int handle, const ReadEnd& end);
    void onFailure(const AddressRange& piece, const Failure& failure);
    void onRefusal(const AddressRange& piece, const Failure& failure);
    QList<AddressRange> halvesOf(const AddressRange& piece, const WholeValues& values) const;

    std::unique_ptr<WantedValues> m_wanted;
    QList<AddressRange> m_edges;  ///< where one begins, or has ended, in rising order
    QList<AddressRange> m_pieces; ///< not yet read
    int m_total;
};

} // namespace kx

Q_DECLARE_METATYPE(kx::ReadOutcome)

#endif
