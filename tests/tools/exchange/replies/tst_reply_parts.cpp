#include "exchange/replies/reply_parts.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

// Station, function, address, quantity, CRC: D100:2.
const char* const READ = "01 03 00 64 00 02 85 D4";
// Station, function, byte count, two registers, CRC.
const char* const READ_REPLY = "01 03 04 04 D2 00 11 9B 36";
const char* const OTHER_STATIONS = "02 03 04 04 D2 00 11 A8 36";
// Station, function with the flag of a refusal, code, CRC.
const char* const REFUSAL = "01 83 06 C1 32";

const char* nameOf(PartKind kind)
{
    switch (kind) {
    case PartKind::Answer:
        return "answer";
    case PartKind::Damaged:
        return "damaged";
    case PartKind::Echo:
        return "echo";
    case PartKind::OtherFrame:
        return "other";
    case PartKind::Noise:
        break;
    }
    return "noise";
}

/// "echo 8, answer 9": what the parts are and how many bytes each has.
QString text(const QVector<ReplyPart>& parts)
{
    QStringList texts;
    for (const ReplyPart& part : parts)
        texts << QString("%1 %2").arg(nameOf(part.kind)).arg(part.bytes.size());
    return texts.join(", ");
}

} // namespace

class ReplyPartsTest : public QObject
{
    Q_OBJECT

private slots:
    void ofARead_data();
    void ofARead();
    void ofAWrite_data();
    void ofAWrite();
    void framesThatCameTooSoon();
    void holdTheBytesInTheirOrder();
    void withoutARequest();
    void whichAreFrames();
};

void ReplyPartsTest::ofARead_data()
{
    QTest::addColumn<QString>("reply"); // parts that follow each other
    QTest::addColumn<QString>("parts");
    const auto row = [](const char* name, std::initializer_list<const char*> came,
                        const char* parts) {
        QStringList reply;
        for (const char* const piece : came)
            reply << piece;
        QTest::newRow(name) << reply.join(' ') << QString(parts);
    };
    row("nothing", {}, "");
    row("the reply", {READ_REPLY}, "answer 9");
    row("a refusal", {REFUSAL}, "answer 5");
    row("another byte count", {"01 03 05 04 D2 00 11 A6 F6"}, "answer 9");
    row("a wrong CRC", {"01 03 04 04 D2 00 11 9B 37"}, "damaged 9");
    row("cut short", {"01 03 04 04"}, "damaged 4");
    row("without its first byte, then noise", {READ_REPLY + 3, "01 02"}, "damaged 10");
    row("another station's", {OTHER_STATIONS}, "other 9");
    row("another function's", {"01 04 04 04 D2 00 11 9A 81"}, "other 9");
    row("another length's", {"01 03 02 04 D2 3A D9"}, "other 7");
    row("the echo alone", {READ}, "echo 8");
    row("the echo, then the reply", {READ, READ_REPLY}, "echo 8, answer 9");
    row("the echo, then a refusal", {READ, REFUSAL}, "echo 8, answer 5");
    row("the echo, then a wrong CRC", {READ, "01 03 04 04 D2 00 11 9B 37"}, "echo 8, damaged 9");
    row("another station's, then the reply", {OTHER_STATIONS, READ_REPLY}, "other 9, answer 9");
    row("noise, then the reply", {"55 AA", READ_REPLY}, "noise 2, answer 9");
    row("noise that begins as the reply", {"01 03", READ_REPLY}, "noise 2, answer 9");
    row("noise, then a refusal", {"55", REFUSAL}, "noise 1, answer 5");
    row("noise, the reply, noise", {"55", READ_REPLY, "AA AA"}, "noise 1, answer 9, noise 2");
    row("the reply, then noise", {READ_REPLY, "00"}, "answer 9, noise 1");
    row("the reply twice", {READ_REPLY, READ_REPLY}, "answer 9, other 9");
    row("the reply twice, then noise", {READ_REPLY, READ_REPLY, "00"},
        "answer 9, other 9, noise 1");
}

