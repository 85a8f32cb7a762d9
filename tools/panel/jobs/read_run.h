/// One-off reads, one range after the other.
#ifndef KX_PANEL_JOBS_READ_RUN_H
#define KX_PANEL_JOBS_READ_RUN_H

#include "panel/files/tags_file.h"
#include "panel/session/driver_session.h"

namespace kx
{

struct ReadOutcome {
    Tag tag;
    QString failure;      ///< empty when all values were read
    QList<qint64> values; ///< one per address, none after a failure
};

/// Queues one condition read at a time: the driver reports the end of the one
/// queued last and, after a failure, drops all that are queued. A range whose
/// piece failed is given up; the next one is tried all the same.
class ReadRun : public QObject
{
    Q_OBJECT

public:
    ReadRun(DriverSession* session, const QList<Tag>& tags);

    void start();
    /// Ends the run; what was not read has failed for that reason.
    void abort(const QString& reason);
    bool hasFailed() const { return m_hasFailed; }

signals:
    void rangeFinished(const ReadOutcome& outcome);
    void finished();

private:
    void queueRange();
    void takeExchange(const ExchangeRecord& record);
    void takeEnd(int result);
    void settle(const QString& failure);

    DriverSession* m_session;
    QList<Tag> m_tags;            ///< not yet finished
    QList<AddressRange> m_pieces; ///< of the first tag, not yet read
    QString m_lastReason;         ///< what came of the latest request
    bool m_hasFailed = false;
};

} // namespace kx

#endif
