/// A plan as text for a person. Pure functions.
#ifndef KX_KXHOST_VIEWS_PLAN_TEXT_H
#define KX_KXHOST_VIEWS_PLAN_TEXT_H

#include "panel/plan/plan_lengths.h"

#include <QtCore/QStringList>

namespace kx
{

/// "36.9 ms".
QString timeText(qint64 microseconds);

/// "9600 baud, 10 bits per character, turnaround 5.0 ms, frame gap 3.6 ms".
QString lineText(const PlanTiming& timing);

/// A heading and a line per request: what it reads, registers asked for and
/// bridged, bytes both ways, time.
QStringList requestRows(const Plan& plan, const WatchedRanges& watched, const PlanTiming& timing);

/// A bar per request, between its first and its last address.
QStringList pictureRows(const Plan& plan, const WatchedRanges& watched);

/// What is wrong with requests: too long, past a split, asked for twice.
QStringList warningRows(const Plan& plan, const WatchedRanges& watched);

/// "Cycle: 2 requests, 16 bytes out, 34 in, 92.4 ms (10.8 cycles/s), line load 72 %".
QString cycleText(const CycleCost& cost);

/// A heading, a row of the chosen lengths ("auto") and one per limit worth showing, with the
/// best of the limits and what is in use marked.
/// @param maxWords in use; 0: the chosen lengths
QStringList lengthRows(const QList<LengthResult>& results, const LengthResult& chosen,
                       int maxWords);

} // namespace kx

#endif
