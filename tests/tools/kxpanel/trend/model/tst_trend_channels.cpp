#include "kxpanel/trend/model/trend_channels.h"

#include "support/growth.h"
#include "trend_tags.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using kxpanel::failureOf;
using kxpanel::LineState;
using kxpanel::LineStatus;
using kxpanel::readingOf;
using kxpanel::TagList;
using kxpanel::tagOf;
using kxpanel::TrendAxis;
using kxpanel::TrendChannel;
using kxpanel::TrendChannels;
using kxpanel::TrendSample;

Q_DECLARE_METATYPE(kx::WatchState)

namespace
{

QString samplesOf(const TrendChannels& channels, int number)
{
    QStringList texts;
    for (const TrendSample& sample : channels.find(number)->store->samples(0, 10000000)) {
        kx::GapReason reason = kx::GapReason::NotYetRead;
        QString text = QString::number(sample.value);
        if (sample.isGap())
            text = kxpanel::gapReasonOf(sample.value, &reason) ? kx::gapText(reason) : "no number";
        texts << QStringLiteral("%1 %2").arg(QString::number(sample.time()), text);
    }
    return texts.join(", ");
}

QList<int> numbersOf(const TrendChannels& channels)
{
    QList<int> numbers;
    for (const TrendChannel& channel : channels.list())
        numbers << channel.number;
    return numbers;
}

} // namespace

class TrendChannelsTest : public QObject
{
    Q_OBJECT

private slots:
    void takesValuesOfTheListIn();
    void takesEachInOnce();
    void refusesTexts();
    void holdsSoManyAtMost();
    void beginsWithWhatIsKnown();
    void readsBecomeSamples();
    void aListThatIsEditedTellsNothingNew();
    void aReadOfOtherRegistersIsNone();
    void aLostLineLeavesAGapUntilTheNextRead();
    void theLastReadsOfALostLineDoNotLast_data();
    void theLastReadsOfALostLineDoNotLast();
    void whatWasMissedIsAGap();
    void ofWhatWasNotReadMeanwhileNothingIsMissed();
    void severalReadsAfterAPauseHaveOneGap();
    void aRestLeavesAGapInAll();
    void aRestToldBehindALostLineClearsNothing();
    void whatWasMissedBehindAFailureClearsNothing();
    void aReadThatIsTakenLateClearsNothing_data();
    void aReadThatIsTakenLateClearsNothing();
    void followsNamesAndUnits();
    void anotherMeaningBeginsAnew();
    void whatLeavesTheListLeavesThePlot();
    void whatComesBackBringsItsHistory();
    void severalComeBackToTheirPlaces();
    void aFullPlotComesBackWhole();
    void anEditThatIsUndoneBringsItsHistory();
    void whatIsTakenOutAndPutBackGoesOn();
    void anotherMeaningBeginsWithWhatIsKnown();
    void looksAreTakenInTurn();
    void recordedChannelsStandBesideTheOthers();
    void recordedOnesHaveTheRoomThatIsLeft();
    void theClockIsSetForAllButRecordedOnes();
    void oneThatDoesNotAnswerSaysSo();
    void layoutComesBack();
    void layoutWaitsForItsTags();
    void membersOfOthersAreKept();
    void brokenLayoutsAreLeftOut();
    void manyWantedValuesSlowNoEdit();

private:
    TagList* m_tags = nullptr;
    TrendChannels* m_channels = nullptr;

