#include "panel/text/frame_text.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

using namespace kx;

class FrameTextTest : public QObject
{
    Q_OBJECT

private slots:
    // Records are in UTC, as JSON is; lines show local time.
    void initTestCase() { qputenv("TZ", "CET-1"); }
    void requests_data();
    void requests();
    void replies_data();
    void replies();
    void outcomes_data();
    void outcomes();
    void lines();
    void linesOfARepeatedRequestWithoutReply();
    void linesOfADamagedReply();
    void json();
    void jsonOfADamagedReply();

private:
    static ExchangeRecord accepted();
};

void FrameTextTest::requests_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<QString>("text");
    const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
    QTest::newRow("read") << bytes("01 03 00 00 00 0A C5 CD")
                          << text("station 01, function 03, address 00 00, quantity 00 0A, "
                                  "CRC C5 CD");
    QTest::newRow("one coil") << bytes("01 05 00 08 FF 00 0D F8")
                              << text("station 01, function 05, address 00 08, value FF 00, "
                                      "CRC 0D F8");
    QTest::newRow("one register") << bytes("01 06 00 64 04 D2 4A 88")
                                  << text("station 01, function 06, address 00 64, value 04 D2, "
                                          "CRC 4A 88");
    QTest::newRow("coils") << bytes("01 0F 07 D0 00 03 01 05 8F 31")
                           << text("station 01, function 0F, address 07 D0, quantity 00 03, "
                                   "byte count 01, data 05, CRC 8F 31");
    QTest::newRow("registers") << bytes("01 10 00 64 00 02 04 00 01 00 02 24 75")
                               << text("station 01, function 10, address 00 64, quantity 00 02, "
                                       "byte count 04, data 00 01 00 02, CRC 24 75");
    QTest::newRow("nothing") << QByteArray() << QString();
}

void FrameTextTest::requests()
{
    QFETCH(QByteArray, frame);
    QTEST(requestText(frame), "text");
}

void FrameTextTest::replies_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<QString>("text");
    const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
    // CRCs as the frames below carry them on a line.
    QTest::newRow("registers") << bytes("01 03 02 00 05 78 47")
                               << text("station 01, function 03, byte count 02, data 00 05, "
                                       "CRC 78 47");
    QTest::newRow("exception") << bytes("01 83 02 C0 F1")
                               << text("station 01, function 83, exception 02, CRC C0 F1");
    QTest::newRow("echo of one register") << bytes("01 06 00 64 00 05 08 16")
                                          << text("station 01, function 06, address 00 64, "
                                                  "value 00 05, CRC 08 16");
    QTest::newRow("echo of registers") << bytes("01 10 00 64 00 02 00 17")
                                       << text("station 01, function 10, address 00 64, "
                                               "quantity 00 02, CRC 00 17");
    QTest::newRow("wrong CRC") << bytes("01 03 02 00 05 78 48") << text("01 03 02 00 05 78 48");
    QTest::newRow("too short") << bytes("01 03") << text("01 03");
}

void FrameTextTest::replies()
{
    QFETCH(QByteArray, frame);
    QTEST(replyText(frame), "text");
}

void FrameTextTest::outcomes_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("exceptionCode");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, ReplyKind kind, int code, int result, const char* text) {
        QTest::newRow(name) << int(kind) << code << result << QString::fromLatin1(text);
    };
    row("good", ReplyKind::Good, 0, 1, "good, accepted");
    row("no reply", ReplyKind::None, 0, 8, "no reply, repeated");
    row("short", ReplyKind::Short, 0, 8, "short reply, repeated");
    row("bad", ReplyKind::Bad, 0, 2, "bad reply, failed");
    row("exception 1", ReplyKind::Exception, 1, 8, "exception 1 (illegal function), repeated");
    row("exception 2", ReplyKind::Exception, 2, 8, "exception 2 (illegal data address), repeated");
    row("exception 3", ReplyKind::Exception, 3, 8, "exception 3 (illegal data value), repeated");
    row("exception 4", ReplyKind::Exception, 4, 8, "exception 4 (device failure), repeated");
    row("exception 5", ReplyKind::Exception, 5, 8, "exception 5 (still at work), repeated");
    row("exception 6", ReplyKind::Exception, 6, 2, "exception 6 (busy), failed");
    row("exception 10", ReplyKind::Exception, 10, 8,
        "exception 10 (gateway has no path), repeated");
    row("exception 11", ReplyKind::Exception, 11, 8,
        "exception 11 (no answer to the gateway), repeated");
    row("exception 200", ReplyKind::Exception, 200, 8, "exception 200 (other reason), repeated");
    row("foreign", ReplyKind::Foreign, 0, 2, "reply of another request, failed");
    row("wrong byte count", ReplyKind::WrongByteCount, 0, 8, "wrong byte count, repeated");
    row("lost", ReplyKind::Lost, 0, 8, "line lost, repeated");
    row("broadcast", ReplyKind::Broadcast, 0, 2, "broadcast, failed");
    row("not sent", ReplyKind::NotSent, 0, 2, "not whole, so not sent, failed");
    row("never silent", ReplyKind::NeverSilent, 0, 8, "the line is never silent, repeated");
    row("ignored", ReplyKind::Good, 0, 0, "good, ignored");
}

