#include "kxpanel/project/project.h"

#include "kxpanel/tags/tag_text.h"

#include <QtCore/QJsonArray>

using namespace kxpanel;

namespace
{

const char WHOLE[] = R"({
    "format": "kxpanel project",
    "version": 1,
    "later": {"kept": [1, 2]},
    "connection": {"port": "/dev/ttyUSB0", "baud": 115200, "station": 2, "colour": "red"},
    "tags": [
        {"name": "Pressure", "address": "D100", "format": "s16", "scale": "0.1", "unit": "bar", "max": 16,
         "later": true},
        {"station": 3, "address": "X17"}
    ],
    "pages": {"watch": {"filter": {"text": "pump", "later": 1}}, "unheard": {"of": 1}}
}
)";

Project parsed(const QByteArray& text)
{
    Project project;
    QStringList faults;
    if (!parseProject(text, &project, &faults))
        qFatal("%s", qPrintable(faults.join(QLatin1Char('\n'))));
    return project;
}

} // namespace

class ProjectTest : public QObject
{
    Q_OBJECT

private slots:
    void readsAll();
    void keepsWhatItDoesNotKnow();
    void writesWhatItReads();
    void aNameMayBeANumber();
    void membersOfOtherObjectsAreNotTwice();
    void anEmptyProjectHasNoLine();
    void refuses_data();
    void refuses();
    void tellsAllFaults();
};

void ProjectTest::readsAll()
{
    const Project project = parsed(WHOLE);
    QVERIFY(project.hasLine());
    QCOMPARE(project.connection.port, QStringLiteral("/dev/ttyUSB0"));
    QCOMPARE(project.connection.timing.baud, 115200);
    QCOMPARE(project.connection.station, 2);
    QCOMPARE(project.tags.size(), 2);
    QCOMPARE(project.tags.first().tag.name, QStringLiteral("Pressure"));
    QCOMPARE(typedText(project.tags.first().tag), QStringLiteral("D100@1/s16*0.1,max=16,unit=bar"));
    QCOMPARE(project.tags.last().tag.name, QString());
    QCOMPARE(typedText(project.tags.last().tag), QStringLiteral("X17@3"));
    QCOMPARE(project.pages.value(QStringLiteral("watch"))[QLatin1String("filter")]
                 .toObject()[QLatin1String("text")]
                 .toString(),
             QStringLiteral("pump"));
}

void ProjectTest::keepsWhatItDoesNotKnow()
{
    const QByteArray text = projectText(parsed(WHOLE));
    const Project again = parsed(text);
    QCOMPARE(again.extra[QLatin1String("later")].toObject()[QLatin1String("kept")].toArray().size(),
             2);
    QCOMPARE(again.connectionExtra[QLatin1String("colour")].toString(), QStringLiteral("red"));
    QCOMPARE(again.tags.first().extra[QLatin1String("later")].toBool(), true);
    QCOMPARE(again.pages.value(QStringLiteral("unheard"))[QLatin1String("of")].toInt(), 1);
    QVERIFY(text.contains("\"text\": \"pump\""));
}

void ProjectTest::writesWhatItReads()
{
    const QByteArray text = projectText(parsed(WHOLE));
    QCOMPARE(projectText(parsed(text)), text);
    QVERIFY(text.startsWith("{\n"));
    QVERIFY(text.contains("\"format\": \"kxpanel project\""));
    QVERIFY(text.contains("\"version\": 1"));
}

void ProjectTest::aNameMayBeANumber()
{
    const Project project = parsed(R"({"format": "kxpanel project", "version": 1,
                                       "tags": [{"name": 17, "address": "D0"}]})");
    QCOMPARE(project.tags.first().tag.name, QStringLiteral("17"));
}

// Nor texts that look like members.
void ProjectTest::membersOfOtherObjectsAreNotTwice()
{
    const Project project =
        parsed(R"({"format": "kxpanel project", "version": 1, "a": {"b": {"a": 1}, "c": "b"},
                   "b": ["a", "a", {"a": "\"a\": {"}, {"a": "b"}], "tags": [{"address": "D0"}]})");
    QCOMPARE(project.tags.size(), 1);
    QCOMPARE(project.extra.keys(), (QStringList{"a", "b"}));
}

void ProjectTest::anEmptyProjectHasNoLine()
{
    const Project project = parsed(projectText(Project()));
    QVERIFY(!project.hasLine());
    QVERIFY(project.tags.isEmpty());
    QVERIFY(project.connection.session.choosesLengths);
}

