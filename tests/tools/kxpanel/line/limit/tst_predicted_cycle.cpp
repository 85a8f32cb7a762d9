// What is predicted of a cycle beside what it takes: a session polls simulated controllers in
// virtual time, of which nothing else takes any.

#include "tools/kxpanel/line/limit/timed_polling.h"

#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

struct WatchList {
    const char* name;
    const char* ranges;
};

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

QTEST_GUILESS_MAIN(PredictedCycleTest)

#include "tst_predicted_cycle.moc"
