#include "kxpanel/trend/history/trend_store.h"

#include <QtTest/QTest>

#include <algorithm>
#include <limits>
#include <random>

using kxpanel::TrendSample;
using kxpanel::TrendSpan;
using kxpanel::TrendStore;

namespace
{

const double NO_ANSWER = kxpanel::gapValue(kx::GapReason::NoAnswer);

/// All samples, and a walk over them for each question.
class PlainModel
{
public:
    void append(qint64 time, double value)
    {
        if (m_samples.isEmpty() || !isSame(m_samples.last().value, value))
            m_samples << TrendSample{time, value};
    }

    TrendSpan between(qint64 from, qint64 to) const
    {
        TrendSpan span;
        for (int index = 0; index < m_samples.size(); ++index) {
            const qint64 time = m_samples.at(index).time();
            const bool isLast = index + 1 == m_samples.size();
            const bool holdsAtFrom =
                time < from && (isLast || m_samples.at(index + 1).time() > from);
            if (holdsAtFrom || (time >= from && time < to))
                span.add(m_samples.at(index));
        }
        return span;
    }

    qint64 time(int index) const { return m_samples.at(index).time(); }
    int size() const { return static_cast<int>(m_samples.size()); }

private:
    static bool isSame(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

    QVector<TrendSample> m_samples;
};

qint64 below(std::mt19937* random, qint64 limit)
{
    return static_cast<qint64>((*random)()) % limit;
}

QString textOf(const TrendSample& sample)
{
    return sample.isThere() ? QStringLiteral("%1@%2").arg(sample.value).arg(sample.time())
                            : QStringLiteral("-");
}

QString textOf(const TrendSpan& span)
{
    return QStringLiteral("%1 %2 low %3 high %4 gap %5")
        .arg(textOf(span.first), textOf(span.last), textOf(span.lowest), textOf(span.highest),
             textOf(span.gap));
}

double lowOf(const TrendSpan& span)
{
    return span.hasValues() ? span.lowest.value : 1e9;
}

double highOf(const TrendSpan& span)
{
    return span.hasValues() ? span.highest.value : -1e9;
}

} // namespace

class TrendStoreTest : public QObject
{
    Q_OBJECT

private slots:
    void aValueHoldsUntilTheNext();
    void aColumnAfterTheEndIsEmpty();
    void aGapLastsUntilTheNextValue();
    void aValueThatStaysTakesNoMemory();
    void whatIsToldLateClearsNothing();
    void allMovesWithTheClock();
    void isExactWhileEachSampleIsKept();
    void losesNoExtremeWithAge();
    void columnsAtAnyRateHoldWhatWasRead_data();
    void columnsAtAnyRateHoldWhatWasRead();
    void extremesOfLongNumbersAreThoseOfTheirLastDigits();
    void timesToTheEndOfTheCalendar();
    void oneSpikeIsSeenAtEachZoom();
    void samplesOfOldTimesAreSomeThatWereRead();
    void memoryIsFlatOverAnHourOfAThousandValues();
};

void TrendStoreTest::aValueHoldsUntilTheNext()
{
    TrendStore store;
    store.append(1000, 5);
    store.append(2000, 7);
    QVERIFY(store.between(0, 1000).isEmpty());
    QCOMPARE(textOf(store.between(500, 1001)),
             QString("5@1000 5@1000 low 5@1000 high 5@1000 gap -"));
    QCOMPARE(textOf(store.between(1500, 1600)),
             QString("5@1000 5@1000 low 5@1000 high 5@1000 gap -"));
    QCOMPARE(textOf(store.between(1500, 2001)),
             QString("5@1000 7@2000 low 5@1000 high 7@2000 gap -"));
    // The value before has ended when the range begins with the new one.
    QCOMPARE(textOf(store.between(2000, 2001)),
             QString("7@2000 7@2000 low 7@2000 high 7@2000 gap -"));
    QCOMPARE(textOf(store.between(9000, 9001)),
             QString("7@2000 7@2000 low 7@2000 high 7@2000 gap -"));
}

void TrendStoreTest::aColumnAfterTheEndIsEmpty()
{
    TrendStore store;
    store.append(1000, 5);
    const QVector<TrendSpan> columns = store.columns(900, 100, 5, 1150);
    QCOMPARE(columns.size(), 5);
    QVERIFY(columns.at(0).isEmpty()); // 900 to 999: nothing yet
    QVERIFY(!columns.at(1).isEmpty());
    QVERIFY(!columns.at(2).isEmpty()); // begins at 1100, before the end
    QVERIFY(columns.at(3).isEmpty());
    QVERIFY(columns.at(4).isEmpty());
}

void TrendStoreTest::aGapLastsUntilTheNextValue()
{
    TrendStore store;
    store.append(1000, 5);
    store.append(2000, NO_ANSWER);
    store.append(3000, 6);
    const TrendSpan gap = store.between(2500, 2600);
    QVERIFY(gap.hasGap());
    QVERIFY(!gap.hasValues());
    kx::GapReason reason = kx::GapReason::NotYetRead;
    QVERIFY(kxpanel::gapReasonOf(gap.gap.value, &reason));
    QCOMPARE(reason, kx::GapReason::NoAnswer);
    const TrendSpan all = store.between(1000, 3001);
    QVERIFY(all.hasGap());
    QCOMPARE(all.lowest.value, 5.0);
    QCOMPARE(all.highest.value, 6.0);
    QVERIFY(!store.between(3000, 3001).hasGap());
}

void TrendStoreTest::aValueThatStaysTakesNoMemory()
{
    TrendStore store(64);
    store.append(1000, 5);
    store.append(2000, 6);
    for (qint64 time = 3000; time < 3000000; time += 1000)
        store.append(time, 6);
    store.append(3000000, NO_ANSWER);
    store.append(3001000, NO_ANSWER);
    QCOMPARE(store.exactSince(), qint64(1000));
    QCOMPARE(store.end(), qint64(3000000));
    QCOMPARE(store.samples(0, 4000000).size(), 3);
}

void TrendStoreTest::whatIsToldLateClearsNothing()
{
    TrendStore store;
    store.append(100000, 5);
    store.append(99000, 6); // by a second
    QCOMPARE(textOf(store.between(100000, 100001)),
             QString("5@100000 6@100000 low 5@100000 high 6@100000 gap -"));
    store.append(30000, 7); // by more than a minute
    QCOMPARE(store.begin(), qint64(100000));
    QCOMPARE(store.end(), qint64(100000));
    QCOMPARE(store.between(100000, 100001).last.value, 7.0);
}

void TrendStoreTest::allMovesWithTheClock()
{
    TrendStore store(64);
    TrendStore moved(64);
    for (int step = 0; step < 1000; ++step) {
        const double value = step % 50 == 0 ? NO_ANSWER : double(step % 97);
        store.append(100000 + 10 * step, value);
        moved.append(100000 + 10 * step, value);
    }
    moved.shift(-60000);
    QCOMPARE(moved.begin(), store.begin() - 60000);
    QCOMPARE(moved.end(), qint64(49990));
    const QVector<TrendSample> samples = store.samples(0, 200000);
    const QVector<TrendSample> others = moved.samples(0, 200000);
    QCOMPARE(others.size(), samples.size());
    for (int index = 0; index < samples.size(); ++index)
        QCOMPARE(others.at(index).time(), samples.at(index).time() - 60000);
    moved.append(50000, 5); // goes on behind it
    QCOMPARE(moved.begin(), store.begin() - 60000);
    TrendStore empty;
    empty.shift(5);
    QVERIFY(empty.isEmpty());
}

void TrendStoreTest::isExactWhileEachSampleIsKept()
{
    std::mt19937 random(17);
    TrendStore store(1024);
    PlainModel model;
    qint64 time = 1000;
    for (int step = 0; step < 3000; ++step) {
        time += 1 + random() % 40;
        const double value = random() % 10 == 0 ? NO_ANSWER : double(int(random() % 1000));
        store.append(time, value);
        model.append(time, value);
    }
    QCOMPARE(store.exactSince(), model.time(model.size() - 1024));
    const qint64 first = model.time(model.size() - 1022); // one holds at the beginning
    for (int question = 0; question < 2000; ++question) {
        const qint64 from = first + below(&random, time - first + 50);
        const qint64 to = from + 1 + below(&random, question % 2 == 0 ? 30 : 20000);
        QCOMPARE(textOf(store.between(from, to)), textOf(model.between(from, to)));
    }
}

/// What a range holds is within what is answered, and that within what one span more at either
/// side holds.
void TrendStoreTest::losesNoExtremeWithAge()
{
    std::mt19937 random(18);
    TrendStore store(256);
    PlainModel model;
    const int samples = 60000; // 128 spans of 1024 keep more than twice as many
    for (int step = 0; step < samples; ++step) {
        const double value =
            random() % 200 == 0 ? NO_ANSWER : double(int(random() % 100000)) + step;
        store.append(10 * step, value);
        model.append(10 * step, value);
    }
    QCOMPARE(store.begin(), qint64(0));
    const qint64 widest = 10 * 1024; // milliseconds of the widest span
    for (int question = 0; question < 150; ++question) {
        const qint64 from = below(&random, 10 * samples);
        const qint64 to = from + 1 + below(&random, 50000);
        const TrendSpan answered = store.between(from, to);
        const TrendSpan exact = model.between(from, to);
        const TrendSpan wider = model.between(from - widest, to + widest);
        QVERIFY(lowOf(answered) <= lowOf(exact));
        QVERIFY(highOf(answered) >= highOf(exact));
        QVERIFY(lowOf(answered) >= lowOf(wider));
        QVERIFY(highOf(answered) <= highOf(wider));
        QVERIFY(answered.hasGap() || !exact.hasGap());
    }
}

void TrendStoreTest::columnsAtAnyRateHoldWhatWasRead_data()
{
    QTest::addColumn<int>("period");
    QTest::addColumn<int>("setBack");

    QTest::newRow("200 a second") << 5 << 0;
    QTest::newRow("20 a second") << 50 << 0;
    QTest::newRow("one in ten seconds") << 10000 << 0;
    QTest::newRow("20 a second, the clock set back at times") << 50 << 400;
}

/// Values that stay or change, gaps of one read or many; each column in turn, at all zooms.
void TrendStoreTest::columnsAtAnyRateHoldWhatWasRead()
{
    QFETCH(int, period);
    QFETCH(int, setBack);
    std::mt19937 random(20);
    TrendStore store(128);
    PlainModel model;
    qint64 time = 1795428000000;
    qint64 latest = time;
    const qint64 begin = time;
    double value = 0;
    for (int step = 0; step < 6000; ++step) {
        time += 1 + below(&random, 2 * period);
        if (setBack > 0 && below(&random, 100) == 0)
            time -= setBack;
        latest = std::max(latest, time);
        if (below(&random, 3) > 0)
            value = below(&random, 50) == 0 ? NO_ANSWER : double(below(&random, 1000));
        store.append(time, value);
        model.append(latest, value);
    }
    for (int question = 0; question < 24; ++question) {
        const qint64 step = 1 + below(&random, question % 2 == 0 ? period : 200 * period);
        const qint64 from = begin - 10 * period + below(&random, latest - begin);
        const QVector<TrendSpan> columns = store.columns(from, step, 60, latest);
        for (int index = 0; index < columns.size(); ++index) {
            const TrendSpan& column = columns.at(index);
            const qint64 columnBegin = from + index * step;
            const TrendSpan exact =
                columnBegin > latest ? TrendSpan() : model.between(columnBegin, columnBegin + step);
            if (columnBegin > store.exactSince())
                QCOMPARE(textOf(column), textOf(exact));
            QVERIFY(lowOf(column) <= lowOf(exact));
            QVERIFY(highOf(column) >= highOf(exact));
            QVERIFY(column.hasGap() || !exact.hasGap());
        }
    }
}

/// Where the double is the same for all.
void TrendStoreTest::extremesOfLongNumbersAreThoseOfTheirLastDigits()
{
    TrendStore store(64);
    for (int step = 0; step < 2000; ++step)
        store.append(TrendSample(10 * step, 1e19, step == 30 ? -700 : step == 50 ? 900 : step % 5));
    const TrendSpan all = store.between(0, 20000);
    QCOMPARE(all.lowest.fine(), -700);
    QCOMPARE(all.lowest.time(), qint64(300));
    QCOMPARE(all.highest.fine(), 900);
    QCOMPARE(all.highest.time(), qint64(500));
    QCOMPARE(all.last.fine(), 4);
    QCOMPARE(store.between(19990, 20000).lowest.fine(), 4);
}

void TrendStoreTest::timesToTheEndOfTheCalendar()
{
    const qint64 last = 253402300799999; // 9999-12-31T23:59:59.999Z
    const TrendSample sample(last, -0.0, TrendSample::MOST_FINE);
    QCOMPARE(sample.time(), last);
    QCOMPARE(sample.fine(), 16383);
    const TrendSample first(0, 1, -TrendSample::MOST_FINE);
    QCOMPARE(first.time(), qint64(0));
    QCOMPARE(first.fine(), -16383);
    QVERIFY(first.isThere());
    QVERIFY(!TrendSample().isThere());
    QVERIFY(!TrendSample().isRounded());
    TrendStore store;
    store.append(0, 1);
    store.append(last, 2);
    QCOMPARE(store.end(), last);
    store.shift(-1);
    QCOMPARE(store.begin(), qint64(-1));
    store.shift(std::numeric_limits<qint64>::max() / 2); // a clock that is set to nonsense
    QVERIFY(store.end() > last);
}

void TrendStoreTest::oneSpikeIsSeenAtEachZoom()
{
    TrendStore store(256);
    const qint64 spike = 20000; // 2001st of 40000 samples
    for (qint64 time = 0; time < 400000; time += 10)
        store.append(time, time == spike ? 1000 : double(time % 20));
    for (qint64 step = 1; step <= 4000; step *= 5) {
        // As many columns as show the spike in the middle.
        const QVector<TrendSpan> columns = store.columns(spike - 50 * step, step, 100, 400000);
        int high = 0;
        for (const TrendSpan& column : columns)
            high += column.hasValues() && column.highest.value == 1000 ? 1 : 0;
        QVERIFY2(high >= 1, qPrintable(QString::number(step)));
        QCOMPARE(columns.at(50).highest.value, 1000.0);
    }
    QCOMPARE(store.between(0, 400000).highest.time(), spike);
}

void TrendStoreTest::samplesOfOldTimesAreSomeThatWereRead()
{
    TrendStore store(64); // 32 spans of each width
    QMap<qint64, double> read;
    std::mt19937 random(19);
    for (int step = 0; step < 20000; ++step) {
        const double value = int(random() % 1000000);
        store.append(10 * step, value);
        read[10 * step] = value;
    }
    const QVector<TrendSample> samples = store.samples(0, 200000);
    qint64 before = -1;
    for (const TrendSample& sample : samples) {
        QVERIFY(sample.time() >= before);
        QCOMPARE(sample.value, read.value(sample.time(), -1));
        before = sample.time();
    }
    QCOMPARE(samples.last().time(), qint64(199990));
    QVERIFY(samples.size() >= 64 + 4 * 16);
    QVERIFY(samples.size() < 64 + 5 * 4 * 32);
}

void TrendStoreTest::memoryIsFlatOverAnHourOfAThousandValues()
{
    const int values = 1000;
    const int minute = 60 * 20; // reads at 20 a second
    std::vector<TrendStore> stores(values, TrendStore(256));
    qint64 afterTheFirstTen = 0;
    int read = 0;
    for (int minutes = 1; minutes <= 60; ++minutes) {
        for (TrendStore& store : stores) {
            for (int index = 0; index < minute; ++index)
                store.append(50 * qint64(read + index), (read + index) % 977);
        }
        read += minute;
        qint64 bytes = 0;
        for (const TrendStore& store : stores)
            bytes += store.bytes();
        QVERIFY(bytes <= values * TrendStore::mostBytes(256));
        if (minutes == 10)
            afterTheFirstTen = bytes;
    }
    // 256 samples of 16 bytes and five levels of 128 spans of 80 bytes
    QCOMPARE(TrendStore::mostBytes(256), qint64(55296));
    QCOMPARE(TrendStore::mostBytes(), qint64(1769472));
    QVERIFY(afterTheFirstTen > 0);
    for (const TrendStore& store : stores) {
        QVERIFY(store.bytes() <= TrendStore::mostBytes(256));
        QCOMPARE(store.between(0, 3600000).highest.value, 976.0);
        QCOMPARE(store.between(0, 3600000).lowest.value, 0.0);
    }
}

QTEST_APPLESS_MAIN(TrendStoreTest)
#include "tst_trend_store.moc"
