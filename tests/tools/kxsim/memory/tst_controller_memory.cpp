// Every register type lies at its Modbus numbers, and nothing lies between.

#include "kxsim/memory/controller_memory.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using kxsim::ControllerMemory;
using kxsim::NumberRange;

namespace
{

const RegisterType* type(const char* name)
{
    return findRegisterType(QString::fromLatin1(name));
}

} // namespace

class ControllerMemoryTest : public QObject
{
    Q_OBJECT

private slots:
    void aBitLiesAtItsCoil_data();
    void aBitLiesAtItsCoil();
    void aWordLiesAtItsRegister_data();
    void aWordLiesAtItsRegister();
    void a32BitCounterLiesInTwoRegistersHighWordFirst_data();
    void a32BitCounterLiesInTwoRegistersHighWordFirst();
    void coilsExistInTheseRangesOnly_data();
    void coilsExistInTheseRangesOnly();
    void registersExistInTheseRangesOnly_data();
    void registersExistInTheseRangesOnly();
    void valuesAreCutToTheWidthOfTheirType();
    void motionLeavesPresetsAlone();
    void inputsAreTheCoilsOfX_data();
    void inputsAreTheCoilsOfX();
};

void ControllerMemoryTest::aBitLiesAtItsCoil_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("coil");
    const struct {
        const char* situation;
        const char* name;
        int address;
        int coil;
    } rows[] = {
        {"X lowest", "X", 0, 1200},
        {"X highest", "X", 255, 1455},
        {"Y lowest", "Y", 0, 0},
        {"Y highest", "Y", 255, 255},
        {"M lowest", "M", 0, 2000},
        {"M last of the first range", "M", 2047, 4047},
        {"M first of the second range", "M", 2048, 12000},
        {"M highest", "M", 10239, 20191},
        {"SM lowest", "SM", 0, 4400},
        {"SM last of the first range", "SM", 255, 4655},
        {"SM first of the second range", "SM", 256, 30000},
        {"SM highest", "SM", 511, 30255},
        {"S lowest", "S", 0, 6000},
        {"S highest", "S", 1023, 7023},
        {"T lowest", "T", 0, 8000},
        {"T highest", "T", 255, 8255},
        {"C lowest", "C", 0, 9200},
        {"C highest", "C", 255, 9455},
    };
    for (const auto& row : rows)
        QTest::newRow(row.situation) << row.name << row.address << row.coil;
}

void ControllerMemoryTest::aBitLiesAtItsCoil()
{
    QFETCH(QString, name);
    QFETCH(int, address);
    QFETCH(int, coil);
    const RegisterType* const bitType = findRegisterType(name);
    ControllerMemory memory;
    memory.setValue(bitType, address, 1);
    QCOMPARE(*memory.coil(coil), quint8(1));
    *memory.coil(coil) = 0;
    QCOMPARE(memory.value(bitType, address), 0u);
}

void ControllerMemoryTest::aWordLiesAtItsRegister_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("number");
    const struct {
        const char* situation;
        const char* name;
        int address;
        int number;
    } rows[] = {
        {"D lowest", "D", 0, 0},
        {"D highest", "D", 7999, 7999},
        {"SD lowest", "SD", 0, 8000},
        {"SD last of the first range", "SD", 255, 8255},
        {"SD first of the second range", "SD", 256, 12000},
        {"SD highest", "SD", 511, 12255},
        {"CV lowest", "CV", 0, 9500},
        {"CV highest", "CV", 199, 9699},
        {"TV lowest", "TV", 0, 9000},
        {"TV highest", "TV", 255, 9255},
        {"Z lowest", "Z", 0, 8500},
        {"Z highest", "Z", 15, 8515},
    };
    for (const auto& row : rows)
        QTest::newRow(row.situation) << row.name << row.address << row.number;
}

void ControllerMemoryTest::aWordLiesAtItsRegister()
{
    QFETCH(QString, name);
    QFETCH(int, address);
    QFETCH(int, number);
    const RegisterType* const wordType = findRegisterType(name);
    ControllerMemory memory;
    memory.setValue(wordType, address, 0x1234);
    QCOMPARE(*memory.holdingRegister(number), quint16(0x1234));
    *memory.holdingRegister(number) = 0xFFFE;
    QCOMPARE(memory.value(wordType, address), 0xFFFEu);
}

void ControllerMemoryTest::a32BitCounterLiesInTwoRegistersHighWordFirst_data()
{
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("highRegister");
    QTest::newRow("lowest") << 200 << 9700;
    QTest::newRow("second") << 201 << 9702;
    QTest::newRow("highest") << 255 << 9810;
}

