#include "exchange/driver_keys.h"

#include <QtTest/QTest>

using namespace kx;

class DriverKeysTest : public QObject
{
    Q_OBJECT

private slots:
    void keys_data();
    void keys();
};

void DriverKeysTest::keys_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("regType");
    QTest::addColumn<int>("station");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("bitIndex");
    QTest::addColumn<int>("count");
    QTest::newRow("words") << "D100:4@2"
                           << "D" << 2 << 100 << 0 << 4;
    QTest::newRow("bits, octal") << "X17:3@1"
                                 << "X" << 1 << 15 << -1 << 3;
    QTest::newRow("double words, two registers each") << "32CV200:3@247"
                                                      << "32CV" << 247 << 200 << 0 << 6;
}

void DriverKeysTest::keys()
{
    QFETCH(QString, typed);
    AddressRange range;
    QString error;
    QVERIFY2(parseAddressRange(typed, &range, &error), qPrintable(error));
    const KEY_ADDRESS key = keyOf(range);
    QTEST(key.regType, "regType");
    QTEST(key.station, "station");
    QTEST(key.address, "address");
    QTEST(key.bitIndex, "bitIndex");
    QTEST(key.count, "count");
}

QTEST_GUILESS_MAIN(DriverKeysTest)
#include "tst_driver_keys.moc"
