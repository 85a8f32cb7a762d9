// Databases that are damaged, or made by other programs: what they hold is told in one line, and
// never taken for another value.

#include "recording/sqlite/sqlite_recording_reader.h"

#include "recording/recording_writer.h"
#include "tools/recording/recording_folder.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

const int PAGE = 4096;   // bytes
const int SAMPLES = 800; // on several pages

} // namespace

class SqliteRecordingReaderTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theLargestValuesAreRead();
    void cutAtAPage_data();
    void cutAtAPage();
    void cutInTheLastPage();
    void everyByteMayBeAnother();
    void wrongRows_data();
    void wrongRows();
    void wrongTables_data();
    void wrongTables();
    void databasesOfOthersAreNoRecordings();
    void theContentDecidesNotTheName();

private:
    /// A path where a recording lies in which a statement was run.
    QString changed(const QString& statements);
    static QStringList faultOf(const QString& path, const char* fault)
    {
        return {path + QLatin1String(": ") + QLatin1String(fault)};
    }

    RecordingFolder m_folder;
    QByteArray m_content; ///< of a recording
    QStringList m_events;
};

void SqliteRecordingReaderTest::initTestCase()
{
    const QString path = m_folder.path("whole.sqlite");
    const std::unique_ptr<RecordingWriter> writer = recordingWriterFor(path, false);
    QString error;
    QVERIFY(writer->open(path, pumpTags(), &error));
    writer->gap(START, 0, GapReason::NotYetRead);
    for (int i = 1; i <= SAMPLES; ++i)
        writer->sample(START + i, i % 2, number("4.5"));
    writer->gap(START + SAMPLES + 1, 0, GapReason::NoAnswer);
    QVERIFY(writer->close());
    m_content = RecordingFolder::contentOf(path);
    m_events = eventsOf(path);
    QCOMPARE(m_events.size(), SAMPLES + 2);
    QVERIFY(m_content.size() >= 8 * PAGE);
    QCOMPARE(m_content.size() % PAGE, 0);
}

QString SqliteRecordingReaderTest::changed(const QString& statements)
{
    const QString path = m_folder.path("changed.sqlite");
    QFile::remove(path);
    const std::unique_ptr<RecordingWriter> writer = recordingWriterFor(path, false);
    QString error;
    if (!writer->open(path, pumpTags(), &error) || !writer->close())
        qFatal("%s", qPrintable(error));
    SqliteConnection connection;
    if (!connection.open(path, &error))
        qFatal("%s", qPrintable(error));
    for (const QString& statement : statements.split(QLatin1String("; "))) {
        if (!connection.run(statement, &error))
            qFatal("%s", qPrintable(error));
    }
    return path;
}

void SqliteRecordingReaderTest::theLargestValuesAreRead()
{
    const QString path = changed(
        QStringLiteral("INSERT INTO samples VALUES(0, 1, 9223372036854775807); "
                       "INSERT INTO samples VALUES(253402300799999, 1, -1.7976931348623157e308); "
                       "INSERT INTO samples VALUES(1700000000000, 2, 9e999); "
                       "INSERT INTO samples VALUES(1700000000000, 2, "
                       "replace(hex(zeroblob(500000)), '00', 'ab'))"));
    const QStringList events = eventsOf(path);
    QCOMPARE(events.size(), 4);
    QCOMPARE(events.at(0), QStringLiteral("-1700000000000 0 9223372036854775807"));
    QCOMPARE(events.at(1), QStringLiteral("251702300799999 0 -1.7976931348623157e+308"));
    QCOMPARE(events.at(2), QStringLiteral("0 1 'inf'")); // as infinity is written
    QCOMPARE(events.at(3).size(), 6 + 1000000);
}

void SqliteRecordingReaderTest::cutAtAPage_data()
{
    QTest::addColumn<int>("size");
    for (int size = PAGE; size < m_content.size(); size += PAGE)
        QTest::addRow("after %d bytes", size) << size;
    QTest::newRow("in the first page") << 1000;
    QTest::newRow("in the header") << 50;
}

void SqliteRecordingReaderTest::cutAtAPage()
{
    QFETCH(int, size);
    const QString path = m_folder.path("cut.sqlite");
    RecordingFolder::write(path, m_content.left(size));
    QCOMPARE(eventsOf(path), faultOf(path, "cannot be read: database disk image is malformed"));
}

// SQLite would take zeros for the rest of the page.
void SqliteRecordingReaderTest::cutInTheLastPage()
{
    const QString path = m_folder.path("cut.sqlite");
    RecordingFolder::write(path, m_content.chopped(1));
    QCOMPARE(eventsOf(path), faultOf(path, "cannot be read: its end is cut off"));
}

// A value may become another one, which nothing in the file can tell; all else is told.
void SqliteRecordingReaderTest::everyByteMayBeAnother()
{
    const QString path = m_folder.path("byte.sqlite");
    int faults = 0;
    for (int place = 0; place < m_content.size(); place += place % PAGE < 100 ? 5 : 211) {
        QByteArray content = m_content;
        content[place] = static_cast<char>(content.at(place) ^ 0xFF);
        RecordingFolder::write(path, content);
        const QStringList events = eventsOf(path);
        const QStringList told = events.filter(path);
        QVERIFY2(told.size() <= 1 && told == events.mid(events.size() - told.size()),
                 qPrintable(QString::number(place)));
        QVERIFY2(events.size() == m_events.size() || told.size() == 1,
                 qPrintable(QStringLiteral("%1: %2 rows").arg(place).arg(events.size())));
        faults += static_cast<int>(told.size());
    }
    QVERIFY2(faults > 50, qPrintable(QString::number(faults)));
}

