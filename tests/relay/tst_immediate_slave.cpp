#include "relay/immediate_slave.h"

#include "support/driver_fixture.h"

#include <QtTest/QTest>

using namespace kx;

class ImmediateSlaveTest : public QObject
{
    Q_OBJECT

private slots:
    void replies_data();
    void replies();
};

void ImmediateSlaveTest::replies_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("reply");
    // Station, function, address, quantity; then station, function, byte count, values.
    QTest::newRow("two registers")
        << withCrc("01 03 01 02 00 02") << withCrc("01 03 04 01 02 01 03");
    QTest::newRow("ten coils") << withCrc("02 01 00 00 00 0A") << withCrc("02 01 02 AA 02");
    QTest::newRow("a coil written") << withCrc("01 05 00 07 FF 00") << withCrc("01 05 00 07 FF 00");
    QTest::newRow("registers written")
        << withCrc("01 10 00 64 00 02 04 00 01 00 02") << withCrc("01 10 00 64 00 02");
}

void ImmediateSlaveTest::replies()
{
    QFETCH(QByteArray, request);
    ImmediateSlave slave;
    for (int round = 0; round < 2; ++round) {
        for (const char byte : request.left(request.size() - 1))
            QCOMPARE(slave.take(byte), QByteArray());
        QTEST(slave.take(request.back()), "reply");
    }
}

QTEST_GUILESS_MAIN(ImmediateSlaveTest)
#include "tst_immediate_slave.moc"
