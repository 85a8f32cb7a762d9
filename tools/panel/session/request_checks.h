/// What a session refuses, since the driver would send something else or nothing. Pure functions.
#ifndef KX_PANEL_SESSION_REQUEST_CHECKS_H
#define KX_PANEL_SESSION_REQUEST_CHECKS_H

#include "exchange/failure.h"
#include "panel/session/session_events.h"

namespace kx
{

/// A refusal of that range.
Failure refusal(FailureKind kind, const AddressRange& range, const QString& text);

/// No failure when the registers exist, and one request can read each value of several.
Failure rangeRefusal(const AddressRange& range);

/// No failure when the range can be read by one request of at most `maxWords` registers, or is
/// one value, which takes as many as it has.
Failure readRefusal(const AddressRange& range, int maxWords);

/// No failure when the values suit their type; how many requests they take does not matter.
Failure assignmentRefusal(const Assignment& assignment);

/// No failure when the values suit their type and can be written by one request.
Failure writeRefusal(const Assignment& assignment, int maxWords);

/// No failure when one request can write the range, whatever its values.
Failure writeRefusal(const AddressRange& range, int maxWords);

} // namespace kx

#endif
