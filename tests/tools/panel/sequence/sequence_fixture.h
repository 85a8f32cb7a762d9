/// Sequences out of texts, for tests.
#ifndef KX_TESTS_TOOLS_PANEL_SEQUENCE_SEQUENCE_FIXTURE_H
#define KX_TESTS_TOOLS_PANEL_SEQUENCE_SEQUENCE_FIXTURE_H

#include "panel/sequence/sequence_text.h"

namespace kx
{

/// Tags for tests: pump is Y10, "Pump running" is M5 of station 2, pressure is D100/u16*0.1 in bar,
/// level is D7, recipe is D200:4, M1 is Y7, and serial is D300/ascii:4.
QList<Tag> someTags();

/// Of lines that use someTags(); ends the test when something is wrong with them.
Sequence sequenceOf(const QByteArray& text);

} // namespace kx

#endif
