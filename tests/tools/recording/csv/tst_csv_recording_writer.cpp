#include "recording/csv/csv_recording_writer.h"

#include "tools/recording/recording_folder.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

const char HEADER[] = "time,Pressure D100@1 [bar],Y10@2,gaps\n";

} // namespace

class CsvRecordingWriterTest : public QObject
{
    Q_OBJECT

private slots:
    void aRowPerTime();
    void rowsOfChangesAreWhole();
    void aTagHasOneRecordInARow();
    void spreadsheetsAreToldOfUtf8();
    void nothingIsInTheFileBeforeItIsFlushed();
    void goesOnBehindAStop();
    void goesOnWhereAnotherWasEndedFromOutside();
    void aTornRowIsCutOff();
    void otherFilesAreLeftAlone_data();
    void otherFilesAreLeftAlone();
    void cannotBeOpened_data();
    void cannotBeOpened();
    void oneProgramAtATime();
    void aFullDiskLeavesWholeRows();

private:
    RecordingFolder m_folder;
};

void CsvRecordingWriterTest::aRowPerTime()
{
    const QString path = m_folder.path("rows.csv");
    CsvRecordingWriter writer(false);
    QString error;
    QVERIFY(writer.open(path, pumpTags(), &error));
    for (const int tag : {0, 1})
        writer.gap(START, tag, GapReason::NotYetRead);
    writer.sample(START + 1000, 0, number("4.5"));
    writer.sample(START + 1000, 1, number("1"));
    writer.sample(START + 2000, 0, number("4.5"));
    writer.gap(START + 2000, 1, GapReason::Refused);
    writer.sample(START + 3000, 0, number("4.6"));
    QVERIFY(writer.close());
    QCOMPARE(RecordingFolder::contentOf(path),
             HEADER
                 + QByteArray("2023-11-14T22:13:20.000Z,,,not yet read\n"
                              "2023-11-14T22:13:21.000Z,4.5,1,\n"
                              "2023-11-14T22:13:22.000Z,4.5,,refused: Y10@2\n"
                              "2023-11-14T22:13:23.000Z,4.6,,\n"));
}

// A spreadsheet need not look for the value above, and an empty field is a gap for sure.
void CsvRecordingWriterTest::rowsOfChangesAreWhole()
{
    const QString path = m_folder.path("changes.csv");
    CsvRecordingWriter writer(true);
    QString error;
    QVERIFY(writer.open(path, pumpTags(), &error));
    writer.sample(START, 0, number("4.5"));
    writer.sample(START, 1, number("1"));
    writer.sample(START + 7, 0, number("4.6"));
    writer.gap(START + 8, 1, GapReason::NoAnswer);
    writer.sample(START + 9, 0, number("4.7"));
    QVERIFY(writer.close());
    QCOMPARE(RecordingFolder::contentOf(path),
             HEADER
                 + QByteArray("2023-11-14T22:13:20.000Z,4.5,1,\n"
                              "2023-11-14T22:13:20.007Z,4.6,1,\n"
                              "2023-11-14T22:13:20.008Z,4.6,,no answer: Y10@2\n"
                              "2023-11-14T22:13:20.009Z,4.7,,\n"));
}

void CsvRecordingWriterTest::aTagHasOneRecordInARow()
{
    const QString path = m_folder.path("same.csv");
    CsvRecordingWriter writer(true);
    QString error;
    QVERIFY(writer.open(path, pumpTags(), &error));
    writer.gap(START, 0, GapReason::NotYetRead);
    writer.sample(START, 0, number("4.5"));
    writer.gap(START, 0, GapReason::RecorderStopped);
    QVERIFY(writer.close());
    QCOMPARE(RecordingFolder::contentOf(path),
             HEADER
                 + QByteArray("2023-11-14T22:13:20.000Z,,,not yet read: D100@1\n"
                              "2023-11-14T22:13:20.000Z,4.5,,\n"
                              "2023-11-14T22:13:20.000Z,,,recorder stopped: D100@1\n"));
}

void CsvRecordingWriterTest::spreadsheetsAreToldOfUtf8()
{
    const QString path = m_folder.path("degrees.csv");
    CsvRecordingWriter writer(false);
    QString error;
    const RecordedTag oil = {QStringLiteral("Oil"), 1, QStringLiteral("D7"),
                             QString::fromUtf8("\xC2\xB0"
                                               "C")};
    QVERIFY(writer.open(path, {oil}, &error));
    writer.sample(START, 0, number("61"));
    QVERIFY(writer.close());
    QCOMPARE(RecordingFolder::contentOf(path), QByteArray("\xEF\xBB\xBFtime,Oil D7@1 [\xC2\xB0"
                                                          "C],gaps\n"
                                                          "2023-11-14T22:13:20.000Z,61,\n"));
    QCOMPARE(eventsOf(path), QStringList(QStringLiteral("0 0 61")));
}

void CsvRecordingWriterTest::nothingIsInTheFileBeforeItIsFlushed()
{
    const QString path = m_folder.path("waiting.csv");
    CsvRecordingWriter writer(false);
    QString error;
    QVERIFY(writer.open(path, pumpTags(), &error));
    writer.sample(START, 0, number("4.5"));
    QCOMPARE(RecordingFolder::contentOf(path), QByteArray(HEADER));
    QCOMPARE(writer.size(), qint64(sizeof HEADER - 1));
    QVERIFY(writer.flush());
    QCOMPARE(RecordingFolder::contentOf(path),
             HEADER + QByteArray("2023-11-14T22:13:20.000Z,4.5,,\n"));
    QCOMPARE(writer.size(), qint64(sizeof HEADER - 1 + 31));
}

