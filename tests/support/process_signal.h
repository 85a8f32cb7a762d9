#ifndef KX_TESTS_SUPPORT_PROCESS_SIGNAL_H
#define KX_TESTS_SUPPORT_PROCESS_SIGNAL_H

#include <QtCore/QtGlobal>

/// Sends a signal to one process, and never to a group: for kill() 0 is the caller's own
/// group, which holds the test run and the shell that started it, and 0 is what
/// QProcess::processId() gives for a process that has ended.
/// @param processId its number, such as of a child
/// @param signal as in <csignal>; 0 only looks whether the process is there
/// @return false when there is no such process or the number is none of a process
bool signalProcess(qint64 processId, int signal);

#endif
