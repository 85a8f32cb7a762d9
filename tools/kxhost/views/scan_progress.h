/// How far a scan has come. Pure functions.
#ifndef KX_KXHOST_VIEWS_SCAN_PROGRESS_H
#define KX_KXHOST_VIEWS_SCAN_PROGRESS_H

#include <QtCore/QString>

namespace kx
{

/// "[####....................................] 25/247 stations, 1 answered".
QString scanBar(int done, int stations, int answered);

/// "2 of 247 stations answered", and how many were not asked when it was stopped.
QString scanSummary(int answered, int asked, int notAsked);

} // namespace kx

#endif
