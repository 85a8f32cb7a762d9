/// The figures of a listening as text. Pure functions.
#ifndef KX_KXHOST_LISTEN_LISTEN_SUMMARY_H
#define KX_KXHOST_LISTEN_LISTEN_SUMMARY_H

#include "exchange/lines/line_timing.h"
#include "listen/line_counts.h"

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

namespace kx
{

struct ListenSummary {
    LineCounts counts;
    LineTiming timing;
    qint64 elapsed = 0; ///< microseconds
};

/// What was heard, a table of the stations, who broke the gap, and what belongs to nothing.
QStringList listenRows(const ListenSummary& summary);

QJsonObject listenJson(const ListenSummary& summary);

} // namespace kx

#endif
