// A timer of a simulated controller, scan by scan of 10 ms.

#include "contact_fixture.h"
#include "kxsim/programme/timer.h"

#include <QtTest/QTest>

using kxsim::PresetContact;
using kxsim::Timer;

namespace
{

PresetContact timer(const char* text)
{
    PresetContact parsed;
    QString error;
    if (!kxsim::parseTimer(QString::fromLatin1(text), &parsed, &error))
        qFatal("%s", qPrintable(error));
    return parsed;
}

} // namespace

class TimerTest : public QObject
{
    Q_OBJECT

private:
    ContactFixture m_controller;

private slots:
    void init() { m_controller = ContactFixture(); }

    void itRisesEvery100Milliseconds();
    void itClosesItsContactAtThePresetAndStays();
    void itsInputStartsAndResetsIt();
    void zeroStartsItAgain();
    void itGoesOnFromAWrittenValue();
    void aWrittenContactResetsOrEndsIt();
    void aValueBeyondThePresetStays();
    void itBeginsWithWhatTheMemoryHolds();
};

void TimerTest::itRisesEvery100Milliseconds()
{
    Timer t5(timer("T5=50"), &m_controller.memory);
    run(&t5, 9);
    QCOMPARE(m_controller.value("TV", 5), 0);
    run(&t5, 1);
    QCOMPARE(m_controller.value("TV", 5), 1);
    run(&t5, 89);
    QCOMPARE(m_controller.value("TV", 5), 9);
    run(&t5, 1);
    QCOMPARE(m_controller.value("TV", 5), 10);
    QCOMPARE(m_controller.value("TV", 4), 0);
}

void TimerTest::itClosesItsContactAtThePresetAndStays()
{
    Timer t5(timer("T5=3"), &m_controller.memory);
    run(&t5, 29);
    QCOMPARE(m_controller.value("TV", 5), 2);
    QCOMPARE(m_controller.value("T", 5), 0);
    run(&t5, 1);
    QCOMPARE(m_controller.value("TV", 5), 3);
    QCOMPARE(m_controller.value("T", 5), 1);
    run(&t5, 1000);
    QCOMPARE(m_controller.value("TV", 5), 3);
    QCOMPARE(m_controller.value("T", 5), 1);
}

void TimerTest::itsInputStartsAndResetsIt()
{
    Timer t5(timer("T5=3/M7"), &m_controller.memory);
    run(&t5, 50);
    QCOMPARE(m_controller.value("TV", 5), 0);
    m_controller.set("M", 7, 1);
    run(&t5, 1); // sees it
    run(&t5, 29);
    QCOMPARE(m_controller.value("TV", 5), 2);
    run(&t5, 1);
    QCOMPARE(m_controller.value("TV", 5), 3);
    QCOMPARE(m_controller.value("T", 5), 1);
    m_controller.set("M", 7, 0);
    run(&t5, 1);
    QCOMPARE(m_controller.value("TV", 5), 0);
    QCOMPARE(m_controller.value("T", 5), 0);
}

void TimerTest::zeroStartsItAgain()
{
    Timer t5(timer("T5=3"), &m_controller.memory);
    run(&t5, 35);
    m_controller.set("TV", 5, 0);
    run(&t5, 1); // takes it on
    QCOMPARE(m_controller.value("T", 5), 0);
    run(&t5, 9);
    QCOMPARE(m_controller.value("TV", 5), 0);
    run(&t5, 1);
    QCOMPARE(m_controller.value("TV", 5), 1);
}

void TimerTest::itGoesOnFromAWrittenValue()
{
    Timer t5(timer("T5=50"), &m_controller.memory);
    run(&t5, 15);
    m_controller.set("TV", 5, 48);
    run(&t5, 1 + 9);
    QCOMPARE(m_controller.value("TV", 5), 48);
    run(&t5, 1);
    QCOMPARE(m_controller.value("TV", 5), 49);
    run(&t5, 10);
    QCOMPARE(m_controller.value("T", 5), 1);
}

void TimerTest::aWrittenContactResetsOrEndsIt()
{
    Timer t5(timer("T5=3"), &m_controller.memory);
    run(&t5, 5);
    m_controller.set("T", 5, 1);
    run(&t5, 1);
    QCOMPARE(m_controller.value("TV", 5), 3);
    QCOMPARE(m_controller.value("T", 5), 1);
    m_controller.set("T", 5, 0);
    run(&t5, 1);
    QCOMPARE(m_controller.value("TV", 5), 0);
    QCOMPARE(m_controller.value("T", 5), 0);
    run(&t5, 30);
    QCOMPARE(m_controller.value("T", 5), 1);
}

void TimerTest::aValueBeyondThePresetStays()
{
    Timer t5(timer("T5=3"), &m_controller.memory);
    m_controller.set("TV", 5, 40000);
    run(&t5, 100);
    QCOMPARE(m_controller.value("TV", 5), 40000);
    QCOMPARE(m_controller.value("T", 5), 1);
}

void TimerTest::itBeginsWithWhatTheMemoryHolds()
{
    m_controller.set("TV", 5, 2);
    m_controller.set("T", 5, 1); // does not suit it
    Timer t5(timer("T5=3"), &m_controller.memory);
    QCOMPARE(m_controller.value("T", 5), 0);
    run(&t5, 9);
    QCOMPARE(m_controller.value("TV", 5), 2);
    run(&t5, 1);
    QCOMPARE(m_controller.value("TV", 5), 3);
}

QTEST_APPLESS_MAIN(TimerTest)

#include "tst_timer.moc"
