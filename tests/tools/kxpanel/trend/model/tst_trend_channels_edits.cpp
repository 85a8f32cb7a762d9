// Values that are edited, leave the list and come back.

#include "trend_channels_fixture.h"

#include <QtTest/QTest>

using kxpanel::numbersOf;
using kxpanel::readingOf;
using kxpanel::samplesOf;
using kxpanel::tagOf;
using kxpanel::TrendAxis;

class TrendChannelsEditsTest : public kxpanel::TrendChannelsFixture
{
    Q_OBJECT

private slots:
    void init() { makeChannels(); }
    void cleanup() { takeChannelsAway(); }
    void followsNamesAndUnits();
    void anotherMeaningBeginsAnew();
    void whatLeavesTheListLeavesThePlot();
    void whatComesBackBringsItsHistory();
    void severalComeBackToTheirPlaces();
    void aFullPlotComesBackWhole();
    void anEditThatIsUndoneBringsItsHistory();
    void whatIsTakenOutAndPutBackGoesOn();
    void anotherMeaningBeginsWithWhatIsKnown();
};

void TrendChannelsEditsTest::followsNamesAndUnits()
{
    const QList<int> numbers = watch({tagOf("Old", "D1@1/u16")});
    m_channels->add(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 5000);
    m_tags->replace(numbers.at(0), tagOf("New", "D1@1/u16,decimals=2,unit=mm"));
    QCOMPARE(m_channels->list().at(0).name, QString("New"));
    QCOMPARE(m_channels->list().at(0).unit, QString("mm"));
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 7"));
}

void TrendChannelsEditsTest::anotherMeaningBeginsAnew()
{
    const QList<int> numbers =
        watch({tagOf("A", "D1@1/u16"), tagOf("B", "D2@1/u16"), tagOf("C", "D3@1/u16")});
    m_channels->add(numbers);
    for (const int number : numbers)
        m_channels->takeReadings({readingOf(number, 7, 5000)}, 5000);
    m_tags->replace(numbers.at(0), tagOf("A", "D1@1/u16*2"));
    m_tags->replace(numbers.at(1), tagOf("B", "D2@3/u16"));
    m_tags->replace(numbers.at(2), tagOf("C", "D4@1/u16"));
    for (const int number : numbers)
        QCOMPARE(samplesOf(*m_channels, number), QString());
}

void TrendChannelsEditsTest::whatLeavesTheListLeavesThePlot()
{
    const QList<int> numbers = watch({tagOf("", "D1@1"), tagOf("", "D2@1"), tagOf("", "D3@1")});
    m_channels->add(numbers);
    m_tags->remove({numbers.at(1)});
    QCOMPARE(numbersOf(*m_channels), (QList<int>{numbers.at(0), numbers.at(2)}));
    QVERIFY(m_channels->find(numbers.at(1)) == nullptr);
    m_channels->remove({numbers.at(0)});
    QCOMPARE(numbersOf(*m_channels), QList<int>{numbers.at(2)});
    QCOMPARE(m_tags->size(), 2);
}

void TrendChannelsEditsTest::whatComesBackBringsItsHistory()
{
    const QList<int> numbers = watch({tagOf("", "D1@1"), tagOf("", "D2@1"), tagOf("", "D3@1")});
    m_channels->add(numbers);
    m_channels->setAxis({numbers.at(1)}, TrendAxis::Right);
    m_channels->setShown(numbers.at(1), false);
    m_channels->takeReadings({readingOf(numbers.at(1), 7, 5000)}, 5000);
    m_channels->takeReadings({readingOf(numbers.at(1), 7, 6000)}, 6000);
    const QList<kxpanel::WatchedValue> before = m_tags->values();
    m_tags->remove({numbers.at(1)});
    QCOMPARE(m_channels->layout().size(), 2);
    m_tags->setValues(before); // as undo does
    QCOMPARE(numbersOf(*m_channels), numbers);
    QCOMPARE(m_channels->list().at(1).axis, TrendAxis::Right);
    QVERIFY(!m_channels->list().at(1).isShown);
    m_channels->takeReadings({readingOf(numbers.at(1), 8, 9000)}, 9000);
    // Nobody read it while it was away.
    QCOMPARE(samplesOf(*m_channels, numbers.at(1)), QString("5000 7, 6001 not read, 9000 8"));
}

