#include "kxpanel/trend/model/trend_view.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <cmath>

using kxpanel::TrendSide;
using kxpanel::TrendView;

class TrendViewTest : public QObject
{
    Q_OBJECT

private slots:
    void followsNowWhileLive();
    void standsStillWhilePaused();
    void panningPauses();
    void zoomsAroundATimeWhenPaused();
    void zoomsAtNowWhenLive();
    void keepsToItsSpans();
    void showsARange();
    void refusesValuesUpsideDown();
    void refusesValuesThatNoScaleShows();
    void rangesCanBeDrawn_data();
    void rangesCanBeDrawn();
    void aClockThatIsSetMovesAll();
    void beginsAnew();
    void cursorsStayInTheWindow();
    void differenceNeedsBoth();
};

void TrendViewTest::followsNowWhileLive()
{
    TrendView view;
    QSignalSpy changes(&view, &TrendView::changed);
    view.setNow(100000);
    QCOMPARE(view.to(), qint64(100000));
    QCOMPARE(view.from(), qint64(40000)); // a minute at first
    view.setNow(100000);
    QCOMPARE(changes.size(), 1);
}

void TrendViewTest::standsStillWhilePaused()
{
    TrendView view;
    QSignalSpy lives(&view, &TrendView::liveChanged);
    view.setNow(100000);
    view.pause();
    view.setNow(200000);
    QCOMPARE(view.to(), qint64(100000));
    QCOMPARE(view.now(), qint64(200000));
    view.goLive();
    QCOMPARE(view.to(), qint64(200000));
    QCOMPARE(lives.size(), 2);
}

void TrendViewTest::panningPauses()
{
    TrendView view;
    view.setNow(100000);
    view.pan(-0.25);
    QVERIFY(!view.isLive());
    QCOMPARE(view.to(), qint64(85000));
    view.pan(0.25);
    QCOMPARE(view.to(), qint64(100000));
    QVERIFY(!view.isLive());
}

void TrendViewTest::zoomsAroundATimeWhenPaused()
{
    TrendView view;
    view.setNow(100000);
    view.pause();
    view.zoom(0.5, 55000); // a quarter of the window
    QCOMPARE(view.from(), qint64(47500));
    QCOMPARE(view.to(), qint64(77500));
    view.zoom(2, 55000);
    QCOMPARE(view.from(), qint64(40000));
    QCOMPARE(view.to(), qint64(100000));
}

void TrendViewTest::zoomsAtNowWhenLive()
{
    TrendView view;
    view.setNow(100000);
    view.zoom(0.5, 55000);
    QVERIFY(view.isLive());
    QCOMPARE(view.to(), qint64(100000));
    QCOMPARE(view.from(), qint64(70000));
}

void TrendViewTest::keepsToItsSpans()
{
    TrendView view;
    view.setSpan(1);
    QCOMPARE(view.span(), qint64(20));
    view.zoom(1e-9, 0);
    QCOMPARE(view.span(), qint64(20));
    view.zoom(1e12, 0);
    QCOMPARE(view.span(), qint64(31622400000)); // 366 days
}

void TrendViewTest::showsARange()
{
    TrendView view;
    view.show(1000, 5000);
    QVERIFY(!view.isLive());
    QCOMPARE(view.from(), qint64(1000));
    QCOMPARE(view.to(), qint64(5000));
    view.show(1000, 1000); // one moment: as little as can be
    QCOMPARE(view.from(), qint64(1000));
    QCOMPARE(view.to(), qint64(1020));
}

void TrendViewTest::refusesValuesUpsideDown()
{
    TrendView view;
    view.showValues(TrendSide::Left, TrendView::Range{1, 5});
    view.showValues(TrendSide::Left, TrendView::Range{5, 1});
    view.showValues(TrendSide::Left, TrendView::Range{5, 5});
    QCOMPARE(view.values(TrendSide::Left)->low, 1.0);
    QCOMPARE(view.values(TrendSide::Left)->high, 5.0);
    QVERIFY(!view.values(TrendSide::Right));
    view.showValues(TrendSide::Left, std::nullopt);
    QVERIFY(!view.values(TrendSide::Left));
}

