// Sequences on simulated controllers, in virtual time.

#include "panel/sequence/sequence_run.h"
#include "second_clock.h"
#include "sequence_fixture.h"
#include "tools/panel/jobs/polling_run.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

const qint64 MILLISECOND = 1000; // microseconds

const char* nameOf(StepOutcome outcome)
{
    switch (outcome) {
    case StepOutcome::Passed:
        return "passed";
    case StepOutcome::Failed:
        return "failed";
    default:
        return "skipped";
    }
}

/// A sequence at work on stations 1 and 2.
class Bench
{
public:
    explicit Bench(const QByteArray& text)
        : m_sequence(sequenceOf(text)),
          m_clock(&m_polling.run().clock()),
          run(&m_polling.session(), m_sequence, &m_clock)
    {
        m_polling.session().watch(QList<AddressRange>());
        QObject::connect(&run, &SequenceRun::stepFinished, [this](const StepResult& result) {
            results << result;
            const QString behind = result.reason.isEmpty() ? result.shown : result.reason;
            texts << QStringLiteral("%1 %2 %3")
                         .arg(m_sequence.steps.at(result.step).line)
                         .arg(QLatin1String(nameOf(result.outcome)), behind)
                         .trimmed();
        });
        QObject::connect(&run, &SequenceRun::finished, [this] { ++ends; });
    }

    void set(const char* assignment)
    {
        QString error;
        if (!m_polling.run().line().stations().preset(assignmentOf(assignment), &error))
            qFatal("%s", qPrintable(error));
    }
    void setAfter(int milliseconds, const char* assignment)
    {
        m_polling.run().clock().after(milliseconds * MILLISECOND,
                                      [this, assignment] { set(assignment); });
    }
    void after(int milliseconds, const std::function<void()>& event)
    {
        m_polling.run().clock().after(milliseconds * MILLISECOND, event);
    }
    /// Whether it came to its end.
    bool toItsEnd()
    {
        if (ends == 0)
            run.start();
        return m_polling.until([this] { return ends > 0; });
    }
    QList<quint32> memory(const char* range) { return m_polling.memory(range); }
    const QStringList& asked() const { return m_polling.asked(); }
    PollingRun& polling() { return m_polling; }
    SecondClock& clock() { return m_clock; }

private:
    PollingRun m_polling;
    Sequence m_sequence;
    SecondClock m_clock;

public:
    SequenceRun run;
    QList<StepResult> results;
    QStringList texts; ///< "2 passed 7", "3 failed the reason"
    int ends = 0;
};

} // namespace

class SequenceRunTest : public QObject
{
    Q_OBJECT

private slots:
    void stepsAreDoneInTheirOrder();
    void outcomes_data();
    void outcomes();
    void whatIsExpectedIsReadAnew();
    void aWaitEndsWhenItIsMet();
    void aWaitEndsInTime();
    void anAnswerThatIsLateDoesNotCount();
    void aBusyProgramMakesNoWaitLonger();
    void theTimeOfAWaitEndsNoOtherStep();
    void aPauseTakesItsTime();
    void oneBitOfAWordIsWritten();
    void theFirstFailureSkipsTheRest();
    void allOfFinallyIsDone();
    void anInterruptGoesOnWithFinally_data();
    void anInterruptGoesOnWithFinally();
    void anInterruptDoesNotEndFinally();
    void aSessionThatEndsFailsWhatIsLeft();
    void whatIsReadIsTold();
};

void SequenceRunTest::stepsAreDoneInTheirOrder()
{
    Bench bench("write pump = on\nexpect pump = on\nwrite \"Pump running\" = on\n");
    QVERIFY(bench.toItsEnd());
    QCOMPARE(bench.texts, (QStringList{"1 passed", "2 passed 1", "3 passed"}));
    // Function 5, coil 8; function 1, coil 8, 1 coil; station 2, function 5, coil 2005.
    QCOMPARE(bench.asked(),
             (QStringList{"01 05 00 08 FF 00", "01 01 00 08 00 01", "02 05 07 D5 FF 00"}));
    QVERIFY(!bench.run.hasFailed());
    QCOMPARE(bench.ends, 1);
}

