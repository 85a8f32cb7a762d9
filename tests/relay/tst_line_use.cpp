#include "relay/line_use.h"

#include <QtTest/QTest>

using namespace kx;

class LineUseTest : public QObject
{
    Q_OBJECT

private slots:
    void theLimitIsCharactersTurnaroundAndOneGap();
    void gapsAreCountedByLength();
    void requestsWithoutAReply();
    void nothingWasSent();
};

namespace
{

/// 10,000 baud of 10 bits: 1 ms per character, a frame gap of 3500 us.
LineTiming timing()
{
    LineTiming timing;
    timing.baud = 10000;
    return timing;
}

RelayedFrame request(qint64 start)
{
    return {true, QByteArray(8, 'r'), start, start + 8000};
}

RelayedFrame reply(qint64 start)
{
    return {false, QByteArray(5, 'a'), start, start + 5000};
}

} // namespace

void LineUseTest::theLimitIsCharactersTurnaroundAndOneGap()
{
    // 8 + 1.5 + 5 + 3.5 = 18 ms of the 20 ms until the next request.
    const LineUse use = lineUse({request(1000), reply(10500), request(21000)}, timing());
    QCOMPARE(use.exchanges, 1);
    QCOMPARE(use.unanswered, 0);
    QCOMPARE(use.share, 0.9);
    QCOMPARE(use.medianShare, 0.9);
}

void LineUseTest::gapsAreCountedByLength()
{
    QList<RelayedFrame> frames{request(0)};
    for (const qint64 gap : {3499, 3500, 3849, 3850, 5249, 5250, 9000}) {
        frames << reply(frames.last().end);
        frames << request(frames.last().end + gap);
    }
    const GapCounts gaps = lineUse(frames, timing()).gaps;
    QCOMPARE(gaps.tooShort, 1);
    QCOMPARE(gaps.close, 2);
    QCOMPARE(gaps.fair, 2);
    QCOMPARE(gaps.longer, 2);
    QCOMPARE(gaps.shortest, qint64(3499));
    QCOMPARE(gaps.median, qint64(3850));
}

void LineUseTest::requestsWithoutAReply()
{
    const LineUse use =
        lineUse({request(0), request(50000), reply(58000), request(66500)}, timing());
    QCOMPARE(use.unanswered, 1);
    QCOMPARE(use.exchanges, 1);
    QCOMPARE(use.share, 1.0);
    QCOMPARE(use.gaps.longer, 1);
}

void LineUseTest::nothingWasSent()
{
    const LineUse use = lineUse({}, timing());
    QCOMPARE(use.exchanges, 0);
    QCOMPARE(use.share, 0.0);
    QCOMPARE(use.medianShare, 0.0);
}

QTEST_GUILESS_MAIN(LineUseTest)
#include "tst_line_use.moc"
