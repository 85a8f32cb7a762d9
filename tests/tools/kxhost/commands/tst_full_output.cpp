// kxhost with a standard output that takes nothing.

#include <QtCore/QProcess>
#include <QtTest/QTest>

class FullOutputTest : public QObject
{
    Q_OBJECT

private slots:
    void commandEndsWithOneLine_data();
    void commandEndsWithOneLine();
    void whatIsOpenedDoesNotBecomeAClosedStream();
    void withoutAnyStreamTheExitCodeTells();
};

void FullOutputTest::commandEndsWithOneLine_data()
{
    QTest::addColumn<QString>("arguments");

    QTest::newRow("help of all commands") << "--help";
    QTest::newRow("watch that would go on for ever") << "watch D0 --simulate";
    QTest::newRow("watch with frames as JSON") << "watch D0 --simulate --json --frames";
    QTest::newRow("one read") << "read D0 --simulate";
}

void FullOutputTest::commandEndsWithOneLine()
{
    QFETCH(QString, arguments);
    QProcess host;
    host.setStandardOutputFile(QStringLiteral("/dev/full"));
    host.start(QStringLiteral(KX_HOST_PROGRAM), arguments.split(QLatin1Char(' ')));
    QVERIFY(host.waitForFinished(10000));
    QCOMPARE(host.exitStatus(), QProcess::NormalExit);
    QCOMPARE(host.readAllStandardError(),
             QByteArray("kxhost: cannot write standard output: No space left on device\n"));
    QCOMPARE(host.exitCode(), 1);
}

// A file that is opened gets the lowest free number, which may be that of a closed stream:
// what is printed would go to the line.
void FullOutputTest::whatIsOpenedDoesNotBecomeAClosedStream()
{
    QProcess host;
    host.start(QStringLiteral("/bin/sh"),
               {QStringLiteral("-c"), QStringLiteral("exec \"$0\" read D0 --simulate >&-"),
                QStringLiteral(KX_HOST_PROGRAM)});
    QVERIFY(host.waitForFinished(10000));
    QCOMPARE(host.readAllStandardError(),
             QByteArray("kxhost: cannot write standard output: Bad file descriptor\n"));
    QCOMPARE(host.exitCode(), 1);
}

void FullOutputTest::withoutAnyStreamTheExitCodeTells()
{
    QProcess host;
    host.start(QStringLiteral("/bin/sh"),
               {QStringLiteral("-c"), QStringLiteral("exec \"$0\" read D0 --simulate <&- >&- 2>&-"),
                QStringLiteral(KX_HOST_PROGRAM)});
    QVERIFY(host.waitForFinished(10000));
    QCOMPARE(host.exitStatus(), QProcess::NormalExit);
    QCOMPARE(host.exitCode(), 1);
}

QTEST_GUILESS_MAIN(FullOutputTest)
#include "tst_full_output.moc"
