#include "kxpanel/line/cycle/cycle_picture.h"

#include "../../mouse_moves.h"
#include "../../sample_exchanges.h"
#include "kxpanel/line/colours/line_colours.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

const qint64 BEGIN = SAMPLE_TIME * 1000; // microseconds

} // namespace

class CyclePictureTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TZ", "CET-1"); }
    void init();
    void cleanup();
    void showsTheLatestCycles();
    void staysWhereItIsWhilePaused();
    void clickingSelects();
    void pointingTells();
    void keysSelect();
    void draggingMoves();
    void zoomsByWheelAndKeys();
    void keysMove();
    void forgetsWhatIsNotKept();
    void drawsStretchesInTheirColours();
    void drawsMarks();
    void timesAtTheEdgeAreWhole();
    void drawsEachStationHoweverMuchIsSeen();

private:
    void add(const QVector<Exchange>& exchanges);
    QPoint at(qint64 time) const;
    QString told() const { return m_told->isEmpty() ? QString() : m_told->last().at(0).toString(); }

    LineRecord m_record{20};
    std::unique_ptr<CyclePicture> m_picture;
    std::unique_ptr<QSignalSpy> m_told;
};

void CyclePictureTest::init()
{
    m_record.clear();
    m_picture = std::make_unique<CyclePicture>(&m_record);
    m_told = std::make_unique<QSignalSpy>(m_picture.get(), &CyclePicture::told);
    m_picture->resize(800, 160);
    m_picture->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_picture.get()));
}

void CyclePictureTest::cleanup()
{
    m_told.reset();
    m_picture.reset();
}

void CyclePictureTest::add(const QVector<Exchange>& exchanges)
{
    for (const Exchange& exchange : exchanges)
        m_record.add(exchange, kx::LineTiming());
    m_picture->onRecordChanged();
}

/// In the middle of the only lane.
QPoint CyclePictureTest::at(qint64 time) const
{
    return {qRound(m_picture->axis().xOf(time)), 60};
}

void CyclePictureTest::showsTheLatestCycles()
{
    add(answeredPolls(2));
    QCOMPARE(m_picture->axis().to(), BEGIN + 72709); // the end of the second reply
    add(answeredPolls(10).mid(2));
    QCOMPARE(m_picture->axis().to(), BEGIN + 472709);
    QCOMPARE(m_picture->axis().span(), qint64(150000)); // three cycles
    m_picture->zoom(2);
    QCOMPARE(m_picture->axis().span(), qint64(300000));
    add(answeredPolls(11).mid(10)); // the person's choice stays
    QCOMPARE(m_picture->axis().span(), qint64(300000));
    QCOMPARE(m_picture->axis().to(), BEGIN + 522709);
}

void CyclePictureTest::staysWhereItIsWhilePaused()
{
    QSignalSpy live(m_picture.get(), &CyclePicture::liveChanged);
    add(answeredPolls(10));
    QTest::keyClick(m_picture.get(), Qt::Key_Space);
    QVERIFY(!m_picture->isLive());
    add(answeredPolls(12).mid(10));
    QCOMPARE(m_picture->axis().to(), BEGIN + 472709);
    QTest::keyClick(m_picture.get(), Qt::Key_End);
    QVERIFY(m_picture->isLive());
    QCOMPARE(m_picture->axis().to(), BEGIN + 572709);
    QCOMPARE(live.count(), 2);
}

void CyclePictureTest::clickingSelects()
{
    add(answeredPolls(10));
    QTest::mouseClick(m_picture.get(), Qt::LeftButton, Qt::NoModifier, at(BEGIN + 410000));
    QCOMPARE(m_picture->selected(), qint64(8));
    QVERIFY(told().startsWith("11:00:00.400, station 1: read D100:2; sent in 8.3 ms"));
    QTest::keyClick(m_picture.get(), Qt::Key_Escape);
    QCOMPARE(m_picture->selected(), qint64(-1));
    QCOMPARE(told(), QString());
}

void CyclePictureTest::pointingTells()
{
    add(answeredPolls(10));
    moveMouse(m_picture.get(), at(BEGIN + 360000));
    QVERIFY(told().startsWith("11:00:00.350"));
    QCOMPARE(m_picture->selected(), qint64(-1));
}

void CyclePictureTest::keysSelect()
{
    add(answeredPolls(10));
    QTest::keyClick(m_picture.get(), Qt::Key_Left);
    QCOMPARE(m_picture->selected(), qint64(9));
    QVERIFY(!m_picture->isLive());                   // what is looked at stays
    QTest::keyClick(m_picture.get(), Qt::Key_Right); // it was the latest
    QCOMPARE(m_picture->selected(), qint64(9));
    for (int i = 0; i < 7; ++i)
        QTest::keyClick(m_picture.get(), Qt::Key_Left);
    QCOMPARE(m_picture->selected(), qint64(2));
    QVERIFY(m_picture->axis().from() <= BEGIN + 100000); // brought into view
}

void CyclePictureTest::draggingMoves()
{
    add(answeredPolls(10));
    const qint64 from = m_picture->axis().from();
    const QPoint start = at(from + 75000);
    const QPoint end = at(from + 125000);
    QTest::mousePress(m_picture.get(), Qt::LeftButton, Qt::NoModifier, start);
    moveMouse(m_picture.get(), end, Qt::LeftButton);
    QVERIFY(!m_picture->isLive());
    QTest::mouseRelease(m_picture.get(), Qt::LeftButton, Qt::NoModifier, end);
    QVERIFY(qAbs(m_picture->axis().from() - (from - 50000)) < 500); // by a pixel's rounding
    QCOMPARE(m_picture->selected(), qint64(-1));
}

