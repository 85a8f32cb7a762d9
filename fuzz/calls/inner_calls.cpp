#include "calls/calls.h"

#include "data/change_notification.h"
#include "data/data_areas.h"
#include "data/write_completion.h"
#include "data/written_values.h"
#include "driver/job_queue.h"
#include "modbus/read_request.h"
#include "modbus/reply_check.h"
#include "modbus/write_request.h"
#include "planning/address_merge.h"
#include "planning/monitor_flags.h"
#include "registers/address_weight.h"
#include "support/require.h"

#include <vector>

namespace
{

bool recordsAppended = false;

void buildFrames(InputReader* input, Panel*)
{
    VARIABLE job = anyJob(input);
    if (input->flag())
        getReadFrame(job);
    else
        getWriteFrame(job);
}

void queueJob(InputReader* input, Panel*)
{
    VARIABLE job = anyJob(input);
    addVarToList(input->flag() ? driver.writeList : driver.condList, job);
}

void tamper(InputReader* input, Panel*)
{
    tamperWithRequest(input);
}

// A cache may be cleared, appended to and marked from outside.
void tamperWithCache(InputReader* input, Panel*)
{
    QList<_DATA_>& areas = driver.dataAreas;
    const int way = input->below(3);
    if (way == 0) {
        areas.clear();
    } else if (way == 1) {
        _DATA_ area = _DATA_();
        area.station = anyStation(input);
        area.regType = anyType(input);
        area.address = anyNumber(input);
        areas.append(area);
        recordsAppended = true;
    } else if (!areas.isEmpty()) {
        _DATA_& area = areas[input->byte() % static_cast<int>(areas.size())];
        area.monitorFlags = anyNumber(input);
        area.bitMonitorMask = anyNumber(input);
        area.reserved = input->byte();
        area.writePending = static_cast<unsigned char>(input->byte());
    }
}

void mark(InputReader* input, Panel*)
{
    const int station = anyStation(input);
    const QString regType = anyType(input);
    const int address = anyNumber(input);
    _setDataAreaMonitorFlag(station, regType, address, countFor(input, regType));
    const int value = anyNumber(input);
    _setBitValue(value, anyNumber(input), input->byte());
}

void notify(InputReader* input, Panel*)
{
    const int station = anyStation(input);
    const QString regType = anyType(input);
    const int address = anyNumber(input);
    int before = anyNumber(input);
    int now = anyNumber(input);
    unsigned char byteBefore = static_cast<unsigned char>(before);
    unsigned char byteNow = static_cast<unsigned char>(now);
    const int way = input->byte();
    if (way % 3 == 0)
        _wordDataChange(&before, &now, station, regType, address, way / 3 % 2);
    else if (way % 3 == 1)
        _byteDataChange(&byteNow, &byteBefore, station, regType, address);
    else
        _OnlyOneDataTypeDataChange(station, regType, address, way / 3 % 2, byteNow, byteBefore,
                                   way / 6 % 2);
}

void settleWrite(InputReader* input, Panel*)
{
    const int station = anyStation(input);
    const QString regType = anyType(input);
    const int address = anyNumber(input);
    const int count = countFor(input, regType);
    _write_FailOrSuc(station, regType, address, count, input->byte() % 3);
}

void storeWrite(InputReader* input, Panel*)
{
    const int station = anyStation(input);
    const QString regType = anyType(input);
    const int address = anyNumber(input);
    const int count = affordableCount(input);
    std::vector<unsigned char> values(count > 0 ? 2 * static_cast<std::size_t>(count) : 0, 3);
    write_saveDataToArea(station, regType, address, count, values.data());
}

void merge(InputReader* input, Panel*)
{
    QList<KEY_ADDRESS> keys;
    for (int i = input->below(16); i > 0; --i) {
        keys << anyKey(input);
        keys.last().count = anyNumber(input); // merging makes no records
    }
    addrMerge(keys, anyNumber(input));
}

void turnBlockIntoJob(InputReader* input, Panel*)
{
    _RCP_VAR_PRO block = _RCP_VAR_PRO();
    block.station = anyStation(input);
    block.regType = anyType(input);
    block.address = anyNumber(input);
    block.count = anyNumber(input);
    block.bufOffset = Panel::recipeOffset(anyNumber(input));
    VARIABLE job = VARIABLE();
    rcpAddrToVar(block, job, input->below(2));
}

void finishJob(InputReader*, Panel*)
{
    if (driver.frameList.isEmpty())
        dealListWhenFinish();
}

void checkReply(InputReader* input, Panel* panel)
{
    QByteArray reply = hostileReply(input, *panel);
    const int result = check_rcv_data(reinterpret_cast<unsigned char*>(reply.data()),
                                      static_cast<int>(reply.size()));
    require(result >= 0 && result <= 2, "a check of a reply gives 0, 1 or 2");
}

void lookUp(InputReader* input, Panel*)
{
    QList<_DATA_> areas;
    for (int i = input->below(8); i > 0; --i) {
        const int station = anyStation(input);
        const QString regType = anyType(input);
        const int index = getIndexOfDataArea(station, regType, anyNumber(input), areas);
        require(index >= 0 && index < areas.size(), "a record is found or made");
    }
    getRegAddressWeight(anyStation(input), anyType(input), anyNumber(input), anyNumber(input));
}

} // namespace

const Call INNER_CALLS[] = {
    buildFrames, queueJob, tamper,           tamperWithCache, mark,       notify, settleWrite,
    storeWrite,  merge,    turnBlockIntoJob, finishJob,       checkReply, lookUp,
};
const int INNER_CALL_COUNT = static_cast<int>(sizeof INNER_CALLS / sizeof INNER_CALLS[0]);

bool isCacheTamperedWith()
{
    return recordsAppended;
}

void forgetTampering()
{
    recordsAppended = false;
}
