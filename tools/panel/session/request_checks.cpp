#include "panel/session/request_checks.h"

#include "addresses/read_pieces.h"
#include "addresses/request_limits.h"
#include "addresses/station_text.h"
#include "addresses/write_pieces.h"
#include "registers/register_types.h"
#include "system/translated_text.h"

#include <algorithm>

namespace kx
{

Failure refusal(FailureKind kind, const AddressRange& range, const QString& text)
{
    Failure failure = failureOf(kind, text);
    failure.station = range.station;
    failure.range = range;
    return failure;
}

namespace
{

Failure outOfRange(const AddressRange& range, const QString& text)
{
    return refusal(FailureKind::OutOfRange, range, text);
}

QString valuesText(int values)
{
    return countedText(values, "%1 value", QT_TRANSLATE_N_NOOP("kx", "%1 values"));
}

Failure tooLong(const AddressRange& range, int maxWords)
{
    return refusal(FailureKind::TooLong, range,
                   Text::tr("does not fit into one request of at most %1 registers").arg(maxWords));
}

Failure notWritable(const AddressRange& range)
{
    return refusal(FailureKind::NotWritable, range, Text::tr("an input, which cannot be written"));
}

/// None when one request can read each of its values.
Failure widthRefusal(const AddressRange& range)
{
    if (range.width == 1)
        return Failure();
    const int registers = range.width * registersPerAddress(range.type);
    if (range.width < 1 || range.values % range.width != 0)
        return outOfRange(
            range,
            Text::tr("values of %1 registers do not make %2").arg(range.width).arg(range.values));
    if (range.type->registerClass == BIT_CLASS || registers > MOST_REGISTERS_PER_READ)
        return outOfRange(range, (range.type->registerClass == BIT_CLASS
                                      ? Text::tr("no request reads a value of %1 coils")
                                      : Text::tr("no request reads a value of %1 registers"))
                                     .arg(registers));
    for (int i = 0; i < range.values; i += range.width) {
        const int first = range.address + i;
        const int last = first + range.width - 1;
        if (modbusNumber(range.type, last) - modbusNumber(range.type, first)
            != (last - first) * registersPerAddress(range.type))
            return outOfRange(range, Text::tr("the registers of the value at %1 lie apart")
                                         .arg(addressText(range.type, first)));
    }
    return Failure();
}

/// Whether it is of one value that is longer than the limit, which a controller may allow.
bool isOneLongValue(const AddressRange& range, int mostRegisters)
{
    return range.width > 1 && range.values == range.width && range.driverCount() <= mostRegisters;
}

} // namespace

Failure rangeRefusal(const AddressRange& range)
{
    if (!range.type)
        return outOfRange(range, Text::tr("no such register type"));
    if (range.station < LOWEST_STATION || range.station > HIGHEST_STATION)
        return outOfRange(
            range,
            Text::tr("the station must be %1 to %2").arg(LOWEST_STATION).arg(HIGHEST_STATION));
    const int highest = highestAddress(range.type);
    if (range.values < 1 || range.address < range.type->lowestAddress || range.address > highest
        || range.values > highest - range.address + 1)
        return outOfRange(range,
                          Text::tr("out of range; there are %1").arg(addressesOf(range.type)));
    return widthRefusal(range);
}

Failure readRefusal(const AddressRange& range, int maxWords)
{
    Failure missing = rangeRefusal(range);
    if (!missing.isNone())
        return missing;
    const int most = addressesPerRead(range.type, maxWords);
    const bool fits = (most >= range.values && readPieces(range, most).size() == 1)
                      || isOneLongValue(range, MOST_REGISTERS_PER_READ);
    return fits ? Failure() : tooLong(range, maxWords);
}

Failure assignmentRefusal(const Assignment& assignment)
{
    const AddressRange& range = assignment.range;
    Failure missing = rangeRefusal(range);
    if (!missing.isNone())
        return missing;
    if (!range.type->writable)
        return notWritable(range);
    const qint64 lowest = lowestValue(range.type);
    const qint64 highest = highestValue(range.type);
    const bool isEachRight =
        std::all_of(assignment.values.begin(), assignment.values.end(),
                    [=](qint64 value) { return value >= lowest && value <= highest; });
    if (!isEachRight || assignment.values.size() != range.values)
        return outOfRange(range, Text::tr("takes %1 from %2 to %3")
                                     .arg(valuesText(range.values))
                                     .arg(lowest)
                                     .arg(highest));
    return Failure();
}

Failure writeRefusal(const Assignment& assignment, int maxWords)
{
    Failure unsuited = assignmentRefusal(assignment);
    if (!unsuited.isNone())
        return unsuited;
    if (assignment.bit >= 0)
        return refusal(FailureKind::NotWritable, assignment.range,
                       Text::tr("one bit of a word, which has to be read first"));
    return writeRefusal(assignment.range, maxWords);
}

Failure writeRefusal(const AddressRange& range, int maxWords)
{
    Failure missing = rangeRefusal(range);
    if (!missing.isNone())
        return missing;
    if (!range.type->writable)
        return notWritable(range);
    const int most = addressesPerWrite(range.type, maxWords);
    const bool fits = (most >= range.values && writePieces(range, most).size() == 1)
                      || isOneLongValue(range, MOST_REGISTERS_PER_WRITE);
    return fits ? Failure() : tooLong(range, maxWords);
}

} // namespace kx
