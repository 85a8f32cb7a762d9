#include "kxpanel/line/limit/answer_pace.h"

#include <cmath>

namespace kxpanel
{

namespace
{

const double FAR_OFF = 1.0 / 4; // of the time
const double FAR_ENOUGH = 500;  // microseconds
const double FAR_PER_BYTE = 10; // microseconds, of which there are dozens to hundreds

bool isSameLine(const kx::LineTiming& one, const kx::LineTiming& other)
{
    return one.baud == other.baud && one.bitsPerCharacter() == other.bitsPerCharacter();
}

bool isFar(double one, double other, double enough)
{
    const double off = std::abs(one - other);
    return off > enough && off > FAR_OFF * one;
}

bool areFar(const QMap<int, qint64>& one, const QMap<int, qint64>& other)
{
    if (one.keys() != other.keys())
        return true;
    for (auto time = one.begin(); time != one.end(); ++time) {
        if (isFar(static_cast<double>(*time), static_cast<double>(other.value(time.key())),
                  FAR_ENOUGH))
            return true;
    }
    return false;
}

} // namespace

bool operator==(const AnswerPace& one, const AnswerPace& other)
{
    return isSameLine(one.line, other.line) && one.turnarounds == other.turnarounds
           && one.replyTimeout == other.replyTimeout && one.shortened == other.shortened
           && one.isNetwork == other.isNetwork && one.perByte == other.perByte
           && one.each == other.each;
}

bool areFarApart(const AnswerPace& one, const AnswerPace& other)
{
    return !isSameLine(one.line, other.line) || one.isNetwork != other.isNetwork
           || one.replyTimeout != other.replyTimeout || one.shortened != other.shortened
           || areFar(one.turnarounds, other.turnarounds)
           || isFar(one.perByte, other.perByte, FAR_PER_BYTE) || areFar(one.each, other.each);
}

} // namespace kxpanel