void ControllerMemoryTest::a32BitCounterLiesInTwoRegistersHighWordFirst()
{
    QFETCH(int, address);
    QFETCH(int, highRegister);
    ControllerMemory memory;
    memory.setValue(type("32CV"), address, 0x89ABCDEF);
    QCOMPARE(*memory.holdingRegister(highRegister), quint16(0x89AB));
    QCOMPARE(*memory.holdingRegister(highRegister + 1), quint16(0xCDEF));
    *memory.holdingRegister(highRegister) = 1;
    QCOMPARE(memory.value(type("32CV"), address), 0x0001CDEFu);
}

void ControllerMemoryTest::coilsExistInTheseRangesOnly_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::newRow("Y") << 0 << 255;
    QTest::newRow("X") << 1200 << 1455;
    QTest::newRow("M below its split") << 2000 << 4047;
    QTest::newRow("SM below its split") << 4400 << 4655;
    QTest::newRow("S") << 6000 << 7023;
    QTest::newRow("T") << 8000 << 8255;
    QTest::newRow("C") << 9200 << 9455;
    QTest::newRow("M from its split") << 12000 << 20191;
    QTest::newRow("SM from its split") << 30000 << 30255;
}

void ControllerMemoryTest::coilsExistInTheseRangesOnly()
{
    QFETCH(int, first);
    QFETCH(int, last);
    const ControllerMemory memory;
    for (const int inside : {first, first + 1, last}) {
        QCOMPARE(memory.coilsAround(inside).first, first);
        QCOMPARE(memory.coilsAround(inside).count, last - first + 1);
    }
    if (first > 0)
        QCOMPARE(memory.coilsAround(first - 1).count, 0);
    QCOMPARE(memory.coilsAround(last + 1).count, 0);
    QCOMPARE(memory.coilsAround(65535).count, 0);
}

void ControllerMemoryTest::registersExistInTheseRangesOnly_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::newRow("D and, without a gap, SD below its split") << 0 << 8255;
    QTest::newRow("Z") << 8500 << 8515;
    QTest::newRow("TV") << 9000 << 9255;
    QTest::newRow("CV and, without a gap, 32CV") << 9500 << 9811;
    QTest::newRow("SD from its split") << 12000 << 12255;
}

void ControllerMemoryTest::registersExistInTheseRangesOnly()
{
    QFETCH(int, first);
    QFETCH(int, last);
    const ControllerMemory memory;
    for (const int inside : {first, first + 1, last}) {
        QCOMPARE(memory.registersAround(inside).first, first);
        QCOMPARE(memory.registersAround(inside).count, last - first + 1);
    }
    if (first > 0)
        QCOMPARE(memory.registersAround(first - 1).count, 0);
    QCOMPARE(memory.registersAround(last + 1).count, 0);
    QCOMPARE(memory.registersAround(65535).count, 0);
}

void ControllerMemoryTest::valuesAreCutToTheWidthOfTheirType()
{
    ControllerMemory memory;
    memory.setValue(type("M"), 3, 2);
    QCOMPARE(memory.value(type("M"), 3), 0u);
    memory.setValue(type("D"), 3, 0x12345);
    QCOMPARE(memory.value(type("D"), 3), 0x2345u);
    QCOMPARE(memory.value(type("D"), 4), 0u);
}

void ControllerMemoryTest::motionLeavesPresetsAlone()
{
    ControllerMemory memory;
    const struct {
        const char* name;
        int address;
        quint32 preset;
        quint32 moved;
    } rows[] = {{"M", 7, 1, 0}, {"TV", 7, 11, 22}, {"32CV", 207, 70000, 80000}};
    for (const auto& row : rows) {
        memory.move(type(row.name), row.address, row.moved);
        QCOMPARE(memory.value(type(row.name), row.address), row.moved);
        memory.preset(type(row.name), row.address, row.preset);
        memory.move(type(row.name), row.address, row.moved);
        QCOMPARE(memory.value(type(row.name), row.address), row.preset);
    }
    memory.move(type("TV"), 8, 33);
    QCOMPARE(memory.value(type("TV"), 8), 33u);
}

void ControllerMemoryTest::inputsAreTheCoilsOfX_data()
{
    QTest::addColumn<int>("coil");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("holdsInput");
    QTest::newRow("Y0") << 0 << 1 << false;
    QTest::newRow("before X") << 1199 << 1 << false;
    QTest::newRow("up to X0") << 1199 << 2 << true;
    QTest::newRow("X0") << 1200 << 1 << true;
    QTest::newRow("X377") << 1455 << 1 << true;
    QTest::newRow("behind X") << 1456 << 1 << false;
    QTest::newRow("all around X") << 0 << 1968 << true;
    QTest::newRow("M") << 2000 << 1968 << false;
    QTest::newRow("past the last number") << 65535 << 1968 << false;
}

void ControllerMemoryTest::inputsAreTheCoilsOfX()
{
    QFETCH(int, coil);
    QFETCH(int, count);
    const ControllerMemory memory;
    QTEST(memory.holdsInput(coil, count), "holdsInput");
}

QTEST_APPLESS_MAIN(ControllerMemoryTest)

#include "tst_controller_memory.moc"
