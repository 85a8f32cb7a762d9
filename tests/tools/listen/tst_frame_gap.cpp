#include "listen/frame_gap.h"

#include <QtTest/QTest>

using namespace kx;

class FrameGapTest : public QObject
{
    Q_OBJECT

private slots:
    void verdicts_data();
    void verdicts();
};

void FrameGapTest::verdicts_data()
{
    QTest::addColumn<qint64>("silence");
    QTest::addColumn<qint64>("doubtBefore");
    QTest::addColumn<qint64>("doubtBehind");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<qint64>("shown");
    const auto row = [](const char* name, int silence, int before, int behind, GapVerdict verdict,
                        int shown) {
        QTest::newRow(name) << qint64(silence) << qint64(before) << qint64(behind) << int(verdict)
                            << qint64(shown);
    };
    row("the gap, exactly", 3646, 0, 0, GapVerdict::Kept, 3646);
    row("a microsecond less", 3645, 0, 0, GapVerdict::TooShort, 3645);
    row("none at all", 0, 0, 0, GapVerdict::TooShort, 0);
    row("long enough in spite of doubt", 4646, 600, 400, GapVerdict::Kept, 4646);
    row("long enough but for doubt", 4645, 600, 400, GapVerdict::Unclear, 4645);
    row("too short but for doubt", 2646, 600, 400, GapVerdict::Unclear, 2646);
    row("too short in spite of doubt", 2645, 600, 400, GapVerdict::TooShort, 2645);
    // More bytes were read in one go than the time has room for.
    row("less than none", -5000, 0, 7292, GapVerdict::Unclear, 0);
    row("less than none without doubt", -10, 0, 0, GapVerdict::TooShort, 0);
}

void FrameGapTest::verdicts()
{
    QFETCH(qint64, silence);
    QFETCH(qint64, doubtBefore);
    QFETCH(qint64, doubtBehind);
    HeardPiece before;
    before.end = 100000;
    before.doubt = doubtBefore;
    HeardPiece behind;
    behind.begin = 100000 + silence;
    behind.doubt = doubtBehind;
    const FrameGap gap = gapBetween(before, behind, 3646);
    QTEST(int(gap.verdict), "verdict");
    QTEST(gap.silence, "shown");
    QCOMPARE(gap.doubt, doubtBefore + doubtBehind);
}

QTEST_APPLESS_MAIN(FrameGapTest)
#include "tst_frame_gap.moc"
