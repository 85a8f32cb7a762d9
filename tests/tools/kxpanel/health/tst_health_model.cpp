#include "kxpanel/health/health_model.h"

#include "../sample_exchanges.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kxpanel;

class HealthModelTest : public QObject
{
    Q_OBJECT

private slots:
    void aRowForEachStation();
    void countsInColumns();
    void aSilentStationStandsOut();
    void broadcastsAreNoStation();
    void clears();

private:
    static QStringList row(const HealthModel& model, int row);
};

QStringList HealthModelTest::row(const HealthModel& model, int row)
{
    QStringList texts;
    for (int column = HealthModel::Requests; column < model.columnCount(); ++column)
        texts << model.index(row, column).data().toString();
    return texts;
}

void HealthModelTest::aRowForEachStation()
{
    HealthModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QSignalSpy changed(&model, &HealthModel::dataChanged);
    model.add({refusedWrite(), answeredPoll(), answeredPoll()});
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(model.index(0, HealthModel::Station).data().toInt(), 1);
    QCOMPARE(model.index(1, HealthModel::Station).data().toInt(), 2);
    QCOMPARE(model.health(0).counts.requests, qint64(2));
    QVERIFY(model.index(1, 0).data(Qt::ToolTipRole).toString().startsWith("Station 2: 0 accepted"));
}

void HealthModelTest::countsInColumns()
{
    HealthModel model;
    Exchange damaged = unansweredPoll();
    damaged.replyKind = kx::ReplyKind::Bad;
    Exchange cutShort = unansweredPoll();
    cutShort.replyKind = kx::ReplyKind::Short;
    Exchange foreign = unansweredPoll();
    foreign.replyKind = kx::ReplyKind::Foreign;
    model.add({answeredPoll(), unansweredPoll(), damaged, cutShort, foreign, foreign});
    QCOMPARE(row(model, 0).join(QChar('|')), QString("6|1|5|0|5.0 ms|5.0 ms|5.0 ms|1|1|1|0|2"));
    model.add({refusedWrite()});
    QCOMPARE(row(model, 1).join(QChar('|')), QString("1|0|0|1|3.1 ms|3.1 ms|3.1 ms|0|0|0|1|0"));
}

void HealthModelTest::aSilentStationStandsOut()
{
    HealthModel model;
    Exchange lastTry = unansweredPoll();
    lastTry.isFinal = true;
    model.add({answeredPoll()});
    const QModelIndex state = model.index(0, HealthModel::State);
    QVERIFY(!state.data(Qt::ForegroundRole).isValid());
    model.add({lastTry});
    QVERIFY(state.data().toString().endsWith("silent"));
    QVERIFY(state.data(Qt::ForegroundRole).isValid());
    HealthModel other;
    other.add({lastTry});
    QCOMPARE(other.index(0, HealthModel::Median).data().toString(), QString(QChar(0x2013)));
}

void HealthModelTest::broadcastsAreNoStation()
{
    HealthModel model;
    Exchange broadcast = refusedWrite();
    broadcast.request[0] = 0;
    model.add({broadcast});
    QCOMPARE(model.rowCount(), 0);
}

void HealthModelTest::clears()
{
    HealthModel model;
    model.add({answeredPoll()});
    model.clear();
    QCOMPARE(model.rowCount(), 0);
    model.add({answeredPoll()});
    QCOMPARE(row(model, 0).first(), QString("1"));
}

QTEST_MAIN(HealthModelTest)

#include "tst_health_model.moc"
