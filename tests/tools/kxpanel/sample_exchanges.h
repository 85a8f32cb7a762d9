/// Exchanges for tests of the window.
#ifndef KX_TESTS_TOOLS_KXPANEL_SAMPLE_EXCHANGES_H
#define KX_TESTS_TOOLS_KXPANEL_SAMPLE_EXCHANGES_H

#include "kxpanel/machine/machine_events.h"

namespace kxpanel
{

/// 2026-11-22 10:00:00.000 UTC, in milliseconds since 1970.
const qint64 SAMPLE_TIME = 1795341600000;

/// A poll of D100:2 at station 1, answered by 1234 and 17 after 5 ms: 30 ms from SAMPLE_TIME on.
Exchange answeredPoll();

/// The same, of which nothing came back within 300 ms, and which is sent once more.
Exchange unansweredPoll();

/// A write of Y10 = 1 at station 2, which refuses it after 3.1 ms.
Exchange refusedWrite();

/// So many answered polls, one every 50 ms, each of which is a cycle.
QVector<Exchange> answeredPolls(int count);

} // namespace kxpanel

#endif
