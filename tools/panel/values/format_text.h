/// Formats as people type them behind an address: /float, /ascii:8, /s16*0.1+5, /u32,high.
///
///     KIND[:WORDS][*SCALE][+OFFSET|-OFFSET][,OPTION]...
///
/// The kinds are u16 s16 hex bin bcd u32 s32 float u64 s64 double ascii:N and bit; without one the
/// value is as its register type has it. Options: low, high, swapped, decimals=N, min=NUMBER,
/// max=NUMBER, and last unit=TEXT.
#ifndef KX_PANEL_VALUES_FORMAT_TEXT_H
#define KX_PANEL_VALUES_FORMAT_TEXT_H

#include "panel/values/value_format.h"

namespace kx
{

const int MOST_SCALE_DIGITS = 9;
const int MOST_DECIMALS = 30;
const int MOST_TEXT_WORDS = 123;

/// Parses what stands behind the slash. Whether it suits a register type says fitFormat(). False
/// and one line in `*fault` when it is no format; `*format` is then partly changed.
/// ValueFormat::bit, which stands before the slash, is left alone.
KXRUNTIME_EXPORT bool parseFormat(const QString& text, ValueFormat* format, QString* fault);

// One part each, as the columns of a tags file hold them; what is wrong without the part in front.
KXRUNTIME_EXPORT bool parseKind(const QString& text, ValueFormat* format, QString* fault);
KXRUNTIME_EXPORT bool parseOrder(const QString& text, ValueFormat* format, QString* fault);
KXRUNTIME_EXPORT bool parseScale(const QString& text, ValueFormat* format, QString* fault);
KXRUNTIME_EXPORT bool parseOffset(const QString& text, ValueFormat* format, QString* fault);
KXRUNTIME_EXPORT bool parseDecimals(const QString& text, ValueFormat* format, QString* fault);
KXRUNTIME_EXPORT bool parseLowest(const QString& text, ValueFormat* format, QString* fault);
KXRUNTIME_EXPORT bool parseHighest(const QString& text, ValueFormat* format, QString* fault);

/// What parseFormat() takes, without the slash; empty when nothing differs from plain.
KXRUNTIME_EXPORT QString formatText(const ValueFormat& format);

/// "u16, s16, hex, ...".
KXRUNTIME_EXPORT QString formatNames();

} // namespace kx

#endif
