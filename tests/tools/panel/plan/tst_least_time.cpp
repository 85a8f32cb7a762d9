// Requests that take the least time on the line.

#include "panel/plan/least_time.h"

#include "registers/register_types.h"
#include "tools/panel/plan/plain_cover.h"
#include "tools/panel/plan/range_texts.h"
#include "tools/panel/plan/tag_lists.h"

#include "support/growth.h"

#include <QtTest/QTest>

#include <algorithm>
#include <limits>
#include <random>

using namespace kx;

class LeastTimeTest : public QObject
{
    Q_OBJECT

private slots:
    void requestsSpanWhatIsWorthIt_data();
    void requestsSpanWhatIsWorthIt();
    void noRequestIsLongerThanAllowed_data();
    void noRequestIsLongerThanAllowed();
    void stationsAreAskedTheirOwnWay();
    void noPlanTakesLess_data();
    void noPlanTakesLess();
    void randomListsTakeNoMoreThanThePlainCover();
    void noValueIsCut_data();
    void noValueIsCut();
    void randomValuesTakeNoMoreThanAnyCover();
    void eightyThousandCoilsCostTenTimesEightThousand();
};

namespace
{

ReadRules rulesAt(int baud)
{
    ReadRules rules;
    rules.line.baud = baud;
    return rules;
}

bool reads(const AddressRange& piece, const AddressRange& value)
{
    return piece.address <= value.address
           && value.address + value.values <= piece.address + piece.values;
}

/// What is wrong with pieces of one type as requests for values; empty when nothing is.
QString faultOfValues(const QList<AddressRange>& values, const QList<AddressRange>& pieces,
                      int maxWords)
{
    for (const AddressRange& value : values) {
        const auto readsIt = [&](const AddressRange& piece) { return reads(piece, value); };
        if (std::none_of(pieces.begin(), pieces.end(), readsIt))
            return textOfRanges({value}) + QLatin1String(" is cut");
    }
    for (const AddressRange& piece : pieces) {
        const auto isIt = [&](const AddressRange& value) {
            return value.address == piece.address && value.values == piece.values;
        };
        if (piece.values > maxWords && std::none_of(values.begin(), values.end(), isIt))
            return textOfRanges({piece}) + QLatin1String(" is too long");
    }
    return QString();
}

/// The least of all sets of pieces from the beginning of a value to the end of one.
double leastTimeOfValues(const QList<AddressRange>& values, const ReadRules& rules)
{
    if (values.isEmpty())
        return 0;
    AddressRange first = values.first(); // the one that begins first has a piece that begins there
    for (const AddressRange& value : values) {
        if (value.address < first.address)
            first = value;
    }
    double least = std::numeric_limits<double>::max();
    for (const AddressRange& last : values) {
        AddressRange piece = first;
        piece.values = last.address + last.values - first.address;
        const bool isLong = piece.values > rules.usual.maxWords;
        const bool isOne =
            std::any_of(values.begin(), values.end(), [&](const AddressRange& value) {
                return value.address == piece.address && value.values == piece.values;
            });
        if (piece.values < 1 || (isLong && !isOne))
            continue;
        QList<AddressRange> rest;
        for (const AddressRange& value : values) {
            if (!reads(piece, value))
                rest << value;
        }
        if (rest.size() == values.size())
            continue;
        least = std::min(least, timeOf({piece}, rules.line, rules.usual.turnaround)
                                    + leastTimeOfValues(rest, rules));
    }
    return least;
}

} // namespace

