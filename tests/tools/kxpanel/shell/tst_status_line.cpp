#include "kxpanel/shell/status_line.h"

#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStatusBar>

using namespace kxpanel;

class StatusLineTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void nothingIsKnownAtFirst();
    void anOpenLineIsNamedAndCounted();
    void faultsAreCounted();
    void aLostLineKeepsItsCounts();
    void aClosedLineHasNone();
    void whatPagesSayStandsOnTheLeft();

private:
    QString text(const char* name) const;
    void tell(LineState state);
    void count(qint64 repeated, qint64 failed);

    std::unique_ptr<Machine> m_machine;
    std::unique_ptr<QStatusBar> m_bar;
    StatusLine* m_line = nullptr;
};

void StatusLineTest::init()
{
    m_bar.reset();
    m_machine = std::make_unique<Machine>();
    m_bar = std::make_unique<QStatusBar>();
    m_line = new StatusLine(m_machine.get(), m_bar.get());
}

QString StatusLineTest::text(const char* name) const
{
    const auto* const label = m_bar->findChild<QLabel*>(QLatin1String(name));
    return label ? label->text() : QStringLiteral("no ") + QLatin1String(name);
}

void StatusLineTest::tell(LineState state)
{
    LineStatus status;
    status.state = state;
    status.name = "/dev/ttyUSB0";
    emit m_machine->lineChanged(status);
}

/// After ten seconds, of 40 requests.
void StatusLineTest::count(qint64 repeated, qint64 failed)
{
    kx::WatchSummary summary;
    summary.statistics.requests = 40;
    summary.statistics.repeated = repeated;
    summary.statistics.failed = failed;
    summary.elapsed = 10000;
    summary.cycles = 7;
    emit m_machine->counted(summary);
}

void StatusLineTest::nothingIsKnownAtFirst()
{
    QCOMPARE(text("line"), QString());
    QCOMPARE(text("counts"), QString());
    QCOMPARE(text("speed"), QString());
}

void StatusLineTest::anOpenLineIsNamedAndCounted()
{
    tell(LineState::Open);
    count(0, 0);
    QCOMPARE(text("line"), QString("/dev/ttyUSB0"));
    QCOMPARE(text("counts"), QString("7 cycle(s)"));
    QVERIFY2(text("speed").startsWith("4.0 requests/s"), qPrintable(text("speed")));
}

void StatusLineTest::faultsAreCounted()
{
    tell(LineState::Open);
    count(2, 1);
    QCOMPARE(text("counts"), QString("7 cycle(s), 2 repeated, 1 failed"));
}

void StatusLineTest::aLostLineKeepsItsCounts()
{
    tell(LineState::Open);
    count(0, 3);
    tell(LineState::Interrupted);
    QCOMPARE(text("line"), QString("/dev/ttyUSB0"));
    QCOMPARE(text("counts"), QString("7 cycle(s), 3 failed"));
}

void StatusLineTest::aClosedLineHasNone()
{
    tell(LineState::Open);
    count(0, 3);
    tell(LineState::Closed);
    QCOMPARE(text("line"), QString());
    QCOMPARE(text("counts"), QString());
    QCOMPARE(text("speed"), QString());
    count(0, 3);
    tell(LineState::Opening);
    QCOMPARE(text("line"), QString("/dev/ttyUSB0"));
    QCOMPARE(text("counts"), QString());
}

void StatusLineTest::whatPagesSayStandsOnTheLeft()
{
    m_line->say("Saved a.kxpanel");
    QCOMPARE(m_bar->currentMessage(), QString("Saved a.kxpanel"));
    m_line->say(QString());
    QCOMPARE(m_bar->currentMessage(), QString());
}

QTEST_MAIN(StatusLineTest)
#include "tst_status_line.moc"
