#include "kxpanel/trend/files/trend_file_writer.h"

#include "tools/recording/recording_folder.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using kxpanel::TrendChannel;
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

bool save(const QString& path, const QList<TrendChannel>& channels,
          const kxpanel::TrendRange& range, qint64 now, bool* isThinned, QString* error)
{
    kxpanel::TrendExport gathered;
    if (!kxpanel::gatherTrend(path, channels, range, now, &gathered, error))
        return false;
    *isThinned = gathered.isThinned;
    return kxpanel::writeTrend(gathered, error);
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be opened");
}

} // namespace

class TrendFileWriterTest : public QObject
{
    Q_OBJECT

private slots:
    void writesWhatIsShown();
    void theEndIsWhereNothingMoreIsKnown();
    void saysWhatIsThinned();
    void saysWhatHasMoreDigits();
    void whatWasBeforeTheRangeStaysOutOfIt();
    void replacesAFile();
    void faults();
    void aFullDiskLeavesTheFileThatWasThere_data();
    void aFullDiskLeavesTheFileThatWasThere();
    void twinsAreRefused();

private:
    QTemporaryDir m_folder;

    QString pathOf(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    void write(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), qint64(content.size()));
    }
};

void TrendFileWriterTest::writesWhatIsShown()
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
    QVERIFY2(save(pathOf("shown.csv"), {pressure, hidden, output}, {TEN, TEN + 5000}, TEN + 60000,
                  &isThinned, &error),
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

void TrendFileWriterTest::theEndIsWhereNothingMoreIsKnown()
{
    TrendChannel live = channelOf("", "D1");
    live.store->append(TEN, 1);
    QString error;
    bool isThinned = false;
    QVERIFY(save(pathOf("now.csv"), {live}, {TEN, TEN + 60000}, TEN + 2000, &isThinned, &error));
    QCOMPARE(contentOf(pathOf("now.csv")),
             QByteArray("time,D1@1,gaps\n"
                        "2026-11-23T10:00:00.000Z,1,\n"
                        "2026-11-23T10:00:02.001Z,,recorder stopped\n"));
    TrendChannel ended = live; // a recording, before the range
    ended.endsAt = TEN + 2000;
    QVERIFY(save(pathOf("now.csv"), {ended}, {TEN + 9000, TEN + 60000}, TEN + 70000, &isThinned,
                 &error));
    QCOMPARE(contentOf(pathOf("now.csv")),
             QByteArray("time,D1@1,gaps\n"
                        "2026-11-23T10:00:09.000Z,,recorder stopped\n"));
}

void TrendFileWriterTest::saysWhatIsThinned()
{
    TrendChannel channel = channelOf("", "D1");
    channel.store = std::make_shared<TrendStore>(64);
    for (int step = 0; step < 1000; ++step)
        channel.store->append(TEN + step, step);
    QString error;
    bool isThinned = false;
    const qint64 exact = channel.store->exactSince();
    QVERIFY(
        save(pathOf("thin.csv"), {channel}, {exact, TEN + 2000}, TEN + 1000, &isThinned, &error));
    QVERIFY(!isThinned);
    QVERIFY(save(pathOf("thin.csv"), {channel}, {exact - 1, TEN + 2000}, TEN + 1000, &isThinned,
                 &error));
    QVERIFY(isThinned);
}

/// Of old values spans are left, and a range begins within one: what was lowest before it was not
/// so when it began.
void TrendFileWriterTest::saysWhatHasMoreDigits()
{
    for (const int fine : {-1, kxpanel::TrendSample::ROUNDED}) {
        TrendChannel counter = channelOf("", "D1/u64");
        counter.places = 0;
        counter.store->append({TEN, 1e19, fine});
        kxpanel::TrendExport gathered;
        QString error;
        QVERIFY(kxpanel::gatherTrend(pathOf("long.csv"), {counter}, {TEN, TEN + 1}, TEN, &gathered,
                                     &error));
        QCOMPARE(gathered.isRounded, fine != -1);
        QVERIFY2(kxpanel::writeTrend(gathered, &error), qPrintable(error));
        QCOMPARE(contentOf(pathOf("long.csv")).split('\n').at(1),
                 fine == -1 ? QByteArray("2026-11-23T10:00:00.000Z,9999999999999999999,")
                            : QByteArray("2026-11-23T10:00:00.000Z,1e+19,"));
    }
}

void TrendFileWriterTest::whatWasBeforeTheRangeStaysOutOfIt()
{
    TrendChannel channel = channelOf("", "D1");
    channel.store = std::make_shared<TrendStore>(64);
    for (int step = 0; step < 1000; ++step) {
        const double value = step == 3 ? -50 : step == 5 ? 90 : step;
        channel.store->append(TEN + 1000 * step, value);
    }
    // Of the first 64 these are left: 0 at 0 s, -50 at 3 s, 90 at 5 s and 63 at 63 s.
    QString error;
    bool isThinned = false;
    QVERIFY(save(pathOf("old.csv"), {channel}, {TEN + 4000, TEN + 10000}, TEN + 1000000, &isThinned,
                 &error));
    QCOMPARE(contentOf(pathOf("old.csv")),
             QByteArray("time,D1@1,gaps\n"
                        "2026-11-23T10:00:04.000Z,-50,\n"
                        "2026-11-23T10:00:05.000Z,90,\n"
                        "2026-11-23T10:00:10.000Z,,recorder stopped\n"));
}

void TrendFileWriterTest::replacesAFile()
{
    TrendChannel channel = channelOf("", "D1");
    channel.store->append(TEN, 1);
    write(pathOf("old.csv"), "something else\n");
    QString error;
    bool isThinned = false;
    QVERIFY2(save(pathOf("old.csv"), {channel}, {TEN, TEN + 1}, TEN, &isThinned, &error),
             qPrintable(error));
    QVERIFY(contentOf(pathOf("old.csv")).startsWith("time,D1@1,gaps\n"));
}

void TrendFileWriterTest::faults()
{
    TrendChannel channel = channelOf("", "D1");
    QString error;
    bool isThinned = false;
    QVERIFY(!save(pathOf("a.csv"), {}, {TEN, TEN + 1}, TEN, &isThinned, &error));
    QCOMPARE(error, QString("No value is shown that could be saved"));
    QVERIFY(!save("a.txt", {channel}, {TEN, TEN + 1}, TEN, &isThinned, &error));
    QCOMPARE(error, QString("a.txt: its name must end with .csv or .sqlite"));
    QVERIFY(!save(pathOf("no/where.csv"), {channel}, {TEN, TEN + 1}, TEN, &isThinned, &error));
    QVERIFY(error.startsWith(pathOf("no/where.csv") + ": "));
}

void TrendFileWriterTest::aFullDiskLeavesTheFileThatWasThere_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("csv") << "full.csv";
    QTest::newRow("sqlite") << "full.sqlite";
}

