#include "listen/frame_shape.h"

#include "support/driver_fixture.h"

#include <QtTest/QTest>

using namespace kx;

class FrameShapeTest : public QObject
{
    Q_OBJECT

private slots:
    void requests_data();
    void requests();
    void replies_data();
    void replies();
    void answers_data();
    void answers();
    void knownFunctions();
};

void FrameShapeTest::requests_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<int>("length");
    QTest::newRow("nothing") << QByteArray() << NEEDS_MORE;
    QTest::newRow("a station alone") << bytes("01") << NEEDS_MORE;
    QTest::newRow("read coils") << bytes("01 01") << 8;
    QTest::newRow("read discrete inputs") << bytes("01 02") << 8;
    QTest::newRow("read holding registers") << bytes("01 03") << 8;
    QTest::newRow("read input registers") << bytes("01 04") << 8;
    QTest::newRow("write a coil") << bytes("01 05") << 8;
    QTest::newRow("write a register") << bytes("01 06") << 8;
    // station, function, address, quantity, byte count
    QTest::newRow("write coils, byte count to come") << bytes("01 0F 00 00 00 0A") << NEEDS_MORE;
    QTest::newRow("write ten coils") << bytes("01 0F 00 00 00 0A 02") << 11;
    QTest::newRow("write two registers") << bytes("01 10 00 64 00 02 04") << 13;
    QTest::newRow("a byte count that does not suit") << bytes("01 10 00 64 00 02 06") << 15;
    // 128 registers are 256 bytes, of which the byte count holds the low eight bits.
    QTest::newRow("a byte count that has wrapped") << bytes("01 10 00 64 00 80 00") << 265;
    QTest::newRow("more than a frame holds") << bytes("01 10 00 64 02 00 00") << 9;
    QTest::newRow("an unknown function") << bytes("01 2B") << NO_FRAME;
    QTest::newRow("an exception") << bytes("01 83 02") << NO_FRAME;
}

void FrameShapeTest::requests()
{
    QFETCH(QByteArray, start);
    QTEST(requestLength(start), "length");
}

void FrameShapeTest::replies_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<int>("length");
    QTest::newRow("a station alone") << bytes("01") << NEEDS_MORE;
    QTest::newRow("byte count to come") << bytes("01 03") << NEEDS_MORE;
    QTest::newRow("one coil") << bytes("01 01 01") << 6;
    QTest::newRow("125 registers") << bytes("01 03 FA") << 255;
    QTest::newRow("no data") << bytes("01 03 00") << NO_FRAME;
    QTest::newRow("a written coil") << bytes("01 05") << 8;
    QTest::newRow("a written register") << bytes("01 06") << 8;
    QTest::newRow("written coils") << bytes("01 0F") << 8;
    QTest::newRow("written registers") << bytes("01 10") << 8;
    QTest::newRow("a refused read") << bytes("01 83") << 5;
    QTest::newRow("a refused unknown function") << bytes("01 AB") << 5;
    QTest::newRow("an unknown function") << bytes("01 2B") << NO_FRAME;
    QTest::newRow("station 0 never replies") << bytes("00 03 02") << NO_FRAME;
}

void FrameShapeTest::replies()
{
    QFETCH(QByteArray, start);
    QTEST(replyLength(start), "length");
}

void FrameShapeTest::answers_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<int>("length");
    // station 1, function 3, address 100, quantity 2; station 1, function 1, coil 2000, 9 coils
    const QByteArray words = withCrc("01 03 00 64 00 02");
    const QByteArray bits = withCrc("01 01 07 D0 00 09");
    const QByteArray write = withCrc("01 10 00 64 00 01 02 00 05");
    QTest::newRow("no request") << QByteArray() << bytes("01 03 04") << NO_FRAME;
    QTest::newRow("too few bytes") << words << bytes("01") << NEEDS_MORE;
    QTest::newRow("byte count to come") << words << bytes("01 03") << NEEDS_MORE;
    QTest::newRow("two registers") << words << bytes("01 03 04") << 9;
    QTest::newRow("another byte count") << words << bytes("01 03 06") << NO_FRAME;
    QTest::newRow("nine coils in two bytes") << bits << bytes("01 01 02") << 7;
    QTest::newRow("nine coils in one byte") << bits << bytes("01 01 01") << NO_FRAME;
    QTest::newRow("refused") << words << bytes("01 83") << 5;
    QTest::newRow("another station") << words << bytes("02 03 04") << NO_FRAME;
    QTest::newRow("another function") << words << bytes("01 01 04") << NO_FRAME;
    QTest::newRow("a refusal of another function") << words << bytes("01 81") << NO_FRAME;
    QTest::newRow("written") << write << bytes("01 10") << 8;
}

void FrameShapeTest::answers()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, start);
    QTEST(answerLength(request, start), "length");
}

void FrameShapeTest::knownFunctions()
{
    QList<int> known;
    for (int function = 0; function < 256; ++function) {
        if (isKnownFunction(QByteArray(1, '\x01') + static_cast<char>(function)))
            known << function;
    }
    QCOMPARE(known, QList<int>({1, 2, 3, 4, 5, 6, 15, 16, 129, 130, 131, 132, 133, 134, 143, 144}));
}

QTEST_APPLESS_MAIN(FrameShapeTest)
#include "tst_frame_shape.moc"
