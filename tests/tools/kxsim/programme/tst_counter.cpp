// A counter of a simulated controller, scan by scan of 10 ms.

#include "contact_fixture.h"
#include "kxsim/programme/counter.h"

#include <QtTest/QTest>

using kxsim::Counter;
using kxsim::PresetContact;

namespace
{

PresetContact counter(const char* text)
{
    PresetContact parsed;
    QString error;
    if (!kxsim::parseCounter(QString::fromLatin1(text), &parsed, &error))
        qFatal("%s", qPrintable(error));
    return parsed;
}

} // namespace

class CounterTest : public QObject
{
    Q_OBJECT

private:
    ContactFixture m_controller;

    void pulse(Counter* counted, int times)
    {
        for (int time = 0; time < times; ++time) {
            m_controller.set("X", 3, 1);
            run(counted, 2);
            m_controller.set("X", 3, 0);
            run(counted, 2);
        }
    }

private slots:
    void init() { m_controller = ContactFixture(); }

    void itCountsHowOftenItsInputGoesOn();
    void anInputThatWasOnDoesNotCount();
    void itClosesItsContactAtThePresetAndStays();
    void zeroResetsIt();
    void itGoesOnFromAWrittenValue();
    void aWrittenContactResetsOrEndsIt();
    void aLongCounterCarries();
};

void CounterTest::itCountsHowOftenItsInputGoesOn()
{
    Counter c3(counter("C3=10/X3"), &m_controller.memory);
    run(&c3, 5);
    QCOMPARE(m_controller.value("CV", 3), 0);
    m_controller.set("X", 3, 1);
    run(&c3, 1);
    QCOMPARE(m_controller.value("CV", 3), 1);
    run(&c3, 20);
    QCOMPARE(m_controller.value("CV", 3), 1);
    m_controller.set("X", 3, 0);
    run(&c3, 1);
    QCOMPARE(m_controller.value("CV", 3), 1);
    pulse(&c3, 4);
    QCOMPARE(m_controller.value("CV", 3), 5);
}

void CounterTest::anInputThatWasOnDoesNotCount()
{
    m_controller.set("X", 3, 1);
    Counter c3(counter("C3=10/X3"), &m_controller.memory);
    run(&c3, 5);
    QCOMPARE(m_controller.value("CV", 3), 0);
}

void CounterTest::itClosesItsContactAtThePresetAndStays()
{
    Counter c3(counter("C3=2/X3"), &m_controller.memory);
    pulse(&c3, 1);
    QCOMPARE(m_controller.value("C", 3), 0);
    pulse(&c3, 1);
    QCOMPARE(m_controller.value("CV", 3), 2);
    QCOMPARE(m_controller.value("C", 3), 1);
    pulse(&c3, 3);
    QCOMPARE(m_controller.value("CV", 3), 2);
    QCOMPARE(m_controller.value("C", 3), 1);
}

void CounterTest::zeroResetsIt()
{
    Counter c3(counter("C3=2/X3"), &m_controller.memory);
    pulse(&c3, 2);
    m_controller.set("CV", 3, 0);
    run(&c3, 1);
    QCOMPARE(m_controller.value("CV", 3), 0);
    QCOMPARE(m_controller.value("C", 3), 0);
    pulse(&c3, 1);
    QCOMPARE(m_controller.value("CV", 3), 1);
}

void CounterTest::itGoesOnFromAWrittenValue()
{
    Counter c3(counter("C3=100/X3"), &m_controller.memory);
    m_controller.set("CV", 3, 98);
    pulse(&c3, 1);
    QCOMPARE(m_controller.value("CV", 3), 99);
    QCOMPARE(m_controller.value("C", 3), 0);
    m_controller.set("CV", 3, 5000);
    pulse(&c3, 1);
    QCOMPARE(m_controller.value("CV", 3), 5000);
    QCOMPARE(m_controller.value("C", 3), 1);
}

void CounterTest::aWrittenContactResetsOrEndsIt()
{
    Counter c3(counter("C3=7/X3"), &m_controller.memory);
    pulse(&c3, 2);
    m_controller.set("C", 3, 1);
    run(&c3, 1);
    QCOMPARE(m_controller.value("CV", 3), 7);
    QCOMPARE(m_controller.value("C", 3), 1);
    m_controller.set("C", 3, 0);
    run(&c3, 1);
    QCOMPARE(m_controller.value("CV", 3), 0);
    QCOMPARE(m_controller.value("C", 3), 0);
}

void CounterTest::aLongCounterCarries()
{
    m_controller.set("32CV", 200, 65535);
    Counter c200(counter("C200=65536/X3"), &m_controller.memory);
    QCOMPARE(m_controller.value("C", 200), 0);
    pulse(&c200, 1);
    QCOMPARE(m_controller.value("32CV", 200), 65536);
    QCOMPARE(m_controller.value("C", 200), 1);
}

QTEST_APPLESS_MAIN(CounterTest)

#include "tst_counter.moc"