void TrendViewTest::refusesValuesThatNoScaleShows()
{
    TrendView view;
    view.showValues(TrendSide::Left, TrendView::Range{1, 5});
    view.showValues(TrendSide::Left, TrendView::Range{-1e301, 5}); // zoomed out without end
    view.showValues(TrendSide::Left, TrendView::Range{1, HUGE_VAL});
    view.showValues(TrendSide::Left, TrendView::Range{1e6, 1e6 + 1e-9}); // and in
    view.showValues(TrendSide::Left, TrendView::Range{1, std::nan("")});
    QCOMPARE(view.values(TrendSide::Left)->low, 1.0);
    QCOMPARE(view.values(TrendSide::Left)->high, 5.0);
}

void TrendViewTest::rangesCanBeDrawn_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<double>("drawnLow");
    QTest::addColumn<double>("drawnHigh");

    QTest::newRow("two values") << -2.0 << 3.0 << -2.0 << 3.0;
    QTest::newRow("one value") << 20.0 << 20.0 << 10.0 << 30.0;
    QTest::newRow("one below zero") << -20.0 << -20.0 << -30.0 << -10.0;
    QTest::newRow("zero") << 0.0 << 0.0 << -0.5 << 0.5;
    QTest::newRow("next to zero") << 0.0 << 5e-324 << -0.5 << 0.5;
    QTest::newRow("beyond all scales") << -1.7e308 << 1.7e308 << -1e300 << 1e300;
    QTest::newRow("nearer than a scale tells")
        << 1e15 << 1e15 + 0.125 << 1e15 - 1000 << 1e15 + 1000.125;
}

void TrendViewTest::rangesCanBeDrawn()
{
    QFETCH(double, low);
    QFETCH(double, high);
    const TrendView::Range range = kxpanel::drawnRange(low, high);
    QTEST(range.low, "drawnLow");
    QTEST(range.high, "drawnHigh");
}

void TrendViewTest::aClockThatIsSetMovesAll()
{
    TrendView view;
    view.setNow(100000);
    view.setCursor(1, 80000);
    view.shift(-30000);
    QCOMPARE(view.now(), qint64(70000));
    QCOMPARE(view.to(), qint64(70000));
    QCOMPARE(*view.cursor(1), qint64(50000));
    QVERIFY(!view.cursor(0));
    QVERIFY(view.isLive());
}

void TrendViewTest::beginsAnew()
{
    TrendView view;
    view.setNow(100000);
    view.show(1000, 5000);
    view.showValues(TrendSide::Right, TrendView::Range{1, 5});
    view.setCursor(0, 2000);
    view.reset();
    QVERIFY(view.isLive());
    QCOMPARE(view.to(), qint64(100000));
    QCOMPARE(view.span(), qint64(60000));
    QVERIFY(!view.values(TrendSide::Right));
    QVERIFY(!view.cursor(0));
}

void TrendViewTest::cursorsStayInTheWindow()
{
    TrendView view;
    view.show(1000, 5000);
    view.moveCursor(10); // none is set
    QVERIFY(!view.cursor(0));
    view.setCursor(0, 1500);
    view.setCursor(1, 4990);
    view.moveCursor(7);
    QCOMPARE(*view.cursor(1), qint64(4997));
    view.moveCursor(7);
    QCOMPARE(*view.cursor(1), qint64(5000));
    view.setCursor(0, 1005);
    view.moveCursor(-10);
    QCOMPARE(*view.cursor(0), qint64(1000));
}

void TrendViewTest::differenceNeedsBoth()
{
    TrendView view;
    QSignalSpy cursors(&view, &TrendView::cursorsChanged);
    view.setCursor(0, 5000);
    QVERIFY(!view.difference());
    view.setCursor(1, 3500);
    QCOMPARE(*view.difference(), qint64(-1500));
    view.clearCursors();
    QVERIFY(!view.difference());
    QCOMPARE(cursors.size(), 3);
}

QTEST_APPLESS_MAIN(TrendViewTest)
#include "tst_trend_view.moc"
