#include "kxpanel/line/line_page.h"

#include "../sample_exchanges.h"
#include "kxpanel/line/cycle/cycle_picture.h"
#include "kxpanel/line/limit/limit_panel.h"
#include "kxpanel/line/plan/plan_picture.h"
#include "kxpanel/machine/machine.h"
#include "kxpanel/tags/tag_list.h"
#include "registers/register_types.h"
#include "tools/kxpanel/machine_fixture.h"
#include "tools/kxsim/kxsim_process.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <algorithm>

using namespace kxpanel;

namespace
{

/// A poll that its station did not answer, for good.
Exchange lastTryOf(char station)
{
    Exchange lastTry = unansweredPoll();
    lastTry.request[0] = station;
    lastTry.range.station = station;
    lastTry.isFinal = true;
    return lastTry;
}

} // namespace

class LinePageTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsExchangesAndShares();
    void anotherLineBeginsAnew();
    void showsThePlanOfTheTags();
    void theSliderShowsItsPlan();
    void measuresBesideWhatIsPredicted();
    void predictsByWhatStationsTake();
    void predictsWhatComesWithinTheTimeOut();
    void predictsWhatStationsDoNotRefuse();
    void predictsAgainWhenStationsTakeLonger();
    void measuresWhileThePictureIsPaused();
    void aCycleThatNewLimitsBreakIsNotMeasured();
    void anIntervalIsNoCycle();
    void aNetworkIsPredictedByWholeReplies();
    void tellsWhatIsInForce();
    void tellsWhatWasApplied();
    void pausesByKey();
    void aPausedPictureKeepsWhatItShows();
    void aLongCycleIsMeasuredByFewer();
    void aNetworkTellsNoLineUse();
    void intervalsCount();
    void silentStationsDoNotCount();
    void stationsFallSilentWhilePaused();
    void appliedLimitsAreInForce();
    void sharesAgreeWithWhatTheRuntimeCounts_data();
    void sharesAgreeWithWhatTheRuntimeCounts();

private:
    QString labels() const;
    void watch(int registers);
    PlanPicture* plan() const { return m_page->findChild<PlanPicture*>(); }

    std::unique_ptr<Machine> m_machine;
    std::unique_ptr<TagList> m_tags;
    std::unique_ptr<LinePage> m_page;
};

void LinePageTest::init()
{
    m_machine = std::make_unique<Machine>();
    m_tags = std::make_unique<TagList>();
    m_page = std::make_unique<LinePage>(PageContext{m_machine.get(), m_tags.get()});
    m_page->resize(1000, 700);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
}

void LinePageTest::cleanup()
{
    m_page.reset();
    m_tags.reset();
    m_machine.reset();
}

QString LinePageTest::labels() const
{
    QString texts;
    for (const QLabel* label : m_page->findChildren<QLabel*>())
        texts += label->text() + '\n';
    return texts;
}

/// D100 and so many behind it at station 1, a tag each.
void LinePageTest::watch(int registers)
{
    kx::Tag tag;
    tag.range = {findRegisterType(QString("D")), 100, registers, 1};
    m_tags->insert(0, {tag});
}

void LinePageTest::showsExchangesAndShares()
{
    emit m_machine->exchanged(answeredPolls(6));
    // Of 150 ms that three cycles take, the last one without its silence: three requests of 8334 us
    // and three replies of 9375.
    QVERIFY(labels().contains("Line used 35.4 %: sent 16.7 %, waited 10.0 %, received 18.8 %, "
                              "silence 54.6 %"));
    auto* picture = m_page->findChild<CyclePicture*>();
    picture->setFocus();
    QTest::keyClick(picture, Qt::Key_Left);
    QVERIFY(labels().contains("station 1: read D100:2; sent in 8.3 ms"));
}

void LinePageTest::anotherLineBeginsAnew()
{
    LineStatus status;
    status.name = QString("/dev/ttyUSB0");
    emit m_machine->lineChanged(status);
    emit m_machine->exchanged(answeredPolls(6));
    status.state = LineState::Interrupted;
    emit m_machine->lineChanged(status); // the same line
    QVERIFY(labels().contains("Line used"));
    status.name = QString("gateway:8888");
    emit m_machine->lineChanged(status);
    QTRY_VERIFY(!labels().contains("Line used"));
    status.timing.baud = 19200;
    emit m_machine->exchanged(answeredPolls(6));
    emit m_machine->lineChanged(status);
    emit m_machine->exchanged(answeredPolls(6));
    // 8 characters take 4167 us, 9 take 4688.
    QTRY_VERIFY(labels().contains("sent 8.3 %"));
}

