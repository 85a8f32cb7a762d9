#include "kxpanel/trend/model/trend_file.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using kxpanel::TrendChannel;
using kxpanel::TrendFileReader;
using kxpanel::TrendRange;
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

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be opened");
}

QString samplesOf(const TrendChannel& channel)
{
    QStringList texts;
    for (const TrendSample& sample : channel.store->samples(0, TEN + 3600000)) {
        kx::GapReason reason = kx::GapReason::NotYetRead;
        QString text = QString::number(sample.value);
        if (sample.isGap())
            text = kxpanel::gapReasonOf(sample.value, &reason) ? kx::gapText(reason) : "no number";
        texts << QStringLiteral("%1 %2").arg(QString::number(sample.time - TEN), text);
    }
    return texts.join(", ");
}

} // namespace

class TrendFileTest : public QObject
{
    Q_OBJECT

private slots:
    void writesWhatIsShown();
    void theEndIsWhereNothingMoreIsKnown();
    void saysWhatIsThinned();
    void replacesAFile();
    void faults();
    void aRecordingBecomesChannels();
    void whatWasSavedIsOpened();
    void onlySoManyChannels();
    void whatIsNoRecordingIsRefused();

private:
    QTemporaryDir m_folder;

    QString pathOf(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    void write(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), qint64(content.size()));
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

void TrendFileTest::writesWhatIsShown()
{
    TrendChannel pressure = channelOf("Pressure", "D100/float", "bar");
    TrendChannel hidden = channelOf("Hidden", "D1");
    TrendChannel output = channelOf("", "Y10");
    hidden.isShown = false;
    pressure.store->append(TEN - 500, 4.5); // holds at the beginning
    pressure.store->append(TEN + 1000, kxpanel::gapValue(kx::GapReason::NoAnswer));
    pressure.store->append(TEN + 2000, 0.1);
    pressure.store->append(TEN + 9000, 7); // after the range
    output.store->append(TEN + 1000, 1);
    output.store->append(TEN + 1500, kxpanel::notANumber());

    QString error;
    bool isThinned = true;
    QVERIFY2(kxpanel::writeTrend(pathOf("shown.csv"), {pressure, hidden, output}, {TEN, TEN + 5000},
                                 TEN + 60000, &isThinned, &error),
             qPrintable(error));
    QVERIFY(!isThinned);
    QCOMPARE(contentOf(pathOf("shown.csv")),
             QByteArray("time,Pressure D100/float@1 [bar],Y10@1,gaps\n"
                        "2026-11-23T10:00:00.000Z,4.5,,\n"
                        "2026-11-23T10:00:01.000Z,,1,no answer: D100/float@1\n"
                        "2026-11-23T10:00:01.500Z,,\"nan\",\n"
                        "2026-11-23T10:00:02.000Z,0.1,,\n"
                        "2026-11-23T10:00:05.000Z,,,recorder stopped\n"));
    QCOMPARE(
        QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList{"shown.csv"});
}

void TrendFileTest::theEndIsWhereNothingMoreIsKnown()
{
    TrendChannel live = channelOf("", "D1");
    live.store->append(TEN, 1);
    QString error;
    bool isThinned = false;
    QVERIFY(kxpanel::writeTrend(pathOf("now.csv"), {live}, {TEN, TEN + 60000}, TEN + 2000,
                                &isThinned, &error));
    QCOMPARE(contentOf(pathOf("now.csv")),
             QByteArray("time,D1@1,gaps\n"
                        "2026-11-23T10:00:00.000Z,1,\n"
                        "2026-11-23T10:00:02.001Z,,recorder stopped\n"));
}

void TrendFileTest::saysWhatIsThinned()
{
    TrendChannel channel = channelOf("", "D1");
    channel.store = std::make_shared<TrendStore>(64);
    for (int step = 0; step < 1000; ++step)
        channel.store->append(TEN + step, step);
    QString error;
    bool isThinned = false;
    const qint64 exact = channel.store->exactSince();
    QVERIFY(kxpanel::writeTrend(pathOf("thin.csv"), {channel}, {exact, TEN + 2000}, TEN + 1000,
                                &isThinned, &error));
    QVERIFY(!isThinned);
    QVERIFY(kxpanel::writeTrend(pathOf("thin.csv"), {channel}, {exact - 1, TEN + 2000}, TEN + 1000,
                                &isThinned, &error));
    QVERIFY(isThinned);
}

void TrendFileTest::replacesAFile()
{
    TrendChannel channel = channelOf("", "D1");
    channel.store->append(TEN, 1);
    write(pathOf("old.csv"), "something else\n");
    QString error;
    bool isThinned = false;
    QVERIFY2(
        kxpanel::writeTrend(pathOf("old.csv"), {channel}, {TEN, TEN + 1}, TEN, &isThinned, &error),
        qPrintable(error));
    QVERIFY(contentOf(pathOf("old.csv")).startsWith("time,D1@1,gaps\n"));
}

void TrendFileTest::faults()
{
    TrendChannel channel = channelOf("", "D1");
    QString error;
    bool isThinned = false;
    QVERIFY(!kxpanel::writeTrend(pathOf("a.csv"), {}, {TEN, TEN + 1}, TEN, &isThinned, &error));
    QCOMPARE(error, QString("No value is shown that could be saved"));
    QVERIFY(!kxpanel::writeTrend("a.txt", {channel}, {TEN, TEN + 1}, TEN, &isThinned, &error));
    QCOMPARE(error, QString("a.txt: its name must end with .csv or .sqlite"));
    QVERIFY(!kxpanel::writeTrend(pathOf("no/where.csv"), {channel}, {TEN, TEN + 1}, TEN, &isThinned,
                                 &error));
    QVERIFY(error.startsWith(pathOf("no/where.csv") + ": "));
}

void TrendFileTest::aRecordingBecomesChannels()
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
    QCOMPARE(pressure.name, QString("Pressure"));
    QCOMPARE(pressure.unit, QString("bar"));
    QCOMPARE(pressure.station, 3);
    QCOMPARE(pressure.endsAt, TEN + 3000);
    QVERIFY(!pressure.isDigital);
    QCOMPARE(samplesOf(pressure), QString("0 not yet read, 1000 4.5, 2000 no answer, 3000 5"));
    const TrendChannel& output = reader.channels().at(1);
    QCOMPARE(output.number, -2);
    QCOMPARE(output.name, QString("Y10"));
    QVERIFY(output.isDigital);
    QCOMPARE(samplesOf(output), QString("0 not yet read, 1000 1, 2000 no number, 3000 0"));
}

