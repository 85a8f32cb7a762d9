#include "kxpanel/trend/files/trend_file_reader.h"

#include "kxpanel/trend/files/trend_file_writer.h"

#include <QtCore/QDateTime>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using kxpanel::TrendChannel;
using kxpanel::TrendFileReader;
using kxpanel::TrendSample;
using kxpanel::TrendStore;

namespace
{

const qint64 TEN = 1795428000000; // 2026-11-23T10:00:00Z, in milliseconds since 1970

TrendChannel channelOf(const char* name, const char* address, const char* unit = "")
{
    TrendChannel channel;
    channel.tagName = QLatin1String(name);
    channel.station = 1;
    channel.address = QLatin1String(address);
    channel.unit = QLatin1String(unit);
    channel.store = std::make_shared<TrendStore>();
    return channel;
}

QString samplesOf(const TrendChannel& channel)
{
    QStringList texts;
    for (const TrendSample& sample : channel.store->samples(0, TEN + 3600000)) {
        kx::GapReason reason = kx::GapReason::NotYetRead;
        QString text = QString::number(sample.value);
        if (sample.isGap())
            text = kxpanel::gapReasonOf(sample.value, &reason) ? kx::gapText(reason) : "no number";
        texts << QStringLiteral("%1 %2").arg(QString::number(sample.time() - TEN), text);
    }
    return texts.join(", ");
}

} // namespace

class TrendFileReaderTest : public QObject
{
    Q_OBJECT

private slots:
    void aRecordingBecomesChannels();
    void whatWasSavedIsOpened();
    void longNumbersComeBackToTheirLastDigit();
    void textsOfDigitsAreNoNumbers();
    void namesOfNumbersAreNoNumbers_data();
    void namesOfNumbersAreNoNumbers();
    void eachValueOfALongRecordingIsKept();
    void theLongestRecordingTakesBoundedMemory();
    void ofMoreThanThereIsRoomForSomeAreKept();
    void onlySoManyChannels();
    void whatIsNoRecordingIsRefused();
    void anEmptyRecordingSaysSo();
    void aClockThatWasSetBack();
    void aDamagedRowEndsIt();

private:
    QTemporaryDir m_folder;

    QString pathOf(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    void write(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), qint64(content.size()));
    }

    /// One value each second, which goes up by one.
    QString countedFile(int rows)
    {
        QByteArray content = "time,D1@1,gaps\n";
        for (int row = 0; row < rows; ++row) {
            const QDateTime time = QDateTime::fromMSecsSinceEpoch(TEN + 1000 * row, Qt::UTC);
            content +=
                time.toString(Qt::ISODate).toLatin1() + ',' + QByteArray::number(row) + ",\n";
        }
        write(pathOf("counted.csv"), content);
        return pathOf("counted.csv");
    }

    void read(TrendFileReader* reader, const QString& path)
    {
        QString error;
        QSignalSpy ends(reader, &TrendFileReader::finished);
        QVERIFY2(reader->open(path, &error), qPrintable(error));
        QVERIFY(reader->isReading());
        QVERIFY(ends.wait());
        QVERIFY(!reader->isReading());
    }
};

void TrendFileReaderTest::aRecordingBecomesChannels()
{
    write(pathOf("line3.csv"), "time,Pressure D100/float@3 [bar],Y10@1,gaps\n"
                               "2026-11-23T10:00:00.000Z,,,not yet read\n"
                               "2026-11-23T10:00:01.000Z,4.5,1,\n"
                               "2026-11-23T10:00:02.000Z,,\"text\",no answer: D100/float@3\n"
                               "2026-11-23T10:00:03.000Z,5,0,\n");
    TrendFileReader reader;
    read(&reader, pathOf("line3.csv"));
    QCOMPARE(reader.remark(), QString());
    QCOMPARE(reader.range().from, TEN);
    QCOMPARE(reader.range().to, TEN + 3001);
    QCOMPARE(reader.channels().size(), 2);
    const TrendChannel& pressure = reader.channels().at(0);
    QCOMPARE(pressure.number, -1);
    QCOMPARE(pressure.name, QString("Pressure (recorded)"));
    QCOMPARE(pressure.unit, QString("bar"));
    QCOMPARE(pressure.station, 3);
    QCOMPARE(pressure.endsAt, TEN + 3000);
    QVERIFY(!pressure.isDigital);
    QCOMPARE(samplesOf(pressure), QString("0 not yet read, 1000 4.5, 2000 no answer, 3000 5"));
    const TrendChannel& output = reader.channels().at(1);
    QCOMPARE(output.number, -2);
    QCOMPARE(output.name, QString("Y10 (recorded)"));
    QVERIFY(output.isDigital);
    QCOMPARE(samplesOf(output), QString("0 not yet read, 1000 1, 2000 no number, 3000 0"));
}

