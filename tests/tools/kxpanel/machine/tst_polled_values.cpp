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
    void eachChangeIsTold();
    void ofThoseWhoStandStillTheLatestIsKept();
    void whatWasReadBeforeTheLineWasLostIsTold();
    void whatWasReadBeforeASilenceIsNotReadBehindIt();
    void whatIsWrittenIsNotRead();
    void whatWasWrittenAndReadIsToldThoughItHasGone();
    void changesOutliveAnotherList();
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

/// A poll of D100 alone at a time of the list's clock, as a watch takes it.
void poll(PolledValues* values, kx::WatchList* list, qint64 value, qint64 at)
{
    const auto source = [value](const kx::WatchEntry&) { return QList<qint64>{value}; };
    VARIABLE job = VARIABLE();
    job.station = 1;
    job.regType = QStringLiteral("D");
    job.address = 100;
    job.count = 1;
    values->markRead(*list, watched(1, "D100").tag.range, {value});
    values->takeNews(*list, list->onRead(job, source, at));
    values->takeNews(*list, list->onChange(1, job.regType, 100, source, at));
}

/// "5@100 6@110 -": values, when they were read, and "-" without one.
QString textOf(const QVector<Reading>& readings)
{
    QStringList texts;
    for (const Reading& reading : readings)
        texts << (reading.state == kx::WatchState::Ok
                      ? QStringLiteral("%1@%2").arg(reading.raw.first()).arg(reading.readAt)
                      : QStringLiteral("-"));
    return texts.join(' ');
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
    values.markRead(list, watched(1, poll.constData()).tag.range, {});
    QTEST(numbersOf(values.takeMarked(list, SessionTimes())), "numbers");
}

void PolledValuesTest::markedOnceIsToldOnce()
{
    kx::WatchList list;
    PolledValues values = polled({"D100", "D101"}, &list);
    values.takeMarked(list, SessionTimes());
    QCOMPARE(numbersOf(values.takeMarked(list, SessionTimes())), QList<int>());
    values.mark({1});
    values.mark({1});
    QCOMPARE(numbersOf(values.takeMarked(list, SessionTimes())), QList<int>{2});
    QCOMPARE(numbersOf(values.takeMarked(list, SessionTimes())), QList<int>());
}

/// Else a pulse of one read would be seen by chance.
void PolledValuesTest::eachChangeIsTold()
{
    kx::WatchList list;
    PolledValues values = polled({"D100"}, &list);
    values.takeMarked(list, SessionTimes());
    poll(&values, &list, 5, 100);
    poll(&values, &list, 5, 110); // 5 until then
    poll(&values, &list, 6, 120);
    poll(&values, &list, 5, 130);
    poll(&values, &list, 5, 140);
    QCOMPARE(textOf(values.takeMarked(list, SessionTimes())), QString("5@110 6@120 5@140"));
    poll(&values, &list, 5, 150);
    QCOMPARE(textOf(values.takeMarked(list, SessionTimes())), QString("5@150"));
    poll(&values, &list, 7, 160);
    QCOMPARE(textOf(values.takeMarked(list, SessionTimes())), QString("7@160"));
}

void PolledValuesTest::ofThoseWhoStandStillTheLatestIsKept()
{
    kx::WatchList list;
    PolledValues values = polled({"D100"}, &list);
    poll(&values, &list, 5, 100);
    poll(&values, &list, 6, 110);
    values.forgetEarlier();
    poll(&values, &list, 7, 120);
    QCOMPARE(textOf(values.takeMarked(list, SessionTimes())), QString("7@120"));
}

void PolledValuesTest::whatWasReadBeforeTheLineWasLostIsTold()
{
    kx::WatchList list;
    PolledValues values = polled({"D100"}, &list);
    poll(&values, &list, 5, 100);
    values.takeMarked(list, SessionTimes());
    poll(&values, &list, 6, 110);
    values.markAll();
    QCOMPARE(textOf(values.takeMarked(list, SessionTimes(), true)), QString("6@110 -"));
    values.markAll(); // nothing new
    QCOMPARE(textOf(values.takeMarked(list, SessionTimes(), true)), QString("-"));
}

// A trend would show what the controller had before it was switched off as its first value behind.
void PolledValuesTest::whatWasReadBeforeASilenceIsNotReadBehindIt()
{
    kx::WatchList list;
    PolledValues values = polled({"D100"}, &list);
    poll(&values, &list, 5, 100);
    values.takeNews(list, list.onSilence(1));
    QCOMPARE(textOf(values.takeMarked(list, SessionTimes())), QString("5@100 -"));
    poll(&values, &list, 6, 120);
    QCOMPARE(textOf(values.takeMarked(list, SessionTimes())), QString("6@120"));
}

// The driver shows what is written until that has failed: a trend would have a pulse that no
// controller had.
void PolledValuesTest::whatIsWrittenIsNotRead()
{
    kx::WatchList list;
    PolledValues values = polled({"D100"}, &list);
    poll(&values, &list, 5, 100);
    values.takeMarked(list, SessionTimes());
    const auto shows = [&](qint64 value, qint64 at) {
        values.takeNews(
            list,
            list.onChange(
                1, "D", 100, [value](const kx::WatchEntry&) { return QList<qint64>{value}; }, at));
    };
    shows(7, 110); // asked for
    QCOMPARE(textOf(values.takeMarked(list, SessionTimes())), QString("5@100"));
    VARIABLE job = VARIABLE();
    job.station = 1;
    job.regType = QStringLiteral("D");
    job.address = 100;
    job.count = 1;
    values.markRead(list, watched(1, "D100").tag.range, {5}); // of a poll that was on its way
    list.onRead(
        job, [](const kx::WatchEntry&) { return QList<qint64>{7}; }, 120);
    QCOMPARE(textOf(values.takeMarked(list, SessionTimes())), QString("5@120"));
    shows(5, 130); // refused
    poll(&values, &list, 5, 140);
    QCOMPARE(textOf(values.takeMarked(list, SessionTimes())), QString("5@140"));
}

// A command that the controller takes back at once: the driver tells of no change when it is read,
// having shown it since it was asked for.
void PolledValuesTest::whatWasWrittenAndReadIsToldThoughItHasGone()
{
    kx::WatchList list;
    PolledValues values = polled({"D100"}, &list);
    poll(&values, &list, 0, 100);
    values.takeNews(list,
                    list.onChange(
                        1, "D", 100, [](const kx::WatchEntry&) { return QList<qint64>{1}; }, 110));
    values.takeMarked(list, SessionTimes());
    poll(&values, &list, 1, 120);
    poll(&values, &list, 1, 130);
    poll(&values, &list, 0, 140);
    QCOMPARE(textOf(values.takeMarked(list, SessionTimes())), QString("1@130 0@140"));
    poll(&values, &list, 0, 150);
    QCOMPARE(textOf(values.takeMarked(list, SessionTimes())), QString("0@150"));
}

void PolledValuesTest::changesOutliveAnotherList()
{
    kx::WatchList list;
    PolledValues values = polled({"D100"}, &list);
    values.takeMarked(list, SessionTimes());
    poll(&values, &list, 5, 100);
    poll(&values, &list, 6, 110);
    poll(&values, &list, 5, 120);
    values.takeList(list);
    QCOMPARE(textOf(values.takeMarked(list, SessionTimes())), QString("5@100 6@110 5@120 5@120"));
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
