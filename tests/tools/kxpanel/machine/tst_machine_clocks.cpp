// The time of day is set, be a line open or not.

#include "tools/kxpanel/machine_fixture.h"

#include <QtCore/QThread>
#include <QtTest/QTest>

using namespace kxpanel;

class MachineClocksTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_setBy = 0;
        m_steps.clear();
    }
    void isToldWhileNoLineIsOpen();
    void aMachineThatStandsStillSetsNoClock();
    void isToldOnceOfAnOpenLine();

private:
    /// A machine that goes by this.
    SystemTimes times() const
    {
        const SystemTimes now = systemTimes();
        return {now.steady, now.timeOfDay + m_setBy};
    }
    void listen(const Machine* machine)
    {
        connect(machine, &Machine::clockSet, this, [this](qint64 by) { m_steps << by; });
    }
    /// As told, to the nearest second.
    QList<qint64> seconds() const
    {
        QList<qint64> seconds;
        for (const qint64 step : m_steps)
            seconds << qRound64(static_cast<double>(step) / 1000);
        return seconds;
    }

    qint64 m_setBy = 0;    ///< milliseconds
    QList<qint64> m_steps; ///< told, milliseconds
};

void MachineClocksTest::isToldWhileNoLineIsOpen()
{
    Machine machine(nullptr, [this] { return times(); });
    listen(&machine);
    m_setBy = 3600000;
    QTRY_COMPARE(seconds(), QList<qint64>{3600});
    m_setBy = -3600000;
    const MachineLog log(&machine);
    machine.openLine(serialPort(QStringLiteral("/dev/none")));
    QTRY_COMPARE(log.states.size(), 2);
    QCOMPARE(seconds(), (QList<qint64>{3600, -7200})); // though it was set a moment ago
}

// Between the looks at two clocks something else may run.
void MachineClocksTest::aMachineThatStandsStillSetsNoClock()
{
    int looks = 0;
    Machine machine(nullptr, [&looks] {
        const qint64 steady = systemTimes().steady;
        if (++looks % 5 == 0)
            QThread::msleep(100);
        return SystemTimes{steady, systemTimes().timeOfDay};
    });
    listen(&machine);
    QTRY_VERIFY(looks >= 15);
    QCOMPARE(m_steps, QList<qint64>());
}

void MachineClocksTest::isToldOnceOfAnOpenLine()
{
    Machine machine(nullptr, [this] { return times(); });
    listen(&machine);
    const MachineLog log(&machine);
    machine.setValues({watched(1, "D110")});
    machine.openLine(simulated());
    QTRY_VERIFY(log.cycles > 0);
    m_setBy = 3600000;
    QTRY_COMPARE(seconds(), QList<qint64>{3600}); // by a reply, or half a second later
    machine.closeLine();
    QTRY_COMPARE(log.states.last(), QStringLiteral("closed"));
    m_setBy = 0;
    machine.openLine(simulated());
    QTRY_COMPARE(log.states.last(), QStringLiteral("open"));
    m_setBy = 7200000;
    machine.closeLine();
    QTRY_COMPARE(log.states.last(), QStringLiteral("closed"));
    QTest::qWait(600);
    QCOMPARE(seconds(), (QList<qint64>{3600, -3600, 7200}));
}

QTEST_MAIN(MachineClocksTest)
#include "tst_machine_clocks.moc"