void LinePageTest::showsThePlanOfTheTags()
{
    watch(40);
    QTRY_COMPARE(plan()->bars(), 1);
    QTRY_VERIFY(labels().contains("Predicted: 105.5 ms per cycle, 1 requests"));
    m_tags->setValues({});
    QTRY_COMPARE(plan()->bars(), 0);
}

void LinePageTest::theSliderShowsItsPlan()
{
    watch(40);
    QTRY_COMPARE(plan()->bars(), 1);
    m_page->findChild<LimitPanel*>()->setChosen(10);
    QCOMPARE(plan()->bars(), 4);
}

void LinePageTest::measuresBesideWhatIsPredicted()
{
    emit m_machine->counted(kx::WatchSummary());
    QVERIFY(labels().contains("Measured: nothing yet"));
    emit m_machine->exchanged(answeredPolls(6));
    emit m_machine->counted(kx::WatchSummary());
    QVERIFY(labels().contains("Measured: 50.0 ms per cycle"));
}

void LinePageTest::predictsByWhatStationsTake()
{
    watch(40);
    QTRY_VERIFY(labels().contains("Predicted: 105.5 ms per cycle"));
    QVERIFY2(labels().contains("they take 5.0 ms for each reply\n"), qPrintable(labels()));
    QVector<Exchange> polls = answeredPolls(6);
    for (Exchange& poll : polls)
        poll.turnaround = 15000;
    emit m_machine->exchanged(polls);
    emit m_machine->counted(kx::WatchSummary());
    QTRY_VERIFY(labels().contains("Predicted: 115.5 ms per cycle")); // 10 ms more than usual
    QVERIFY2(!labels().contains("assumed"), qPrintable(labels()));
}

// 120 registers take 255 ms at 9600 baud.
void LinePageTest::predictsWhatComesWithinTheTimeOut()
{
    watch(120);
    QTRY_VERIFY(labels().contains("Predicted: 272.2 ms per cycle, 1 request"));
    LineStatus status;
    status.name = QString("/dev/ttyUSB7");
    status.replyTimeout = 200;
    emit m_machine->lineChanged(status);
    QTRY_VERIFY(labels().contains("Predicted: 294.4 ms per cycle, 2 requests"));
}

void LinePageTest::predictsWhatStationsDoNotRefuse()
{
    watch(40);
    QTRY_VERIFY(labels().contains("Predicted: 105.5 ms per cycle, 1 requests"));
    LineStatus status;
    status.shortened[1].maxWords = 16; // 16, 16 and 8: 119 characters
    emit m_machine->lineChanged(status);
    QTRY_VERIFY2(labels().contains("Predicted: 149.9 ms per cycle, 3 requests"),
                 qPrintable(labels()));
}

void LinePageTest::predictsAgainWhenStationsTakeLonger()
{
    watch(40);
    QVector<Exchange> polls = answeredPolls(100);
    for (int i = 50; i < 100; ++i)
        polls[i].turnaround = 25000;
    emit m_machine->exchanged(polls.mid(0, 50));
    emit m_machine->counted(kx::WatchSummary());
    QTRY_VERIFY(labels().contains("Predicted: 105.5 ms per cycle"));
    emit m_machine->exchanged(polls.mid(50));
    emit m_machine->counted(kx::WatchSummary());
    QTRY_VERIFY(labels().contains("Predicted: 125.5 ms per cycle")); // 20 ms more
}

void LinePageTest::measuresWhileThePictureIsPaused()
{
    QVector<Exchange> polls = answeredPolls(5200);
    for (int i = 5100; i < 5200; ++i)
        polls[i].sentAt += 50 * (i - 5100); // one every 100 ms from then on
    emit m_machine->exchanged(polls.mid(0, 5000));
    QTest::keyClick(m_page->findChild<CyclePicture*>(), Qt::Key_P, Qt::ControlModifier);
    emit m_machine->exchanged(polls.mid(5000));
    emit m_machine->counted(kx::WatchSummary());
    QVERIFY2(labels().contains("Measured: 100.0 ms per cycle"), qPrintable(labels()));
}

