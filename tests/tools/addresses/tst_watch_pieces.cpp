// Watched ranges as the driver gets them, and what it makes of them.

#include "addresses/watch_pieces.h"
#include "panel/plan/plan_driver.h"
#include "registers/register_types.h"
#include "support/growth.h"

#include <QtTest/QTest>

using namespace kx;

class WatchPiecesTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void piecesKeepTheSidesOfSmApart_data();
    void piecesKeepTheSidesOfSmApart();
    void noRequestRunsAcrossASplit_data();
    void noRequestRunsAcrossASplit();
    void wholeTypesAreReadWhereTheyAre_data();
    void wholeTypesAreReadWhereTheyAre();
    void eightThousandRangesCostFourTimesTwoThousand();

private:
    DriverEntryPoints m_driver;
};

namespace
{

const int LONGEST = 125; // registers of one reply, and the highest limit of kxhost
const int AROUND = 40;   // addresses on each side of a split

QList<AddressRange> ranges(const QString& words)
{
    QList<AddressRange> ranges;
    for (const QString& word : words.split(QLatin1Char(' '))) {
        AddressRange range;
        QString error;
        if (!parseAddressRange(word, &range, &error))
            qFatal("%s", qPrintable(error));
        ranges << range;
    }
    return ranges;
}

AddressRange oneAddress(const RegisterType* type, int address)
{
    return {type, address, 1, 1};
}

QString textOf(const QList<AddressRange>& pieces)
{
    QStringList texts;
    for (const AddressRange& piece : pieces)
        texts << QStringLiteral("%1:%2@%3")
                     .arg(addressText(piece.type, piece.address))
                     .arg(piece.values)
                     .arg(piece.station);
    return texts.join(QLatin1Char(' '));
}

/// What is wrong with the driver's requests; empty when nothing is.
QString faultOf(const Plan& plan, const QList<AddressRange>& watched)
{
    const WatchedRanges ranges(watched);
    int asked = 0;
    int wanted = 0;
    for (const AddressRange& range : watched)
        wanted += range.driverCount();
    for (const PlannedRequest& request : plan.requests) {
        const Coverage coverage = coverageOf(request, ranges);
        asked += coverage.askedCount;
        if (coverage.misreadCount > 0)
            return QStringLiteral("%1 of the request from %2 are misread")
                .arg(coverage.misreadCount)
                .arg(addressText(request.type, request.firstAddress()));
        if (request.count > plan.maxWords)
            return QStringLiteral("a request for %1").arg(request.count);
        if (request.lastAddress() >= request.type->limit)
            return QStringLiteral("a request up to %1").arg(request.lastAddress());
    }
    return asked == wanted ? QString()
                           : QStringLiteral("%1 of %2 asked for").arg(asked).arg(wanted);
}

} // namespace

void WatchPiecesTest::initTestCase()
{
    QString error;
    QVERIFY2(loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &m_driver, &error), qPrintable(error));
}

void WatchPiecesTest::piecesKeepTheSidesOfSmApart_data()
{
    QTest::addColumn<QString>("watched");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<QString>("pieces");
    const auto row = [](const char* name, const char* watched, int maxWords, const char* pieces) {
        QTest::newRow(name) << QString::fromLatin1(watched) << maxWords
                            << QString::fromLatin1(pieces);
    };
    // From SM250 on, 33 are one more than the limit.
    row("a range across the split", "SM250:12@1", 32, "SM250:6@1 SM256:27@1");
    row("its two neighbours", "SM255@1 SM256@1", 32, "SM255:1@1 SM256:32@1");
    row("the second side first", "SM256@1 SM255@1", 32, "SM256:32@1 SM255:1@1");
    row("with a gap", "SM240@1 SM260@1", 32, "SM240:1@1 SM260:13@1");
    row("too far apart to fit", "SM240@1 SM272@1", 32, "SM240:1@1 SM272:1@1");
    row("just near enough to fit", "SM240@1 SM271@1", 32, "SM240:1@1 SM271:2@1");
    row("the nearest of several", "SM300@1 SM254@1 SM200@1 SM258@1", 32,
        "SM300:1@1 SM254:1@1 SM200:1@1 SM258:29@1");
    row("limit 1", "SM255:2@1", 1, "SM255:1@1 SM256:1@1");
    row("limit 2", "SM255:2@1", 2, "SM255:1@1 SM256:2@1");
    row("the longest limit", "SM255:2@1", 125, "SM255:1@1 SM256:125@1");
    row("a limit of a whole side ends with SM511", "SM255:2@1", 256, "SM255:1@1 SM256:256@1");
    row("one side only", "SM250:6@1", 32, "SM250:6@1");
    row("the other side only", "SM256:6@1", 32, "SM256:6@1");
    row("a side at each station", "SM255@1 SM256@2", 32, "SM255:1@1 SM256:1@2");
    row("both at both stations", "SM255:2@1 SM254:4@2", 32,
        "SM255:1@1 SM256:32@1 SM254:2@2 SM256:31@2");
    row("M, which the driver keeps apart", "M2046:4@1", 32, "M2046:2@1 M2048:2@1");
    row("SD, which the driver keeps apart", "SD254:4@1", 32, "SD254:2@1 SD256:2@1");
    row("32CV up to the last", "32CV254:2@1", 32, "32CV254:2@1");
    row("Z15 lies past a split without a jump", "Z14:2@1", 32, "Z14:2@1");
}