    QList<int> watch(const QList<kx::Tag>& tags) { return m_tags->insert(m_tags->size(), tags); }

private slots:
    void init()
    {
        m_tags = new TagList(this);
        m_channels = new TrendChannels(m_tags, this);
    }
    void cleanup()
    {
        delete m_channels;
        delete m_tags;
    }
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

void TrendChannelsTest::readsBecomeSamples()
{
    const QList<int> numbers = watch({tagOf("", "D1@1/s16*0.1"), tagOf("", "D2@1/bcd")});
    m_channels->add(numbers);
    QSignalSpy added(m_channels, &TrendChannels::samplesAdded);
    m_channels->takeReadings({readingOf(numbers.at(0), 65531, 5000),
                              readingOf(numbers.at(1), 0x12A4, 5000), readingOf(99, 1, 5000)},
                             5050);
    m_channels->takeReadings({failureOf(numbers.at(0), kx::WatchState::NoAnswer)}, 6000);
    m_channels->takeReadings({failureOf(numbers.at(0), kx::WatchState::Refused)}, 7000);
    m_channels->takeReadings({readingOf(numbers.at(0), 10, 8000)}, 8050);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)),
             QString("5000 -0.5, 6000 no answer, 7000 refused, 8000 1"));
    QCOMPARE(samplesOf(*m_channels, numbers.at(1)), QString("5000 no number"));
    QCOMPARE(added.size(), 4);
    m_channels->takeReadings({readingOf(99, 1, 9000)}, 9000);
    QCOMPARE(added.size(), 4);
}

void TrendChannelsTest::aListThatIsEditedTellsNothingNew()
{
    const QList<int> numbers = watch({tagOf("", "D1@1")});
    m_channels->add(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 5000);
    LineStatus lost;
    lost.state = LineState::Interrupted;
    m_channels->takeLine(lost, 6000);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 7000);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 7, 6000 line lost"));
}

// It was under way while the value was given another address of the same size.
void TrendChannelsTest::aReadOfOtherRegistersIsNone()
{
    const QList<int> numbers = watch({tagOf("", "D1@1")});
    m_channels->add(numbers);
    kxpanel::Reading late = readingOf(numbers.at(0), 7, 5000);
    late.type = m_tags->values().first().tag.range.type;
    late.station = 1;
    late.address = 1;
    m_tags->replace(numbers.at(0), tagOf("", "D2@1"));
    m_channels->takeReadings({late}, 5000);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString());
    late.address = 2;
    m_channels->takeReadings({late}, 5000);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 7"));
}

void TrendChannelsTest::aLostLineLeavesAGapUntilTheNextRead()
{
    const QList<int> numbers = watch({tagOf("", "D1@1"), tagOf("", "D2@1")});
    m_channels->add(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 5000);
    LineStatus status;
    status.state = LineState::Open;
    m_channels->takeLine(status, 5500);
    status.state = LineState::Interrupted;
    m_channels->takeLine(status, 6000);
    m_channels->takeLine(status, 6500);
    // The machine says so of each value that cannot be read.
    m_channels->takeReadings({failureOf(numbers.at(0), kx::WatchState::NoAnswer)}, 6600);
    status.state = LineState::Open;
    m_channels->takeLine(status, 7500);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 8000)}, 8000);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 7, 6000 line lost, 8000 7"));
    // What was never read has no gap to begin with.
    QCOMPARE(samplesOf(*m_channels, numbers.at(1)), QString());
}

void TrendChannelsTest::theLastReadsOfALostLineDoNotLast_data()
{
    QTest::addColumn<kx::WatchState>("state");
    QTest::newRow("read until then") << kx::WatchState::NoAnswer;
    QTest::newRow("refused meanwhile") << kx::WatchState::Refused;
}

/// They were gathered when it was lost, and are told behind it.
void TrendChannelsTest::theLastReadsOfALostLineDoNotLast()
{
    QFETCH(kx::WatchState, state);
    const QList<int> numbers = watch({tagOf("", "D1@1"), tagOf("", "D2@1")});
    m_channels->add(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 5000);
    LineStatus lost;
    lost.state = LineState::Interrupted;
    m_channels->takeLine(lost, 6000);
    m_channels->takeReadings({readingOf(numbers.at(0), 8, 5990), failureOf(numbers.at(0), state),
                              readingOf(numbers.at(1), 9, 5990), failureOf(numbers.at(1), state)},
                             6050);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)),
             QString("5000 7, 6000 line lost, 6000 8, 6000 line lost"));
    QCOMPARE(samplesOf(*m_channels, numbers.at(1)), QString("5990 9, 5990 line lost"));
}

