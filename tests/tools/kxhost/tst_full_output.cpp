// kxhost with a standard output that takes nothing.

#include <QtCore/QProcess>
#include <QtTest/QTest>

class FullOutputTest : public QObject
{
    Q_OBJECT

private slots:
    void commandEndsWithOneLine_data();
    void commandEndsWithOneLine();
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

QTEST_GUILESS_MAIN(FullOutputTest)
#include "tst_full_output.moc"
