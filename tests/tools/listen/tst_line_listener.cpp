// Whole lines, heard as adapters hand them over. At 9600 baud a character takes 1042 us.

#include "listen/line_listener.h"

#include "heard_pieces.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

const qint64 CHARACTER = 1042;  // microseconds
const qint64 TIMEOUT = 1000000; // microseconds
const qint64 GAP = 3646;        // microseconds

/// Hears a line and remembers what came out.
class Listening
{
public:
    void hear(const QByteArray& bytes) { keep(m_listener.add(bytes, now)); }

    /// Byte by byte as they end on the line, after a silence.
    void hearPaced(const QByteArray& bytes, qint64 silence)
    {
        now += silence;
        for (const char byte : bytes) {
            now += CHARACTER;
            hear(QByteArray(1, byte));
        }
    }

    void settle() { keep(m_listener.settle(now)); }
    void finish() { keep(m_listener.finish(now)); }

    const LineCounts& counts() const { return m_listener.counts(); }
    qint64 silence() const { return m_listener.silence(); }

    qint64 now = 0;
    QStringList pieces; ///< hex; "> " before requests, "< " before replies, "? " before noise
    QList<HeardKind> kinds;

private:
    void keep(const Heard& heard)
    {
        for (const HeardPiece& piece : heard.pieces) {
            const char* mark = piece.isRequest ? "> " : "< ";
            pieces << QLatin1String(piece.isFrame ? mark : "? ")
                          + QString::fromLatin1(piece.bytes.toHex(' ').toUpper());
        }
        for (const HeardExchange& exchange : heard.exchanges)
            kinds << exchange.kind;
    }

    LineListener m_listener{LineTiming(), TIMEOUT};
};

const char* const REQUEST_TEXT = "> 01 03 00 64 00 02 85 D4";
const char* const REPLY_TEXT = "< 01 03 04 04 D2 00 11 9B 36";

QByteArray request()
{
    return bytes("01 03 00 64 00 02 85 D4"); // station 1, D100:2
}

QByteArray reply()
{
    return bytes("01 03 04 04 D2 00 11 9B 36"); // 1234 and 17
}

QStringList texts(const QList<const char*>& latin1)
{
    QStringList list;
    for (const char* const text : latin1)
        list << QString::fromLatin1(text);
    return list;
}

} // namespace

class LineListenerTest : public QObject
{
    Q_OBJECT

private slots:
    void framesReadWhole();
    void framesGluedTogether();
    void framesSplitAnywhere();
    void framesAmongNoise();
    void aDamagedReplyAndWhatFollows();
    void aReplyCutShort();
    void aPauseShowsThatAReplyWasCutShort();
    void anUnansweredRequestIsShownAfterTheTimeOut();
    void anotherFunctionBetweenPauses();
    void halfAFrameAtTheEnd();
    void noiseWithoutEnd();
    void gapsOfAPacedLine();
    void gapsOfAGluingAdapterAreUnclear();
};

void LineListenerTest::framesReadWhole()
{
    Listening line;
    line.hear(request());
    line.now += 5000;
    line.hear(reply());
    QCOMPARE(line.pieces, texts({REQUEST_TEXT, REPLY_TEXT}));
    QCOMPARE(line.kinds, QList<HeardKind>({HeardKind::Answered}));
    QCOMPARE(line.counts().stations.value(1).responses.shortest, qint64(5000));
}

void LineListenerTest::framesGluedTogether()
{
    Listening line;
    line.hear(request() + reply() + request() + reply());
    QCOMPARE(line.pieces, texts({REQUEST_TEXT, REPLY_TEXT, REQUEST_TEXT, REPLY_TEXT}));
    QCOMPARE(line.counts().stations.value(1).answered, qint64(2));
    QCOMPARE(line.counts().stations.value(1).responses.count, qint64(0)); // nobody can tell
}

void LineListenerTest::framesSplitAnywhere()
{
    const QByteArray all = request() + reply() + request();
    for (int first = 0; first <= all.size(); ++first) {
        for (int second = first; second <= all.size(); ++second) {
            Listening line;
            for (const QByteArray& part :
                 {all.left(first), all.mid(first, second - first), all.mid(second)}) {
                line.now += 16000; // what an adapter holds back
                line.hear(part);
            }
            QCOMPARE(line.pieces, texts({REQUEST_TEXT, REPLY_TEXT, REQUEST_TEXT}));
        }
    }
}

void LineListenerTest::framesAmongNoise()
{
    Listening line;
    line.hear(bytes("FF 00") + request() + bytes("00") + reply() + bytes("F0 0F 13"));
    line.now += line.silence();
    line.settle();
    QCOMPARE(line.pieces, texts({"? FF 00", REQUEST_TEXT, "? 00", REPLY_TEXT, "? F0 0F 13"}));
    QCOMPARE(line.counts().noise, qint64(6));
    QCOMPARE(line.counts().frames, qint64(2));
    QCOMPARE(line.counts().stations.value(1).answered, qint64(1));
}

