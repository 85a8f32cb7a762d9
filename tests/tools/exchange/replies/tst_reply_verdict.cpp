#include "exchange/replies/reply_verdict.h"
#include "tools/exchange/replies/request_frames.h"

#include <QtTest/QTest>

using namespace kx;

Q_DECLARE_METATYPE(Verdict)

class ReplyVerdictTest : public QObject
{
    Q_OBJECT

private slots:
    void reads_data();
    void reads();
    void writes_data();
    void writes();
    void echoesAsLongAsTheReply();
    void framesAtTheBeginning_data();
    void framesAtTheBeginning();
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
        << withCrc("01 03 05 04 D2 16 2E") << Verdict::WrongByteCount << 9;
    QTest::newRow("a byte count of 0")
        << withCrc("01 03 00 04 D2 16 2E") << Verdict::WrongByteCount << 9;
    QTest::newRow("other station and byte count")
        << withCrc("02 03 05 04 D2 16 2E") << Verdict::Foreign << 9;
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
    const QByteArray request = withCrc("01 03 00 64 00 02");
    QTest::newRow("the request itself") << request << Verdict::Echo << 8;
    QTest::newRow("the request and the reply") << request + good << Verdict::Echo << 8;
    QTest::newRow("the request's beginning") << request.left(7) << Verdict::Incomplete << 0;
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
    // The reply to one register is its request; only of several is the echo told apart.
    QTest::newRow("the request of several itself") << multiple << multiple << Verdict::Echo;
    QTest::newRow("more of it than a reply has")
        << multiple << multiple.left(10) << Verdict::Incomplete;
    QTest::newRow("exception") << multiple << withCrc("01 90 04") << Verdict::Exception;
}

void ReplyVerdictTest::writes()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, received);
    QFETCH(Verdict, verdict);
    QCOMPARE(judgeReply(requestOf(request, 8), received).verdict, verdict);
}

void ReplyVerdictTest::echoesAsLongAsTheReply()
{
    // 24 coils from 768 on: the high byte of the address stands where the byte count
    // of the reply does, and both are 3. So the echo fits in every byte; luckily the
    // controller has no such coils.
    const QByteArray frame = withCrc("01 01 03 00 00 18");
    QCOMPARE(judgeReply(requestOf(frame, 8), frame).verdict, Verdict::Good);
    // 24 coils from 2000 on, where the controller has some.
    const QByteArray real = withCrc("01 01 07 D0 00 18");
    QCOMPARE(judgeReply(requestOf(real, 8), real).verdict, Verdict::Echo);
}

void ReplyVerdictTest::framesAtTheBeginning_data()
{
    QTest::addColumn<QByteArray>("received");
    QTest::addColumn<int>("length");
    const QByteArray good = withCrc("01 03 04 04 D2 16 2E");
    QTest::newRow("nothing") << QByteArray() << 0;
    QTest::newRow("a read's reply") << good << 9;
    QTest::newRow("more behind it") << good + good << 9;
    QTest::newRow("its beginning") << good.left(8) << 0;
    QTest::newRow("a write's reply") << withCrc("01 06 00 64 00 05") << 8;
    QTest::newRow("a refusal") << withCrc("01 83 02") << 5;
    QTest::newRow("an unknown function") << withCrc("01 2B 04 04 D2 16 2E") << 0;
    QTest::newRow("noise before it") << "U" + good << 0;
}

void ReplyVerdictTest::framesAtTheBeginning()
{
    QFETCH(QByteArray, received);
    QTEST(frameLengthOf(received), "length");
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