void TrendChannelsTest::whatWasMissedIsAGap()
{
    const QList<int> numbers = watch({tagOf("", "D1@1"), tagOf("", "D2@1"), tagOf("", "D3@1")});
    m_channels->add(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000), readingOf(numbers.at(1), 8, 5000)},
                             5000);
    m_channels->takeMissed({6000, 9000, 12});
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 8900),
                              failureOf(numbers.at(1), kx::WatchState::NoAnswer),
                              readingOf(numbers.at(2), 9, 8950)},
                             9050);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 7, 6000 not read, 8900 7"));
    QCOMPARE(samplesOf(*m_channels, numbers.at(1)),
             QString("5000 8, 6000 not read, 9050 no answer"));
    // What was never read has no gap to begin with.
    QCOMPARE(samplesOf(*m_channels, numbers.at(2)), QString("8950 9"));
}

// Values of long intervals: the latest read is always told.
void TrendChannelsTest::ofWhatWasNotReadMeanwhileNothingIsMissed()
{
    const QList<int> numbers = watch({tagOf("", "D1@1"), tagOf("", "D2@1")});
    m_channels->add(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000), readingOf(numbers.at(1), 8, 5000)},
                             5000);
    m_channels->takeMissed({6000, 9000, 12});
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 9050); // told once more
    m_channels->takeReadings({readingOf(numbers.at(0), 9, 9100), readingOf(numbers.at(1), 9, 9100)},
                             9100);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 7, 9100 9"));
    QCOMPARE(samplesOf(*m_channels, numbers.at(1)), QString("5000 8, 9100 9"));
}

void TrendChannelsTest::severalReadsAfterAPauseHaveOneGap()
{
    const QList<int> numbers = watch({tagOf("", "D1@1")});
    m_channels->add(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 5000);
    m_channels->takeMissed({6000, 9000, 12});
    m_channels->takeReadings({readingOf(numbers.at(0), 8, 8900), readingOf(numbers.at(0), 7, 8950)},
                             9050);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)),
             QString("5000 7, 6000 not read, 8900 8, 8950 7"));
}

/// The computer slept: nobody knows what they were, whenever they are read again.
void TrendChannelsTest::aRestLeavesAGapInAll()
{
    const QList<int> numbers = watch({tagOf("", "D1@1"), tagOf("", "D2@1"), tagOf("", "D3@1")});
    m_channels->add(numbers);
    TrendChannel recorded;
    recorded.number = -1;
    recorded.endsAt = 9000;
    recorded.store = std::make_shared<kxpanel::TrendStore>();
    recorded.store->append(1000, 3);
    m_channels->setRecorded({recorded});
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000), readingOf(numbers.at(1), 8, 5000)},
                             5000);
    kxpanel::Missed missed{6000, 90000, 0};
    missed.isRest = true;
    m_channels->takeMissed(missed);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 89900)}, 90000);
    m_channels->takeReadings({readingOf(numbers.at(1), 8, 90100)}, 90200);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 7, 6000 not read, 89900 7"));
    QCOMPARE(samplesOf(*m_channels, numbers.at(1)), QString("5000 8, 6000 not read, 90100 8"));
    QCOMPARE(samplesOf(*m_channels, numbers.at(2)), QString());
    QCOMPARE(samplesOf(*m_channels, -1), QString("1000 3"));
}

void TrendChannelsTest::aRestToldBehindALostLineClearsNothing()
{
    const QList<int> numbers = watch({tagOf("", "D1@1")});
    m_channels->add(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 5000);
    LineStatus lost;
    lost.state = LineState::Interrupted;
    m_channels->takeLine(lost, 3605000);
    kxpanel::Missed missed{6000, 3605500, 0};
    missed.isRest = true;
    m_channels->takeMissed(missed);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)),
             QString("5000 7, 3605000 line lost, 3605000 not read"));
}

void TrendChannelsTest::whatWasMissedBehindAFailureClearsNothing()
{
    const QList<int> numbers = watch({tagOf("", "D1@1")});
    m_channels->add(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 5000);
    m_channels->takeReadings({failureOf(numbers.at(0), kx::WatchState::NoAnswer)}, 95000);
    m_channels->takeMissed({6000, 94000, 12});
    m_channels->takeReadings({readingOf(numbers.at(0), 8, 93000)}, 95000);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)),
             QString("5000 7, 95000 no answer, 95000 not read, 95000 8"));
}