void TrendFileTest::whatWasSavedIsOpened()
{
    for (const char* const name : {"again.csv", "again.sqlite"}) {
        TrendChannel channel = channelOf("Level", "D7/double", "mm");
        channel.store->append(TEN, 0.30000000000000004); // all 17 digits come back
        channel.store->append(TEN + 1000, kxpanel::gapValue(kx::GapReason::LineLost));
        channel.store->append(TEN + 2000, -1e300);
        QString error;
        bool isThinned = false;
        QVERIFY2(kxpanel::writeTrend(pathOf(name), {channel}, {TEN, TEN + 3000}, TEN + 9000,
                                     &isThinned, &error),
                 qPrintable(error));
        TrendFileReader reader;
        read(&reader, pathOf(name));
        const TrendChannel& again = reader.channels().at(0);
        QCOMPARE(samplesOf(again),
                 QString("0 0.3, 1000 line lost, 2000 -1e+300, 3000 recorder stopped"));
        QCOMPARE(again.store->between(TEN, TEN + 1).lowest.value, 0.30000000000000004);
        QCOMPARE(again.unit, QString("mm"));
    }
}

void TrendFileTest::onlySoManyChannels()
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

void TrendFileTest::whatIsNoRecordingIsRefused()
{
    write(pathOf("other.csv"), "name,address\nPump,Y10\n");
    TrendFileReader reader;
    QString error;
    QVERIFY(!reader.open(pathOf("other.csv"), &error));
    QVERIFY(error.startsWith(pathOf("other.csv")));
    QVERIFY(!reader.isReading());
}

QTEST_GUILESS_MAIN(TrendFileTest)
#include "tst_trend_file.moc"
