// A gateway's name that nobody resolves.

#include "tools/kxhost/commands/command_process.h"

#include <QtTest/QTest>

class NameServerTest : public QObject
{
    Q_OBJECT

private slots:
    void oneThatDoesNotAnswerHoldsNothingUp();
};

// Else the program would end when the lookup does, which is never here.
void NameServerTest::oneThatDoesNotAnswerHoldsNothingUp()
{
    qputenv("LD_PRELOAD", KX_SILENT_RESOLVER);
    // Its own is not the first library then.
    qputenv("ASAN_OPTIONS", qgetenv("ASAN_OPTIONS") + ":verify_asan_link_order=0");
    const kx::CommandResult result = kx::runCommand("read D0 --tcp silent.example");
    QCOMPARE(result.errors,
             QStringList("kxhost: silent.example:8888: no connection within 5 seconds"));
    QCOMPARE(result.exitCode, 3);
}

QTEST_GUILESS_MAIN(NameServerTest)
#include "tst_name_server.moc"
