// The completion of kxsim in bash.

#include "bash_completion.h"

#include <QtCore/QProcess>
#include <QtTest/QTest>

namespace
{

const CompletionScript SCRIPT = {KX_COMPLETION_FILE, "_kxsim", KXSIM_PROGRAM};

} // namespace

class KxsimCompletionTest : public QObject
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

void KxsimCompletionTest::theScriptIsGoodBash()
{
    QCOMPARE(SCRIPT.faults(), QByteArray());
    QCOMPARE(SCRIPT.registration("kxsim"), QStringList{"complete -F _kxsim kxsim"});
}

void KxsimCompletionTest::whatIsOffered_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QStringList>("offered");
    QTest::newRow("options by their beginning")
        << "--st" << QStringList{"--station", "--still", "--stop-bits"};
    QTest::newRow("an option behind a switch") << "--still --sy" << QStringList{"--symlink"};
    QTest::newRow("parities") << "--parity ''" << QStringList{"even", "none", "odd"};
    QTest::newRow("parities by their beginning") << "--parity e" << QStringList{"even"};
    QTest::newRow("baud rates") << "-b 1" << QStringList{"115200", "1200", "19200"};
    QTest::newRow("paces") << "--pace 192" << QStringList{"19200"};
    QTest::newRow("data bits") << "--data-bits ''" << QStringList{"8"};
    QTest::newRow("stop bits") << "--stop-bits ''" << QStringList{"1", "2"};
    QTest::newRow("faults by their beginning") << "--fault de" << QStringList{"deaf:", "delay:"};
    QTest::newRow("a station is the user's") << "--station ''" << QStringList();
    QTest::newRow("preset values are the user's") << "--set D" << QStringList();
}

void KxsimCompletionTest::whatIsOffered()
{
    QFETCH(QString, words);
    QTEST(SCRIPT.completed(words), "offered");
}

void KxsimCompletionTest::everyOptionIsOffered()
{
    QCOMPARE(SCRIPT.completed("''"),
             (QStringList{"--baud",        "--counter",    "--data-bits", "--down",    "--fault",
                          "--fault-delay", "--fault-seed", "--help",      "--load",    "--log",
                          "--pace",        "--parity",     "--port",      "--save",    "--set",
                          "--station",     "--still",      "--stop-bits", "--symlink", "--timer",
                          "--turnaround",  "--version",    "--wave"}));
}

void KxsimCompletionTest::everyFaultIsOffered()
{
    QCOMPARE(SCRIPT.completed("--fault ''"),
             (QStringList{"all:", "close:", "corrupt:", "deaf:", "delay:", "duplicate:", "echo:",
                          "exception:", "extra-after:", "extra-before:", "other-station:",
                          "silence:", "truncate:"}));
}

void KxsimCompletionTest::filesAreOffered()
{
    const QString file = KX_COMPLETION_FILE;
    QCOMPARE(SCRIPT.completed("--symlink " + file.left(file.size() - 2)), QStringList{file});
    QCOMPARE(SCRIPT.completed("--load " + file.left(file.size() - 2)), QStringList{file});
    QCOMPARE(SCRIPT.completed("--save " + file.left(file.size() - 2)), QStringList{file});
    QCOMPARE(SCRIPT.completed("--port /dev/nul"), QStringList{"/dev/null"});
    QCOMPARE(SCRIPT.completed("-p /dev/nul"), QStringList{"/dev/null"});
}

QTEST_GUILESS_MAIN(KxsimCompletionTest)
#include "tst_kxsim_completion.moc"
