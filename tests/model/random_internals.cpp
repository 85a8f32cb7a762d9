#include "model/random_runtime.h"

#include "data/change_notification.h"
#include "data/data_areas.h"
#include "data/write_completion.h"
#include "data/written_values.h"
#include "driver/job_queue.h"
#include "modbus/read_request.h"
#include "modbus/reply_check.h"
#include "modbus/write_request.h"

namespace
{

const int FRAMES_KEPT = 3;

} // namespace

void RandomRuntime::queueJob()
{
    VARIABLE job = m_values.job();
    called(QString::fromLatin1("queue a write ") + shown(job));
    const VARIABLE before = job;
    addVarToList(driver.writeList, job);
    PlainDriver::addVarToList(m_plain.writeList, before);
    same("job", job, before);
}

void RandomRuntime::buildFrame()
{
    if (m_plain.frameList.size() > FRAMES_KEPT)
        return changeLists();
    VARIABLE job = m_values.job();
    const bool read = m_random.chance(50);
    called(QString::fromLatin1(read ? "build a read of " : "build a write of ") + shown(job));
    const VARIABLE before = job;
    if (read) {
        getReadFrame(job);
        m_plain.readFrame(before);
    } else {
        getWriteFrame(job);
        m_plain.writeFrame(before);
    }
    same("job", job, before);
    sameList("frameList", driver.frameList, m_plain.frameList);
}

void RandomRuntime::checkReply()
{
    if (m_plain.frameList.isEmpty())
        return;
    QByteArray reply = m_values.reply(m_plain.frameList.at(0));
    called(QString::fromLatin1("check reply ") + shown(reply));
    unsigned char* bytes = reinterpret_cast<unsigned char*>(reply.data());
    const int length = static_cast<int>(reply.size());
    same("check", check_rcv_data(bytes, length), m_plain.checkReply(bytes, length));
}

void RandomRuntime::finishJob()
{
    called(QString::fromLatin1("finish job"));
    dealListWhenFinish();
    m_plain.dealListWhenFinish();
}

void RandomRuntime::lookUpRecord()
{
    const int station = m_values.station();
    const QString type = m_values.regType();
    const int address = m_values.address(type);
    const bool own = m_random.chance(60);
    called(QString::fromLatin1("look up %1 %2 %3 in %4")
               .arg(station)
               .arg(type)
               .arg(address)
               .arg(QString::fromLatin1(own ? "the driver's list" : "another list")));
    QList<_DATA_>& library = own ? driver.dataAreas : m_foreign;
    QList<_DATA_>& plain = own ? m_plain.dataAreas : m_plainForeign;
    same("index", getIndexOfDataArea(station, type, address, library),
         PlainDriver::indexOfDataArea(station, type, address, plain));
}

void RandomRuntime::saveWritten()
{
    const int station = m_values.station();
    const QString type = m_values.regType();
    const int address = m_values.address(type);
    const int count = m_values.count();
    QByteArray data = m_values.payload();
    called(QString::fromLatin1("save %1 %2 %3 %4").arg(station).arg(type).arg(address).arg(count)
           + shown(data.left(16)));
    unsigned char* bytes = reinterpret_cast<unsigned char*>(data.data());
    write_saveDataToArea(station, type, address, count, bytes);
    m_plain.saveWritten(station, type, address, count, bytes);
}

void RandomRuntime::settleWrite()
{
    const int station = m_values.station();
    const QString type = m_values.regType();
    const int address = m_values.address(type);
    const int count = m_values.count();
    const int success = m_random.oneOf({0, 1, 1, 2, -1});
    called(QString::fromLatin1("settle %1 %2 %3 %4 as %5")
               .arg(station)
               .arg(type)
               .arg(address)
               .arg(count)
               .arg(success));
    _write_FailOrSuc(station, type, address, count, success);
    m_plain.settleWrite(station, type, address, count, success);
}

void RandomRuntime::reportWord()
{
    int oldValue = m_random.below(4);
    int newValue = m_random.chance(20) ? oldValue : m_random.below(65536);
    if (m_random.chance(5))
        newValue = static_cast<int>(m_random.next() & 0xFFFFFFFF);
    const int station = m_values.station();
    const QString type = m_values.regType();
    const int address = m_values.address(type);
    const int bitStart = m_random.oneOf({0, 0, 0, 1, -1, 16});
    called(QString::fromLatin1("word %1 %2 %3 from %4 to %5 bits from %6")
               .arg(station)
               .arg(type)
               .arg(address)
               .arg(oldValue)
               .arg(newValue)
               .arg(bitStart));
    _wordDataChange(&oldValue, &newValue, station, type, address, bitStart);
    m_plain.wordChange(oldValue, newValue, station, type, address, bitStart);
}

void RandomRuntime::reportWhole()
{
    const int station = m_values.station();
    const QString type = m_values.regType();
    const int address = m_values.address(type);
    const int isBit = m_random.between(-1, 1);
    const unsigned char newBits = m_random.byte();
    const unsigned char oldBits = m_random.byte();
    const int groupMode = m_random.between(-1, 1);
    called(QString::fromLatin1("whole %1 %2 %3 bit %4 from %5 to %6 group %7")
               .arg(station)
               .arg(type)
               .arg(address)
               .arg(isBit)
               .arg(oldBits)
               .arg(newBits)
               .arg(groupMode));
    _OnlyOneDataTypeDataChange(station, type, address, isBit, newBits, oldBits, groupMode);
    m_plain.wholeChange(station, type, address, isBit, newBits, oldBits, groupMode);
}

void RandomRuntime::reportByte()
{
    unsigned char oldByte = m_random.byte();
    unsigned char newByte = m_random.chance(20) ? oldByte : m_random.byte();
    const int station = m_values.station();
    const QString type = m_values.regType();
    const int address = m_values.address(type);
    called(QString::fromLatin1("byte %1 %2 %3 from %4 to %5")
               .arg(station)
               .arg(type)
               .arg(address)
               .arg(oldByte)
               .arg(newByte));
    _byteDataChange(&newByte, &oldByte, station, type, address);
    m_plain.byteChange(newByte, oldByte, station, type, address);
}
