/// What `kxhost plan` takes.
#ifndef KX_KXHOST_OPTIONS_PLAN_OPTIONS_H
#define KX_KXHOST_OPTIONS_PLAN_OPTIONS_H

#include "panel/files/tags_file.h"
#include "panel/plan/plan_timing.h"
#include "panel/session/session_settings.h"

#include <QtCore/QCommandLineParser>

namespace kx
{

struct PlanOptions {
    QList<AddressRange> watched; ///< each names its station
    PlanTiming timing;
    SessionSettings lengths;
};

/// Declares --baud, --parity, --data-bits, --stop-bits, --turnaround, --station,
/// --max-words, --max-bits and --tags.
void addPlanOptions(QCommandLineParser* parser);

/// Reads them. False and one line in `*error` when a value is wrong, or when
/// nothing is to be watched.
bool parsePlanOptions(const QCommandLineParser& parser, PlanOptions* options, QString* error);

} // namespace kx

#endif
