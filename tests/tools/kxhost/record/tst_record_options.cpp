#include "kxhost/options/record_options.h"

#include "kxhost/options/length_options.h"

#include <QtTest/QTest>

using namespace kx;

class RecordOptionsTest : public QObject
{
    Q_OBJECT

private slots:
    void samples();
    void changes();
    void wrongOptions_data();
    void wrongOptions();

private:
    static bool parse(const QString& words, RecordOptions* options, QString* error);
};

bool RecordOptionsTest::parse(const QString& words, RecordOptions* options, QString* error)
{
    QCommandLineParser parser;
    addRecordOptions(&parser);
    parser.parse(QStringList(QStringLiteral("kxhost")) + words.split(QLatin1Char(' ')));
    options->connection.session = settingsForReading();
    return parseRecordOptions(parser, options, error);
}

void RecordOptionsTest::samples()
{
    RecordOptions options;
    QString error;
    QVERIFY2(parse(QStringLiteral("D100:4 X10@7 --to a.csv --every 1s --for 8h --rotate 100M "
                                  "--interval 200ms --station 3 --simulate"),
                   &options, &error),
             qPrintable(error));
    QCOMPARE(options.recording.path, QStringLiteral("a.csv"));
    QCOMPARE(options.recording.rotation.bytes, 104857600);
    QCOMPARE(options.recording.every, 1000);
    QCOMPARE(options.duration, 28800000);
    QCOMPARE(options.cycles, 0);
    QCOMPARE(options.tags.size(), 2);
    QCOMPARE(options.tags.first().range.station, 3);
    QCOMPARE(options.tags.first().interval, 200);
    QCOMPARE(options.connection.simulatedStations, QList<int>({3, 7}));
}

void RecordOptionsTest::changes()
{
    RecordOptions options;
    QString error;
    QVERIFY2(
        parse(QStringLiteral("D0 --to a.sqlite --changes --cycles 9 --simulate"), &options, &error),
        qPrintable(error));
    QVERIFY(!options.recording.rotation.isSet());
    QCOMPARE(options.recording.every, 0);
    QCOMPARE(options.duration, 0);
    QCOMPARE(options.cycles, 9);
}

void RecordOptionsTest::wrongOptions_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("fault");
    QTest::newRow("no file") << "D0 --every 1s"
                             << "no file; name one with --to, such as --to line3.csv";
    QTest::newRow("another kind of file")
        << "D0 --to a.xls --every 1s"
        << "--to a.xls: must end in .csv, .sqlite, .sqlite3 or .db";
    QTest::newRow("neither samples nor changes")
        << "D0 --to a.csv"
        << "when? Use either --every TIME, such as --every 1s, or --changes";
    QTest::newRow("samples and changes")
        << "D0 --to a.csv --every 1s --changes"
        << "when? Use either --every TIME, such as --every 1s, or --changes";
    QTest::newRow("too often") << "D0 --to a.csv --every 99ms"
                               << "--every 99ms: must be a time from 100ms to 24h, such as 1s";
    QTest::newRow("too seldom") << "D0 --to a.csv --every 25h"
                                << "--every 25h: must be a time from 100ms to 24h, such as 1s";
    QTest::newRow("no time") << "D0 --to a.csv --every soon"
                             << "--every soon: must be a time from 100ms to 24h, such as 1s";
    QTest::newRow("an end that is none")
        << "D0 --to a.csv --changes --for ever"
        << "--for ever: must be a time from 100ms to 8784h, such as 8h";
    QTest::newRow("a rotation that is none")
        << "D0 --to a.csv --changes --rotate 1s"
        << "--rotate 1s: must be a size from 64k, such as 100M, or a time from 1min to 366d, such "
           "as 1h";
    QTest::newRow("no cycle") << "D0 --to a.csv --changes --cycles 0"
                              << "--cycles 0: must be a whole number from 1 to 2147483647";
    QTest::newRow("nothing to record")
        << "--to a.csv --changes"
        << "nothing to record; name addresses such as D100:4, or a tags file";
    QTest::newRow("an address that does not exist")
        << "X9 --to a.csv --changes"
        << "X9: '9' is not an octal number; the addresses are X0 to X377 (octal)";
    QTest::newRow("too long for a request")
        << "32CV200 --to a.csv --changes --max-words 1"
        << "32CV200: a 32CV takes 2 registers; raise --max-words, which is 1";
    QTest::newRow("a float too long for a request")
        << "D100/float --to a.csv --changes --max-words 1"
        << "D100: a value takes 2 registers; raise --max-words, which is 1";
}

void RecordOptionsTest::wrongOptions()
{
    QFETCH(QString, words);
    QFETCH(QString, fault);
    RecordOptions options;
    QString error;
    QVERIFY(!parse(words + QStringLiteral(" --simulate"), &options, &error));
    QCOMPARE(error, fault);
}

QTEST_APPLESS_MAIN(RecordOptionsTest)
#include "tst_record_options.moc"