void ReplyPartsTest::ofARead()
{
    QFETCH(QString, reply);
    ExchangeRecord record;
    record.request = bytes(READ);
    record.reply = bytes(reply.toLatin1());
    record.replyKind = ReplyKind::Good; // what the bytes are follows from them
    QTEST(text(partsOfReply(record)), "parts");
}

void ReplyPartsTest::ofAWrite_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("parts");
    // Station, function, address, value, CRC: the reply equals it.
    const QString one = "01 06 00 64 04 D2 4A 88";
    QTest::newRow("one register: the reply") << one << one << "answer 8";
    QTest::newRow("one register: the echo, then the reply")
        << one << one + " " + one << "answer 8, other 8";
    QTest::newRow("one register: cut short") << one << "01 06 00 64 04 D2"
                                             << "damaged 6";
    QTest::newRow("one register: another address") << one << "01 06 00 65 04 D2 1B 48"
                                                   << "other 8";
    const QString two = "01 10 00 64 00 02 04 04 D2 00 11 95 71";
    QTest::newRow("two registers: the reply") << two << "01 10 00 64 00 02 00 17"
                                              << "answer 8";
    QTest::newRow("two registers: the echo, then the reply")
        << two << two + " 01 10 00 64 00 02 00 17"
        << "echo 13, answer 8";
    QTest::newRow("two registers: another quantity") << two << "01 10 00 64 00 03 C1 D7"
                                                     << "other 8";
}

void ReplyPartsTest::ofAWrite()
{
    QFETCH(QString, request);
    QFETCH(QString, reply);
    ExchangeRecord record;
    record.request = bytes(request.toLatin1());
    record.reply = bytes(reply.toLatin1());
    record.replyKind = ReplyKind::Good;
    QTEST(text(partsOfReply(record)), "parts");
}

// By its bytes alone such a frame is the reply: only the runtime knew that it was another's.
void ReplyPartsTest::framesThatCameTooSoon()
{
    ExchangeRecord record;
    record.request = bytes(READ);
    record.reply = bytes("01 03 04 00 07 00 08 4A 34") + bytes(READ_REPLY);
    record.replyKind = ReplyKind::Good;
    record.foreignReplies = 1;
    QCOMPARE(text(partsOfReply(record)), QString("other 9, answer 9"));
    QCOMPARE(answerAmong(partsOfReply(record)), bytes(READ_REPLY));
    record.reply = bytes(READ_REPLY);
    record.replyKind = ReplyKind::Foreign; // nothing else came
    QCOMPARE(text(partsOfReply(record)), QString("other 9"));
    QCOMPARE(answerAmong(partsOfReply(record)), QByteArray());
}

void ReplyPartsTest::holdTheBytesInTheirOrder()
{
    ExchangeRecord record;
    record.request = bytes(READ);
    record.reply = bytes("55 AA") + bytes(READ_REPLY) + bytes("77");
    record.replyKind = ReplyKind::Bad;
    const QVector<ReplyPart> parts = partsOfReply(record);
    QCOMPARE(parts.size(), 3);
    QCOMPARE(parts.at(0).bytes, bytes("55 AA"));
    QCOMPARE(parts.at(1).bytes, bytes(READ_REPLY));
    QCOMPARE(parts.at(2).bytes, bytes("77"));
}

void ReplyPartsTest::withoutARequest()
{
    ExchangeRecord record;
    QCOMPARE(text(partsOfReply(record)), QString());
    record.reply = bytes(READ_REPLY);
    QCOMPARE(text(partsOfReply(record)), QString("noise 9"));
}

void ReplyPartsTest::whichAreFrames()
{
    const auto isFrame = [](PartKind kind) { return ReplyPart{kind, QByteArray()}.isFrame(); };
    QVERIFY(isFrame(PartKind::Answer));
    QVERIFY(isFrame(PartKind::Echo));
    QVERIFY(isFrame(PartKind::OtherFrame));
    QVERIFY(!isFrame(PartKind::Damaged));
    QVERIFY(!isFrame(PartKind::Noise));
}

QTEST_GUILESS_MAIN(ReplyPartsTest)

#include "tst_reply_parts.moc"
