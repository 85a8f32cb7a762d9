// Tags files as arguments of plan, read and watch, with simulated controllers inside.

#include "command_process.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace kx;

class TagsCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyCommandTakesAFile_data();
    void everyCommandTakesAFile();
    void jsonHasTheNames_data();
    void jsonHasTheNames();
    void twoTagsOnOneAddressAreBothShown_data();
    void twoTagsOnOneAddressAreBothShown();
    void typedAddressesHaveNoName();
    void tagsWithoutStationGetTheOneOfTheOption();
    void aFaultNamesFileAndLine_data();
    void aFaultNamesFileAndLine();
    void switchesMayStandInFrontOfTheCommand();

private:
    QString write(const char* name, const QByteArray& text);

    QTemporaryDir m_folder;
    QString m_good;
    QString m_wrong;
};

QString TagsCommandsTest::write(const char* name, const QByteArray& text)
{
    QFile file(m_folder.filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", name);
    return file.fileName();
}

void TagsCommandsTest::initTestCase()
{
    const QByteArray header = "name,station,address,count,comment\n";
    m_good = write("good.csv", header + "Spare,,Z15,,\nEnd,2,SD511,,\n");
    m_wrong = write("wrong.csv", header + "Lamp,,X8,,\n");
}

void TagsCommandsTest::everyCommandTakesAFile_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    const QString first = QLatin1String("1 Z15 (Spare) ");
    const QString second = QLatin1String("2 SD511 (End) ");
    QTest::newRow("read FILE") << QStringList{"read", "--simulate", m_good} << first << second;
    QTest::newRow("read --tags") << QStringList{"read", "--simulate", "--tags", m_good} << first
                                 << second;
    QTest::newRow("watch FILE") << QStringList{"watch", "--simulate", "--cycles", "1", m_good}
                                << first << second;
    QTest::newRow("watch --tags") << QStringList{"watch", "--simulate", "--cycles",
                                                 "1",     "--tags",     m_good}
                                  << first << second;
    QTest::newRow("plan FILE") << QStringList{"plan", m_good} << QString::fromLatin1("1  Z15  ")
                               << QString::fromLatin1("2  SD511  ");
    QTest::newRow("plan --tags") << QStringList{"plan", "--tags", m_good}
                                 << QString::fromLatin1("1  Z15  ")
                                 << QString::fromLatin1("2  SD511  ");
}

void TagsCommandsTest::everyCommandTakesAFile()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, first);
    QFETCH(QString, second);
    const CommandResult result = runCommand(arguments);
    const QString output = result.output.join(QLatin1Char('\n'));
    QVERIFY2(output.contains(first), qPrintable(output));
    QVERIFY2(output.contains(second), qPrintable(output));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
}

void TagsCommandsTest::jsonHasTheNames_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("read") << QStringList{"read", "--simulate", "--json", m_good};
    QTest::newRow("watch") << QStringList{"watch", "--simulate", "--json", "--cycles", "1", m_good};
}

void TagsCommandsTest::jsonHasTheNames()
{
    QFETCH(QStringList, arguments);
    QStringList names;
    for (const QString& line : runCommand(arguments).output) {
        const QJsonObject json = QJsonDocument::fromJson(line.toUtf8()).object();
        if (json.contains(QLatin1String("address")))
            names << json.value(QLatin1String("address")).toString() + QLatin1Char(' ')
                         + json.value(QLatin1String("name")).toString();
    }
    names.sort();
    QCOMPARE(names, (QStringList{"SD511 End", "Z15 Spare"}));
}

void TagsCommandsTest::twoTagsOnOneAddressAreBothShown_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("shown");
    const QStringList lines = {"1 Z15 (Spare) ", "1 Z15 (Reserve) "};
    const QStringList objects = {"\"name\":\"Spare\"", "\"name\":\"Reserve\""};
    const QStringList watch = {"watch", "--simulate", "--cycles", "1"};
    QTest::newRow("read, lines") << QStringList{"read", "--simulate"} << lines;
    QTest::newRow("read, JSON") << QStringList{"read", "--simulate", "--json"} << objects;
    QTest::newRow("watch, lines") << watch << lines;
    QTest::newRow("watch, JSON") << watch + QStringList{"--json"} << objects;
}

void TagsCommandsTest::twoTagsOnOneAddressAreBothShown()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, shown);
    const QString tags =
        write("twins.csv", "name,station,address,count,comment\nSpare,,Z15,,\nReserve,,Z15,,\n");
    const QString output = runCommand(arguments + QStringList{tags}).output.join(QLatin1Char('\n'));
    for (const QString& text : shown)
        QVERIFY2(output.count(text) == 1, qPrintable(output));
}

void TagsCommandsTest::typedAddressesHaveNoName()
{
    for (const char* arguments :
         {"read --simulate --json Z15 SD511", "watch --simulate --json --cycles 1 Z15 SD511"}) {
        const QString output = runCommand(arguments).output.join(QLatin1Char('\n'));
        QVERIFY2(output.contains(QLatin1String("\"address\":\"Z15\"")), qPrintable(output));
        QVERIFY2(!output.contains(QLatin1String("\"name\"")), qPrintable(output));
    }
}

void TagsCommandsTest::tagsWithoutStationGetTheOneOfTheOption()
{
    const CommandResult result = runCommand({"read", "--simulate", "--station", "7", m_good});
    QCOMPARE(static_cast<int>(result.output.size()), 2);
    QVERIFY2(result.output.at(0).startsWith(QLatin1String("7 Z15 ")),
             qPrintable(result.output.at(0)));
    QVERIFY2(result.output.at(1).startsWith(QLatin1String("2 SD511 ")),
             qPrintable(result.output.at(1)));
}

void TagsCommandsTest::aFaultNamesFileAndLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("read") << QStringList{"read", "--simulate"};
    QTest::newRow("watch") << QStringList{"watch", "--simulate"};
    QTest::newRow("plan") << QStringList{"plan"};
}

void TagsCommandsTest::aFaultNamesFileAndLine()
{
    QFETCH(QStringList, arguments);
    const QString fault =
        QString::fromLatin1(
            "kxhost: %1:2: address X8: '8' is not an octal number; the addresses are X0 "
            "to X377 (octal)")
            .arg(m_wrong);
    for (const QStringList& words : {QStringList{m_wrong}, QStringList{"--tags", m_wrong}}) {
        const CommandResult result = runCommand(arguments + words);
        QCOMPARE(result.errors, QStringList{fault});
        QCOMPARE(result.output, QStringList());
        QCOMPARE(result.exitCode, 2);
    }
}

void TagsCommandsTest::switchesMayStandInFrontOfTheCommand()
{
    const CommandResult result = runCommand({"--simulate", "--json", "read", "Z15"});
    QCOMPARE(static_cast<int>(result.output.size()), 1);
    QVERIFY2(result.output.first().startsWith(QLatin1String("{\"address\":\"Z15\"")),
             qPrintable(result.output.first()));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(runCommand("--json check X377").exitCode, 0);
    QCOMPARE(runCommand("--simulate").exitCode, 2);
    QCOMPARE(runCommand("--simulate --help").exitCode, 0);
}

QTEST_GUILESS_MAIN(TagsCommandsTest)
#include "tst_tags_commands.moc"
