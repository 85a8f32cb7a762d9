// Signals reach the one process that they are meant for.

#include "support/process_signal.h"

#include <QtCore/QProcess>
#include <QtTest/QTest>

#include <csignal>
#include <unistd.h>

namespace
{

const int LOOK_ONLY = 0; // the signal that harms nobody, also where it should not arrive

} // namespace

class ProcessSignalTest : public QObject
{
    Q_OBJECT

private slots:
    void noGroupIsSignalled_data();
    void noGroupIsSignalled();
    void aRunningProcessIsReached();
    void anEndedProcessIsNot();
};

void ProcessSignalTest::noGroupIsSignalled_data()
{
    QTest::addColumn<qint64>("processId");
    QTest::newRow("the caller's group, or a child that has ended") << qint64(0);
    QTest::newRow("every process") << qint64(-1);
    QTest::newRow("a named group") << -qint64(getpgrp());
    QTest::newRow("0 once cut to 32 bits") << Q_INT64_C(0x100000000);
    QTest::newRow("-1 once cut to 32 bits") << Q_INT64_C(0xFFFFFFFF);
}

void ProcessSignalTest::noGroupIsSignalled()
{
    QFETCH(qint64, processId);
    QVERIFY(!signalProcess(processId, LOOK_ONLY));
}

void ProcessSignalTest::aRunningProcessIsReached()
{
    QProcess child;
    child.start(QStringLiteral("sleep"), {QStringLiteral("60")});
    QVERIFY(child.waitForStarted());
    QVERIFY(signalProcess(child.processId(), SIGTERM));
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitStatus(), QProcess::CrashExit); // by the signal
}

void ProcessSignalTest::anEndedProcessIsNot()
{
    QProcess child;
    child.start(QStringLiteral("true"), QStringList());
    QVERIFY(child.waitForFinished());
    QVERIFY(!signalProcess(child.processId(), LOOK_ONLY));
}

QTEST_APPLESS_MAIN(ProcessSignalTest)
#include "tst_process_signal.moc"
