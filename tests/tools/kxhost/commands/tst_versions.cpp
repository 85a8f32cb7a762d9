// `kxhost --version`, and the man pages.

#include "command_process.h"
#include "manual_page.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtTest/QTest>

using namespace kx;

namespace
{

const char* const COMMANDS[] = {"watch",     "read",   "write",  "recipe", "check",
                                "registers", "series", "plan",   "ports",  "scan",
                                "raw",       "listen", "tags",   "dump",   "compare",
                                "restore",   "run",    "record", "replay"};

QString helpOfKxsim()
{
    QProcess kxsim;
    kxsim.start(KX_SIM_PROGRAM, {"--help"});
    return kxsim.waitForFinished() ? QString::fromUtf8(kxsim.readAllStandardOutput()) : QString();
}

} // namespace

class VersionsTest : public QObject
{
    Q_OBJECT

private slots:
    void kxhostAndWhatItUses_data()
    {
        QTest::addColumn<QString>("option");
        QTest::newRow("long") << "--version";
        QTest::newRow("short") << "-v";
    }

    void kxhostAndWhatItUses()
    {
        QFETCH(QString, option);
        const CommandResult result = runCommand({option});
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.errors, QStringList());
        QCOMPARE(result.output.size(), 3);
        QCOMPARE(result.output.at(0), QString("kxhost 1.0.0"));
        QCOMPARE(result.output.at(1), QString("Qt ") + qVersion());
        QVERIFY(result.output.at(2).startsWith("driver library: /"));
        QVERIFY(result.output.at(2).endsWith("/libtarvelan_kx_series.so.1.0.0"));
    }

    void kxhostAsJson_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("behind it") << QStringList{"--version", "--json"};
        QTest::newRow("in front of it") << QStringList{"--json", "--version"};
        QTest::newRow("short") << QStringList{"-v", "--json"};
    }

    void kxhostAsJson()
    {
        QFETCH(QStringList, arguments);
        const CommandResult result = runCommand(arguments);
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.errors, QStringList());
        QCOMPARE(result.output.size(), 1);
        const QJsonObject json = QJsonDocument::fromJson(result.output.first().toUtf8()).object();
        QCOMPARE(json.keys(), (QStringList{"driverLibrary", "kxhost", "qt"}));
        QCOMPARE(json["kxhost"].toString(), QString("1.0.0"));
        QCOMPARE(json["qt"].toString(), QString(qVersion()));
        const QString library = json["driverLibrary"].toString();
        QVERIFY2(library.startsWith('/'), qPrintable(library));
        QVERIFY2(library.endsWith("/libtarvelan_kx_series.so.1.0.0"), qPrintable(library));
    }

    void nothingElseStandsBehindVersion_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("error");
        QTest::newRow("an unknown option")
            << QStringList{"--version", "--jason"}
            << "kxhost: unexpected argument '--jason' behind '--version'";
        QTest::newRow("a command") << QStringList{"--json", "-v", "watch"}
                                   << "kxhost: unexpected argument 'watch' behind '-v'";
    }

    void nothingElseStandsBehindVersion()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, error);
        const CommandResult result = runCommand(arguments);
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(result.errors, QStringList{error});
        QCOMPARE(result.output, QStringList());
    }

    void theManPageOfKxhostHasEveryOption()
    {
        QSet<QString> options = {"--version"};
        QMap<QString, QString> letters = {{"v", "--version"}};
        for (const char* command : COMMANDS) {
            const QString help = runCommand({command, "--help"}).output.join('\n');
            options += optionsIn(help);
            const QMap<QString, QString> ofCommand = lettersIn(help);
            for (const QString& letter : ofCommand.keys()) {
                const QString option = ofCommand.value(letter);
                QCOMPARE(letters.value(letter, option), option);
                letters[letter] = option;
            }
        }
        QVERIFY(options.size() > 25);
        QVERIFY(letters.size() > 5);
        QCOMPARE(optionsIn(manualPage(KX_MAN_PAGES "/kxhost.1")), options);
        QCOMPARE(lettersIn(manualPage(KX_MAN_PAGES "/kxhost.1")), letters);
    }

    void theManPageOfKxsimHasEveryOption()
    {
        const QString help = helpOfKxsim();
        QVERIFY(optionsIn(help).size() > 10);
        QCOMPARE(optionsIn(manualPage(KX_MAN_PAGES "/kxsim.1")), optionsIn(help));
        QCOMPARE(lettersIn(manualPage(KX_MAN_PAGES "/kxsim.1")), lettersIn(help));
    }

    void aLetterStandsForTheSameInBothPrograms()
    {
        const auto ofKxhost = lettersIn(manualPage(KX_MAN_PAGES "/kxhost.1"));
        const auto ofKxsim = lettersIn(helpOfKxsim());
        int common = 0;
        for (const QString& letter : ofKxsim.keys()) {
            common += ofKxhost.contains(letter) ? 1 : 0;
            QCOMPARE(ofKxhost.value(letter, ofKxsim.value(letter)), ofKxsim.value(letter));
        }
        QCOMPARE(common, 5); // -a, -b, -h, -p, -v
    }
};

QTEST_GUILESS_MAIN(VersionsTest)
#include "tst_versions.moc"
