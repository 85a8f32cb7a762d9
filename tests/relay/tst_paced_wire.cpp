#include "relay/paced_wire.h"

#include <QtTest/QTest>

using namespace kx;

class PacedWireTest : public QObject
{
    Q_OBJECT

private slots:
    void aCharacterTakesItsBits_data();
    void aCharacterTakesItsBits();
    void bytesHandedOverLaterGoBehind();
    void afterAPauseTimeCountsAnew();
    void noErrorAddsUp();
};

void PacedWireTest::aCharacterTakesItsBits_data()
{
    QTest::addColumn<int>("baud");
    QTest::addColumn<int>("bits");
    QTest::addColumn<qint64>("end"); // nanoseconds
    QTest::newRow("9600 baud, no parity") << 9600 << 10 << qint64(1041666);
    QTest::newRow("9600 baud, parity") << 9600 << 11 << qint64(1145833);
    QTest::newRow("115200 baud") << 115200 << 10 << qint64(86805);
}

void PacedWireTest::aCharacterTakesItsBits()
{
    QFETCH(int, baud);
    QFETCH(int, bits);
    PacedWire wire(baud, bits);
    wire.send("a", 5000);
    QVERIFY(wire.isNextTheLast());
    const PacedWire::Character character = wire.take();
    QCOMPARE(character.byte, 'a');
    QCOMPARE(character.start, qint64(5000));
    QTEST(character.end - 5000, "end");
    QVERIFY(wire.isEmpty());
}

void PacedWireTest::bytesHandedOverLaterGoBehind()
{
    PacedWire wire(10000, 10); // 1 ms each
    wire.send("ab", 0);
    wire.send("c", 1500000);
    wire.take();
    wire.take();
    QCOMPARE(wire.nextAt(), qint64(3000000));
    QCOMPARE(wire.take().start, qint64(2000000));
}

void PacedWireTest::afterAPauseTimeCountsAnew()
{
    PacedWire wire(10000, 10);
    wire.send("a", 0);
    wire.take();
    wire.send("b", 7300000);
    QCOMPARE(wire.nextAt(), qint64(8300000));
}

void PacedWireTest::noErrorAddsUp()
{
    PacedWire wire(9600, 10);
    wire.send(QByteArray(9600, 'x'), 0);
    for (int i = 1; i < 9600; ++i)
        wire.take();
    QCOMPARE(wire.nextAt(), qint64(10000000000)); // 96,000 bits
}

QTEST_GUILESS_MAIN(PacedWireTest)
#include "tst_paced_wire.moc"
