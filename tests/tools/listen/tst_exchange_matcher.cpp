#include "listen/exchange_matcher.h"

#include "heard_pieces.h"

#include <QtTest/QTest>

using namespace kx;

Q_DECLARE_METATYPE(kx::HeardPiece)

namespace
{

const qint64 TIMEOUT = 1000000; // microseconds

/// One letter per exchange that is over: Answered, Refused, Unfitting, Damaged, No answer,
/// Broadcast, Open, Stray, "-" for noise.
QString lettersOf(const QList<HeardExchange>& exchanges)
{
    QString letters;
    for (const HeardExchange& exchange : exchanges)
        letters += QLatin1String("ARUDNBOS-").at(static_cast<int>(exchange.kind));
    return letters;
}

} // namespace

class ExchangeMatcherTest : public QObject
{
    Q_OBJECT

private slots:
    void whatIsOver_data();
    void whatIsOver();
    void requestsAreMarked();
    void aLateFrameAnswersNoMore();
    void aWriteOnceMoreAfterTheTimeOutIsARequest();
    void responseTimes();
};

void ExchangeMatcherTest::whatIsOver_data()
{
    QTest::addColumn<QList<HeardPiece>>("pieces");
    QTest::addColumn<QString>("over"); // those of finish() behind a stroke
    const auto row = [](const char* name, const QList<HeardPiece>& pieces, const char* over) {
        QTest::newRow(name) << pieces << QString::fromLatin1(over);
    };
    // station, function, address, quantity or value
    const HeardPiece read = frameOf("01 03 00 64 00 02");
    const HeardPiece write = frameOf("01 06 00 64 00 05");
    const HeardPiece longWrite = frameOf("01 10 00 64 00 01 02 00 05");
    const HeardPiece bits = frameOf("01 01 03 E8 00 14"); // 20 coils: three bytes
    row("a read and its reply", {read, frameOf("01 03 04 04 D2 00 11")}, "A|");
    row("a refusal", {read, frameOf("01 83 02")}, "R|");
    row("a write and its echo", {write, write}, "A|");
    row("two writes and their echoes", {write, write, write, write}, "AA|");
    row("a long write", {longWrite, frameOf("01 10 00 64 00 01")}, "A|");
    row("a write, then another one to the same station", {write, frameOf("01 06 00 65 00 05")},
        "N|O");
    row("a long write, confirmed for another address", {longWrite, frameOf("01 10 00 65 00 01")},
        "S|O");
    row("a long write, confirmed for another quantity", {longWrite, frameOf("01 10 00 64 00 02")},
        "S|O");
    row("no reply, then the request again", {read, read, frameOf("01 03 04 04 D2 00 11")}, "NA|");
    row("no reply, then a request to another station", {read, frameOf("02 03 00 00 00 01")}, "N|O");
    row("a byte count that was not asked for", {read, frameOf("01 03 02 04 D2")}, "U|");
    row("a reply of eight bytes", {bits, frameOf("01 01 03 01 02 03")}, "A|");
    row("the request for bits again", {bits, bits}, "N|O");
    row("a reply of another station", {read, frameOf("02 03 04 04 D2 00 11")}, "S|O");
    row("a refusal of another function", {read, frameOf("01 81 02")}, "S|O");
    row("a reply before any request", {frameOf("01 03 04 04 D2 00 11")}, "S|");
    row("a refusal before any request", {frameOf("01 83 02")}, "S|");
    row("a confirmation before any request", {frameOf("01 10 00 64 00 01")}, "S|");
    row("a damaged reply", {read, noiseOf("01 03 04 04 D2 00 11 00 00")}, "D|");
    row("a damaged refusal", {read, noiseOf("01 83 02 00 00")}, "D|");
    row("noise before a reply", {read, noiseOf("FF"), frameOf("01 03 04 04 D2 00 11")}, "-A|");
    row("noise without a request", {noiseOf("01 03 04")}, "-|");
    row("a broadcast", {frameOf("00 06 00 64 00 05"), read}, "B|O");
    row("another function and its reply", {frameOf("01 2B 0E 01 00"), frameOf("01 2B 0E 01 01")},
        "A|");
    row("another function, refused", {frameOf("01 2B 0E 01 00"), frameOf("01 AB 01")}, "R|");
    row("nothing", {}, "|");
}

void ExchangeMatcherTest::whatIsOver()
{
    QFETCH(QList<HeardPiece>, pieces);
    ExchangeMatcher matcher(TIMEOUT);
    QList<HeardExchange> over;
    for (HeardPiece& piece : pieces)
        over += matcher.take(&piece);
    QTEST(lettersOf(over) + QLatin1Char('|') + lettersOf(matcher.finish()), "over");
}

void ExchangeMatcherTest::requestsAreMarked()
{
    ExchangeMatcher matcher(TIMEOUT);
    HeardPiece write = frameOf("01 06 00 64 00 05");
    HeardPiece echo = write;
    matcher.take(&write);
    QCOMPARE(matcher.open(), write.bytes);
    matcher.take(&echo);
    QCOMPARE(matcher.open(), QByteArray());
    QCOMPARE(write.isRequest, true);
    QCOMPARE(echo.isRequest, false);
}

void ExchangeMatcherTest::aLateFrameAnswersNoMore()
{
    ExchangeMatcher matcher(TIMEOUT);
    HeardPiece read = frameOf("01 03 00 64 00 02", 500);
    HeardPiece reply = frameOf("01 03 04 04 D2 00 11", 500 + TIMEOUT + 1);
    matcher.take(&read);
    QCOMPARE(lettersOf(matcher.expire(500 + TIMEOUT)), QString());
    QCOMPARE(lettersOf(matcher.take(&reply)), QString::fromLatin1("NS"));
}

void ExchangeMatcherTest::aWriteOnceMoreAfterTheTimeOutIsARequest()
{
    ExchangeMatcher matcher(TIMEOUT);
    HeardPiece write = frameOf("01 06 00 64 00 05", 0);
    HeardPiece again = frameOf("01 06 00 64 00 05", TIMEOUT + 1);
    matcher.take(&write);
    QCOMPARE(lettersOf(matcher.take(&again)), QString::fromLatin1("N"));
    QCOMPARE(again.isRequest, true);
}

void ExchangeMatcherTest::responseTimes()
{
    HeardExchange exchange = {HeardKind::Answered, frameOf("01 03 00 64 00 02", 1000),
                              frameOf("01 03 04 04 D2 00 11", 9200)};
    QCOMPARE(exchange.responseTime(), qint64(8200));
    exchange.reply.isGlued = true;
    QCOMPARE(exchange.responseTime(), qint64(-1));
    exchange.reply = HeardPiece();
    QCOMPARE(exchange.responseTime(), qint64(-1));
}

QTEST_APPLESS_MAIN(ExchangeMatcherTest)
#include "tst_exchange_matcher.moc"
