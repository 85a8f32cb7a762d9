/// What a line of a sequence names: a tag or a typed address, and its values as text.
#ifndef KX_PANEL_SEQUENCE_OPERAND_H
#define KX_PANEL_SEQUENCE_OPERAND_H

#include "panel/files/tags_file.h"

#include <QtCore/QJsonValue>
#include <QtCore/QStringList>

namespace kx
{

/// "pressure (D100@1)", or a typed address with its format: "D100@1/float".
QString operandText(const Tag& tag);

/// Whether one request of at most that many registers reads, or writes, a value of the tag: all of
/// its registers are then of one moment. `*fault` says why not.
bool fitsRequest(const Tag& tag, int maxWords, QString* fault);

/// Whether the tag's addresses may be written. Of a word that the controller changes by itself no
/// single bit may: what happens between the read and the write of the word would be lost.
bool isWritable(const Tag& tag, QString* fault);

/// Typed values as what the addresses hold, one text for each value. A bit is also `on` or `off`.
/// @return false and in `*fault` what is wrong with which of them
bool parseValues(const Tag& tag, const QStringList& typed, QList<qint64>* values, QString* fault);

/// The first value as it is expected somewhere: the bounds of what may be written do not matter.
bool parseExpected(const Tag& tag, const QString& typed, QString* shown, QString* fault);

/// The first value as it is compared: with all of its digits.
QString comparedText(const Tag& tag, const QList<qint64>& values);

/// The first value as it is shown, with its unit: "4.50 bar".
QString shownText(const Tag& tag, const QList<qint64>& values);

} // namespace kx

#endif
