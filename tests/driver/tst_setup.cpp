#include "support/driver_fixture.h"

#include <QtTest/QTest>

namespace
{

void ignoreChange(int, int, QString, int) {}

int initialise(const char* parameters)
{
    int status = 0;
    return intf_initProperty(nullptr, nullptr, nullptr, &status, parameters, nullptr);
}

} // namespace

class SetupTest : public QObject
{
    Q_OBJECT

private slots:
    void describesTheDriver();
    void theDefaultParametersAreTwentyThreeItems();
    void registersAndReplacesTheValueChangeFunction();
    void readsTheParameters_data();
    void readsTheParameters();
    void takesTheParametersAsLatin1_data();
    void takesTheParametersAsLatin1();
    void statusIsZeroAndTheResultOneAfterEveryCall();
    void theStatusMayBeNull();
    void keepsTheResourcesOfTheRuntime();
    void theRequestLimitAboveAllBitsWraps();
};

void SetupTest::describesTheDriver()
{
    int protocol = 77;
    intf_getProtocolType(&protocol);
    QCOMPARE(protocol, 0);

    QString text = "old";
    intf_getDriverPropertyPage(text);
    QCOMPARE(text, QString("0_0"));

    intf_SetDriverPropertyPage(text);
    QCOMPARE(text, QString(""));
    intf_getDriverPropertyPage(text);
    QCOMPARE(text, QString("0_0"));
}

void SetupTest::theDefaultParametersAreTwentyThreeItems()
{
    QString text = "old";
    intf_getDriverParameter(text);
    QStringList items = text.split(',');
    QCOMPARE(items.size(), 23);

    const QStringList octets = items.at(7).split('.');
    QCOMPARE(octets.size(), 4);
    for (const QString& octet : octets) {
        bool isNumber = false;
        const int value = octet.toInt(&isNumber);
        QVERIFY2(isNumber && value >= 0 && value <= 255, qPrintable(items.at(7)));
    }

    items.removeAt(7);
    const QStringList expected = {
        "0",        "9600", "8",  "NONE", "1",  "0", "1", /* device address */ "8888",
        "tarvelan", "X",    "Y",  "SM",   "M",  "S", "T", "C",
        "D",        "SD",   "CV", "32CV", "TV", "Z"};
    QCOMPARE(items, expected);
}

void SetupTest::registersAndReplacesTheValueChangeFunction()
{
    DriverFixture runtime;
    const ValueChangeCallBack first = driver.valueChangeCallBack;
    QVERIFY(first != nullptr);
    intf_setAddrValueChangeCallBack(ignoreChange);
    QVERIFY(driver.valueChangeCallBack == ignoreChange);
    QVERIFY(driver.valueChangeCallBack != first);
    intf_setAddrValueChangeCallBack(nullptr);
    QVERIFY(driver.valueChangeCallBack == nullptr);
}

void SetupTest::readsTheParameters_data()
{
    QTest::addColumn<QByteArray>("parameters");
    QTest::addColumn<QList<int>>("expected"); // link, local, stored, retries, words; bits
    QTest::newRow("five items") << QByteArray("1#0#0#0#32") << QList<int>({1, 0, 0, 0, 32, 256});
    QTest::newRow("each in its field")
        << QByteArray("11#22#33#44#55") << QList<int>({11, 22, 33, 44, 55, 440});
    QTest::newRow("not a number counts as 0, a sixth item is ignored")
        << QByteArray("1#x#0#0#16#99") << QList<int>({1, 0, 0, 0, 16, 128});
    QTest::newRow("an empty item counts as 0")
        << QByteArray("1##3##32") << QList<int>({1, 0, 3, 0, 32, 256});
    QTest::newRow("five empty items") << QByteArray("####") << QList<int>({0, 0, 0, 0, 0, 0});
    QTest::newRow("negative numbers")
        << QByteArray("-1#-2#-3#-4#-5") << QList<int>({-1, -2, -3, -4, -5, -40});
    QTest::newRow("hexadecimal is not a number")
        << QByteArray("0x10#1#1#1#1") << QList<int>({0, 1, 1, 1, 1, 8});
    QTest::newRow("past 32 bits is not a number")
        << QByteArray("4294967296#1#1#1#2147483648") << QList<int>({0, 1, 1, 1, 0, 0});
    QTest::newRow("four items change nothing")
        << QByteArray("1#0#0#0") << QList<int>({7, 6, 5, 4, 3, 24});
    QTest::newRow("nothing changes nothing") << QByteArray("") << QList<int>({7, 6, 5, 4, 3, 24});
    QTest::newRow("commas do not separate")
        << QByteArray("1,0,0,0,32") << QList<int>({7, 6, 5, 4, 3, 24});
}

