// What changes in simulated controllers by itself, all of it together.

#include "kxsim/programme/programme.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using kxsim::Programme;
using kxsim::Stations;
using std::chrono::milliseconds;

namespace
{

template <typename Part>
Part parsed(bool (*parse)(const QString&, Part*, QString*), const char* text)
{
    Part part;
    QString error;
    if (!parse(QString::fromLatin1(text), &part, &error))
        qFatal("%s", qPrintable(error));
    return part;
}

int value(Stations* stations, const char* type, int address, int station = 1)
{
    return static_cast<int>(stations->memory(station)->value(findRegisterType(type), address));
}

/// Adds a wave of X3 that goes on every 100 ms from 50 ms on, a counter of it, a timer of
/// M0, which motion turns on in each odd second, and a timer in motion's place.
bool prepare(Programme* programme)
{
    QString error;
    const bool isFine = programme->addCounter(parsed(kxsim::parseCounter, "C3=10/X3"), &error)
                        && programme->addTimer(parsed(kxsim::parseTimer, "T1=9/M0"), &error)
                        && programme->addTimer(parsed(kxsim::parseTimer, "T0=100"), &error)
                        && programme->addWave(parsed(kxsim::parseWave, "X3=0..1/100ms"), &error);
    programme->start(true);
    return isFine;
}

} // namespace

class ProgrammeTest : public QObject
{
    Q_OBJECT

private slots:
    void timersAndCountersSeeWavesAndMotion();
    void smallStepsEndWhereOneLargeStepEnds();
    void stationsHaveTheirOwn();
    void itIsStillWhenToldSo();
    void stepsAreNeededForWhatGoesOn();
    void whatCannotBeIsRefused_data();
    void whatCannotBeIsRefused();
};

void ProgrammeTest::timersAndCountersSeeWavesAndMotion()
{
    Stations stations({1});
    Programme programme(&stations);
    QVERIFY(prepare(&programme));
    QVERIFY(programme.needsSteps());
    programme.advanceTo(milliseconds(49));
    QCOMPARE(value(&stations, "CV", 3), 0);
    programme.advanceTo(milliseconds(50));
    QCOMPARE(value(&stations, "CV", 3), 1);
    programme.advanceTo(milliseconds(899));
    QCOMPARE(value(&stations, "CV", 3), 9); // on at 50, 150, ... 850 ms
    QCOMPARE(value(&stations, "C", 3), 0);
    programme.advanceTo(milliseconds(950));
    QCOMPARE(value(&stations, "CV", 3), 10);
    QCOMPARE(value(&stations, "C", 3), 1);
    QCOMPARE(value(&stations, "TV", 1), 0);
    // M0 goes on at 1000 ms.
    programme.advanceTo(milliseconds(1899));
    QCOMPARE(value(&stations, "TV", 1), 8);
    QCOMPARE(value(&stations, "T", 1), 0);
    programme.advanceTo(milliseconds(1900));
    QCOMPARE(value(&stations, "TV", 1), 9);
    QCOMPARE(value(&stations, "T", 1), 1);
    // And off at 2000 ms.
    programme.advanceTo(milliseconds(2000));
    QCOMPARE(value(&stations, "TV", 1), 0);
    QCOMPARE(value(&stations, "T", 1), 0);
    // Motion's own timer would have begun again at 6000 ms.
    programme.advanceTo(milliseconds(7000));
    QCOMPARE(value(&stations, "TV", 0), 70);
    QCOMPARE(value(&stations, "T", 0), 0);
}

void ProgrammeTest::smallStepsEndWhereOneLargeStepEnds()
{
    Stations small({1});
    Stations large({1});
    Programme smallSteps(&small);
    Programme largeStep(&large);
    QVERIFY(prepare(&smallSteps));
    QVERIFY(prepare(&largeStep));
    for (int time = 0; time <= 1730; time += 7)
        smallSteps.advanceTo(milliseconds(time));
    smallSteps.advanceTo(milliseconds(1730));
    largeStep.advanceTo(milliseconds(1730));
    for (const char* const type : {"X", "M", "T", "C", "D", "CV", "TV"}) {
        for (int address = 0; address < 8; ++address)
            QCOMPARE(value(&small, type, address), value(&large, type, address));
    }
    QCOMPARE(value(&large, "TV", 1), 7);
    QCOMPARE(value(&large, "CV", 3), 10);
}

