// An hour of 1,000 values a second, by a clock of its own.

#include "recording/recorder.h"
#include "support/memory_use.h"
#include "tools/recording/recording_folder.h"

#include <QtCore/QDir>
#include <QtTest/QTest>

using namespace kx;

namespace
{

const int TAGS = 1000;
const int SECONDS = 3600;
const int WARM = 600;                        // seconds until all is in use that ever will be
const qint64 GROWTH = 256 * 1024;            // bytes
const qint64 LARGEST_FILE = 4 * 1024 * 1024; // bytes
const char* const LARGEST_VALUE = "65535";

} // namespace

class LongRecordingTest : public QObject
{
    Q_OBJECT

private slots:
    void memoryStaysFlat_data();
    void memoryStaysFlat();
};

void LongRecordingTest::memoryStaysFlat_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("table") << "hour.csv";
    QTest::newRow("database") << "hour.sqlite";
}

void LongRecordingTest::memoryStaysFlat()
{
    QFETCH(QString, name);
    const RecordingFolder folder;
    RecorderSettings settings;
    settings.path = folder.path(name.toLatin1());
    settings.every = 1000;
    settings.rotation.bytes = LARGEST_FILE;
    QList<RecordedTag> tags;
    for (int i = 0; i < TAGS; ++i)
        tags << RecordedTag{{}, 1, QStringLiteral("D%1").arg(i), {}};
    Recorder recorder(settings);
    QString error;
    QVERIFY(recorder.open(tags, START, &error));
    const RecordedValue values[] = {number(LARGEST_VALUE), number("0")};
    MemoryUse warm = {};
    for (int second = 1; second <= SECONDS; ++second) {
        const qint64 now = START + second * 1000;
        for (int tag = 0; tag < TAGS; ++tag)
            recorder.onRead(now, tag, values[second % 2]);
        recorder.sample(now);
        const QString file = recorder.file();
        if (recorder.serve(now + 500))
            QVERIFY(QFile::remove(file)); // else they take a hundred megabytes
        if (second == WARM)
            warm = memoryUse();
    }
    const MemoryUse end = memoryUse();
    recorder.finish(START + SECONDS * 1000 + 1);
    QCOMPARE(recorder.failure(), QString());
    QCOMPARE(recorder.samples(), qint64(TAGS) * SECONDS);
    if (!isMemoryMeasurable())
        return; // the values were recorded, which is the other half
    QVERIFY2(end.heap - warm.heap < GROWTH, qPrintable(QString::number(end.heap - warm.heap)));
    QVERIFY2(end.resident - warm.resident < GROWTH,
             qPrintable(QString::number(end.resident - warm.resident)));
}

QTEST_GUILESS_MAIN(LongRecordingTest)
#include "tst_long_recording.moc"
