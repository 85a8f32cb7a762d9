/// A serial line that lives in memory: the program's own read(), write() and
/// select() answer for one descriptor and pass all others on to the system.
#ifndef KX_BENCH_PEERS_IN_MEMORY_LINE_H
#define KX_BENCH_PEERS_IN_MEMORY_LINE_H

#include <string>

/// A descriptor that no system call ever gives out here.
const int IN_MEMORY_LINE = 1000;

/// What each request written to the line is answered with.
void answerWith(const std::string& reply);

#endif
