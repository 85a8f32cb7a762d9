#include "kxpanel/trend/model/trend_channels.h"

#include "trend_channels_fixture.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using kxpanel::LineStatus;
using kxpanel::numbersOf;
using kxpanel::readingOf;
using kxpanel::samplesOf;
using kxpanel::tagOf;
using kxpanel::TrendChannel;
using kxpanel::TrendChannels;

class TrendChannelsTest : public kxpanel::TrendChannelsFixture
{
    Q_OBJECT

private slots:
    void init() { makeChannels(); }
    void cleanup() { takeChannelsAway(); }
    void takesValuesOfTheListIn();
    void takesEachInOnce();
    void refusesTexts();
    void holdsSoManyAtMost();
    void beginsWithWhatIsKnown();
    void looksAreTakenInTurn();
    void recordedChannelsStandBesideTheOthers();
    void recordedOnesHaveTheRoomThatIsLeft();
    void theClockIsSetForAllButRecordedOnes();
};

void TrendChannelsTest::takesValuesOfTheListIn()
{
    const QList<int> numbers = watch({tagOf("Pressure", "D100@2/s16*0.1,min=0,unit=bar"),
                                      tagOf("", "X17@1"), tagOf("Bit\nof it", "D100.5@1")});
    QSignalSpy changes(m_channels, &TrendChannels::channelsChanged);
    QCOMPARE(m_channels->add(numbers), QString());
    QCOMPARE(changes.size(), 1);
    const TrendChannel& pressure = m_channels->list().at(0);
    QCOMPARE(pressure.name, QString("Pressure"));
    QCOMPARE(pressure.address, QString("D100/s16*0.1"));
    QCOMPARE(pressure.station, 2);
    QCOMPARE(pressure.unit, QString("bar"));
    QVERIFY(!pressure.isDigital);
    QCOMPARE(m_channels->list().at(1).name, QString("X17"));
    QCOMPARE(m_channels->list().at(1).tagName, QString());
    QVERIFY(m_channels->list().at(1).isDigital);
    QVERIFY(m_channels->list().at(2).isDigital);
    QCOMPARE(m_channels->list().at(2).name, QString("Bit of it"));
    QCOMPARE(m_channels->list().at(2).tagName, QString("Bit\nof it"));
}

void TrendChannelsTest::takesEachInOnce()
{
    const QList<int> numbers = watch({tagOf("", "D1@1"), tagOf("", "D2@1")});
    m_channels->add({numbers.at(1)});
    m_channels->add({numbers.at(0), numbers.at(1), 99});
    QCOMPARE(numbersOf(*m_channels), (QList<int>{numbers.at(1), numbers.at(0)}));
}

void TrendChannelsTest::refusesTexts()
{
    const QList<int> numbers = watch({tagOf("Product", "D1@1/ascii:4"), tagOf("", "D9@1")});
    QCOMPARE(m_channels->add(numbers), QString("Product is text, which has no curve"));
    QCOMPARE(numbersOf(*m_channels), QList<int>{numbers.at(1)});
}

void TrendChannelsTest::holdsSoManyAtMost()
{
    QList<kx::Tag> tags;
    for (int tag = 0; tag < 66; ++tag)
        tags << tagOf("", qPrintable(QStringLiteral("D%1@1").arg(tag)));
    QVERIFY(m_channels->add(watch(tags)).contains("64"));
    QCOMPARE(m_channels->list().size(), 64);
}

void TrendChannelsTest::beginsWithWhatIsKnown()
{
    const QList<int> numbers = watch({tagOf("", "D1@1"), tagOf("", "D2@1")});
    m_tags->takeReadings({readingOf(numbers.at(0), 7, 5000)});
    m_channels->add(numbers);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 7"));
    QCOMPARE(samplesOf(*m_channels, numbers.at(1)), QString());
}

void TrendChannelsTest::looksAreTakenInTurn()
{
    const QList<int> numbers = watch({tagOf("", "D1@1"), tagOf("", "D2@1"), tagOf("", "D3@1")});
    m_channels->add(numbers);
    QCOMPARE(m_channels->list().at(2).look, 2);
    m_channels->remove({numbers.at(1)});
    m_channels->add({numbers.at(1)});
    QCOMPARE(m_channels->find(numbers.at(1))->look, 1);
}

void TrendChannelsTest::recordedChannelsStandBesideTheOthers()
{
    const QList<int> numbers = watch({tagOf("", "D1@1")});
    m_channels->add(numbers);
    TrendChannel recorded;
    recorded.number = -1;
    recorded.endsAt = 9000;
    recorded.store = std::make_shared<kxpanel::TrendStore>();
    recorded.store->append(5000, 3);
    m_channels->setRecorded({recorded});
    QCOMPARE(numbersOf(*m_channels), (QList<int>{numbers.at(0), -1}));
    QCOMPARE(m_channels->find(-1)->look, 1);
    // A line that closes now is nothing to it.
    m_channels->takeLine(LineStatus(), 20000);
    QCOMPARE(samplesOf(*m_channels, -1), QString("5000 3"));
    m_tags->remove(numbers);
    QCOMPARE(numbersOf(*m_channels), QList<int>{-1});
    m_channels->setRecorded({});
    QCOMPARE(numbersOf(*m_channels), QList<int>());
}

void TrendChannelsTest::recordedOnesHaveTheRoomThatIsLeft()
{
    QList<kx::Tag> tags;
    for (int tag = 0; tag < 62; ++tag)
        tags << tagOf("", qPrintable(QStringLiteral("D%1@1").arg(tag)));
    m_channels->add(watch(tags));
    QList<TrendChannel> recorded;
    for (int number = -1; number >= -3; --number) {
        recorded << TrendChannel();
        recorded.last().number = number;
        recorded.last().store = std::make_shared<kxpanel::TrendStore>();
    }
    QCOMPARE(m_channels->setRecorded(recorded), 2);
    QCOMPARE(m_channels->list().size(), 64);
}

void TrendChannelsTest::theClockIsSetForAllButRecordedOnes()
{
    const QList<int> numbers = watch({tagOf("", "D1@1"), tagOf("", "D2@1")});
    m_channels->add(numbers);
    TrendChannel recorded;
    recorded.number = -1;
    recorded.store = std::make_shared<kxpanel::TrendStore>();
    recorded.store->append(50000, 3);
    m_channels->setRecorded({recorded});
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 50000)}, 50000);
    m_channels->takeReadings({readingOf(numbers.at(1), 8, 50000)}, 50000);
    const QList<kxpanel::WatchedValue> before = m_tags->values();
    m_tags->remove({numbers.at(1)});
    m_channels->shift(-20000);
    m_tags->setValues(before);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("30000 7"));
    QCOMPARE(samplesOf(*m_channels, numbers.at(1)), QString("30000 8, 30001 not read"));
    QCOMPARE(samplesOf(*m_channels, -1), QString("50000 3"));
}

QTEST_APPLESS_MAIN(TrendChannelsTest)
#include "tst_trend_channels.moc"
