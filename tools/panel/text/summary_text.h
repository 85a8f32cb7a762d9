/// The figures of a run as text. Pure functions.
#ifndef KX_PANEL_TEXT_SUMMARY_TEXT_H
#define KX_PANEL_TEXT_SUMMARY_TEXT_H

#include "addresses/export.h"
#include "exchange/replies/statistics.h"

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

namespace kx
{

/// Figures of a whole run, as shown at its end.
struct WatchSummary {
    Statistics statistics;
    LineTiming timing;
    qint64 elapsed = 0; ///< milliseconds
    qint64 cycles = 0;
    qint64 missed = 0; ///< times that a tag with an interval was not read within it
};

/// "36 requests in 12 cycles: 34 accepted, 2 repeated, 0 failed", on a line with
/// faults what they were, and a line with the speed.
KXRUNTIME_EXPORT QStringList summaryRows(const WatchSummary& summary);

KXRUNTIME_EXPORT QJsonObject summaryJson(const WatchSummary& summary);

/// "12.3 requests/s, line load 45.6 %"; without the load on a network.
KXRUNTIME_EXPORT QString speedText(const WatchSummary& summary);

} // namespace kx

#endif
