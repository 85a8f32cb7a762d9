#include "kxhost/raw/raw_values.h"

#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

using namespace kx;

class RawValuesTest : public QObject
{
    Q_OBJECT

private slots:
    void whatAReplyHolds_data();
    void whatAReplyHolds();
    void functionsHaveNames();
};

void RawValuesTest::whatAReplyHolds_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("json");
    const auto row = [](const char* name, const char* request, const char* frame, const char* text,
                        const char* json) {
        QTest::newRow(name) << QByteArray::fromHex(request) << QByteArray::fromHex(frame)
                            << QString::fromLatin1(text) << QByteArray(json);
    };
    // Requests: station, function, address, quantity, CRC; replies end with their CRC.
    row("registers", "01 03 0000 0002 C40B", "01 03 04 0001 FFFF 7A43", "registers 1 65535",
        R"({"registers":[1,65535]})");
    row("input registers", "01 04 0000 0001 31CA", "01 04 02 04D2 3A5D", "registers 1234",
        R"({"registers":[1234]})");
    // CD is 1100 1101, 05 is 0000 0101: the lowest bit comes first.
    row("as many coils as asked for", "01 01 0000 000A BC0D", "01 01 02 CD05 2D6F",
        "coils 1 0 1 1 0 0 1 1 1 0", R"({"coils":[1,0,1,1,0,0,1,1,1,0]})");
    row("coils of a request that does not say how many", "01 01", "01 01 01 05 9188",
        "coils 1 0 1 0 0 0 0 0", R"({"coils":[1,0,1,0,0,0,0,0]})");
    row("fewer coils than asked for", "01 02 0000 0040 79FA", "01 02 01 05 6188",
        "coils 1 0 1 0 0 0 0 0", R"({"coils":[1,0,1,0,0,0,0,0]})");
    row("a register written", "01 06 0064 0005 0816", "01 06 0064 0005 0816",
        "address 100, value 5", R"({"address":100,"value":5})");
    row("a coil written", "01 05 0007 FF00 3DFB", "01 05 0007 FF00 3DFB", "address 7, value 65280",
        R"({"address":7,"value":65280})");
    row("registers written", "01 10 0064 0002 04 0001 0002 0000", "01 10 0064 0002 0017",
        "address 100, quantity 2", R"({"address":100,"quantity":2})");
    row("a refusal", "01 03 0000 0002 C40B", "01 83 02 C0F1", "exception 2 (illegal data address)",
        R"({"exception":2})");
    row("another function", "01 07 41E2", "01 07 6D E3DD", "data 6D", R"({"data":"6D"})");
    row("a byte count that is wrong", "01 03 0000 0001 840A", "01 03 04 0001 0000", "data 04 00 01",
        R"({"data":"04 00 01"})");
    row("half a register", "01 03 0000 0001 840A", "01 03 03 000102 C5DF", "data 03 00 01 02",
        R"({"data":"03 00 01 02"})");
    row("nothing behind the function", "01 07 41E2", "01 07 41E2", "data none", R"({"data":""})");
}

void RawValuesTest::whatAReplyHolds()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, frame);
    QTEST(rawValuesText(request, frame), "text");
    QTEST(QJsonDocument(rawValues(request, frame)).toJson(QJsonDocument::Compact), "json");
}

void RawValuesTest::functionsHaveNames()
{
    QCOMPARE(functionName(3), QStringLiteral("read holding registers"));
    QCOMPARE(functionName(0x83), QStringLiteral("read holding registers"));
    QCOMPARE(functionName(16), QStringLiteral("write multiple registers"));
    QCOMPARE(functionName(43), QStringLiteral("encapsulated interface"));
    QCOMPARE(functionName(100), QStringLiteral("unknown"));
}

QTEST_APPLESS_MAIN(RawValuesTest)
#include "tst_raw_values.moc"
