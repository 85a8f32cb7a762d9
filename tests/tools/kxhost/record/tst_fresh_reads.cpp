#include "kxhost/record/fresh_reads.h"
#include "support/driver_fixture.h"
#include "tools/panel/watch/watch_entries.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

const int AT_FIRST = 1000; // milliseconds

/// D100 and D101, each read by a request of its own.
class TwoWords
{
public:
    const QVector<WatchEntry>& entries() const { return m_list.entries(); }
    void read(int address, qint64 now)
    {
        const auto seven = [](const WatchEntry&) { return QList<qint64>{7}; };
        m_list.onRead(job(1, "D", address, 1), seven, now);
    }
    void fail(int address) { m_list.onFailure(job(1, "D", address, 1), false); }

private:
    WatchList m_list{{tagOf("D100:2")}};
};

} // namespace

class FreshReadsTest : public QObject
{
    Q_OBJECT

private slots:
    void eachReadIsTakenOnce();
    void aReadInTheMillisecondOfASampleBelongsToTheNext();
    void whatFailedSinceIsNone();
    void whatWasSkippedComesBackWithItsNextRead();
};

void FreshReadsTest::eachReadIsTakenOnce()
{
    TwoWords words;
    FreshReads reads;
    QCOMPARE(reads.take(words.entries()), QList<int>());
    words.read(100, AT_FIRST);
    words.read(101, AT_FIRST + 20);
    words.read(100, AT_FIRST + 40);
    QCOMPARE(reads.take(words.entries()), QList<int>({0, 1}));
    QCOMPARE(reads.take(words.entries()), QList<int>());
    words.read(101, AT_FIRST + 60);
    QCOMPARE(reads.take(words.entries()), QList<int>({1}));
}

void FreshReadsTest::aReadInTheMillisecondOfASampleBelongsToTheNext()
{
    TwoWords words;
    FreshReads reads;
    words.read(100, AT_FIRST);
    QCOMPARE(reads.take(words.entries()), QList<int>({0}));
    words.read(101, AT_FIRST); // another address
    QCOMPARE(reads.take(words.entries()), QList<int>({1}));
    words.read(101, AT_FIRST); // the same again
    QCOMPARE(reads.take(words.entries()), QList<int>({1}));
    QCOMPARE(reads.take(words.entries()), QList<int>());
}

void FreshReadsTest::whatFailedSinceIsNone()
{
    TwoWords words;
    FreshReads reads;
    words.read(100, AT_FIRST);
    words.fail(100);
    QCOMPARE(reads.take(words.entries()), QList<int>());
    words.read(100, AT_FIRST + 500);
    QCOMPARE(reads.take(words.entries()), QList<int>({0}));
}

void FreshReadsTest::whatWasSkippedComesBackWithItsNextRead()
{
    TwoWords words;
    FreshReads reads;
    words.read(100, AT_FIRST);
    QVERIFY(reads.isFresh(words.entries(), 0));
    QVERIFY(!reads.isFresh(words.entries(), 1));
    reads.skip(words.entries());
    QVERIFY(!reads.isFresh(words.entries(), 0));
    words.read(100, AT_FIRST);
    QVERIFY(reads.isFresh(words.entries(), 0));
}

QTEST_APPLESS_MAIN(FreshReadsTest)
#include "tst_fresh_reads.moc"
