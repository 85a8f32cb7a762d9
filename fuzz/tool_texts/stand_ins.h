/// What stands in for the parts of kxhost that reach outside the program: its console,
/// its line, its driver and its recipe files. Linked in front of kxhost's own.
#ifndef KX_FUZZ_TOOL_TEXTS_STAND_INS_H
#define KX_FUZZ_TOOL_TEXTS_STAND_INS_H

#include <QtCore/QStringList>

namespace kx
{

/// What was complained about since the last call.
QStringList takeComplaints();

/// The JSON printed since the last call, an object each.
QStringList takeJson();

/// Whether commands get the driver, or are told that it cannot be loaded.
void lendDriver(bool lends);

} // namespace kx

#endif
