#include "listen/line_counts.h"

#include "heard_pieces.h"

#include <QtTest/QTest>

using namespace kx;

class LineCountsTest : public QObject
{
    Q_OBJECT

private slots:
    void responseTimes();
    void gaps();
    void whatBecameOfRequests();
    void whatBelongsToNoRequest();
    void gapsBeforeRepliesAreTheStations();
};

void LineCountsTest::responseTimes()
{
    ResponseTimes times;
    QCOMPARE(times.mean(), qint64(0));
    for (const int time : {5000, 2000, 9001})
        times.add(time);
    QCOMPARE(times.count, qint64(3));
    QCOMPARE(times.shortest, qint64(2000));
    QCOMPARE(times.longest, qint64(9001));
    QCOMPARE(times.mean(), qint64(5333));
}

void LineCountsTest::gaps()
{
    GapCounts counts;
    counts.add({GapVerdict::Kept, 5000, 0});
    counts.add({GapVerdict::TooShort, 1500, 0});
    counts.add({GapVerdict::TooShort, 900, 0});
    counts.add({GapVerdict::TooShort, 2000, 0});
    counts.add({GapVerdict::Unclear, 100, 9000});
    QCOMPARE(counts.kept, qint64(1));
    QCOMPARE(counts.tooShort, qint64(3));
    QCOMPARE(counts.unclear, qint64(1));
    QCOMPARE(counts.shortest, qint64(900)); // what is unclear may be longer
}

void LineCountsTest::whatBecameOfRequests()
{
    LineCounts counts;
    const HeardPiece request = frameOf("05 03 00 64 00 01", 1000);
    const HeardPiece reply = frameOf("05 03 02 00 07", 4000);
    HeardPiece glued = reply;
    glued.isGlued = true;
    counts.add({HeardKind::Answered, request, reply});
    counts.add({HeardKind::Answered, request, glued});
    counts.add({HeardKind::Refused, request, frameOf("05 83 02", 6000)});
    counts.add({HeardKind::Unfitting, request, frameOf("05 03 04 00 00 00 00", 9000)});
    counts.add({HeardKind::Damaged, request, noiseOf("05 03 02", 9000)});
    counts.add({HeardKind::Unanswered, request, HeardPiece()});
    counts.add({HeardKind::Open, request, HeardPiece()});
    QCOMPARE(counts.stations.keys(), QList<int>({5}));
    const StationCounts station = counts.stations.value(5);
    QCOMPARE(station.requests, qint64(7));
    QCOMPARE(station.answered, qint64(2));
    QCOMPARE(station.refused, qint64(1));
    QCOMPARE(station.unfitting, qint64(1));
    QCOMPARE(station.damaged, qint64(1));
    QCOMPARE(station.unanswered, qint64(1));
    QCOMPARE(station.open, qint64(1));
    // Of the answer and the refusal that were read in goes of their own.
    QCOMPARE(station.responses.count, qint64(2));
    QCOMPARE(station.responses.shortest, qint64(3000));
    QCOMPARE(station.responses.longest, qint64(5000));
}

void LineCountsTest::whatBelongsToNoRequest()
{
    LineCounts counts;
    counts.add({HeardKind::Stray, HeardPiece(), frameOf("05 03 02 00 07")});
    counts.add({HeardKind::Noise, HeardPiece(), noiseOf("FF FE FD")});
    counts.add({HeardKind::Broadcast, frameOf("00 06 00 64 00 05"), HeardPiece()});
    counts.addPiece(frameOf("05 03 02 00 07")); // seven bytes
    counts.addPiece(noiseOf("FF FE FD"));
    QCOMPARE(counts.stations.size(), 0);
    QCOMPARE(counts.strays, qint64(1));
    QCOMPARE(counts.broadcasts, qint64(1));
    QCOMPARE(counts.frames, qint64(1));
    QCOMPARE(counts.noise, qint64(3));
    QCOMPARE(counts.bytes, qint64(10));
}

void LineCountsTest::gapsBeforeRepliesAreTheStations()
{
    LineCounts counts;
    HeardPiece request = frameOf("05 03 00 64 00 01");
    request.isRequest = true;
    const HeardPiece reply = frameOf("05 03 02 00 07");
    const FrameGap tooShort = {GapVerdict::TooShort, 100, 0};
    counts.addGap(reply, tooShort); // of a station that was asked nothing
    counts.add({HeardKind::Answered, request, reply});
    counts.addGap(request, tooShort);
    counts.addGap(reply, tooShort);
    counts.addGap(noiseOf("FF"), tooShort);
    QCOMPARE(counts.gaps.tooShort, qint64(1));
    QCOMPARE(counts.stations.value(5).gaps.tooShort, qint64(1));
    QCOMPARE(counts.stations.keys(), QList<int>({5}));
}

QTEST_APPLESS_MAIN(LineCountsTest)
#include "tst_line_counts.moc"
