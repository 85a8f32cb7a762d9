#include "exchange/reply_verdict.h"
#include "support/driver_fixture.h"

#include <QtTest/QtTest>

#include <cstring>

Q_DECLARE_METATYPE(Verdict)

namespace
{

FRAME_PRO requestOf(const QByteArray& frame, int recvLen)
{
    FRAME_PRO request = FRAME_PRO();
    std::memcpy(request.frame, frame.constData(), static_cast<size_t>(frame.size()));
    request.sendLen = static_cast<int>(frame.size());
    request.recvLen = recvLen;
    return request;
}

} // namespace

class ReplyVerdictTest : public QObject
{
    Q_OBJECT

private slots:
    void reads_data();
    void reads();
    void writes_data();
    void writes();
    void exceptionCode();
    void crc();
};

void ReplyVerdictTest::reads_data()
{
    QTest::addColumn<QByteArray>("received");
    QTest::addColumn<Verdict>("verdict");
    QTest::addColumn<int>("length");
    const QByteArray good = withCrc("01 03 04 04 D2 16 2E");
    QTest::newRow("nothing") << QByteArray() << Verdict::Incomplete << 0;
    QTest::newRow("four bytes") << good.left(4) << Verdict::Incomplete << 0;
    QTest::newRow("one byte missing") << good.left(8) << Verdict::Incomplete << 0;
    QTest::newRow("good") << good << Verdict::Good << 9;
    QTest::newRow("good and more") << good + "\x01\x02" << Verdict::Good << 9;
    QTest::newRow("other station") << withCrc("02 03 04 04 D2 16 2E") << Verdict::Foreign << 9;
    QTest::newRow("other function") << withCrc("01 01 04 04 D2 16 2E") << Verdict::Foreign << 9;
    QTest::newRow("other byte count, same length")
        << withCrc("01 03 05 04 D2 16 2E") << Verdict::Foreign << 9;
    QTest::newRow("shorter whole reply") << withCrc("01 03 02 04 D2") << Verdict::Foreign << 7;
    QTest::newRow("longer whole reply")
        << withCrc("01 03 06 04 D2 16 2E 00 00") << Verdict::Foreign << 11;
    QTest::newRow("echo of a write") << withCrc("01 06 00 64 00 05") << Verdict::Foreign << 8;
    QTest::newRow("exception") << withCrc("01 83 02") << Verdict::Exception << 5;
    QTest::newRow("exception of another station") << withCrc("02 83 02") << Verdict::Foreign << 5;
    QTest::newRow("exception of another function") << withCrc("01 81 02") << Verdict::Foreign << 5;
    QTest::newRow("exception with a wrong CRC")
        << bytes("01 83 02 00 00") << Verdict::Incomplete << 0;
    QTest::newRow("wrong CRC") << bytes("01 03 04 04 D2 16 2E 00 00") << Verdict::Bad << 9;
    QTest::newRow("noise") << bytes("FF FF FF FF FF FF FF FF FF FF") << Verdict::Bad << 9;
}

void ReplyVerdictTest::reads()
{
    QFETCH(QByteArray, received);
    QFETCH(Verdict, verdict);
    // Station 1, function 3, address 100, quantity 2: a reply of 9 bytes.
    const FRAME_PRO request = requestOf(withCrc("01 03 00 64 00 02"), 9);
    const Judgement judgement = judgeReply(request, received);
    QCOMPARE(judgement.verdict, verdict);
    QTEST(judgement.length, "length");
}

void ReplyVerdictTest::writes_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("received");
    QTest::addColumn<Verdict>("verdict");
    const QByteArray single = withCrc("01 06 00 64 00 05");
    // Two registers from 100 on: byte count 4, then the values.
    const QByteArray multiple = withCrc("01 10 00 64 00 02 04 00 01 00 02");
    QTest::newRow("echo of one register") << single << single << Verdict::Good;
    QTest::newRow("echo with another value")
        << single << withCrc("01 06 00 64 00 06") << Verdict::Foreign;
    QTest::newRow("echo with another address")
        << single << withCrc("01 06 00 65 00 05") << Verdict::Foreign;
    QTest::newRow("echo of several registers")
        << multiple << withCrc("01 10 00 64 00 02") << Verdict::Good;
    QTest::newRow("echo with another quantity")
        << multiple << withCrc("01 10 00 64 00 03") << Verdict::Foreign;
    QTest::newRow("exception") << multiple << withCrc("01 90 04") << Verdict::Exception;
}

void ReplyVerdictTest::writes()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, received);
    QFETCH(Verdict, verdict);
    QCOMPARE(judgeReply(requestOf(request, 8), received).verdict, verdict);
}

void ReplyVerdictTest::exceptionCode()
{
    QCOMPARE(exceptionCodeOf(withCrc("01 83 0B")), 11);
}

void ReplyVerdictTest::crc()
{
    // The CRC of 01 03 00 00 00 0A is 0xCDC5, low byte first.
    QVERIFY(endsWithItsCrc(bytes("01 03 00 00 00 0A C5 CD")));
    QVERIFY(!endsWithItsCrc(bytes("01 03 00 00 00 0A CD C5")));
    QVERIFY(!endsWithItsCrc(bytes("01")));
}

QTEST_GUILESS_MAIN(ReplyVerdictTest)
#include "tst_reply_verdict.moc"