void ProjectTest::refuses_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char* name, const QByteArray& text, const char* fault) {
        QTest::newRow(name) << text << QString::fromLatin1(fault);
    };
    const auto project = [](const char* members) {
        return QByteArray(R"({"format": "kxpanel project", "version": 1, )") + members + '}';
    };
    row("a broken line", "{\n  \"format\": \"kxpanel project\"\n  \"version\": 1\n}",
        "line 3, column 3: unterminated object");
    row("a broken line behind other letters", "{\n  \"a\": \"\xC2\xB0\xC2\xB0\" 5\n}",
        "line 2, column 13: unterminated object");
    row("a zero byte, which is lost on the way back", project("\n\"lat#er\": 1").replace('#', '\0'),
        "line 2, column 5: illegal value");
    row("a member that is there twice",
        "{\"format\": \"kxpanel project\", \"version\": 1,\n \"connection\": {\"baud\": 9600,\n"
        "  \"baud\": 19200}}",
        "line 3, column 3: the member 'baud' is there twice");
    row("a member that is there twice, once in other letters",
        project(R"("later": {"baud": 1, "b\u0061ud": 2})"),
        "line 1, column 66: the member 'baud' is there twice");
    row("a member that is there twice, which is why it is broken",
        "{\"tags\": [{\"name\": \"A\",\n  \"name\": \"B\"}],\n}",
        "line 2, column 3: the member 'name' is there twice");
    row("more in each other than can be read", QByteArray(100000, '['),
        "line 1, column 1025: too deeply nested document");
    row("another file", "{\"some\": 1}", "format: this is no project of kxpanel");
    row("an array", "[1]", "format: this is no project of kxpanel");
    row("no version", R"({"format": "kxpanel project"})", "version: must be a number, 1 or more");
    row("a newer version", R"({"format": "kxpanel project", "version": 2})",
        "version 2: made by a newer kxpanel; this one reads version 1");
    row("tags that are none", project(R"("tags": {})"), "tags: must be an array");
    row("a tag that is none", project(R"("tags": [5])"), "tags[0]: must be an object");
    row("an address that is none", project(R"("tags": [{"address": "D0"}, {"address": "D8000"}])"),
        "tags[1].address: D8000: out of range; the addresses are D0 to D7999 (decimal)");
    row("a tag without an address", project(R"("tags": [{"name": "Pump"}])"),
        "tags[0]: the tag has no address");
    row("a name that is there twice",
        project(R"("tags": [{"name": "A", "address": "D0"}, {"address": "D1"},
                            {"name": "A", "address": "D2"}])"),
        "tags[2].name: 'A' is the name of tags[0]");
    row("a list for a name", project(R"("tags": [{"name": [], "address": "D0"}])"),
        "tags[0].name: must be a text or a number");
    row("a baud rate that is none", project(R"("connection": {"baud": 0, "port": "a"})"),
        "connection.baud: 0: must be a whole number from 1 to 4000000");
    row("two lines", project(R"("connection": {"port": "a", "tcp": "b"})"),
        "connection: only one of --port, --tcp and --simulate can be used");
    row("a list for a port", project(R"("connection": {"port": []})"),
        "connection.port: must be a text, a number or true");
    row("a page that is none", project(R"("pages": {"watch": 5})"),
        "pages.watch: must be an object");
}

void ProjectTest::refuses()
{
    QFETCH(QByteArray, text);
    Project project;
    project.connection.port = QStringLiteral("before");
    QStringList faults;
    QVERIFY(!parseProject(text, &project, &faults));
    QTEST(faults.join(QLatin1Char('\n')), "fault");
    QCOMPARE(project.connection.port, QStringLiteral("before"));
}

void ProjectTest::tellsAllFaults()
{
    Project project;
    QStringList faults;
    QVERIFY(!parseProject(R"({"format": "kxpanel project", "version": 1, "pages": [],
                              "tags": [{"address": "Q5", "station": 0}, 7]})",
                          &project, &faults));
    QCOMPARE(faults.size(), 4);
    QVERIFY2(faults.at(0).startsWith(QLatin1String("tags[0].station: 0: must be 1 to 247")),
             qPrintable(faults.at(0)));
    QVERIFY2(faults.at(1).startsWith(QLatin1String("tags[0].address: Q5: ")),
             qPrintable(faults.at(1)));
    QCOMPARE(faults.at(2), QStringLiteral("tags[1]: must be an object"));
    QCOMPARE(faults.at(3), QStringLiteral("pages: must be an object"));
}

QTEST_GUILESS_MAIN(ProjectTest)
#include "tst_project.moc"
