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

QTEST_GUILESS_MAIN(PredictedCycleTest)

#include "tst_predicted_cycle.moc"
