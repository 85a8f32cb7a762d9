#include "kxhost/views/scan_progress.h"

#include <QtTest/QTest>

using namespace kx;

class ScanProgressTest : public QObject
{
    Q_OBJECT

private slots:
    void theBarShowsHowFar_data();
    void theBarShowsHowFar();
    void aSearchShowsItsSetting();
    void theTimeLeftIsThatOfTheRest();
    void noRowIsWiderThanATerminal();
    void theSummaryCounts();
};

void ScanProgressTest::theBarShowsHowFar_data()
{
    QTest::addColumn<int>("done");
    QTest::addColumn<qint64>("milliseconds");
    QTest::addColumn<QString>("bar");
    const auto row = [](const char* name, int done, int milliseconds, const char* bar) {
        QTest::newRow(name) << done << qint64(milliseconds) << QString::fromLatin1(bar);
    };
    row("not begun", 0, 3, "[........................] 0/80 stations, 3 answered");
    row("begun", 1, 200, "[........................] 1/80 stations, 3 answered, 16 s left");
    row("half", 40, 8000, "[############............] 40/80 stations, 3 answered, 8 s left");
    row("slow", 40, 60001, "[############............] 40/80 stations, 3 answered, 1 min 1 s left");
    row("done", 80, 9000, "[########################] 80/80 stations, 3 answered");
}

void ScanProgressTest::theBarShowsHowFar()
{
    QFETCH(int, done);
    QFETCH(qint64, milliseconds);
    QTEST(scanBar({done, 80, 3, milliseconds}), "bar");
}

void ScanProgressTest::aSearchShowsItsSetting()
{
    QCOMPARE(searchBar("38400 8E1", {30, 120, 0, 6000}),
             QString("[######..................] 38400 8E1 30/120, 0 answered, 18 s left"));
}

void ScanProgressTest::theTimeLeftIsThatOfTheRest()
{
    QCOMPARE(timeLeft({0, 80, 0, 500}), qint64(0));
    QCOMPARE(timeLeft({20, 80, 0, 5000}), qint64(15000));
    QCOMPARE(timeLeft({80, 80, 0, 5000}), qint64(0));
    // 24 settings of 247 stations at a minute each are four days.
    QCOMPARE(timeLeft({1, 5928, 0, 60000}), qint64(355620000));
}

void ScanProgressTest::noRowIsWiderThanATerminal()
{
    const ScanProgress longest = {5927, 5928, 0, 5927 * qint64(60000)};
    QVERIFY(searchBar("115200 8N1", longest).size() < 80);
    QVERIFY(scanBar({246, 247, 246, 246 * qint64(60000)}).size() < 80);
}

void ScanProgressTest::theSummaryCounts()
{
    QCOMPARE(scanSummary(2, 247, 0), QString::fromLatin1("2 of 247 stations answered"));
    QCOMPARE(scanSummary(0, 1, 0), QString::fromLatin1("0 of 1 station answered"));
    QCOMPARE(scanSummary(1, 3, 244), QString::fromLatin1("1 of 3 stations answered; stopped before "
                                                         "the other 244 had been asked"));
}

QTEST_APPLESS_MAIN(ScanProgressTest)
#include "tst_scan_progress.moc"
