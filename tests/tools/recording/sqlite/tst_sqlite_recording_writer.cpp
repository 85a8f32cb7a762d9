#include "recording/sqlite/sqlite_recording_writer.h"

#include "tools/recording/recording_folder.h"

#include <QtCore/QFileInfo>
#include <QtCore/QVariant>
#include <QtSql/QSqlRecord>
#include <QtTest/QTest>

using namespace kx;

class SqliteRecordingWriterTest : public QObject
{
    Q_OBJECT

private slots:
    void tablesAndView();
    void aValueKeepsItsKind_data();
    void aValueKeepsItsKind();
    void nothingIsSeenBeforeItIsFlushed();
    void goesOnBehindAStop();
    void goesOnWhereAnotherWasEndedFromOutside();
    void moreTagsJoinIn();
    void otherFilesAreLeftAlone();
    void cannotBeOpened();
    void oneProgramAtATime();
    void othersReadMeanwhile();
    void theSizeIsThatOfTheFileInTheEnd();
    void aFullDiskLeavesWhatWasFlushed();

private:
    QStringList rowsOf(const QString& path, const char* statement);

    RecordingFolder m_folder;
};

/// Columns with "|" between them, "null" for what is none.
QStringList SqliteRecordingWriterTest::rowsOf(const QString& path, const char* statement)
{
    QString fault;
    SqliteConnection connection;
    QStringList rows;
    if (!connection.open(path, &fault))
        return {fault};
    QSqlQuery query(connection.database());
    if (!query.exec(QLatin1String(statement)))
        rows << sqliteFault(query.lastError());
    while (query.next()) {
        QStringList columns;
        for (int column = 0; column < query.record().count(); ++column)
            columns << (query.value(column).isNull() ? QStringLiteral("null")
                                                     : query.value(column).toString());
        rows << columns.join(QLatin1Char('|'));
    }
    return rows;
}

void SqliteRecordingWriterTest::tablesAndView()
{
    const QString path = m_folder.path("a.sqlite");
    SqliteRecordingWriter writer;
    QString error;
    QVERIFY2(writer.open(path, pumpTags(), &error), qPrintable(error));
    writer.gap(START, 0, GapReason::NotYetRead);
    writer.sample(START + 250, 0, number("4.5"));
    writer.sample(START + 250, 1, number("1"));
    writer.gap(START + 1001, 1, GapReason::NoAnswer);
    writer.gap(START + 2000, 1, GapReason::LineLost);
    QVERIFY(writer.close());
    QCOMPARE(rowsOf(path, "SELECT id, name, station, address, unit FROM tags ORDER BY id"),
             QStringList({"1|Pressure|1|D100|bar", "2||2|Y10|"}));
    QCOMPARE(rowsOf(path, "SELECT time, tag, value FROM samples ORDER BY rowid"),
             QStringList({"1700000000250|1|4.5", "1700000000250|2|1"}));
    QCOMPARE(
        rowsOf(path, "SELECT tag, since, until, reason FROM gaps ORDER BY id"),
        QStringList({"1|1700000000000|1700000000250|not yet read",
                     "2|1700000001001|1700000002000|no answer", "2|1700000002000|null|line lost"}));
    QCOMPARE(rowsOf(path, "SELECT time, name, station, address, unit, value, gap, until "
                          "FROM recording ORDER BY time, station"),
             QStringList({"2023-11-14T22:13:20.000Z|Pressure|1|D100|bar|null|not yet read|"
                          "2023-11-14T22:13:20.250Z",
                          "2023-11-14T22:13:20.250Z|Pressure|1|D100|bar|4.5|null|null",
                          "2023-11-14T22:13:20.250Z||2|Y10||1|null|null",
                          "2023-11-14T22:13:21.001Z||2|Y10||null|no answer|"
                          "2023-11-14T22:13:22.000Z",
                          "2023-11-14T22:13:22.000Z||2|Y10||null|line lost|null"}));
    QCOMPARE(rowsOf(path, "PRAGMA journal_mode"), QStringList("wal"));
}

void SqliteRecordingWriterTest::aValueKeepsItsKind_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<QString>("stored");
    QTest::newRow("a whole number") << "-32768" << true << "integer|-32768";
    QTest::newRow("a fraction") << "0.1" << true << "real|0.1";
    QTest::newRow("a power of ten") << "1e+20" << true << "real|1e+20";
    QTest::newRow("the largest whole number")
        << "9223372036854775807" << true << "integer|9223372036854775807";
    QTest::newRow("larger than a whole number can be")
        << "18446744073709551615" << true << "text|18446744073709551615";
    QTest::newRow("more digits than a double holds")
        << "922337203685477580.7" << true << "text|922337203685477580.7";
    QTest::newRow("not a number") << "nan" << true << "text|nan";
    QTest::newRow("infinity") << "-inf" << true << "text|-inf";
    QTest::newRow("text") << "007" << false << "text|007";
    QTest::newRow("no text") << "" << false << "text|";
}

