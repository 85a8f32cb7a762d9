#include "data/reentry_steps.h"

namespace
{

// Written while the value-change function rests, so that only the reply reports.
void queueWrite(DriverFixture& runtime, const char* type, int count, const char* hex)
{
    std::function<void(const Report&)> resting;
    runtime.onReport.swap(resting);
    setValues(1, type, 0, count, hex);
    runtime.onReport.swap(resting);
    runtime.reports.clear();
}

void planRecipe(const char* type, int count)
{
    QVector<_RCP_VAR_PRO> variables(3, _RCP_VAR_PRO());
    for (int i = 0; i < 3; ++i) {
        variables[i].rcpId = 1;
        variables[i].station = 1;
        variables[i].regType = QString::fromLatin1(type);
        variables[i].address = i;
        variables[i].count = count;
        variables[i].bufOffset = 10 * i;
    }
    intf_setRcpAddress(variables);
}

} // namespace

void watchEverything()
{
    for (const char* type : {"D", "32CV"}) {
        for (int address = 0; address < 3; ++address) {
            record(1, type, address).monitorFlags = 7;
            record(1, type, address).bitMonitorMask = 0xFFFF;
        }
    }
}

void exchange(DriverFixture& runtime, const char* reply)
{
    runtime.poll();
    runtime.deal(withCrc(reply));
}

void fail(DriverFixture& runtime)
{
    runtime.poll();
    for (int i = 0; i < 3; ++i)
        runtime.deal(QByteArray());
}

void addCondition(int address)
{
    KEY_ADDRESS wanted = key(1, "TV", address, 1);
    intf_addConditionRead(wanted, 3);
}

const QList<NamedStep>& situations()
{
    static const QList<NamedStep> steps = {
        {"coils written", [](DriverFixture&) { setValues(1, "Y", 0, 3, "010101"); }},
        {"words written", [](DriverFixture&) { setValues(1, "D", 0, 3, "0100 0200 0300"); }},
        {"32CV written", [](DriverFixture&) { setValues(1, "32CV", 0, 4, "01000000 02000000"); }},
        {"coils read",
         [](DriverFixture& runtime) {
             driver.readList << job(1, "Y", 0, 10);
             exchange(runtime, "01 01 02 FF 03");
         }},
        {"words read",
         [](DriverFixture& runtime) {
             driver.readList << job(1, "D", 0, 3);
             exchange(runtime, "01 03 06 0001 0002 0003");
         }},
        {"32CV read",
         [](DriverFixture& runtime) {
             driver.readList << job(1, "32CV", 0, 4);
             exchange(runtime, "01 03 08 00000001 00000002");
         }},
        {"recipe words read",
         [](DriverFixture& runtime) {
             planRecipe("D", 1);
             runtime.requestRecipeRead();
             exchange(runtime, "01 03 06 0001 0002 0003");
         }},
        {"recipe 32CV read",
         [](DriverFixture& runtime) {
             planRecipe("32CV", 2);
             runtime.requestRecipeRead();
             exchange(runtime, "01 03 0C 00000001 00000002 00000003");
         }},
        {"coils confirmed",
         [](DriverFixture& runtime) {
             queueWrite(runtime, "Y", 3, "010101");
             exchange(runtime, "01 0F 0000 0003");
         }},
        {"words confirmed",
         [](DriverFixture& runtime) {
             queueWrite(runtime, "D", 3, "0100 0200 0300");
             exchange(runtime, "01 10 0000 0003");
         }},
        {"32CV confirmed",
         [](DriverFixture& runtime) {
             queueWrite(runtime, "32CV", 4, "01000000 02000000");
             exchange(runtime, "01 10 0000 0004");
         }},
        {"coils failed",
         [](DriverFixture& runtime) {
             queueWrite(runtime, "Y", 3, "010101");
             fail(runtime);
         }},
        {"words failed",
         [](DriverFixture& runtime) {
             queueWrite(runtime, "D", 3, "0100 0200 0300");
             fail(runtime);
         }},
        {"32CV failed",
         [](DriverFixture& runtime) {
             queueWrite(runtime, "32CV", 4, "01000000 02000000");
             fail(runtime);
         }},
        {"condition read done",
         [](DriverFixture& runtime) {
             addCondition(5);
             exchange(runtime, "01 03 02 4321");
         }},
        {"condition read failed",
         [](DriverFixture& runtime) {
             addCondition(5);
             fail(runtime);
         }},
    };
    return steps;
}

const QList<NamedStep>& reentries()
{
    static const QList<NamedStep> steps = {
        {"writes",
         [](DriverFixture&) {
             setValues(2, "D", 0, 2, "1111 2222");
             setValues(1, "D", 1, 2, "3333 4444");
             setValues(1, "Y", 1, 3, "000000");
             setValues(1, "32CV", 1, 2, "44444444");
         }},
        {"reads many new addresses",
         [](DriverFixture&) { DriverFixture::data(3, "M", 0, 300, 300); }},
        {"asks for many condition reads",
         [](DriverFixture&) {
             for (int i = 0; i < 600; ++i)
                 addCondition(i);
         }},
        {"initialises again", [](DriverFixture& runtime) { runtime.initialise("1#0#0#3#32"); }},
        {"watches something else",
         [](DriverFixture&) {
             QList<KEY_ADDRESS> keys;
             keys << key(2, "SD", 0, 4);
             intf_addrMerge(keys);
         }},
        {"drops the recipe",
         [](DriverFixture&) {
             QVector<_RCP_VAR_PRO> none;
             intf_setRcpAddress(none);
         }},
        {"does all of it",
         [](DriverFixture& runtime) {
             DriverFixture::data(3, "M", 0, 300, 300);
             setValues(1, "D", 1, 1, "3333");
             addCondition(9);
             QVector<_RCP_VAR_PRO> none;
             intf_setRcpAddress(none);
             runtime.initialise("1#0#0#3#32");
         }},
    };
    return steps;
}
