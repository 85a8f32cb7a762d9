#include "planning/monitor_flags.h"

#include "data/data_areas.h"
#include "driver/tarvelan.h"
#include "driver/wrapping.h"
#include "registers/type_names.h"

#include <algorithm>

namespace
{

const int WATCHED_AS_WHOLE_BIT = 0;

/// Address of the record that carries the mark of an address.
int markedAddress(const RegisterType* type, int address)
{
    return type->registerClass == BIT_CLASS ? bitGroupStart(address) : address;
}

void mark(const RegisterType* type, int address, _DATA_& area)
{
    if (type->registerClass == BIT_CLASS)
        area.bitMonitorMask = _setBitValue(area.bitMonitorMask, bitInGroup(address), 1);
    else
        area.monitorFlags = _setBitValue(area.monitorFlags, WATCHED_AS_WHOLE_BIT, 1);
}

bool isOneAddress(const AddressSpan& span)
{
    return span.count / registersPerAddress(span.type) == 1;
}

// Where records are missing, each is looked for again: they are created in the order of the spans.
void markSome(const AddressSpan* spans, int count)
{
    RecordKey keys[RecordTable::FOUND_AT_ONCE] = {};
    int records[RecordTable::FOUND_AT_ONCE];
    for (int i = 0; i < count; ++i) {
        const AddressSpan& span = spans[i];
        const RecordKey key = {span.station, span.type ? &typeNames->of(span.type) : span.regType,
                               span.type ? markedAddress(span.type, span.address) : span.address};
        keys[i] = key;
    }
    dataAreaIndex->findKnown(driver.dataAreas, keys, count, records);
    for (int i = 0; i < count; ++i) {
        const AddressSpan& span = spans[i];
        if (!span.type)
            continue;
        if (records[i] != RecordTable::NONE && isOneAddress(span))
            mark(span.type, span.address, driver.dataAreas[records[i]]);
        else
            markWatched(span.type, span.station, span.address, span.count);
    }
}

} // namespace

int _setBitValue(int value, int bit, int set)
{
    if (bit < 0 || bit > 31)
        return value;
    const quint32 mask = 1u << bit;
    const quint32 bits = static_cast<quint32>(value);
    return static_cast<int>(set ? bits | mask : bits & ~mask);
}

int _setDataAreaMonitorFlag(int station, QString regType, int address, int count)
{
    const UndisturbedAreas undisturbed;
    if (const RegisterType* const type = findRegisterType(regType))
        markWatched(type, station, address, count);
    return 0;
}

void markWatched(const RegisterType* type, int station, int address, int count)
{
    const QString& name = typeNames->of(type);
    const int addresses = count / registersPerAddress(type);
    for (int i = 0; i < addresses; ++i) {
        const int one = wrapAdd(address, i);
        mark(type, one, dataArea(station, name, markedAddress(type, one)));
    }
}

void markWatched(const AddressSpans& spans)
{
    const size_t most = RecordTable::FOUND_AT_ONCE;
    for (size_t i = 0; i < spans.size(); i += most)
        markSome(&spans[i], static_cast<int>(std::min(most, spans.size() - i)));
}

void clearMonitorFlags()
{
    for (int i = 0; i < driver.dataAreas.size(); ++i) {
        _DATA_& area = driver.dataAreas[i];
        area.monitorFlags = 0;
        area.bitMonitorMask = 0;
    }
}
