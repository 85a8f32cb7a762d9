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
    void namesFieldsOfEachFunction_data();
    void namesFieldsOfEachFunction();
    void bytesBeforeTheReply();
    void bytesBehindTheReply();
    void theEchoBeforeTheReply();
    void framesInsteadOfTheReply();
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
    exchange.reply = QByteArray(18, 'A'); // in no frame, so without names
    QVERIFY(detailsText(exchange).endsWith(
        "18 byte(s)\n  bytes in no frame (41 41 41 41 41 41 41 41 ...)\n  0000  41 41 41 41 41 41 "
        "41 41 41 41 41 41 41 41 41 41\n  0016  41 41"));
}

void FrameDetailsTest::namesFieldsOfEachFunction_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("requestFields");
    QTest::addColumn<QString>("replyFields");
    QTest::newRow("coils read") << "01 01 07 D0 00 0A BC 80"
                                << "01 01 02 0D 03 FD 6D"
                                << "station 01|function 01|address 07 D0|quantity 00 0A|CRC BC 80"
                                << "station 01|function 01|byte count 02|data 0D 03|CRC FD 6D";
    QTest::newRow("one coil written")
        << "01 05 07 D0 FF 00 8C B7"
        << "01 05 07 D0 FF 00 8C B7"
        << "station 01|function 05|address 07 D0|value FF 00|CRC 8C B7"
        << "station 01|function 05|address 07 D0|value FF 00|CRC 8C B7";
    QTest::newRow("one register written")
        << "01 06 00 64 04 D2 4A 88"
        << "01 06 00 64 04 D2 4A 88"
        << "station 01|function 06|address 00 64|value 04 D2|CRC 4A 88"
        << "station 01|function 06|address 00 64|value 04 D2|CRC 4A 88";
    QTest::newRow("coils written")
        << "01 0F 07 D0 00 0A 02 0D 03 C4 F9"
        << "01 0F 07 D0 00 0A D5 41"
        << "station 01|function 0F|address 07 D0|quantity 00 0A|byte count 02|data 0D 03|CRC C4 F9"
        << "station 01|function 0F|address 07 D0|quantity 00 0A|CRC D5 41";
    QTest::newRow("registers written")
        << "01 10 00 64 00 02 04 04 D2 00 11 95 71"
        << "01 10 00 64 00 02 00 17"
        << "station 01|function 10|address 00 64|quantity 00 02|byte count 04|data 04 D2 00 11|CRC "
           "95 71"
        << "station 01|function 10|address 00 64|quantity 00 02|CRC 00 17";
    QTest::newRow("refused") << "01 03 00 64 00 02 85 D4"
                             << "01 83 02 C0 F1"
                             << "station 01|function 03|address 00 64|quantity 00 02|CRC 85 D4"
                             << "station 01|function 83|exception 02|CRC C0 F1";
    QTest::newRow("cut short") << "01 03 00 64 00 02 85 D4"
                               << "01 03 04 04"
                               << "station 01|function 03|address 00 64|quantity 00 02|CRC 85 D4"
                               << "cut short: 4 of 9 bytes";
    QTest::newRow("a wrong CRC") << "01 03 00 64 00 02 85 D4"
                                 << "01 03 04 04 D2 00 11 9B 37"
                                 << "station 01|function 03|address 00 64|quantity 00 02|CRC 85 D4"
                                 << "CRC 9B 37 instead of 9B 36";
    QTest::newRow("a damaged station")
        << "01 03 00 64 00 02 85 D4"
        << "05 03 04 04 D2 00 11 9B 36"
        << "station 01|function 03|address 00 64|quantity 00 02|CRC 85 D4"
        << "station 05 instead of 01|CRC 9B 36 instead of DE F6";
    QTest::newRow("a wrong byte count")
        << "01 03 00 64 00 02 85 D4"
        << "01 03 05 04 D2 00 11 A6 F6"
        << "station 01|function 03|address 00 64|quantity 00 02|CRC 85 D4"
        << "byte count 05 instead of 04|station 01|function 03|byte count 05|data 04 D2 00 11|CRC "
           "A6 F6";
}

