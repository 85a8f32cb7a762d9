/// What `kxhost plan` takes.
#ifndef KX_KXHOST_OPTIONS_PLAN_OPTIONS_H
#define KX_KXHOST_OPTIONS_PLAN_OPTIONS_H

#include "panel/files/tags_file.h"
#include "panel/plan/plan_timing.h"

#include <QtCore/QCommandLineParser>

namespace kx
{

struct PlanOptions {
    QList<AddressRange> watched; ///< each names its station
    PlanTiming timing;
    int maxWords = 32;
};

/// Declares --baud, --parity, --data-bits, --stop-bits, --turnaround, --station,
/// --max-words and --tags.
void addPlanOptions(QCommandLineParser* parser);

/// Reads them. False and one line in `*error` when a value is wrong, or when
/// nothing is to be watched.
bool parsePlanOptions(const QCommandLineParser& parser, PlanOptions* options, QString* error);

/// "5ms", "5", "2.5 ms", "800us" or "0.1s" as microseconds, at most a minute; false
/// for anything else. A bare number is milliseconds.
bool parseDuration(const QString& text, qint64* microseconds);

} // namespace kx

#endif
