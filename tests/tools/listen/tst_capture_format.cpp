#include "listen/capture_format.h"

#include "support/driver_fixture.h"

#include <QtTest/QTest>

using namespace kx;

class CaptureFormatTest : public QObject
{
    Q_OBJECT

private slots:
    void header();
    void packets_data();
    void packets();
};

void CaptureFormatTest::header()
{
    QCOMPARE(captureHeader(), bytes("D4 C3 B2 A1"    // little-endian, times in microseconds
                                    "02 00 04 00"    // version 2.4
                                    "00 00 00 00"    // time zone
                                    "00 00 00 00"    // accuracy
                                    "FF FF 00 00"    // longest packet
                                    "FC 00 00 00")); // link type 252
}

void CaptureFormatTest::packets_data()
{
    QTest::addColumn<bool>("isFrame");
    QTest::addColumn<bool>("isRequest");
    QTest::addColumn<QByteArray>("held");
    QTest::addColumn<QByteArray>("packet");
    const QByteArray time = bytes("00 F1 53 65 40 E2 01 00"); // 1700000000 s, 123456 us
    const QByteArray protocol = bytes("00 0C 00 08 6D 62 72 74 75 00 00 00"); // "mbrtu"
    const QByteArray ports = bytes("00 18 00 04 00 00 00 02");                // of TCP
    const QByteArray end = bytes("00 00 00 00");
    const QByteArray request = bytes("01 03 00 64 00 02 85 D4");
    QTest::newRow("a request, to port 502")
        << true << true << request
        << time + bytes("30 00 00 00 30 00 00 00")                   // 48 bytes, all of them
               + protocol + ports + bytes("00 19 00 04 00 00 C3 50") // from port 50000
               + bytes("00 1A 00 04 00 00 01 F6") + end + request;
    const QByteArray refusal = withCrc("01 83 02");
    QTest::newRow("a reply, from port 502")
        << true << false << refusal
        << time + bytes("2D 00 00 00 2D 00 00 00") + protocol + ports
               + bytes("00 19 00 04 00 00 01 F6") + bytes("00 1A 00 04 00 00 C3 50") + end
               + refusal;
    QTest::newRow("bytes in no frame")
        << false << false << bytes("FF 01")
        << time + bytes("0E 00 00 00 0E 00 00 00")                        // 14 bytes
               + bytes("00 0C 00 04 64 61 74 61") + end + bytes("FF 01"); // "data"
}

void CaptureFormatTest::packets()
{
    QFETCH(bool, isFrame);
    QFETCH(bool, isRequest);
    QFETCH(QByteArray, held);
    HeardPiece piece;
    piece.bytes = held;
    piece.isFrame = isFrame;
    piece.isRequest = isRequest;
    QTEST(capturePacket(piece, 1700000000123456), "packet");
}

QTEST_APPLESS_MAIN(CaptureFormatTest)
#include "tst_capture_format.moc"
