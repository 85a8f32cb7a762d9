#include "recording/csv/csv_recording_text.h"

#include "tools/recording/recording_folder.h"

#include <QtTest/QTest>

using namespace kx;

Q_DECLARE_METATYPE(kx::RecordedTag)

class CsvRecordingTextTest : public QObject
{
    Q_OBJECT

private slots:
    void aHeadingTellsTheTag_data();
    void aHeadingTellsTheTag();
    void aForeignHeaderIsNone_data();
    void aForeignHeaderIsNone();
    void aNameThatCannotBeShownIsWrittenTheSameAgain();
    void valuesAndText_data();
    void valuesAndText();
    void gapsNameTheirTagsUnlessAllAreMeant();
    void aRowIsRead();
    void aWrongRowIsTold_data();
    void aWrongRowIsTold();
};

void CsvRecordingTextTest::aHeadingTellsTheTag_data()
{
    QTest::addColumn<RecordedTag>("tag");
    QTest::addColumn<QByteArray>("heading");
    QTest::newRow("a typed address") << RecordedTag{{}, 1, "X17", {}} << QByteArray("X17@1");
    QTest::newRow("a name and a unit")
        << RecordedTag{"Pressure", 247, "D100", "bar"} << QByteArray("Pressure D100@247 [bar]");
    QTest::newRow("a name that looks like an address")
        << RecordedTag{"D1@2 D3", 4, "D5", {}} << QByteArray("D1@2 D3 D5@4");
    QTest::newRow("a unit without a name")
        << RecordedTag{{}, 1, "D5/s16*0.1", "m/s"} << QByteArray("D5/s16*0.1@1 [m/s]");
    QTest::newRow("a separator in the format")
        << RecordedTag{"Sum", 1, "D5/u32,high", {}} << QByteArray("\"Sum D5/u32,high@1\"");
    QTest::newRow("a quote in the name")
        << RecordedTag{"1/2\" valve", 1, "Y0", {}} << QByteArray("\"1/2\"\" valve Y0@1\"");
}

void CsvRecordingTextTest::aHeadingTellsTheTag()
{
    QFETCH(RecordedTag, tag);
    QFETCH(QByteArray, heading);
    const QByteArray header = csvHeader({tag});
    QCOMPARE(header, "time," + heading + ",gaps\n");
    QList<RecordedTag> tags;
    QVERIFY(parseCsvHeader(header.chopped(1), &tags));
    QCOMPARE(tags, QList<RecordedTag>{tag});
}

void CsvRecordingTextTest::aForeignHeaderIsNone_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("tags") << QByteArray("name,station,address");
    QTest::newRow("no tag at all") << QByteArray("time,gaps");
    QTest::newRow("a column without an address") << QByteArray("time,Pressure,gaps");
    QTest::newRow("no gaps") << QByteArray("time,D0@1,D1@1");
    QTest::newRow("an open quote") << QByteArray("time,\"D0@1,gaps");
    QTest::newRow("a station that cannot be") << QByteArray("time,D0@248,gaps");
    QTest::newRow("station 0") << QByteArray("time,D0@0,gaps");
}

void CsvRecordingTextTest::aForeignHeaderIsNone()
{
    QFETCH(QByteArray, header);
    QList<RecordedTag> tags;
    QVERIFY(!parseCsvHeader(header, &tags));
}

void CsvRecordingTextTest::aNameThatCannotBeShownIsWrittenTheSameAgain()
{
    const QByteArray header = csvHeader({{QStringLiteral("a\x7F"), 1, QStringLiteral("D0"), {}}});
    QCOMPARE(header, QByteArray("\xEF\xBB\xBFtime,a\xEF\xBF\xBD D0@1,gaps\n"));
    QList<RecordedTag> tags;
    QVERIFY(parseCsvHeader(header.chopped(1), &tags));
    QCOMPARE(csvHeader(tags), header);
}

void CsvRecordingTextTest::valuesAndText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<QByteArray>("field");
    QTest::newRow("a number stands bare") << "-1.5" << true << QByteArray("-1.5");
    QTest::newRow("text in quotes") << "on" << false << QByteArray("\"on\"");
    QTest::newRow("digits that are text") << "007" << false << QByteArray("\"007\"");
    QTest::newRow("quotes in text") << "a \"b\"" << false << QByteArray("\"a \"\"b\"\"\"");
    QTest::newRow("no text") << "" << false << QByteArray("\"\"");
    QTest::newRow("a line end") << "a\nb" << false
                                << QByteArray("\"a\xEF\xBF\xBD"
                                              "b\"");
}