void SqliteRecordingWriterTest::aValueKeepsItsKind()
{
    QFETCH(QString, text);
    QFETCH(bool, isNumber);
    QFETCH(QString, stored);
    const QString path = m_folder.path("kinds.sqlite");
    QFile::remove(path);
    SqliteRecordingWriter writer;
    QString error;
    QVERIFY(writer.open(path, pumpTags(), &error));
    writer.sample(START, 0, {text, isNumber});
    QVERIFY(writer.close());
    QCOMPARE(rowsOf(path, "SELECT typeof(value), value FROM samples"), QStringList(stored));
}

void SqliteRecordingWriterTest::nothingIsSeenBeforeItIsFlushed()
{
    const QString path = m_folder.path("waiting.sqlite");
    SqliteRecordingWriter writer;
    QString error;
    QVERIFY(writer.open(path, pumpTags(), &error));
    writer.sample(START, 0, number("1"));
    QCOMPARE(rowsOf(path, "SELECT count(*) FROM samples"), QStringList("0"));
    QVERIFY(writer.flush());
    QCOMPARE(rowsOf(path, "SELECT count(*) FROM samples"), QStringList("1"));
    QVERIFY(writer.size() > 0);
}

void SqliteRecordingWriterTest::goesOnBehindAStop()
{
    const QString path = m_folder.path("again.sqlite");
    QString error;
    SqliteRecordingWriter first;
    QVERIFY(first.open(path, pumpTags(), &error));
    first.sample(START, 0, number("1"));
    first.gap(START + 10, 0, GapReason::RecorderStopped);
    first.gap(START + 10, 1, GapReason::RecorderStopped);
    QVERIFY(first.close());
    SqliteRecordingWriter second;
    QVERIFY2(second.open(path, pumpTags(), &error), qPrintable(error));
    second.sample(START + 9000, 0, number("2"));
    QVERIFY(second.close());
    QCOMPARE(rowsOf(path, "SELECT tag, since - 1700000000000, until - 1700000000000, reason FROM "
                          "gaps ORDER BY id"),
             QStringList({"1|10|9000|recorder stopped", "2|10|null|recorder stopped"}));
}

void SqliteRecordingWriterTest::goesOnWhereAnotherWasEndedFromOutside()
{
    const QString path = m_folder.path("killed.sqlite");
    QString error;
    SqliteRecordingWriter first;
    QVERIFY(first.open(path, pumpTags(), &error));
    first.gap(START, 1, GapReason::NoAnswer);
    first.sample(START + 10, 0, number("1"));
    QVERIFY(first.close()); // no record says that it has stopped
    SqliteRecordingWriter second;
    QVERIFY2(second.open(path, pumpTags(), &error), qPrintable(error));
    second.sample(START + 9000, 0, number("2"));
    QVERIFY(second.close());
    QCOMPARE(eventsOf(path), QStringList({"0 1 [no answer]", "10 0 1", "10 0 [recorder stopped]",
                                          "10 1 [recorder stopped]", "9000 0 2"}));
    QCOMPARE(rowsOf(path, "SELECT until - 1700000000000 FROM gaps ORDER BY id"),
             QStringList({"10", "9000", "null"}));
}

void SqliteRecordingWriterTest::moreTagsJoinIn()
{
    const QString path = m_folder.path("more.sqlite");
    QString error;
    SqliteRecordingWriter first;
    QVERIFY(first.open(path, pumpTags(), &error));
    first.sample(START, 0, number("1"));
    QVERIFY(first.close());
    const RecordedTag other = {QStringLiteral("Pressure"), 1, QStringLiteral("D100"),
                               QStringLiteral("mbar")};
    SqliteRecordingWriter second;
    QVERIFY(second.open(path, {other, pumpTags().first()}, &error));
    second.sample(START + 9000, 0, number("1000"));
    second.sample(START + 9000, 1, number("1"));
    QVERIFY(second.close());
    QCOMPARE(rowsOf(path, "SELECT unit, value FROM samples JOIN tags ON id = tag ORDER BY "
                          "samples.rowid"),
             QStringList({"bar|1", "mbar|1000", "bar|1"}));
}