void SqliteRecordingReaderTest::wrongRows_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("table");
    const auto sample = [](const char* name, const char* values) {
        QTest::newRow(name)
            << QStringLiteral("INSERT INTO samples VALUES(%1)").arg(QLatin1String(values))
            << "samples";
    };
    sample("a time that is text", "'soon', 1, 4");
    sample("a time between two milliseconds", "1700000000000.5, 1, 4");
    sample("a time before 1970", "-1, 1, 4");
    sample("a time after the year 9999", "253402300800000, 1, 4");
    sample("a tag that is text", "1700000000000, 'Pressure', 4");
    sample("a tag that is none", "1700000000000, 9, 4");
    sample("a value that is missing", "1700000000000, 1, NULL");
    sample("a value that is bytes", "1700000000000, 1, x'41'");
    const auto gap = [](const char* name, const char* values) {
        QTest::newRow(name) << QStringLiteral("INSERT INTO gaps(tag, since, reason, behind) "
                                              "VALUES(%1)")
                                   .arg(QLatin1String(values))
                            << "gaps";
    };
    gap("a gap since text", "1, 'soon', 'no answer', 0");
    gap("a gap of no tag", "9, 1700000000000, 'no answer', 0");
    gap("a gap behind text", "1, 1700000000000, 'no answer', 'all'");
    gap("a reason that is none", "1, 1700000000000, 'asleep', 0");
    gap("a reason that is bytes", "1, 1700000000000, x'6E6F20616E73776572', 0");
    const auto tag = [](const char* name, const char* change) {
        QTest::newRow(name)
            << QStringLiteral("UPDATE tags SET %1 WHERE id = 1").arg(QLatin1String(change))
            << "tags";
    };
    tag("a station that is text", "station = 'one'");
    tag("a station below the first", "station = 0");
    tag("a station above the last", "station = 248");
    tag("an address that is empty", "address = ''");
    tag("a name that is bytes", "name = x'41'");
}

void SqliteRecordingReaderTest::wrongRows()
{
    QFETCH(QString, change);
    QFETCH(QString, table);
    const QString path = changed(change);
    const QByteArray fault = "a row of " + table.toLatin1() + " is wrong";
    QCOMPARE(eventsOf(path), faultOf(path, fault.constData()));
}

void SqliteRecordingReaderTest::wrongTables_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("fault");
    const QString none = QStringLiteral("is no recording; kxhost record makes them");
    QTest::newRow("no samples") << "DROP VIEW recording; DROP TABLE samples" << none;
    QTest::newRow("no tags") << "DROP VIEW recording; DROP TABLE tags" << none;
    QTest::newRow("no gaps") << "DROP VIEW recording; DROP TABLE gaps" << none;
    QTest::newRow("a view, which could have rows without end")
        << "DROP TABLE samples; CREATE VIEW samples AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
           "SELECT i + 1 FROM n WHERE i < 9) SELECT 1700000000000 + i AS time, 1 AS tag, i AS "
           "value, i AS "
           "rowid FROM n"
        << none;
    QTest::newRow("columns of another kind")
        << "DROP VIEW recording; DROP TABLE tags; CREATE TABLE tags(id, label)"
        << "cannot be read: no such column: name";
    QTest::newRow("no order of rows")
        << "DROP VIEW recording; DROP TABLE samples; CREATE TABLE samples(time, tag, value, "
           "PRIMARY KEY(time, tag)) WITHOUT ROWID"
        << "cannot be read: no such column: rowid";
    QTest::newRow("rows that come again")
        << "DROP VIEW recording; DROP TABLE samples; CREATE TABLE samples(time, tag, value, "
           "rowid); INSERT INTO samples VALUES(1700000000000, 1, 4, 1), (1700000000001, 1, 4, 1)"
        << "a row of samples is wrong";
    QTest::newRow("gaps that come again")
        << "DROP VIEW recording; DROP TABLE gaps; CREATE TABLE gaps(id, tag, since, until, reason, "
           "behind); INSERT INTO gaps VALUES(1, 1, 1700000000000, NULL, 'refused', 0), "
           "(1, 1, 1700000000000, NULL, 'refused', 0)"
        << "a row of gaps is wrong";
}

void SqliteRecordingReaderTest::wrongTables()
{
    QFETCH(QString, change);
    QFETCH(QString, fault);
    const QString path = changed(change);
    const QStringList told = eventsOf(path).filter(path);
    QCOMPARE(told, faultOf(path, fault.toLatin1().constData()));
}

void SqliteRecordingReaderTest::databasesOfOthersAreNoRecordings()
{
    const QString path = m_folder.path("other.sqlite");
    {
        SqliteConnection connection;
        QString error;
        QVERIFY(connection.open(path, &error));
        QVERIFY(connection.run(QStringLiteral("CREATE TABLE samples(time, tag, value)"), &error));
    }
    QCOMPARE(eventsOf(path), faultOf(path, "is no recording; kxhost record makes them"));
}

void SqliteRecordingReaderTest::theContentDecidesNotTheName()
{
    const QString table = m_folder.path("table.sqlite");
    RecordingFolder::write(table, "time,D0@1,gaps\n2023-11-14T22:13:20.000Z,17,\n");
    QCOMPARE(eventsOf(table), QStringList("0 0 17"));
    const QString database = m_folder.path("database.csv");
    RecordingFolder::write(database, m_content);
    QCOMPARE(eventsOf(database), m_events);
    const QString empty = m_folder.path("empty.sqlite");
    RecordingFolder::write(empty, QByteArray());
    QCOMPARE(eventsOf(empty), faultOf(empty, "is no recording; kxhost record makes them"));
}

QTEST_GUILESS_MAIN(SqliteRecordingReaderTest)
#include "tst_sqlite_recording_reader.moc"
