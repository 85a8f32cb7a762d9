#include "exchange/failure.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kx;

class FailureTest : public QObject
{
    Q_OBJECT

private slots:
    void reasons_data();
    void reasons();
    void aReplyOfModbusTcpIsKnown_data();
    void aReplyOfModbusTcpIsKnown();
    void namesTheRequest_data();
    void namesTheRequest();
    void anAcceptedReplyIsNone();
    void aGoodReplyThatWasNotTaken();
    void withoutAddresses();
    void travelsAsAValue();
};

void FailureTest::reasons_data()
{
    QTest::addColumn<ReplyKind>("came");
    QTest::addColumn<int>("exceptionCode");
    QTest::addColumn<FailureKind>("kind");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, ReplyKind came, int exceptionCode, FailureKind kind,
                        const char* text) {
        QTest::newRow(name) << came << exceptionCode << kind << QString::fromLatin1(text);
    };
    row("nothing", ReplyKind::None, 0, FailureKind::NoReply, "no reply");
    row("too little", ReplyKind::Short, 0, FailureKind::ShortReply, "short reply");
    row("no frame", ReplyKind::Bad, 0, FailureKind::BadReply, "bad reply");
    row("exception 1", ReplyKind::Exception, 1, FailureKind::Exception,
        "exception 1 (illegal function)");
    row("exception 2", ReplyKind::Exception, 2, FailureKind::Exception,
        "exception 2 (illegal data address)");
    row("exception 3", ReplyKind::Exception, 3, FailureKind::Exception,
        "exception 3 (illegal data value)");
    row("exception 4", ReplyKind::Exception, 4, FailureKind::Exception,
        "exception 4 (device failure)");
    row("exception 5", ReplyKind::Exception, 5, FailureKind::Exception,
        "exception 5 (still at work)");
    row("exception 6", ReplyKind::Exception, 6, FailureKind::Exception, "exception 6 (busy)");
    row("exception 10", ReplyKind::Exception, 10, FailureKind::Exception,
        "exception 10 (gateway has no path)");
    row("exception 11", ReplyKind::Exception, 11, FailureKind::Exception,
        "exception 11 (no answer to the gateway)");
    row("exception 200", ReplyKind::Exception, 200, FailureKind::Exception,
        "exception 200 (other reason)");
    row("wrong byte count", ReplyKind::WrongByteCount, 0, FailureKind::WrongByteCount,
        "wrong byte count");
    row("another's reply", ReplyKind::Foreign, 0, FailureKind::ForeignReply,
        "reply of another request");
    row("the line was lost", ReplyKind::Lost, 0, FailureKind::LineLost, "line lost");
    row("nobody answers a broadcast", ReplyKind::Broadcast, 0, FailureKind::Broadcast, "broadcast");
    row("not whole", ReplyKind::NotSent, 0, FailureKind::NotWhole, "not whole, so not sent");
    row("never silent", ReplyKind::NeverSilent, 0, FailureKind::NeverSilent,
        "the line is never silent");
}

void FailureTest::reasons()
{
    QFETCH(ReplyKind, came);
    QFETCH(int, exceptionCode);
    QFETCH(FailureKind, kind);
    QFETCH(QString, text);
    for (const int result : {8, 2}) { // repeated, failed
        ExchangeRecord record;
        record.replyKind = came;
        record.exceptionCode = exceptionCode;
        record.result = result;
        const Failure failure = failureOf(record);
        QVERIFY(failure.kind == kind);
        QVERIFY(!failure.isNone());
        QCOMPARE(failure.exceptionCode, exceptionCode);
        QCOMPARE(failure.text, text);
    }
    QCOMPARE(reasonText(came, exceptionCode), text);
}

