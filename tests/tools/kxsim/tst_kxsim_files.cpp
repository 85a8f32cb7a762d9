// kxsim as a process: the values it begins with and leaves behind.

#include "kxsim_process.h"
#include "modbus_master.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <csignal>

namespace
{

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

} // namespace

class KxsimFilesTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesAreSavedAtTheEnd_data();
    void valuesAreSavedAtTheEnd();
    void savedValuesAreLoaded();
    void optionsAreStrongerThanTheFile();
    void aSavedFileIsReplacedAsAWhole();
    void whatCannotBeSavedAtTheEndIsSaid();
};

void KxsimFilesTest::valuesAreSavedAtTheEnd_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("Ctrl-C") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void KxsimFilesTest::valuesAreSavedAtTheEnd()
{
    QFETCH(int, signal);
    const QTemporaryDir folder;
    const QString file = folder.filePath("memory.csv");
    KxsimProcess kxsim({"--still", "--set", "X17=1", "--save", file});
    {
        ModbusMaster master(kxsim.portName());
        QVERIFY2(master.writeRegisters(100, {1234, 65535}), qPrintable(master.error()));
    }
    QVERIFY(!QFile::exists(file));
    QCOMPARE(kxsim.exitCodeAfter(signal), 0);
    QCOMPARE(contentOf(file), QByteArray("address,value\nX17,1\nD100,1234\nD101,65535\n"));
}

void KxsimFilesTest::savedValuesAreLoaded()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("memory.csv");
    KxsimProcess first({"--still", "--set", "D100@2=7", "-a", "1", "-a", "2", "--save", file});
    QCOMPARE(first.exitCodeAfter(SIGTERM), 0);
    KxsimProcess second({"--still", "-a", "1", "-a", "2", "--load", file, "--save", file});
    ModbusMaster master(second.portName());
    QCOMPARE(master.registers(100, 1), QList<int>({0}));
    master.setStation(2);
    QCOMPARE(master.registers(100, 1), QList<int>({7}));
    QVERIFY2(master.writeRegister(100, 8), qPrintable(master.error()));
    QCOMPARE(second.exitCodeAfter(SIGTERM), 0);
    QCOMPARE(contentOf(file), QByteArray("address,value\nD100@2,8\n"));
}

void KxsimFilesTest::optionsAreStrongerThanTheFile()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("memory.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("address,value\nD0,40000\nD10,1\nD11,1\n32CV200,1000000\n");
    file.close();
    KxsimProcess kxsim({"--load", file.fileName(), "--set", "D10=2", "--wave", "D11=3..3/1s"});
    QCOMPARE(kxsim.ask("get D10:2"), QStringLiteral("D10=2,3"));
    // What moves by itself goes on from there.
    QVERIFY(kxsim.ask("get D0").section('=', 1).toInt() >= 40000);
    QVERIFY(kxsim.ask("get 32CV200").section('=', 1).toInt() >= 1000000);
}

void KxsimFilesTest::aSavedFileIsReplacedAsAWhole()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("memory.csv");
    const QString link = folder.filePath("link.csv");
    QFile old(file);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("an older text, longer than the new one will be\n");
    old.close();
    QVERIFY(QFile::link(file, link));
    KxsimProcess kxsim({"--still", "--set", "M0=1", "--save", link});
    QCOMPARE(kxsim.exitCodeAfter(SIGTERM), 0);
    QCOMPARE(contentOf(file), QByteArray("address,value\nM0,1\n"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 2);
}

void KxsimFilesTest::whatCannotBeSavedAtTheEndIsSaid()
{
    const QTemporaryDir folder;
    const QString inner = folder.filePath("inner");
    QVERIFY(QDir().mkdir(inner));
    KxsimProcess kxsim({"--still", "--save", inner + "/memory.csv"});
    QVERIFY(QDir(inner).removeRecursively());
    QCOMPARE(kxsim.exitCodeAfter(SIGTERM), 1);
    QCOMPARE(kxsim.errorOutput(),
             QStringLiteral("kxsim: the memory is not saved: %1/memory.csv: No such file or "
                            "directory\n")
                 .arg(inner));
}

QTEST_GUILESS_MAIN(KxsimFilesTest)

#include "tst_kxsim_files.moc"
