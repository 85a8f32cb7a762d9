#include "system/port_holders.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

using namespace kx;

namespace
{

/// Folders like those in which the system shows its processes, and one of locks.
class FakeSystem
{
public:
    QString processes() const { return m_folder.filePath(QStringLiteral("proc")); }
    QString locks() const { return m_folder.filePath(QStringLiteral("lock")); }

    /// @param devices that it has open
    void addProcess(int number, const QByteArray& name, const QStringList& devices) const
    {
        const QString folder = processes() + QStringLiteral("/%1").arg(number);
        QVERIFY(QDir().mkpath(folder + QStringLiteral("/fd")));
        write(folder + QStringLiteral("/comm"), name + '\n');
        for (int i = 0; i < devices.size(); ++i)
            QVERIFY(QFile::link(devices.at(i), folder + QStringLiteral("/fd/%1").arg(i + 3)));
    }

    /// Of another user: its files cannot be listed. Root may list all folders, but no file.
    void addHiddenProcess(int number, const QByteArray& name) const
    {
        const QString folder = processes() + QStringLiteral("/%1").arg(number);
        QVERIFY(QDir().mkpath(folder));
        write(folder + QStringLiteral("/comm"), name + '\n');
        write(folder + QStringLiteral("/fd"), "");
    }

    void addLock(const QString& name, const QByteArray& content) const
    {
        QVERIFY(QDir().mkpath(locks()));
        write(locks() + QStringLiteral("/LCK..") + name, content);
    }

private:
    static void write(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), qint64(content.size()));
    }

    QTemporaryDir m_folder;
};

QString textOf(const QList<PortHolder>& holders)
{
    QStringList texts;
    for (const PortHolder& holder : holders)
        texts << QStringLiteral("%1 %2").arg(holder.program).arg(holder.process);
    return texts.join(QStringLiteral(", "));
}

} // namespace

class PortHoldersTest : public QObject
{
    Q_OBJECT

private slots:
    void thisProgramHoldsWhatItOpened();
    void programsOnceAndByTheirNumbers();
    void aLinkToThePortIsThePort();
    void whatIsNoDeviceIsHeldByNobody();
    void aProcessThatEndedIsNotUnseen();
    void locks_data();
    void locks();
};

void PortHoldersTest::thisProgramHoldsWhatItOpened()
{
    const int controller = posix_openpt(O_RDWR | O_NOCTTY);
    grantpt(controller);
    unlockpt(controller);
    const QString name = QString::fromLatin1(ptsname(controller));
    QCOMPARE(textOf(OpenDevices().holdersOf(name)), QString());
    const int port = open(ptsname(controller), O_RDWR | O_NOCTTY);
    // Under valgrind, its name is valgrind's.
    QFile ownName(QStringLiteral("/proc/self/comm"));
    QVERIFY(ownName.open(QIODevice::ReadOnly));
    QCOMPARE(textOf(OpenDevices().holdersOf(name)),
             QStringLiteral("%1 %2").arg(QString::fromLatin1(ownName.readAll().trimmed()),
                                         QString::number(QCoreApplication::applicationPid())));
    close(port);
    QCOMPARE(textOf(OpenDevices().holdersOf(name)), QString());
    close(controller);
}

void PortHoldersTest::programsOnceAndByTheirNumbers()
{
    const FakeSystem system;
    system.addProcess(200, "kxhost", {"/dev/null", "/dev/zero", "/dev/null"});
    system.addProcess(30, "minicom", {"/dev/null"});
    system.addProcess(4, "idle", {});
    QVERIFY(QDir().mkpath(system.processes() + "/self/fd"));
    const OpenDevices devices(system.processes(), system.locks());
    QCOMPARE(textOf(devices.holdersOf("/dev/null")), QStringLiteral("minicom 30, kxhost 200"));
    QCOMPARE(textOf(devices.holdersOf("/dev/zero")), QStringLiteral("kxhost 200"));
    QCOMPARE(textOf(devices.holdersOf("/dev/full")), QString());
    QVERIFY(!devices.hasUnseen());
}

void PortHoldersTest::aLinkToThePortIsThePort()
{
    const FakeSystem system;
    system.addProcess(7, "kxhost", {"/dev/null"});
    const QString link = system.processes() + "/line";
    QVERIFY(QFile::link("/dev/null", link));
    QCOMPARE(textOf(OpenDevices(system.processes(), system.locks()).holdersOf(link)),
             QStringLiteral("kxhost 7"));
}

void PortHoldersTest::whatIsNoDeviceIsHeldByNobody()
{
    const FakeSystem system;
    system.addProcess(7, "kxhost", {system.processes() + "/7/comm", "/dev/none"});
    const OpenDevices devices(system.processes(), system.locks());
    QCOMPARE(textOf(devices.holdersOf(system.processes() + "/7/comm")), QString());
    QCOMPARE(textOf(devices.holdersOf("/dev/none")), QString());
}

void PortHoldersTest::aProcessThatEndedIsNotUnseen()
{
    const FakeSystem system;
    QVERIFY(QDir().mkpath(system.processes() + "/77"));
    QVERIFY(!OpenDevices(system.processes(), system.locks()).hasUnseen());
    system.addHiddenProcess(78, "other");
    QVERIFY(OpenDevices(system.processes(), system.locks()).hasUnseen());
}

void PortHoldersTest::locks_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("holders");
    const QString own = QStringLiteral("minicom 30");
    const QString both = QStringLiteral("minicom 30, hidden 31");
    QTest::newRow("of a program that cannot be seen") << "null" << QByteArray("      31\n") << both;
    QTest::newRow("with more behind the number")
        << "null" << QByteArray("31\nkxhost\nbox\n") << both;
    QTest::newRow("of one that has it open") << "null" << QByteArray("30\n") << own;
    QTest::newRow("left behind by one that has not") << "null" << QByteArray("32\n") << own;
    QTest::newRow("of one that has ended") << "null" << QByteArray("33\n") << own;
    QTest::newRow("of another port") << "zero" << QByteArray("31\n") << own;
    QTest::newRow("no number") << "null" << QByteArray("kxhost\n") << own;
}

void PortHoldersTest::locks()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    const FakeSystem system;
    system.addProcess(30, "minicom", {"/dev/null"});
    system.addHiddenProcess(31, "hidden");
    system.addProcess(32, "idle", {});
    system.addLock(name, content);
    QTEST(textOf(OpenDevices(system.processes(), system.locks()).holdersOf("/dev/null")),
          "holders");
}

QTEST_GUILESS_MAIN(PortHoldersTest)
#include "tst_port_holders.moc"
