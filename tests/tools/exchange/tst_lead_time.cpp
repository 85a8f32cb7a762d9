#include "exchange/lead_time.h"

#include <QtTest/QTest>

using namespace kx;

class LeadTimeTest : public QObject
{
    Q_OBJECT

private slots:
    void learnedFromHowLateItGotUp_data();
    void learnedFromHowLateItGotUp();
    void comesToWhatIsUsual();
};

void LeadTimeTest::learnedFromHowLateItGotUp_data()
{
    QTest::addColumn<QList<qint64>>("late"); // nanoseconds, one after the other
    QTest::addColumn<qint64>("lead");
    const auto row = [](const char* situation, const QList<qint64>& late, qint64 lead) {
        QTest::newRow(situation) << late << lead;
    };
    row("nothing is known", {}, 30000);
    row("half of what is more", {130000}, 80000);                // 30000 + 100000 / 2
    row("and of what is left", {130000, 130000}, 105000);        // 80000 + 50000 / 2
    row("a sixteenth of what is less", {190000, 30000}, 105000); // 110000 - 80000 / 16
    row("at least the shortest", {0, 0, 0}, 30000);
    row("early counts as the shortest", {-5000}, 30000);
    row("a stop counts as the longest", {5000000000}, 140000); // 30000 + 220000 / 2
}

void LeadTimeTest::learnedFromHowLateItGotUp()
{
    QFETCH(QList<qint64>, late);
    QFETCH(qint64, lead);
    LeadTime time;
    for (const qint64 nanoseconds : late)
        time.learn(nanoseconds);
    QCOMPARE(time.value(), lead);
}

// Of wake-ups that are 60 us late and, one in four, 100 us, it covers most without waiting
// longer than the latest.
void LeadTimeTest::comesToWhatIsUsual()
{
    LeadTime time;
    for (int i = 0; i < 1000; ++i) {
        time.learn(i % 4 == 0 ? 100000 : 60000);
        if (i > 40)
            QVERIFY(time.value() >= 75000 && time.value() <= 100000);
    }
    for (int i = 0; i < 1000; ++i)
        time.learn(1000000);
    QVERIFY(time.value() > 249990 && time.value() <= LeadTime::LONGEST);
    for (int i = 0; i < 1000; ++i)
        time.learn(0);
    QVERIFY(time.value() < LeadTime::SHORTEST + 16);
}

QTEST_GUILESS_MAIN(LeadTimeTest)
#include "tst_lead_time.moc"
