#include "kxpanel/exchanges/exchange_history.h"

#include "../sample_exchanges.h"

#include <QtTest/QTest>

using namespace kxpanel;

class ExchangeHistoryTest : public QObject
{
    Q_OBJECT

private slots:
    void keepsTheLatest();
    void keepsPlacesWhenItIsCleared();
    void takesNumbersThatBeginAnew();
};

void ExchangeHistoryTest::keepsTheLatest()
{
    ExchangeHistory history(3);
    QCOMPARE(history.begin(), history.end());
    for (const Exchange& exchange : answeredPolls(5))
        history.add(exchange);
    QCOMPARE(history.size(), 3);
    QCOMPARE(history.begin(), qint64(2));
    QCOMPARE(history.end(), qint64(5));
    QCOMPARE(history.at(2).number, qint64(3)); // the first one has number 1 and place 0
    QCOMPARE(history.at(4).number, qint64(5));
    QVERIFY(!history.has(1));
    QVERIFY(history.has(2));
    QVERIFY(history.has(4));
    QVERIFY(!history.has(5));
}

void ExchangeHistoryTest::keepsPlacesWhenItIsCleared()
{
    ExchangeHistory history(3);
    history.add(answeredPoll());
    history.add(answeredPoll());
    history.clear();
    QCOMPARE(history.size(), 0);
    QCOMPARE(history.begin(), qint64(2));
    history.add(unansweredPoll());
    QCOMPARE(history.end(), qint64(3));
    QCOMPARE(history.at(2).outcome, QString("no reply, repeated"));
}

void ExchangeHistoryTest::takesNumbersThatBeginAnew()
{
    ExchangeHistory history(4);
    for (const Exchange& exchange : answeredPolls(2) + answeredPolls(1)) // 1, 2, then 1
        history.add(exchange);
    QCOMPARE(history.end(), qint64(3));
    QCOMPARE(history.at(2).number, qint64(1));
}

QTEST_GUILESS_MAIN(ExchangeHistoryTest)

#include "tst_exchange_history.moc"
