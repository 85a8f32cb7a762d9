#include "kxpanel/machine/polled_values.h"
#include "tools/kxpanel/machine_fixture.h"

#include <QtTest/QTest>

using namespace kxpanel;

class PolledValuesTest : public QObject
{
    Q_OBJECT

private slots:
    void aTagForEachValue();
    void whatAPollCoversIsMarked_data();
    void whatAPollCoversIsMarked();
    void markedOnceIsToldOnce();
    void aTimeIsOfTheClockOnTheWall();
    void whatWasNeverReadHasNoValue();
};

namespace
{

/// Of the numbers 1, 2, ... in this order.
PolledValues polled(const QList<const char*>& addresses, kx::WatchList* list)
{
    QList<WatchedValue> values;
    for (const char* const address : addresses)
        values << watched(1 + static_cast<int>(values.size()), address);
    PolledValues polled;
    polled.setValues(values);
    *list = kx::WatchList(polled.tags());
    polled.takeList(*list);
    return polled;
}

QList<int> numbersOf(const QVector<Reading>& readings)
{
    QList<int> numbers;
    for (const Reading& reading : readings)
        numbers << reading.number;
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

} // namespace

void PolledValuesTest::aTagForEachValue()
{
    WatchedValue open = watched(12, "D100");
    open.tag.name = QStringLiteral("Pressure");
    WatchedValue slow = watched(7, "D100");
    slow.tag.interval = 5000;
    PolledValues values;
    values.setValues({open, slow});
    const QList<kx::Tag> tags = values.tags();
    QCOMPARE(tags.size(), 2);
    QCOMPARE(tags.at(0).name, QStringLiteral("12"));
    QCOMPARE(tags.at(0).interval, 0); // in each cycle
    QCOMPARE(tags.at(1).name, QStringLiteral("7"));
    QCOMPARE(tags.at(1).interval, 5000);
    QCOMPARE(kx::WatchList(tags).entries().size(), 2); // though both are of one address
}

void PolledValuesTest::whatAPollCoversIsMarked_data()
{
    QTest::addColumn<QByteArray>("poll");
    QTest::addColumn<QList<int>>("numbers");
    QTest::newRow("one address, watched twice") << QByteArray("D101") << QList<int>{2, 4};
    QTest::newRow("all of one type and station") << QByteArray("D100:4") << QList<int>{1, 2, 3, 4};
    QTest::newRow("a value in part") << QByteArray("D100:3") << QList<int>{1, 2, 4};
    QTest::newRow("one that begins before") << QByteArray("D103") << QList<int>{};
    QTest::newRow("another station") << QByteArray("D100@2") << QList<int>{5};
    QTest::newRow("another type of the same number") << QByteArray("CV100") << QList<int>{6};
    QTest::newRow("nothing that is watched") << QByteArray("D200:10") << QList<int>{};
}

void PolledValuesTest::whatAPollCoversIsMarked()
{
    QFETCH(QByteArray, poll);
    kx::WatchList list;
    // The third takes D102 and D103.
    PolledValues values =
        polled({"D100", "D101", "D102/float", "D101", "D100@2", "CV100", "M100"}, &list);
    QCOMPARE(numbersOf(values.takeMarked(list, SessionTimes())),
             (QList<int>{1, 2, 3, 4, 5, 6, 7})); // new
    values.markRead(watched(1, poll.constData()).tag.range);
    QTEST(numbersOf(values.takeMarked(list, SessionTimes())), "numbers");
}

void PolledValuesTest::markedOnceIsToldOnce()
{
    kx::WatchList list;
    PolledValues values = polled({"D100", "D101"}, &list);
    values.takeMarked(list, SessionTimes());
    QVERIFY(!values.hasMarked());
    values.mark({1});
    values.mark({1});
    QVERIFY(values.hasMarked());
    QCOMPARE(numbersOf(values.takeMarked(list, SessionTimes())), QList<int>{2});
    QVERIFY(!values.hasMarked());
}

void PolledValuesTest::aTimeIsOfTheClockOnTheWall()
{
    kx::WatchList list;
    PolledValues values = polled({"D100"}, &list);
    SessionTimes times;
    times.look(0, {500000, 1700000000000});
    Reading reading = values.takeMarked(list, times).first();
    QCOMPARE(reading.state, kx::WatchState::NeverRead);
    QCOMPARE(reading.readAt, qint64(0));
    QCOMPARE(reading.changedAt, qint64(0));
    VARIABLE poll = VARIABLE();
    poll.station = 1;
    poll.regType = QStringLiteral("D");
    poll.address = 100;
    poll.count = 1;
    list.onRead(
        poll, [](const kx::WatchEntry&) { return QList<qint64>{5}; }, 250);
    list.onChange(
        1, poll.regType, 100, [](const kx::WatchEntry&) { return QList<qint64>{6}; }, 300);
    values.markAll();
    reading = values.takeMarked(list, times).first();
    QCOMPARE(reading.state, kx::WatchState::Ok);
    QCOMPARE(reading.raw, QList<qint64>{6});
    QCOMPARE(reading.readAt, qint64(1700000000250));
    QCOMPARE(reading.changedAt, qint64(1700000000300));
}

// As after a write that no station has confirmed.
void PolledValuesTest::whatWasNeverReadHasNoValue()
{
    kx::WatchList list;
    PolledValues values = polled({"D100"}, &list);
    list.onChange(
        1, QStringLiteral("D"), 100, [](const kx::WatchEntry&) { return QList<qint64>{0}; }, 300);
    values.markAll();
    const Reading reading = values.takeMarked(list, SessionTimes()).first();
    QCOMPARE(reading.state, kx::WatchState::NeverRead);
    QCOMPARE(reading.raw, QList<qint64>());
}

QTEST_MAIN(PolledValuesTest)
#include "tst_polled_values.moc"