void CsvRecordingTextTest::valuesAndText()
{
    QFETCH(QString, text);
    QFETCH(bool, isNumber);
    QTEST(csvValue({text, isNumber}), "field");
}

void CsvRecordingTextTest::gapsNameTheirTagsUnlessAllAreMeant()
{
    const QList<RecordedTag> tags = pumpTags();
    QCOMPARE(csvGaps({}, tags), QByteArray());
    QCOMPARE(csvGaps({{GapReason::LineLost, {0, 1}}}, tags), QByteArray("line lost"));
    QCOMPARE(csvGaps({{GapReason::NoAnswer, {0}}, {GapReason::Refused, {1}}}, tags),
             QByteArray("no answer: D100@1; refused: Y10@2"));
}

void CsvRecordingTextTest::aRowIsRead()
{
    QList<RecordedEvent> events;
    QString fault;
    QVERIFY(parseCsvRow("2023-11-14T22:13:20.250Z,,\"on\",no answer: D100@1", pumpTags(), &events,
                        &fault));
    QCOMPARE(events.size(), 2);
    QCOMPARE(events.at(0).time, START + 250);
    QCOMPARE(events.at(0).tag, 1);
    QVERIFY(!events.at(0).isGap);
    QVERIFY(events.at(0).value == (RecordedValue{QStringLiteral("on"), false}));
    QCOMPARE(events.at(1).time, START + 250);
    QCOMPARE(events.at(1).tag, 0);
    QVERIFY(events.at(1).isGap);
    QCOMPARE(events.at(1).reason, GapReason::NoAnswer);
}

void CsvRecordingTextTest::aWrongRowIsTold_data()
{
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<QString>("fault");
    QTest::newRow("a field too few")
        << QByteArray("2023-11-14T22:13:20.250Z,1,2") << "3 fields instead of 4";
    QTest::newRow("one field") << QByteArray("2023-11-14T22:13:20.250Z") << "1 field instead of 4";
    QTest::newRow("no time") << QByteArray("soon,1,2,") << "the time is wrong";
    QTest::newRow("a time of no zone")
        << QByteArray("2023-11-14T22:13:20.250,1,2,") << "the time is wrong";
    QTest::newRow("a time with other marks")
        << QByteArray("2023-11%14T22:13:20.250Z,1,2,") << "the time is wrong";
    QTest::newRow("an unknown reason")
        << QByteArray("2023-11-14T22:13:20.250Z,,2,asleep: D100@1") << "the gaps are wrong";
    QTest::newRow("a gap of an unknown address")
        << QByteArray("2023-11-14T22:13:20.250Z,,2,no answer: D101@1") << "the gaps are wrong";
    QTest::newRow("a known and an unknown address")
        << QByteArray("2023-11-14T22:13:20.250Z,,,no answer: D100@1 Y10@1") << "the gaps are wrong";
    QTest::newRow("a mark between groups is damaged")
        << QByteArray("2023-11-14T22:13:20.250Z,,,no answer: D100@1;refused: Y10@2")
        << "the gaps are wrong";
    QTest::newRow("a digit is damaged")
        << QByteArray("2023-11-14T22:13:20.250Z,1r.5,2,") << "1r.5 is no number of D100@1";
    QTest::newRow("text without quotes")
        << QByteArray("2023-11-14T22:13:20.250Z,1,on,") << "on is no number of Y10@2";
    QTest::newRow("an open quote")
        << QByteArray("2023-11-14T22:13:20.250Z,\"on,2,") << "a quote is not closed";
}

void CsvRecordingTextTest::aWrongRowIsTold()
{
    QFETCH(QByteArray, row);
    QList<RecordedEvent> events;
    QString fault;
    QVERIFY(!parseCsvRow(row, pumpTags(), &events, &fault));
    QTEST(fault, "fault");
}

QTEST_APPLESS_MAIN(CsvRecordingTextTest)
#include "tst_csv_recording_text.moc"
