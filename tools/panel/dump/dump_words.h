/// The words of a dump's file, for its writer and its reader.
#ifndef KX_PANEL_DUMP_DUMP_WORDS_H
#define KX_PANEL_DUMP_DUMP_WORDS_H

namespace kx
{

const char* const DUMP_WORD = "kx-dump";
const int DUMP_VERSION = 1;
const char* const READ_WORD = "read";
const char* const TO_WORD = "to";
const char* const STATION_WORD = "station";
const char* const END_WORD = "end";

} // namespace kx

#endif
