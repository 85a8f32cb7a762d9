// What is predicted of a cycle beside what it takes: a session polls simulated controllers in
// virtual time, of which nothing else takes any.

#include "kxpanel/line/limit/limit_costs.h"
#include "tools/kxpanel/line/limit/timed_polling.h"

#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

struct WatchList {
    const char* name;
    const char* ranges;
};

const int TIME_OUT = 1000; // milliseconds

const WatchList EACH_CYCLE[] = {
    {"few long requests", "D0:120 D1000:120"},
    {"many short requests", "D0 D500 D1000 D1500 D2000 D2500 D3000 D3500 M0 M900 X0 Y0 32CV200"},
    {"gaps that are read along", "D0:10 D14:3 D24 D40:30 M0:20 M90:3"},
    {"three stations", "D0:10 D100:3 D0:10@2 D900@3 M0:20@3 X0@3"},
};

} // namespace

class PredictedCycleTest : public QObject
{
    Q_OBJECT

private slots:
    void isMeasured_data();
    void isMeasured();
    void withIntervalsIsMeasured_data();
    void withIntervalsIsMeasured();
    void theBestLimitTakesLeast_data();
    void theBestLimitTakesLeast();
};

void PredictedCycleTest::isMeasured_data()
{
    QTest::addColumn<int>("baud");
    QTest::addColumn<int>("parityBits");
    QTest::addColumn<int>("processing"); // milliseconds
    QTest::addColumn<QString>("ranges");
    for (const int baud : {2400, 9600, 19200, 115200}) {
        for (const int parityBits : {0, 1}) {
            for (const int processing : {0, 1, 5, 20}) {
                for (const WatchList& list : EACH_CYCLE)
                    QTest::addRow("%s, %d baud, %s, %d ms", list.name, baud,
                                  parityBits == 0 ? "8N1" : "8E1", processing)
                        << baud << parityBits << processing << QString::fromLatin1(list.ranges);
            }
        }
    }
}

void PredictedCycleTest::isMeasured()
{
    QFETCH(int, baud);
    QFETCH(int, parityBits);
    QFETCH(int, processing);
    QFETCH(QString, ranges);
    kx::FaultyLineSettings line = threeStations(baud, parityBits);
    line.processing = processing;
    line.processingOf.insert(3, processing + 12);
    TimedPolling polling(line, polledRanges(ranges), 0);
    const qint64 predicted = polling.predicted();
    const qint64 measured = polling.measured();
    const QString words =
        QStringLiteral("predicted %1, measured %2 us").arg(predicted).arg(measured);
    // What is sent and what comes are rounded up to whole microseconds, each by itself.
    QVERIFY2(qAbs(predicted - measured) <= 20, qPrintable(words));
}

void PredictedCycleTest::withIntervalsIsMeasured_data()
{
    QTest::addColumn<int>("baud");
    QTest::addColumn<int>("processing"); // milliseconds
    QTest::addColumn<QString>("ranges");
    QTest::addColumn<qint64>("off"); // thousandths
    const QString kept = QStringLiteral("D0:10/400 D500:4/1000 M0/2000");
    QTest::newRow("intervals alone, 9600 baud") << 9600 << 5 << kept << qint64(0);
    QTest::newRow("intervals alone, 115200 baud") << 115200 << 0 << kept << qint64(0);
    const QString between =
        QStringLiteral("D0:10 D500:4 M0:8 D2000:4/500 D3000/1000 M900:3/1000 D6000@2/1000");
    QTest::newRow("between others, 2400 baud") << 2400 << 20 << between << qint64(10);
    QTest::newRow("between others, 9600 baud") << 9600 << 5 << between << qint64(10);
    QTest::newRow("between others, 19200 baud") << 19200 << 1 << between << qint64(10);
    QTest::newRow("between others, 115200 baud") << 115200 << 20 << between << qint64(10);
    // Which of them waits for which differs from cycle to cycle.
    const QString many = QStringLiteral("D0:100/50 D500:100/100 M0/100");
    QTest::newRow("too many, 9600 baud") << 9600 << 5 << many << qint64(20);
    QTest::newRow("too many, 19200 baud") << 19200 << 5 << many << qint64(20);
    QTest::newRow("too many, 115200 baud") << 115200 << 20 << many << qint64(20);
    QTest::newRow("just enough, 115200 baud") << 115200 << 5 << many << qint64(0);
}