void TrendChannelsTest::aReadThatIsTakenLateClearsNothing_data()
{
    QTest::addColumn<bool>("isLost");
    QTest::addColumn<QString>("samples");
    QTest::newRow("behind a failure") << false << "5000 7, 95000 no answer, 95000 8, 96000 9";
    QTest::newRow("behind a lost line") << true << "5000 7, 95000 line lost, 95000 8, 96000 9";
}

/// The window stood still for 90 s, and has its own time for what failed.
void TrendChannelsTest::aReadThatIsTakenLateClearsNothing()
{
    QFETCH(bool, isLost);
    QFETCH(QString, samples);
    const QList<int> numbers = watch({tagOf("", "D1@1")});
    m_channels->add(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 5000);
    LineStatus status;
    status.state = isLost ? LineState::Interrupted : LineState::Open;
    m_channels->takeLine(status, 95000);
    m_channels->takeReadings({failureOf(numbers.at(0), kx::WatchState::NoAnswer)}, 95000);
    status.state = LineState::Open;
    m_channels->takeLine(status, 95000);
    m_channels->takeReadings({readingOf(numbers.at(0), 8, 20000)}, 95000);
    m_channels->takeReadings({readingOf(numbers.at(0), 9, 96000)}, 96000);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), samples);
}

void TrendChannelsTest::followsNamesAndUnits()
{
    const QList<int> numbers = watch({tagOf("Old", "D1@1/u16")});
    m_channels->add(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 5000);
    m_tags->replace(numbers.at(0), tagOf("New", "D1@1/u16,decimals=2,unit=mm"));
    QCOMPARE(m_channels->list().at(0).name, QString("New"));
    QCOMPARE(m_channels->list().at(0).unit, QString("mm"));
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 7"));
}

void TrendChannelsTest::anotherMeaningBeginsAnew()
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

void TrendChannelsTest::whatLeavesTheListLeavesThePlot()
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

void TrendChannelsTest::whatComesBackBringsItsHistory()
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

void TrendChannelsTest::severalComeBackToTheirPlaces()
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

/// Select all, Delete, and undo.
void TrendChannelsTest::aFullPlotComesBackWhole()
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

void TrendChannelsTest::anEditThatIsUndoneBringsItsHistory()
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

void TrendChannelsTest::whatIsTakenOutAndPutBackGoesOn()
{
    const QList<int> numbers = watch({tagOf("", "D1@1")});
    m_channels->add(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 5000);
    m_channels->remove(numbers);
    m_channels->takeReadings({readingOf(numbers.at(0), 9, 6000)}, 6000);
    m_channels->add(numbers);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 7, 5001 not read"));
}

