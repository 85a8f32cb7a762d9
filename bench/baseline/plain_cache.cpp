#include "baseline/plain_cache.h"

int PlainCache::indexOf(int station, const QString& regType, int address)
{
    for (int i = 0; i < records.size(); ++i) {
        const _DATA_& record = records.at(i);
        if (record.station == station && record.regType == regType && record.address == address)
            return i;
    }
    _DATA_ record = _DATA_();
    record.station = station;
    record.regType = regType;
    record.address = address;
    records.append(record);
    return static_cast<int>(records.size()) - 1;
}

int PlainCache::storeRegisters(int station, const QString& regType, int address,
                               const QByteArray& reply)
{
    const int firstDataByte = 3;
    const int registers = static_cast<unsigned char>(reply.at(2)) / 2;
    int changed = 0;
    for (int i = 0; i < registers; ++i) {
        const unsigned char high = static_cast<unsigned char>(reply.at(firstDataByte + 2 * i));
        const unsigned char low = static_cast<unsigned char>(reply.at(firstDataByte + 2 * i + 1));
        _DATA_& record = records[indexOf(station, regType, address + i)];
        if (record.value[0] != low || record.value[1] != high)
            ++changed;
        record.value[0] = low;
        record.value[1] = high;
    }
    return changed;
}
