#include "listen/heard_values.h"

#include "heard_pieces.h"

#include <QtTest/QTest>

using namespace kx;

class HeardValuesTest : public QObject
{
    Q_OBJECT

private slots:
    void ranges_data();
    void ranges();
    void actions();
};

void HeardValuesTest::ranges_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("reply"); // empty: not answered
    QTest::addColumn<QString>("ranges");   // "FIRST:COUNT=VALUE,VALUE; ..."
    const auto row = [](const char* name, const char* request, const char* reply,
                        const char* ranges) {
        QTest::newRow(name) << withCrc(request) << (*reply ? withCrc(reply) : QByteArray())
                            << QString::fromLatin1(ranges);
    };
    row("registers", "01 03 00 64 00 02", "01 03 04 04 D2 FF FF", "D100:2=1234,65535");
    row("registers that were not answered", "01 03 00 64 00 02", "", "D100:2=");
    // 0x07CF is coil 1999, which no type has; then M0 to M8. Bits come low bit first.
    row("coils from before M0", "01 01 07 CF 00 0A", "01 01 02 02 02",
        "coil 1999:1=0; M0:9=1,0,0,0,0,0,0,0,1");
    // 0x00FE is Y376, octal.
    row("the end of the outputs", "01 01 00 FE 00 03", "01 01 01 05", "Y376:2=1,0; coil 256:1=1");
    // 0x0FCF is M2047: its first range ends there, and M2048 is coil 12000.
    row("over the end of a range", "01 01 0F CF 00 02", "", "M2047:1=; coil 4048:1=");
    // 0x25E3 is register 9699, CV199; 9700 and 9701 are the counter 32CV200, high word first.
    row("a double counter", "01 03 25 E3 00 03", "01 03 06 00 07 00 01 86 A0",
        "CV199:1=7; 32CV200:1=100000");
    row("half a double counter at the end", "01 03 25 E4 00 03", "01 03 06 00 01 86 A0 00 09",
        "32CV200:1=100000; holding register 9702:1=9");
    row("half a double counter at the beginning", "01 03 25 E5 00 03", "",
        "holding register 9701:1=; 32CV201:1=");
    row("one half alone", "01 03 25 E4 00 01", "01 03 02 00 01", "holding register 9700:1=1");
    row("discrete inputs", "01 02 00 00 00 02", "01 02 01 03", "discrete input 0:2=1,1");
    row("input registers", "01 04 00 05 00 01", "01 04 02 00 2A", "input register 5:1=42");
    row("a coil set", "01 05 00 08 FF 00", "", "Y10:1=1");
    row("a coil reset", "01 05 00 08 00 00", "", "Y10:1=0");
    row("a coil written with what is neither", "01 05 00 08 12 34", "", "Y10:1=");
    row("a register written", "01 06 00 64 00 05", "01 06 00 64 00 05", "D100:1=5");
    row("registers written", "01 10 00 C8 00 02 04 00 01 00 02", "", "D200:2=1,2");
    // Ten coils from M0: 0x0D is 1011 0000, 0x03 is 11.
    row("coils written", "01 0F 07 D0 00 0A 02 0D 03", "", "M0:10=1,0,1,1,0,0,0,0,1,1");
    row("fewer bytes than the quantity", "01 10 00 C8 00 02 02 00 01", "", "D200:2=");
    row("past the last number", "01 01 FF FF 00 02", "", "coil 65535:1=; Y0:1=");
    row("none at all", "01 03 00 64 00 00", "", "");
    row("another function", "01 2B 0E 01 00", "", "");
}

void HeardValuesTest::ranges()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, reply);
    HeardExchange exchange;
    exchange.request.bytes = request;
    exchange.reply.bytes = reply;
    exchange.kind = reply.isEmpty() ? HeardKind::Unanswered : HeardKind::Answered;
    QStringList texts;
    for (const HeardRange& range : rangesOf(exchange)) {
        QStringList values;
        for (const qint64 value : range.values)
            values << QString::number(value);
        texts << QString::fromLatin1("%1:%2=%3")
                     .arg(range.first)
                     .arg(range.count)
                     .arg(values.join(QLatin1Char(',')));
    }
    QTEST(texts.join(QLatin1String("; ")), "ranges");
}

void HeardValuesTest::actions()
{
    QCOMPARE(actionOf(withCrc("01 03 00 64 00 02")), HeardAction::Read);
    QCOMPARE(actionOf(withCrc("01 06 00 64 00 02")), HeardAction::Write);
    QCOMPARE(actionOf(withCrc("01 10 00 64 00 01 02 00 05")), HeardAction::Write);
    QCOMPARE(actionOf(withCrc("01 2B 0E 01 00")), HeardAction::Other);
    QCOMPARE(actionOf(withCrc("01 03 00 64")), HeardAction::Other); // too short for what it is
}

QTEST_APPLESS_MAIN(HeardValuesTest)
#include "tst_heard_values.moc"