void PredictedCycleTest::withIntervalsIsMeasured()
{
    QFETCH(int, baud);
    QFETCH(int, processing);
    QFETCH(QString, ranges);
    QFETCH(qint64, off);
    kx::FaultyLineSettings line = threeStations(baud);
    line.processing = processing;
    TimedPolling polling(line, polledRanges(ranges), 0);
    const qint64 predicted = polling.predicted();
    const qint64 measured = polling.measured(20, 60000);
    const QString words =
        QStringLiteral("predicted %1, measured %2 us").arg(predicted).arg(measured);
    QVERIFY2(qAbs(predicted - measured) <= 20 + off * measured / 1000, qPrintable(words));
}

void PredictedCycleTest::theBestLimitTakesLeast_data()
{
    QTest::addColumn<int>("baud");
    QTest::addColumn<int>("processing"); // milliseconds
    QTest::addColumn<QString>("ranges");
    QTest::addColumn<bool>("isKept"); // the cycle is an interval
    QTest::addColumn<int>("best");
    const QString runs = QStringLiteral("D0:10 D14:3 D24 D40:30 M0:20 M90:3");
    QTest::newRow("gaps, 9600 baud, quick") << 9600 << 0 << runs << false << 30;
    QTest::newRow("gaps, 9600 baud, slow") << 9600 << 20 << runs << false << 70;
    QTest::newRow("one long run") << 9600 << 5 << QStringLiteral("D0:120") << false << 120;
    QTest::newRow("longer replies come too late")
        << 1200 << 5 << QStringLiteral("D0:120") << false << 40;
    QTest::newRow("coils and registers") // 300 coils are 19 registers
        << 19200 << 5 << QStringLiteral("M0:300 X0:40 D0:12 32CV200:4") << false << 19;
    QTest::newRow("three stations")
        << 19200 << 5 << QStringLiteral("D0:30 D100:3 D0:10@2 D14@2 M0:100@3") << false << 30;
    QTest::newRow("intervals between others")
        << 9600 << 5 << QStringLiteral("D0:30 D500:4 M0:80 D2000:40/500") << false << 40;
    QTest::newRow("intervals that are kept")
        << 19200 << 5 << QStringLiteral("D0:30/300 D500:9/700 M0/1100") << true << 30;
    QTest::newRow("intervals that cannot be kept")
        << 9600 << 5 << QStringLiteral("D0:30/20 D500:9/20 M0:80/40") << false << 30;
}

void PredictedCycleTest::theBestLimitTakesLeast()
{
    QFETCH(int, baud);
    QFETCH(int, processing);
    QFETCH(QString, ranges);
    QFETCH(bool, isKept);
    kx::FaultyLineSettings line = threeStations(baud);
    line.processing = processing;
    const QList<kx::PolledRange> watched = polledRanges(ranges);
    LimitCosts costs;
    costs.start(watched, TimedPolling(line, watched, 0, TIME_OUT).pace());
    QTRY_VERIFY(costs.isFinished());
    QTEST(costs.best(), "best");
    QList<qint64> measured;
    for (int limit = 1; limit <= kx::MOST_REGISTERS_PER_READ; ++limit)
        measured
            << TimedPolling(line, watched, limit, TIME_OUT).measured(10, isKept ? 30000 : 5000);
    const qint64 ofBest = measured.at(costs.best() - 1);
    for (int limit = 1; limit <= kx::MOST_REGISTERS_PER_READ; ++limit) {
        const qint64 time = measured.at(limit - 1);
        const qint64 off = isKept ? time / 100 : 20; // as cycles wait for other polls; as above
        QVERIFY2(time >= ofBest - off, qPrintable(QString::number(limit)));
        // The lowest limit of them, or the one with which an interval leaves the most time.
        QVERIFY2(isKept || limit >= costs.best() || time > ofBest + off,
                 qPrintable(QString::number(limit)));
    }
}

QTEST_GUILESS_MAIN(PredictedCycleTest)

#include "tst_predicted_cycle.moc"