void LinePageTest::aCycleThatNewLimitsBreakIsNotMeasured()
{
    LineStatus status;
    status.state = LineState::Open;
    status.sessions = 1;
    emit m_machine->lineChanged(status);
    QVector<Exchange> polls = answeredPolls(6);
    for (int i = 3; i < 6; ++i)
        polls[i].sentAt += 1000; // while another session began
    emit m_machine->exchanged(polls.mid(0, 3));
    status.sessions = 2; // with the same limit
    emit m_machine->lineChanged(status);
    emit m_machine->exchanged(polls.mid(3, 2));
    status.fault = QString("station 9 does not answer"); // which breaks no cycle
    emit m_machine->lineChanged(status);
    emit m_machine->exchanged(polls.mid(5));
    emit m_machine->counted(kx::WatchSummary());
    QVERIFY2(labels().contains("Measured: 50.0 ms per cycle"), qPrintable(labels()));
}

void LinePageTest::anIntervalIsNoCycle()
{
    kx::Tag tag;
    tag.range = {findRegisterType(QString("X")), 0, 1, 1};
    tag.interval = 20; // so that it comes after each of the others, and first
    m_tags->insert(0, {tag});
    tag.interval = 0;
    for (const int address : {100, 1000, 2000}) { // 105.5 ms each
        tag.range = {findRegisterType(QString("D")), address, 40, 1};
        m_tags->insert(0, {tag});
    }
    const MachineLog log(m_machine.get());
    m_machine->setValues(m_tags->values());
    m_machine->openLine(simulated());
    QTRY_VERIFY_WITH_TIMEOUT(log.cycles >= 5, 20000);
    const QRegularExpression measured("Measured: ([0-9.]+) ms per cycle");
    QTRY_VERIFY_WITH_TIMEOUT(measured.match(labels()).hasMatch(), 20000);
    const QString words = labels();
    m_machine->closeLine();
    QTRY_VERIFY(log.states.last().startsWith("closed"));
    const double time = measured.match(words).captured(1).toDouble();
    QVERIFY2(time > 316, qPrintable(words)); // or more, on a busy machine
}

void LinePageTest::aNetworkIsPredictedByWholeReplies()
{
    LineStatus status;
    status.name = QString("gateway:8888");
    status.isNetwork = true; // behind which the line is said to have 9600 baud
    emit m_machine->lineChanged(status);
    watch(40);
    QVector<Exchange> polls = answeredPolls(20);
    for (Exchange& poll : polls)
        poll.turnaround = 25000; // 8 + 9 characters take 17708 us of it
    emit m_machine->exchanged(polls);
    emit m_machine->counted(kx::WatchSummary());
    // 8 + 85 characters take 96875 us, and the rest 7292.
    QTRY_VERIFY2(labels().contains("Predicted: 104.2 ms per cycle, 1 requests\n"),
                 qPrintable(labels()));
}

void LinePageTest::tellsWhatIsInForce()
{
    LineStatus status;
    status.state = LineState::Open;
    status.longestRequest = 125;
    emit m_machine->lineChanged(status);
    QVERIFY2(labels().contains("In force: automatic, 125 registers at most\n"),
             qPrintable(labels()));
    auto* limits = m_page->findChild<LimitPanel*>();
    limits->setChosen(40);
    emit m_machine->lineChanged(status); // of something else
    QCOMPARE(limits->chosen(), 40);
    status.longestRequest = 16;
    emit m_machine->lineChanged(status);
    QVERIFY(labels().contains("In force: 16 register(s) at most\n"));
    QCOMPARE(limits->chosen(), 16); // what is predicted is what is measured
    status.state = LineState::Closed;
    emit m_machine->lineChanged(status);
    QVERIFY(labels().contains("In force: no line is open\n"));
    QCOMPARE(limits->chosen(), 16);
}

void LinePageTest::tellsWhatWasApplied()
{
    QSignalSpy said(m_page.get(), &Page::said);
    auto* limits = m_page->findChild<LimitPanel*>();
    emit limits->applied(40, 640);
    emit limits->applied(0, 0);
    QCOMPARE(said.at(0).at(0).toString(),
             QString("Requests take 40 registers or 640 bits at most"));
    QCOMPARE(said.at(1).at(0).toString(), QString("Requests are as long as takes the least time"));
}

