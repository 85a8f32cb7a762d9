#include "kxhost/listen/listen_summary.h"

#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

using namespace kx;

class ListenSummaryTest : public QObject
{
    Q_OBJECT

private slots:
    void nothingHeard();
    void aLineWithFaults();
    void json();

private:
    static ListenSummary faultySummary();
};

ListenSummary ListenSummaryTest::faultySummary()
{
    ListenSummary summary;
    summary.elapsed = 10000000; // ten seconds, of which 4800 characters take five
    LineCounts& counts = summary.counts;
    counts.bytes = 4800;
    counts.frames = 400;
    counts.broadcasts = 1;
    counts.strays = 2;
    counts.noise = 17;
    counts.gaps = {118, 3, 5, 1249};
    StationCounts good;
    good.requests = good.answered = 150;
    good.responses = {150, 1000, 20300, 330000};
    StationCounts bad;
    bad.requests = 59;
    bad.answered = 40;
    bad.refused = 2;
    bad.unanswered = 12;
    bad.damaged = 3;
    bad.unfitting = 1;
    bad.open = 1;
    bad.responses = {42, 5000, 9000, 252000};
    bad.gaps = {30, 9, 1, 400};
    StationCounts dead;
    dead.requests = dead.unanswered = 7;
    counts.stations = {{1, good}, {2, bad}, {247, dead}};
    return summary;
}

void ListenSummaryTest::nothingHeard()
{
    ListenSummary summary;
    summary.elapsed = 1500000;
    QCOMPARE(listenRows(summary),
             QStringList({QString::fromLatin1("1.5 s, 0 bytes, 0 frames, line load 0.0 %"),
                          QString::fromLatin1("gap of 3.65 ms before requests: kept 0, too short "
                                              "0, unclear 0")}));
}

void ListenSummaryTest::aLineWithFaults()
{
    const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
    QCOMPARE(listenRows(faultySummary()),
             QStringList({
                 text("10.0 s, 4800 bytes, 400 frames, line load 50.0 %"),
                 text("STATION  REQUESTS  ANSWERED  REFUSED  NO-REPLY  DAMAGED  BYTE-COUNT"
                      "  MIN-MS  MEAN-MS  MAX-MS"),
                 text("      1       150       150        0         0        0           0"
                      "     1.0      2.2    20.3"),
                 text("      2        59        40        2        12        3           1"
                      "     5.0      6.0     9.0"),
                 text("    247         7         0        0         7        0           0"),
                 text("gap of 3.65 ms before requests: kept 118, too short 3 (down to 1.2 ms), "
                      "unclear 5"),
                 text("gap before replies of station 2: kept 30, too short 9 (down to 0.4 ms), "
                      "unclear 1"),
                 text("besides: 1 broadcast, 2 replies without their requests, 17 bytes in no "
                      "frame, 1 request still open at the end"),
             }));
}

void ListenSummaryTest::json()
{
    ListenSummary summary = faultySummary();
    summary.counts.stations.remove(1);
    summary.counts.stations.remove(247);
    QCOMPARE(QJsonDocument(listenJson(summary)).toJson(QJsonDocument::Compact),
             QByteArray("{\"broadcasts\":1,\"bytes\":4800,\"event\":\"summary\","
                        "\"frameGapUs\":3646,\"frames\":400,\"lineLoad\":0.5,"
                        "\"milliseconds\":10000,\"noise\":17,\"requestGaps\":{\"kept\":118,"
                        "\"shortestUs\":1249,\"tooShort\":3,\"unclear\":5},\"stations\":["
                        "{\"answered\":40,\"byteCount\":1,\"damaged\":3,\"gaps\":{\"kept\":30,"
                        "\"shortestUs\":400,\"tooShort\":9,\"unclear\":1},\"noReply\":12,"
                        "\"open\":1,\"refused\":2,\"requests\":59,\"responseUs\":{"
                        "\"max\":9000,\"mean\":6000,\"min\":5000},\"station\":2}],"
                        "\"strayReplies\":2}"));
}

QTEST_APPLESS_MAIN(ListenSummaryTest)
#include "tst_listen_summary.moc"