void SequenceRunTest::outcomes_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("expected") << QByteArray("expect level = 7") << "1 passed 7";
    QTest::newRow("not expected") << QByteArray("expect level > 7")
                                  << "1 failed level (D7@1) is 7, expected > 7";
    QTest::newRow("with a unit") << QByteArray("expect pressure in 4..4.1")
                                 << "1 failed pressure (D100@1) is 4.2 bar, "
                                    "expected in 4..4.1";
    QTest::newRow("at the edge of a tolerance")
        << QByteArray("expect pressure = 4.1 +- 0.1") << "1 passed 4.2 bar";
    QTest::newRow("a float of two registers")
        << QByteArray("expect D400/float = 12.5") << "1 passed 12.5";
    QTest::newRow("nobody answers") << QByteArray("expect D7@9 = 7") << "1 failed D7@9: no reply";
    QTest::newRow("nobody confirms") << QByteArray("write D7@9 = 7") << "1 failed D7@9: no reply";
    QTest::newRow("a wait that nobody answers")
        << QByteArray("wait D7@9 = 7 within 1min") << "1 failed D7@9: no reply";
    QTest::newRow("a wait shorter than a request") << QByteArray("wait level = 7 within 1ms")
                                                   << "1 failed level (D7@1) was not read in time, "
                                                      "expected = 7";
}

void SequenceRunTest::outcomes()
{
    QFETCH(QByteArray, line);
    Bench bench(line);
    // 12.5 is 0x41480000, the low word first.
    for (const char* const preset : {"D7@1=7", "D100@1=42", "D400@1=0,0x4148"})
        bench.set(preset);
    QVERIFY(bench.toItsEnd());
    QFETCH(QString, outcome);
    QCOMPARE(bench.texts, QStringList{outcome});
    QCOMPARE(bench.run.hasFailed(), !outcome.startsWith(QLatin1String("1 passed")));
}

void SequenceRunTest::whatIsExpectedIsReadAnew()
{
    Bench bench("expect level = 7\nexpect level = 8");
    bench.set("D7@1=7");
    connect(&bench.run, &SequenceRun::stepFinished, this, [&] { bench.set("D7@1=8"); });
    QVERIFY(bench.toItsEnd());
    QCOMPARE(bench.texts, (QStringList{"1 passed 7", "2 passed 8"}));
}

void SequenceRunTest::aWaitEndsWhenItIsMet()
{
    Bench bench("wait level >= 8 within 1s");
    bench.set("D7@1=7");
    bench.setAfter(103, "D7@1=8");
    QVERIFY(bench.toItsEnd());
    QCOMPARE(bench.texts, QStringList{"1 passed 8"});
    // With the first request behind the change.
    const qint64 took = bench.results.first().microseconds;
    QVERIFY2(took > 103 * MILLISECOND && took < 130 * MILLISECOND,
             qPrintable(QString::number(took)));
    for (const QString& request : bench.asked())
        QCOMPARE(request, QStringLiteral("01 03 00 07 00 01"));
    QVERIFY(bench.asked().size() > 3);
}

void SequenceRunTest::aWaitEndsInTime()
{
    Bench bench("wait level = 8 within 333ms\nfinally\nexpect level = 7");
    bench.set("D7@1=7");
    QVERIFY(bench.toItsEnd());
    QCOMPARE(bench.results.first().microseconds, 333 * MILLISECOND);
    QCOMPARE(bench.texts, (QStringList{"1 failed level (D7@1) is 7, expected = 8", "3 passed 7"}));
}

// The value is there in time, and its reply is not.
void SequenceRunTest::anAnswerThatIsLateDoesNotCount()
{
    Bench bench("wait level = 8 within 4ms");
    bench.set("D7@1=8");
    QVERIFY(bench.toItsEnd());
    QCOMPARE(bench.results.first().microseconds, 4 * MILLISECOND);
    QCOMPARE(bench.texts.first(),
             QStringLiteral("1 failed level (D7@1) was not read in time, expected = 8"));
}

// The value comes behind the time, and its answer before the wake-up.
void SequenceRunTest::aBusyProgramMakesNoWaitLonger()
{
    Bench bench("wait level = 8 within 100ms");
    bench.clock().late = 500 * MILLISECOND;
    bench.setAfter(101, "D7@1=8");
    QVERIFY(bench.toItsEnd());
    QCOMPARE(bench.texts, QStringList{"1 failed level (D7@1) is 0, expected = 8"});
    QVERIFY(bench.results.first().microseconds < 200 * MILLISECOND);
}

void SequenceRunTest::theTimeOfAWaitEndsNoOtherStep()
{
    Bench bench("wait level = 0 within 100ms\nexpect D7@9 = 0");
    QVERIFY(bench.toItsEnd());
    QCOMPARE(bench.texts, (QStringList{"1 passed 0", "2 failed D7@9: no reply"}));
}

void SequenceRunTest::aPauseTakesItsTime()
{
    Bench bench("pause 200ms\npause 1us");
    QVERIFY(bench.toItsEnd());
    QCOMPARE(bench.results.at(0).microseconds, 200 * MILLISECOND);
    QCOMPARE(bench.results.at(1).microseconds, 1);
    QVERIFY(bench.asked().isEmpty());
}