void LinePageTest::pausesByKey()
{
    auto* picture = m_page->findChild<CyclePicture*>();
    picture->setFocus();
    QTest::keyClick(picture, Qt::Key_P, Qt::ControlModifier);
    QVERIFY(!picture->isLive());
    QTest::keyClick(picture, Qt::Key_Space); // the button follows
    QVERIFY(picture->isLive());
    QTest::keyClick(picture, Qt::Key_P, Qt::ControlModifier);
    QVERIFY(!picture->isLive());
}

void LinePageTest::aPausedPictureKeepsWhatItShows()
{
    const QVector<Exchange> polls = answeredPolls(11000);
    emit m_machine->exchanged(polls.mid(0, 4990));
    auto* picture = m_page->findChild<CyclePicture*>();
    picture->setFocus();
    QTest::keyClick(picture, Qt::Key_Left); // which pauses, too
    QCOMPARE(picture->selected(), qint64(4989));
    emit m_machine->exchanged(polls.mid(4990, 10)); // there is room for 5000
    QVERIFY(!labels().contains("have come"));
    emit m_machine->exchanged(polls.mid(5000, 5999));
    QVERIFY2(labels().contains("; paused, 5999 more have come"), qPrintable(labels()));
    QCOMPARE(picture->selected(), qint64(4989));
    QTest::keyClick(picture, Qt::Key_End);
    QVERIFY(!labels().contains("have come"));
    QCOMPARE(picture->axis().to(), polls.at(10998).sentAt * 1000 + 22709); // the latest
    emit m_machine->exchanged(polls.mid(10999));
    QCOMPARE(picture->axis().to(), polls.at(10999).sentAt * 1000 + 22709);
}

void LinePageTest::aLongCycleIsMeasuredByFewer()
{
    QVector<Exchange> polls = answeredPolls(5000); // as many as are kept
    for (int i = 0; i < 5000; ++i)
        polls[i].endsCycle = i % 2000 == 1999; // 100 s for each cycle
    emit m_machine->exchanged(polls);
    emit m_machine->counted(kx::WatchSummary());
    QVERIFY2(labels().contains("Measured: 100000.0 ms per cycle"), qPrintable(labels()));
}

void LinePageTest::aNetworkTellsNoLineUse()
{
    LineStatus status;
    status.name = QString("gateway:8888");
    status.isNetwork = true; // behind which the line has 9600 baud
    emit m_machine->lineChanged(status);
    emit m_machine->exchanged(answeredPolls(6));
    // Of 150 ms that three cycles take 15 ms.
    QVERIFY2(labels().contains("Waited for replies 10.0 %, silence 90.0 %"), qPrintable(labels()));
    watch(40);
    emit m_machine->counted(kx::WatchSummary());
    // Whole replies within 5 ms come from no line of 9600 baud: their length does not count.
    QTRY_VERIFY2(labels().contains("Predicted: 5.0 ms per cycle, 1 requests\n"),
                 qPrintable(labels()));
}

void LinePageTest::intervalsCount()
{
    kx::Tag tag;
    tag.range = {findRegisterType(QString("D")), 100, 40, 1};
    tag.interval = 2000;
    m_tags->insert(0, {tag});
    // The request and its reply take 96875 us of two seconds.
    QTRY_VERIFY2(labels().contains("Predicted: 2000.0 ms per cycle, 1 requests, line used 4.8 %"),
                 qPrintable(labels()));
}

void LinePageTest::silentStationsDoNotCount()
{
    watch(40);
    kx::Tag tag;
    tag.range = {findRegisterType(QString("D")), 100, 40, 9};
    m_tags->insert(0, {tag});
    QTRY_VERIFY(labels().contains("Predicted: 211.0 ms per cycle, 2 requests"));
    emit m_machine->exchanged({lastTryOf(9)});
    emit m_machine->counted(kx::WatchSummary());
    QTRY_VERIFY2(labels().contains(
                     "Predicted: 105.5 ms per cycle, 1 requests, line used 91.8 %; assumed, until "
                     "stations answer, that they take 5.0 ms for each reply; "
                     "without 1 silent station(s): 9"),
                 qPrintable(labels()));
    QCOMPARE(plan()->bars(), 2); // it is asked now and then
}

