#include "kxhost/summary_text.h"

#include <QtTest/QtTest>

class SummaryTextTest : public QObject
{
    Q_OBJECT

private slots:
    void lines();
    void rareCountsAreNamedWhenThereAreAny();
    void networkHasNoLineLoad();
    void json();

private:
    static WatchSummary summary();
};

WatchSummary SummaryTextTest::summary()
{
    WatchSummary summary;
    summary.statistics.requests = 36;
    summary.statistics.accepted = 33;
    summary.statistics.repeated = 2;
    summary.statistics.failed = 1;
    summary.statistics.bytesSent = 288;
    summary.statistics.bytesReceived = 192;
    summary.elapsed = 2000;
    summary.cycles = 12;
    return summary;
}

void SummaryTextTest::lines()
{
    // 480 characters of 10 bits at 9600 baud are half a second.
    QCOMPARE(summaryLines(summary()),
             QStringList({QString::fromLatin1(
                              "36 requests in 12 cycles: 33 accepted, 2 repeated, 1 failed"),
                          QString::fromLatin1("2.0 s, 288 bytes sent, 192 received, "
                                              "18.0 requests/s, line load 25.0 %")}));
}

void SummaryTextTest::rareCountsAreNamedWhenThereAreAny()
{
    WatchSummary rare = summary();
    rare.statistics.exceptions = 3;
    rare.statistics.foreign = 4;
    rare.statistics.notSent = 5;
    QCOMPARE(summaryLines(rare).first(),
             QString::fromLatin1("36 requests in 12 cycles: 33 accepted, 2 repeated, 1 failed, "
                                 "3 refused by the station, 4 replies of other requests, "
                                 "5 too long to send"));
}

void SummaryTextTest::networkHasNoLineLoad()
{
    WatchSummary network = summary();
    network.timing.baud = 0;
    QCOMPARE(speedText(network), QString::fromLatin1("18.0 requests/s"));
    QVERIFY(!summaryJson(network).contains(QLatin1String("lineLoad")));
}

void SummaryTextTest::json()
{
    WatchSummary all = summary();
    all.statistics.exceptions = 3;
    all.statistics.foreign = 4;
    all.statistics.notSent = 5;
    const QJsonObject json = summaryJson(all);
    const auto number = [&](const char* name) { return json[QLatin1String(name)].toDouble(-1); };
    QCOMPARE(json[QLatin1String("event")].toString(), QString::fromLatin1("summary"));
    QCOMPARE(number("milliseconds"), 2000.0);
    QCOMPARE(number("cycles"), 12.0);
    QCOMPARE(number("requests"), 36.0);
    QCOMPARE(number("accepted"), 33.0);
    QCOMPARE(number("repeated"), 2.0);
    QCOMPARE(number("failed"), 1.0);
    QCOMPARE(number("refused"), 3.0);
    QCOMPARE(number("foreign"), 4.0);
    QCOMPARE(number("notSent"), 5.0);
    QCOMPARE(number("bytesSent"), 288.0);
    QCOMPARE(number("bytesReceived"), 192.0);
    QCOMPARE(number("requestsPerSecond"), 18.0);
    QCOMPARE(number("lineLoad"), 0.25);
}

QTEST_GUILESS_MAIN(SummaryTextTest)
#include "tst_summary_text.moc"