void LineListenerTest::aDamagedReplyAndWhatFollows()
{
    Listening line;
    line.hear(request());
    line.hear(reply().replace(4, 1, "\x05"));
    line.hear(request());
    line.hear(reply());
    QCOMPARE(line.pieces,
             texts({REQUEST_TEXT, "? 01 03 04 04 05 00 11 9B 36", REQUEST_TEXT, REPLY_TEXT}));
    QCOMPARE(line.kinds, QList<HeardKind>({HeardKind::Damaged, HeardKind::Answered}));
}

void LineListenerTest::aReplyCutShort()
{
    Listening line;
    line.hear(request() + reply().left(5) + request() + reply());
    // D2 could be the byte count of a reply that is still on its way.
    line.now += line.silence();
    line.settle();
    QCOMPARE(line.pieces, texts({REQUEST_TEXT, "? 01 03 04 04 D2", REQUEST_TEXT, REPLY_TEXT}));
    QCOMPARE(line.kinds, QList<HeardKind>({HeardKind::Damaged, HeardKind::Answered}));
}

void LineListenerTest::aPauseShowsThatAReplyWasCutShort()
{
    Listening line;
    line.hearPaced(request(), 0);
    line.hearPaced(reply().left(5), 5000);
    line.hearPaced(request(), 5000);
    QCOMPARE(line.pieces, texts({REQUEST_TEXT, "? 01 03 04 04 D2", REQUEST_TEXT}));
}

void LineListenerTest::anUnansweredRequestIsShownAfterTheTimeOut()
{
    Listening line;
    line.hear(request());
    line.now += TIMEOUT;
    line.settle();
    QCOMPARE(line.kinds, QList<HeardKind>());
    line.now += 1;
    line.settle();
    QCOMPARE(line.kinds, QList<HeardKind>({HeardKind::Unanswered}));
    line.finish();
    QCOMPARE(line.kinds.size(), 1);
}

void LineListenerTest::anotherFunctionBetweenPauses()
{
    Listening line;
    const QByteArray identify = withCrc("01 2B 0E 01 00");
    line.hearPaced(request(), 0);
    line.hearPaced(reply(), 5000);
    line.hearPaced(identify, 5000);
    QCOMPARE(line.pieces.size(), 2);
    line.hearPaced(request(), 5000); // shows that it has ended
    QCOMPARE(line.pieces.size(), 4);
    QCOMPARE(line.pieces.at(2), QString::fromLatin1("> 01 2B 0E 01 00 ")
                                    + QString::fromLatin1(identify.right(2).toHex(' ').toUpper()));
    QCOMPARE(line.counts().noise, qint64(0));
}

void LineListenerTest::halfAFrameAtTheEnd()
{
    Listening line;
    line.hear(request() + reply().left(4));
    line.finish();
    QCOMPARE(line.pieces, texts({REQUEST_TEXT, "? 01 03 04 04"}));
    QCOMPARE(line.kinds, QList<HeardKind>({HeardKind::Damaged}));
    Listening open;
    open.hear(request());
    open.finish();
    QCOMPARE(open.kinds, QList<HeardKind>({HeardKind::Open}));
    QCOMPARE(open.counts().stations.value(1).open, qint64(1));
}

void LineListenerTest::noiseWithoutEnd()
{
    Listening line;
    for (int i = 0; i < 1000; ++i)
        line.hear(bytes("FF 00 13 77"));
    line.now += line.silence();
    line.settle();
    QCOMPARE(line.counts().noise, qint64(4000));
    QVERIFY(line.pieces.size() >= 4000 / 1200); // not kept until the end
    line.hear(request());
    QCOMPARE(line.pieces.last(), QString::fromLatin1(REQUEST_TEXT));
}

void LineListenerTest::gapsOfAPacedLine()
{
    Listening line;
    line.hearPaced(request(), 0);
    line.hearPaced(reply(), GAP);
    line.hearPaced(request(), GAP - 1);
    line.hearPaced(reply(), 1000);
    line.hearPaced(request(), 20000);
    const LineCounts& counts = line.counts();
    QCOMPARE(counts.gaps.kept, qint64(1));
    QCOMPARE(counts.gaps.tooShort, qint64(1));
    QCOMPARE(counts.gaps.unclear, qint64(0));
    QCOMPARE(counts.gaps.shortest, qint64(GAP - 1));
    QCOMPARE(counts.stations.value(1).gaps.kept, qint64(1));
    QCOMPARE(counts.stations.value(1).gaps.tooShort, qint64(1));
    QCOMPARE(counts.stations.value(1).gaps.shortest, qint64(1000));
}

void LineListenerTest::gapsOfAGluingAdapterAreUnclear()
{
    Listening line;
    line.hear(request() + reply());
    line.now += 16000;
    line.hear(request() + reply());
    QCOMPARE(line.counts().gaps.unclear, qint64(1));
    QCOMPARE(line.counts().gaps.tooShort, qint64(0));
    QCOMPARE(line.counts().stations.value(1).gaps.unclear, qint64(2));
}

QTEST_APPLESS_MAIN(LineListenerTest)
#include "tst_line_listener.moc"
