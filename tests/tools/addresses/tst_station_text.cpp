// Stations as a panel's user types them.

#include "addresses/station_text.h"

#include <QtTest/QTest>

using namespace kx;

class StationTextTest : public QObject
{
    Q_OBJECT

private slots:
    void aStationIsRead_data();
    void aStationIsRead();
    void whatIsNoStationIsRefused_data();
    void whatIsNoStationIsRefused();
};

void StationTextTest::aStationIsRead_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("station");
    QTest::newRow("lowest") << "1" << 1;
    QTest::newRow("highest") << "247" << 247;
    QTest::newRow("leading zeros are not octal") << "010" << 10;
}

void StationTextTest::aStationIsRead()
{
    QFETCH(QString, typed);
    int station = -1;
    QVERIFY(parseStation(typed, &station));
    QTEST(station, "station");
}

void StationTextTest::whatIsNoStationIsRefused_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("nothing") << "";
    QTest::newRow("the broadcast") << "0";
    QTest::newRow("reserved") << "248";
    QTest::newRow("a plus sign") << "+5";
    QTest::newRow("a minus sign") << "-5";
    QTest::newRow("a blank in front") << " 5";
    QTest::newRow("a blank behind") << "5 ";
    QTest::newRow("a tab") << "\t5";
    QTest::newRow("a line end") << "5\n";
    QTest::newRow("hexadecimal") << "0x5";
    QTest::newRow("full-width") << QString::fromUtf8("\uFF15");
    QTest::newRow("an embedded NUL") << QString(QLatin1Char('5')) + QChar(0);
    QTest::newRow("larger than an int") << "4294967297";
}

void StationTextTest::whatIsNoStationIsRefused()
{
    QFETCH(QString, typed);
    int station = -1;
    QVERIFY(!parseStation(typed, &station));
    QCOMPARE(station, -1);
}

QTEST_APPLESS_MAIN(StationTextTest)
#include "tst_station_text.moc"