// At 9600 baud a character takes 1041.667 us, the frame gap 3646 us. A further request costs
// 13 characters, 5000 us of turnaround and a gap: 22188 us, or 21.3 characters: ten registers.
void LeastTimeTest::requestsSpanWhatIsWorthIt_data()
{
    QTest::addColumn<QString>("watched");
    QTest::addColumn<int>("baud");
    QTest::addColumn<QString>("pieces");
    QTest::newRow("nothing") << "" << 9600 << "";
    QTest::newRow("a gap of ten registers is read along") << "D0@1 D11@1" << 9600 << "D0:12@1";
    QTest::newRow("a gap of eleven is not") << "D0@1 D12@1" << 9600 << "D0:1@1 D12:1@1";
    // 86.806 us; 13 characters, 5000 us and 1750 us: 7878 us, 90.8 characters: 45 registers.
    QTest::newRow("at 115200 baud a gap of 45 is") << "D0@1 D46@1" << 115200 << "D0:47@1";
    QTest::newRow("at 115200 baud a gap of 46 is not")
        << "D0@1 D47@1" << 115200 << "D0:1@1 D47:1@1";
    // Two registers each: five counters are ten registers.
    QTest::newRow("a gap of five counters is read along")
        << "32CV200@1 32CV206@1" << 9600 << "32CV200:7@1";
    QTest::newRow("a gap of six counters is not")
        << "32CV200@1 32CV207@1" << 9600 << "32CV200:1@1 32CV207:1@1";
    // M0 to M183 are 23 bytes, 21 more than two of one byte; M184 would need one more.
    QTest::newRow("coils cost a byte for each eight") << "M0@1 M183@1" << 9600 << "M0:184@1";
    QTest::newRow("a byte more is too much") << "M0@1 M184@1" << 9600 << "M0:1@1 M184:1@1";
    QTest::newRow("wherever in a byte they begin") << "M5@1 M188@1" << 9600 << "M5:184@1";
    QTest::newRow("wherever in a byte they end") << "M5@1 M189@1" << 9600 << "M5:1@1 M189:1@1";
    QTest::newRow("any order, twice, overlapping")
        << "D8:4@1 D0:2@1 D0:2@1 D1:3@1" << 9600 << "D0:12@1";
    QTest::newRow("stations and types apart")
        << "D1@2 D0@1 CV0@1 D1@1" << 9600 << "D0:2@1 CV0:1@1 D1:1@2";
}

void LeastTimeTest::requestsSpanWhatIsWorthIt()
{
    QFETCH(QString, watched);
    QFETCH(int, baud);
    QTEST(textOfRanges(leastTimePieces(rangesOf(watched), rulesAt(baud))), "pieces");
}

void LeastTimeTest::noRequestIsLongerThanAllowed_data()
{
    QTest::addColumn<QString>("watched");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<int>("maxBits");
    QTest::addColumn<QString>("pieces");
    QTest::newRow("registers") << "D0:300@1" << 125 << 2000 << "D0:125@1 D125:125@1 D250:50@1";
    QTest::newRow("counters, two registers each")
        << "32CV200:56@1" << 63 << 2000 << "32CV200:31@1 32CV231:25@1";
    QTest::newRow("a counter is not cut") << "32CV200:2@1" << 1 << 1 << "32CV200:1@1 32CV201:1@1";
    QTest::newRow("coils") << "M0:2048@1" << 1 << 2000 << "M0:2000@1 M2000:48@1";
    QTest::newRow("M from 2048 on stands elsewhere")
        << "M2040:16@1" << 125 << 2000 << "M2040:8@1 M2048:8@1";
    QTest::newRow("SM from 256 on stands elsewhere")
        << "SM255@1 SM256@1" << 125 << 2000 << "SM255:1@1 SM256:1@1";
    QTest::newRow("SD from 256 on stands elsewhere")
        << "SD250:12@1" << 125 << 2000 << "SD250:6@1 SD256:6@1";
    QTest::newRow("Z15 follows Z14") << "Z0:16@1" << 125 << 2000 << "Z0:16@1";
}

void LeastTimeTest::noRequestIsLongerThanAllowed()
{
    QFETCH(QString, watched);
    QFETCH(int, maxWords);
    QFETCH(int, maxBits);
    ReadRules rules = rulesAt(9600);
    rules.usual.maxWords = maxWords;
    rules.usual.maxBits = maxBits;
    QTEST(textOfRanges(leastTimePieces(rangesOf(watched), rules)), "pieces");
}

