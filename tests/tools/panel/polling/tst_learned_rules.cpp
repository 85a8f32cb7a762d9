#include "panel/polling/learned_rules.h"

#include "tools/panel/plan/range_texts.h"

#include <QtTest/QTest>

using namespace kx;

class LearnedRulesTest : public QObject
{
    Q_OBJECT

private slots:
    void aLongRequestThatIsRefusedIsHalved();
    void coilsHaveALimitOfTheirOwn();
    void whatIsShortEnoughIsNotHalved();
    void noLimitIsBelowAValue();
    void whatWasAnsweredIsNotTooLong();
    void turnaroundsAreTakenOverWhenTheyAreFarOff_data();
    void turnaroundsAreTakenOverWhenTheyAreFarOff();
    void aWaitThatWasAssumedIsFarOff();
    void aMillisecondIsNotWorthAnotherPlan();
    void turnaroundsAreSmoothed();
};

namespace
{

AddressRange range(const char* text)
{
    return rangesOf(QLatin1String(text)).first();
}

} // namespace

void LearnedRulesTest::aLongRequestThatIsRefusedIsHalved()
{
    LearnedRules learned{ReadRules()};
    for (const int most : {62, 31, 16}) {
        QVERIFY(learned.onRefusal(range(most == 62   ? "D0:125@3"
                                        : most == 31 ? "D0:62@3"
                                                     : "D0:31@3"),
                                  false));
        QCOMPARE(learned.rules().of(3).maxWords, most);
    }
    QCOMPARE(learned.rules().of(3).maxBits, 2000);
    QCOMPARE(learned.rules().of(4).maxWords, 125); // another station
}

void LearnedRulesTest::coilsHaveALimitOfTheirOwn()
{
    LearnedRules learned{ReadRules()};
    QVERIFY(learned.onRefusal(range("M0:2000@3"), false));
    QCOMPARE(learned.rules().of(3).maxBits, 1000);
    QCOMPARE(learned.rules().of(3).maxWords, 125);
}

// Sixteen registers, or 128 coils, any controller answers: it must be the addresses.
void LearnedRulesTest::whatIsShortEnoughIsNotHalved()
{
    LearnedRules learned{ReadRules()};
    QVERIFY(!learned.onRefusal(range("D0:16@3"), false));
    QVERIFY(!learned.onRefusal(range("M0:128@3"), false));
    QVERIFY(learned.onRefusal(range("D0:16@3"), true)); // the gap's, perhaps
    QVERIFY(!learned.rules().of(3).maySpanGaps);
    QCOMPARE(learned.rules().of(3).maxWords, 125);
    QVERIFY(!learned.onRefusal(range("D0:16@3"), true)); // nothing is left to try
}

void LearnedRulesTest::noLimitIsBelowAValue()
{
    LearnedRules learned{ReadRules()};
    AddressRange asked = range("D0:62@3");
    asked.width = 40;
    QVERIFY(learned.onRefusal(asked, false));
    QCOMPARE(learned.rules().of(3).maxWords, 40);
    QVERIFY(!learned.onRefusal(range("D0x40@3"), false)); // the value alone
    QCOMPARE(learned.rules().of(3).maxWords, 40);
    QVERIFY(learned.onRefusal(range("D100:40@3"), false)); // others are halved on
    QCOMPARE(learned.rules().of(3).maxWords, 20);
}

void LearnedRulesTest::whatWasAnsweredIsNotTooLong()
{
    LearnedRules learned{ReadRules()};
    learned.onAnswer(range("D0:60@3"), 5000);
    QVERIFY(!learned.onRefusal(range("D500:60@3"), false));
    QVERIFY(learned.onRefusal(range("D500:61@3"), false));
    QCOMPARE(learned.rules().of(3).maxWords, 30);
    QVERIFY(learned.onRefusal(range("M0:1000@3"), false)); // coils are another matter
    QCOMPARE(learned.rules().of(3).maxBits, 500);
}

void LearnedRulesTest::turnaroundsAreTakenOverWhenTheyAreFarOff_data()
{
    QTest::addColumn<qint64>("measured"); // microseconds; planned with 5000
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("as planned") << qint64(5000) << false;
    QTest::newRow("a quarter more") << qint64(6250) << false;
    QTest::newRow("more than that") << qint64(6251) << true;
    QTest::newRow("a quarter less") << qint64(3750) << false;
    QTest::newRow("less than that") << qint64(3749) << true;
    QTest::newRow("none") << qint64(0) << true;
    QTest::newRow("a clock that went back") << qint64(-7) << true;
}

void LearnedRulesTest::turnaroundsAreTakenOverWhenTheyAreFarOff()
{
    QFETCH(qint64, measured);
    QFETCH(bool, isTaken);
    LearnedRules learned{ReadRules()};
    QVERIFY(!learned.takeTurnarounds()); // none yet
    learned.onAnswer(range("D0@3"), measured);
    QCOMPARE(learned.takeTurnarounds(), isTaken);
    QCOMPARE(learned.rules().of(3).turnaround, isTaken ? qMax(measured, qint64(0)) : qint64(5000));
    QVERIFY(!learned.takeTurnarounds()); // once
}

// At 2400 baud 14584 us count, the frame gap, until a reply has come sooner.
void LearnedRulesTest::aWaitThatWasAssumedIsFarOff()
{
    LearnedRules learned{ReadRules()};
    LineTiming line;
    line.baud = 2400;
    learned.setLine(line);
    learned.onAnswer(range("D0@2"), 11000); // not by a quarter
    QVERIFY(!learned.takeTurnarounds());
    QVERIFY(!learned.rules().of(2).isMeasured);
    learned.onAnswer(range("D0@3"), 5000);
    QVERIFY(learned.takeTurnarounds());
    QCOMPARE(learned.rules().of(3).turnaround, qint64(5000));
    QVERIFY(learned.rules().of(3).isMeasured);
    QVERIFY(!learned.takeTurnarounds());
}

void LearnedRulesTest::aMillisecondIsNotWorthAnotherPlan()
{
    LearnedRules learned{ReadRules()};
    learned.onAnswer(range("D0@3"), 0);
    QVERIFY(learned.takeTurnarounds());
    learned.onAnswer(range("D0@3"), 8000); // 1000, and far more than 0
    QVERIFY(!learned.takeTurnarounds());
    learned.onAnswer(range("D0@3"), 8000); // 1875
    QVERIFY(learned.takeTurnarounds());
}

// Each counts an eighth.
void LearnedRulesTest::turnaroundsAreSmoothed()
{
    LearnedRules learned{ReadRules()};
    learned.onAnswer(range("D0@3"), 5000);
    learned.onAnswer(range("D0@3"), 13000); // 5000 + 8000 / 8 = 6000
    QVERIFY(!learned.takeTurnarounds());
    learned.onAnswer(range("D0@3"), 14000); // 6000 + 8000 / 8 = 7000
    QVERIFY(learned.takeTurnarounds());
    QCOMPARE(learned.rules().of(3).turnaround, qint64(7000));
}

QTEST_APPLESS_MAIN(LearnedRulesTest)
#include "tst_learned_rules.moc"
