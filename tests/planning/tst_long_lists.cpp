// Lists of 100,000 entries, with counts past every array.

#include "stories/slave.h"

#include <QtTest/QTest>

#include <memory>

namespace
{

const int ENTRIES = 100000;

/// Takes the next request, which may be longer than a frame, and acknowledges it.
/// The record is a block of memory of its own, whose edges AddressSanitizer guards.
int acknowledgeWrite()
{
    const std::unique_ptr<FRAME_PRO> request(new FRAME_PRO());
    // An idle poll comes after every five writes.
    if (intf_getSendFrame(request.get()) != 1 && intf_getSendFrame(request.get()) != 1)
        return -1;
    QByteArray echo(reinterpret_cast<const char*>(request->frame), 6);
    echo = withCrc(echo.toHex().constData());
    QString errorText;
    return intf_dealRcvFrame(echo, errorText) == REPLY_ACCEPTED ? request->sendLen : -1;
}

QVector<_RCP_VAR_PRO> variables(int number, int count)
{
    QVector<_RCP_VAR_PRO> list;
    list.reserve(number);
    for (int i = 0; i < number; ++i)
        list << variable(1, QString::fromLatin1("D"), number - i, count, i % 2000);
    return list;
}

} // namespace

class LongListsTest : public QObject
{
    Q_OBJECT

private slots:
    void watchesTheSameAddressManyTimes();
    void watchesManyAddressesFromTheLastToTheFirst();
    void watchesManyUnknownTypes();
    void watchesRangesPastEveryArray();
    void plansARecipeOfManyVariables();
    void plansARecipeOfLongVariables();
    void queuesManyConditionReads();
    void queuesManyWrites();
    void writesPastEveryArray();
    void namesManyAddresses();
};

void LongListsTest::watchesTheSameAddressManyTimes()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> watched;
    for (int i = 0; i < ENTRIES; ++i)
        watched << key(1, "D", 7, 1);
    QCOMPARE(intf_addrMerge(watched), 1);
    QCOMPARE(static_cast<int>(driver.dataAreas.size()), 1);
    QCOMPARE(runtime.poll(), withCrc("01 03 0007 0001"));
}

void LongListsTest::watchesManyAddressesFromTheLastToTheFirst()
{
    DriverFixture runtime("1#0#0#3#125");
    QList<KEY_ADDRESS> watched;
    for (int i = ENTRIES - 1; i >= 0; --i)
        watched << key(1, "D", i, 1);
    QCOMPARE(intf_addrMerge(watched), 800); // 100000 / 125
    QCOMPARE(static_cast<int>(driver.dataAreas.size()), ENTRIES);
    QCOMPARE(serve(runtime, 800).last(), QString("D 99875 125"));
}

void LongListsTest::watchesManyUnknownTypes()
{
    DriverFixture runtime;
    const QString longName = QString(QLatin1Char('D')).repeated(100000);
    QList<KEY_ADDRESS> watched;
    for (int i = 0; i < ENTRIES; ++i) {
        watched << key(1, "Q", 10 * i, 1);
        watched.last().regType = i % 2 == 0 ? QString() : longName;
    }
    QVERIFY(intf_addrMerge(watched) > 0);
    QVERIFY(driver.dataAreas.isEmpty());
    QCOMPARE(runtime.poll().size(), 8);
}

// Such a request is no Modbus request, yet its reply is taken whole.
void LongListsTest::watchesRangesPastEveryArray()
{
    DriverFixture runtime;
    for (const int count : {513, 1025, 32000}) {
        QList<KEY_ADDRESS> watched;
        watched << key(1, "D", 0, count);
        QCOMPARE(intf_addrMerge(watched), 3); // copies of an entry past the limit
        runtime.poll();
        QCOMPARE(runtime.polled().recvLen, 2 * count + 5);
        const QByteArray data = QByteArray("7").repeated(4 * count);
        QCOMPARE(runtime.deal(replyWith(runtime, data.constData())), 1);
        QCOMPARE(DriverFixture::data(1, "D", count - 1, 1, 2), bytes("7777"));
    }
}

