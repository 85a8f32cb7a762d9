#include "kxpanel/exchanges/station_sign.h"

#include "../sample_exchanges.h"

#include <QtTest/QTest>

using namespace kxpanel;

class StationSignTest : public QObject
{
    Q_OBJECT

private slots:
    void signs_data();
    void signs();
    void repliesOfTheStation();
};

Q_DECLARE_METATYPE(kxpanel::StationSign)

namespace
{

/// For good, without a whole reply.
Exchange failedAs(kx::ReplyKind kind)
{
    Exchange exchange = unansweredPoll();
    exchange.replyKind = kind;
    exchange.isFinal = true;
    return exchange;
}

/// A gateway's, in the name of station 2.
Exchange excused(int code)
{
    Exchange exchange = refusedWrite();
    exchange.exceptionCode = code;
    return exchange;
}

} // namespace

void StationSignTest::signs_data()
{
    QTest::addColumn<Exchange>("exchange");
    QTest::addColumn<StationSign>("sign");
    const StationSign heard = StationSign::Heard;
    const StationSign nothing = StationSign::Nothing;
    const StationSign silent = StationSign::Silent;
    QTest::newRow("answered") << answeredPoll() << heard;
    QTest::newRow("refused") << refusedWrite() << heard;
    QTest::newRow("no reply, another try") << unansweredPoll() << nothing;
    QTest::newRow("no reply to the last try") << failedAs(kx::ReplyKind::None) << silent;
    QTest::newRow("a gateway that finds no path") << excused(10) << silent;
    QTest::newRow("a gateway that got no reply") << excused(11) << silent;
    QTest::newRow("cut short") << failedAs(kx::ReplyKind::Short) << heard;
    QTest::newRow("damaged") << failedAs(kx::ReplyKind::Bad) << heard;
    QTest::newRow("a wrong byte count") << failedAs(kx::ReplyKind::WrongByteCount) << heard;
    QTest::newRow("replies of other requests") << failedAs(kx::ReplyKind::Foreign) << nothing;
    QTest::newRow("line lost") << failedAs(kx::ReplyKind::Lost) << nothing;
    QTest::newRow("to all") << failedAs(kx::ReplyKind::Broadcast) << nothing;
    QTest::newRow("not whole") << failedAs(kx::ReplyKind::NotSent) << nothing;
    QTest::newRow("line never silent") << failedAs(kx::ReplyKind::NeverSilent) << nothing;
}

void StationSignTest::signs()
{
    QFETCH(Exchange, exchange);
    QTEST(signOf(exchange), "sign");
}

void StationSignTest::repliesOfTheStation()
{
    QVERIFY(isStationsReply(answeredPoll()));
    QVERIFY(isStationsReply(refusedWrite()));
    QVERIFY(!isStationsReply(unansweredPoll()));
    QVERIFY(!isStationsReply(excused(11)));
    QVERIFY(isStationsReply(excused(4))); // the station's own failure
}

QTEST_GUILESS_MAIN(StationSignTest)

#include "tst_station_sign.moc"
