// Which time and values a trend shows.

#include "tools/kxpanel/trend/trend_page_fixture.h"

#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>

using kxpanel::tagOf;
using kxpanel::TrendSide;
using kxpanel::Window;

class TrendPageZoomTest : public QObject
{
    Q_OBJECT

private slots:
    void spacePausesAndHomeGoesOn();
    void keysZoomAndPan();
    void theWheelZoomsAroundTheMouse();
    void aBandZoomsIn();
    void aBandOverLanesZoomsTheTimeAlone();
    void aBandEndsAtTheEdgeOfThePlot();
    void theWheelOverLanesKeepsTheCurves();
    void theMiddleButtonPans();
};

void TrendPageZoomTest::spacePausesAndHomeGoesOn()
{
    Window window;
    window.waitUntilDrawn();
    const qint64 live = window.to();
    QTRY_VERIFY(window.to() > live);
    window.key(Qt::Key_Space);
    QVERIFY(!window.action("live")->isChecked());
    window.waitUntilDrawn();
    const qint64 paused = window.to();
    kxpanel::passFrames(4); // in which it would move by some pixels
    QCOMPARE(window.to(), paused);
    window.key(Qt::Key_Home);
    QVERIFY(window.action("live")->isChecked());
    QTRY_VERIFY(window.to() > paused);
}

void TrendPageZoomTest::keysZoomAndPan()
{
    Window window;
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const qint64 from = window.from();
    const qint64 to = window.to();
    window.key(Qt::Key_Plus);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.from() - (from + 15000)) <= 150); // of a minute the middle half
    QVERIFY(qAbs(window.to() - (to - 15000)) <= 150);
    window.key(Qt::Key_Minus);
    window.key(Qt::Key_Left);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.to() - (to - 15000)) <= 150); // a quarter
    window.key(Qt::Key_Right);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.to() - to) <= 150);
    QComboBox* spans = window.page.findChild<QComboBox*>();
    QCOMPARE(spans->currentText(), QString("1 min"));
    window.key(Qt::Key_Minus);
    QCOMPARE(spans->currentIndex(), -1);
    QCOMPARE(spans->placeholderText(), QString("2 min"));
}

void TrendPageZoomTest::theWheelZoomsAroundTheMouse()
{
    Window window;
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const QPoint place(window.plot->canvas()->width() / 4, 50);
    const qint64 anchor = window.plot->timeAt(place.x());
    const qint64 span = window.to() - window.from();
    QWheelEvent wheel(place, window.plot->canvas()->mapToGlobal(place), QPoint(), QPoint(0, 240),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(window.plot->canvas(), &wheel);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.plot->timeAt(place.x()) - anchor) <= 150);
    // Two notches of 1.25
    QVERIFY(qAbs(double(window.to() - window.from()) * 1.5625 / double(span) - 1) < 0.01);

    const kxpanel::TrendView::Range before = window.plot->shownValues(TrendSide::Left);
    QWheelEvent values(place, window.plot->canvas()->mapToGlobal(place), QPoint(), QPoint(0, 120),
                       Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(window.plot->canvas(), &values);
    window.waitUntilDrawn();
    const kxpanel::TrendView::Range after = window.plot->shownValues(TrendSide::Left);
    QVERIFY(qAbs((after.high - after.low) * 1.25 / (before.high - before.low) - 1) < 0.001);
    window.key(Qt::Key_A);
    window.waitUntilDrawn();
    QCOMPARE(window.plot->shownValues(TrendSide::Left).high, before.high);
}

void TrendPageZoomTest::aBandZoomsIn()
{
    Window window;
    window.drop({window.numbers.at(0)});
    window.read();
    window.waitUntilDrawn();
    QWidget* canvas = window.plot->canvas();
    const QPoint begin(canvas->width() / 4, canvas->height() / 4);
    const QPoint end(canvas->width() / 2, canvas->height() / 2);
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const qint64 from = window.plot->timeAt(begin.x());
    const qint64 to = window.plot->timeAt(end.x());
    const double high = window.plot->valueAt(TrendSide::Left, begin.y());
    window.drag(Qt::LeftButton, begin, end);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.from() - from) <= 150);
    QVERIFY(qAbs(window.to() - to) <= 150);
    QVERIFY(qAbs(window.plot->shownValues(TrendSide::Left).high - high) < 1);
    QVERIFY(!window.action("live")->isChecked());
}