void CyclePictureTest::zoomsByWheelAndKeys()
{
    add(answeredPolls(10));
    const auto turn = [this](const QPoint& where, int delta) {
        QWheelEvent event(where, m_picture->mapToGlobal(where), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_picture.get(), &event);
    };
    turn(at(BEGIN + 400000), 120);
    QCOMPARE(m_picture->axis().span(), qint64(120000)); // of 150000, by 1.25
    QCOMPARE(m_picture->axis().to(), BEGIN + 472709);   // it is live: its end stays
    m_picture->setLive(false);
    const QPoint where = at(BEGIN + 400000);
    turn(where, -120);
    QCOMPARE(m_picture->axis().span(), qint64(150000));
    QVERIFY(qAbs(at(BEGIN + 400000).x() - where.x()) <= 1);
    QTest::keyClick(m_picture.get(), Qt::Key_Plus);
    QCOMPARE(m_picture->axis().span(), qint64(120000));
    QTest::keyClick(m_picture.get(), Qt::Key_Minus);
    QTest::keyClick(m_picture.get(), Qt::Key_Minus);
    QCOMPARE(m_picture->axis().span(), qint64(187500));
    m_picture->showCycles(3);
    QCOMPARE(m_picture->axis().span(), qint64(150000));
}

void CyclePictureTest::keysMove()
{
    add(answeredPolls(10));
    const qint64 from = m_picture->axis().from();
    QTest::keyClick(m_picture.get(), Qt::Key_PageUp);
    QCOMPARE(m_picture->axis().from(), from - 120000); // four fifths of 150000
    QVERIFY(!m_picture->isLive());
    QTest::keyClick(m_picture.get(), Qt::Key_PageDown);
    QCOMPARE(m_picture->axis().from(), from);
}

void CyclePictureTest::forgetsWhatIsNotKept()
{
    add(answeredPolls(10));
    QTest::keyClick(m_picture.get(), Qt::Key_Left);
    QCOMPARE(m_picture->selected(), qint64(9));
    add(answeredPolls(40).mid(10)); // 20 are kept
    QCOMPARE(m_picture->selected(), qint64(-1));
    QCOMPARE(told(), QString());
}

void CyclePictureTest::drawsStretchesInTheirColours()
{
    add(answeredPolls(10));
    m_picture->setLive(false);
    for (int i = 0; i < 6; ++i)
        QTest::keyClick(m_picture.get(), Qt::Key_Plus);
    QTest::keyClick(m_picture.get(), Qt::Key_Left); // the latest, which comes into view
    QTest::keyClick(m_picture.get(), Qt::Key_Escape);
    const QImage image = m_picture->grab().toImage();
    const auto has = [&](qint64 from, qint64 to, const QColor& colour) {
        const int top = 50; // within the lane
        for (int x = at(from).x() + 2; x < at(to).x() - 2; ++x) {
            for (int y = top; y < top + 8; ++y) {
                if (image.pixelColor(x, y) == colour)
                    return true;
            }
        }
        return false;
    };
    const LineColours colours = lineColours(m_picture->palette());
    const qint64 sent = BEGIN + 450000;
    QVERIFY(has(sent, sent + 8334, colours.sent.color()));
    QVERIFY(!has(sent, sent + 8334, colours.received.color()));
    QVERIFY(has(sent + 8334, sent + 13334, colours.waited.color()));
    QVERIFY(has(sent + 13334, sent + 22709, colours.received.color()));
    QVERIFY(!has(sent - 10000, sent, colours.sent.color()));
}

void CyclePictureTest::drawsMarks()
{
    const auto reds = [this] {
        const QImage image = m_picture->grab().toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                count += colour.red() > colour.blue() + 80 && colour.red() > colour.green() + 60;
            }
        }
        return count;
    };
    add(answeredPolls(2));
    QCOMPARE(reds(), 0);
    Exchange failed = answeredPolls(3).last();
    failed.wasAccepted = false;
    add({failed});
    QVERIFY(reds() > 5);
}

void CyclePictureTest::timesAtTheEdgeAreWhole()
{
    add(answeredPolls(13)); // the last one ends at 622.7 ms
    m_picture->zoom(4);     // 600 ms are shown, and the tick at 600 is 30 pixels from the edge
    m_picture->clearFocus();
    const QImage image = m_picture->grab().toImage();
    const int row = m_picture->fontMetrics().height();
    int written = 0; // in the last pixels of the times
    for (int y = image.height() - row; y < image.height(); ++y)
        written +=
            image.pixelColor(image.width() - 1, y) != m_picture->palette().color(QPalette::Base)
                ? 1
                : 0;
    QCOMPARE(written, 0);
}

void CyclePictureTest::drawsEachStationHoweverMuchIsSeen()
{
    QVector<Exchange> polls = answeredPolls(20);
    for (int i = 1; i < 20; i += 2)
        polls[i].request[0] = 2; // the station
    add(polls);
    for (int i = 0; i < 60; ++i)
        m_picture->zoom(1.25);
    QCOMPARE(m_picture->axis().span(), qint64(600000000)); // of which one pixel has all
    const QImage image = m_picture->grab().toImage();
    const LineColours colours = lineColours(m_picture->palette());
    const auto isDrawn = [&](int top, int bottom) {
        for (int y = top; y < bottom; ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                if (colour == colours.sent.color() || colour == colours.received.color())
                    return true;
            }
        }
        return false;
    };
    const int middle = (160 - m_picture->fontMetrics().height() * 3 / 2) / 2; // of the two lanes
    QVERIFY(isDrawn(0, middle));
    QVERIFY(isDrawn(middle, 160));
}

QTEST_MAIN(CyclePictureTest)

#include "tst_cycle_picture.moc"
