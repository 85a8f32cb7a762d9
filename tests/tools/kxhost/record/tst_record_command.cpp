// kxhost record and replay with a simulated controller.

#include "tools/kxhost/commands/command_process.h"
#include "tools/kxhost/record/record_process.h"

#include <QtCore/QDir>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

using namespace kx;

namespace
{

QStringList stoppedAfter(QStringList events)
{
    return events << QStringLiteral("0 [recorder stopped]");
}

} // namespace

class RecordCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void samplesOfATagsFile();
    void changesInADatabase();
    void replayPrintsWhatWatchPrinted();
    void goesOnInTheSameFile_data() { kindsOfFiles(); }
    void goesOnInTheSameFile();
    void rotatedFilesHaveTheirTime();
    void jsonTellsFilesAndCounts();
    void framesAreShown();
    void wrongUsage_data();
    void wrongUsage();

private:
    RecordingFolder m_folder;
};

void RecordCommandTest::samplesOfATagsFile()
{
    const QString tags = m_folder.path("tags.csv");
    const QString path = m_folder.path("samples.csv");
    RecordingFolder::write(tags, "name,address\nLevel,D100\nPump,Y10\n");
    const KxsimProcess simulator(presets("D100=1234 Y10=1") << QStringLiteral("--still"));
    const QStringList arguments = recordOn(simulator, "--every 500ms --for 2s", path) << tags;
    const CommandResult recorded = runCommand(arguments);
    QCOMPARE(recorded.errors, QStringList());
    QCOMPARE(recorded.exitCode, 0);
    QCOMPARE(recorded.output.first(),
             QStringLiteral("recording 2 values in %1; Ctrl-C ends").arg(path));
    const QList<QByteArray> rows = RecordingFolder::contentOf(path).split('\n');
    QCOMPARE(rows.first(), QByteArray("time,Level D100@1,Pump Y10@1,gaps"));
    QVERIFY(rows.at(1).endsWith("Z,,,not yet read"));
    QVERIFY(rows.at(rows.size() - 3).endsWith("Z,1234,1,"));
    QVERIFY(rows.at(rows.size() - 2).endsWith("Z,,,recorder stopped"));
    QVERIFY(holds(recorded.output, " gaps recorded")); // two, and those of a busy machine
}

void RecordCommandTest::changesInADatabase()
{
    const QString path = m_folder.path("changes.sqlite");
    const KxsimProcess simulator(presets("D100=1234 D101=5") << QStringLiteral("--still"));
    const CommandResult result =
        runCommand(recordOn(simulator, "D100:2 --changes --cycles 3", path));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(eventsWithoutTimes(path),
             QStringList({"0 [not yet read]", "1 [not yet read]", "0 1234", "1 5",
                          "0 [recorder stopped]", "1 [recorder stopped]"}));
}

void RecordCommandTest::replayPrintsWhatWatchPrinted()
{
    const QString path = m_folder.path("replay.csv");
    const KxsimProcess simulator(presets("D100=1234") << QStringLiteral("--still"));
    QCOMPARE(runCommand(recordOn(simulator, "D100 --changes --cycles 2", path)).exitCode, 0);
    const CommandResult lines = runCommand({QStringLiteral("replay"), path});
    QCOMPARE(lines.errors, QStringList());
    QCOMPARE(lines.exitCode, 0);
    QCOMPARE(withoutTimes(lines.output),
             QStringList({"1 D100 not yet read", "1 D100 1234", "1 D100 recorder stopped"}));
    const CommandResult json =
        runCommand({QStringLiteral("replay"), path, QStringLiteral("--json")});
    QCOMPARE(json.exitCode, 0);
    const QJsonObject change = QJsonDocument::fromJson(json.output.at(1).toUtf8()).object();
    QCOMPARE(change[QLatin1String("event")].toString(), QStringLiteral("change"));
    QCOMPARE(change[QLatin1String("value")].toInt(), 1234);
}

void RecordCommandTest::goesOnInTheSameFile()
{
    QFETCH(QString, kind);
    const QString path = m_folder.path("again.") + kind;
    const KxsimProcess simulator(presets("D100=5") << QStringLiteral("--still"));
    const QStringList arguments = recordOn(simulator, "D100 --changes --cycles 1", path);
    QCOMPARE(runCommand(arguments).exitCode, 0);
    QCOMPARE(runCommand(arguments).exitCode, 0);
    const QStringList once = stoppedAfter({"0 [not yet read]", "0 5"});
    QCOMPARE(eventsWithoutTimes(path), once + once);
}

