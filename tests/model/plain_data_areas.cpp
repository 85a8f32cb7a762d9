#include "model/plain_driver.h"

#include <cstring>

int PlainDriver::indexOfDataArea(int station, const QString& regType, int address,
                                 QList<_DATA_>& list)
{
    for (int i = 0; i < list.size(); ++i) {
        const _DATA_& area = list.at(i);
        if (area.station == station && area.regType == regType && area.address == address)
            return i;
    }
    _DATA_ area = _DATA_();
    area.station = station;
    area.regType = regType;
    area.address = address;
    list.append(area);
    return static_cast<int>(list.size()) - 1;
}

_DATA_& PlainDriver::record(int station, const QString& regType, int address)
{
    return dataAreas[indexOfDataArea(station, regType, address, dataAreas)];
}

void PlainDriver::saveWritten(int station, const QString& regType, int address, int count,
                              const unsigned char* data)
{
    const bool bit = isBitType(regType);
    const bool word = isWordType(regType);
    if (!bit && !word && !is32Type(regType))
        return;
    const int size = bit ? 1 : (word ? 2 : 4);
    const int values = size == 4 ? count / 2 : count;
    for (int i = 0; i < values; ++i) {
        const int a = wrapped(static_cast<qint64>(address) + i);
        const unsigned char* bytes = data + size * i;
        const _DATA_ before = record(station, regType, a);
        const unsigned char* seen = before.writePending == 1 ? before.writeValue : before.value;
        if (std::memcmp(seen, bytes, static_cast<size_t>(size)) != 0) {
            if (bit)
                valueChanged(linkId, station, regType, a);
            else if (word)
                wordChange(seen[0] + 256 * seen[1], bytes[0] + 256 * bytes[1], station, regType, a,
                           0);
            else
                wholeChange(station, regType, a, 0, 0, 0, 0);
        }
        _DATA_& area = record(station, regType, a);
        std::memcpy(area.writeValue, bytes, static_cast<size_t>(size));
        area.writePending = 1;
    }
}

int PlainDriver::getData(int station, const QString& regType, int address, int count,
                         unsigned char* out)
{
    const int size = isBitType(regType) ? 1 : (isWordType(regType) ? 2 : 4);
    const bool known = size != 4 || is32Type(regType);
    const int values = size == 4 ? count / 2 : count;
    for (int i = 0; known && i < values; ++i) {
        const _DATA_ area = record(station, regType, wrapped(static_cast<qint64>(address) + i));
        const unsigned char* seen = area.writePending == 1 ? area.writeValue : area.value;
        std::memcpy(out + size * i, seen, static_cast<size_t>(size));
    }
    return 1;
}

int PlainDriver::setData(int station, const QString& regType, int address, int count,
                         const unsigned char* data, int kind)
{
    const bool bit = isBitType(regType);
    const int limit = bit ? 1024 : maxWordsPerJob;
    const bool queued = writeLocalOnly == 0 && catalogueRow(regType) >= 0
                        && regType != QLatin1String("X") && count >= 1 && limit != 0;
    const int rest = queued ? count % limit : 0;
    const int jobs = queued ? count / limit + (rest != 0 ? 1 : 0) : 0;
    for (int j = 0; j < jobs; ++j) {
        VARIABLE job = VARIABLE();
        job.kind = kind;
        job.station = station;
        job.regType = regType;
        job.address = wrapped(address + static_cast<qint64>(limit) * j);
        job.count = rest != 0 && j == jobs - 1 ? rest : limit;
        const int size = bit ? 1 : 2;
        const int bytes = size * qMin(job.count, 1024 / size);
        const qint64 offset = static_cast<qint64>(size) * limit * j;
        std::memcpy(job.data, data + offset, static_cast<size_t>(bytes));
        addVarToList(writeList, job);
    }
    saveWritten(station, regType, address, count, data);
    return 1;
}

void PlainDriver::addVarToList(QList<VARIABLE>& list, const VARIABLE& job)
{
    for (int i = static_cast<int>(list.size()) - 1; i >= 1; --i) {
        const VARIABLE& pending = list.at(i);
        if (pending.station == job.station && pending.regType == job.regType
            && pending.address == job.address && pending.count == job.count) {
            list[i] = job;
            return;
        }
    }
    if (list.size() > 512)
        list[512] = job;
    else
        list.append(job);
}

void PlainDriver::settleWrite(int station, const QString& regType, int address, int count,
                              int success)
{
    const bool bit = isBitType(regType);
    const bool word = isWordType(regType);
    if (!bit && !word && !is32Type(regType))
        return;
    const size_t size = bit ? 1 : (word ? 2 : 4);
    const int values = size == 4 ? count / 2 : count;
    for (int i = 0; i < values; ++i) {
        const int a = wrapped(static_cast<qint64>(address) + i);
        _DATA_& area = record(station, regType, a);
        area.writePending = 0;
        if (success == 1)
            std::memcpy(area.value, area.writeValue, size);
        const _DATA_ now = area;
        if (size == 4)
            wholeChange(station, regType, a, 0, 0, 0, 0);
        else if (bit || success == 1)
            valueChanged(linkId, station, regType, a);
        else
            wordChange(now.value[0] + 256 * now.value[1],
                       now.writeValue[0] + 256 * now.writeValue[1], station, regType, a, 0);
    }
}
