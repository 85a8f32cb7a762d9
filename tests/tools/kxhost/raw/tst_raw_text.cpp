#include "kxhost/raw/raw_text.h"

#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

using namespace kx;

namespace
{

RawExchanged exchanged(const QByteArray& request, const QByteArray& received)
{
    return {QByteArray::fromHex(request), QByteArray::fromHex(received), 12, false};
}

// Station 1, function 3, address 0, quantity 2, CRC.
const QByteArray READ = "01 03 0000 0002 C40B";
// Station 1, function 3, 4 bytes, 1 and 3, CRC.
const QByteArray VALUES = "01 03 04 0001 0003 EBF2";

} // namespace

class RawTextTest : public QObject
{
    Q_OBJECT

private slots:
    void rows_data();
    void rows();
    void modbusTcpHasNoCrcAndNoBroadcast();
    void json();
    void jsonOfSilence();
    void jsonOfDamage();
};

void RawTextTest::rows_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("received");
    QTest::addColumn<QString>("text"); // without the request
    const auto row = [](const char* name, const QByteArray& request, const QByteArray& received,
                        const char* text) {
        QTest::newRow(name) << request << received << QString::fromLatin1(text);
    };
    const QByteArray broadcast = "00 06 0064 0001 0804";
    row("values", READ, VALUES,
        "reply    01 03 04 00 01 00 03 EB F2|"
        "         station 1, function 3 (read holding registers), registers 1 3; CRC right|"
        "time     12 ms");
    row("an echo and bytes behind", READ, READ + VALUES + "77",
        "echo     the request came back|"
        "reply    01 03 04 00 01 00 03 EB F2|"
        "         station 1, function 3 (read holding registers), registers 1 3; CRC right|"
        "behind   77|"
        "time     12 ms");
    row("a refusal", READ, "01 83 02 C0F1",
        "reply    01 83 02 C0 F1|"
        "         station 1, function 3 (read holding registers), exception 2 (illegal data "
        "address); CRC right|"
        "time     12 ms");
    row("another station", READ, "02 83 02 30F1",
        "reply    02 83 02 30 F1|"
        "         station 2, function 3 (read holding registers), exception 2 (illegal data "
        "address); CRC right; not the reply to this request|"
        "time     12 ms");
    row("a wrong CRC", READ, "01 03 04 0001 0003 EBF3",
        "reply    01 03 04 00 01 00 03 EB F3|"
        "         no frame: CRC wrong, right would be EB F2|"
        "time     12 ms");
    row("noise", READ, "FF 00",
        "reply    FF 00|"
        "         no frame: too short for one|"
        "time     12 ms");
    row("Modbus TCP", READ, "0103 0000 0003 C4 8B 01",
        "reply    01 03 00 00 00 03 C4 8B 01|"
        "         a frame of Modbus TCP; use --protocol tcp|"
        "time     12 ms");
    row("silence", READ, "", "reply    none until the time-out");
    row("a broadcast", broadcast, "", "reply    none; nobody answers a broadcast");
    row("a broadcast and its echo", broadcast, broadcast + broadcast,
        "echo     the request came back|"
        "reply    00 06 00 64 00 01 08 04|"
        "         station 0, function 6 (write single register), address 100, value 1; CRC right|"
        "time     12 ms");
}

void RawTextTest::rows()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, received);
    QFETCH(QString, text);
    const QStringList rows = rawRows(exchanged(request, received));
    QCOMPARE(rows.first(), "request  " + QByteArray::fromHex(request).toHex(' ').toUpper());
    QCOMPARE(rows.mid(1), text.split('|'));
}

void RawTextTest::modbusTcpHasNoCrcAndNoBroadcast()
{
    RawExchanged toStation0 = exchanged("00 06 0064 0001 0804", "");
    toStation0.isTcp = true;
    QCOMPARE(rawRows(toStation0).last(), QStringLiteral("reply    none until the time-out"));
    QVERIFY(!isBroadcast(toStation0.request, true));
    QVERIFY(isBroadcast(toStation0.request, false));
    toStation0.received = toStation0.request;
    QCOMPARE(rawRows(toStation0).value(2),
             QStringLiteral("         station 0, function 6 (write single register), address 100, "
                            "value 1"));
    QVERIFY(!rawJson(toStation0).contains("crc"));
    QVERIFY(rawJson(toStation0).contains("milliseconds"));
}

void RawTextTest::json()
{
    const QJsonObject json = rawJson(exchanged(READ, READ + VALUES + "77"));
    QCOMPARE(
        QJsonDocument(json).toJson(QJsonDocument::Compact),
        QByteArray(R"({"behind":"77","crc":"right","echo":true,"event":"raw","function":3,)"
                   R"("functionName":"read holding registers","milliseconds":12,)"
                   R"("outcome":"good","registers":[1,3],"reply":"01 03 04 00 01 00 03 EB F2",)"
                   R"("request":"01 03 00 00 00 02 C4 0B","station":1})"));
}

void RawTextTest::jsonOfSilence()
{
    QCOMPARE(QJsonDocument(rawJson(exchanged(READ, ""))).toJson(QJsonDocument::Compact),
             QByteArray(R"({"behind":"","echo":false,"event":"raw","outcome":"none","reply":"",)"
                        R"("request":"01 03 00 00 00 02 C4 0B"})"));
}

void RawTextTest::jsonOfDamage()
{
    const QJsonObject json = rawJson(exchanged(READ, "01 03 04 0001 0003 EBF3"));
    QCOMPARE(
        QJsonDocument(json).toJson(QJsonDocument::Compact),
        QByteArray(R"({"behind":"","crc":"wrong","echo":false,"event":"raw","milliseconds":12,)"
                   R"("outcome":"damaged","reply":"01 03 04 00 01 00 03 EB F3",)"
                   R"("request":"01 03 00 00 00 02 C4 0B"})"));
}

QTEST_APPLESS_MAIN(RawTextTest)
#include "tst_raw_text.moc"
