#include "model/record_text.h"

#include <QtCore/QStringList>

#include <cstring>

namespace
{

/// Hex without the zeros at the end.
QString hex(const unsigned char* bytes, int length)
{
    while (length > 0 && bytes[length - 1] == 0)
        --length;
    return shown(QByteArray(reinterpret_cast<const char*>(bytes), length));
}

QString target(int station, const QString& regType, int address, int count)
{
    return QString::fromLatin1("station %1 %2 %3 count %4")
        .arg(station)
        .arg(shown(regType))
        .arg(address)
        .arg(count);
}

} // namespace

bool equal(int a, int b)
{
    return a == b;
}

bool equal(unsigned int a, unsigned int b)
{
    return a == b;
}

bool equal(const QString& a, const QString& b)
{
    return a == b;
}

bool equal(const QByteArray& a, const QByteArray& b)
{
    return a == b;
}

bool equal(const Report& a, const Report& b)
{
    return a == b;
}

bool equal(const VARIABLE& a, const VARIABLE& b)
{
    return a.kind == b.kind && a.station == b.station && a.regType == b.regType
           && a.address == b.address && a.count == b.count
           && std::memcmp(a.data, b.data, sizeof a.data) == 0;
}

bool equal(const KEY_ADDRESS& a, const KEY_ADDRESS& b)
{
    return a.keyName == b.keyName && a.keyTag1 == b.keyTag1 && a.keyTag2 == b.keyTag2
           && a.station == b.station && a.regType == b.regType && a.addrText == b.addrText
           && a.address == b.address && a.bitIndex == b.bitIndex && a.count == b.count
           && std::memcmp(a.data, b.data, sizeof a.data) == 0;
}

bool equal(const FRAME_PRO& a, const FRAME_PRO& b)
{
    return std::memcmp(a.frame, b.frame, sizeof a.frame) == 0 && a.sendLen == b.sendLen
           && a.recvLen == b.recvLen && a.frameFunc == b.frameFunc && a.dataLen == b.dataLen
           && a.reserved == b.reserved && equal(a.job, b.job);
}

bool equal(const _RCP_VAR_PRO& a, const _RCP_VAR_PRO& b)
{
    return a.rcpId == b.rcpId && a.station == b.station && a.regType == b.regType
           && a.address == b.address && a.count == b.count && a.bufOffset == b.bufOffset
           && std::memcmp(a.rcpExtra, b.rcpExtra, sizeof a.rcpExtra) == 0;
}

bool equal(const _DATA_& a, const _DATA_& b)
{
    return a.commError == b.commError && a.writePending == b.writePending
           && a.reserved == b.reserved && a.monitorFlags == b.monitorFlags
           && a.bitMonitorMask == b.bitMonitorMask && a.station == b.station
           && a.regType == b.regType && a.address == b.address
           && std::memcmp(a.value, b.value, sizeof a.value) == 0
           && std::memcmp(a.writeValue, b.writeValue, sizeof a.writeValue) == 0;
}

QString shown(int value)
{
    return QString::number(value);
}

QString shown(unsigned int value)
{
    return QString::number(value);
}

QString shown(const QString& text)
{
    return text.isNull() ? QString::fromLatin1("null") : QLatin1Char('"') + text + QLatin1Char('"');
}

QString shown(const QByteArray& bytes)
{
    return QLatin1Char('[') + QString::fromLatin1(bytes.toHex()) + QLatin1Char(']');
}

QString shown(const Report& report)
{
    return QString::fromLatin1("(%1, %2, %3, %4)")
        .arg(report.link)
        .arg(report.station)
        .arg(report.name)
        .arg(report.address);
}

QString shown(const VARIABLE& job)
{
    return QString::fromLatin1("{kind %1 ").arg(job.kind)
           + target(job.station, job.regType, job.address, job.count) + QLatin1Char(' ')
           + hex(job.data, PAYLOAD_SIZE) + QLatin1Char('}');
}

QString shown(const KEY_ADDRESS& key)
{
    return QString::fromLatin1("{%1 %2 %3 %4 bit %5 ")
               .arg(key.keyName, key.addrText)
               .arg(key.keyTag1)
               .arg(key.keyTag2)
               .arg(key.bitIndex)
           + target(key.station, key.regType, key.address, key.count) + QLatin1Char('}');
}

QString shown(const FRAME_PRO& frame)
{
    return QString::fromLatin1("{%1 send %2 receive %3 function %4 data %5 reserved %6 of ")
               .arg(hex(frame.frame, FRAME_SIZE))
               .arg(frame.sendLen)
               .arg(frame.recvLen)
               .arg(frame.frameFunc)
               .arg(frame.dataLen)
               .arg(frame.reserved)
           + shown(frame.job) + QLatin1Char('}');
}

QString shown(const _RCP_VAR_PRO& var)
{
    return QString::fromLatin1("{link %1 word %2 extra %3 ")
               .arg(var.rcpId)
               .arg(var.bufOffset)
               .arg(hex(var.rcpExtra, 4))
           + target(var.station, var.regType, var.address, var.count) + QLatin1Char('}');
}

QString shown(const _DATA_& area)
{
    return QString::fromLatin1("{error %1 pending %2 reserved %3 flags %4 mask %5 ")
               .arg(area.commError)
               .arg(area.writePending)
               .arg(area.reserved)
               .arg(area.monitorFlags)
               .arg(area.bitMonitorMask)
           + target(area.station, area.regType, area.address, 1) + QLatin1Char(' ')
           + hex(area.value, 4) + QLatin1Char(' ') + hex(area.writeValue, 4) + QLatin1Char('}');
}
