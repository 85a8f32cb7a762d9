#include "kxpanel/health/health_page.h"

#include "../sample_exchanges.h"
#include "kxpanel/health/histogram_view.h"
#include "kxpanel/machine/machine.h"

#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QTableView>

using namespace kxpanel;

class HealthPageTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsTimesOfTheSelectedStation();
    void tellsWhatWasThrownAway();
    void resetsByKey();
    void tellsTheSelectedBarOfTheSelectedStation();

private:
    QStringList labels() const;
    QString times() const { return m_page->findChild<HistogramView*>()->accessibleDescription(); }

    std::unique_ptr<Machine> m_machine;
    std::unique_ptr<HealthPage> m_page;
    QTableView* m_table = nullptr;
};

void HealthPageTest::init()
{
    m_machine = std::make_unique<Machine>();
    m_page = std::make_unique<HealthPage>(PageContext{m_machine.get(), nullptr});
    m_page->resize(900, 500);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    m_table = m_page->findChild<QTableView*>();
}

void HealthPageTest::cleanup()
{
    m_page.reset();
    m_machine.reset();
}

QStringList HealthPageTest::labels() const
{
    QStringList texts;
    for (const QLabel* label : m_page->findChildren<QLabel*>())
        texts << label->text();
    return texts;
}

void HealthPageTest::showsTimesOfTheSelectedStation()
{
    emit m_machine->exchanged({answeredPoll(), refusedWrite(), refusedWrite()});
    QTRY_COMPARE(times(), QString("Reply times of station 1: 1 replies, median 5.0 ms, "
                                  "99 % within 5.0 ms"));
    m_table->setFocus();
    QTest::keyClick(m_table, Qt::Key_Down);
    QCOMPARE(times(), QString("Reply times of station 2: 2 replies, median 3.1 ms, "
                              "99 % within 3.1 ms"));
    emit m_machine->exchanged({refusedWrite()}); // drawn a little later
    QTRY_VERIFY(times().contains(": 3 replies"));
}

void HealthPageTest::tellsWhatWasThrownAway()
{
    QVERIFY(labels().contains("Line: nothing was thrown away"));
    kx::WatchSummary summary;
    summary.elapsed = 500;
    summary.statistics.thrownAway.bytes = 14;
    emit m_machine->counted(summary);
    QVERIFY(labels().contains("Line: 14 byte(s) in no frame"));
    QTest::keyClick(m_table, Qt::Key_R, Qt::ControlModifier);
    QVERIFY(labels().contains("Line: nothing was thrown away"));
    summary.statistics.thrownAway.bytes = 16;
    emit m_machine->counted(summary);
    QVERIFY(labels().contains("Line: 2 byte(s) in no frame"));
    LineStatus status;
    status.state = LineState::Opening; // another run, which goes on where that one ended
    emit m_machine->lineChanged(status);
    summary.elapsed = 1000;
    summary.statistics.thrownAway.bytes = 3;
    emit m_machine->counted(summary);
    QVERIFY(labels().contains("Line: 5 byte(s) in no frame"));
    status.state = LineState::Interrupted; // the same run
    emit m_machine->lineChanged(status);
    summary.elapsed = 1500;
    emit m_machine->counted(summary);
    QVERIFY(labels().contains("Line: 5 byte(s) in no frame"));
}

void HealthPageTest::resetsByKey()
{
    emit m_machine->exchanged({answeredPoll()});
    QCOMPARE(m_table->model()->rowCount(), 1);
    m_table->setFocus();
    QTest::keyClick(m_table, Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(m_table->model()->rowCount(), 0);
    QCOMPARE(times(), QString::fromUtf8("Reply times: 0 replies, median –, 99 % within –"));
}

void HealthPageTest::tellsTheSelectedBarOfTheSelectedStation()
{
    emit m_machine->exchanged({answeredPoll(), refusedWrite(), refusedWrite()});
    QTRY_VERIFY(times().contains("station 1: 1 replies"));
    QTest::keyClick(m_page->findChild<HistogramView*>(), Qt::Key_Right);
    QVERIFY(labels().contains("4.6 ms to 5.1 ms: 1 replies, 100.0 %"));
    emit m_machine->exchanged({answeredPoll()});
    QTRY_VERIFY(labels().contains("4.6 ms to 5.1 ms: 2 replies, 100.0 %"));
    m_table->selectRow(1); // none of its replies took as long
    QVERIFY(labels().filter("ms to").isEmpty());
}

QTEST_MAIN(HealthPageTest)

#include "tst_health_page.moc"
