#include "panel/text/summary_text.h"

#include <QtTest/QTest>

using namespace kx;

class SummaryTextTest : public QObject
{
    Q_OBJECT

private slots:
    void lines();
    void rareCountsAreNamedWhenThereAreAny();
    void oneOfEachIsSingular();
    void aRunOfOneExchange();
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
    QCOMPARE(summaryRows(summary()),
             QStringList({QString::fromLatin1(
                              "36 requests in 12 cycles: 33 accepted, 2 repeated, 1 failed"),
                          QString::fromLatin1("2.0 s, 288 bytes sent, 192 received, "
                                              "18.0 requests/s, line load 25.0 %")}));
}

void SummaryTextTest::rareCountsAreNamedWhenThereAreAny()
{
    WatchSummary rare = summary();
    Statistics& counts = rare.statistics;
    counts.notSent = 5;
    counts.bad = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    counts.thrownAway = {11, 12, 13, 14, 15};
    counts.heldBack = 21;
    counts.reopened = 22;
    rare.missed = 23;
    const QStringList lines = summaryRows(rare);
    QCOMPARE(lines.size(), 5);
    QCOMPARE(lines.at(0),
             QString::fromLatin1("36 requests in 12 cycles: 33 accepted, 2 repeated, 1 failed; "
                                 "23 intervals missed; 5 not whole, so not sent"));
    QCOMPARE(
        lines.at(1),
        QString::fromLatin1(
            "repeated or failed: 1 without a reply, 2 cut short, 3 damaged, "
            "9 with a wrong byte count, 4 refused by the station, 5 answered by replies of other "
            "requests only, 6 cut off by the loss of the line, 7 broadcast, "
            "8 ignored by the driver, 10 kept back by a line that was never silent"));
    QCOMPARE(lines.at(2),
             QString::fromLatin1("thrown away: 11 replies of other requests, 12 late replies, "
                                 "13 duplicates, 14 echoes, 15 bytes in no frame"));
    QCOMPARE(lines.at(3),
             QString::fromLatin1("line: 21 requests held back until a late reply could come no "
                                 "more, 22 times opened again"));
}

void SummaryTextTest::oneOfEachIsSingular()
{
    WatchSummary one = summary();
    one.cycles = 1;
    Statistics& counts = one.statistics;
    counts.requests = 1;
    counts.thrownAway = {1, 1, 1, 1, 1};
    counts.heldBack = 1;
    counts.reopened = 1;
    const QStringList lines = summaryRows(one);
    QVERIFY(lines.at(0).startsWith("1 request in 1 cycle: "));
    QCOMPARE(lines.at(1), QString("thrown away: 1 reply of another request, 1 late reply, "
                                  "1 duplicate, 1 echo, 1 byte in no frame"));
    QCOMPARE(lines.at(2), QString("line: 1 request held back until a late reply could come no "
                                  "more, 1 time opened again"));
}

// A pseudo-terminal brings the reply at once. At 9600 baud the 15 characters take 15.6 ms and
// the silence before the request 3.6 ms.
void SummaryTextTest::aRunOfOneExchange()
{
    WatchSummary one;
    one.statistics.requests = 1;
    one.statistics.accepted = 1;
    one.statistics.bytesSent = 8;
    one.statistics.bytesReceived = 7;
    one.elapsed = 5;
    one.cycles = 1;
    QCOMPARE(speedText(one), QString::fromLatin1("51.9 requests/s, line load 81.1 %"));
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
    all.statistics.notSent = 5;
    all.statistics.bad = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    all.statistics.thrownAway = {11, 12, 13, 14, 15};
    all.statistics.heldBack = 21;
    all.statistics.reopened = 22;
    const QJsonObject json = summaryJson(all);
    const auto number = [&](const char* name) { return json[QLatin1String(name)].toDouble(-1); };
    const auto numbers = [&](const char* name, const QStringList& keys) {
        QList<int> values;
        for (const QString& key : keys)
            values << json[QLatin1String(name)].toObject()[key].toInt(-1);
        return values;
    };
    QCOMPARE(json[QLatin1String("event")].toString(), QString::fromLatin1("summary"));
    QCOMPARE(number("milliseconds"), 2000.0);
    QCOMPARE(number("cycles"), 12.0);
    QCOMPARE(number("missedIntervals"), 0.0);
    QCOMPARE(number("requests"), 36.0);
    QCOMPARE(number("accepted"), 33.0);
    QCOMPARE(number("repeated"), 2.0);
    QCOMPARE(number("failed"), 1.0);
    QCOMPARE(number("notSent"), 5.0);
    QCOMPARE(numbers("badReplies", {"none", "short", "damaged", "refused", "foreign", "lineLost",
                                    "broadcast", "ignored", "byteCount", "neverSilent"}),
             QList<int>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    QCOMPARE(numbers("thrownAway", {"foreign", "late", "duplicates", "echoes", "bytes"}),
             QList<int>({11, 12, 13, 14, 15}));
    QCOMPARE(number("heldBack"), 21.0);
    QCOMPARE(number("reopened"), 22.0);
    QCOMPARE(number("bytesSent"), 288.0);
    QCOMPARE(number("bytesReceived"), 192.0);
    QCOMPARE(number("requestsPerSecond"), 18.0);
    QCOMPARE(number("lineLoad"), 0.25);
}

QTEST_GUILESS_MAIN(SummaryTextTest)
#include "tst_summary_text.moc"