void LeastTimeTest::stationsAreAskedTheirOwnWay()
{
    ReadRules rules = rulesAt(9600);
    rules.stations[2].maxWords = 4;
    rules.stations[3].maySpanGaps = false;
    rules.stations[4].turnaround = 50000; // 54688 us for a further request: 32 registers
    // 20834 us, ten registers and no more; without the wait 17188 us, eight.
    rules.stations[5].turnaround = 0;
    rules.stations[6].turnaround = 0;
    rules.stations[6].isMeasured = true;
    QList<AddressRange> ranges = rangesOf(QStringLiteral("D0@5 D10@5 D0@6 D10@6"));
    for (const int station : {1, 2, 3, 4}) {
        for (AddressRange range : rangesOf(QStringLiteral("D0:6@1 D12@1 D45@1"))) {
            range.station = station;
            ranges << range;
        }
    }
    QCOMPARE(textOfRanges(leastTimePieces(ranges, rules)),
             QStringLiteral("D0:13@1 D45:1@1 D0:4@2 D4:2@2 D12:1@2 D45:1@2 D0:6@3 D12:1@3 D45:1@3 "
                            "D0:46@4 D0:11@5 D0:1@6 D10:1@6"));
}

void LeastTimeTest::noPlanTakesLess_data()
{
    QTest::addColumn<int>("baud");
    QTest::newRow("9600 baud") << 9600;
    QTest::newRow("115200 baud") << 115200;
}

// The lists that a panel has, against a cover found by trying all.
void LeastTimeTest::noPlanTakesLess()
{
    QFETCH(int, baud);
    const ReadRules rules = rulesAt(baud);
    for (const TagList& list : tagLists()) {
        const QList<AddressRange> pieces = leastTimePieces(list.ranges, rules);
        const double time = timeOf(pieces, rules.line, rules.usual.turnaround);
        const double least = leastTime(list.ranges, rules.line, rules.usual.turnaround);
        QVERIFY2(faultOfCover(list.ranges, pieces).isEmpty(),
                 qPrintable(list.name + QLatin1String(": ") + faultOfCover(list.ranges, pieces)));
        QVERIFY2(time <= least * 1.0001,
                 qPrintable(
                     QStringLiteral("%1: %2 us, least %3 us").arg(list.name).arg(time).arg(least)));
    }
}

void LeastTimeTest::randomListsTakeNoMoreThanThePlainCover()
{
    std::mt19937 source(7);
    const char* const types[] = {"X", "M", "SM", "D", "SD", "32CV"};
    for (int round = 0; round < 300; ++round) {
        QList<AddressRange> ranges;
        const auto density = 1 + source() % 60;
        const auto count = 1 + source() % 80;
        for (auto i = count; i > 0; --i) {
            AddressRange range = rangesOf(QStringLiteral("32CV200@1")).first();
            range.type = findRegisterType(QLatin1String(types[source() % 6]));
            const int span = range.type->limit - range.type->lowestAddress - 4;
            range.address =
                range.type->lowestAddress + static_cast<int>(source() % (10 * density)) % span;
            range.values = 1 + static_cast<int>(source() % 3);
            range.station = 1 + static_cast<int>(source() % 2);
            ranges << range;
        }
        ReadRules rules = rulesAt(round % 2 == 0 ? 9600 : 115200);
        rules.usual.turnaround = static_cast<qint64>(source() % 20000);
        const QList<AddressRange> pieces = leastTimePieces(ranges, rules);
        QCOMPARE(faultOfCover(ranges, pieces), QString());
        const double least = leastTime(ranges, rules.line, rules.usual.turnaround);
        QVERIFY(timeOf(pieces, rules.line, rules.usual.turnaround) <= least * 1.0001);
    }
}

