#include "kxpanel/frames/frames_model.h"

#include "../sample_exchanges.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

FrameFilter ofStation(int station)
{
    FrameFilter filter;
    filter.station = station;
    return filter;
}

} // namespace

class FramesModelTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TZ", "CET-1"); }
    void showsWhatAnExchangeWas();
    void marksWhatWasNotAccepted();
    void forgetsTheOldest();
    void keepsToItsBoundInOneBatch();
    void filters();
    void rowsOfAFilterGoWithTheirExchanges();
    void keepsRowsWhilePaused();
    void findsRowsByPlace();
    void clears();
    void namesStationsOnce();

private:
    static QString text(const FramesModel& model, int row, int column);
    static QList<qint64> numbers(const FramesModel& model);
};

QString FramesModelTest::text(const FramesModel& model, int row, int column)
{
    return model.index(row, column).data().toString();
}

QList<qint64> FramesModelTest::numbers(const FramesModel& model)
{
    QList<qint64> numbers;
    for (const Exchange& exchange : model.shown())
        numbers << exchange.number;
    return numbers;
}

void FramesModelTest::showsWhatAnExchangeWas()
{
    FramesModel model;
    model.add({answeredPoll()});
    const QStringList expected = {
        QString("11:00:00.000"), QString("1"),
        QString("poll"),         QString("read D100:2"),
        QString("1234 17"),      QString(QChar(0x2713)) + QString(" good, accepted"),
        QString("5.0 ms"),       QString("30 ms")};
    QStringList shown;
    for (int column = 0; column < model.columnCount(); ++column) {
        shown << text(model, 0, column);
        QVERIFY(!model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().isEmpty());
        QVERIFY(!model.headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString().isEmpty());
    }
    QCOMPARE(shown, expected);
}

void FramesModelTest::marksWhatWasNotAccepted()
{
    FramesModel model;
    model.add({answeredPoll(), unansweredPoll(), refusedWrite()});
    QVERIFY(text(model, 1, FramesModel::Outcome).startsWith(QChar(0x21BB)));
    QVERIFY(text(model, 2, FramesModel::Outcome).startsWith(QChar(0x2717)));
    const auto colour = [&model](int row) {
        return model.index(row, FramesModel::Outcome).data(Qt::ForegroundRole);
    };
    QVERIFY(!colour(0).isValid());
    QVERIFY(colour(1).isValid());
    QVERIFY(colour(2).isValid());
    QVERIFY(colour(1) != colour(2));
}

void FramesModelTest::forgetsTheOldest()
{
    FramesModel model(3);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const QVector<Exchange> polls = answeredPolls(5); // with the numbers 1 to 5
    model.add(polls.mid(0, 2));
    model.add(polls.mid(2, 2));
    QCOMPARE(numbers(model), QList<qint64>({2, 3, 4}));
    model.add(polls.mid(4));
    QCOMPARE(numbers(model), QList<qint64>({3, 4, 5}));
    QCOMPARE(model.kept(), 3);
}

void FramesModelTest::keepsToItsBoundInOneBatch()
{
    FramesModel model(3);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.add(answeredPolls(1));
    model.add(answeredPolls(7));
    QCOMPARE(numbers(model), QList<qint64>({5, 6, 7}));
}

void FramesModelTest::filters()
{
    FramesModel model;
    model.add({answeredPoll(), unansweredPoll(), refusedWrite()});
    model.setFilter(ofStation(2));
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(text(model, 0, FramesModel::Request), QString("write Y10 = 1"));
    model.add({refusedWrite(), answeredPoll()});
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.kept(), 5);
    model.setFilter(FrameFilter());
    QCOMPARE(model.rowCount(), 5);
}

void FramesModelTest::rowsOfAFilterGoWithTheirExchanges()
{
    FramesModel model(3);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setFilter(ofStation(2));
    model.add({refusedWrite(), answeredPoll(), refusedWrite()});
    QCOMPARE(model.rowCount(), 2);
    model.add(answeredPolls(2)); // the first write goes
    QCOMPARE(model.rowCount(), 1);
    model.add(answeredPolls(1)); // the second one as well
    QCOMPARE(model.rowCount(), 0);
}

void FramesModelTest::keepsRowsWhilePaused()
{
    FramesModel model(3);
    QSignalSpy counts(&model, &FramesModel::countsChanged);
    const QVector<Exchange> polls = answeredPolls(6);
    model.add(polls.mid(0, 2));
    model.setPaused(true);
    model.add(polls.mid(2, 4));
    QCOMPARE(numbers(model), QList<qint64>({1, 2}));
    QCOMPARE(model.waiting(), 3); // of four, as many as are kept at all
    QCOMPARE(model.thrownAway(), qint64(1));
    QCOMPARE(counts.count(), 3);
    model.setPaused(false);
    QCOMPARE(numbers(model), QList<qint64>({4, 5, 6}));
    QCOMPARE(model.waiting(), 0);
    QCOMPARE(model.thrownAway(), qint64(3)); // 1 to 3
}

void FramesModelTest::findsRowsByPlace()
{
    FramesModel model(4);
    model.add({answeredPoll(), refusedWrite(), answeredPoll(), refusedWrite()});
    const qint64 second = model.placeOf(1);
    QCOMPARE(model.rowOf(second), 1);
    model.setFilter(ofStation(2));
    QCOMPARE(model.rowOf(second), 0);
    model.setFilter(ofStation(1));
    QCOMPARE(model.rowOf(second), -1);
    model.setFilter(FrameFilter());
    model.add(answeredPolls(1)); // the first goes
    QCOMPARE(model.rowOf(second), 0);
    model.add(answeredPolls(1));
    QCOMPARE(model.rowOf(second), -1);
}

void FramesModelTest::clears()
{
    FramesModel model;
    model.add(answeredPolls(3));
    model.setPaused(true);
    model.add(answeredPolls(2));
    model.clear();
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.kept(), 0);
    QCOMPARE(model.waiting(), 0);
    QCOMPARE(model.thrownAway(), qint64(0)); // a person wanted it
    model.setPaused(false);
    model.add(answeredPolls(1));
    QCOMPARE(numbers(model), QList<qint64>({1}));
}

void FramesModelTest::namesStationsOnce()
{
    FramesModel model;
    QSignalSpy stations(&model, &FramesModel::stationSeen);
    model.add({answeredPoll(), refusedWrite(), answeredPoll()});
    model.add({refusedWrite()});
    QCOMPARE(stations.count(), 2);
    QCOMPARE(stations.at(0).at(0).toInt(), 1);
    QCOMPARE(stations.at(1).at(0).toInt(), 2);
}

QTEST_MAIN(FramesModelTest)

#include "tst_frames_model.moc"
