// The completion of kxpanel in bash.

#include "bash_completion.h"

#include <QtTest/QTest>

namespace
{

const CompletionScript SCRIPT = {KX_COMPLETION_FILE, "_kxpanel", KX_WINDOW_PROGRAM};

} // namespace

class KxpanelCompletionTest : public QObject
{
    Q_OBJECT

private slots:
    void theScriptIsGoodBash();
    void whatIsOffered_data();
    void whatIsOffered();
    void everyOptionIsOffered();
    void everyFaultIsOffered();
    void filesAreOffered();
};

void KxpanelCompletionTest::theScriptIsGoodBash()
{
    QCOMPARE(SCRIPT.faults(), QByteArray());
    QCOMPARE(SCRIPT.registration("kxpanel"), QStringList{"complete -F _kxpanel kxpanel"});
}

void KxpanelCompletionTest::whatIsOffered_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QStringList>("offered");
    QTest::newRow("options by their beginning")
        << "--st" << QStringList{"--station", "--stop-bits"};
    QTest::newRow("an option behind a switch")
        << "--simulate --pro" << QStringList{"--project", "--protocol"};
    QTest::newRow("an option behind a file") << "line3.csv --ti" << QStringList{"--timeout"};
    QTest::newRow("baud rates") << "-b 1" << QStringList{"115200", "1200", "19200"};
    QTest::newRow("parities") << "--parity ''" << QStringList{"even", "none", "odd"};
    QTest::newRow("protocols") << "--protocol ''" << QStringList{"rtu", "tcp"};
    QTest::newRow("data bits") << "--data-bits ''" << QStringList{"8"};
    QTest::newRow("stop bits") << "--stop-bits ''" << QStringList{"1", "2"};
    QTest::newRow("longest requests") << "--max-words a" << QStringList{"auto"};
    QTest::newRow("low latency") << "--low-latency y" << QStringList{"yes"};
    QTest::newRow("modes of RS-485") << "--rs485 o" << QStringList{"on"};
    QTest::newRow("faults by their beginning") << "--fault de" << QStringList{"deaf:", "delay:"};
    QTest::newRow("a station is the user's") << "--station ''" << QStringList();
    QTest::newRow("a gateway is the user's") << "--tcp ''" << QStringList();
    QTest::newRow("a time-out is the user's") << "-t ''" << QStringList();
}

void KxpanelCompletionTest::whatIsOffered()
{
    QFETCH(QString, words);
    QTEST(SCRIPT.completed(words), "offered");
}

// Each of the program's own options, whatever else it may take.
void KxpanelCompletionTest::everyOptionIsOffered()
{
    const QStringList offered = SCRIPT.completed("-");
    for (const char* const option :
         {"--baud",      "--data-bits", "--fault",       "--fault-delay", "--fault-seed",
          "--help",      "--library",   "--low-latency", "--max-bits",    "--max-words",
          "--parity",    "--port",      "--project",     "--protocol",    "--quiet",
          "--retries",   "--rs485",     "--settle",      "--simulate",    "--station",
          "--stop-bits", "--tcp",       "--timeout",     "--version"})
        QVERIFY2(offered.contains(option), option);
    for (const char* const option : {"--json", "--frames", "--reopen"}) // of kxhost alone
        QVERIFY2(!offered.contains(option), option);
}

void KxpanelCompletionTest::everyFaultIsOffered()
{
    QCOMPARE(SCRIPT.completed("--fault ''"),
             (QStringList{"all:", "close:", "corrupt:", "deaf:", "delay:", "duplicate:", "echo:",
                          "exception:", "extra-after:", "extra-before:", "other-station:",
                          "silence:", "truncate:"}));
}

void KxpanelCompletionTest::filesAreOffered()
{
    const QString file = KX_COMPLETION_FILE;
    const QString beginning = file.left(file.size() - 2);
    QCOMPARE(SCRIPT.completed(beginning), QStringList{file});
    QCOMPARE(SCRIPT.completed("--project " + beginning), QStringList{file});
    QCOMPARE(SCRIPT.completed("--library " + beginning), QStringList{file});
    QCOMPARE(SCRIPT.completed("--port /dev/nul"), QStringList{"/dev/null"});
    QCOMPARE(SCRIPT.completed("-p /dev/nul"), QStringList{"/dev/null"});
}

QTEST_GUILESS_MAIN(KxpanelCompletionTest)
#include "tst_kxpanel_completion.moc"
