/// The texts of a recording as a table: a row for each time, a column for each tag.
///
///     time,Pressure D100/float@1 [bar],Y10@1,gaps
///     2026-11-22T20:30:00.000Z,4.5,1,
///     2026-11-22T20:30:01.000Z,,0,no answer: D100/float@1
///
/// An empty field has no value at that time. The last column names the gaps that begin with the
/// row; a reason alone is that of all tags. Numbers stand bare, text in quotes.
#ifndef KX_RECORDING_CSV_CSV_RECORDING_TEXT_H
#define KX_RECORDING_CSV_CSV_RECORDING_TEXT_H

#include "recording/recorded.h"

#include <QtCore/QByteArray>
#include <QtCore/QMap>

namespace kx
{

/// Tags without a value by reason.
using GapsByReason = QMap<GapReason, QList<int>>;

/// The first line with its line end; with a byte-order mark, by which spreadsheets know UTF-8,
/// when it is more than ASCII.
QByteArray csvHeader(const QList<RecordedTag>& tags);

/// Reads a first line without its line end. False when it is none of a recording.
bool parseCsvHeader(const QByteArray& line, QList<RecordedTag>* tags);

/// "4.5", or "\"no \"\"flow\"\"\"" of text.
QByteArray csvValue(const RecordedValue& value);

/// The last field of a row.
QByteArray csvGaps(const GapsByReason& gaps, const QList<RecordedTag>& tags);

/// Reads a row without its line end; gaps come behind the values.
/// @return false and what is wrong in `*fault`
bool parseCsvRow(const QByteArray& line, const QList<RecordedTag>& tags,
                 QList<RecordedEvent>* events, QString* fault);

} // namespace kx

#endif
