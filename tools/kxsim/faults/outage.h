/// Stations that die and come back by schedule.
#ifndef KX_KXSIM_FAULTS_OUTAGE_H
#define KX_KXSIM_FAULTS_OUTAGE_H

#include "kxsim/timing/moment.h"

#include <QtCore/QList>
#include <QtCore/QString>

namespace kxsim
{

/// A station hears nothing in [from, to) since the start, or of each period.
struct Outage {
    int station = 0;
    Moment from{0};
    Moment to = Moment::max(); ///< max(): for good
    Moment period{0};          ///< 0: once
};

/// Reads STATION@FROM..[TO][/PERIOD]: 3@10s..30s once, 3@10s.. for good, 3@10s..30s/60s
/// in each minute. False and one line in `*error` for anything else, or when the end
/// comes before the beginning or behind the period; `*outage` is then untouched.
bool parseOutage(const QString& text, Outage* outage, QString* error);

/// Whether one of the outages keeps a station silent at a time.
bool isDown(const QList<Outage>& outages, int station, Moment now);

} // namespace kxsim

#endif