void TrendChannelsEditsTest::severalComeBackToTheirPlaces()
{
    const QList<int> numbers = watch({tagOf("", "D1@1"), tagOf("", "D2@1"), tagOf("", "D3@1"),
                                      tagOf("", "D4@1"), tagOf("", "D5@1")});
    m_channels->add(numbers);
    const QList<kxpanel::WatchedValue> before = m_tags->values();
    m_tags->remove({numbers.at(0), numbers.at(3), numbers.at(4)});
    QCOMPARE(numbersOf(*m_channels), (QList<int>{numbers.at(1), numbers.at(2)}));
    m_tags->setValues(before);
    QCOMPARE(numbersOf(*m_channels), numbers);
    // What was taken out of the plot itself stays out.
    m_channels->remove({numbers.at(2)});
    m_tags->setValues({});
    m_tags->setValues(before);
    QCOMPARE(numbersOf(*m_channels),
             (QList<int>{numbers.at(0), numbers.at(1), numbers.at(3), numbers.at(4)}));
}

void TrendChannelsEditsTest::aFullPlotComesBackWhole()
{
    QList<kx::Tag> tags;
    for (int tag = 0; tag < 64; ++tag)
        tags << tagOf("", qPrintable(QStringLiteral("D%1@1").arg(tag)));
    const QList<int> numbers = watch(tags);
    m_channels->add(numbers);
    for (const int number : numbers)
        m_channels->takeReadings({readingOf(number, 7, 5000)}, 5000);
    const QList<kxpanel::WatchedValue> before = m_tags->values();
    m_tags->setValues({});
    QCOMPARE(m_channels->list().size(), 0);
    m_tags->setValues(before);
    QCOMPARE(numbersOf(*m_channels), numbers);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 7, 5001 not read"));
    m_channels->remove(numbers);
    m_channels->add(numbers);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 7, 5001 not read"));
}

void TrendChannelsEditsTest::anEditThatIsUndoneBringsItsHistory()
{
    const QList<int> numbers = watch({tagOf("", "D1@1/u16")});
    const int number = numbers.at(0);
    m_channels->add(numbers);
    m_channels->takeReadings({readingOf(number, 7, 5000)}, 5000);
    m_tags->replace(number, tagOf("", "D2@1/u16"));
    m_channels->takeReadings({readingOf(number, 90, 6000)}, 6000);
    QCOMPARE(samplesOf(*m_channels, number), QString("6000 90"));
    m_tags->replace(number, tagOf("", "D1@1/u16"));
    QCOMPARE(samplesOf(*m_channels, number), QString("5000 7, 5001 not read"));
    m_channels->takeReadings({readingOf(number, 8, 7000)}, 7000);
    QCOMPARE(samplesOf(*m_channels, number), QString("5000 7, 5001 not read, 7000 8"));
    m_tags->replace(number, tagOf("", "D2@1/u16"));
    QCOMPARE(samplesOf(*m_channels, number), QString("6000 90, 6001 not read"));
}

void TrendChannelsEditsTest::whatIsTakenOutAndPutBackGoesOn()
{
    const QList<int> numbers = watch({tagOf("", "D1@1")});
    m_channels->add(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 5000);
    m_channels->remove(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 9, 6000)}, 6000);
    m_channels->add(numbers);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 7, 5001 not read"));
}

void TrendChannelsEditsTest::anotherMeaningBeginsWithWhatIsKnown()
{
    const QList<int> numbers = watch({tagOf("", "D1@1/u16")});
    m_channels->add(numbers);
    m_tags->takeReadings({readingOf(numbers.at(0), 7, 5000)});
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 5000);
    m_tags->replace(numbers.at(0), tagOf("", "D1@1/u16*2"));
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 14"));
}

QTEST_APPLESS_MAIN(TrendChannelsEditsTest)
#include "tst_trend_channels_edits.moc"