void SqliteRecordingWriterTest::otherFilesAreLeftAlone()
{
    const QString text = m_folder.path("text.sqlite");
    RecordingFolder::write(text, QByteArray(1000, 'x'));
    SqliteRecordingWriter writer;
    QString error;
    QVERIFY(!writer.open(text, pumpTags(), &error));
    const QString other = QStringLiteral(": cannot be recorded into: it holds something else; name "
                                         "another file");
    QCOMPARE(error,
             text
                 + QLatin1String(
                     ": cannot be recorded into: file is not a database; name another file"));
    QCOMPARE(RecordingFolder::contentOf(text), QByteArray(1000, 'x'));

    const QString database = m_folder.path("other.sqlite");
    rowsOf(database, "CREATE TABLE customers(name)");
    SqliteRecordingWriter another;
    QVERIFY(!another.open(database, pumpTags(), &error));
    QCOMPARE(error, database + other);
    QCOMPARE(rowsOf(database, "SELECT name FROM sqlite_master"), QStringList("customers"));
}

void SqliteRecordingWriterTest::cannotBeOpened()
{
    SqliteRecordingWriter writer;
    QString error;
    QVERIFY(!writer.open(QStringLiteral("/none/a.sqlite"), pumpTags(), &error));
    QCOMPARE(error, QStringLiteral("/none/a.sqlite: cannot be recorded into: unable to open "
                                   "database file"));
}

// Each would take the other's gaps for those of a program that was ended.
void SqliteRecordingWriterTest::oneProgramAtATime()
{
    const QString path = m_folder.path("shared.sqlite");
    SqliteRecordingWriter first;
    QString error;
    QVERIFY(first.open(path, pumpTags(), &error));
    first.sample(START, 0, number("1"));
    QVERIFY(first.flush());
    {
        SqliteRecordingWriter second;
        QVERIFY(!second.open(path, pumpTags(), &error));
    }
    QCOMPARE(error, path
                        + QStringLiteral(": cannot be recorded into: another program records into "
                                         "it"));
    QCOMPARE(rowsOf(path, "SELECT count(*) FROM gaps"), QStringList("0"));
    first.sample(START + 1, 0, number("2"));
    QVERIFY(first.close());
    SqliteRecordingWriter third;
    QVERIFY(third.open(path, pumpTags(), &error));
}

void SqliteRecordingWriterTest::othersReadMeanwhile()
{
    const QString path = m_folder.path("read.sqlite");
    SqliteRecordingWriter writer;
    QString error;
    QVERIFY(writer.open(path, pumpTags(), &error));
    writer.sample(START, 0, number("1"));
    QVERIFY(writer.flush());
    QCOMPARE(eventsOf(path), QStringList("0 0 1"));
    writer.sample(START + 1, 0, number("2"));
    QVERIFY(writer.close());
    QCOMPARE(eventsOf(path), QStringList({"0 0 1", "1 0 2"}));
}

// The log has pages again and again, and goes with the last connection.
void SqliteRecordingWriterTest::theSizeIsThatOfTheFileInTheEnd()
{
    const QString path = m_folder.path("size.sqlite");
    SqliteRecordingWriter writer;
    QString error;
    QVERIFY(writer.open(path, pumpTags(), &error));
    QCOMPARE(writer.size(), 5 * 4096); // a page for each table, its names and an index
    for (int i = 0; i < 100; ++i) {
        writer.sample(START + i, 0, number("1"));
        QVERIFY(writer.flush());
    }
    QCOMPARE(writer.size(), 5 * 4096);
    for (int i = 0; i < 1000; ++i) // some 20 bytes each
        writer.sample(START + i, 0, number("1234567"));
    QVERIFY(writer.flush());
    const qint64 size = writer.size();
    QVERIFY2(size > 5 * 4096 + 20000 - 4096, QByteArray::number(size).constData());
    QVERIFY(writer.close());
    QCOMPARE(QFileInfo(path).size(), size);
}

void SqliteRecordingWriterTest::aFullDiskLeavesWhatWasFlushed()
{
    const QString path = m_folder.path("full.sqlite");
    SqliteRecordingWriter writer;
    QString error;
    QVERIFY(writer.open(path, pumpTags(), &error));
    writer.sample(START, 0, number("1"));
    QVERIFY(writer.flush());
    {
        const FullDisk full(static_cast<rlim_t>(writer.size()));
        for (int i = 0; i < 100000; ++i) // some 25 bytes each
            writer.sample(START + i, 1, number("123456789012"));
        QVERIFY(!writer.flush());
    }
    QVERIFY2(writer.failure().startsWith(path + QStringLiteral(": cannot go on recording: ")),
             qPrintable(writer.failure()));
    writer.gap(START + 1, 0, GapReason::NoAnswer);
    QVERIFY(!writer.close());
    QCOMPARE(eventsOf(path), QStringList("0 0 1"));
}

QTEST_GUILESS_MAIN(SqliteRecordingWriterTest)
#include "tst_sqlite_recording_writer.moc"
