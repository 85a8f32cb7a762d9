#include "exchange/line_silence.h"

#include <QtTest/QTest>

using namespace kx;

class LineSilenceTest : public QObject
{
    Q_OBJECT

private slots:
    void whenARequestMayGoOut_data();
    void whenARequestMayGoOut();
    void charactersThatAreStillUnderWay();
    void waitingAnewIsNotOverdue();
};

namespace
{

const qint64 GAP = 3646;         // microseconds, 3.5 characters at 9600 baud
const qint64 PATIENCE = 1000000; // microseconds
const qint64 HEARD = 5000000;    // microseconds

} // namespace

void LineSilenceTest::whenARequestMayGoOut_data()
{
    QTest::addColumn<qint64>("gap");
    QTest::addColumn<qint64>("quiet");
    QTest::addColumn<bool>("isNoisy");
    QTest::addColumn<qint64>("enoughAfter");
    QTest::addColumn<qint64>("longAfter");
    const auto row = [](const char* name, qint64 gap, qint64 quiet, bool isNoisy,
                        qint64 enoughAfter, qint64 longAfter) {
        QTest::newRow(name) << gap << quiet << isNoisy << enoughAfter << longAfter;
    };
    row("serial", GAP, 0, false, GAP, GAP);
    row("network", 0, 0, false, 0, 0);
    row("serial after noise", GAP, 0, true, 20000, 20000);
    row("network after noise", 0, 0, true, 20000, 20000);
    row("slow serial after noise", 116667, 0, true, 116667, 116667);
    row("longer quiet asked for", GAP, 500000, false, GAP, 500000);
    row("shorter quiet asked for", GAP, 1000, false, GAP, GAP);
    row("longer quiet after noise", 0, 500000, true, 20000, 500000);
}

void LineSilenceTest::whenARequestMayGoOut()
{
    QFETCH(qint64, gap);
    QFETCH(qint64, quiet);
    QFETCH(bool, isNoisy);
    QFETCH(qint64, enoughAfter);
    QFETCH(qint64, longAfter);
    LineSilence silence(quiet, PATIENCE);
    silence.setFrameGap(gap);
    silence.setNoisy(isNoisy);
    silence.heardUntil(HEARD);
    silence.await(HEARD);
    QVERIFY(!silence.isEnough(HEARD + enoughAfter - 1));
    QVERIFY(silence.isEnough(HEARD + enoughAfter));
    QVERIFY(!silence.isLong(HEARD + longAfter - 1));
    QVERIFY(silence.isLong(HEARD + longAfter));
    QCOMPARE(silence.nextAt(), HEARD + longAfter);
    // However much is heard meanwhile.
    silence.heardUntil(HEARD + PATIENCE);
    QVERIFY(!silence.isOverdue(HEARD + longAfter + PATIENCE - 1));
    QVERIFY(silence.isOverdue(HEARD + longAfter + PATIENCE));
    QCOMPARE(silence.nextAt(), HEARD + PATIENCE + longAfter);
}

// A pseudo-terminal brings at once what a serial line carries for seconds.
void LineSilenceTest::charactersThatAreStillUnderWay()
{
    LineSilence silence(0, PATIENCE);
    silence.setFrameGap(GAP);
    silence.heardUntil(HEARD + 2 * PATIENCE);
    silence.heardUntil(HEARD);
    silence.await(HEARD);
    QCOMPARE(silence.nextAt(), HEARD + 2 * PATIENCE + GAP);
    QVERIFY(!silence.isOverdue(silence.nextAt()));
    QVERIFY(silence.isLong(silence.nextAt()));
}

void LineSilenceTest::waitingAnewIsNotOverdue()
{
    LineSilence silence(0, PATIENCE);
    silence.setFrameGap(GAP);
    silence.await(HEARD);
    const qint64 overdue = HEARD + GAP + PATIENCE;
    silence.heardUntil(overdue);
    QVERIFY(silence.isOverdue(overdue));
    silence.await(overdue);
    QVERIFY(!silence.isOverdue(overdue + GAP + PATIENCE - 1));
}

QTEST_APPLESS_MAIN(LineSilenceTest)
#include "tst_line_silence.moc"
