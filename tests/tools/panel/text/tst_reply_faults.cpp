#include "panel/text/reply_faults.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

// Station, function, address, quantity, CRC: D100:2.
const char* const READ = "01 03 00 64 00 02 85 D4";
// Station, function, byte count, two registers, CRC.
const char* const GOOD = "01 03 04 04 D2 00 11 9B 36";
// Station, function, address, value, CRC.
const char* const WRITE = "01 06 00 64 04 D2 4A 88";
// Station, function, address, quantity, byte count, two registers, CRC.
const char* const LONG_WRITE = "01 10 00 64 00 02 04 04 D2 00 11 95 71";

} // namespace

class ReplyFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void inWords_data();
    void inWords();
    void ofAFrameThatCameTooSoon();
};

void ReplyFaultsTest::inWords_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("faults");
    const QString good = GOOD;
    const auto row = [](const char* name, const char* request, const QString& reply,
                        const char* faults) {
        QTest::newRow(name) << QString(request) << reply << QString(faults);
    };
    row("nothing came", READ, "", "");
    row("good", READ, good, "");
    row("refused", READ, "01 83 06 C1 32", "");
    row("a wrong CRC", READ, "01 03 04 04 D2 00 11 9B 37", "CRC 9B 37 instead of 9B 36");
    row("a value damaged", READ, "01 03 04 04 D3 00 11 9B 36", "CRC 9B 36 instead of CA F6");
    row("the station damaged", READ, "05 03 04 04 D2 00 11 9B 36",
        "station 05 instead of 01, CRC 9B 36 instead of DE F6");
    row("the function damaged", READ, "01 13 04 04 D2 00 11 9B 36",
        "function 13 instead of 03, CRC 9B 36 instead of 99 A6");
    row("the byte count damaged", READ, "01 03 05 04 D2 00 11 9B 36",
        "byte count 05 instead of 04, CRC 9B 36 instead of A6 F6");
    row("the byte count wrong, the CRC right", READ, "01 03 05 04 D2 00 11 A6 F6",
        "byte count 05 instead of 04");
    row("one byte of it", READ, "01", "cut short: 1 of 9 bytes");
    row("cut short", READ, "01 03 04 04", "cut short: 4 of 9 bytes");
    row("but for its last byte", READ, good.left(23), "cut short: 8 of 9 bytes");
    row("too long", READ, "01 03 04 04 D2 00 11 9B 37 00 00",
        "CRC 9B 37 instead of 9B 36, 11 bytes instead of 9");
    row("a damaged refusal", READ, "01 83 02 C0 F2", "CRC C0 F2 instead of C0 F1");
    row("a refusal cut short", READ, "01 83 02", "cut short: 3 of 5 bytes");
    row("another station's", READ, "02 03 04 04 D2 00 11 A8 36", "reply of station 2");
    row("another function's", READ, "01 04 04 04 D2 00 11 9A 81", "reply to function 4");
    row("of another length", READ, "01 03 02 04 D2 3A D9", "reply of another request");
    row("noise alone", READ, "55 AA", "bytes in no frame (55 AA)");
    row("much noise", READ, "11 22 33 44 55 66 77 88 99",
        "bytes in no frame (11 22 33 44 55 66 77 88 ...)");
    row("noise before", READ, "55 AA " + good, "bytes in no frame (55 AA), then the reply");
    row("noise behind", READ, good + " 00", "the reply, then bytes in no frame (00)");
    row("the echo alone", READ, READ, "echo of the request");
    row("the echo, then the reply", READ, QString(READ) + " " + good,
        "echo of the request, then the reply");
    row("the echo, then cut short", READ, QString(READ) + " 01 03 04",
        "echo of the request, then cut short: 3 of 9 bytes");
    row("the reply twice", READ, good + " " + good, "the reply, then the reply once more");
    row("the reply, then another's", READ, good + " 01 83 06 C1 32",
        "the reply, then reply of another request");
    row("another station's, then the reply", READ, "02 03 04 04 D2 00 11 A8 36 " + good,
        "reply of station 2, then the reply");
    row("a write confirmed", WRITE, WRITE, "");
    row("a write's address damaged", WRITE, "01 06 00 65 04 D2 4A 88",
        "address 00 65 instead of 00 64, CRC 4A 88 instead of 1B 48");
    row("a write's value damaged", WRITE, "01 06 00 64 05 D2 4A 88",
        "value 05 D2 instead of 04 D2, CRC 4A 88 instead of 4B 18");
    row("a long write confirmed", LONG_WRITE, "01 10 00 64 00 02 00 17", "");
    row("a long write's quantity damaged", LONG_WRITE, "01 10 00 64 00 03 00 17",
        "quantity 00 03 instead of 00 02, CRC 00 17 instead of C1 D7");
    row("a frame of Modbus TCP", READ, "00 01 00 00 00 07 01 03 04 04 D2 00 11", "");
    row("to a function of no known length", "01 2B 0E 01 00 70 77", "01 2B 0E",
        "bytes in no frame (01 2B 0E)");
}

void ReplyFaultsTest::inWords()
{
    QFETCH(QString, request);
    QFETCH(QString, reply);
    ExchangeRecord record;
    record.request = bytes(request.toLatin1());
    record.reply = bytes(reply.toLatin1());
    record.replyKind = ReplyKind::Good; // what the bytes are follows from them
    QTEST(replyFaults(record, forPrograms), "faults");
}

void ReplyFaultsTest::ofAFrameThatCameTooSoon()
{
    ExchangeRecord record;
    record.request = bytes(READ);
    record.reply = bytes(GOOD);
    record.replyKind = ReplyKind::Foreign;
    record.foreignReplies = 1;
    QCOMPARE(replyFaults(record, forPrograms), QString("reply of another request"));
}

QTEST_GUILESS_MAIN(ReplyFaultsTest)

#include "tst_reply_faults.moc"
