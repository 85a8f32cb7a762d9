#include "panel/plan/watched_ranges.h"

#include <QtCore/QStringList>
#include <QtTest/QTest>

using namespace kx;

class WatchedRangesTest : public QObject
{
    Q_OBJECT

private slots:
    void whatIsWatchedOfARangeIsFound_data();
    void whatIsWatchedOfARangeIsFound();
};

namespace
{

QList<AddressRange> ranges(const QString& words)
{
    QList<AddressRange> ranges;
    for (const QString& word : words.split(QLatin1Char(' '))) {
        AddressRange range;
        QString error;
        if (!parseAddressRange(word, &range, &error))
            qFatal("%s", qPrintable(error));
        if (range.station < 0)
            range.station = 1;
        ranges << range;
    }
    return ranges;
}

} // namespace

void WatchedRangesTest::whatIsWatchedOfARangeIsFound_data()
{
    QTest::addColumn<QString>("watched");
    QTest::addColumn<QString>("covered");
    QTest::addColumn<QString>("found");
    const auto row = [](const char* name, const char* watched, const char* covered,
                        const char* found) {
        QTest::newRow(name) << QString::fromLatin1(watched) << QString::fromLatin1(covered)
                            << QString::fromLatin1(found);
    };
    row("the same", "D100:4", "D100:4", "D100:4@1");
    row("inside", "D101:2", "D100:4", "D101:2@1");
    row("around", "D90:30", "D100:4", "D100:4@1");
    row("reaching in from below", "D98:4", "D100:4", "D100:2@1");
    row("reaching out above", "D102:9", "D100:4", "D102:2@1");
    row("ending just below", "D98:2", "D100:4", "");
    row("beginning just above", "D104:2", "D100:4", "");
    row("on both sides only", "D98:2 D104:2", "D100:4", "");
    row("with gaps, in any order", "D103 D100 D98:2 D104", "D100:4", "D100:1@1 D103:1@1");
    row("touching is one", "D102:2 D100:2", "D100:4", "D100:4@1");
    row("twice", "D100 D100", "D100:4", "D100:1@1");
    row("behind a short one that lies inside a long one", "D90:30 D95", "D100:4", "D100:4@1");
    row("beside the same of another station", "D100@1 D101@2", "D100:4@2", "D101:1@2");
    row("other stations, before and behind", "D100@1 D100@3", "D100@2", "");
    row("other types, before and behind", "S100 D101 SD100", "D100:4", "D101:1@1");
    row("octal", "X7:2", "X6:4", "X7:2@1");
    row("counters", "32CV200 32CV202", "32CV200:3", "32CV200:1@1 32CV202:1@1");
}

void WatchedRangesTest::whatIsWatchedOfARangeIsFound()
{
    QFETCH(QString, watched);
    QFETCH(QString, covered);
    QStringList found;
    for (const AddressRange& range : WatchedRanges(ranges(watched)).within(ranges(covered).first()))
        found << QStringLiteral("%1:%2@%3")
                     .arg(addressText(range.type, range.address))
                     .arg(range.values)
                     .arg(range.station);
    QTEST(found.join(QLatin1Char(' ')), "found");
}

QTEST_APPLESS_MAIN(WatchedRangesTest)
#include "tst_watched_ranges.moc"
