#include "kxpanel/shell/window_options.h"

#include <QtTest/QTest>

using namespace kxpanel;

class WindowOptionsTest : public QObject
{
    Q_OBJECT

private slots:
    void withoutOptionsNothingIsConnected();
    void aLine();
    void files_data();
    void files();
    void whatIsWrong_data();
    void whatIsWrong();
    void theHelp();
    void theVersion();
};

void WindowOptionsTest::withoutOptionsNothingIsConnected()
{
    WindowOptions options;
    const CommandLineResult result = parseWindowOptions({}, &options);
    QVERIFY(result.showsWindow);
    QVERIFY(!options.connects);
    QCOMPARE(options.file, QString());
    QVERIFY(options.connection.session.choosesLengths); // as kxhost watch
}

void WindowOptionsTest::aLine()
{
    WindowOptions options;
    const CommandLineResult result = parseWindowOptions(
        {"--port", "/dev/ttyUSB0", "--baud", "19200", "-a", "3", "line3.csv"}, &options);
    QVERIFY(result.showsWindow);
    QVERIFY(options.connects);
    QCOMPARE(options.connection.port, QStringLiteral("/dev/ttyUSB0"));
    QCOMPARE(options.connection.timing.baud, 19200);
    QCOMPARE(options.connection.station, 3);
    QCOMPARE(options.file, QStringLiteral("line3.csv"));
}

void WindowOptionsTest::files_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("by itself") << QStringList{"a.kxpanel"};
    QTest::newRow("as an option") << QStringList{"--project", "a.kxpanel"};
    QTest::newRow("in one word") << QStringList{"--project=a.kxpanel"};
}

void WindowOptionsTest::files()
{
    QFETCH(QStringList, arguments);
    WindowOptions options;
    QVERIFY(parseWindowOptions(arguments, &options).showsWindow);
    QCOMPARE(options.file, QStringLiteral("a.kxpanel"));
    QVERIFY(!options.connects);
}

void WindowOptionsTest::whatIsWrong_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    QTest::newRow("an unknown option")
        << QStringList{"--speed", "9"}
        << "Unknown option 'speed'; kxpanel --help lists the options";
    QTest::newRow("an option of kxhost alone")
        << QStringList{"--simulate", "--json"}
        << "Unknown option 'json'; kxpanel --help lists the options";
    QTest::newRow("opening again, which a window always does")
        << QStringList{"--port", "a", "--reopen", "60"}
        << "Unknown option 'reopen'; kxpanel --help lists the options";
    QTest::newRow("two lines") << QStringList{"--simulate", "--tcp", "gateway"}
                               << "only one of --port, --tcp and --simulate can be used";
    QTest::newRow("a speed without a line")
        << QStringList{"--baud", "19200"}
        << "no line; name one with --port or --tcp, or use --simulate";
    QTest::newRow("a wrong speed") << QStringList{"--port", "a", "--baud", "fast"}
                                   << "--baud fast: must be a whole number from 1 to 4000000";
    QTest::newRow("two files") << QStringList{"a.kxpanel", "b.csv"}
                               << "b.csv: only one file can be opened";
    QTest::newRow("two files, one as an option")
        << QStringList{"b.csv", "--project", "a.kxpanel"} << "b.csv: only one file can be opened";
    QTest::newRow("no name") << QStringList{"--project", ""} << "--project: name a file";
}

void WindowOptionsTest::whatIsWrong()
{
    QFETCH(QStringList, arguments);
    WindowOptions options;
    const CommandLineResult result = parseWindowOptions(arguments, &options);
    QTEST(result.error, "error");
    QVERIFY(!result.showsWindow);
    QCOMPARE(result.output, QString());
}

void WindowOptionsTest::theHelp()
{
    WindowOptions options;
    const CommandLineResult result = parseWindowOptions({"--help"}, &options);
    QVERIFY(!result.showsWindow);
    QCOMPARE(result.error, QString());
    QVERIFY(result.output.startsWith(QStringLiteral("Usage: kxpanel [options] [FILE]\n")));
    for (const char* const text :
         {"--project <FILE>", "--port <PORT>", "--tcp <HOST[:PORT]>", "--simulate", "Examples:\n",
          "Exit codes: 0 fine, 2 wrong usage, 3 no display."})
        QVERIFY2(result.output.contains(QLatin1String(text)), text);
    QVERIFY(!result.output.contains(QStringLiteral("--json")));
}

void WindowOptionsTest::theVersion()
{
    WindowOptions options;
    const CommandLineResult result = parseWindowOptions({"--version"}, &options);
    QVERIFY(!result.showsWindow);
    QCOMPARE(result.output.section('\n', 0, 0), QStringLiteral("kxpanel " KX_VERSION));
    QVERIFY(result.output.contains(QStringLiteral("\nQt " QT_VERSION_STR "\n")));
}

QTEST_MAIN(WindowOptionsTest)
#include "tst_window_options.moc"
