/// The requests not yet answered, `tarvelan::frameList`.
#ifndef TARVELAN_MODBUS_FRAME_LIST_H
#define TARVELAN_MODBUS_FRAME_LIST_H

#include "driver/records.h"

#include <QtCore/QList>

/// Appends a frame for that job, all else zero. The result is good until the list changes.
/// @param job copied; stays the caller's
FRAME_PRO& appendFrame(const VARIABLE& job);

/// Takes the frame on the wire, the first, out of the list. One must be there.
void dropFirstFrame();

/// The frame answered last, for the next request to be made in, or none: two kilobytes need
/// not be taken from the heap and given back for each request. There as long as the object
/// `driver` lives.
extern QList<FRAME_PRO>* spareFrame;

#endif
