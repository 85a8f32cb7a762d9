/// How far a scan has come. Pure functions.
#ifndef KX_KXHOST_VIEWS_SCAN_PROGRESS_H
#define KX_KXHOST_VIEWS_SCAN_PROGRESS_H

#include <QtCore/QString>

namespace kx
{

struct ScanProgress {
    int done = 0;  ///< requests
    int total = 0; ///< 1 or more; fewer may do, when the settings of the line are found
    int answered = 0;
    qint64 milliseconds = 0; ///< since the first request
};

/// Milliseconds that the rest takes at most, when it takes as long as what was done; 0 while
/// nothing was.
qint64 timeLeft(const ScanProgress& progress);

/// "[##......................] 25/247 stations, 1 answered, 44 s left".
QString scanBar(const ScanProgress& progress);

/// The same of a search: "[##......................] 38400 8E1 30/1976, 0 answered, 6 min 29 s
/// left".
/// @param format "38400 8E1"
QString searchBar(const QString& format, const ScanProgress& progress);

/// "2 of 247 stations answered", and how many were not asked when it was stopped.
QString scanSummary(int answered, int asked, int notAsked);

} // namespace kx

#endif