void ProgrammeTest::stationsHaveTheirOwn()
{
    Stations stations({1, 2});
    Programme programme(&stations);
    QString error;
    QVERIFY(programme.addTimer(parsed(kxsim::parseTimer, "T5=50/M5"), &error));
    QVERIFY(programme.addTimer(parsed(kxsim::parseTimer, "T6@2=50"), &error));
    programme.start(false);
    stations.memory(2)->setValue(findRegisterType("M"), 5, 1);
    programme.advanceTo(milliseconds(1010));
    QCOMPARE(value(&stations, "TV", 5, 1), 0);
    QCOMPARE(value(&stations, "TV", 5, 2), 10);
    QCOMPARE(value(&stations, "TV", 6, 1), 0);
    QCOMPARE(value(&stations, "TV", 6, 2), 10);
}

void ProgrammeTest::itIsStillWhenToldSo()
{
    Stations stations({1});
    Programme programme(&stations);
    programme.start(false);
    QVERIFY(!programme.needsSteps());
    programme.advanceTo(milliseconds(5000));
    QCOMPARE(value(&stations, "D", 0), 0);
    QCOMPARE(value(&stations, "TV", 0), 0);
}

void ProgrammeTest::stepsAreNeededForWhatGoesOn()
{
    Stations stations({1});
    Programme waves(&stations);
    QString error;
    QVERIFY(waves.addWave(parsed(kxsim::parseWave, "D9=0..9/1s"), &error));
    waves.start(false);
    QVERIFY(!waves.needsSteps()); // they are functions of time
    Programme timers(&stations);
    QVERIFY(timers.addTimer(parsed(kxsim::parseTimer, "T5=50"), &error));
    timers.start(false);
    QVERIFY(timers.needsSteps());
}

void ProgrammeTest::whatCannotBeIsRefused_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a second timer") << "timer"
                                    << "T5=7"
                                    << "--timer T5: it has one already";
    QTest::newRow("a second counter") << "counter"
                                      << "C3=7/M1"
                                      << "--counter C3: it has one already";
    QTest::newRow("a timer elsewhere") << "timer"
                                       << "T9@2=7"
                                       << "T9@2: station 2 is not simulated";
    QTest::newRow("a wave of a timer") << "wave"
                                       << "TV5=0..1/1s"
                                       << "--wave TV5: it is preset, or a timer's or counter's";
    QTest::newRow("a wave of a contact") << "wave"
                                         << "C3=0..1/1s"
                                         << "--wave C3: it is preset, or a timer's or counter's";
}

void ProgrammeTest::whatCannotBeIsRefused()
{
    QFETCH(QString, kind);
    QFETCH(QString, text);
    Stations stations({1});
    Programme programme(&stations);
    QString error;
    QVERIFY(programme.addTimer(parsed(kxsim::parseTimer, "T5=5"), &error));
    QVERIFY(programme.addCounter(parsed(kxsim::parseCounter, "C3=5/M0"), &error));
    const QByteArray bytes = text.toLatin1();
    if (kind == "timer")
        QVERIFY(!programme.addTimer(parsed(kxsim::parseTimer, bytes.constData()), &error));
    else if (kind == "counter")
        QVERIFY(!programme.addCounter(parsed(kxsim::parseCounter, bytes.constData()), &error));
    else
        QVERIFY(!programme.addWave(parsed(kxsim::parseWave, bytes.constData()), &error));
    QTEST(error, "expected");
}

QTEST_APPLESS_MAIN(ProgrammeTest)

#include "tst_programme.moc"