void LinePageTest::stationsFallSilentWhilePaused()
{
    watch(40);
    kx::Tag tag;
    tag.range = {findRegisterType(QString("D")), 100, 40, 9};
    m_tags->insert(0, {tag});
    emit m_machine->exchanged(answeredPolls(5000)); // as many as are kept
    QTest::keyClick(m_page->findChild<CyclePicture*>(), Qt::Key_P, Qt::ControlModifier);
    QTRY_VERIFY(labels().contains("Predicted: 211.0 ms per cycle, 2 requests"));
    emit m_machine->exchanged({lastTryOf(9)});
    QVERIFY(labels().contains("; paused, 1 more have come"));
    emit m_machine->counted(kx::WatchSummary());
    QTRY_VERIFY2(labels().contains("; without 1 silent station(s): 9"), qPrintable(labels()));
}

void LinePageTest::appliedLimitsAreInForce()
{
    watch(40);
    const MachineLog log(m_machine.get());
    m_machine->setValues(m_tags->values());
    m_machine->openLine(simulated());
    const auto registersOf = [](const Exchange& exchange) { // the request's quantity
        return exchange.kind == CYCLIC_READ_JOB ? int(exchange.request.at(5)) : 0;
    };
    QTRY_VERIFY(!log.exchanges.isEmpty());
    QCOMPARE(log.status.replyTimeout, 500);
    QCOMPARE(registersOf(log.exchanges.first()), 40); // as takes the least time
    auto* limits = m_page->findChild<LimitPanel*>();
    limits->setChosen(16);
    for (QPushButton* button : limits->findChildren<QPushButton*>()) {
        if (button->text() == "&Apply")
            QTest::mouseClick(button, Qt::LeftButton);
    }
    const auto latest = [&](int back) {
        return registersOf(log.exchanges.at(log.exchanges.size() - back));
    };
    QTRY_VERIFY(log.exchanges.size() > 3);
    QTRY_COMPARE(latest(1) + latest(2) + latest(3), 40);
    QVERIFY(latest(1) <= 16 && latest(2) <= 16 && latest(3) <= 16);
    m_machine->closeLine();
    QTRY_VERIFY(log.states.last().startsWith("closed"));
}

void LinePageTest::sharesAgreeWithWhatTheRuntimeCounts_data()
{
    QTest::addColumn<QStringList>("pace");
    QTest::newRow("a line that keeps time") << QStringList{"--pace", "9600"};
    QTest::newRow("a terminal that delivers at once") << QStringList();
}

void LinePageTest::sharesAgreeWithWhatTheRuntimeCounts()
{
    QFETCH(QStringList, pace);
    const KxsimProcess simulator(QStringList{"--still", "--turnaround", "5ms"} + pace);
    watch(40);
    const MachineLog log(m_machine.get());
    m_machine->setValues(m_tags->values());
    m_machine->openLine(serialPort(simulator.portName()));
    QTRY_VERIFY_WITH_TIMEOUT(log.exchanges.size() >= 8, 20000); // of about 105 ms each
    m_machine->closeLine();
    QTRY_VERIFY(log.states.last().startsWith("closed"));
    LineRecord record;
    for (const Exchange& exchange : log.exchanges)
        record.add(exchange, kx::LineTiming());
    const qint64 from = record.mark(0).times.sent;
    const qint64 to = record.mark(record.history().end() - 1).times.replyEnded;
    const double load =
        log.summaries.last().statistics.lineLoad(kx::LineTiming(), (to - from) / 1000);
    const double used = record.shares(from, to).used();
    const QString words = QString("%1 for %2").arg(used).arg(load);
    QVERIFY2(qAbs(used - load) < 0.01 * load, qPrintable(words)); // however slow the machine is
    const auto answered =
        std::count_if(log.exchanges.begin(), log.exchanges.end(), [](const Exchange& exchange) {
            return exchange.replyKind == kx::ReplyKind::Good;
        });
    QVERIFY(answered > 0);
    const qint64 transmitted = qRound64(load * double(to - from));
    // 93 characters each, which take more than a millisecond each.
    QVERIFY2(transmitted > 93000 * answered, qPrintable(words));
}

QTEST_MAIN(LinePageTest)

#include "tst_line_page.moc"
