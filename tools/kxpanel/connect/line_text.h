/// The state of the line for the eye: in words, by a symbol and by colour. Pure functions.
#ifndef KX_KXPANEL_CONNECT_LINE_TEXT_H
#define KX_KXPANEL_CONNECT_LINE_TEXT_H

#include "kxpanel/machine/machine_events.h"

#include <QtGui/QColor>
#include <QtGui/QPalette>

namespace kxpanel
{

/// "connected", "line lost, being opened again".
QString stateText(const LineStatus& status);

/// One character, which tells the states apart without colour.
QString stateSymbol(const LineStatus& status);

/// Can be read on the palette's windows. A line with a fault looks otherwise than a sound one.
QColor stateColour(const LineStatus& status, const QPalette& palette);

/// Text that says what is wrong.
QColor faultColour(const QPalette& palette);

} // namespace kxpanel

#endif
