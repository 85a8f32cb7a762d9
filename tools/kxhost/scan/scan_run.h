#ifndef KX_KXHOST_SCAN_SCAN_RUN_H
#define KX_KXHOST_SCAN_SCAN_RUN_H

#include "kxhost/options/connection_options.h"
#include "kxhost/scan/scan_view.h"
#include "panel/jobs/scan_job.h"

#include <QtCore/QElapsedTimer>

namespace kx
{

/// Asks stations in one format of the line after the other, each on a session of its own, until
/// one answers; that format then holds for all stations.
class ScanRun
{
public:
    /// @param formats  1 or more, in the order in which they are tried
    /// @param stations 1 to 247, each once
    ScanRun(const ConnectionOptions& options, const QList<LineFormat>& formats,
            const QList<int>& stations);

    /// Runs the event loop until all is done, the line is lost or an interrupt comes; returns an
    /// ExitCode.
    int run();

private:
    /// False when the scan is over: the line cannot be opened or is lost, or it was interrupted.
    bool ask(const SearchStep& step);
    void runToItsEnd(ScanJob* job, Session* session, const LineFormat& format);
    /// The steps until one is answered; the format of the last one.
    LineFormat search();
    void askTheOthers(const LineFormat& format);
    int conclude(const LineFormat& format);
    ScanProgress progress() const;

    ConnectionOptions m_options;
    QList<LineFormat> m_formats;
    QList<int> m_stations;
    ScanView m_view;
    QElapsedTimer m_time;
    ScanJob* m_job = nullptr;  ///< at work
    int m_total;               ///< requests, when no station answers
    int m_done = 0;            ///< requests of jobs that have ended
    QList<SearchStep> m_asked; ///< what these jobs came to
    int m_answered = 0;
    int m_openResult = 0; ///< an ExitCode
    QString m_lost;       ///< why the line is
    bool m_isInterrupted = false;
};

} // namespace kx

#endif