void TrendFileWriterTest::aFullDiskLeavesTheFileThatWasThere()
{
    QFETCH(QString, name);
    const QString path = m_folder.filePath(name);
    write(path, "something else\n");
    TrendChannel channel = channelOf("", "D1");
    for (int step = 0; step < 8000; ++step)
        channel.store->append(TEN + step, step);
    QString error;
    bool isThinned = false;
    {
        const kx::FullDisk full(50000);
        QVERIFY(!save(path, {channel}, {TEN, TEN + 8000}, TEN + 8000, &isThinned, &error));
    }
    QVERIFY2(error.startsWith(path + ": "), qPrintable(error));
    QVERIFY2(!error.contains(".kxpanel-"), qPrintable(error));
    QCOMPARE(contentOf(path), QByteArray("something else\n"));
}

/// Gaps are told by station and address, so those of one would become the other's.
void TrendFileWriterTest::twinsAreRefused()
{
    TrendChannel live = channelOf("Level", "D1");
    TrendChannel recorded = channelOf("Level", "D1");
    live.number = 3;
    recorded.number = -1;
    QString error;
    bool isThinned = false;
    QVERIFY(!save(pathOf("twins.csv"), {live, recorded}, {TEN, TEN + 1}, TEN, &isThinned, &error));
    QCOMPARE(error, QString("D1 is shown twice; hide one of both"));
    recorded.isShown = false;
    QVERIFY(save(pathOf("twins.csv"), {live, recorded}, {TEN, TEN + 1}, TEN, &isThinned, &error));
    recorded.isShown = true;
    recorded.number = 4; // watched twice, and both are live
    QVERIFY(!save(pathOf("twins.csv"), {live, recorded}, {TEN, TEN + 1}, TEN, &isThinned, &error));
    recorded.station = 2;
    QVERIFY(save(pathOf("twins.csv"), {live, recorded}, {TEN, TEN + 1}, TEN, &isThinned, &error));
}

QTEST_GUILESS_MAIN(TrendFileWriterTest)
#include "tst_trend_file_writer.moc"
