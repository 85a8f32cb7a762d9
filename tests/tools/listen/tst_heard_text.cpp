#include "listen/heard_text.h"

#include "heard_pieces.h"

#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

using namespace kx;

class HeardTextTest : public QObject
{
    Q_OBJECT

private slots:
    void rows_data();
    void rows();
    void json_data();
    void json();
    void frames();
    void times();

private:
    static void addExchanges();
};

void HeardTextTest::addExchanges()
{
    QTest::addColumn<HeardExchange>("exchange");
    QTest::addColumn<QByteArray>("text");
}

Q_DECLARE_METATYPE(kx::HeardExchange)

void HeardTextTest::rows_data()
{
    addExchanges();
    const HeardPiece read = frameOf("01 03 00 64 00 02", 1000);
    const HeardPiece none;
    const auto row = [](const char* name, HeardKind kind, const HeardPiece& request,
                        const HeardPiece& reply, const char* text) {
        QTest::newRow(name) << HeardExchange{kind, request, reply}
                            << QByteArray("2026-11-22T10:11:12.013 ") + text;
    };
    row("a read", HeardKind::Answered, read, frameOf("01 03 04 04 D2 00 11", 9249),
        "1 read D100:2 = 1234 17, 8.2 ms");
    row("bits in groups of eight", HeardKind::Answered, frameOf("01 01 07 D0 00 0A", 0),
        frameOf("01 01 02 0D 03", 5000), "1 read M0:10 = 10110000 11, 5.0 ms");
    row("two ranges", HeardKind::Answered, frameOf("01 03 25 E3 00 03", 0),
        frameOf("01 03 06 00 07 00 01 86 A0", 5000), "1 read CV199 = 7, 32CV200 = 100000, 5.0 ms");
    row("a write", HeardKind::Answered, frameOf("02 05 00 08 FF 00", 0),
        frameOf("02 05 00 08 FF 00", 3100), "2 write Y10 = 1, 3.1 ms");
    row("a refusal", HeardKind::Refused, read, frameOf("01 83 02", 4100),
        "1 read D100:2: exception 2 (illegal data address), 3.1 ms");
    row("no reply", HeardKind::Unanswered, read, none, "1 read D100:2: no reply");
    row("still open", HeardKind::Open, read, none, "1 read D100:2: still open");
    row("a damaged reply", HeardKind::Damaged, read, noiseOf("01 03 04", 4100),
        "1 read D100:2: damaged reply, 3.1 ms");
    row("a wrong byte count", HeardKind::Unfitting, read, frameOf("01 03 02 00 11", 4100),
        "1 read D100:2: wrong byte count, 3.1 ms");
    row("a broadcast", HeardKind::Broadcast, frameOf("00 06 00 64 00 05"), none,
        "0 write D100 = 5: broadcast");
    row("another function", HeardKind::Answered, frameOf("01 2B 0E 01 00", 0),
        frameOf("01 2B 0E 01 01", 2000), "1 function 43, 2.0 ms");
    row("nothing asked for", HeardKind::Unanswered, frameOf("01 03 00 64 00 00"), none,
        "1 read nothing: no reply");
    row("a stray reply", HeardKind::Stray, none, frameOf("05 83 02"),
        "5 reply without its request: station 05, function 83, exception 02, CRC 81 30");
    row("noise", HeardKind::Noise, none, noiseOf("FF 01"), "2 bytes in no frame: FF 01");
    row("a byte of it", HeardKind::Noise, none, noiseOf("FF"), "1 byte in no frame: FF");
}

void HeardTextTest::rows()
{
    QFETCH(HeardExchange, exchange);
    const QDateTime time(QDate(2026, 11, 22), QTime(10, 11, 12, 13));
    QTEST(heardRow(exchange, time).toUtf8(), "text");
}

