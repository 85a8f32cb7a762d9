// `kxhost --version`, and the man pages.

#include "command_process.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtTest/QTest>

namespace
{

const char* const COMMANDS[] = {"watch",     "read",   "write", "recipe", "check",
                                "registers", "series", "plan",  "scan"};

QSet<QString> optionsIn(const QString& text)
{
    QSet<QString> options;
    auto found = QRegularExpression("--[a-z][a-z-]*").globalMatch(text);
    while (found.hasNext())
        options << found.next().captured();
    return options;
}

/// In man pages a hyphen that is typed has a backslash before it.
QSet<QString> optionsInPage(const char* path)
{
    QFile page(path);
    if (!page.open(QIODevice::ReadOnly))
        return {};
    return optionsIn(QString::fromUtf8(page.readAll()).remove('\\'));
}

} // namespace

class TestVersions : public QObject
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

    void theManPageOfKxhostHasEveryOption()
    {
        QSet<QString> options = {"--version"};
        for (const char* command : COMMANDS)
            options += optionsIn(runCommand({command, "--help"}).output.join('\n'));
        QVERIFY(options.size() > 25);
        QCOMPARE(optionsInPage(KX_MAN_PAGES "/kxhost.1"), options);
    }

    void theManPageOfKxsimHasEveryOption()
    {
        QProcess kxsim;
        kxsim.start(KX_SIM_PROGRAM, {"--help"});
        QVERIFY(kxsim.waitForFinished());
        const QSet<QString> options = optionsIn(QString::fromUtf8(kxsim.readAllStandardOutput()));
        QVERIFY(options.size() > 10);
        QCOMPARE(optionsInPage(KX_MAN_PAGES "/kxsim.1"), options);
    }
};

QTEST_GUILESS_MAIN(TestVersions)
#include "tst_versions.moc"
