/// What a watched value is called and how it is shown. Pure functions.
#ifndef KX_KXHOST_VIEWS_ENTRY_TEXT_H
#define KX_KXHOST_VIEWS_ENTRY_TEXT_H

#include "panel/watch/watch_list.h"

#include <QtCore/QJsonObject>

namespace kx
{

/// Its first address, and the bit of a word: "D100", "X17", "D100.5".
QString entryAddress(const WatchEntry& entry);

/// The same as rows show it: with its format, "D100/float", when the list has it in several.
QString shownAddress(const WatchEntry& entry);

/// "1234", "12.5 bar"; nothing while the value is unknown.
QString entryValue(const WatchEntry& entry);

/// "1", "0x04D2", "0x000186A0"; of several registers each, in the order of their addresses, the
/// first four at most: "0x0000 0x4148". Nothing while the value is unknown.
QString hexValue(const WatchEntry& entry);

/// As tagJson(); "value" unless its last read failed, and where a format makes that differ from the
/// registers those as "raw".
QJsonObject valueJson(const WatchEntry& entry);

} // namespace kx

#endif
