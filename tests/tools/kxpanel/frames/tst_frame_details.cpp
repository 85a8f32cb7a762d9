#include "kxpanel/frames/frame_details.h"

#include "../sample_exchanges.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

using namespace kxpanel;

class FrameDetailsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TZ", "CET-1"); }
    void answered();
    void withoutReply();
    void longFrames();
};

void FrameDetailsTest::answered()
{
    QCOMPARE(detailsText(answeredPoll()), QString("Station 1: read D100:2\n"
                                                  "good, accepted\n"
                                                  "The reply began 5.0 ms after the request.\n"
                                                  "\n"
                                                  "Request, sent 11:00:00.000, 8 byte(s)\n"
                                                  "  station 01\n"
                                                  "  function 03\n"
                                                  "  address 00 64\n"
                                                  "  quantity 00 02\n"
                                                  "  CRC 85 D4\n"
                                                  "  0000  01 03 00 64 00 02 85 D4\n"
                                                  "\n"
                                                  "Reply, over at 11:00:00.030, 9 byte(s)\n"
                                                  "  station 01\n"
                                                  "  function 03\n"
                                                  "  byte count 04\n"
                                                  "  data 04 D2 00 11\n"
                                                  "  CRC 9B 36\n"
                                                  "  0000  01 03 04 04 D2 00 11 9B 36"));
}

void FrameDetailsTest::withoutReply()
{
    const QString text = detailsText(unansweredPoll());
    QVERIFY(text.startsWith("Station 1: read D100:2\nno reply, repeated\n\nRequest"));
    QVERIFY(text.endsWith("\nNo reply until 11:00:00.300"));
    Exchange notSent;
    notSent.reason = QString("not whole, so not sent");
    QVERIFY(detailsText(notSent).startsWith("not whole, so not sent\n"));
}

void FrameDetailsTest::longFrames()
{
    Exchange exchange = answeredPoll();
    exchange.reply = QByteArray(18, 'A'); // of no frame, so without names
    QVERIFY(detailsText(exchange).endsWith(
        "18 byte(s)\n  0000  41 41 41 41 41 41 41 41 41 41 41 41 41 41 41 41\n  0016  41 41"));
}

QTEST_GUILESS_MAIN(FrameDetailsTest)

#include "tst_frame_details.moc"
