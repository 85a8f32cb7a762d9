#include "panel/sequence/line_reader.h"

#include <QtTest/QTest>

using namespace kx;

class LineReaderTest : public QObject
{
    Q_OBJECT

private slots:
    void ends_data();
    void ends();
    void names_data();
    void names();
    void values_data();
    void values();
    void comparisons_data();
    void comparisons();
    void theRest_data();
    void theRest();
    void columnsCountCharacters();
};

void LineReaderTest::ends_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("ends");
    QTest::newRow("nothing") << "" << true;
    QTest::newRow("blanks") << " \t\r" << true;
    QTest::newRow("a comment") << "# pump" << true;
    QTest::newRow("a comment behind blanks") << "  #pump" << true;
    QTest::newRow("a word") << " pump" << false;
}

void LineReaderTest::ends()
{
    QFETCH(QString, line);
    QTEST(LineReader(line).atEnd(), "ends");
}

void LineReaderTest::names_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("name");   // or the fault
    QTest::addColumn<QString>("behind"); // what is left
    QTest::newRow("up to a blank") << "pump = 1"
                                   << "pump"
                                   << "= 1";
    QTest::newRow("up to a comparison") << "pump=1"
                                        << "pump"
                                        << "=1";
    QTest::newRow("up to a comparison of two characters") << "pump>=1"
                                                          << "pump"
                                                          << ">=1";
    QTest::newRow("an address with a format") << "D100:2@3/u32,high*0.1+5 = 1,2"
                                              << "D100:2@3/u32,high*0.1+5"
                                              << "= 1,2";
    QTest::newRow("quoted, with blanks") << "\"Pump running\" = 1"
                                         << "Pump running"
                                         << "= 1";
    QTest::newRow("quoted, with a comparison") << "\"a=b\"=1"
                                               << "a=b"
                                               << "=1";
    QTest::newRow("quoted, with a quote") << "\"3\"\" pipe\" = 1"
                                          << "3\" pipe"
                                          << "= 1";
    QTest::newRow("quoted, with what begins no comment") << "\"a # b\" = 1"
                                                         << "a # b"
                                                         << "= 1";
    QTest::newRow("not closed") << "\"Pump = 1"
                                << "a quote is not closed"
                                << "";
    QTest::newRow("none") << "= 1"
                          << ""
                          << "= 1";
    QTest::newRow("a comment") << "# pump"
                               << ""
                               << "";
    QTest::newRow("a name that holds a #") << "pump#2 = 1"
                                           << "pump#2"
                                           << "= 1";
}

void LineReaderTest::names()
{
    QFETCH(QString, line);
    LineReader reader(line);
    LinePart part;
    QString fault;
    QTEST(reader.takeName(&part, &fault) ? part.text : fault, "name");
    QCOMPARE(part.isQuoted, line.startsWith(QLatin1Char('"')));
    QTEST(reader.takeRest().text, "behind");
}

void LineReaderTest::values_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("behind");
    QTest::newRow("up to a blank") << "4.5 within 1s"
                                   << "4.5"
                                   << "within 1s";
    QTest::newRow("up to a comma") << "1,2"
                                   << "1"
                                   << ",2";
    QTest::newRow("up to two dots") << "1.5..2"
                                    << "1.5"
                                    << "..2";
    QTest::newRow("up to a tolerance") << "7+-0.5"
                                       << "7"
                                       << "+-0.5";
    QTest::newRow("a negative one") << "-7+-0.5"
                                    << "-7"
                                    << "+-0.5";
    QTest::newRow("with an exponent") << "1e+20+-1"
                                      << "1e+20"
                                      << "+-1";
    QTest::newRow("quoted") << "\"a, b..c\" # text"
                            << "a, b..c"
                            << "";
    QTest::newRow("not closed") << "\"a"
                                << "a quote is not closed"
                                << "";
    QTest::newRow("none") << ",2"
                          << ""
                          << ",2";
    QTest::newRow("a comment") << " # 7"
                               << ""
                               << "";
}

void LineReaderTest::values()
{
    QFETCH(QString, line);
    LineReader reader(line);
    LinePart part;
    QString fault;
    QTEST(reader.takeValue(&part, &fault) ? part.text : fault, "value");
    QTEST(reader.takeRest().text, "behind");
}

void LineReaderTest::comparisons_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("comparison");
    for (const char* const comparison : {"=", "!=", "<", "<=", ">", ">="})
        QTest::newRow(comparison) << QString::fromLatin1(" %1-5").arg(QLatin1String(comparison))
                                  << QString::fromLatin1(comparison);
    QTest::newRow("a word") << "in 1..5"
                            << "";
    QTest::newRow("none") << ""
                          << "";
}

void LineReaderTest::comparisons()
{
    QFETCH(QString, line);
    LineReader reader(line);
    QTEST(reader.takeComparison(), "comparison");
}

void LineReaderTest::theRest_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("rest");
    QTest::newRow("with blanks inside and around") << "  my pumps.csv \r"
                                                   << "my pumps.csv";
    QTest::newRow("with a comment") << "10 s # long enough"
                                    << "10 s";
    QTest::newRow("with a # inside of a word") << "pumps#2.csv"
                                               << "pumps#2.csv";
    QTest::newRow("none") << " # nothing"
                          << "";
}

void LineReaderTest::theRest()
{
    QFETCH(QString, line);
    LineReader reader(line);
    QTEST(reader.takeRest().text, "rest");
    QVERIFY(reader.atEnd());
}

void LineReaderTest::columnsCountCharacters()
{
    // A pump that two units of UTF-16 hold, one of them here for each.
    LineReader reader(QString::fromUtf8("wait  \xF0\x9F\x92\xA7 x > 4"));
    QCOMPARE(reader.takeWord().column, 1);
    QCOMPARE(reader.takeWord().column, 7);
    QCOMPARE(reader.takeWord().column, 9);
    QCOMPARE(reader.column(), 11);
}

QTEST_GUILESS_MAIN(LineReaderTest)
#include "tst_line_reader.moc"
