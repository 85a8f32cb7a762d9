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
    void aBarOfSlowerRepliesIsLeftByKey();
    void theMouseSelectsABar();
    void drawsWhatThereIs();
    void isDescribed();
    void theAxisSuitsTheTimes_data();
    void theAxisSuitsTheTimes();
    void noTimeAtAllCanBePointedAt();
    void quickRepliesAreToldApart();

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

void HistogramViewTest::aBarOfSlowerRepliesIsLeftByKey()
{
    HistogramView view;
    view.setTimes(times(), QString("Station 1"));
    QTest::keyClick(&view, Qt::Key_Left);
    QCOMPARE(view.selected(), ReplyTimes::classOf(40000));
    ReplyTimes quick;
    quick.add(100);
    view.setTimes(quick, QString("Station 2")); // which was never that slow
    QTest::keyClick(&view, Qt::Key_Right);
    QCOMPARE(view.selected(), ReplyTimes::classOf(40000));
    QTest::keyClick(&view, Qt::Key_Left);
    QCOMPARE(view.selected(), ReplyTimes::classOf(100));
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

void HistogramViewTest::theAxisSuitsTheTimes_data()
{
    QTest::addColumn<QVector<qint64>>("times");
    QTest::addColumn<int>("width"); // characters
    QTest::addColumn<QVector<qint64>>("labelled");
    QTest::newRow("a network, tens of microseconds")
        << QVector<qint64>({30, 60}) << 120 << QVector<qint64>({10, 20, 50, 100});
    QTest::newRow("a slow line, two seconds")
        << QVector<qint64>({2000000}) << 120
        << QVector<qint64>({1000000, 2000000, 5000000, 10000000});
    QTest::newRow("both, with room for decades alone")
        << QVector<qint64>({30, 2000000}) << 60
        << QVector<qint64>({10, 100, 1000, 10000, 100000, 1000000, 10000000});
    QTest::newRow("no time at all beside 30 us")
        << QVector<qint64>({0, 0, 30}) << 120 << QVector<qint64>({10, 20, 50, 100});
    QTest::newRow("no time at all")
        << QVector<qint64>({0}) << 120 << QVector<qint64>({1, 2, 5, 10});
}

void HistogramViewTest::theAxisSuitsTheTimes()
{
    QFETCH(QVector<qint64>, times);
    QFETCH(int, width);
    HistogramView view;
    view.resize(width * view.fontMetrics().averageCharWidth(), 200);
    ReplyTimes replies;
    for (const qint64 time : times)
        replies.add(time);
    view.setTimes(replies, QString("Station 1"));
    QTEST(view.labelledTimes(), "labelled");
}

void HistogramViewTest::noTimeAtAllCanBePointedAt()
{
    HistogramView view;
    view.resize(600, 200);
    ReplyTimes replies;
    for (const qint64 time : {0, 0, 30})
        replies.add(time);
    view.setTimes(replies, QString("Station 1"));
    moveMouse(&view, QPoint(2 * view.fontMetrics().height() + 1, 120)); // where the axis begins
    QCOMPARE(view.selected(), 0);
    QCOMPARE(view.classWords(0), QString("0 ms to 0.001 ms: 2 replies, 66.7 %"));
}

void HistogramViewTest::quickRepliesAreToldApart()
{
    HistogramView view;
    view.resize(600, 200);
    ReplyTimes replies;
    for (const qint64 time : {30, 30, 60})
        replies.add(time);
    view.setTimes(replies, QString("Station 1"));
    QCOMPARE(view.accessibleDescription(),
             QString("Station 1: 3 replies, median 0.031 ms, 99 % within 0.060 ms"));
    QCOMPARE(view.classWords(ReplyTimes::classOf(30)),
             QString("0.030 ms to 0.032 ms: 2 replies, 66.7 %"));
    // The axis has one decade, 0.01 to 0.1 ms; 30 us lies log10(3) along it, 60 us log10(6).
    const int row = view.fontMetrics().height();
    const auto at = [row](double share) {
        return QPoint(static_cast<int>(2 * row + (600 - 4 * row) * share), 120);
    };
    moveMouse(&view, at(0.49));
    QCOMPARE(view.selected(), ReplyTimes::classOf(30));
    moveMouse(&view, at(0.785));
    QCOMPARE(view.selected(), ReplyTimes::classOf(60));
}

QTEST_MAIN(HistogramViewTest)

#include "tst_histogram_view.moc"
