#include "recording/recording_reader.h"

#include "recording/recording_writer.h"
#include "recording/sqlite/sqlite_connection.h"
#include "tools/recording/recording_folder.h"

#include <QtTest/QTest>

using namespace kx;

class RecordingReaderTest : public QObject
{
    Q_OBJECT

private slots:
    void namesOfRecordings_data();
    void namesOfRecordings();
    void bothKindsTellTheSame_data();
    void bothKindsTellTheSame();
    void isReadWhileItIsMade_data();
    void isReadWhileItIsMade();
    void aTornRowIsLeftOut();
    void aWrongRowIsTold();
    void noRowTakesAllMemory();
    void aWrongDatabaseRowIsTold_data();
    void aWrongDatabaseRowIsTold();
    void whatIsNoRecording_data();
    void whatIsNoRecording();
    void readingLeavesNothingBehind();

private:
    RecordingFolder m_folder;
};

void RecordingReaderTest::namesOfRecordings_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isOne");
    QTest::newRow("table") << "line3.csv" << true;
    QTest::newRow("database") << "data/line3.sqlite" << true;
    QTest::newRow("other names of databases") << "line.3.sqlite3" << true;
    QTest::newRow("short name") << "a.db" << true;
    QTest::newRow("capitals") << "A.CSV" << true;
    QTest::newRow("another kind") << "line3.txt" << false;
    QTest::newRow("no kind") << "line3" << false;
    QTest::newRow("nothing but the kind") << "data/.csv" << false;
}

void RecordingReaderTest::namesOfRecordings()
{
    QFETCH(QString, path);
    QTEST(isRecordingName(path), "isOne");
}

void RecordingReaderTest::bothKindsTellTheSame_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("table") << "same.csv";
    QTest::newRow("database") << "same.sqlite";
}

void RecordingReaderTest::bothKindsTellTheSame()
{
    QFETCH(QString, name);
    const QString path = m_folder.path(name.toLatin1());
    const std::unique_ptr<RecordingWriter> writer = recordingWriterFor(path, false);
    QString error;
    QVERIFY(writer->open(path, pumpTags(), &error));
    // Several things in one millisecond, too.
    writer->gap(START, 0, GapReason::NotYetRead);
    writer->sample(START, 0, number("4.5"));
    writer->sample(START + 1, 0, number("1e+20"));
    writer->sample(START + 1, 1, {QStringLiteral("0x0007"), false});
    writer->gap(START + 2, 1, GapReason::Refused);
    writer->sample(START + 3, 0, number("-7"));
    writer->gap(START + 3, 0, GapReason::LineLost);
    writer->gap(START + 3, 0, GapReason::RecorderStopped);
    writer->sample(START - 3600000, 1, number("8")); // the clock was set back
    QVERIFY(writer->close());
    QCOMPARE(
        eventsOf(path),
        QStringList({"0 0 [not yet read]", "0 0 4.5", "1 0 1e+20", "1 1 '0x0007'", "2 1 [refused]",
                     "3 0 -7", "3 0 [line lost]", "3 0 [recorder stopped]", "-3600000 1 8"}));
    const std::unique_ptr<RecordingReader> reader = openRecording(path, &error);
    QVERIFY(reader);
    QCOMPARE(reader->tags(), pumpTags());
}

void RecordingReaderTest::isReadWhileItIsMade_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("table") << "growing.csv";
    QTest::newRow("database") << "growing.sqlite";
}

void RecordingReaderTest::isReadWhileItIsMade()
{
    QFETCH(QString, name);
    const QString path = m_folder.path(name.toLatin1());
    const std::unique_ptr<RecordingWriter> writer = recordingWriterFor(path, false);
    QString error;
    QVERIFY(writer->open(path, pumpTags(), &error));
    writer->sample(START, 0, number("1"));
    QVERIFY(writer->flush());
    QCOMPARE(eventsOf(path), QStringList("0 0 1"));
    writer->sample(START + 1, 0, number("2"));
    QVERIFY(writer->flush());
    QCOMPARE(eventsOf(path), QStringList({"0 0 1", "1 0 2"}));
}

void RecordingReaderTest::aTornRowIsLeftOut()
{
    const QString path = m_folder.path("torn.csv");
    RecordingFolder::write(path, "time,D0@1,gaps\n2023-11-14T22:13:20.000Z,17,\n"
                                 "2023-11-14T22:13:21.000Z,1");
    QCOMPARE(
        eventsOf(path),
        QStringList({"0 0 17", path + QStringLiteral(":3: the last row is cut off and left out")}));
}

