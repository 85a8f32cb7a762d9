#include "kxpanel/project/connection_json.h"

#include <QtCore/QJsonDocument>

using namespace kxpanel;

class ConnectionJsonTest : public QObject
{
    Q_OBJECT

private slots:
    void whatIsReadIsWritten_data();
    void whatIsReadIsWritten();
    void usualValuesAreLeftOut();
    void readsSettings();
    void fixedLengthsGoBeforeALimit();
    void aWrongLimitIsRefused_data();
    void aWrongLimitIsRefused();
};

namespace
{

QJsonObject objectOf(const QByteArray& text)
{
    return QJsonDocument::fromJson(text).object();
}

} // namespace

void ConnectionJsonTest::whatIsReadIsWritten_data()
{
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char* name, const char* text) {
        QTest::newRow(name) << QByteArray(text);
    };
    row("nothing", "{}");
    row("a port", R"({"port": "/dev/ttyUSB0", "baud": 115200, "parity": "even", "stop-bits": 2})");
    row("odd parity", R"({"port": "ttyS1", "parity": "odd"})");
    row("a transceiver", R"({"port": "a", "rs485": "on", "low-latency": "no"})");
    row("its times", R"({"port": "a", "rs485": "rts-before:2,rts-after:3,rts-low"})");
    row("a gateway", R"({"tcp": "gateway:8888", "station": 7})");
    row("Modbus TCP", R"({"tcp": "[::1]:1502", "protocol": "tcp"})");
    row("Modbus TCP that waits", R"({"tcp": "a:502", "protocol": "tcp", "settle": 100})");
    row("simulated", R"({"simulate": true})");
    row("times and counts", R"({"simulate": true, "timeout": 300, "settle": 0, "quiet": 5,
        "retries": 5, "reopen": 60, "max-words": 16, "max-bits": 100})");
    row("a limit", R"({"port": "a", "longest-request": 40, "max-bits": 640})");
}

void ConnectionJsonTest::whatIsReadIsWritten()
{
    QFETCH(QByteArray, text);
    const QJsonObject object = objectOf(text);
    kx::ConnectionOptions options;
    QJsonObject extra;
    QStringList faults;
    QVERIFY2(parseConnectionJson(object, &options, &extra, &faults),
             qPrintable(faults.join(QLatin1Char('\n'))));
    QCOMPARE(extra, QJsonObject());
    QCOMPARE(connectionJson(options, extra), object);
}

void ConnectionJsonTest::usualValuesAreLeftOut()
{
    kx::ConnectionOptions options;
    QJsonObject extra;
    QStringList faults;
    QVERIFY(parseConnectionJson(
        objectOf(R"({"simulate": false, "port": "", "baud": 9600, "max-words": "auto"})"), &options,
        &extra, &faults));
    QCOMPARE(connectionJson(options, extra), QJsonObject());
    QVERIFY(!options.simulate);
}

void ConnectionJsonTest::readsSettings()
{
    kx::ConnectionOptions options;
    QJsonObject extra;
    QStringList faults;
    QVERIFY(parseConnectionJson(objectOf(R"({"tcp": "a", "protocol": "tcp", "timeout": 300,
                                             "reopen": 5, "max-words": 16, "data-bits": 8})"),
                                &options, &extra, &faults));
    QCOMPARE(options.gateway.port, quint16(502));
    QCOMPARE(options.session.exchange.settle, 0);
    QCOMPARE(options.session.exchange.replyTimeout, 300);
    QCOMPARE(options.patience, 5000);
    QCOMPARE(options.session.maxWords, 16);
    QVERIFY(!options.session.choosesLengths);
}

void ConnectionJsonTest::fixedLengthsGoBeforeALimit()
{
    kx::ConnectionOptions options;
    QJsonObject extra;
    QStringList faults;
    QVERIFY(parseConnectionJson(objectOf(R"({"max-words": 16, "longest-request": 40})"), &options,
                                &extra, &faults));
    QCOMPARE(options.session.maxWords, 16);
    QCOMPARE(connectionJson(options, extra), objectOf(R"({"max-words": 16})"));
}

void ConnectionJsonTest::aWrongLimitIsRefused_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("none") << QByteArray("0");
    QTest::newRow("more than a request can ask for") << QByteArray("126");
    QTest::newRow("half a register") << QByteArray("1.5");
    QTest::newRow("a text") << QByteArray(R"("40")");
}

void ConnectionJsonTest::aWrongLimitIsRefused()
{
    QFETCH(QByteArray, value);
    kx::ConnectionOptions options;
    QJsonObject extra;
    QStringList faults;
    QVERIFY(!parseConnectionJson(objectOf("{\"longest-request\": " + value + "}"), &options, &extra,
                                 &faults));
    QCOMPARE(faults,
             QStringList("connection.longest-request: must be a whole number from 1 to 125"));
}

QTEST_GUILESS_MAIN(ConnectionJsonTest)
#include "tst_connection_json.moc"