void SequenceRunTest::oneBitOfAWordIsWritten()
{
    Bench bench("write D50.4 = on\nwrite D51.0 = off\nwrite D50.1@9 = on");
    bench.set("D50@1=0x8001,0xFFFF");
    QVERIFY(bench.toItsEnd());
    QCOMPARE(bench.memory("D50:2@1"), (QList<quint32>{0x8011, 0xFFFE}));
    QCOMPARE(bench.texts, (QStringList{"1 passed", "2 passed", "3 failed D50.1@9: no reply"}));
}

void SequenceRunTest::theFirstFailureSkipsTheRest()
{
    Bench bench("expect level = 8\nwrite level = 9\nexpect level = 9");
    QVERIFY(bench.toItsEnd());
    QCOMPARE(bench.texts,
             (QStringList{"1 failed level (D7@1) is 0, expected = 8", "2 skipped", "3 skipped"}));
    QCOMPARE(bench.memory("D7@1"), QList<quint32>{0});
    QVERIFY(bench.run.hasFailed());
}

void SequenceRunTest::allOfFinallyIsDone()
{
    Bench bench("write pump = on\nfinally\nwrite D7@9 = 1\nexpect level = 1\nwrite pump = off");
    QVERIFY(bench.toItsEnd());
    QCOMPARE(bench.texts, (QStringList{"1 passed", "3 failed D7@9: no reply",
                                       "4 failed level (D7@1) is 0, expected = 1", "5 passed"}));
    QCOMPARE(bench.memory("Y10@1"), QList<quint32>{0});
    QVERIFY(bench.run.hasFailed());
}

void SequenceRunTest::anInterruptGoesOnWithFinally_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("of a pause") << QByteArray("pause 10s") << "1 failed interrupted";
    QTest::newRow("of a wait") << QByteArray("wait level = 8 within 10s")
                               << "1 failed level (D7@1): interrupted";
    QTest::newRow("of a station that does not answer")
        << QByteArray("expect D7@9 = 8") << "1 failed D7@9: interrupted";
    QTest::newRow("of a write that is not confirmed")
        << QByteArray("write D7@9 = 8") << "1 failed D7@9: interrupted";
}

void SequenceRunTest::anInterruptGoesOnWithFinally()
{
    QFETCH(QByteArray, line);
    Bench bench(line + "\nwrite level = 9\nfinally\nwrite pump = on");
    bench.after(100, [&] { QVERIFY(bench.run.interrupt()); });
    QVERIFY(bench.toItsEnd());
    QFETCH(QString, outcome);
    QCOMPARE(bench.texts, (QStringList{outcome, "2 skipped", "4 passed"}));
    QCOMPARE(bench.results.first().microseconds, 100 * MILLISECOND);
    QCOMPARE(bench.memory("Y10@1"), QList<quint32>{1});
    QVERIFY(bench.run.hasFailed());
}

void SequenceRunTest::anInterruptDoesNotEndFinally()
{
    Bench bench("pause 1ms\nfinally\npause 200ms\nwrite pump = on");
    bool wasTaken = true;
    bench.after(100, [&] { wasTaken = bench.run.interrupt(); });
    QVERIFY(bench.toItsEnd());
    QVERIFY(!wasTaken);
    QCOMPARE(bench.texts, (QStringList{"1 passed", "3 passed", "4 passed"}));
    QVERIFY(!bench.run.hasFailed());
}

void SequenceRunTest::aSessionThatEndsFailsWhatIsLeft()
{
    Bench bench("wait level = 8 within 10s\nfinally\nwrite pump = on\npause 1s\nexpect level = 1");
    bench.after(100, [&] { bench.polling().session().stop(); });
    QVERIFY(bench.toItsEnd());
    QCOMPARE(bench.texts.size(), 4);
    QCOMPARE(bench.texts.at(1), QStringLiteral("3 failed pump (Y10@1): the session does not run"));
    for (const StepResult& result : bench.results)
        QVERIFY(result.outcome == StepOutcome::Failed);
}

void SequenceRunTest::whatIsReadIsTold()
{
    Bench bench("pause 1ms\nwait level = 8 within 1s");
    bench.set("D7@1=7");
    bench.setAfter(50, "D7@1=8");
    QStringList shown;
    QList<int> started;
    connect(&bench.run, &SequenceRun::stepStarted, this, [&](int step) { started << step; });
    connect(&bench.run, &SequenceRun::valueRead, this, [&](int step, const QString& value) {
        QCOMPARE(step, 1);
        shown << value;
    });
    QVERIFY(bench.toItsEnd());
    QCOMPARE(started, (QList<int>{0, 1}));
    QCOMPARE(shown.first(), QStringLiteral("7"));
    QCOMPARE(shown.last(), QStringLiteral("8"));
    QCOMPARE(shown.count(QStringLiteral("8")), 1);
}

QTEST_GUILESS_MAIN(SequenceRunTest)
#include "tst_sequence_run.moc"
