#ifndef KX_PANEL_JOBS_SCAN_JOB_H
#define KX_PANEL_JOBS_SCAN_JOB_H

#include "addresses/export.h"
#include "panel/jobs/job.h"
#include "panel/jobs/scan_reply.h"

#include <QtCore/QSet>

namespace kx
{

/// Asks every station for one register, in their order, and tells who answers. What is polled
/// goes on. A session that allows one bad reply asks each station once. Progress counts stations
/// asked; a number that no station has counts along and is the job's failure.
class KXRUNTIME_EXPORT ScanJob : public Job
{
    Q_OBJECT

public:
    /// @param stations 1 to 247, each once
    ScanJob(Session* session, const QList<int>& stations, QObject* parent = nullptr);

    int asked() const { return m_asked; }
    int answered() const { return static_cast<int>(m_answered.size()); }

signals:
    /// At most once per station; comes before the progress.
    void stationAnswered(const kx::ScanReply& reply);

private:
    void begin() override { askNextStation(); }
    void giveUp(const Failure&) override {}
    void askNextStation();
    void onEnd(int handle, const ReadEnd& end);

    QList<int> m_stations;
    QSet<int> m_answered;
    int m_asked = 0;
};

} // namespace kx

#endif
