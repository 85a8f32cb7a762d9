// The link to a pseudo-terminal: whose it is, and what is left alone.

#include "kxsim/line/terminal_link.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <memory>
#include <unistd.h>

using kxsim::TerminalLink;

namespace
{

const QString GONE = QStringLiteral("/dev/pts/99999999");
const QString THERE = QStringLiteral("/dev/pts/ptmx"); // always there, where terminals are

} // namespace

class TerminalLinkTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void theLinkLastsAsLongAsItsObject();
    void aLinkThatIsInUseIsRefused();
    void aLinkThatADeadProgramLeftIsReplaced_data();
    void aLinkThatADeadProgramLeftIsReplaced();
    void whatIsNotLeftOverIsKept_data();
    void whatIsNotLeftOverIsKept();
    void aFileInTheLinksPlaceIsKept();
    void aFolderThatIsNotThereIsNamed();
    void theLinkIsTurned();
    void aLinkThatSomebodyElseTurnedIsKept();

private:
    /// A lock whose program has ended: no system has that many processes.
    void leaveLock() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
    QString m_error;
};

void TerminalLinkTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath("line");
    m_error.clear();
}

void TerminalLinkTest::leaveLock() const
{
    QFile lock(m_path + ".lock");
    QVERIFY(lock.open(QIODevice::WriteOnly));
    lock.write("999999999\nkxsim\n" + QSysInfo::machineHostName().toUtf8() + "\n");
}

void TerminalLinkTest::theLinkLastsAsLongAsItsObject()
{
    {
        TerminalLink link;
        QVERIFY2(link.make(m_path, THERE, &m_error), qPrintable(m_error));
        QCOMPARE(QFileInfo(m_path).symLinkTarget(), THERE);
    }
    QCOMPARE(
        QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
        QStringList());
}

void TerminalLinkTest::aLinkThatIsInUseIsRefused()
{
    TerminalLink first;
    QVERIFY(first.make(m_path, THERE, &m_error));
    {
        TerminalLink second;
        QVERIFY(!second.make(m_path, GONE, &m_error));
        QCOMPARE(m_error,
                 QString("--symlink %1: a running kxsim (process %2) has this link; end it "
                         "or name another link")
                     .arg(m_path)
                     .arg(getpid()));
    }
    QCOMPARE(QFileInfo(m_path).symLinkTarget(), THERE);
    TerminalLink third;
    QVERIFY(!third.make(m_path, GONE, &m_error));
}

void TerminalLinkTest::aLinkThatADeadProgramLeftIsReplaced_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("isLocked");
    QTest::newRow("its terminal is gone") << GONE << false;
    QTest::newRow("its number is given to this one") << "/dev/pts/7" << false;
    QTest::newRow("killed") << GONE << true;
    QTest::newRow("killed, and the number is given to another terminal") << THERE << true;
}

void TerminalLinkTest::aLinkThatADeadProgramLeftIsReplaced()
{
    QFETCH(QString, target);
    QFETCH(bool, isLocked);
    QVERIFY(QFile::link(target, m_path));
    if (isLocked)
        leaveLock();
    TerminalLink link;
    QVERIFY2(link.make(m_path, QStringLiteral("/dev/pts/7"), &m_error), qPrintable(m_error));
    QCOMPARE(QFileInfo(m_path).symLinkTarget(), QString("/dev/pts/7"));
}

void TerminalLinkTest::whatIsNotLeftOverIsKept_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("isLocked");
    QTest::newRow("a terminal that another program has") << THERE << false;
    QTest::newRow("a serial port") << "/dev/null" << false;
    QTest::newRow("a serial port that is unplugged") << "/dev/ttyUSB99" << false;
    QTest::newRow("a serial port, turned there after a crash") << "/dev/ttyUSB99" << true;
}

void TerminalLinkTest::whatIsNotLeftOverIsKept()
{
    QFETCH(QString, target);
    QFETCH(bool, isLocked);
    QVERIFY(QFile::link(target, m_path));
    if (isLocked)
        leaveLock();
    {
        TerminalLink link;
        QVERIFY(!link.make(m_path, GONE, &m_error));
    }
    QCOMPARE(m_error,
             QString("--symlink %1: is a link to %2 that no kxsim left behind; remove it or "
                     "name another link")
                 .arg(m_path, target));
    QCOMPARE(QFileInfo(m_path).symLinkTarget(), target);
}

void TerminalLinkTest::aFileInTheLinksPlaceIsKept()
{
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    TerminalLink link;
    QVERIFY(!link.make(m_path, THERE, &m_error));
    QCOMPARE(m_error, "--symlink " + m_path + ": something that is no link has this name");
    QVERIFY(QFile::exists(m_path));
    QVERIFY(!QFile::exists(m_path + ".lock"));
}

void TerminalLinkTest::aFolderThatIsNotThereIsNamed()
{
    TerminalLink link;
    const QString path = m_folder->filePath("none/line");
    QVERIFY(!link.make(path, THERE, &m_error));
    QCOMPARE(m_error, QString("--symlink %1: cannot write %1.lock").arg(path));
}

void TerminalLinkTest::theLinkIsTurned()
{
    {
        TerminalLink link;
        QVERIFY(link.make(m_path, GONE, &m_error));
        QVERIFY(link.turnTo(THERE));
        QCOMPARE(QFileInfo(m_path).symLinkTarget(), THERE);
    }
    QVERIFY(!QFileInfo(m_path).isSymLink());
    TerminalLink none;
    QVERIFY(none.turnTo(THERE));
}

void TerminalLinkTest::aLinkThatSomebodyElseTurnedIsKept()
{
    {
        TerminalLink link;
        QVERIFY(link.make(m_path, GONE, &m_error));
        QVERIFY(QFile::remove(m_path) && QFile::link("/dev/null", m_path));
    }
    QCOMPARE(QFileInfo(m_path).symLinkTarget(), QString("/dev/null"));
}

QTEST_APPLESS_MAIN(TerminalLinkTest)

#include "tst_terminal_link.moc"
