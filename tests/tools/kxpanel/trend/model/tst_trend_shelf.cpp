#include "kxpanel/trend/model/trend_shelf.h"

#include <QtTest/QTest>

using kxpanel::TrendChannel;
using kxpanel::TrendShelf;
using kxpanel::TrendStore;

namespace
{

TrendChannel channelOf(int number, const char* address)
{
    TrendChannel channel;
    channel.number = number;
    channel.station = 1;
    channel.address = QLatin1String(address);
    channel.store = std::make_shared<TrendStore>(64);
    return channel;
}

} // namespace

class TrendShelfTest : public QObject
{
    Q_OBJECT

private slots:
    void givesBackWhatWasReadOfTheSame()
    {
        TrendShelf shelf;
        shelf.put(channelOf(5, "D1"), 0, TrendShelf::Return::WhenAsked);
        QVERIFY(!shelf.take(channelOf(6, "D1")));
        QVERIFY(!shelf.take(channelOf(5, "D2")));
        QVERIFY(shelf.take(channelOf(5, "D1")));
        QVERIFY(!shelf.take(channelOf(5, "D1")));
    }

    void itsHistoryEndsWhereItWasReadLast()
    {
        TrendShelf shelf;
        TrendChannel channel = channelOf(5, "D1");
        channel.store->append(1000, 3);
        channel.readAt = 4000; // the same value
        shelf.put(channel, 0, TrendShelf::Return::WhenAsked);
        const kxpanel::TrendSpan kept = channel.store->between(0, 9000);
        QCOMPARE(kept.gap.time(), qint64(4001));
        shelf.shift(-500);
        const TrendChannel back = *shelf.take(channel);
        QCOMPARE(back.readAt, qint64(3500));
        QCOMPARE(back.store->between(0, 9000).gap.time(), qint64(3501));
    }

    void thoseThatComeBackAloneAreInTheirOrder()
    {
        TrendShelf shelf;
        shelf.put(channelOf(1, "D1"), 7, TrendShelf::Return::WithItsNumber);
        shelf.put(channelOf(2, "D2"), 0, TrendShelf::Return::WhenAsked);
        shelf.put(channelOf(3, "D3"), 2, TrendShelf::Return::WithItsNumber);
        const QList<TrendShelf::Kept> kept = shelf.returning();
        QCOMPARE(kept.size(), 2);
        QCOMPARE(kept.at(0).channel.number, 3);
        QCOMPARE(kept.at(0).place, 2);
        QCOMPARE(kept.at(1).channel.number, 1);
        shelf.clear();
        QVERIFY(shelf.returning().isEmpty());
    }

    void theLongestGoneAreForgotten()
    {
        TrendShelf shelf;
        for (int number = 1; number <= 65; ++number)
            shelf.put(channelOf(number, "D1"), 0, TrendShelf::Return::WhenAsked);
        QVERIFY(!shelf.take(channelOf(1, "D1")));
        QVERIFY(shelf.take(channelOf(2, "D1")));
        QVERIFY(shelf.take(channelOf(65, "D1")));
    }
};

QTEST_APPLESS_MAIN(TrendShelfTest)
#include "tst_trend_shelf.moc"