void FrameTextTest::outcomes()
{
    QFETCH(int, kind);
    QFETCH(int, exceptionCode);
    QFETCH(int, result);
    ExchangeRecord record;
    record.replyKind = static_cast<ReplyKind>(kind);
    record.exceptionCode = exceptionCode;
    record.result = result;
    QTEST(outcomeText(record), "text");
}

ExchangeRecord FrameTextTest::accepted()
{
    ExchangeRecord record;
    record.request = bytes("01 03 00 64 00 01 C5 D5");
    record.reply = bytes("01 03 02 00 05 78 47");
    record.replyKind = ReplyKind::Good;
    record.result = 1;
    record.sentAt = QDateTime(QDate(2024, 5, 17), QTime(10, 11, 12, 13), Qt::UTC);
    record.finishedAt = QDateTime(QDate(2024, 5, 17), QTime(10, 11, 12, 45), Qt::UTC);
    return record;
}

void FrameTextTest::lines()
{
    QCOMPARE(exchangeRows(accepted()),
             QStringList({
                 QString::fromLatin1("11:11:12.013 request station 01, function 03, address 00 64, "
                                     "quantity 00 01, CRC C5 D5"),
                 QString::fromLatin1("11:11:12.045 reply   station 01, function 03, byte count 02, "
                                     "data 00 05, CRC 78 47: good, accepted"),
             }));
}

void FrameTextTest::linesOfARepeatedRequestWithoutReply()
{
    ExchangeRecord record = accepted();
    record.reply.clear();
    record.replyKind = ReplyKind::None;
    record.result = 2;
    record.repeated = true;
    record.errorText = QString::fromLatin1("0,1,100,D");
    QCOMPARE(exchangeRows(record),
             QStringList({
                 QString::fromLatin1("11:11:12.013 request station 01, function 03, address 00 64, "
                                     "quantity 00 01, CRC C5 D5 (again)"),
                 QString::fromLatin1("11:11:12.045 reply   no reply, failed: 0,1,100,D"),
             }));
}

void FrameTextTest::linesOfADamagedReply()
{
    ExchangeRecord record = accepted();
    record.reply = bytes("01 03 02 00 05 78 48"); // the last byte of its CRC is another
    record.replyKind = ReplyKind::Bad;
    record.result = 8;
    QCOMPARE(exchangeRows(record).last(),
             QString::fromLatin1("11:11:12.045 reply   01 03 02 00 05 78 48: CRC 78 48 instead of "
                                 "78 47: bad reply, repeated"));
}

void FrameTextTest::json()
{
    const QJsonObject json = exchangeJson(accepted());
    const auto text = [&](const char* name) { return json[QLatin1String(name)].toString(); };
    QCOMPARE(text("event"), QString::fromLatin1("exchange"));
    QCOMPARE(text("sent"), QString::fromLatin1("2024-05-17T10:11:12.013Z"));
    QCOMPARE(text("finished"), QString::fromLatin1("2024-05-17T10:11:12.045Z"));
    QCOMPARE(text("request"), QString::fromLatin1("01 03 00 64 00 01 C5 D5"));
    QCOMPARE(text("reply"), QString::fromLatin1("01 03 02 00 05 78 47"));
    QCOMPARE(text("outcome"), QString::fromLatin1("good"));
    QCOMPARE(text("result"), QString::fromLatin1("accepted"));
    QCOMPARE(json[QLatin1String("replyFaults")], QJsonValue(QString::fromLatin1("")));
    QCOMPARE(json[QLatin1String("repeated")].toBool(true), false);
    QVERIFY(text("requestFields").startsWith(QLatin1String("station 01, function 03, address")));
    QVERIFY(text("replyFields").startsWith(QLatin1String("station 01, function 03, byte count")));
}

void FrameTextTest::jsonOfADamagedReply()
{
    ExchangeRecord record = accepted();
    record.reply = bytes("01 03 02");
    record.replyKind = ReplyKind::Short;
    QCOMPARE(exchangeJson(record)[QLatin1String("replyFaults")],
             QJsonValue(QString::fromLatin1("cut short: 3 of 7 bytes")));
}

QTEST_GUILESS_MAIN(FrameTextTest)
#include "tst_frame_text.moc"