void LeastTimeTest::noValueIsCut_data()
{
    QTest::addColumn<QString>("watched");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<QString>("pieces");
    // A piece may be of three registers: two values do not fit.
    QTest::newRow("pairs under an odd limit") << "D0:3x2@1" << 3 << "D0:2@1 D2:2@1 D4:2@1";
    QTest::newRow("single registers fill the rest")
        << "D0:2x2@1 D4@1 D5@1" << 3 << "D0:2@1 D2:3@1 D5:1@1";
    QTest::newRow("a value longer than the limit has a piece to itself")
        << "D0@1 D1x4@1 D5:2@1" << 3 << "D0:1@1 D1:4@1 D5:2@1";
    QTest::newRow("a limit of one") << "D0:2x2@1" << 1 << "D0:2@1 D2:2@1";
    QTest::newRow("values that overlap share a piece") << "D0x2@1 D1x2@1 D2@1" << 4 << "D0:3@1";
    QTest::newRow("those for which it is too short do not")
        << "D0x2@1 D1x2@1 D2x2@1" << 3 << "D0:3@1 D2:2@1";
    QTest::newRow("one within another costs nothing") << "D0x4@1 D1x2@1 D3@1" << 4 << "D0:4@1";
    QTest::newRow("125 registers at once") << "D0x125@1 D125x2@1" << 125 << "D0:125@1 D125:2@1";
    QTest::newRow("counters of one address")
        << "32CV200:3@1 D0x2@1" << 3 << "D0:2@1 32CV200:1@1 32CV201:1@1 32CV202:1@1";
    QTest::newRow("on both sides of a split")
        << "SD254x2@1 SD256x2@1" << 125 << "SD254:2@1 SD256:2@1";
}

void LeastTimeTest::noValueIsCut()
{
    QFETCH(QString, watched);
    QFETCH(int, maxWords);
    ReadRules rules = rulesAt(9600);
    rules.usual.maxWords = maxWords;
    QTEST(textOfRanges(leastTimePieces(rangesOf(watched), rules)), "pieces");
}

// All covers of up to five values, each in one piece; a value that is too long has its own.
void LeastTimeTest::randomValuesTakeNoMoreThanAnyCover()
{
    std::mt19937 source(11);
    for (int round = 0; round < 400; ++round) {
        QList<AddressRange> ranges;
        for (auto i = 1 + source() % 5; i > 0; --i) {
            const int width = 1 + static_cast<int>(source() % 5);
            const int address = static_cast<int>(source() % (round % 2 == 0 ? 30 : 120));
            ranges << rangesOf(QStringLiteral("D%1x%2@1").arg(address).arg(width));
        }
        ReadRules rules = rulesAt(round % 3 == 0 ? 115200 : 9600);
        rules.usual.maxWords = 1 + static_cast<int>(source() % 20);
        const QList<AddressRange> pieces = leastTimePieces(ranges, rules);
        QCOMPARE(faultOfValues(ranges, pieces, rules.usual.maxWords), QString());
        const double least = leastTimeOfValues(ranges, rules);
        QVERIFY(timeOf(pieces, rules.line, rules.usual.turnaround) <= least * 1.0001);
    }
}

void LeastTimeTest::eightyThousandCoilsCostTenTimesEightThousand()
{
    const auto cost = [](int coils) {
        QList<AddressRange> ranges;
        for (int i = 0; i < coils; ++i) {
            AddressRange range = rangesOf(QStringLiteral("M0@1")).first();
            range.address = i * 7 % 8000;
            range.station = 1 + i / 8000;
            ranges << range;
        }
        const std::clock_t begin = std::clock();
        if (leastTimePieces(ranges, rulesAt(9600)).isEmpty())
            qFatal("nothing is read");
        return std::clock() - begin;
    };
    // A hundred times as much if each were looked for among all.
    const double times = growth(cost, 8000, 80000);
    QVERIFY2(times < 30, qPrintable(QString::number(times)));
}

QTEST_APPLESS_MAIN(LeastTimeTest)

#include "tst_least_time.moc"