void RecordCommandTest::rotatedFilesHaveTheirTime()
{
    const QString path = m_folder.path("rotated.csv");
    const KxsimProcess simulator(QStringList{QStringLiteral("--still")});
    const CommandResult result =
        runCommand(recordOn(simulator, "D100 --changes --cycles 1 --rotate 366d", path));
    QCOMPARE(result.exitCode, 0);
    const QStringList files =
        QFileInfo(path).dir().entryList({QStringLiteral("rotated*")}, QDir::Files);
    QCOMPARE(files.size(), 1);
    const QRegularExpression name(QStringLiteral("\\Arotated-[0-9]{8}T[0-9]{6}Z\\.csv\\z"));
    QVERIFY2(name.match(files.first()).hasMatch(), qPrintable(files.first()));
    QVERIFY(result.output.first().contains(files.first()));
}

void RecordCommandTest::jsonTellsFilesAndCounts()
{
    const QString path = m_folder.path("json.csv");
    const KxsimProcess simulator(QStringList{QStringLiteral("--still")});
    const CommandResult result =
        runCommand(recordOn(simulator, "D100:2 --changes --cycles 2 --json", path));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.output.size(), 2);
    QCOMPARE(result.output.first(),
             QStringLiteral("{\"event\":\"recording\",\"file\":\"%1\",\"values\":2}").arg(path));
    const QJsonObject summary = QJsonDocument::fromJson(result.output.last().toUtf8()).object();
    QCOMPARE(summary[QLatin1String("event")].toString(), QStringLiteral("summary"));
    QCOMPARE(summary[QLatin1String("samples")].toInt(), 2);
    QCOMPARE(summary[QLatin1String("gaps")].toInt(), 2);
}

void RecordCommandTest::framesAreShown()
{
    const KxsimProcess simulator(presets("D100=5") << QStringLiteral("--still"));
    const CommandResult result = runCommand(
        recordOn(simulator, "D100 --changes --cycles 1 --frames", m_folder.path("frames.csv")));
    QCOMPARE(result.exitCode, 0);
    QVERIFY(holds(result.output, "station 01, function 03, address 00 64, quantity 00 01"));
}

void RecordCommandTest::wrongUsage_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("error");
    QTest::newRow("no file") << "record D0 --every 1s --simulate" << 2
                             << "kxhost: no file; name one with --to, such as --to line3.csv";
    QTest::newRow("a file that cannot be made")
        << "record D0 --every 1s --to /none/a.csv --simulate" << 2
        << "kxhost: /none/a.csv: cannot be written: No such file or directory";
    QTest::newRow("a database that cannot be made")
        << "record D0 --every 1s --to /none/a.sqlite --simulate" << 2
        << "kxhost: /none/a.sqlite: cannot be recorded into: unable to open database file";
    QTest::newRow("no such port")
        << "record D0 --every 1s --to /none/a.csv --port /dev/none" << 3
        << "kxhost: /dev/none: cannot open the port: No such file or directory";
    QTest::newRow("an unknown option of record")
        << "record D0 --speed 2" << 2
        << "kxhost: unknown option 'speed'; kxhost record --help shows the options";
    QTest::newRow("nothing to replay")
        << "replay" << 2 << "kxhost: name one recording, such as line3.csv";
    QTest::newRow("two to replay")
        << "replay a.csv b.csv" << 2 << "kxhost: name one recording, such as line3.csv";
    QTest::newRow("no such recording")
        << "replay /none/a.csv" << 2 << "kxhost: /none/a.csv: No such file or directory";
    QTest::newRow("no recording")
        << "replay /etc/passwd" << 2
        << "kxhost: /etc/passwd: is no recording; kxhost record makes them";
    QTest::newRow("a folder to replay")
        << "replay /etc" << 2 << "kxhost: /etc: file to open is a directory";
}

void RecordCommandTest::wrongUsage()
{
    QFETCH(QString, arguments);
    const CommandResult result = runCommand(arguments.split(QLatin1Char(' ')));
    QTEST(result.exitCode, "exitCode");
    QCOMPARE(result.errors.size(), 1);
    QTEST(result.errors.first(), "error");
    QCOMPARE(result.output, QStringList());
}

QTEST_GUILESS_MAIN(RecordCommandTest)
#include "tst_record_command.moc"
