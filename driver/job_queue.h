/// The queue that pending writes and condition reads share.
#ifndef TARVELAN_DRIVER_JOB_QUEUE_H
#define TARVELAN_DRIVER_JOB_QUEUE_H

#include "driver/export.h"
#include "driver/records.h"

#include <QtCore/QList>

/// Queues one job. A pending job of the same station, type, address and count is
/// overwritten in place, the head excepted: it may already be on the wire. The
/// queue never grows beyond 513 jobs; when it is full, the job at index 512 is
/// replaced.
/// @param job copied; stays the caller's
KX_EXPORT void addVarToList(QList<VARIABLE>& list, VARIABLE& job);

/// Whether two jobs have the same station, type, address and count.
bool sameTarget(const VARIABLE& a, const VARIABLE& b);

#endif
