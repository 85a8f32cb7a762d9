// Timers and counters as people write them.

#include "kxsim/programme/preset_contact.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using kxsim::parseCounter;
using kxsim::parseTimer;
using kxsim::PresetContact;

class PresetContactTest : public QObject
{
    Q_OBJECT

private slots:
    void aTimerIsRead();
    void aTimerNeedsNoInput();
    void aCounterIsRead();
    void valuesHaveTheirTypes_data();
    void valuesHaveTheirTypes();
    void aWrongTimerIsRefused_data();
    void aWrongTimerIsRefused();
    void aWrongCounterIsRefused_data();
    void aWrongCounterIsRefused();
};

void PresetContactTest::aTimerIsRead()
{
    PresetContact timer;
    QString error;
    QVERIFY2(parseTimer("T255@2=32767/M10239", &timer, &error), qPrintable(error));
    QCOMPARE(timer.contact.type, findRegisterType("T"));
    QCOMPARE(timer.contact.address, 255);
    QCOMPARE(timer.contact.station, 2);
    QCOMPARE(timer.preset, 32767u);
    QCOMPARE(timer.input.type, findRegisterType("M"));
    QCOMPARE(timer.input.address, 10239);
}

void PresetContactTest::aTimerNeedsNoInput()
{
    PresetContact timer;
    QString error;
    QVERIFY2(parseTimer("T0=1", &timer, &error), qPrintable(error));
    QCOMPARE(timer.contact.station, -1);
    QCOMPARE(timer.preset, 1u);
    QVERIFY(!timer.input.type);
}

void PresetContactTest::aCounterIsRead()
{
    PresetContact counter;
    QString error;
    QVERIFY2(parseCounter("C3=10/X17", &counter, &error), qPrintable(error));
    QCOMPARE(counter.contact.type, findRegisterType("C"));
    QCOMPARE(counter.contact.address, 3);
    QCOMPARE(counter.preset, 10u);
    QCOMPARE(counter.input.type, findRegisterType("X"));
    QCOMPARE(counter.input.address, 15); // octal 17
}

void PresetContactTest::valuesHaveTheirTypes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the last short counter") << "C199=32767/X0"
                                            << "CV";
    QTest::newRow("the first long counter") << "C200=2147483647/X0"
                                            << "32CV";
    QTest::newRow("the last long counter") << "C255=1/X0"
                                           << "32CV";
}

void PresetContactTest::valuesHaveTheirTypes()
{
    QFETCH(QString, text);
    PresetContact counter;
    PresetContact timer;
    QString error;
    QVERIFY2(parseCounter(text, &counter, &error), qPrintable(error));
    QTEST(QString::fromLatin1(counter.valueType()->name), "expected");
    QVERIFY2(parseTimer("T255=1", &timer, &error), qPrintable(error));
    QCOMPARE(timer.valueType(), findRegisterType("TV"));
}

void PresetContactTest::aWrongTimerIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fault"); // behind "--timer TEXT: "
    const QString form = "write CONTACT=PRESET[/BIT], such as T5=50, or T5=50/M5";
    const QString range = "the preset must be 1 to 32767";
    const QString bit = "%1: the input must be one bit, of the same station";
    QTest::newRow("a contact alone") << "T5" << form;
    QTest::newRow("a preset that is no number") << "T5=5s" << form;
    QTest::newRow("a negative preset") << "T5=-1" << form;
    QTest::newRow("an empty input") << "T5=5/" << form;
    QTest::newRow("no preset") << "T5=0" << range;
    QTest::newRow("a preset beyond signed words") << "T5=32768" << range;
    QTest::newRow("a preset beyond 64 bits") << "T5=99999999999999999999" << range;
    QTest::newRow("its value for its contact") << "TV5=5"
                                               << "the contact must be one T";
    QTest::newRow("two contacts") << "T5:2=5"
                                  << "the contact must be one T";
    QTest::newRow("past the timers") << "T256=5"
                                     << "out of range; the addresses are T0 to T255 (decimal)";
    QTest::newRow("a word as input") << "T5=5/D3" << bit.arg("D3");
    QTest::newRow("two inputs") << "T5=5/M3:2" << bit.arg("M3:2");
    QTest::newRow("an input elsewhere") << "T5=5/M3@2" << bit.arg("M3@2");
    QTest::newRow("an input past the addresses")
        << "T5=5/S1024"
        << "S1024: out of range; the addresses are S0 to S1023 (decimal)";
}

void PresetContactTest::aWrongTimerIsRefused()
{
    QFETCH(QString, text);
    QFETCH(QString, fault);
    PresetContact timer;
    QString error;
    QVERIFY(!parseTimer(text, &timer, &error));
    QCOMPARE(error, QStringLiteral("--timer %1: %2").arg(text, fault));
    QCOMPARE(timer.preset, 0u);
}

void PresetContactTest::aWrongCounterIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fault"); // behind "--counter TEXT: "
    QTest::newRow("no input") << "C3=10"
                              << "write CONTACT=PRESET/BIT, such as C3=10/X3";
    QTest::newRow("a timer") << "T3=10/X3"
                             << "the contact must be one C";
    QTest::newRow("beyond a short counter") << "C199=32768/X3"
                                            << "the preset must be 1 to 32767";
    QTest::newRow("beyond a long counter") << "C200=2147483648/X3"
                                           << "the preset must be 1 to 2147483647";
}

void PresetContactTest::aWrongCounterIsRefused()
{
    QFETCH(QString, text);
    QFETCH(QString, fault);
    PresetContact counter;
    QString error;
    QVERIFY(!parseCounter(text, &counter, &error));
    QCOMPARE(error, QStringLiteral("--counter %1: %2").arg(text, fault));
    QCOMPARE(counter.preset, 0u);
}

QTEST_APPLESS_MAIN(PresetContactTest)

#include "tst_preset_contact.moc"
