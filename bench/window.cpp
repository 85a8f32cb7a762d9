// What a frame of the window's grid costs with 10,000 values that all were read since the last one:
// the readings are taken and the rows that are seen painted.

#include "kxpanel/grid/watch_page.h"
#include "kxpanel/grid/watch_table.h"
#include "kxpanel/tags/tag_list.h"
#include "kxpanel/tags/tag_text.h"

#include <benchmark/benchmark.h>

#include <QtWidgets/QApplication>

using namespace kxpanel;

namespace
{

const int VALUES = 10000;
const int WIDTH = 1280; // pixels
const int HEIGHT = 800; // pixels

QList<kx::Tag> manyTags()
{
    QList<kx::Tag> tags;
    for (const char* const typed : {"D0:4000/s16*0.1,unit=bar", "D4000:1000/float", "M0:5000"}) {
        kx::Tag tag;
        QString fault;
        if (!parseTypedTag(QString::fromLatin1(typed), 1, &tag, &fault))
            qFatal("%s: %s", typed, qPrintable(fault));
        tag.name = QStringLiteral("Value");
        tags << tag;
    }
    return tags;
}

QVector<Reading> readingsOf(const TagList& tags, qint64 raw)
{
    QVector<Reading> readings;
    for (const WatchedValue& value : tags.values()) {
        Reading reading;
        reading.number = value.number;
        reading.state = kx::WatchState::Ok;
        for (int i = 0; i < value.tag.range.values; ++i)
            reading.raw << raw;
        reading.readAt = QDateTime::currentMSecsSinceEpoch();
        reading.changedAt = reading.readAt;
        readings << reading;
    }
    return readings;
}

void oneFrame(benchmark::State& state)
{
    Machine machine;
    TagList tags;
    tags.insert(0, manyTags());
    if (tags.size() != VALUES)
        qFatal("%d values", tags.size());
    WatchPage page({&machine, &tags});
    auto* const table = page.findChild<WatchTable*>();
    page.resize(WIDTH, HEIGHT);
    page.show();
    QCoreApplication::processEvents();
    const QVector<Reading> readings[] = {readingsOf(tags, 0), readingsOf(tags, 1)};
    int turn = 0;
    for (auto _ : state) {
        tags.takeReadings(readings[++turn % 2]);
        table->refreshVisible();
        table->viewport()->repaint();
    }
}

} // namespace

BENCHMARK(oneFrame)->Name("a frame of 10,000 values")->Unit(benchmark::kMillisecond);

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