void HeardTextTest::json_data()
{
    addExchanges();
    const HeardPiece read = frameOf("01 03 00 64 00 02", 1000);
    QTest::newRow("a read")
        << HeardExchange{HeardKind::Answered, read, frameOf("01 03 04 04 D2 00 11", 9249)}
        << QByteArray("{\"event\":\"heard\",\"function\":3,\"outcome\":\"answered\",\"read\":["
                      "{\"count\":2,\"first\":\"D100\",\"values\":[1234,17]}],"
                      "\"reply\":\"01 03 04 04 D2 00 11 9B 36\","
                      "\"request\":\"01 03 00 64 00 02 85 D4\",\"responseUs\":8249,"
                      "\"station\":1,\"time\":\"2026-11-22T10:11:12.013Z\"}");
    QTest::newRow("a refused write")
        << HeardExchange{HeardKind::Refused, frameOf("01 06 00 64 00 05"), frameOf("01 86 02", 7)}
        << QByteArray("{\"event\":\"heard\",\"exception\":2,\"function\":6,"
                      "\"outcome\":\"refused\",\"reply\":\"01 86 02 C3 A1\","
                      "\"request\":\"01 06 00 64 00 05 08 16\",\"responseUs\":7,\"station\":1,"
                      "\"time\":\"2026-11-22T10:11:12.013Z\",\"write\":["
                      "{\"count\":1,\"first\":\"D100\",\"values\":[5]}]}");
    QTest::newRow("no reply")
        << HeardExchange{HeardKind::Unanswered, read, HeardPiece()}
        << QByteArray("{\"event\":\"heard\",\"function\":3,\"outcome\":\"no reply\",\"read\":["
                      "{\"count\":2,\"first\":\"D100\"}],"
                      "\"request\":\"01 03 00 64 00 02 85 D4\",\"station\":1,"
                      "\"time\":\"2026-11-22T10:11:12.013Z\"}");
    QTest::newRow("a stray reply")
        << HeardExchange{HeardKind::Stray, HeardPiece(), frameOf("05 83 02")}
        << QByteArray("{\"event\":\"heard\",\"outcome\":\"reply without its request\","
                      "\"reply\":\"05 83 02 81 30\",\"station\":5,"
                      "\"time\":\"2026-11-22T10:11:12.013Z\"}");
    QTest::newRow("noise") << HeardExchange{HeardKind::Noise, HeardPiece(), noiseOf("FF 01")}
                           << QByteArray("{\"bytes\":\"FF 01\",\"event\":\"heard\","
                                         "\"outcome\":\"bytes in no frame\","
                                         "\"time\":\"2026-11-22T10:11:12.013Z\"}");
}

void HeardTextTest::json()
{
    QFETCH(HeardExchange, exchange);
    const QDateTime time(QDate(2026, 11, 22), QTime(10, 11, 12, 13), Qt::UTC);
    QTEST(QJsonDocument(heardJson(exchange, time)).toJson(QJsonDocument::Compact), "text");
}

void HeardTextTest::frames()
{
    const HeardPiece read = frameOf("01 03 00 64 00 02");
    QCOMPARE(heardFrames({HeardKind::Refused, read, frameOf("01 83 02")}),
             QStringList({QString::fromLatin1("  request station 01, function 03, address 00 64, "
                                              "quantity 00 02, CRC 85 D4"),
                          QString::fromLatin1("  reply   station 01, function 83, exception 02, "
                                              "CRC C0 F1")}));
    QCOMPARE(heardFrames({HeardKind::Unanswered, read, HeardPiece()}).size(), 1);
    // The row shows them already.
    QCOMPARE(heardFrames({HeardKind::Noise, HeardPiece(), noiseOf("FF")}).size(), 0);
}

void HeardTextTest::times()
{
    QCOMPARE(
        heardAt({HeardKind::Answered, frameOf("01 03 00 64 00 02", 70), frameOf("01 83 02", 90)}),
        qint64(70));
    QCOMPARE(heardAt({HeardKind::Noise, HeardPiece(), noiseOf("FF", 90)}), qint64(90));
    QCOMPARE(millisecondsText(8249), QString::fromLatin1("8.2"));
    QCOMPARE(millisecondsText(0), QString::fromLatin1("0.0"));
}

QTEST_APPLESS_MAIN(HeardTextTest)
#include "tst_heard_text.moc"
