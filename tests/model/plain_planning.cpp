#include "model/plain_driver.h"

#include <QtCore/QStringList>

PlainDriver::PlainDriver()
{
    const QStringList names =
        QString::fromLatin1("X,Y,M,SM,S,T,C,D,SD,TV,CV,32CV,Z").split(QLatin1Char(','));
    for (const QString& name : names)
        regNames.append(name);
}

int PlainDriver::initProperty(unsigned char* shared, unsigned short* recipe, const char* parameters)
{
    const QStringList items = QString::fromLatin1(parameters).split(QLatin1Char('#'));
    if (items.size() > 4) {
        linkId = items.at(0).toInt();
        writeLocalOnly = items.at(1).toInt();
        param2 = items.at(2).toInt();
        retryLimit = items.at(3).toInt();
        maxWords = items.at(4).toInt();
    }
    hostShared = shared;
    recipeBuffer = recipe;
    readList.clear();
    writeList.clear();
    condList.clear();
    dataAreas.clear();
    currentKind = 0;
    burstCount = 0;
    errorCount = 0;
    maxWordsPerJob = maxWords;
    maxBitsPerJob = wrapped(8 * static_cast<qint64>(maxWords));
    commFailed = 0;
    frameList.clear();
    return 1;
}

int PlainDriver::planReads(const QList<KEY_ADDRESS>& keys)
{
    for (_DATA_& area : dataAreas) {
        area.monitorFlags = 0;
        area.bitMonitorMask = 0;
    }
    QList<KEY_ADDRESS> copy;
    for (const KEY_ADDRESS& key : keys) {
        setMonitorFlag(key.station, key.regType, key.address, key.count);
        copy.append(key);
    }
    const QList<VARIABLE> before = readList;
    readList.clear();
    if (keys.isEmpty())
        return 0;
    mergeAddresses(copy, 1);
    for (const KEY_ADDRESS& block : copy) {
        // A read carries no payload, and what a runtime left there stays.
        VARIABLE job = readList.size() < before.size() ? before.at(readList.size()) : VARIABLE();
        job.kind = 4;
        job.station = block.station;
        job.regType = block.regType;
        job.address = block.address;
        job.count = block.count;
        readList.append(job);
    }
    return static_cast<int>(readList.size());
}

int PlainDriver::setBitValue(int value, int bit, int set)
{
    if (bit < 0 || bit > 31)
        return value;
    const quint32 mask = 1U << bit;
    const quint32 bits = static_cast<quint32>(value);
    return static_cast<int>(set != 0 ? bits | mask : bits & ~mask);
}

int PlainDriver::setMonitorFlag(int station, const QString& regType, int address, int count)
{
    if (isBitType(regType)) {
        for (int i = 0; i < count; ++i) {
            const int a = wrapped(static_cast<qint64>(address) + i);
            _DATA_& area = record(station, regType, a / 8 * 8);
            area.bitMonitorMask = setBitValue(area.bitMonitorMask, a % 8, 1);
        }
    }
    const int values = is32Type(regType) ? count / 2 : count;
    if (isWordType(regType) || is32Type(regType)) {
        for (int i = 0; i < values; ++i) {
            _DATA_& area = record(station, regType, wrapped(static_cast<qint64>(address) + i));
            area.monitorFlags = setBitValue(area.monitorFlags, 0, 1);
        }
    }
    return 0;
}

int PlainDriver::addConditionRead(const KEY_ADDRESS& key, int kind)
{
    const int limit = key.bitIndex == -1 ? maxBitsPerJob : maxWordsPerJob;
    VARIABLE job = VARIABLE();
    job.kind = kind;
    job.station = key.station;
    job.regType = key.regType;
    job.address = key.address;
    job.count = key.count;
    if (limit >= key.count || limit == 0) {
        fileConditionRead(job);
        return 1;
    }
    const int rest = key.count % limit;
    const int pieces = rest != 0 ? key.count / limit + 1 : key.count / limit;
    for (int piece = 0; piece < pieces; ++piece) {
        job.address = wrapped(key.address + static_cast<qint64>(piece) * limit);
        job.count = piece == pieces - 1 && rest != 0 ? rest : limit;
        fileConditionRead(job);
    }
    return 1;
}

void PlainDriver::fileConditionRead(const VARIABLE& job)
{
    addVarToList(condList, job);
    condVar = job;
}
