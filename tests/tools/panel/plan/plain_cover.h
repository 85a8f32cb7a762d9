/// What reading scattered addresses takes at least, found by trying all requests.
#ifndef KX_TESTS_TOOLS_PANEL_PLAN_PLAIN_COVER_H
#define KX_TESTS_TOOLS_PANEL_PLAN_PLAIN_COVER_H

#include "addresses/address_text.h"
#include "exchange/lines/line_timing.h"

#include <QtCore/QList>

namespace kx
{

/// Microseconds for requests that are all answered, each piece being one.
/// @param turnaround microseconds
double timeOf(const QList<AddressRange>& pieces, const LineTiming& line, qint64 turnaround);

/// The least of all covers by contiguous mapped addresses, of at most 125 registers or 2,000
/// coils each.
double leastTime(const QList<AddressRange>& ranges, const LineTiming& line, qint64 turnaround);

/// What is wrong with pieces as a cover of the ranges; empty when nothing is.
QString faultOfCover(const QList<AddressRange>& ranges, const QList<AddressRange>& pieces);

} // namespace kx

#endif