void FrameDetailsTest::namesFieldsOfEachFunction()
{
    QFETCH(QString, request);
    QFETCH(QString, reply);
    Exchange exchange = answeredPoll();
    exchange.request = bytes(request.toLatin1());
    exchange.reply = bytes(reply.toLatin1());
    const QStringList rows = detailsText(exchange).split('\n');
    const auto fieldsBehind = [&rows](const char* heading) {
        QStringList fields;
        int row = 0;
        while (!rows.at(row).startsWith(QLatin1String(heading)))
            ++row;
        while (!rows.at(++row).startsWith("  0000  "))
            fields << rows.at(row).trimmed();
        return fields.join('|');
    };
    QTEST(fieldsBehind("Request, sent"), "requestFields");
    QTEST(fieldsBehind("Reply, over"), "replyFields");
    QVERIFY(rows.contains("  0000  " + request));
    QCOMPARE(rows.last(), "  0000  " + reply);
}

void FrameDetailsTest::bytesBeforeTheReply()
{
    Exchange exchange = answeredPoll();
    exchange.reply.prepend(bytes("01 03 04 00 07")); // of an earlier reply
    QVERIFY2(detailsText(exchange).endsWith(
                 "\n"
                 "Reply, over at 11:00:00.030, 9 byte(s)\n"
                 "  station 01\n"
                 "  function 03\n"
                 "  byte count 04\n"
                 "  data 04 D2 00 11\n"
                 "  CRC 9B 36\n"
                 "  0000  01 03 04 04 D2 00 11 9B 36\n"
                 "\n"
                 "Before it came 5 byte(s): bytes in no frame (01 03 04 00 07)\n"
                 "  0000  01 03 04 00 07"),
             qPrintable(detailsText(exchange)));
}

void FrameDetailsTest::bytesBehindTheReply()
{
    Exchange exchange = answeredPoll();
    exchange.reply += exchange.reply + bytes("AA");
    QVERIFY2(detailsText(exchange).endsWith("\n"
                                            "Reply, over at 11:00:00.030, 9 byte(s)\n"
                                            "  station 01\n"
                                            "  function 03\n"
                                            "  byte count 04\n"
                                            "  data 04 D2 00 11\n"
                                            "  CRC 9B 36\n"
                                            "  0000  01 03 04 04 D2 00 11 9B 36\n"
                                            "\n"
                                            "Behind it came 9 byte(s): the reply once more\n"
                                            "  station 01\n"
                                            "  function 03\n"
                                            "  byte count 04\n"
                                            "  data 04 D2 00 11\n"
                                            "  CRC 9B 36\n"
                                            "  0000  01 03 04 04 D2 00 11 9B 36\n"
                                            "\n"
                                            "Behind it came 1 byte(s): bytes in no frame (AA)\n"
                                            "  0000  AA"),
             qPrintable(detailsText(exchange)));
}

// An echo has the fields of a request.
void FrameDetailsTest::theEchoBeforeTheReply()
{
    Exchange exchange = answeredPoll();
    exchange.reply.prepend(exchange.request);
    QVERIFY2(detailsText(exchange).endsWith("  0000  01 03 04 04 D2 00 11 9B 36\n"
                                            "\n"
                                            "Before it came 8 byte(s): echo of the request\n"
                                            "  station 01\n"
                                            "  function 03\n"
                                            "  address 00 64\n"
                                            "  quantity 00 02\n"
                                            "  CRC 85 D4\n"
                                            "  0000  01 03 00 64 00 02 85 D4"),
             qPrintable(detailsText(exchange)));
}

void FrameDetailsTest::framesInsteadOfTheReply()
{
    Exchange exchange = unansweredPoll();
    exchange.reply = bytes("02 03 04 04 D2 00 11 A8 36");
    exchange.replyKind = kx::ReplyKind::Foreign;
    exchange.foreignReplies = 1;
    QVERIFY2(detailsText(exchange).endsWith("\n"
                                            "No reply until 11:00:00.300\n"
                                            "\n"
                                            "Instead came 9 byte(s): reply of station 2\n"
                                            "  station 02\n"
                                            "  function 03\n"
                                            "  byte count 04\n"
                                            "  data 04 D2 00 11\n"
                                            "  CRC A8 36\n"
                                            "  0000  02 03 04 04 D2 00 11 A8 36"),
             qPrintable(detailsText(exchange)));
}

QTEST_GUILESS_MAIN(FrameDetailsTest)

#include "tst_frame_details.moc"