void TrendFileReaderTest::whatWasSavedIsOpened()
{
    for (const char* const name : {"again.csv", "again.sqlite"}) {
        TrendChannel channel = channelOf("Level", "D7/double", "mm");
        channel.store->append(TEN, 0.30000000000000004); // all 17 digits come back
        channel.store->append(TEN + 1000, kxpanel::gapValue(kx::GapReason::LineLost));
        channel.store->append(TEN + 2000, -1e300);
        QString error;
        kxpanel::TrendExport gathered;
        QVERIFY(kxpanel::gatherTrend(pathOf(name), {channel}, {TEN, TEN + 3000}, TEN + 9000,
                                     &gathered, &error));
        QVERIFY2(kxpanel::writeTrend(gathered, &error), qPrintable(error));
        TrendFileReader reader;
        read(&reader, pathOf(name));
        const TrendChannel& again = reader.channels().at(0);
        QCOMPARE(samplesOf(again),
                 QString("0 0.3, 1000 line lost, 2000 -1e+300, 3000 recorder stopped"));
        QCOMPARE(again.store->between(TEN, TEN + 1).lowest.value, 0.30000000000000004);
        QCOMPARE(again.unit, QString("mm"));
    }
}

/// As tables and as databases, of which these have no whole numbers from 2^63 on.
void TrendFileReaderTest::longNumbersComeBackToTheirLastDigit()
{
    const QByteArray rows =
        "time,D1/u64@1,D5/s64*0.001@1,D9/u64@2,gaps\n"
        "2026-11-23T10:00:00.000Z,9007199254740993,-9223372036854775.808,1000000000000000,\n"
        "2026-11-23T10:00:01.000Z,18446744073709551615,0.001,10000000000000000000,\n"
        "2026-11-23T10:00:02.000Z,18446744073709551614,9223372036854775.807,"
        "12345678901234567890,\n"
        "2026-11-23T10:00:02.001Z,,,,recorder stopped\n";
    write(pathOf("long.csv"), rows);
    QString from = pathOf("long.csv");
    for (const char* const name : {"copy.sqlite", "copy.csv"}) {
        TrendFileReader reader;
        read(&reader, from);
        QString error;
        kxpanel::TrendExport gathered;
        QVERIFY(kxpanel::gatherTrend(pathOf(name), reader.channels(), {TEN, TEN + 2001}, TEN + 9000,
                                     &gathered, &error));
        QVERIFY2(kxpanel::writeTrend(gathered, &error), qPrintable(error));
        from = pathOf(name);
    }
    QFile copy(from);
    QVERIFY(copy.open(QIODevice::ReadOnly));
    QCOMPARE(copy.readAll(), rows);
}

/// A batch's name of digits is no counter.
void TrendFileReaderTest::textsOfDigitsAreNoNumbers()
{
    write(pathOf("batch.csv"), "time,Batch D1/ascii:8@1,D9/u64@1,gaps\n"
                               "2026-11-23T10:00:00.000Z,\"1234567890123456\",\"text\",\n");
    TrendFileReader reader;
    read(&reader, pathOf("batch.csv"));
    QCOMPARE(reader.channels().size(), 2);
    for (const TrendChannel& channel : reader.channels())
        QCOMPARE(samplesOf(channel), QString("0 no number"));
}

void TrendFileReaderTest::namesOfNumbersAreNoNumbers_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("none") << QByteArray("nan"); // as a trend is saved
    QTest::newRow("infinite") << QByteArray("inf");
    QTest::newRow("infinite below") << QByteArray("-inf");
}

/// Neither are they a gap.
void TrendFileReaderTest::namesOfNumbersAreNoNumbers()
{
    QFETCH(QByteArray, name);
    write(pathOf("names.csv"), "time,D1@1,D2/float@1,gaps\n2026-11-23T10:00:00.000Z,\"" + name
                                   + "\",\"" + name + "\",\n");
    TrendFileReader reader;
    read(&reader, pathOf("names.csv"));
    QCOMPARE(reader.channels().size(), 2);
    for (const TrendChannel& channel : reader.channels())
        QCOMPARE(samplesOf(channel), QString("0 no number"));
}

/// The file has them, so zooming in shows them.
void TrendFileReaderTest::eachValueOfALongRecordingIsKept()
{
    TrendFileReader reader;
    read(&reader, countedFile(20000));
    const TrendStore& store = *reader.channels().at(0).store;
    QCOMPARE(store.exactSince(), TEN);
    QCOMPARE(store.samples(TEN, TEN + 20000000).size(), 20000);
    QCOMPARE(reader.remark(), QString());
}

