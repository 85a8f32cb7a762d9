#include "kxhost/options/port_options.h"

#include <QtTest/QTest>

using namespace kx;

class PortOptionsTest : public QObject
{
    Q_OBJECT

private slots:
    void modes_data();
    void modes();
    void errors_data();
    void errors();

private:
    static bool read(const QByteArray& arguments, PortModes* modes, QString* error);
};

bool PortOptionsTest::read(const QByteArray& arguments, PortModes* modes, QString* error)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("port"), QString(), QStringLiteral("PORT")});
    addPortOptions(&parser);
    const QString words = QString::fromLatin1("test " + arguments);
    return parser.parse(words.split(QLatin1Char(' '))) && parsePortOptions(parser, modes, error);
}

void PortOptionsTest::modes_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<bool>("lowLatency");
    QTest::addColumn<bool>("rs485");
    QTest::addColumn<bool>("rtsLow");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    const auto row = [](const char* name, const char* arguments, bool low, bool rs485, bool rtsLow,
                        int before, int after) {
        QTest::newRow(name) << QByteArray(arguments) << low << rs485 << rtsLow << before << after;
    };
    row("nothing asked", "--port p", true, false, false, 0, 0);
    row("low latency", "--port p --low-latency yes", true, false, false, 0, 0);
    row("no low latency", "--port p --low-latency=no", false, false, false, 0, 0);
    row("RS-485", "--port p --rs485 on", true, true, false, 0, 0);
    row("one delay", "--port p --rs485=rts-after:3", true, true, false, 0, 3);
    row("all", "--port p --rs485 rts-low,rts-before:1000,rts-after:0", true, true, true, 1000, 0);
}

void PortOptionsTest::modes()
{
    QFETCH(QByteArray, arguments);
    PortModes modes;
    QString error;
    QVERIFY2(read(arguments, &modes, &error), qPrintable(error));
    QTEST(modes.lowLatency, "lowLatency");
    QTEST(modes.rs485, "rs485");
    QTEST(modes.rtsLowToSend, "rtsLow");
    QTEST(modes.rtsBefore, "before");
    QTEST(modes.rtsAfter, "after");
}

void PortOptionsTest::errors_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const char* arguments, const char* error) {
        QTest::newRow(name) << QByteArray(arguments) << QString::fromLatin1(error);
    };
    const auto mode = [](const char* name, const char* text) {
        QTest::newRow(name) << QByteArray("--port p --rs485=") + text
                            << QStringLiteral("--rs485 %1: must be on, or rts-before:MS, "
                                              "rts-after:MS (0 to 1000 milliseconds) and rts-low, "
                                              "separated by commas")
                                   .arg(QLatin1String(text));
    };
    row("neither yes nor no", "--port p --low-latency maybe",
        "--low-latency maybe: must be yes or no");
    row("no port", "--rs485 on", "--rs485 needs --port");
    mode("nothing", "");
    mode("unknown", "off");
    mode("a delay without a number", "rts-after:");
    mode("a delay with a sign", "rts-after:-1");
    mode("a delay too long", "rts-before:1001");
    mode("a delay with more behind it", "rts-after:1:2");
    mode("a comma at the end", "on,");
}

void PortOptionsTest::errors()
{
    QFETCH(QByteArray, arguments);
    PortModes modes;
    QString error;
    QVERIFY(!read(arguments, &modes, &error));
    QTEST(error, "error");
}

QTEST_GUILESS_MAIN(PortOptionsTest)
#include "tst_port_options.moc"
