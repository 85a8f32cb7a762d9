// Waves in the memories of a line's stations.

#include "kxsim/programme/waves.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using kxsim::Stations;
using kxsim::Wave;
using kxsim::Waves;
using std::chrono::milliseconds;

namespace
{

Wave wave(const char* text)
{
    Wave parsed;
    QString error;
    if (!kxsim::parseWave(QString::fromLatin1(text), &parsed, &error))
        qFatal("%s", qPrintable(error));
    return parsed;
}

quint32 value(Stations* stations, int station, const char* type, int address)
{
    return stations->memory(station)->value(findRegisterType(type), address);
}

} // namespace

class WavesTest : public QObject
{
    Q_OBJECT

private slots:
    void aWaveReachesTheStationsItNames();
    void allAddressesOfARangeShowIt();
    void timesMayComeInAnyOrder();
    void negativeValuesAreTwosComplement();
    void aHostsValueLastsUntilTheNextLook();
    void aValueSetLaterStaysStill();
    void whatCannotBeIsRefused_data();
    void whatCannotBeIsRefused();
};

void WavesTest::aWaveReachesTheStationsItNames()
{
    Stations stations({1, 2});
    Waves waves(&stations);
    QString error;
    QVERIFY2(waves.add(wave("D10=0..9/10s"), &error), qPrintable(error));
    QVERIFY2(waves.add(wave("D11@2=10..19/10s"), &error), qPrintable(error));
    waves.showAt(milliseconds(3000));
    QCOMPARE(value(&stations, 1, "D", 10), 3u);
    QCOMPARE(value(&stations, 2, "D", 10), 3u);
    QCOMPARE(value(&stations, 1, "D", 11), 0u);
    QCOMPARE(value(&stations, 2, "D", 11), 13u);
}

void WavesTest::allAddressesOfARangeShowIt()
{
    Stations stations({1});
    Waves waves(&stations);
    QString error;
    QVERIFY2(waves.add(wave("32CV254:2=0..99999/100s"), &error), qPrintable(error));
    waves.showAt(milliseconds(70001));
    QCOMPARE(value(&stations, 1, "32CV", 253), 0u);
    QCOMPARE(value(&stations, 1, "32CV", 254), 70001u);
    QCOMPARE(value(&stations, 1, "32CV", 255), 70001u);
}

void WavesTest::timesMayComeInAnyOrder()
{
    Stations stations({1});
    Waves waves(&stations);
    QString error;
    QVERIFY2(waves.add(wave("X17=0..1/2s"), &error), qPrintable(error));
    waves.showAt(milliseconds(1000));
    QCOMPARE(value(&stations, 1, "X", 15), 1u);
    waves.showAt(milliseconds(999));
    QCOMPARE(value(&stations, 1, "X", 15), 0u);
}

void WavesTest::negativeValuesAreTwosComplement()
{
    Stations stations({1});
    Waves waves(&stations);
    QString error;
    QVERIFY2(waves.add(wave("D1=-2..2/5s"), &error), qPrintable(error));
    QVERIFY2(waves.add(wave("32CV200=-2..2/5s"), &error), qPrintable(error));
    waves.showAt(milliseconds(0));
    QCOMPARE(value(&stations, 1, "D", 1), 0xFFFEu);
    QCOMPARE(value(&stations, 1, "32CV", 200), 0xFFFFFFFEu);
}

void WavesTest::aHostsValueLastsUntilTheNextLook()
{
    Stations stations({1});
    Waves waves(&stations);
    QString error;
    QVERIFY2(waves.add(wave("D1=5..5/1s"), &error), qPrintable(error));
    stations.memory(1)->setValue(findRegisterType("D"), 1, 77);
    waves.showAt(milliseconds(0));
    QCOMPARE(value(&stations, 1, "D", 1), 5u);
}

void WavesTest::aValueSetLaterStaysStill()
{
    Stations stations({1});
    Waves waves(&stations);
    QString error;
    QVERIFY2(waves.add(wave("D1=5..5/1s"), &error), qPrintable(error));
    stations.memory(1)->preset(findRegisterType("D"), 1, 77);
    waves.showAt(milliseconds(0));
    QCOMPARE(value(&stations, 1, "D", 1), 77u);
}

void WavesTest::whatCannotBeIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a station not simulated") << "D20@3=0..1/1s"
                                             << "D20@3: station 3 is not simulated";
    QTest::newRow("a second wave") << "D8:3@2=0..1/1s"
                                   << "--wave D10: it has a wave already";
    QTest::newRow("a preset") << "D4:2=0..1/1s"
                              << "--wave D5: it is preset, or a timer's or counter's";
}

void WavesTest::whatCannotBeIsRefused()
{
    QFETCH(QString, text);
    Stations stations({1, 2});
    stations.memory(2)->preset(findRegisterType("D"), 5, 0);
    Waves waves(&stations);
    QString error;
    QVERIFY2(waves.add(wave("D10:2=0..1/1s"), &error), qPrintable(error));
    QVERIFY(!waves.add(wave(qPrintable(text)), &error));
    QTEST(error, "expected");
}

QTEST_APPLESS_MAIN(WavesTest)

#include "tst_waves.moc"
