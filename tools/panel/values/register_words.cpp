#include "panel/values/register_words.h"

namespace kx
{

namespace
{

const int REGISTER_BITS = 16;
const int BYTE_BITS = 8;
const quint64 REGISTER_MASK = 0xFFFF;
const quint64 COUNTER_MASK = 0xFFFFFFFF;

quint64 inOrder(const ValueFormat& format, quint64 word)
{
    word &= REGISTER_MASK;
    return format.swapsBytes ? (word >> BYTE_BITS | word << BYTE_BITS) & REGISTER_MASK : word;
}

/// How far a word of the value is from its lowest bit.
int shiftOf(const ValueFormat& format, int index)
{
    const int words = registersOf(format);
    return REGISTER_BITS * (format.order == WordOrder::HighFirst ? words - 1 - index : index);
}

} // namespace

int bitsOf(const ValueFormat& format)
{
    if (format.kind == ValueKind::Bit)
        return 1;
    if (format.kind == ValueKind::Plain)
        return 64;
    return format.isCounter ? 2 * REGISTER_BITS : REGISTER_BITS * registersOf(format);
}

quint64 numberOfWords(const ValueFormat& format, const QList<qint64>& raw)
{
    if (registersOf(format) == 1) {
        const quint64 first = static_cast<quint64>(raw.first());
        if (format.bit >= 0)
            return first >> format.bit & 1;
        const bool isWhole = format.isCounter || format.kind == ValueKind::Plain;
        return isWhole ? first : inOrder(format, first);
    }
    quint64 number = 0;
    for (int i = 0; i < registersOf(format); ++i)
        number |= inOrder(format, static_cast<quint64>(raw.at(i))) << shiftOf(format, i);
    return number;
}

QList<qint64> wordsOfNumber(const ValueFormat& format, quint64 number)
{
    if (format.kind == ValueKind::Plain || format.kind == ValueKind::Bit)
        return {static_cast<qint64>(number)}; // may be below 0, as plain values are written
    if (format.isCounter)
        return {static_cast<qint64>(number & COUNTER_MASK)};
    QList<qint64> raw;
    for (int i = 0; i < registersOf(format); ++i)
        raw << static_cast<qint64>(inOrder(format, number >> shiftOf(format, i)));
    return raw;
}

QByteArray bytesOfWords(const ValueFormat& format, const QList<qint64>& raw)
{
    QByteArray bytes;
    for (const qint64 word : raw) {
        const quint64 ordered = inOrder(format, static_cast<quint64>(word));
        bytes += static_cast<char>(ordered >> BYTE_BITS);
        bytes += static_cast<char>(ordered);
    }
    return bytes;
}

QList<qint64> wordsOfBytes(const ValueFormat& format, const QByteArray& bytes)
{
    const QByteArray filled = bytes.leftJustified(2 * registersOf(format), '\0');
    QList<qint64> raw;
    for (int i = 0; i < registersOf(format); ++i) {
        const quint64 high = static_cast<uchar>(filled.at(2 * i));
        const quint64 low = static_cast<uchar>(filled.at(2 * i + 1));
        raw << static_cast<qint64>(inOrder(format, high << BYTE_BITS | low));
    }
    return raw;
}

qint64 withSign(quint64 number, int bits)
{
    const int unused = 64 - bits;
    return static_cast<qint64>(number << unused) >> unused;
}

} // namespace kx
