// When the bytes of a reply may be left in the port.

#include "exchange/current_exchange.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <cstring>

using namespace kx;

namespace
{

// Characters of 1 ms: the last two are taken as they come.
const LineTiming LINE = {10000, 8, 0, 1};
const LineTiming NETWORK = {0, 8, 0, 1};
// Characters of 0.05 ms: two of them are less than getting up takes.
const LineTiming QUICK = {200000, 8, 0, 1};
// Characters of 0.01 ms: less than adapters and drivers need to report.
const LineTiming FAST = {1000000, 8, 0, 1};

/// A read of ten registers: a reply of 25 bytes.
FRAME_PRO request(const char* frame)
{
    FRAME_PRO request = FRAME_PRO();
    const QByteArray whole = withCrc(frame);
    std::memcpy(request.frame, whole.constData(), static_cast<size_t>(whole.size()));
    request.sendLen = static_cast<int>(whole.size());
    request.recvLen = 25;
    return request;
}

/// A request that went out at 8000 and that may be answered.
struct Exchange {
    Exchange()
    {
        current.begin(asked, false);
        current.setTransmittedAt(8000);
        owed.add(asked, 1000000);
    }

    FRAME_PRO asked = request("01 03 00 64 00 0A");
    OwedReplies owed;
    Statistics statistics;
    StrayBytes stray{&statistics.thrownAway};
    CurrentExchange current{&owed, &stray, &statistics};
};

} // namespace

class CurrentExchangeTest : public QObject
{
    Q_OBJECT

private slots:
    void theFirstLookIsAtHalfOfTheReply();
    void whatBeganIsLeftUntilItsLastCharacters_data();
    void whatBeganIsLeftUntilItsLastCharacters();
    void aReplyThatHasNotBegunIsTakenAsItComes();
    void aQuickLineIsLeftUntilAMomentBeforeTheEnd();
    void aFastLineIsLeftForNoLessThanAMoment();
    void onANetworkAllIsTakenAsItComes();
    void whileAnotherIsOwedAllIsTakenAsItComes();
    void theNextRequestBeginsAnew();
};

void CurrentExchangeTest::theFirstLookIsAtHalfOfTheReply()
{
    Exchange exchange;
    QCOMPARE(exchange.current.leaveBytesUntil(0, LINE), qint64(20500)); // 8 ms and 25 / 2 ms
}

void CurrentExchangeTest::whatBeganIsLeftUntilItsLastCharacters_data()
{
    QTest::addColumn<int>("received");
    QTest::addColumn<qint64>("until");
    QTest::newRow("one byte is there") << 1 << qint64(20000 + 24000 - 2000);
    QTest::newRow("half is there") << 12 << qint64(20000 + 13000 - 2000);
    QTest::newRow("five lack") << 20 << qint64(20000 + 5000 - 2000);
    QTest::newRow("four lack: no time to leave them") << 21 << qint64(0);
    QTest::newRow("one lacks") << 24 << qint64(0);
}

void CurrentExchangeTest::whatBeganIsLeftUntilItsLastCharacters()
{
    QFETCH(int, received);
    Exchange exchange;
    exchange.current.leaveBytesUntil(0, LINE);
    const QByteArray reply = bytes("01 03 14") + QByteArray(22, '\0');
    QVERIFY(!exchange.current.add(reply.left(received), 20000, LINE));
    QTEST(exchange.current.leaveBytesUntil(20000, LINE), "until");
}

void CurrentExchangeTest::aReplyThatHasNotBegunIsTakenAsItComes()
{
    Exchange exchange;
    exchange.current.leaveBytesUntil(0, LINE);
    QCOMPARE(exchange.current.leaveBytesUntil(20500, LINE), qint64(0));
}

void CurrentExchangeTest::aQuickLineIsLeftUntilAMomentBeforeTheEnd()
{
    Exchange exchange;
    exchange.current.leaveBytesUntil(0, QUICK);
    const QByteArray half = bytes("01 03 14") + QByteArray(9, '\0');
    QVERIFY(!exchange.current.add(half, 8625, QUICK));
    // Thirteen characters lack.
    QCOMPARE(exchange.current.leaveBytesUntil(8625, QUICK), qint64(8625 + 650 - 250));
}

void CurrentExchangeTest::aFastLineIsLeftForNoLessThanAMoment()
{
    Exchange exchange;
    QCOMPARE(exchange.current.leaveBytesUntil(8000, FAST), qint64(0)); // 125 us
}

void CurrentExchangeTest::onANetworkAllIsTakenAsItComes()
{
    Exchange exchange;
    QCOMPARE(exchange.current.leaveBytesUntil(8000, NETWORK), qint64(0));
}

void CurrentExchangeTest::whileAnotherIsOwedAllIsTakenAsItComes()
{
    Exchange exchange;
    exchange.owed.add(request("01 03 00 C8 00 0A"), 1000000);
    QCOMPARE(exchange.current.leaveBytesUntil(0, LINE), qint64(0));
}

void CurrentExchangeTest::theNextRequestBeginsAnew()
{
    Exchange exchange;
    exchange.current.leaveBytesUntil(0, LINE);
    exchange.current.begin(exchange.asked, false);
    exchange.current.setTransmittedAt(100000);
    QCOMPARE(exchange.current.leaveBytesUntil(92000, LINE), qint64(112500));
}

QTEST_GUILESS_MAIN(CurrentExchangeTest)
#include "tst_current_exchange.moc"
