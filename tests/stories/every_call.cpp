#include "stories/every_call.h"

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
#include "stories/slave.h"

namespace
{

void nothing(DriverFixture&) {}

// Every byte read is 0x11.
void answer(DriverFixture& runtime)
{
    const FRAME_PRO& request = runtime.polled();
    const QByteArray data(2 * (request.recvLen - 5), '1');
    const bool isRead = request.dataLen != 0;
    const QByteArray reply = isRead ? replyWith(runtime, data.constData()) : goodReply(runtime);
    if (runtime.deal(reply) != REPLY_ACCEPTED)
        qFatal("a good reply was not accepted");
}

void giveUp(DriverFixture& runtime)
{
    runtime.deal(QByteArray());
}

void poll(DriverFixture& runtime)
{
    runtime.poll();
}

void queueJobs(DriverFixture& runtime)
{
    driver.readList << job(1, "D", 5, 2) << job(1, "M", 5, 9);
    setValues(1, "D", 7, 1, "0100");
    addCondition(1, "32CV", 200, 2);
    driver.rcpVars << variable(1, "D", 20, 1, 0) << variable(1, "D", 30, 1, 1);
    runtime.reports.clear();
}

void pollRead(DriverFixture& runtime)
{
    driver.readList << job(1, "D", 5, 2);
    _setDataAreaMonitorFlag(1, "D", 5, 2);
    runtime.poll();
}

void pollCoils(DriverFixture& runtime)
{
    driver.readList << job(1, "M", 5, 9);
    runtime.poll();
}

void pollDoubleWords(DriverFixture& runtime)
{
    driver.readList << job(1, "32CV", 200, 4);
    _setDataAreaMonitorFlag(1, "32CV", 200, 4);
    runtime.poll();
}

void pollWrite(DriverFixture& runtime)
{
    setValues(1, "D", 7, 1, "0100");
    runtime.poll();
}

void pollConditionRead(DriverFixture& runtime)
{
    addCondition(1, "D", 100, 1);
    runtime.poll();
}

void pollFirstOfTwoBlocks(DriverFixture& runtime)
{
    planRecipe({{"D", 20, 1, 0}, {"D", 30, 1, 1}});
    runtime.requestRecipeRead();
    runtime.poll();
}

void pollLastBlock(DriverFixture& runtime)
{
    planRecipe({{"D", 20, 1, 0}});
    driver.rcpIndex = 1;
    runtime.requestRecipeRead();
    runtime.poll();
}

void failCommunication(DriverFixture&)
{
    driver.commFailed = 1;
}

template <int KIND>
void finish(DriverFixture&)
{
    driver.currentKind = KIND;
    dealListWhenFinish();
}

const Call SETUP_CALLS[] = {
    {"intf_getProtocolType", "", nothing,
     [](DriverFixture&) {
         int type;
         intf_getProtocolType(&type);
     }},
    {"intf_getDriverParameter", "", nothing,
     [](DriverFixture&) {
         QString text;
         intf_getDriverParameter(text);
     }},
    {"intf_getDriverPropertyPage", "", nothing,
     [](DriverFixture&) {
         QString text;
         intf_getDriverPropertyPage(text);
     }},
    {"intf_SetDriverPropertyPage", "", nothing,
     [](DriverFixture&) {
         QString text;
         intf_SetDriverPropertyPage(text);
     }},
    {"intf_setAddrValueChangeCallBack", "", nothing,
     [](DriverFixture&) { intf_setAddrValueChangeCallBack(driver.valueChangeCallBack); }},
    {"intf_initProperty", "with the same mutex", queueJobs,
     [](DriverFixture& runtime) { runtime.initialise("1#0#0#3#32"); }},
    {"intf_initProperty", "amid a recipe", pollFirstOfTwoBlocks,
     [](DriverFixture& runtime) { runtime.initialise("1#0#0#3#32"); }},
    {"tarvelan", "constructed and destroyed", nothing, [](DriverFixture&) { tarvelan other; }},
};

const Call ADDRESS_CALLS[] = {
    {"intf_getRegListByType", "", nothing,
     [](DriverFixture&) {
         QList<QString> names;
         intf_getRegListByType(0, names);
     }},
    {"intf_getRegDiscription", "", nothing,
     [](DriverFixture&) {
         QList<QString> description;
         intf_getRegDiscription("D", description);
     }},
    {"intf_checkAddrValidity", "", nothing,
     [](DriverFixture&) {
         int address;
         intf_checkAddrValidity("D", "5", &address, 1, 1);
     }},
    {"intf_checkAddr", "", nothing,
     [](DriverFixture&) {
         int address;
         intf_checkAddr("D", "5", &address, 2, 1, 0);
     }},
    {"intf_multiCopy", "", nothing,
     [](DriverFixture&) {
         QVector<QString> texts;
         QVector<int> addresses;
         intf_multiCopy("D", 0, 5, 1, texts, addresses);
     }},
    {"getRegAddressWeight", "", nothing, [](DriverFixture&) { getRegAddressWeight(1, "D", 5, 0); }},
};

const Call PLANNING_CALLS[] = {
    {"intf_addrMerge", "", queueJobs,
     [](DriverFixture&) {
         QList<KEY_ADDRESS> watched = {key(1, "D", 5, 2), key(1, "M", 5, 9)};
         intf_addrMerge(watched);
     }},
    {"addrMerge", "for a recipe", nothing,
     [](DriverFixture&) {
         QList<KEY_ADDRESS> list = {key(1, "D", 5, 2), key(1, "D", 7, 1)};
         addrMerge(list, RECIPE_MERGE);
     }},
    {"intf_addConditionRead", "", nothing, [](DriverFixture&) { addCondition(1, "D", 0, 99); }},
    {"intf_setRcpAddress", "amid a recipe", pollFirstOfTwoBlocks,
     [](DriverFixture&) {
         planRecipe({{"D", 20, 1, 0}});
     }},
    {"rcpAddrToVar", "", nothing,
     [](DriverFixture&) { rcpAddrToVar(variable(1, "D", 20, 2, 0), driver.currentJob, 1); }},
    {"_setBitValue", "", nothing, [](DriverFixture&) { _setBitValue(0, 3, 1); }},
    {"_setDataAreaMonitorFlag", "", nothing,
     [](DriverFixture&) { _setDataAreaMonitorFlag(1, "M", 5, 9); }},
};

const Call EXCHANGE_CALLS[] = {
    {"intf_getSendFrame", "while a request waits", pollRead, poll},
    {"intf_getSendFrame", "while a recipe block waits", pollFirstOfTwoBlocks, poll},
    {"intf_dealRcvFrame", "no request waits", nothing, giveUp},
    {"intf_dealRcvFrame", "words read", pollRead, answer},
    {"intf_dealRcvFrame", "coils read", pollCoils, answer},
    {"intf_dealRcvFrame", "32CV read", pollDoubleWords, answer},
    {"intf_dealRcvFrame", "read failed", pollCoils, giveUp},
    {"intf_dealRcvFrame", "write confirmed", pollWrite, answer},
    {"intf_dealRcvFrame", "write failed", pollWrite, giveUp},
    {"intf_dealRcvFrame", "condition read ended", pollConditionRead, answer},
    {"intf_dealRcvFrame", "condition read failed", pollConditionRead, giveUp},
    {"intf_dealRcvFrame", "first of two recipe blocks", pollFirstOfTwoBlocks, answer},
    {"check_rcv_data", "", pollRead,
     [](DriverFixture&) {
         unsigned char reply[9] = {1, 3, 4};
         check_rcv_data(reply, 9);
     }},
    {"getReadFrame", "", queueJobs, [](DriverFixture&) { getReadFrame(driver.readList[0]); }},
    {"getWriteFrame", "", queueJobs, [](DriverFixture&) { getWriteFrame(driver.writeList[0]); }},
    {"dealListWhenFinish", "idle", queueJobs, finish<NO_JOB>},
    {"dealListWhenFinish", "write", queueJobs, finish<WRITE_JOB>},
    {"dealListWhenFinish", "condition read", queueJobs, finish<CONDITION_READ_JOB>},
    {"dealListWhenFinish", "cyclic read", queueJobs, finish<CYCLIC_READ_JOB>},
    {"dealListWhenFinish", "first block of a download", queueJobs, finish<RECIPE_WRITE_JOB>},
    {"dealListWhenFinish", "first block of an upload", queueJobs, finish<RECIPE_READ_JOB>},
};

const Call DATA_CALLS[] = {
    {"intf_getData", "", nothing, [](DriverFixture& runtime) { runtime.data(1, "D", 5, 2, 4); }},
    {"intf_setData", "", nothing, [](DriverFixture&) { setValues(1, "D", 5, 2, "01000200"); }},
    {"addVarToList", "", queueJobs,
     [](DriverFixture&) { addVarToList(driver.condList, driver.readList[0]); }},
    {"getIndexOfDataArea", "", nothing,
     [](DriverFixture&) { getIndexOfDataArea(1, "D", 5, driver.dataAreas); }},
    {"write_saveDataToArea", "", nothing,
     [](DriverFixture&) {
         unsigned char values[4] = {1, 0, 2, 0};
         write_saveDataToArea(1, "D", 5, 2, values);
     }},
    {"_write_FailOrSuc", "confirmed", nothing,
     [](DriverFixture&) { _write_FailOrSuc(1, "M", 5, 9, 1); }},
    {"_write_FailOrSuc", "failed", nothing,
     [](DriverFixture&) { _write_FailOrSuc(1, "D", 5, 2, 0); }},
    {"_wordDataChange", "", nothing,
     [](DriverFixture&) {
         int before = 1;
         int after = 2;
         _wordDataChange(&before, &after, 1, "D", 5, 0);
     }},
    {"_byteDataChange", "", nothing,
     [](DriverFixture&) {
         unsigned char before = 1;
         unsigned char after = 2;
         _byteDataChange(&after, &before, 1, "M", 8);
     }},
    {"_OnlyOneDataTypeDataChange", "", nothing,
     [](DriverFixture&) { _OnlyOneDataTypeDataChange(1, "32CV", 200, 0, 0, 0, 0); }},
};

const Call LOCKING_CALLS[] = {
    {"intf_getSendFrame", "nothing to send", nothing, poll},
    {"intf_getSendFrame", "the next job", queueJobs, poll},
    {"intf_dealRcvFrame", "last block of an upload", pollLastBlock, answer},
    {"intf_dealRcvFrame", "block of an upload failed", pollFirstOfTwoBlocks, giveUp},
    {"dealListWhenFinish", "download ended", failCommunication, finish<RECIPE_WRITE_JOB>},
    {"dealListWhenFinish", "upload ended", failCommunication, finish<RECIPE_READ_JOB>},
};

template <size_t SIZE>
void append(std::vector<Call>& calls, const Call (&more)[SIZE])
{
    calls.insert(calls.end(), more, more + SIZE);
}

} // namespace

QByteArray nameOf(const Call& call)
{
    const QByteArray situation(call.situation);
    return situation.isEmpty() ? QByteArray(call.function) : call.function + (", " + situation);
}

std::vector<Call> callsWithoutTheMutex()
{
    std::vector<Call> calls;
    append(calls, SETUP_CALLS);
    append(calls, ADDRESS_CALLS);
    append(calls, PLANNING_CALLS);
    append(calls, EXCHANGE_CALLS);
    append(calls, DATA_CALLS);
    return calls;
}

std::vector<Call> callsWithTheMutex()
{
    std::vector<Call> calls;
    append(calls, LOCKING_CALLS);
    return calls;
}
