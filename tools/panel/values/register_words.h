/// The bits of a value in the registers that hold it, in the order of its format.
#ifndef KX_PANEL_VALUES_REGISTER_WORDS_H
#define KX_PANEL_VALUES_REGISTER_WORDS_H

#include "panel/values/value_format.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>

namespace kx
{

/// Bits of a value: 1, 16, 32 or 64; of Ascii 16 for each word, of Plain 64, which hold any.
int bitsOf(const ValueFormat& format);

/// Up to four words as one number. A bit of a word gives that bit.
quint64 numberOfWords(const ValueFormat& format, const QList<qint64>& raw);
QList<qint64> wordsOfNumber(const ValueFormat& format, quint64 number);

/// The characters of a text, two of each word.
QByteArray bytesOfWords(const ValueFormat& format, const QList<qint64>& raw);
/// @param bytes filled up with zeros; at most two of each word
QList<qint64> wordsOfBytes(const ValueFormat& format, const QByteArray& bytes);

/// The number of that many bits as one with a sign.
qint64 withSign(quint64 number, int bits);

} // namespace kx

#endif
