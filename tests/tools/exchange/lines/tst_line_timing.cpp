#include "exchange/lines/line_timing.h"

#include <QtTest/QTest>

using namespace kx;

class LineTimingTest : public QObject
{
    Q_OBJECT

private slots:
    void times_data();
    void times();
};

void LineTimingTest::times_data()
{
    QTest::addColumn<int>("baud");
    QTest::addColumn<int>("dataBits");
    QTest::addColumn<int>("parityBits");
    QTest::addColumn<int>("stopBits");
    QTest::addColumn<int>("bits");
    QTest::addColumn<qint64>("eightCharacters"); // microseconds
    QTest::addColumn<qint64>("gap");             // microseconds
    // 80 bits / 9600 = 8333.3 us; 35 bits / 9600 = 3645.8 us
    QTest::newRow("9600 8N1") << 9600 << 8 << 0 << 1 << 10 << qint64(8334) << qint64(3646);
    // 88 bits / 9600 = 9166.7 us; 38.5 bits / 9600 = 4010.4 us
    QTest::newRow("9600 8E1") << 9600 << 8 << 1 << 1 << 11 << qint64(9167) << qint64(4011);
    QTest::newRow("9600 8E2") << 9600 << 8 << 1 << 2 << 12 << qint64(10000) << qint64(4375);
    QTest::newRow("9600 7N1") << 9600 << 7 << 0 << 1 << 9 << qint64(7500) << qint64(3282);
    // The fastest with a measured gap: 35 / 19200 = 1822.9 us
    QTest::newRow("19200 8N1") << 19200 << 8 << 0 << 1 << 10 << qint64(4167) << qint64(1823);
    QTest::newRow("38400 8N1") << 38400 << 8 << 0 << 1 << 10 << qint64(2084) << qint64(1750);
    QTest::newRow("network") << 0 << 8 << 0 << 1 << 10 << qint64(0) << qint64(0);
}

void LineTimingTest::times()
{
    QFETCH(int, baud);
    QFETCH(int, dataBits);
    QFETCH(int, parityBits);
    QFETCH(int, stopBits);
    const LineTiming timing = {baud, dataBits, parityBits, stopBits};
    QTEST(timing.bitsPerCharacter(), "bits");
    QTEST(timing.transmissionTime(8), "eightCharacters");
    QTEST(timing.frameGap(), "gap");
}

QTEST_GUILESS_MAIN(LineTimingTest)
#include "tst_line_timing.moc"
