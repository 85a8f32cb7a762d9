#include "kxpanel/line/line_page.h"

#include "../sample_exchanges.h"
#include "kxpanel/line/cycle/cycle_picture.h"
#include "kxpanel/line/limit/limit_panel.h"
#include "kxpanel/line/plan/plan_picture.h"
#include "kxpanel/machine/machine.h"
#include "kxpanel/tags/tag_list.h"
#include "registers/register_types.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

using namespace kxpanel;

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
    void tellsWhatWasApplied();
    void pausesByKey();

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
    QVector<Exchange> polls = answeredPolls(6);
    for (Exchange& poll : polls)
        poll.turnaround = 15000;
    emit m_machine->exchanged(polls);
    emit m_machine->counted(kx::WatchSummary());
    QTRY_VERIFY(labels().contains("Predicted: 115.5 ms per cycle")); // 10 ms more than usual
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

QTEST_MAIN(LinePageTest)

#include "tst_line_page.moc"