void LongListsTest::plansARecipeOfManyVariables()
{
    DriverFixture runtime("1#0#0#3#125");
    QVector<_RCP_VAR_PRO> list = variables(ENTRIES, 1);
    QCOMPARE(intf_setRcpAddress(list), ENTRIES);
    QCOMPARE(static_cast<int>(driver.rcpVars.size()), 800);
    runtime.requestRecipeRead();
    serve(runtime, 800);
    QCOMPARE(int(runtime.shared[60116]), 0);
}

// A block keeps as many values as a payload holds; the frame ends where it ends.
void LongListsTest::plansARecipeOfLongVariables()
{
    DriverFixture runtime;
    runtime.recipe.assign(runtime.recipe.size(), 0x1234);
    for (const int count : {512, 513, 2000}) {
        QVector<_RCP_VAR_PRO> list = variables(2, count);
        QCOMPARE(intf_setRcpAddress(list), 2);
        runtime.requestRecipeWrite();
        while (runtime.shared[60115] == 1)
            QCOMPARE(acknowledgeWrite(), 2 * count + 9);
        runtime.requestRecipeRead();
        const QString first = QString("D 1 %1").arg(count); // twice, as it is past the limit
        QCOMPARE(serve(runtime, 3), QStringList()
                                        << first << first << QString("D 2 %1").arg(count));
        QCOMPARE(int(runtime.shared[60116]), 0);
    }
}

void LongListsTest::queuesManyConditionReads()
{
    DriverFixture runtime;
    for (int i = 0; i < ENTRIES; ++i)
        addCondition(1, "D", i, 1);
    QCOMPARE(static_cast<int>(driver.condList.size()), 513);
    QCOMPARE(driver.condList.last().address, ENTRIES - 1);
}

void LongListsTest::queuesManyWrites()
{
    DriverFixture runtime;
    for (int i = 0; i < ENTRIES; ++i)
        setValues(1, "D", i, 1, "3412");
    QCOMPARE(static_cast<int>(driver.writeList.size()), 513);
    QCOMPARE(driver.writeList.last().address, ENTRIES - 1);
    QCOMPARE(static_cast<int>(driver.dataAreas.size()), ENTRIES);
}

void LongListsTest::writesPastEveryArray()
{
    DriverFixture runtime("1#0#0#3#100000");
    for (const char* type : {"Y", "D", "32CV"}) {
        for (const int count : {1026, 8200, 100000}) {
            const int size = qstrcmp(type, "Y") == 0 ? count : 2 * count;
            std::vector<unsigned char> values(static_cast<size_t>(size), 1);
            intf_setData(1, QString::fromLatin1(type), 0, count, values.data(), WRITE_JOB);
            if (qstrcmp(type, "Y") == 0) {
                for (int left = count; left > 0; left -= 1024)
                    QCOMPARE(acknowledgeWrite(), (qMin(left, 1024) + 7) / 8 + 9);
            } else {
                QCOMPARE(acknowledgeWrite(), 2 * count + 9);
            }
            QVERIFY(driver.writeList.isEmpty());
            std::vector<unsigned char> back(static_cast<size_t>(size), 0xEE);
            intf_getData(1, QString::fromLatin1(type), 0, count, back.data());
            QVERIFY(back == values);
        }
    }
}

void LongListsTest::namesManyAddresses()
{
    QVector<QString> texts;
    QVector<int> addresses;
    QCOMPARE(intf_multiCopy("M", 0, ENTRIES, 1, texts, addresses), 2);
    QCOMPARE(static_cast<int>(texts.size()), ENTRIES);
    QCOMPARE(texts.last(), QString("10239"));
    QCOMPARE(addresses.at(10238), 10238);
}

QTEST_APPLESS_MAIN(LongListsTest)
#include "tst_long_lists.moc"
