#include "kxpanel/line/plan/plan_labels.h"

#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

const double CHARACTER = 10; // pixels, each

struct Sample {
    const char* type;
    int first;
    int count;
    BarPlace place;
};

} // namespace

Q_DECLARE_METATYPE(QVector<Sample>)

class PlanLabelsTest : public QObject
{
    Q_OBJECT

private slots:
    void standWhereTheyFit_data();
    void standWhereTheyFit();
};

void PlanLabelsTest::standWhereTheyFit_data()
{
    QTest::addColumn<QVector<Sample>>("bars");
    QTest::addColumn<QString>("labels"); // each with the pixel that it begins at
    const auto row = [](const char* name, const QVector<Sample>& bars, const char* labels) {
        QTest::newRow(name) << bars << QString::fromUtf8(labels);
    };
    row("none", {}, "");
    row("both in a wide bar", {{"D", 100, 32, {50, 400}}}, "50 D100–D131");
    row("one address once", {{"D", 100, 1, {50, 60}}}, "50 D100");
    row("both beside a narrow bar that is the last", {{"D", 100, 32, {50, 60}}}, "50 D100–D131");
    row("both up to the end", {{"D", 100, 32, {410, 420}}}, "410 D100–D131"); // 9 characters
    row("the first where both go beyond the end", {{"D", 100, 32, {411, 420}}}, "411 D100");
    row("none where the first goes beyond the end", {{"D", 100, 32, {461, 470}}}, "");
    row("both up to the next bar", {{"D", 0, 9, {50, 90}}, {"D", 100, 32, {110, 400}}},
        "50 D0–D8 110 D100–D131");
    row("the first before a next bar that is nearer",
        {{"D", 0, 9, {50, 90}}, {"D", 100, 32, {109, 400}}}, "50 D0 109 D100–D131");
    row("below its bar, though further right", {{"D", 0, 1, {50, 55}}, {"D", 100, 32, {60, 400}}},
        "50 D0 80 D100–D131");
    row("none that would begin behind its bar",
        {{"D", 1000, 1, {50, 55}}, {"D", 2000, 1, {60, 65}}, {"D", 3000, 1, {120, 125}}},
        "50 D1000 120 D3000");
    row("bits in octal", {{"X", 8, 9, {50, 400}}}, "50 X10–X20");
    row("counters of two registers", {{"32CV", 200, 2, {50, 400}}}, "50 32CV200–32CV201");
}

void PlanLabelsTest::standWhereTheyFit()
{
    QFETCH(QVector<Sample>, bars);
    QVector<PlanBar> plan;
    QVector<BarPlace> places;
    for (const Sample& sample : qAsConst(bars)) {
        kx::AddressRange range{findRegisterType(QString(sample.type)), sample.first, sample.count,
                               1};
        plan << planRows({kx::PolledRange{range, 0}}, kx::WatchedRanges({range}))
                    .first()
                    .bars.first();
        places << sample.place;
    }
    QStringList texts;
    const double end = 500;
    for (const PlanLabel& label : planLabels(plan, places, end, [](const QString& text) {
             return CHARACTER * static_cast<double>(text.size());
         }))
        texts << QString("%1 %2").arg(label.left).arg(label.text);
    QTEST(texts.join(' '), "labels");
}

QTEST_GUILESS_MAIN(PlanLabelsTest)

#include "tst_plan_labels.moc"