void WatchPiecesTest::piecesKeepTheSidesOfSmApart()
{
    QFETCH(QString, watched);
    QFETCH(int, maxWords);
    QTEST(textOf(watchPieces(ranges(watched), maxWords)), "pieces");
}

void WatchPiecesTest::noRequestRunsAcrossASplit_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("M") << QStringLiteral("M");
    QTest::newRow("SM") << QStringLiteral("SM");
    QTest::newRow("SD") << QStringLiteral("SD");
}

/// Each address below the split with each past it, under every limit.
void WatchPiecesTest::noRequestRunsAcrossASplit()
{
    QFETCH(QString, type);
    const RegisterType* const row = findRegisterType(type);
    for (int maxWords = 1; maxWords <= LONGEST; ++maxWords) {
        for (int below = row->split - AROUND; below < row->split; below += 3) {
            for (int past = row->split; past < row->split + AROUND; past += 3) {
                const QList<AddressRange> watched = {oneAddress(row, past), oneAddress(row, below)};
                const QString fault =
                    faultOf(askForPlan(m_driver, watched, maxWords).value(), watched);
                QVERIFY2(fault.isEmpty(), qPrintable(QStringLiteral("%1 and %2, limit %3: %4")
                                                         .arg(below)
                                                         .arg(past)
                                                         .arg(maxWords)
                                                         .arg(fault)));
            }
        }
    }
}

void WatchPiecesTest::wholeTypesAreReadWhereTheyAre_data()
{
    QTest::addColumn<QString>("whole");
    for (const char* const whole :
         {"X0:256", "Y0:256", "M1900:300", "SM0:512", "S0:1024", "T0:256", "C0:256", "D0:300",
          "SD0:512", "CV0:200", "32CV200:56", "TV0:256", "Z0:16"})
        QTest::newRow(whole) << QString::fromLatin1(whole) + QLatin1String("@1");
}

void WatchPiecesTest::wholeTypesAreReadWhereTheyAre()
{
    QFETCH(QString, whole);
    const QList<AddressRange> watched = ranges(whole);
    const int shortest = registersPerAddress(watched.first().type);
    for (int maxWords = shortest; maxWords <= LONGEST; ++maxWords) {
        const QString fault = faultOf(askForPlan(m_driver, watched, maxWords).value(), watched);
        QVERIFY2(fault.isEmpty(),
                 qPrintable(QStringLiteral("limit %1: %2").arg(maxWords).arg(fault)));
    }
}

/// Processor time to cut so many single addresses of SM at 64 stations, in units of clock().
static std::clock_t costOfPieces(int ranges)
{
    const RegisterType* const type = findRegisterType(QStringLiteral("SM"));
    QList<AddressRange> watched;
    for (int i = 0; i < ranges; ++i)
        watched.append({type, 192 + i / 64, 1, 1 + i % 64});
    const std::clock_t start = std::clock();
    const QList<AddressRange> pieces = watchPieces(watched, 32);
    const std::clock_t cost = std::clock() - start;
    if (pieces.size() != ranges)
        qFatal("%d pieces", int(pieces.size()));
    return cost;
}

// Sixteen times as much if all pieces were walked for each range of SM.
void WatchPiecesTest::eightThousandRangesCostFourTimesTwoThousand()
{
    const double times = growth(costOfPieces, 2000, 8000);
    QVERIFY2(times < 8, qPrintable(QString::number(times)));
}

QTEST_APPLESS_MAIN(WatchPiecesTest)
#include "tst_watch_pieces.moc"
