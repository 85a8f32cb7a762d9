#include "kxhost/options/listen_options.h"

#include <QtTest/QTest>

using namespace kx;

class ListenOptionsTest : public QObject
{
    Q_OBJECT

private slots:
    void usualValues();
    void allValues();
    void wrongOptions_data();
    void wrongOptions();

private:
    static bool parse(const char* words, ListenOptions* options, QString* error);
};

/// `words` with blanks between them.
bool ListenOptionsTest::parse(const char* words, ListenOptions* options, QString* error)
{
    QCommandLineParser parser;
    addListenOptions(&parser);
    parser.parse(QStringList(QString::fromLatin1("kxhost"))
                 + QString::fromLatin1(words).split(QLatin1Char(' ')));
    return parseListenOptions(parser, options, error);
}

void ListenOptionsTest::usualValues()
{
    ListenOptions options;
    QString error;
    QVERIFY(parse("--port ttyUSB0", &options, &error));
    QCOMPARE(options.port, QString::fromLatin1("ttyUSB0"));
    QCOMPARE(options.timing.baud, 9600);
    QCOMPARE(options.timing.bitsPerCharacter(), 10);
    QCOMPARE(options.parity, 'N');
    QCOMPARE(options.replyTimeout, 1000);
    QCOMPARE(options.seconds, 0);
    QCOMPARE(options.captureFile, QString());
    QCOMPARE(options.frames || options.json, false);
}

void ListenOptionsTest::allValues()
{
    ListenOptions options;
    QString error;
    QVERIFY(parse("-p ttyUSB0 -b 19200 --parity even --data-bits 8 --stop-bits 2 -t 300 "
                  "--seconds 60 --pcap line.pcap --frames --json",
                  &options, &error));
    QCOMPARE(options.timing.baud, 19200);
    QCOMPARE(options.timing.bitsPerCharacter(), 12);
    QCOMPARE(options.parity, 'E');
    QCOMPARE(options.replyTimeout, 300);
    QCOMPARE(options.seconds, 60);
    QCOMPARE(options.captureFile, QString::fromLatin1("line.pcap"));
    QCOMPARE(options.frames && options.json, true);
}

void ListenOptionsTest::wrongOptions_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const char* words, const char* error) {
        QTest::newRow(name) << QByteArray(words) << QString::fromLatin1(error);
    };
    row("no port", "--json", "no line; name the port to listen at with --port");
    row("an address", "--port a D100", "D100: unexpected; listening shows all that is on the line");
    row("a capture without a name", "--port a --pcap=", "--pcap: needs the name of a file");
    row("no time", "--port a --seconds 0", "--seconds 0: must be a whole number from 1 to 604800");
    row("longer than a week", "--port a --seconds 604801",
        "--seconds 604801: must be a whole number from 1 to 604800");
    row("no time-out", "--port a --timeout 0",
        "--timeout 0: must be a whole number of milliseconds from 1 to 60000");
}

void ListenOptionsTest::wrongOptions()
{
    QFETCH(QByteArray, words);
    ListenOptions options;
    QString error;
    QVERIFY(!parse(words.constData(), &options, &error));
    QTEST(error, "error");
}

QTEST_APPLESS_MAIN(ListenOptionsTest)
#include "tst_listen_options.moc"
