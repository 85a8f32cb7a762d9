#include "kxhost/raw/raw_exchange.h"
#include "tools/exchange/scripted_line.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kx;

namespace
{

const QByteArray REQUEST = QByteArray::fromHex("01 03 0000 0002 C40B");

} // namespace

class RawExchangeTest : public QObject
{
    Q_OBJECT

private slots:
    void allThatComesIsCollected();
    void theTimeoutEndsIt();
    void aLineThatGoesOnEndsByTheTimeout();
    void nothingIsSentOnALineThatIsNeverSilent();
    void theSilenceBeforeIsKept();
    void whatWaitsBeforeIsThrownAway();
    void bytesThatLieInThePortAreTaken();
    void aLostLineEndsIt();
    void stoppedItEndsOnce();
};

void RawExchangeTest::allThatComesIsCollected()
{
    ScriptedLine line;
    line.answer({{5, "one"}, {10, "two"}});
    RawExchange exchange(&line, REQUEST, {5000, 0});
    QSignalSpy finished(&exchange, &RawExchange::finished);
    exchange.start();
    QVERIFY(finished.wait(4000)); // by silence
    QCOMPARE(line.written, QList<QByteArray>{REQUEST});
    QVERIFY(exchange.wasSent());
    QCOMPARE(exchange.received(), QByteArray("onetwo"));
    QVERIFY2(exchange.milliseconds() >= 5 && exchange.milliseconds() < 4000,
             qPrintable(QString::number(exchange.milliseconds())));
    QCOMPARE(exchange.error(), QString());
}

void RawExchangeTest::theTimeoutEndsIt()
{
    ScriptedLine line;
    RawExchange exchange(&line, REQUEST, {30, 0});
    QSignalSpy finished(&exchange, &RawExchange::finished);
    exchange.start();
    QVERIFY(finished.wait(4000));
    QVERIFY(exchange.wasSent());
    QCOMPARE(exchange.received(), QByteArray());
    QCOMPARE(exchange.milliseconds(), qint64(0));
}

void RawExchangeTest::aLineThatGoesOnEndsByTheTimeout()
{
    ScriptedLine line;
    QTimer noise;
    connect(&noise, &QTimer::timeout, &line, [&line] {
        if (!line.written.isEmpty())
            emit line.bytesArrived(QByteArray(100, 'x'));
    });
    RawExchange exchange(&line, REQUEST, {500, 0});
    QSignalSpy finished(&exchange, &RawExchange::finished);
    exchange.start();
    noise.start(1);
    QVERIFY(finished.wait(8000));
    QVERIFY(exchange.wasSent());
    QVERIFY(!exchange.received().isEmpty());
    QVERIFY(exchange.received().size() <= 4096);
}

void RawExchangeTest::nothingIsSentOnALineThatIsNeverSilent()
{
    ScriptedLine line;
    RawExchange exchange(&line, REQUEST, {50, 200});
    QTimer noise;
    connect(&noise, &QTimer::timeout, &line, [&line] { emit line.bytesArrived("x"); });
    noise.start(1);
    QSignalSpy finished(&exchange, &RawExchange::finished);
    exchange.start();
    QVERIFY(finished.wait(8000));
    QVERIFY(!exchange.wasSent());
    QCOMPARE(line.written, QList<QByteArray>());
    QCOMPARE(exchange.received(), QByteArray());
}

void RawExchangeTest::theSilenceBeforeIsKept()
{
    ScriptedLine line;
    line.characters = {1200, 8, 0, 1}; // 3.5 characters of 10 bits are 29.2 ms
    RawExchange exchange(&line, REQUEST, {20, 0});
    QSignalSpy finished(&exchange, &RawExchange::finished);
    const qint64 begun = line.now();
    exchange.start();
    QVERIFY(finished.wait(4000));
    QVERIFY2(line.writtenAt.first() - begun >= 29,
             qPrintable(QString::number(line.writtenAt.first() - begun)));
}

void RawExchangeTest::whatWaitsBeforeIsThrownAway()
{
    ScriptedLine line;
    line.unseen = "old";
    line.answer({{1, "new"}});
    RawExchange exchange(&line, REQUEST, {1000, 0});
    QSignalSpy finished(&exchange, &RawExchange::finished);
    exchange.start();
    QVERIFY(finished.wait(4000));
    QCOMPARE(exchange.received(), QByteArray("new"));
    QVERIFY(line.discards > 0);
}

void RawExchangeTest::bytesThatLieInThePortAreTaken()
{
    ScriptedLine line;
    line.unreported = "lying";
    RawExchange exchange(&line, REQUEST, {100, 0});
    QSignalSpy finished(&exchange, &RawExchange::finished);
    exchange.start();
    QVERIFY(finished.wait(4000));
    QCOMPARE(exchange.received(), QByteArray("lying"));
}

void RawExchangeTest::aLostLineEndsIt()
{
    ScriptedLine line;
    RawExchange exchange(&line, REQUEST, {5000, 0});
    QSignalSpy finished(&exchange, &RawExchange::finished);
    exchange.start();
    line.lose();
    QCOMPARE(finished.size(), 1);
    QCOMPARE(exchange.error(), QStringLiteral("script: the port is lost: unplugged"));
    QVERIFY(!exchange.wasSent());
}

void RawExchangeTest::stoppedItEndsOnce()
{
    ScriptedLine line;
    RawExchange exchange(&line, REQUEST, {5000, 0});
    QSignalSpy finished(&exchange, &RawExchange::finished);
    exchange.start();
    exchange.stop();
    exchange.stop();
    QTest::qWait(30);
    QCOMPARE(finished.size(), 1);
    QCOMPARE(line.written, QList<QByteArray>());
}

QTEST_GUILESS_MAIN(RawExchangeTest)
#include "tst_raw_exchange.moc"
