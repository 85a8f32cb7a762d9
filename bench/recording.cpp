// Values recorded per second, as they come from a watch of 1,000 values each second.
#include "recording/recorder.h"

#include <benchmark/benchmark.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryDir>

namespace
{

const int TAGS = 1000;
const qint64 START = 1700000000000; // milliseconds since 1970
const qint64 SECOND = 1000;
const qint64 LARGEST_FILE = 64 * 1024 * 1024; // bytes

void record(benchmark::State& state, const char* name)
{
    const QTemporaryDir folder;
    kx::RecorderSettings settings;
    settings.path = folder.filePath(QString::fromLatin1(name));
    settings.every = SECOND;
    settings.rotation.bytes = LARGEST_FILE;
    QList<kx::RecordedTag> tags;
    for (int i = 0; i < TAGS; ++i)
        tags << kx::RecordedTag{QString(), 1, QString::fromLatin1("D%1").arg(i), QString()};
    kx::Recorder recorder(settings);
    QString error;
    if (!recorder.open(tags, START, &error))
        state.SkipWithError(qPrintable(error));
    const kx::RecordedValue values[] = {{QString::fromLatin1("1234"), true},
                                        {QString::fromLatin1("65535"), true}};
    qint64 now = START;
    for (auto _ : state) {
        now += SECOND;
        for (int tag = 0; tag < TAGS; ++tag)
            recorder.onRead(now, tag, values[now / SECOND % 2]);
        recorder.sample(now);
        recorder.serve(now + SECOND / 2);
    }
    recorder.finish(now + SECOND);
    if (!recorder.failure().isEmpty())
        state.SkipWithError(qPrintable(recorder.failure()));
    state.SetItemsProcessed(recorder.samples());
}

BENCHMARK_CAPTURE(record, csv_samples, "bench.csv")->Name("record_csv");
BENCHMARK_CAPTURE(record, sqlite_samples, "bench.sqlite")->Name("record_sqlite");

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv); // Qt's plug-ins need one
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
