#include "kxpanel/health/health_words.h"

#include "../sample_exchanges.h"
#include "kxpanel/health/health_model.h"

#include <QtTest/QTest>

using namespace kxpanel;

class HealthWordsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TZ", "CET-1"); }
    void headings();
    void states();
    void tips();
    void faults();
};

void HealthWordsTest::headings()
{
    QStringList headings;
    for (int column = 0; column < HealthModel::COLUMNS; ++column) {
        headings << healthHeading(column).heading;
        QVERIFY(!healthHeading(column).tip.isEmpty());
    }
    QCOMPARE(headings.join(QChar('|')),
             QString("Station|State|Requests|Accepted|Repeated|Failed|Median|99 %|Longest|No reply|"
                     "Cut short|Damaged|Refused|Other"));
}

void HealthWordsTest::states()
{
    StationHealth station;
    QCOMPARE(stateWords(station), QString(QChar(0x2013)) + QString(" no reply yet"));
    station.add(answeredPoll());
    QCOMPARE(stateWords(station), QString(QChar(0x2713)) + QString(" answers"));
    station.isSilent = true;
    QCOMPARE(stateWords(station), QString(QChar(0x2717)) + QString(" silent"));
}

void HealthWordsTest::tips()
{
    StationHealth station;
    for (const Exchange& exchange : {answeredPoll(), unansweredPoll(), refusedWrite()})
        station.add(exchange);
    Exchange notSent;
    notSent.replyKind = kx::ReplyKind::NotSent;
    station.add(notSent);
    QCOMPARE(healthTip(4, station), QString("Station 4: 1 accepted, 1 repeated, 1 failed\n"
                                            "no reply until the time-out: 1\n"
                                            "refused by the station: 1\n"
                                            "not whole, so not sent: 1\n"
                                            "answered last at 11:00:00.030"));
}

void HealthWordsTest::faults()
{
    LineFaults faults;
    QCOMPARE(faultWords(faults), QString());
    faults.thrownAway.late = 2;
    faults.thrownAway.bytes = 14;
    faults.reopened = 1;
    faults.missed = 5;
    QCOMPARE(faultWords(faults), QString("2 late repl(ies), 14 byte(s) in no frame, "
                                         "5 interval(s) missed, line opened again 1 time(s)"));
}

QTEST_GUILESS_MAIN(HealthWordsTest)

#include "tst_health_words.moc"
