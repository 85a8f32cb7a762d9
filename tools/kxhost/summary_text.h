/// The figures of a run as text. Pure functions.
#ifndef KX_TOOLS_SUMMARY_TEXT_H
#define KX_TOOLS_SUMMARY_TEXT_H

#include "kxhost/watch_view.h"

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

/// "36 requests in 12 cycles: 34 accepted, 2 repeated, 0 failed", on a line with
/// faults what they were, and a line with the speed.
QStringList summaryLines(const WatchSummary& summary);

QJsonObject summaryJson(const WatchSummary& summary);

/// "12.3 requests/s, line load 45.6 %"; without the load on a network.
QString speedText(const WatchSummary& summary);

#endif
