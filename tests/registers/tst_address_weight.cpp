#include "driver/tarvelan.h"
#include "registers/address_weight.h"

#include <QtTest/QTest>

class AddressWeightTest : public QObject
{
    Q_OBJECT

private slots:
    void weights_data();
    void weights();
    void followsTheDriversListOfNames();
};

void AddressWeightTest::weights_data()
{
    QTest::addColumn<int>("station");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("address");
    QTest::addColumn<uint>("expected"); // 65535 * (5 * station + position) + address
    QTest::newRow("X is 1") << 0 << "X" << 0 << 65535u;
    QTest::newRow("Y is 2") << 0 << "Y" << 0 << 131070u;
    QTest::newRow("M is 3") << 0 << "M" << 0 << 196605u;
    QTest::newRow("SM is 4") << 0 << "SM" << 0 << 262140u;
    QTest::newRow("S is 5") << 0 << "S" << 0 << 327675u;
    QTest::newRow("T is 6") << 0 << "T" << 0 << 393210u;
    QTest::newRow("C is 7") << 0 << "C" << 0 << 458745u;
    QTest::newRow("D is 8") << 0 << "D" << 0 << 524280u;
    QTest::newRow("SD is 9") << 0 << "SD" << 0 << 589815u;
    QTest::newRow("TV is 10, before CV") << 0 << "TV" << 0 << 655350u;
    QTest::newRow("CV is 11") << 0 << "CV" << 0 << 720885u;
    QTest::newRow("32CV is 12") << 0 << "32CV" << 0 << 786420u;
    QTest::newRow("Z is 13") << 0 << "Z" << 0 << 851955u;
    QTest::newRow("the address is added") << 0 << "D" << 100 << 524380u;
    QTest::newRow("highest address of all") << 0 << "M" << 10239 << 206844u;
    QTest::newRow("one station is five types") << 1 << "Y" << 5 << 458750u;
    QTest::newRow("the same weight a station below") << 0 << "C" << 5 << 458750u;
    QTest::newRow("unknown type") << 2 << "Q" << 9 << 655359u;
    QTest::newRow("no type") << 0 << "" << 9 << 9u;
    QTest::newRow("lower case is unknown") << 0 << "d" << 9 << 9u;
    QTest::newRow("last station") << 247 << "Z" << 15 << 81787695u;
    // 65535 * 5 * 20000 = 6553500000 = 4294967296 + 2258532704
    QTest::newRow("wraps at 32 bits") << 20000 << "" << 0 << 2258532704u;
    QTest::newRow("below zero counts from the top") << 0 << "" << -1 << 4294967295u;
    QTest::newRow("station below zero") << -1 << "S" << 7 << 7u;
}

void AddressWeightTest::weights()
{
    QFETCH(int, station);
    QFETCH(QString, type);
    QFETCH(int, address);
    QFETCH(uint, expected);
    for (const int flag : {0, 1, -1, 99})
        QCOMPARE(getRegAddressWeight(station, type, address, flag), expected);
}

void AddressWeightTest::followsTheDriversListOfNames()
{
    const QList<QString> names = driver.regNames;
    driver.regNames.clear();
    const uint withoutNames = getRegAddressWeight(0, "D", 100, 0);
    driver.regNames = {"M", "D", "D"};
    const uint firstMatch = getRegAddressWeight(0, "D", 100, 0);
    driver.regNames = names;
    QCOMPARE(withoutNames, 100u);
    QCOMPARE(firstMatch, 131170u); // position 2
}

QTEST_APPLESS_MAIN(AddressWeightTest)
#include "tst_address_weight.moc"