void RecordingReaderTest::aWrongRowIsTold()
{
    const QString path = m_folder.path("wrong.csv");
    RecordingFolder::write(path, "time,D0@1,gaps\n2023-11-14T22:13:20.000Z,17,\nsoon,1,\n"
                                 "2023-11-14T22:13:21.000Z,1,\n");
    QCOMPARE(eventsOf(path),
             QStringList({"0 0 17", path + QStringLiteral(":3: the time is wrong")}));
}

// As of a file that was damaged or is of something else.
void RecordingReaderTest::noRowTakesAllMemory()
{
    const qint64 most = 16 << 20; // bytes
    const QByteArray begin = "time,D0@1,gaps\n2023-11-14T22:13:20.000Z,17,\n";
    const QString path = m_folder.path("endless.csv");
    RecordingFolder::write(path, begin);
    QFile file(path);
    QVERIFY(file.resize(begin.size() + most + 1)); // zeros
    QCOMPARE(eventsOf(path),
             QStringList({"0 0 17", path + QStringLiteral(":3: the row is longer than 16 MiB")}));
    QVERIFY(file.resize(begin.size() + most));
    QCOMPARE(
        eventsOf(path),
        QStringList({"0 0 17", path + QStringLiteral(":3: the last row is cut off and left out")}));
    QVERIFY(file.resize(0) && file.resize(most + 1));
    QCOMPARE(eventsOf(path),
             QStringList(path + QStringLiteral(": is no recording; kxhost record makes them")));
    QVERIFY(file.remove());
}

void RecordingReaderTest::aWrongDatabaseRowIsTold_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("fault");
    QTest::newRow("a tag that is none") << "INSERT INTO samples VALUES(1700000000001, 9, 1)"
                                        << "a row of samples is wrong";
    QTest::newRow("a reason that is none")
        << "INSERT INTO gaps(tag, since, reason, behind) VALUES(1, 1700000000001, 'asleep', 0)"
        << "a row of gaps is wrong";
}

void RecordingReaderTest::aWrongDatabaseRowIsTold()
{
    QFETCH(QString, change);
    QFETCH(QString, fault);
    const QString path = m_folder.path("wrong.sqlite");
    QFile::remove(path);
    const std::unique_ptr<RecordingWriter> writer = recordingWriterFor(path, false);
    QString error;
    QVERIFY(writer->open(path, pumpTags(), &error));
    QVERIFY(writer->close());
    {
        SqliteConnection connection;
        QVERIFY(connection.open(path, &error) && connection.run(change, &error));
    }
    QCOMPARE(eventsOf(path), QStringList(path + QLatin1String(": ") + fault));
}

void RecordingReaderTest::whatIsNoRecording_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("fault");
    const QString none = QStringLiteral(": is no recording; kxhost record makes them");
    QTest::newRow("empty") << QByteArray() << none;
    QTest::newRow("tags") << QByteArray("name,address\nP,D0\n") << none;
    QTest::newRow("half a header") << QByteArray("time,D0@1,gaps") << none;
    QTest::newRow("bytes") << QByteArray("\x00\x01\x02", 3) << none;
    QTest::newRow("half a database") << QByteArray("SQLite format 3\0half", 20)
                                     << QStringLiteral(": cannot be read: file is not a database");
}

void RecordingReaderTest::whatIsNoRecording()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, fault);
    const QString path = m_folder.path("none");
    RecordingFolder::write(path, content);
    QCOMPARE(eventsOf(path), QStringList(path + fault));
    QCOMPARE(eventsOf(QStringLiteral("/none/a.csv")),
             QStringList("/none/a.csv: No such file or directory"));
}

// The log of a database that nobody has open would look like one that was not closed.
void RecordingReaderTest::readingLeavesNothingBehind()
{
    const QString path = m_folder.path("clean.sqlite");
    const std::unique_ptr<RecordingWriter> writer = recordingWriterFor(path, false);
    QString error;
    QVERIFY(writer->open(path, pumpTags(), &error));
    writer->sample(START, 0, number("1"));
    QVERIFY(writer->close());
    QCOMPARE(eventsOf(path), QStringList("0 0 1"));
    QVERIFY(!QFile::exists(path + QLatin1String("-wal")));
    QVERIFY(!QFile::exists(path + QLatin1String("-shm")));
}

QTEST_GUILESS_MAIN(RecordingReaderTest)
#include "tst_recording_reader.moc"