/// With the spans above the samples, however long a recording is.
void TrendFileReaderTest::theLongestRecordingTakesBoundedMemory()
{
    const qint64 most = 128 * 1024 * 1024;
    const qint64 ofOne = TrendStore::mostBytes(TrendFileReader::MOST_SAMPLES);
    QVERIFY2(ofOne < most, qPrintable(QString::number(ofOne)));
    const qint64 ofAll = 64 * TrendStore::mostBytes(); // none has less
    QVERIFY2(ofAll < most, qPrintable(QString::number(ofAll)));
}

void TrendFileReaderTest::ofMoreThanThereIsRoomForSomeAreKept()
{
    TrendFileReader reader(nullptr, 16384);
    read(&reader, countedFile(20000));
    const TrendStore& store = *reader.channels().at(0).store;
    QCOMPARE(store.begin(), TEN);
    QCOMPARE(store.exactSince(), TEN + 1000 * (20000 - 16384));
    QCOMPARE(reader.remark(),
             QString("Of its old values only some are shown, the lowest and highest among them"));
}

void TrendFileReaderTest::onlySoManyChannels()
{
    QByteArray header = "time";
    QByteArray row = "2026-11-23T10:00:00.000Z";
    for (int tag = 0; tag < 66; ++tag) {
        header += ",D" + QByteArray::number(tag) + "@1";
        row += ',' + QByteArray::number(tag);
    }
    write(pathOf("many.csv"), header + ",gaps\n" + row + ",\n");
    TrendFileReader reader;
    read(&reader, pathOf("many.csv"));
    QCOMPARE(reader.channels().size(), 64);
    QCOMPARE(reader.remark(), QString("The first 64 of its 66 values are shown"));
    QCOMPARE(samplesOf(reader.channels().at(63)), QString("0 63"));
}

void TrendFileReaderTest::whatIsNoRecordingIsRefused()
{
    write(pathOf("other.csv"), "name,address\nPump,Y10\n");
    TrendFileReader reader;
    QString error;
    QVERIFY(!reader.open(pathOf("other.csv"), &error));
    QVERIFY(error.startsWith(pathOf("other.csv")));
    QVERIFY(!reader.isReading());
}

void TrendFileReaderTest::anEmptyRecordingSaysSo()
{
    write(pathOf("empty.csv"), "time,D1@1,gaps\n");
    TrendFileReader reader;
    read(&reader, pathOf("empty.csv"));
    QCOMPARE(reader.remark(), QString("It holds no values"));
    QCOMPARE(reader.channels().size(), 1);
    QCOMPARE(reader.channels().at(0).endsAt, qint64(0));
    write(pathOf("nothing.csv"), "");
    QString error;
    QVERIFY(!reader.open(pathOf("nothing.csv"), &error));
}

/// One time axis cannot show both; all channels begin anew together, and it is said.
void TrendFileReaderTest::aClockThatWasSetBack()
{
    write(pathOf("back.csv"), "time,D1@1,D2@1,gaps\n"
                              "2026-11-23T11:00:00.000Z,1,2,\n"
                              "2026-11-23T11:00:30.000Z,1,5,\n"
                              "2026-11-23T11:00:29.000Z,3,5,\n" // by a second: nothing is lost
                              "2026-11-23T10:00:00.000Z,4,,\n"
                              "2026-11-23T10:00:01.000Z,5,6,\n");
    TrendFileReader reader;
    read(&reader, pathOf("back.csv"));
    QCOMPARE(reader.range().from, TEN);
    QCOMPARE(reader.range().to, TEN + 1001);
    QCOMPARE(samplesOf(reader.channels().at(0)), QString("0 4, 1000 5"));
    QCOMPARE(samplesOf(reader.channels().at(1)), QString("1000 6"));
    QCOMPARE(reader.remark(),
             QString("Its clock was set back by 1 h; what was before is not shown"));
}

void TrendFileReaderTest::aDamagedRowEndsIt()
{
    write(pathOf("damaged.csv"), "time,D1@1,gaps\n"
                                 "2026-11-23T10:00:00.000Z,1,\n"
                                 "2026-11-23T10:00:01.000Z,\x01\xFF,\n"
                                 "2026-11-23T10:00:02.000Z,3,\n");
    TrendFileReader reader;
    read(&reader, pathOf("damaged.csv"));
    QVERIFY2(reader.remark().startsWith(pathOf("damaged.csv") + ":3: "),
             qPrintable(reader.remark()));
    QCOMPARE(samplesOf(reader.channels().at(0)), QString("0 1"));
}

QTEST_GUILESS_MAIN(TrendFileReaderTest)
#include "tst_trend_file_reader.moc"
