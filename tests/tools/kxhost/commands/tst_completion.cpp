// The completion of kxhost in bash.

#include "bash_completion.h"
#include "command_process.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

using namespace kx;

class CompletionTest : public QObject
{
    Q_OBJECT

private slots:
    void theScriptIsGoodBash();
    void everyCommandIsOffered();
    void whatIsOffered_data();
    void whatIsOffered();
    void filesAreOffered();
    void everyOptionOfEveryCommandIsOffered();
};

namespace
{

const CompletionScript SCRIPT = {KX_COMPLETION_FILE, "_kxhost", KX_HOST_PROGRAM};

QStringList completed(const QString& words)
{
    return SCRIPT.completed(words);
}

} // namespace

void CompletionTest::theScriptIsGoodBash()
{
    QCOMPARE(SCRIPT.faults(), QByteArray());
    QCOMPARE(SCRIPT.registration("kxhost"), QStringList{"complete -F _kxhost kxhost"});
}

void CompletionTest::everyCommandIsOffered()
{
    QCOMPARE(completed(QLatin1String("''")),
             (QStringList{"--help", "--simulate", "--version", "check",   "compare", "dump",
                          "listen", "plan",       "ports",     "raw",     "read",    "recipe",
                          "record", "registers",  "replay",    "restore", "run",     "scan",
                          "series", "tags",       "watch",     "write"}));
}

void CompletionTest::whatIsOffered_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QStringList>("offered");
    QTest::newRow("commands by their beginning")
        << "re" << QStringList{"read", "recipe", "record", "registers", "replay", "restore"};
    QTest::newRow("a command behind a switch") << "--simulate sc" << QStringList{"scan"};
    QTest::newRow("options by their beginning") << "watch D100 --ti" << QStringList{"--timeout"};
    QTest::newRow("options of this command only") << "series --st" << QStringList{"--step"};
    QTest::newRow("parities") << "plan --parity ''" << QStringList{"even", "none", "odd"};
    QTest::newRow("parities of a scan")
        << "scan --parity ''" << QStringList{"auto", "even", "none", "odd"};
    QTest::newRow("baud rates") << "watch -b 1" << QStringList{"115200", "1200", "19200"};
    QTest::newRow("protocols") << "read D0 --protocol ''" << QStringList{"rtu", "tcp"};
    QTest::newRow("faults by their beginning")
        << "read D0 --simulate --fault de" << QStringList{"deaf:", "delay:"};
    QTest::newRow("a number is the user's") << "read D0 --timeout ''" << QStringList();
    QTest::newRow("a step is the user's") << "series D0 --step ''" << QStringList();
    QTest::newRow("bytes are the user's") << "raw ''" << QStringList();
    QTest::newRow("kinds") << "check D1 --as ''" << QStringList{"bit", "word"};
    QTest::newRow("directions of a recipe") << "recipe ''" << QStringList{"download", "upload"};
    QTest::newRow("what tags does") << "tags ''" << QStringList{"check"};
    QTest::newRow("orders of words")
        << "read D0 --word-order h" << QStringList{"high", "high,swapped"};
    QTest::newRow("names are the user's") << "read D0 --only ''" << QStringList();
    QTest::newRow("register types") << "registers S" << QStringList{"S", "SD", "SM"};
}

void CompletionTest::whatIsOffered()
{
    QFETCH(QString, words);
    QTEST(completed(words), "offered");
}

void CompletionTest::filesAreOffered()
{
    const QString file = QString::fromLatin1(KX_COMPLETION_FILE);
    const QString beginning = file.left(file.size() - 2);
    QCOMPARE(completed(QLatin1String("plan ") + beginning), QStringList{file});
    QCOMPARE(completed(QLatin1String("watch --tags ") + beginning), QStringList{file});
    QCOMPARE(completed(QLatin1String("run --simulate ") + beginning), QStringList{file});
    QCOMPARE(completed(QLatin1String("run --junit ") + beginning), QStringList{file});
    QCOMPARE(completed(QLatin1String("registers --library ") + beginning), QStringList{file});
    QCOMPARE(completed(QLatin1String("dump D0 --to ") + beginning), QStringList{file});
    QCOMPARE(completed(QLatin1String("restore ") + beginning), QStringList{file});
    QCOMPARE(completed(QLatin1String("scan --port /dev/nul")), QStringList{"/dev/null"});
}

void CompletionTest::everyOptionOfEveryCommandIsOffered()
{
    QStringList names = completed(QLatin1String("''"));
    for (const char* option : {"--help", "--simulate", "--version"})
        names.removeAll(QLatin1String(option));
    for (const QString& name : names) {
        const QStringList offered = completed(name + QLatin1String(" --"));
        for (const QString& line : runCommand({name, QLatin1String("--help")}).output) {
            const QRegularExpressionMatch option =
                QRegularExpression(QLatin1String("^  (?:-[a-z], )?(--[a-z0-9-]+)")).match(line);
            QVERIFY2(!option.hasMatch() || offered.contains(option.captured(1)),
                     qPrintable(name + QLatin1String(": ") + line));
        }
        QVERIFY2(offered.contains(QLatin1String("--help")), qPrintable(name));
    }
}

QTEST_GUILESS_MAIN(CompletionTest)
#include "tst_completion.moc"