void FailureTest::aReplyOfModbusTcpIsKnown_data()
{
    QTest::addColumn<ReplyKind>("came");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("text");
    // The request's first bytes for a transaction, protocol 0, 3 bytes follow, a refusal.
    const QByteArray mbap = QByteArray::fromHex("0103 0000 0003 84 8A 01");
    QTest::newRow("as long as expected")
        << ReplyKind::Bad << mbap << QStringLiteral("bad reply, a frame of Modbus TCP");
    QTest::newRow("shorter") << ReplyKind::Short << mbap
                             << QStringLiteral("short reply, a frame of Modbus TCP");
    QTest::newRow("other bytes") << ReplyKind::Bad << QByteArray::fromHex("0103 0000 0003 84 8A")
                                 << QStringLiteral("bad reply");
    QTest::newRow("the bytes of a frame")
        << ReplyKind::Foreign << mbap << QStringLiteral("reply of another request");
}

void FailureTest::aReplyOfModbusTcpIsKnown()
{
    QFETCH(ReplyKind, came);
    QFETCH(QByteArray, reply);
    ExchangeRecord record;
    record.replyKind = came;
    record.reply = reply;
    record.result = 2;
    QTEST(failureOf(record).text, "text");
    QTEST(reasonText(record), "text");
}

void FailureTest::namesTheRequest_data()
{
    QTest::addColumn<QString>("regType");
    QTest::addColumn<int>("count"); // of the job
    QTest::addColumn<int>("values");
    QTest::newRow("words") << QStringLiteral("D") << 5 << 5;
    QTest::newRow("bits") << QStringLiteral("X") << 16 << 16;
    QTest::newRow("double words, two registers each") << QStringLiteral("32CV") << 6 << 3;
}

void FailureTest::namesTheRequest()
{
    QFETCH(QString, regType);
    QFETCH(int, count);
    QFETCH(int, values);
    ExchangeRecord record;
    record.result = 2;
    record.job.station = 7;
    record.job.regType = regType;
    record.job.address = 200;
    record.job.count = count;
    const Failure failure = failureOf(record);
    QCOMPARE(failure.station, 7);
    QCOMPARE(failure.range.station, 7);
    QCOMPARE(QString::fromLatin1(failure.range.type->name), regType);
    QCOMPARE(failure.range.address, 200);
    QCOMPARE(failure.range.values, values);
}

void FailureTest::anAcceptedReplyIsNone()
{
    ExchangeRecord record;
    record.replyKind = ReplyKind::Good;
    record.result = 1;
    record.job.station = 7;
    const Failure failure = failureOf(record);
    QVERIFY(failure.isNone());
    QVERIFY(failure.kind == FailureKind::None);
    QCOMPARE(failure.station, 0);
    QVERIFY(!failure.range.type);
    QCOMPARE(failure.text, QString());
}

void FailureTest::aGoodReplyThatWasNotTaken()
{
    ExchangeRecord record;
    record.replyKind = ReplyKind::Good;
    record.result = 0;
    QVERIFY(failureOf(record).kind == FailureKind::NotTaken);
    QCOMPARE(failureOf(record).text, QStringLiteral("the driver did not take the reply"));
    QCOMPARE(reasonText(ReplyKind::Good, 0), QStringLiteral("good"));
}

void FailureTest::withoutAddresses()
{
    const Failure failure = failureOf(FailureKind::Aborted, QStringLiteral("interrupted"));
    QVERIFY(failure.kind == FailureKind::Aborted);
    QCOMPARE(failure.text, QStringLiteral("interrupted"));
    QCOMPARE(failure.station, 0);
    QVERIFY(!failure.range.type);
}

void FailureTest::travelsAsAValue()
{
    const QVariant carried =
        QVariant::fromValue(failureOf(FailureKind::CannotOpen, QStringLiteral("not there")));
    QVERIFY(carried.value<Failure>().kind == FailureKind::CannotOpen);
    QCOMPARE(carried.value<Failure>().text, QStringLiteral("not there"));
}

QTEST_GUILESS_MAIN(FailureTest)
#include "tst_failure.moc"