void CsvRecordingWriterTest::goesOnBehindAStop()
{
    const QString path = m_folder.path("again.csv");
    const QByteArray before = HEADER
                              + QByteArray("2023-11-14T22:13:20.000Z,4.5,1,\n"
                                           "2023-11-14T22:13:20.500Z,,,recorder stopped\n");
    RecordingFolder::write(path, before);
    CsvRecordingWriter writer(false);
    QString error;
    QVERIFY2(writer.open(path, pumpTags(), &error), qPrintable(error));
    writer.sample(START + 9000, 1, number("0"));
    QVERIFY(writer.close());
    QCOMPARE(RecordingFolder::contentOf(path), before + "2023-11-14T22:13:29.000Z,,0,\n");
}

void CsvRecordingWriterTest::goesOnWhereAnotherWasEndedFromOutside()
{
    const QString path = m_folder.path("killed.csv");
    const QByteArray before = HEADER + QByteArray("2023-11-14T22:13:20.000Z,4.5,1,\n");
    RecordingFolder::write(path, before);
    CsvRecordingWriter writer(false);
    QString error;
    QVERIFY2(writer.open(path, pumpTags(), &error), qPrintable(error));
    writer.sample(START + 9000, 1, number("0"));
    QVERIFY(writer.close());
    QCOMPARE(RecordingFolder::contentOf(path), before
                                                   + "2023-11-14T22:13:20.000Z,,,recorder stopped\n"
                                                     "2023-11-14T22:13:29.000Z,,0,\n");
}

void CsvRecordingWriterTest::aTornRowIsCutOff()
{
    const QString path = m_folder.path("torn.csv");
    RecordingFolder::write(path, HEADER
                                     + QByteArray("2023-11-14T22:13:20.000Z,4.5,1,\n"
                                                  "2023-11-14T22:13:21.000Z,4."));
    CsvRecordingWriter writer(false);
    QString error;
    QVERIFY2(writer.open(path, pumpTags(), &error), qPrintable(error));
    QVERIFY(writer.close());
    QCOMPARE(RecordingFolder::contentOf(path),
             HEADER
                 + QByteArray("2023-11-14T22:13:20.000Z,4.5,1,\n"
                              "2023-11-14T22:13:20.000Z,,,recorder stopped\n"));
}

void CsvRecordingWriterTest::otherFilesAreLeftAlone_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("fault");
    const QString other = QStringLiteral(
        ": holds something else than a recording of these tags; name another file, or move this "
        "one away");
    QTest::newRow("other tags") << QByteArray("time,Y10@2,gaps\n") << other;
    QTest::newRow("one tag more") << QByteArray("time,Pressure D100@1 [bar],Y10@2,M0@1,gaps\n")
                                  << other;
    QTest::newRow("no recording") << QByteArray("dear diary\n") << other;
    QTest::newRow("a part of the header") << QByteArray("time,Press") << other;
    QTest::newRow("a last row that is none") << HEADER + QByteArray("total,3,4,\n")
                                             << ": its last row cannot be read: the time is wrong";
}

void CsvRecordingWriterTest::otherFilesAreLeftAlone()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, fault);
    const QString path = m_folder.path("other.csv");
    RecordingFolder::write(path, content);
    CsvRecordingWriter writer(false);
    QString error;
    QVERIFY(!writer.open(path, pumpTags(), &error));
    QCOMPARE(error, path + fault);
    QCOMPARE(RecordingFolder::contentOf(path), content);
}

void CsvRecordingWriterTest::cannotBeOpened_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("fault");
    QTest::newRow("no such folder") << "/none/a.csv"
                                    << ": cannot be written: No such file or directory";
    QTest::newRow("full") << "/dev/full"
                          << ": cannot be written: No space left on device";
    QTest::newRow("a folder") << "/dev"
                              << ": cannot be written: Is a directory";
}

void CsvRecordingWriterTest::cannotBeOpened()
{
    QFETCH(QString, path);
    CsvRecordingWriter writer(false);
    QString error;
    QVERIFY(!writer.open(path, pumpTags(), &error));
    const QString fault = error.mid(path.size());
    QVERIFY2(error.startsWith(path), qPrintable(error));
    QTEST(fault, "fault");
}

void CsvRecordingWriterTest::oneProgramAtATime()
{
    const QString path = m_folder.path("shared.csv");
    CsvRecordingWriter first(false);
    CsvRecordingWriter second(false);
    QString error;
    QVERIFY(first.open(path, pumpTags(), &error));
    QVERIFY(!second.open(path, pumpTags(), &error));
    QCOMPARE(error, path + QStringLiteral(": another program records into it"));
    QVERIFY(first.close());
    QVERIFY(second.open(path, pumpTags(), &error));
}

// The disk takes the first row and a part of the second one.
void CsvRecordingWriterTest::aFullDiskLeavesWholeRows()
{
    const QString path = m_folder.path("full.csv");
    CsvRecordingWriter writer(false);
    QString error;
    QVERIFY(writer.open(path, pumpTags(), &error));
    writer.sample(START, 0, number("4.5"));
    writer.sample(START + 1000, 0, number("4.6"));
    {
        const FullDisk full(sizeof HEADER - 1 + 31 + 10);
        QVERIFY(!writer.flush());
    }
    QCOMPARE(writer.failure(), path + QStringLiteral(": cannot go on recording: File too large"));
    writer.sample(START + 2000, 0, number("4.7"));
    QVERIFY(!writer.close());
    QCOMPARE(RecordingFolder::contentOf(path),
             HEADER + QByteArray("2023-11-14T22:13:20.000Z,4.5,,\n"));
}

QTEST_APPLESS_MAIN(CsvRecordingWriterTest)
#include "tst_csv_recording_writer.moc"
