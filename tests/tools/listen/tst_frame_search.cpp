#include "listen/frame_search.h"

#include "listen/frame_shape.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

using namespace kx;

class FrameSearchTest : public QObject
{
    Q_OBJECT

private slots:
    void frames_data();
    void frames();
};

void FrameSearchTest::frames_data()
{
    QTest::addColumn<QByteArray>("heard");
    QTest::addColumn<QByteArray>("open");
    QTest::addColumn<int>("block");
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("needsMore");
    const QByteArray none;
    const QByteArray request = withCrc("01 03 00 64 00 02"); // two registers from D100
    const QByteArray reply = withCrc("01 03 04 04 D2 00 11");
    QTest::newRow("a request") << request << none << 0 << 8 << false;
    QTest::newRow("a request with a byte of the next frame")
        << request + '\1' << none << 0 << 8 << false;
    QTest::newRow("half a request") << request.left(5) << none << 0 << 0 << true;
    QTest::newRow("a reply without its request") << reply << none << 0 << 9 << false;
    QTest::newRow("a reply to the open request") << reply << request << 0 << 9 << false;
    QTest::newRow("a confirmed write without its request, where a long write may begin")
        << withCrc("01 10 00 64 00 02") << none << 0 << 8 << false;
    QTest::newRow("a wrong CRC") << request.left(7) + '\0' + reply << none << 0 << 0 << false;
    QTest::newRow("noise") << bytes("FF 00 13 77 00 00 00 00") << none << 0 << 0 << false;
    // A reply of 64 registers whose first eight bytes are a request with its CRC, too: address
    // 0x8000, quantity 0.
    const QByteArray twofold = withCrc("01 03 80 00 00 00");
    QTest::newRow("eight bytes of a reply that look like a request")
        << twofold << withCrc("01 03 00 00 00 40") << 0 << 0 << true;
    QTest::newRow("the same where no reply is awaited") << twofold << none << 0 << 8 << false;
    QTest::newRow("a new request after one that was not answered")
        << withCrc("01 03 00 C8 00 01") << request << 0 << 8 << false;
    QTest::newRow("a request to another station")
        << withCrc("02 03 00 C8 00 01") << request << 0 << 8 << false;
    const QByteArray foreign = withCrc("01 2B 0E 01 00"); // read device identification
    QTest::newRow("another function between two pauses") << foreign << none << 7 << 7 << false;
    QTest::newRow("another function, more may come") << foreign << none << NEEDS_MORE << 0 << true;
    QTest::newRow("another function without a pause before") << foreign << none << 0 << 0 << false;
    QTest::newRow("another function, damaged") << foreign.left(6) + '\0' << none << 7 << 0 << false;
    QTest::newRow("a wrong CRC behind a pause")
        << withCrc("01 03 00 64 00 02").replace(2, 1, "\x01") << none << NEEDS_MORE << 0 << false;
}

void FrameSearchTest::frames()
{
    QFETCH(QByteArray, heard);
    QFETCH(QByteArray, open);
    QFETCH(int, block);
    const FrameSearch found = frameAt(heard, open, block);
    QTEST(found.length, "length");
    QTEST(found.needsMore, "needsMore");
}

QTEST_APPLESS_MAIN(FrameSearchTest)
#include "tst_frame_search.moc"