/// It may be read once an hour.
void TrendChannelsTest::anotherMeaningBeginsWithWhatIsKnown()
{
    const QList<int> numbers = watch({tagOf("", "D1@1/u16")});
    m_channels->add(numbers);
    m_tags->takeReadings({readingOf(numbers.at(0), 7, 5000)});
    m_channels->takeReadings({readingOf(numbers.at(0), 7, 5000)}, 5000);
    m_tags->replace(numbers.at(0), tagOf("", "D1@1/u16*2"));
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 14"));
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

void TrendChannelsTest::oneThatDoesNotAnswerSaysSo()
{
    const QList<int> numbers = watch({tagOf("", "D1@1"), tagOf("", "D2@1")});
    m_tags->takeReadings({failureOf(numbers.at(0), kx::WatchState::NoAnswer)});
    m_channels->add(numbers, 5000);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 no answer"));
    QCOMPARE(samplesOf(*m_channels, numbers.at(1)), QString());
}

void TrendChannelsTest::layoutComesBack()
{
    const QList<int> numbers =
        watch({tagOf("Flow", "D1@1/u16"), tagOf("", "D2@2"), tagOf("Other", "D1@1/u16")});
    m_channels->add({numbers.at(2), numbers.at(1)});
    m_channels->setAxis({numbers.at(1)}, TrendAxis::Right);
    m_channels->setShown(numbers.at(2), false);
    const QJsonArray layout = m_channels->layout();

    TagList tags;
    TrendChannels other(&tags);
    const QList<int> others =
        tags.insert(0, {tagOf("", "D2@2"), tagOf("Flow", "D1@1/u16"), tagOf("Other", "D1@1/u16")});
    other.setLayout(layout);
    QCOMPARE(numbersOf(other), (QList<int>{others.at(2), others.at(0)}));
    QCOMPARE(other.list().at(1).axis, TrendAxis::Right);
    QVERIFY(!other.list().at(0).isShown);
    QCOMPARE(other.layout(), layout);
}

void TrendChannelsTest::layoutWaitsForItsTags()
{
    const QList<int> numbers = watch({tagOf("Flow", "D1@1/u16")});
    m_channels->add(numbers);
    const QJsonArray layout = m_channels->layout();

    TagList tags;
    TrendChannels other(&tags);
    other.setLayout(layout);
    QCOMPARE(numbersOf(other), QList<int>());
    QCOMPARE(other.layout(), layout);
    tags.insert(0, {tagOf("Else", "D5@1/u16")});
    QCOMPARE(numbersOf(other), QList<int>());
    const QList<int> others = tags.insert(0, {tagOf("Flow", "D1@1/u16")});
    QCOMPARE(numbersOf(other), others);
    QCOMPARE(other.layout(), layout);
}

void TrendChannelsTest::membersOfOthersAreKept()
{
    watch({tagOf("Flow", "D1@1/u16")});
    const QList<kxpanel::WatchedValue> before = m_tags->values();
    m_channels->setLayout({QJsonObject{
        {"name", "Flow"}, {"station", 1}, {"address", "D1/u16"}, {"axis", "left"}, {"width", 3}}});
    m_channels->setAxis({before.at(0).number}, TrendAxis::Right);
    m_tags->setValues({});
    m_tags->setValues(before); // as undo does
    QCOMPARE(m_channels->layout(), (QJsonArray{QJsonObject{{"name", "Flow"},
                                                           {"station", 1},
                                                           {"address", "D1/u16"},
                                                           {"axis", "right"},
                                                           {"look", 0},
                                                           {"shown", true},
                                                           {"width", 3}}}));
}

void TrendChannelsTest::brokenLayoutsAreLeftOut()
{
    const QList<int> numbers = watch({tagOf("Flow", "D1@1/u16")});
    m_channels->setLayout({QJsonValue(5), QJsonObject(),
                           QJsonObject{{"name", "Flow"},
                                       {"station", 1},
                                       {"address", "D1/u16"},
                                       {"look", 1000000},
                                       {"axis", "upside down"}}});
    QCOMPARE(numbersOf(*m_channels), numbers);
    QCOMPARE(m_channels->list().at(0).look, 0);
    QCOMPARE(m_channels->list().at(0).axis, TrendAxis::Left);
}

void TrendChannelsTest::manyWantedValuesSlowNoEdit()
{
    const auto cost = [](int amount) {
        QJsonArray layout;
        for (int wanted = 0; wanted < amount; ++wanted)
            layout << QJsonObject{
                {"name", ""}, {"station", 1}, {"address", QString("Z%1").arg(wanted)}};
        QList<kx::Tag> tags;
        for (int tag = 0; tag < 500; ++tag)
            tags << tagOf("", qPrintable(QStringLiteral("D%1@1").arg(tag)));
        TagList list;
        TrendChannels channels(&list);
        channels.setLayout(layout);
        const std::clock_t begin = std::clock();
        list.insert(0, tags);
        return std::clock() - begin;
    };
    // Each is looked at once: a look among all of them would take a hundred times as much.
    const double times = growth(cost, 10, 1000);
    QVERIFY2(times < 10, qPrintable(QString::number(times)));
}

QTEST_APPLESS_MAIN(TrendChannelsTest)
#include "tst_trend_channels.moc"
