#include "kxhost/gateway/gateway_advice.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

struct Came {
    ReplyKind kind;
    const char* reply; ///< in hexadecimal
};

const Came NOTHING = {ReplyKind::None, ""};
// Station 1, function 3, 2 bytes, 7, CRC.
const Came VALUE = {ReplyKind::Good, "01 03 02 0007 F986"};
const Came REFUSAL = {ReplyKind::Exception, "01 83 02 C0F1"};
const Came OTHERS_REPLY = {ReplyKind::Foreign, "02 03 02 0007 BD86"};
const Came NOISE = {ReplyKind::Short, "FF 00"};
// Transaction 0103, protocol 0, 3 bytes follow, station 84 refuses function 0A.
const Came MBAP = {ReplyKind::Bad, "0103 0000 0003 84 8A 01"};
const Came LOST = {ReplyKind::Lost, ""};

const char* const TCP_FRAMES = "box:502 answers with Modbus TCP frames; use --protocol tcp";
const char* const SILENT =
    "nothing came from box:502; if it is a Modbus TCP server, use --protocol tcp; else it may be "
    "serving another program";
const char* const CLOSED = "the connection to box:502 is lost and no station has answered; if it "
                           "is a Modbus TCP server, use --protocol tcp";

} // namespace

Q_DECLARE_METATYPE(QList<Came>)
Q_DECLARE_METATYPE(kx::GatewayProtocol)

class GatewayAdviceTest : public QObject
{
    Q_OBJECT

private slots:
    void whatIsToBeTried_data();
    void whatIsToBeTried();
    void aConnectionLostAtTheFirstRequest();
    void protocolsAreNamedAsTheyAreChosen();
};

void GatewayAdviceTest::whatIsToBeTried_data()
{
    QTest::addColumn<GatewayProtocol>("spoken");
    QTest::addColumn<QList<Came>>("came");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, GatewayProtocol spoken, const QList<Came>& came,
                        const char* text) {
        QTest::newRow(name) << spoken << came << QString::fromLatin1(text);
    };
    const GatewayProtocol rtu = GatewayProtocol::Rtu;
    const GatewayProtocol tcp = GatewayProtocol::Tcp;
    row("not asked", rtu, {}, "");
    row("a value", rtu, {VALUE}, "");
    row("silence, then a value", rtu, {NOTHING, VALUE}, "");
    row("a refusal", rtu, {REFUSAL, NOTHING}, "");
    row("a reply of another", rtu, {OTHERS_REPLY}, "");
    row("Modbus TCP", rtu, {NOTHING, MBAP}, TCP_FRAMES);
    row("Modbus TCP, then closed", rtu, {MBAP, LOST}, TCP_FRAMES);
    row("a value, later bytes like Modbus TCP", rtu, {VALUE, MBAP}, "");
    row("silence", rtu, {NOTHING, NOTHING}, SILENT);
    row("noise", rtu, {NOTHING, NOISE}, "");
    row("closed", rtu, {NOTHING, LOST}, CLOSED);
    row("noise, then closed", rtu, {NOISE, LOST}, CLOSED);
    row("a value, then closed", rtu, {VALUE, LOST}, "");
    row("asked in Modbus TCP, a value", tcp, {VALUE}, "");
    row("asked in Modbus TCP, silence", tcp, {NOTHING},
        "nothing came from box:502; if it passes the serial line's bytes on, use --protocol rtu; "
        "else it may be serving another program");
    row("asked in Modbus TCP, closed", tcp, {LOST},
        "the connection to box:502 is lost and no station has answered; if it passes the serial "
        "line's bytes on, use --protocol rtu");
}

void GatewayAdviceTest::whatIsToBeTried()
{
    QFETCH(GatewayProtocol, spoken);
    QFETCH(QList<Came>, came);
    GatewayAdvice advice(QStringLiteral("box:502"), spoken);
    for (const Came& reply : came) {
        ExchangeRecord record;
        record.replyKind = reply.kind;
        record.reply = QByteArray::fromHex(reply.reply);
        advice.onExchange(record);
    }
    QTEST(advice.text(), "text");
}

void GatewayAdviceTest::aConnectionLostAtTheFirstRequest()
{
    GatewayAdvice advice(QStringLiteral("box:502"), GatewayProtocol::Rtu);
    advice.onLineLost();
    QCOMPARE(advice.text(), QString::fromLatin1(CLOSED));
}

void GatewayAdviceTest::protocolsAreNamedAsTheyAreChosen()
{
    ProtocolNames names;
    names.tcp = QStringLiteral("Modbus TCP as the protocol");
    names.rtu = QStringLiteral("Modbus RTU as the protocol");
    GatewayAdvice advice(QStringLiteral("box:502"), GatewayProtocol::Rtu, names);
    advice.onLineLost();
    QCOMPARE(advice.text(),
             QStringLiteral("the connection to box:502 is lost and no station has answered; if it "
                            "is a Modbus TCP server, use Modbus TCP as the protocol"));
    GatewayAdvice other(QStringLiteral("box:8888"), GatewayProtocol::Tcp, names);
    other.onLineLost();
    QCOMPARE(other.text(),
             QStringLiteral("the connection to box:8888 is lost and no station has answered; if it "
                            "passes the serial line's bytes on, use Modbus RTU as the protocol"));
}

QTEST_APPLESS_MAIN(GatewayAdviceTest)
#include "tst_gateway_advice.moc"
