#include "system/repeated_option.h"

#include <QtTest/QTest>

using namespace kx;

class RepeatedOptionTest : public QObject
{
    Q_OBJECT

private slots:
    void anOptionHasOneValue_data();
    void anOptionHasOneValue();
};

void RepeatedOptionTest::anOptionHasOneValue_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char* name, const char* arguments, const char* fault) {
        QTest::newRow(name) << QString::fromLatin1(arguments) << QString::fromLatin1(fault);
    };
    row("none", "D0", "");
    row("one", "--every 1s D0", "");
    row("its default and one", "--baud 19200", "");
    row("two values", "--every 1s D0 --every 2s", "--every is given twice, as 1s and as 2s");
    row("the same value twice", "--every=1s --every 1s", "--every is given twice, as 1s and as 1s");
    row("three values", "--every 1s --every 2s --every 3s",
        "--every is given twice, as 1s and as 2s");
    row("an empty value", "--every= --every=1s", "--every is given twice, as '' and as 1s");
    row("by its long name and then its short one", "--baud 1 -b 2",
        "--baud is given twice, as 1 and as 2");
    row("by its short name and then its long one", "-b1 --baud=2",
        "-b is given twice, as 1 and as 2");
    row("of two that are wrong the one that stands first",
        "--baud 1 --every 1s --every 2s --baud 2", "--baud is given twice, as 1 and as 2");
    row("a switch, which says the same again", "--json --json", "");
    row("one that may be repeated", "--only a --only b -o c", "");
    row("behind two dashes stand no options", "--every 1s -- --every 2s", "");
}

void RepeatedOptionTest::anOptionHasOneValue()
{
    QFETCH(QString, arguments);
    QCommandLineParser parser;
    parser.addOption({"every", "", "TIME"});
    parser.addOption({{"b", "baud"}, "", "BAUD", "9600"});
    parser.addOption({{"o", "only"}, "", "NAME"});
    parser.addOption({"json", ""});
    QVERIFY(parser.parse(QStringList("program") + arguments.split(QLatin1Char(' '))));
    QTEST(repeatedOption(parser, {"o", "only"}), "fault");
}

QTEST_APPLESS_MAIN(RepeatedOptionTest)
#include "tst_repeated_option.moc"
