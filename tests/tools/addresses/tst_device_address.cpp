#include "addresses/device_address.h"

#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kx;

class DeviceAddressTest : public QObject
{
    Q_OBJECT

private slots:
    void coils_data();
    void coils();
    void registers_data();
    void registers();
    void everyAddressIsFoundAgain();

private:
    static void addColumns();
    static void compare(const DeviceAddress& found);
};

void DeviceAddressTest::addColumns()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("part");
}

void DeviceAddressTest::compare(const DeviceAddress& found)
{
    QTEST(QString::fromLatin1(found.type ? found.type->name : ""), "type");
    QTEST(found.address, "address");
    QTEST(found.part, "part");
}

void DeviceAddressTest::coils_data()
{
    addColumns();
    const auto row = [](const char* name, int number, const char* type, int address) {
        QTest::newRow(name) << number << QString::fromLatin1(type) << address << 0;
    };
    row("the first output", 0, "Y", 0);
    row("the last output", 255, "Y", 255);
    row("behind the outputs", 256, "", 0);
    row("before the inputs", 1199, "", 0);
    row("the first input", 1200, "X", 0);
    row("the last input", 1455, "X", 255);
    row("the first M", 2000, "M", 0);
    row("the last M of the first range", 4047, "M", 2047);
    row("behind the first M range", 4048, "", 0);
    row("the first SM", 4400, "SM", 0);
    row("the last SM of the first range", 4655, "SM", 255);
    row("between SM and S", 5000, "", 0);
    row("the last S", 7023, "S", 1023);
    row("a timer's contact", 8000, "T", 0);
    row("a counter's contact", 9455, "C", 255);
    row("before the second M range", 11999, "", 0);
    row("the first M of the second range", 12000, "M", 2048);
    row("the last M", 20191, "M", 10239);
    row("behind all M", 20192, "", 0);
    row("the first SM of the second range", 30000, "SM", 256);
    row("the last SM", 30255, "SM", 511);
    row("the last coil there is", 65535, "", 0);
}

void DeviceAddressTest::coils()
{
    QFETCH(int, number);
    compare(deviceAddressOfCoil(number));
}

void DeviceAddressTest::registers_data()
{
    addColumns();
    const auto row = [](const char* name, int number, const char* type, int address, int part) {
        QTest::newRow(name) << number << QString::fromLatin1(type) << address << part;
    };
    row("the first D", 0, "D", 0, 0);
    row("the last D", 7999, "D", 7999, 0);
    row("the first SD", 8000, "SD", 0, 0);
    row("behind the first SD range", 8256, "", 0, 0);
    row("the last Z", 8515, "Z", 15, 0);
    row("behind Z", 8516, "", 0, 0);
    row("a timer's value", 9000, "TV", 0, 0);
    row("the last timer's value", 9255, "TV", 255, 0);
    row("a counter's value", 9500, "CV", 0, 0);
    row("the last counter of a word", 9699, "CV", 199, 0);
    row("the high word of the first double counter", 9700, "32CV", 200, 0);
    row("its low word", 9701, "32CV", 200, 1);
    row("the high word of the second", 9702, "32CV", 201, 0);
    row("the low word of the last", 9811, "32CV", 255, 1);
    row("behind the counters", 9812, "", 0, 0);
    row("the first SD of the second range", 12000, "SD", 256, 0);
    row("the last SD", 12255, "SD", 511, 0);
    row("behind all", 12256, "", 0, 0);
}

void DeviceAddressTest::registers()
{
    QFETCH(int, number);
    compare(deviceAddressOfRegister(number));
}

void DeviceAddressTest::everyAddressIsFoundAgain()
{
    int looked = 0;
    for (const RegisterType& row : REGISTER_TYPES) {
        const RegisterType* const type = findRegisterType(QString::fromLatin1(row.name));
        const int end = type->registerClass == DOUBLE_WORD_CLASS ? 256 : type->limit;
        for (int address = type->lowestAddress; address < end; ++address, ++looked) {
            const int number = modbusNumber(type, address);
            const DeviceAddress found = type->registerClass == BIT_CLASS
                                            ? deviceAddressOfCoil(number)
                                            : deviceAddressOfRegister(number);
            QCOMPARE(found.type, type);
            QCOMPARE(found.address, address);
            QCOMPARE(found.part, 0);
        }
    }
    // X Y M SM S T C, then D SD CV 32CV TV Z
    QCOMPARE(looked, 256 + 256 + 10240 + 512 + 1024 + 256 + 256 + 8000 + 512 + 200 + 56 + 256 + 16);
}

QTEST_APPLESS_MAIN(DeviceAddressTest)
#include "tst_device_address.moc"
