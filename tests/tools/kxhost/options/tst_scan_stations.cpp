// Stations as a user lists them.

#include "kxhost/options/scan_stations.h"

#include <QtTest/QTest>

using namespace kx;

class ScanStationsTest : public QObject
{
    Q_OBJECT

private slots:
    void aListIsRead_data();
    void aListIsRead();
    void allStations();
    void aWrongListIsRefused_data();
    void aWrongListIsRefused();
};

void ScanStationsTest::aListIsRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("stations");
    QTest::newRow("one") << "5" << QList<int>{5};
    QTest::newRow("a range") << "3-5" << QList<int>{3, 4, 5};
    QTest::newRow("a range of one") << "3-3" << QList<int>{3};
    QTest::newRow("both, in any order, each once") << "9,2-4,3,1" << QList<int>{1, 2, 3, 4, 9};
    QTest::newRow("the highest") << "247" << QList<int>{247};
}

void ScanStationsTest::aListIsRead()
{
    QFETCH(QString, text);
    QList<int> stations;
    QString error;
    QVERIFY2(parseStations(text, &stations, &error), qPrintable(error));
    QTEST(stations, "stations");
}

void ScanStationsTest::allStations()
{
    QList<int> stations;
    QString error;
    QVERIFY(parseStations(QLatin1String("1-247"), &stations, &error));
    QCOMPARE(static_cast<int>(stations.size()), 247);
    QCOMPARE(stations.first(), 1);
    QCOMPARE(stations.last(), 247);
}

void ScanStationsTest::aWrongListIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("part");
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("the broadcast station") << "0"
                                           << "0";
    QTest::newRow("past the last") << "1,248"
                                   << "248";
    QTest::newRow("a range from 0") << "0-5"
                                    << "0-5";
    QTest::newRow("a range past the last") << "240-250"
                                           << "240-250";
    QTest::newRow("backwards") << "5-3"
                               << "5-3";
    QTest::newRow("an open range") << "5-"
                                   << "5-";
    QTest::newRow("an empty part") << "1,,2"
                                   << "";
    QTest::newRow("letters") << "a"
                             << "a";
    QTest::newRow("a blank") << "1, 2"
                             << " 2";
}

void ScanStationsTest::aWrongListIsRefused()
{
    QFETCH(QString, text);
    QFETCH(QString, part);
    QList<int> stations;
    QString error;
    QVERIFY(!parseStations(text, &stations, &error));
    QCOMPARE(error, QString::fromLatin1("--stations %1: '%2' is not a station (1 to 247) or a "
                                        "range such as 1-20")
                        .arg(text, part));
}

QTEST_APPLESS_MAIN(ScanStationsTest)
#include "tst_scan_stations.moc"
