/// Tells whether a list of jobs is as the driver left it.
#ifndef TARVELAN_DRIVER_JOB_SEAL_H
#define TARVELAN_DRIVER_JOB_SEAL_H

#include "driver/records.h"

#include <QtCore/QList>

/// Between calls of the driver anybody may change the cyclic read jobs. An implicitly shared
/// copy of them is a seal: a list that was open for writing is not shared with it any more. So
/// nobody need look through the payloads, a kilobyte each, for what was written there.
class JobSeal
{
public:
    /// Seals the list as it is.
    void put(const QList<VARIABLE>& list) { m_sealed = list; }

    /// Takes the seal off, else the driver's own writing would copy the list. True when the
    /// list is as it was sealed.
    bool takeOff(const QList<VARIABLE>& list)
    {
        const bool isWhole = list.isSharedWith(m_sealed);
        QList<VARIABLE>().swap(m_sealed);
        return isWhole;
    }

private:
    QList<VARIABLE> m_sealed; // empty: no seal
};

/// Of `driver.readList`, while all its payloads are blank. As long as that object lives.
extern JobSeal* blankReadJobs;

#endif
