// What becomes of reads, of failures and of what was missed.

#include "trend_channels_fixture.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using kxpanel::failureOf;
using kxpanel::LineState;
using kxpanel::LineStatus;
using kxpanel::readingOf;
using kxpanel::samplesOf;
using kxpanel::tagOf;
using kxpanel::TrendChannel;
using kxpanel::TrendChannels;

Q_DECLARE_METATYPE(kx::WatchState)

class TrendChannelsReadsTest : public kxpanel::TrendChannelsFixture
{
    Q_OBJECT

private slots:
    void init() { makeChannels(); }
    void cleanup() { takeChannelsAway(); }
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
    void oneThatDoesNotAnswerSaysSo();
};

void TrendChannelsReadsTest::readsBecomeSamples()
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

void TrendChannelsReadsTest::aListThatIsEditedTellsNothingNew()
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

void TrendChannelsReadsTest::aReadOfOtherRegistersIsNone()
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

void TrendChannelsReadsTest::aLostLineLeavesAGapUntilTheNextRead()
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

void TrendChannelsReadsTest::theLastReadsOfALostLineDoNotLast_data()
{
    QTest::addColumn<kx::WatchState>("state");
    QTest::newRow("read until then") << kx::WatchState::NoAnswer;
    QTest::newRow("refused meanwhile") << kx::WatchState::Refused;
}

void TrendChannelsReadsTest::theLastReadsOfALostLineDoNotLast()
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

void TrendChannelsReadsTest::whatWasMissedIsAGap()
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

void TrendChannelsReadsTest::ofWhatWasNotReadMeanwhileNothingIsMissed()
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

void TrendChannelsReadsTest::severalReadsAfterAPauseHaveOneGap()
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

void TrendChannelsReadsTest::aRestLeavesAGapInAll()
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

void TrendChannelsReadsTest::aRestToldBehindALostLineClearsNothing()
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

void TrendChannelsReadsTest::whatWasMissedBehindAFailureClearsNothing()
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

void TrendChannelsReadsTest::aReadThatIsTakenLateClearsNothing_data()
{
    QTest::addColumn<bool>("isLost");
    QTest::addColumn<QString>("samples");
    QTest::newRow("behind a failure") << false << "5000 7, 95000 no answer, 95000 8, 96000 9";
    QTest::newRow("behind a lost line") << true << "5000 7, 95000 line lost, 95000 8, 96000 9";
}

void TrendChannelsReadsTest::aReadThatIsTakenLateClearsNothing()
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

void TrendChannelsReadsTest::oneThatDoesNotAnswerSaysSo()
{
    const QList<int> numbers = watch({tagOf("", "D1@1"), tagOf("", "D2@1")});
    m_tags->takeReadings({failureOf(numbers.at(0), kx::WatchState::NoAnswer)});
    m_channels->add(numbers, 5000);
    QCOMPARE(samplesOf(*m_channels, numbers.at(0)), QString("5000 no answer"));
    QCOMPARE(samplesOf(*m_channels, numbers.at(1)), QString());
}

QTEST_APPLESS_MAIN(TrendChannelsReadsTest)
#include "tst_trend_channels_reads.moc"
