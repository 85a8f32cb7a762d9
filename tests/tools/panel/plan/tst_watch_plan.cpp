// The plans of a session beside those of the driver and the best there is.

#include "panel/plan/plan_driver.h"
#include "panel/plan/watch_plan.h"
#include "tools/panel/plan/plain_cover.h"
#include "tools/panel/plan/range_texts.h"
#include "tools/panel/plan/tag_lists.h"

#include <QtTest/QTest>

#include <cmath>

using namespace kx;

class WatchPlanTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void coilsAreNotTheDrivers();
    void bytesAreThoseOfTheFrames();
    void theListsTakeLittleMoreThanTheLeast_data();
    void theListsTakeLittleMoreThanTheLeast();

private:
    DriverEntryPoints m_driver;
};

namespace
{

QString textOf(const Plan& plan)
{
    QStringList texts;
    for (const PlannedRequest& request : plan.requests)
        texts << QStringLiteral("%1:%2 %3/%4")
                     .arg(addressText(request.type, request.address))
                     .arg(request.count)
                     .arg(request.bytesSent)
                     .arg(request.bytesExpected);
    return texts.join(QStringLiteral(", "));
}

double milliseconds(const Plan& plan, const PlanTiming& timing)
{
    qint64 bytesSent = 0;
    qint64 bytesExpected = 0;
    for (const PlannedRequest& request : plan.requests) {
        bytesSent += request.bytesSent;
        bytesExpected += request.bytesExpected;
    }
    const CycleCost cost =
        costOf(timing, static_cast<int>(plan.requests.size()), bytesSent, bytesExpected);
    return static_cast<double>(cost.duration) / 1000;
}

} // namespace

void WatchPlanTest::initTestCase()
{
    QString error;
    QVERIFY2(loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &m_driver, &error), qPrintable(error));
}

void WatchPlanTest::coilsAreNotTheDrivers()
{
    const QList<AddressRange> watched = rangesOf(QStringLiteral("D0:40@1 M0:100@1 M150@1"));
    QCOMPARE(textOf(limitedPlan(m_driver, watched, 32, ReadRules()).value()),
             QStringLiteral("M0:151 8/24, D0:32 8/69, D32:8 8/21"));
}

// The byte counts of 9 coils, of 3 registers and of 2 counters are 2, 6 and 8.
void WatchPlanTest::bytesAreThoseOfTheFrames()
{
    const QList<AddressRange> watched = rangesOf(QStringLiteral("X0:9@1 D0:3@1 32CV200:2@1"));
    const Plan plan = chosenPlan(watched, ReadRules());
    QCOMPARE(plan.maxWords, 0);
    QCOMPARE(textOf(plan), QStringLiteral("X0:9 8/7, D0:3 8/11, 32CV200:4 8/13"));
}

void WatchPlanTest::theListsTakeLittleMoreThanTheLeast_data()
{
    QTest::addColumn<int>("baud");
    QTest::newRow("9600 baud") << 9600;
    QTest::newRow("115200 baud") << 115200;
}

// Turnaround 5 ms. Shown in milliseconds: the driver's usual limit, its best one, what is chosen,
// and the least that any requests take.
void WatchPlanTest::theListsTakeLittleMoreThanTheLeast()
{
    QFETCH(int, baud);
    PlanTiming timing;
    timing.line.baud = baud;
    ReadRules rules;
    rules.line = timing.line;
    double product = 1;
    for (const TagList& list : tagLists()) {
        const double usual = milliseconds(askForPlan(m_driver, list.ranges, 32).value(), timing);
        double best = usual;
        for (int limit = 1; limit <= 125; ++limit)
            best = std::min(best,
                            milliseconds(askForPlan(m_driver, list.ranges, limit).value(), timing));
        const double chosen = milliseconds(chosenPlan(list.ranges, rules), timing);
        const double least = leastTime(list.ranges, timing.line, timing.turnaround) / 1000;
        qInfo("%-22s limit 32 %7.1f, best limit %7.1f, chosen %7.1f, least %7.1f",
              qPrintable(list.name), usual, best, chosen, least);
        QVERIFY(chosen <= best * 1.0001);
        product *= chosen / least;
    }
    const double mean = std::pow(product, 1.0 / static_cast<double>(tagLists().size()));
    qInfo("chosen takes %.4f times the least, in the geometric mean", mean);
    QVERIFY(mean <= 1.05);
}

QTEST_APPLESS_MAIN(WatchPlanTest)
#include "tst_watch_plan.moc"
