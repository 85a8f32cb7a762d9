// `kxhost ports` as a process, beside simulators and a watch.

#include "tools/kxhost/commands/command_process.h"
#include "tools/kxhost/commands/watch_process.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <csignal>

using namespace kx;

namespace
{

/// What is listed with that link; empty when nothing is.
QJsonObject listed(const QString& link)
{
    for (const QString& line : runCommand("ports --json").output) {
        const QJsonObject json = QJsonDocument::fromJson(line.toUtf8()).object();
        if (json["link"].toString() == link)
            return json;
    }
    return QJsonObject();
}

} // namespace

class PortsCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void aSimulatorAndWhoHoldsIt();
    void aSimulatorWithoutALink();
    void wrongUsageIsOneLine_data();
    void wrongUsageIsOneLine();
};

void PortsCommandTest::aSimulatorAndWhoHoldsIt()
{
    const QTemporaryDir folder;
    const QString link = folder.filePath("line");
    KxsimProcess simulator({"--symlink", link});
    const QJsonObject free = listed(link);
    QCOMPARE(free["port"].toString(), QFile::symLinkTarget(link));
    QCOMPARE(free["description"].toString(), QStringLiteral("simulated controllers"));
    QVERIFY(free["simulator"].toInt() > 0);
    QCOMPARE(free["heldBy"].toArray(), QJsonArray());

    RunningWatch watch({"watch", "D0", "--port", link});
    QVERIFY(watch.waitForOutput(" 1 D0 "));
    QCOMPARE(listed(link)["heldBy"].toArray(),
             (QJsonArray{QJsonObject{{"program", "kxhost"}, {"process", watch.processId()}}}));
    const QString row = runCommand("ports").output.filter(link).value(0);
    QVERIFY2(row.endsWith(QStringLiteral("  kxhost (pid %1)").arg(watch.processId())),
             qPrintable(row));
    watch.sendSignal(SIGINT);
    QCOMPARE(watch.exitCode(), 0);
    QCOMPARE(listed(link)["heldBy"].toArray(), QJsonArray());

    simulator.exitCodeAfter(SIGTERM);
    QCOMPARE(listed(link), QJsonObject());
}

void PortsCommandTest::aSimulatorWithoutALink()
{
    const KxsimProcess simulator;
    const CommandResult result = runCommand("ports");
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.errors, QStringList());
    QVERIFY(result.output.first().startsWith("PORT "));
    QCOMPARE(static_cast<int>(result.output.filter(simulator.portName() + ' ').size()), 1);
}

void PortsCommandTest::wrongUsageIsOneLine_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("line");
    QTest::newRow("a name") << "ports /dev/ttyS0"
                            << "kxhost: /dev/ttyS0: unexpected; ports shows all there are";
    QTest::newRow("an option of a line") << "ports --baud 9600"
                                         << "kxhost: unknown option 'baud'; kxhost ports --help "
                                            "shows the options";
}

void PortsCommandTest::wrongUsageIsOneLine()
{
    QFETCH(QString, arguments);
    QFETCH(QString, line);
    const CommandResult result = runCommand(arguments.split(' '));
    QCOMPARE(result.errors, QStringList{line});
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.exitCode, 2);
}

QTEST_GUILESS_MAIN(PortsCommandTest)
#include "tst_ports_command.moc"
