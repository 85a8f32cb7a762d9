#include "kxsim/line/pseudo_terminal.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtTest/QTest>

using namespace kxsim;

namespace
{

QString lockOf(const QString& terminal)
{
    return "/run/lock/LCK.." + QString(terminal).remove("/dev/").replace('/', '_');
}

/// Whether a terminal takes the number of the one before, which is closed while a program still has
/// its lock. Others may take that number in between, and must not find the lock for long.
bool isNumberTakenAgain(qint64 process)
{
    QString error;
    std::unique_ptr<PseudoTerminal> terminal = PseudoTerminal::open(&error);
    const QString before = terminal->name();
    QFile lock(lockOf(before));
    if (!lock.open(QIODevice::WriteOnly))
        qFatal("%s: %s", qPrintable(lock.fileName()), qPrintable(lock.errorString()));
    lock.write(QByteArray::number(process) + "\nkxhost\nbox\n");
    lock.close();
    terminal.reset();
    terminal = PseudoTerminal::open(&error);
    lock.remove();
    return terminal && terminal->name() == before;
}

} // namespace

class PseudoTerminalTest : public QObject
{
    Q_OBJECT

private slots:
    void aLockedNumberIsPassedOver();
    void aLockThatWasLeftBehindCountsNot();
};

// Several times, since another program may take the number first.
void PseudoTerminalTest::aLockedNumberIsPassedOver()
{
    for (int i = 0; i < 5; ++i)
        QVERIFY(!isNumberTakenAgain(QCoreApplication::applicationPid()));
}

void PseudoTerminalTest::aLockThatWasLeftBehindCountsNot()
{
    QProcess ended;
    ended.start("true", QStringList());
    QVERIFY(ended.waitForStarted());
    const qint64 process = ended.processId();
    QVERIFY(ended.waitForFinished());
    QTRY_VERIFY(isNumberTakenAgain(process));
}

QTEST_GUILESS_MAIN(PseudoTerminalTest)
#include "tst_pseudo_terminal.moc"