void SetupTest::readsTheParameters()
{
    QFETCH(QByteArray, parameters);
    QFETCH(QList<int>, expected);
    DriverFixture runtime("7#6#5#4#3");
    QCOMPARE(initialise(parameters.constData()), 1);
    QCOMPARE(driver.linkId, expected.at(0));
    QCOMPARE(driver.writeLocalOnly, expected.at(1));
    QCOMPARE(driver.param2, expected.at(2));
    QCOMPARE(driver.retryLimit, expected.at(3));
    QCOMPARE(driver.maxWords, expected.at(4));
    QCOMPARE(driver.maxWordsPerJob, expected.at(4));
    QCOMPARE(driver.maxBitsPerJob, expected.at(5));
}

// One character per byte; 35 is the digit 5.
void SetupTest::takesTheParametersAsLatin1_data()
{
    QTest::addColumn<QByteArray>("item");
    QTest::addColumn<int>("expected");
    // Before Qt 6 numbers may stand between spaces past ASCII.
    const int spaced = QT_VERSION < 0x060000 ? 5 : 0;
    QTest::newRow("no-break spaces around") << bytes("A0 35 A0") << spaced;
    QTest::newRow("a next-line character before") << bytes("85 35") << spaced;
    QTest::newRow("a no-break space amid") << bytes("35 A0 35") << 0;
    QTest::newRow("a superscript two is no digit") << bytes("B2") << 0;
    QTest::newRow("a superscript two behind a digit") << bytes("35 B2") << 0;
    QTest::newRow("a soft hyphen is no minus") << bytes("AD 35") << 0;
    QTest::newRow("a no-break space in UTF-8 is two") << bytes("C2 A0 35") << 0;
    QTest::newRow("a next-line character in UTF-8 is two") << bytes("35 C2 85") << 0;
    QTest::newRow("a wide space in UTF-8 is three") << bytes("E3 80 80 35") << 0;
    QTest::newRow("a minus in UTF-8 is three") << bytes("E2 88 92 35") << 0;
    QTest::newRow("a wide five in UTF-8 is three") << bytes("EF BC 95") << 0;
    QTest::newRow("the beginning of UTF-8") << bytes("C2") << 0;
}

void SetupTest::takesTheParametersAsLatin1()
{
    QFETCH(QByteArray, item);
    DriverFixture runtime("7#6#5#4#3");
    initialise((item + "#11#22#33#44").constData());
    QTEST(driver.linkId, "expected");
    QCOMPARE(driver.writeLocalOnly, 11); // the items behind it are where they were
    initialise(("11#22#33#44#" + item).constData());
    QTEST(driver.maxWords, "expected");
    QCOMPARE(driver.retryLimit, 44);
}

void SetupTest::statusIsZeroAndTheResultOneAfterEveryCall()
{
    DriverFixture runtime;
    for (const char* parameters : {"1#0#0#0#32", "1#0#0#0", "", "a#b#c#d#e#f"}) {
        int status = 77;
        QCOMPARE(intf_initProperty(nullptr, nullptr, nullptr, &status, parameters, nullptr), 1);
        QCOMPARE(status, 0);
    }
}

void SetupTest::theStatusMayBeNull()
{
    DriverFixture runtime;
    QCOMPARE(intf_initProperty(nullptr, nullptr, nullptr, nullptr, "7#0#0#0#32", nullptr), 1);
    QCOMPARE(driver.linkId, 7);
}

void SetupTest::keepsTheResourcesOfTheRuntime()
{
    DriverFixture runtime;
    unsigned char shared[1] = {0};
    unsigned short recipe[1] = {0};
    int value = 0;
    int status = 0;
    QMutex mutex;
    intf_initProperty(shared, &value, recipe, &status, "1#0", &mutex);
    QCOMPARE(static_cast<void*>(driver.hostShared), static_cast<void*>(shared));
    QCOMPARE(driver.hostArg1, static_cast<void*>(&value));
    QCOMPARE(static_cast<void*>(driver.recipeBuffer), static_cast<void*>(recipe));
    QCOMPARE(static_cast<void*>(driver.hostMutex), static_cast<void*>(&mutex));
}

void SetupTest::theRequestLimitAboveAllBitsWraps()
{
    DriverFixture runtime;
    initialise("1#0#0#3#536870913"); // 2^29 + 1 registers are 2^32 + 8 bits
    QCOMPARE(driver.maxWordsPerJob, 536870913);
    QCOMPARE(driver.maxBitsPerJob, 8);
}

QTEST_APPLESS_MAIN(SetupTest)
#include "tst_setup.moc"