void TrendPageZoomTest::aBandOverLanesZoomsTheTimeAlone()
{
    Window window;
    window.drop(window.numbers);
    const QList<int> bits = window.tags.insert(
        3, {tagOf("", "M1@1"), tagOf("", "M2@1"), tagOf("", "M3@1"), tagOf("", "M4@1")});
    window.drop(bits);
    window.read();
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const QWidget* canvas = window.plot->canvas();
    const kxpanel::TrendView::Range before = window.plot->shownValues(TrendSide::Left);
    const QPoint foot(canvas->width() / 2, canvas->height() - 2);
    const qint64 to = window.plot->timeAt(foot.x());
    const QPoint inLanes(canvas->width() / 4,
                         canvas->height() - 2 - 3 * window.plot->fontMetrics().height());
    QVERIFY(window.plot->valueAt(TrendSide::Left, inLanes.y()) < before.low); // in the lanes
    window.drag(Qt::LeftButton, inLanes, foot);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.to() - to) <= 150);
    QVERIFY(window.plot->shownValues(TrendSide::Left).high > before.low);
    // From the curves down into the lanes: to the foot of the scale.
    window.key(Qt::Key_Home);
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const kxpanel::TrendView::Range whole = window.plot->shownValues(TrendSide::Left);
    window.drag(Qt::LeftButton, QPoint(canvas->width() / 4, canvas->height() / 8), foot);
    window.waitUntilDrawn();
    const kxpanel::TrendView::Range shown = window.plot->shownValues(TrendSide::Left);
    QCOMPARE(shown.low, whole.low);
    QVERIFY(shown.high < whole.high);
    QVERIFY(shown.high > whole.low);
}

void TrendPageZoomTest::aBandEndsAtTheEdgeOfThePlot()
{
    Window window;
    window.drop({window.numbers.at(0)});
    window.read();
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const qint64 from = window.from();
    const double high = window.plot->valueAt(TrendSide::Left, 0);
    window.drag(Qt::LeftButton, QPoint(window.plot->canvas()->width() / 2, 200), QPoint(-80, -90));
    window.waitUntilDrawn();
    QVERIFY2(qAbs(window.from() - from) <= 150, qPrintable(QString::number(window.from() - from)));
    QVERIFY(window.plot->shownValues(TrendSide::Left).high <= high);
}

void TrendPageZoomTest::theWheelOverLanesKeepsTheCurves()
{
    Window window;
    window.drop(window.numbers);
    window.read();
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const kxpanel::TrendView::Range before = window.plot->shownValues(TrendSide::Left);
    QWidget* const canvas = window.plot->canvas();
    const QPoint foot(canvas->width() / 2, canvas->height() - 2);
    QWheelEvent wheel(foot, canvas->mapToGlobal(foot), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(canvas, &wheel);
    window.waitUntilDrawn();
    const kxpanel::TrendView::Range after = window.plot->shownValues(TrendSide::Left);
    QCOMPARE(after.low, before.low);
    QCOMPARE(after.high, before.low + (before.high - before.low) / 1.25);
}

void TrendPageZoomTest::theMiddleButtonPans()
{
    Window window;
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const QWidget* canvas = window.plot->canvas();
    const QPoint begin(canvas->width() / 4, 50);
    const QPoint end(canvas->width() / 2, 60);
    const qint64 to = window.to();
    const qint64 quarter = window.plot->timeAt(end.x()) - window.plot->timeAt(begin.x());
    window.drag(Qt::MiddleButton, begin, end);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.to() - (to - quarter)) <= 150);
    window.drag(Qt::LeftButton, end, begin, Qt::ShiftModifier);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.to() - to) <= 150);
}

QTEST_MAIN(TrendPageZoomTest)
#include "tst_trend_page_zoom.moc"
