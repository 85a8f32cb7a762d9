#include "kxpanel/line/watched_polls.h"

#include "kxpanel/tags/tag_list.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

kx::Tag tagOf(int address, int station, int interval)
{
    kx::Tag tag;
    tag.range = {findRegisterType(QString("D")), address, 1, station};
    tag.interval = interval;
    return tag;
}

QStringList texts(const QList<kx::PolledRange>& polled)
{
    QStringList texts;
    for (const kx::PolledRange& one : polled)
        texts
            << QString("D%1@%2/%3").arg(one.range.address).arg(one.range.station).arg(one.interval);
    return texts;
}

} // namespace

class WatchedPollsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void anOpenIntervalIsEachCycle();
    void leavesStationsOut();
    void namesStationsThatAreWatched();
    void asksForAll();

private:
    TagList m_tags;
};

void WatchedPollsTest::init()
{
    m_tags.setValues({});
    m_tags.insert(0, {tagOf(100, 1, -1), tagOf(7, 3, 500), tagOf(8, 2, 0)});
}

void WatchedPollsTest::anOpenIntervalIsEachCycle()
{
    QCOMPARE(texts(polledRanges(m_tags)), QStringList({"D100@1/0", "D7@3/500", "D8@2/0"}));
}

void WatchedPollsTest::leavesStationsOut()
{
    QCOMPARE(texts(rangesWithout(polledRanges(m_tags), {1, 2, 9})), QStringList({"D7@3/500"}));
}

void WatchedPollsTest::namesStationsThatAreWatched()
{
    QCOMPARE(stationsAmong({2, 3, 9}, polledRanges(m_tags)), QList<int>({2, 3}));
}

void WatchedPollsTest::asksForAll()
{
    const kx::WatchedRanges watched = watchedRanges(polledRanges(m_tags));
    const std::vector<kx::AddressRange>& runs = watched.runs();
    QCOMPARE(runs.size(), size_t(3));
    QCOMPARE(runs.at(0).station, 1);
    QCOMPARE(runs.at(2).station, 3);
}

QTEST_GUILESS_MAIN(WatchedPollsTest)

#include "tst_watched_polls.moc"
