/// A session that polls simulated controllers in virtual time, while jobs run on it.
#ifndef KX_TESTS_TOOLS_PANEL_JOBS_POLLING_RUN_H
#define KX_TESTS_TOOLS_PANEL_JOBS_POLLING_RUN_H

#include "panel/jobs/read_job.h"
#include "panel/jobs/recipe_job.h"
#include "panel/jobs/scan_job.h"
#include "panel/jobs/write_job.h"
#include "tools/faults/faulty_run.h"

namespace kx
{

/// What is polled: station 1, function 3, register 0, 8 registers.
const char* const POLLED = "01 03 00 00 00 08";

class PollingRun
{
public:
    /// Stations 1 and 2 answer; each request is tried twice.
    PollingRun();

    FaultyRun& run() { return *m_run; }
    Session& session() { return m_run->session(); }
    /// Ends the session, which says so to its jobs.
    void deleteRun() { m_run.reset(); }

    /// Goes on until the condition holds; false when nothing happens any more.
    bool until(const std::function<bool()>& isEnough);
    bool untilEnded(const Job& job);
    /// Until that request, without its CRC, has reached its station.
    bool untilOnTheWay(const QString& request);
    /// Until so many polled requests more have been answered.
    bool pollsGoOn(int polls = 10);

    /// Requests that were answered or tried in vain, without their CRC, repeats and the polled
    /// ones left out.
    const QStringList& asked() const { return m_asked; }
    QList<quint32> memory(const char* range);

private:
    std::unique_ptr<FaultyRun> m_run;
    QStringList m_asked;
    int m_polls = 0;
    QString m_onItsWay;
};

Assignment assignmentOf(const char* text);
Tag tagOf(const char* range);
/// Of rows as "name,station,register,address,type,value".
RecipeLayout layoutOf(const char* rows);

} // namespace kx

#endif
