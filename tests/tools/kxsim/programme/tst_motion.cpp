// What moves in a simulated controller, at which time.

#include "kxsim/programme/motion.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using kxsim::ControllerMemory;
using kxsim::Motion;

namespace
{

const RegisterType* type(const char* name)
{
    return findRegisterType(QString::fromLatin1(name));
}

} // namespace

class MotionTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesAtATime_data();
    void valuesAtATime();
    void smallStepsEndWhereOneLargeStepEnds();
    void presetsStayStill();
    void countersGoOnFromWhatAHostWrote();
    void theCounterWrapsAfter65535();
    void countersGoOnFromLoadedValues();
};

void MotionTest::valuesAtATime_data()
{
    QTest::addColumn<int>("milliseconds");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("address");
    QTest::addColumn<uint>("value");
    const struct {
        const char* situation;
        int milliseconds;
        const char* name;
        int address;
        uint value;
    } rows[] = {
        {"the counter starts at zero", 0, "D", 0, 0},
        {"just before its first step", 99, "D", 0, 0},
        {"at its first step", 100, "D", 0, 1},
        {"ten steps a second", 1000, "D", 0, 10},
        {"the wave starts in its middle", 0, "D", 1, 2048},
        {"the wave rises", 2500, "D", 1, 3495}, // 2047.5 + 2047.5 x 0.7071 = 3495.3
        {"the wave's top", 5000, "D", 1, 4095},
        {"the wave's bottom", 15000, "D", 1, 0},
        {"the wave comes round", 25000, "D", 1, 4095},
        {"M0 is off first", 900, "M", 0, 0},
        {"M0 is on in the second second", 1000, "M", 0, 1},
        {"M0 is off in the third", 2000, "M", 0, 0},
        {"Y0 is on first", 900, "Y", 0, 1},
        {"Y0 is off in the second second", 1000, "Y", 0, 0},
        {"Y0 is on in the third", 2000, "Y", 0, 1},
        {"the long counter starts high", 0, "32CV", 200, 65000},
        {"the long counter's low word full", 7600, "32CV", 200, 65532},
        {"the long counter carries", 7700, "32CV", 200, 65539},
        {"the timer starts", 0, "TV", 0, 0},
        {"the timer runs", 4900, "TV", 0, 49},
        {"the contact is open while it runs", 4900, "T", 0, 0},
        {"the timer has run", 5000, "TV", 0, 50},
        {"the contact closes then", 5000, "T", 0, 1},
        {"the timer waits", 5900, "TV", 0, 50},
        {"the contact is still closed", 5900, "T", 0, 1},
        {"the timer starts again", 6000, "TV", 0, 0},
        {"the contact opens again", 6000, "T", 0, 0},
        {"all else stays still", 6000, "D", 2, 0},
    };
    for (const auto& row : rows)
        QTest::newRow(row.situation) << row.milliseconds << row.name << row.address << row.value;
}

void MotionTest::valuesAtATime()
{
    QFETCH(int, milliseconds);
    QFETCH(QString, name);
    QFETCH(int, address);
    QFETCH(uint, value);
    ControllerMemory memory;
    Motion motion(&memory);
    motion.advanceTo(milliseconds);
    QCOMPARE(memory.value(findRegisterType(name), address), value);
}

void MotionTest::smallStepsEndWhereOneLargeStepEnds()
{
    ControllerMemory memory;
    Motion motion(&memory);
    for (int milliseconds = 0; milliseconds <= 1050; milliseconds += 30)
        motion.advanceTo(milliseconds);
    motion.advanceTo(1050);
    QCOMPARE(memory.value(type("D"), 0), 10u);
    QCOMPARE(memory.value(type("32CV"), 200), 65070u);
}

void MotionTest::presetsStayStill()
{
    ControllerMemory memory;
    const struct {
        const char* name;
        int address;
        quint32 preset;
    } rows[] = {{"D", 0, 777}, {"D", 1, 778}, {"M", 0, 0},      {"Y", 0, 0},
                {"T", 0, 0},   {"TV", 0, 9},  {"32CV", 200, 42}};
    for (const auto& row : rows)
        memory.preset(type(row.name), row.address, row.preset);
    Motion motion(&memory);
    for (int milliseconds = 0; milliseconds <= 6000; milliseconds += 100) {
        motion.advanceTo(milliseconds);
        for (const auto& row : rows)
            QCOMPARE(memory.value(type(row.name), row.address), row.preset);
    }
}

void MotionTest::countersGoOnFromWhatAHostWrote()
{
    ControllerMemory memory;
    Motion motion(&memory);
    motion.advanceTo(100);
    memory.setValue(type("D"), 0, 500);
    memory.setValue(type("32CV"), 200, 1000000);
    motion.advanceTo(300);
    QCOMPARE(memory.value(type("D"), 0), 502u);
    QCOMPARE(memory.value(type("32CV"), 200), 1000014u);
}

void MotionTest::theCounterWrapsAfter65535()
{
    ControllerMemory memory;
    Motion motion(&memory);
    memory.setValue(type("D"), 0, 65535);
    motion.advanceTo(100);
    QCOMPARE(memory.value(type("D"), 0), 0u);
}

void MotionTest::countersGoOnFromLoadedValues()
{
    ControllerMemory memory;
    memory.setValue(type("D"), 0, 500);
    memory.setValue(type("32CV"), 200, 1000000);
    Motion motion(&memory);
    motion.advanceTo(100);
    QCOMPARE(memory.value(type("D"), 0), 501u);
    QCOMPARE(memory.value(type("32CV"), 200), 1000007u);
}

QTEST_APPLESS_MAIN(MotionTest)

#include "tst_motion.moc"
