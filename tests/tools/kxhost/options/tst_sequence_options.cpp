#include "kxhost/options/sequence_options.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

QString faultOf(const char* arguments, SequenceOptions* options)
{
    QCommandLineParser parser;
    addConnectionOptions(&parser);
    addSequenceOptions(&parser);
    parser.parse(QString::fromLatin1(arguments).split(QLatin1Char(' ')));
    QString error;
    return parseSequenceOptions(parser, options, &error) ? QString() : error;
}

} // namespace

class SequenceOptionsTest : public QObject
{
    Q_OBJECT

private slots:
    void allAreRead();
    void aCheckNeedsNoLine();
    void faults_data();
    void faults();
};

void SequenceOptionsTest::allAreRead()
{
    SequenceOptions options;
    QCOMPARE(faultOf("kxhost filling.kxs --simulate --station 3 --tags a.csv --tags b.csv "
                     "--word-order high --junit report.xml --max-words 16",
                     &options),
             QString());
    QCOMPARE(options.file, QStringLiteral("filling.kxs"));
    QCOMPARE(options.tagsFiles, (QStringList{"a.csv", "b.csv"}));
    QCOMPARE(options.report, QStringLiteral("report.xml"));
    QVERIFY(options.order.order == WordOrder::HighFirst);
    QVERIFY(!options.checks);
    QVERIFY(options.connection.simulate);
    QCOMPARE(options.connection.station, 3);
    QCOMPARE(options.connection.session.maxWords, 16);
}

void SequenceOptionsTest::aCheckNeedsNoLine()
{
    SequenceOptions options;
    QCOMPARE(faultOf("kxhost filling.kxs --check --station 3 --max-words 16 --json", &options),
             QString());
    QVERIFY(options.checks);
    QVERIFY(options.connection.json);
    QCOMPARE(options.connection.station, 3);
    QCOMPARE(options.connection.session.maxWords, 16);
}

void SequenceOptionsTest::faults_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("fault");
    QTest::newRow("no file") << "kxhost --simulate"
                             << "nothing to run; name the file of a sequence";
    QTest::newRow("two files") << "kxhost a.kxs b.kxs --simulate"
                               << "b.kxs: unexpected; one sequence is run at a time";
    QTest::newRow("no line") << "kxhost a.kxs"
                             << "no line; name one with --port or --tcp, or use --simulate";
    QTest::newRow("a report without name") << "kxhost a.kxs --simulate --junit="
                                           << "--junit: needs the name of a file";
    QTest::newRow("a report of a check")
        << "kxhost a.kxs --check --junit report.xml"
        << "--junit: has no use with --check, which does nothing to report of";
    QTest::newRow("a report in place of the sequence") << "kxhost a.kxs --simulate --junit ./a.kxs"
                                                       << "--junit ./a.kxs: is the sequence itself";
    QTest::newRow("a wrong station of a check")
        << "kxhost a.kxs --check --station 0"
        << "--station 0: must be a whole number from 1 to 247";
}

void SequenceOptionsTest::faults()
{
    QFETCH(QString, arguments);
    SequenceOptions options;
    QTEST(faultOf(qPrintable(arguments), &options), "fault");
}

QTEST_GUILESS_MAIN(SequenceOptionsTest)
#include "tst_sequence_options.moc"
