#include "kxpanel/health/histogram_view.h"

#include "../mouse_moves.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kxpanel;

class HistogramViewTest : public QObject
{
    Q_OBJECT

private slots:
    void tellsClassesInWords();
    void keysSelectBars();
    void theMouseSelectsABar();
    void drawsWhatThereIs();
    void isDescribed();

private:
    static ReplyTimes times();
};

/// Three of 5.0 ms and one of 40 ms.
ReplyTimes HistogramViewTest::times()
{
    ReplyTimes times;
    for (const qint64 time : {5000, 5000, 40000, 5000})
        times.add(time);
    return times;
}

void HistogramViewTest::tellsClassesInWords()
{
    HistogramView view;
    view.setTimes(times(), QString("Station 1"));
    QCOMPARE(view.classWords(ReplyTimes::classOf(5000)),
             QString("4.6 ms to 5.1 ms: 3 replies, 75.0 %"));
    QCOMPARE(view.classWords(ReplyTimes::classOf(40000)),
             QString("36.9 ms to 41.0 ms: 1 replies, 25.0 %"));
    QCOMPARE(view.classWords(-1), QString());
    QCOMPARE(view.classWords(500), QString());
}

void HistogramViewTest::keysSelectBars()
{
    HistogramView view;
    view.setTimes(times(), QString("Station 1"));
    QSignalSpy selected(&view, &HistogramView::classSelected);
    QTest::keyClick(&view, Qt::Key_Right);
    QCOMPARE(view.selected(), ReplyTimes::classOf(5000));
    QTest::keyClick(&view, Qt::Key_Right);
    QCOMPARE(view.selected(), ReplyTimes::classOf(40000));
    QTest::keyClick(&view, Qt::Key_Right); // there is no other
    QCOMPARE(view.selected(), ReplyTimes::classOf(40000));
    QTest::keyClick(&view, Qt::Key_Left);
    QCOMPARE(view.selected(), ReplyTimes::classOf(5000));
    QCOMPARE(selected.count(), 3);
    QCOMPARE(selected.at(0).at(0).toString(), QString("4.6 ms to 5.1 ms: 3 replies, 75.0 %"));
}

void HistogramViewTest::theMouseSelectsABar()
{
    HistogramView view;
    view.resize(600, 200);
    view.setTimes(times(), QString("Station 1"));
    // The axis has two decades, 1 to 100 ms; 5 ms lies 35 % along it: log10(5) / 2.
    const int row = view.fontMetrics().height();
    const int x = static_cast<int>(2 * row + (600 - 4 * row) * 0.345);
    moveMouse(&view, QPoint(x, 120));
    QCOMPARE(view.selected(), ReplyTimes::classOf(5000));
    moveMouse(&view, QPoint(x + 40, 120));
    QVERIFY(view.selected() != ReplyTimes::classOf(5000));
}

void HistogramViewTest::drawsWhatThereIs()
{
    HistogramView view;
    view.resize(600, 200);
    const QImage empty = view.grab().toImage();
    view.setTimes(times(), QString("Station 1"));
    const QImage drawn = view.grab().toImage();
    const QRgb bar = view.palette().color(QPalette::Highlight).rgb();
    // The bar of three in four is as high as the plot: it ends right above the axis.
    const int row = view.fontMetrics().height();
    const int x = static_cast<int>(2 * row + (600 - 4 * row) * 0.342);
    QCOMPARE(drawn.pixel(x, 200 - 2 * row), bar);
    QCOMPARE(drawn.pixel(x, 4 * row), bar);
    QVERIFY(empty.pixel(x, 4 * row) != bar);
}

void HistogramViewTest::isDescribed()
{
    HistogramView view;
    view.setTimes(times(), QString("Station 1"));
    QCOMPARE(view.accessibleDescription(),
             QString("Station 1: 4 replies, median 5.1 ms, 99 % within 40.0 ms"));
}

QTEST_MAIN(HistogramViewTest)

#include "tst_histogram_view.moc"
