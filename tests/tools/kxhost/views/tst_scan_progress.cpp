#include "kxhost/views/scan_progress.h"

#include <QtTest/QTest>

using namespace kx;

class ScanProgressTest : public QObject
{
    Q_OBJECT

private slots:
    void theBarShowsHowFar_data();
    void theBarShowsHowFar();
    void theSummaryCounts();
};

void ScanProgressTest::theBarShowsHowFar_data()
{
    QTest::addColumn<int>("done");
    QTest::addColumn<QString>("bar");
    QTest::newRow("begun") << 1
                           << "[........................................] 1/80 stations, 3 "
                              "answered";
    QTest::newRow("half") << 40
                          << "[####################....................] 40/80 stations, 3 "
                             "answered";
    QTest::newRow("done") << 80
                          << "[########################################] 80/80 stations, 3 "
                             "answered";
}

void ScanProgressTest::theBarShowsHowFar()
{
    QFETCH(int, done);
    QTEST(scanBar(done, 80, 3), "bar");
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
