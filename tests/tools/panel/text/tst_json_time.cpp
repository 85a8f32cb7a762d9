// Times of day in JSON.

#include "panel/text/json_time.h"

#include <QtTest/QTest>

using namespace kx;

class JsonTimeTest : public QObject
{
    Q_OBJECT

private slots:
    void aTimeIsShownInUtc_data();
    void aTimeIsShownInUtc();
};

void JsonTimeTest::aTimeIsShownInUtc_data()
{
    QTest::addColumn<QDateTime>("time");
    QTest::addColumn<QString>("shown");
    const QDate day(2024, 10, 27);
    QTest::newRow("UTC") << QDateTime(day, QTime(10, 11, 12, 13), Qt::UTC)
                         << "2024-10-27T10:11:12.013Z";
    QTest::newRow("a whole second")
        << QDateTime(day, QTime(0, 30), Qt::UTC) << "2024-10-27T00:30:00.000Z";
    QTest::newRow("east of Greenwich")
        << QDateTime(day, QTime(1, 0), Qt::OffsetFromUTC, 7200) << "2024-10-26T23:00:00.000Z";
    QTest::newRow("west of Greenwich")
        << QDateTime(day, QTime(23, 0), Qt::OffsetFromUTC, -9000) << "2024-10-28T01:30:00.000Z";
    QTest::newRow("before summer time ends")
        << QDateTime(day, QTime(2, 30), Qt::OffsetFromUTC, 7200) << "2024-10-27T00:30:00.000Z";
    QTest::newRow("after summer time ended")
        << QDateTime(day, QTime(2, 30), Qt::OffsetFromUTC, 3600) << "2024-10-27T01:30:00.000Z";
}

void JsonTimeTest::aTimeIsShownInUtc()
{
    QFETCH(QDateTime, time);
    QTEST(jsonTime(time), "shown");
}

QTEST_APPLESS_MAIN(JsonTimeTest)
#include "tst_json_time.moc"
