// Gateways as a user types them, and as messages show them.

#include "exchange/lines/gateway_address.h"

#include <QtTest/QTest>

using namespace kx;

class GatewayAddressTest : public QObject
{
    Q_OBJECT

private slots:
    void anAddressIsReadAndShown_data();
    void anAddressIsReadAndShown();
    void whatIsNoAddressIsRefused_data();
    void whatIsNoAddressIsRefused();
};

void GatewayAddressTest::anAddressIsReadAndShown_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("port");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a name") << "gateway"
                            << "gateway" << 8888 << "gateway:8888";
    QTest::newRow("a name and a port")
        << "line-2.plant.example:502"
        << "line-2.plant.example" << 502 << "line-2.plant.example:502";
    QTest::newRow("an IPv4 address") << "192.168.0.5:4001"
                                     << "192.168.0.5" << 4001 << "192.168.0.5:4001";
    QTest::newRow("an IPv6 address") << "[::1]"
                                     << "::1" << 8888 << "[::1]:8888";
    QTest::newRow("an IPv6 address and a port")
        << "[2001:db8::17]:65535"
        << "2001:db8::17" << 65535 << "[2001:db8::17]:65535";
    QTest::newRow("an IPv6 address of one network card")
        << "[fe80::1%eth0]:1"
        << "fe80::1%eth0" << 1 << "[fe80::1%eth0]:1";
    QTest::newRow("an IPv4 address as IPv6")
        << "[::ffff:192.168.0.5]:502"
        << "::ffff:192.168.0.5" << 502 << "[::ffff:192.168.0.5]:502";
}

void GatewayAddressTest::anAddressIsReadAndShown()
{
    QFETCH(QString, typed);
    GatewayAddress gateway = {QString(), 8888};
    QVERIFY(parseGatewayAddress(typed, &gateway));
    QTEST(gateway.host, "host");
    QTEST(int(gateway.port), "port");
    QTEST(gatewayText(gateway), "shown");
}

void GatewayAddressTest::whatIsNoAddressIsRefused_data()
{
    QTest::addColumn<QString>("typed");
    for (const char* const typed : {"",
                                    ":502",
                                    "gateway:0",
                                    "gateway:65536",
                                    "gateway:x",
                                    "gateway:+5",
                                    "gateway/x",
                                    "user@gateway",
                                    "gateway?x",
                                    "gateway#x",
                                    "a gateway",
                                    "::1",
                                    "::1:8888",
                                    "[]",
                                    "[",
                                    "[::1",
                                    "[::1]:",
                                    "[::1]:0",
                                    "[::1]:65536",
                                    "[::1]:+5",
                                    "[::1]: 5",
                                    "[::1]8888",
                                    "[::1]x",
                                    "[gateway]:1",
                                    "[192.168.0.5]:1",
                                    "[::1]/x"})
        QTest::newRow(typed) << QString::fromLatin1(typed);
}

void GatewayAddressTest::whatIsNoAddressIsRefused()
{
    QFETCH(QString, typed);
    GatewayAddress gateway = {QStringLiteral("before"), 8888};
    QVERIFY(!parseGatewayAddress(typed, &gateway));
    QCOMPARE(gateway.host, QStringLiteral("before"));
    QCOMPARE(int(gateway.port), 8888);
}

QTEST_APPLESS_MAIN(GatewayAddressTest)
#include "tst_gateway_address.moc"
