#include "kxpanel/line/cycle/time_axis.h"

#include <QtTest/QTest>

using namespace kxpanel;

class TimeAxisTest : public QObject
{
    Q_OBJECT

private slots:
    void placesTimes();
    void zoomsAroundAPoint();
    void keepsToItsBounds();
    void pans();
    void ticks_data();
    void ticks();

private:
    static TimeAxis axis(qint64 from, qint64 span);
};

/// 1000 pixels from 50 on.
TimeAxis TimeAxisTest::axis(qint64 from, qint64 span)
{
    TimeAxis axis;
    axis.setPixels(50, 1000);
    axis.setSpan(span);
    axis.setEnd(from + span);
    return axis;
}

void TimeAxisTest::placesTimes()
{
    const TimeAxis time = axis(7000000, 200000); // 200 us for each pixel
    QCOMPARE(time.xOf(7000000), 50.0);
    QCOMPARE(time.xOf(7100000), 550.0);
    QCOMPARE(time.timeAt(550), qint64(7100000));
    QCOMPARE(time.timeAt(40), qint64(6998000));
    QCOMPARE(time.to(), qint64(7200000));
}

void TimeAxisTest::zoomsAroundAPoint()
{
    TimeAxis time = axis(7000000, 200000);
    time.zoom(0.5, 300); // a quarter of the way: 7050000
    QCOMPARE(time.span(), qint64(100000));
    QCOMPARE(time.timeAt(300), qint64(7050000));
    QCOMPARE(time.from(), qint64(7025000));
    time.zoom(4, 1050); // at its end
    QCOMPARE(time.span(), qint64(400000));
    QCOMPARE(time.to(), qint64(7125000));
}

void TimeAxisTest::keepsToItsBounds()
{
    TimeAxis time = axis(7000000, 200000);
    time.zoom(0.000001, 1050);
    QCOMPARE(time.span(), qint64(1000));
    QCOMPARE(time.to(), qint64(7200000));
    time.zoom(1e9, 1050);
    QCOMPARE(time.span(), qint64(600000000));
    time.setPixels(50, -3); // a window that has no room
    QCOMPARE(time.width(), 1.0);
}

void TimeAxisTest::pans()
{
    TimeAxis time = axis(7000000, 200000);
    time.pan(100);
    QCOMPARE(time.from(), qint64(7020000));
    time.pan(-200);
    QCOMPARE(time.from(), qint64(6980000));
    QCOMPARE(time.span(), qint64(200000));
}

void TimeAxisTest::ticks_data()
{
    QTest::addColumn<qint64>("span");
    QTest::addColumn<double>("apart");
    QTest::addColumn<QVector<qint64>>("times");
    // 1000 pixels from 7013000 us on.
    QTest::newRow("20 ms need 100 pixels, 50 ms have them")
        << qint64(200000) << 101.0 << QVector<qint64>({7050000, 7100000, 7150000, 7200000});
    QTest::newRow("just apart enough")
        << qint64(200000) << 250.0 << QVector<qint64>({7050000, 7100000, 7150000, 7200000});
    QTest::newRow("a power of ten further apart")
        << qint64(200000) << 251.0 << QVector<qint64>({7100000, 7200000});
    QTest::newRow("a tick at the very begin")
        << qint64(2000) << 500.0 << QVector<qint64>({7013000, 7014000, 7015000});
}

void TimeAxisTest::ticks()
{
    QFETCH(qint64, span);
    QFETCH(double, apart);
    QTEST(axis(7013000, span).ticks(apart), "times");
}

QTEST_GUILESS_MAIN(TimeAxisTest)

#include "tst_time_axis.moc"
