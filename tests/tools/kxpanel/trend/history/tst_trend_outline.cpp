#include "kxpanel/trend/history/trend_outline.h"

#include <QtCore/QStringList>
#include <QtTest/QTest>

using kxpanel::TrendRaster;
using kxpanel::TrendStore;

namespace
{

const double GAP = kxpanel::gapValue(kx::GapReason::NoAnswer);

/// "0,1 10,1 | 20,3": polygons of points.
QString textOf(const QVector<QPolygonF>& polygons)
{
    QStringList texts;
    for (const QPolygonF& polygon : polygons) {
        QStringList points;
        for (const QPointF& point : polygon)
            points << QStringLiteral("%1,%2").arg(point.x()).arg(point.y());
        texts << points.join(' ');
    }
    return texts.join(" | ");
}

QString outlineOf(const QList<QPair<qint64, double>>& samples, const TrendRaster& raster,
                  qint64 until)
{
    TrendStore store;
    for (const QPair<qint64, double>& sample : samples)
        store.append(sample.first, sample.second);
    return textOf(kxpanel::trendOutline(store, raster, until));
}

} // namespace

class TrendOutlineTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesAreHeldInSteps();
    void aColumnWithSeveralValuesShowsAll();
    void endsWhereItIsKnownTo();
    void gaps_data();
    void gaps();
    void bordersStayWhereTheyAre();
};

void TrendOutlineTest::valuesAreHeldInSteps()
{
    // Columns of 10 ms from 0 to 100.
    QCOMPARE(outlineOf({{20, 1}, {50, 3}}, {0, 10, 10}, 100), QString("20,1 50,1 50,3 100,3"));
}

void TrendOutlineTest::aColumnWithSeveralValuesShowsAll()
{
    // Held at 50, read at 52, 54 and 56: from 5 up to 9, down to -2, and held at 4.
    QCOMPARE(outlineOf({{0, 5}, {52, 9}, {54, -2}, {56, 4}}, {0, 10, 8}, 80),
             QString("0,5 50,5 50,9 50,-2 50,4 80,4"));
    // The other way round.
    QCOMPARE(outlineOf({{0, 5}, {52, -2}, {54, 9}, {56, 4}}, {0, 10, 8}, 80),
             QString("0,5 50,5 50,-2 50,9 50,4 80,4"));
}

void TrendOutlineTest::endsWhereItIsKnownTo()
{
    QCOMPARE(outlineOf({{20, 1}}, {0, 10, 10}, 55), QString("20,1 55,1"));
    QCOMPARE(outlineOf({{20, 1}}, {100, 10, 10}, 55), QString());
    QCOMPARE(outlineOf({}, {0, 10, 10}, 100), QString());
}

void TrendOutlineTest::gaps_data()
{
    QTest::addColumn<QList<QPair<qint64, double>>>("samples");
    QTest::addColumn<QString>("outline");

    using Samples = QList<QPair<qint64, double>>;
    QTest::newRow("over columns") << Samples{{0, 1}, {20, GAP}, {60, 2}} << "0,1 20,1 | 60,2 100,2";
    QTest::newRow("within a column, the same value after it")
        << Samples{{0, 1}, {42, GAP}, {44, 1}} << "0,1 40,1 | 50,1 100,1";
    QTest::newRow("within a column, with a spike before it")
        << Samples{{0, 1}, {41, 9}, {42, GAP}, {44, 1}} << "0,1 40,1 | 40,1 40,9 | 50,1 100,1";
    QTest::newRow("one value between two, in a column of its own")
        << Samples{{0, GAP}, {42, 5}, {44, GAP}} << "40,5";
    // Where each column has a gap, every other one shows what there was besides.
    QTest::newRow("one in each column, the same value around them")
        << Samples{{0, 1},    {5, GAP}, {6, 1},    {15, GAP}, {16, 1},
                   {25, GAP}, {26, 1},  {35, GAP}, {36, 1},   {45, GAP}}
        << "10,1 | 30,1";
    QTest::newRow("nothing else") << Samples{{0, GAP}} << "";
}

void TrendOutlineTest::gaps()
{
    using Samples = QList<QPair<qint64, double>>;
    QFETCH(Samples, samples);
    QTEST(outlineOf(samples, {0, 10, 10}, 100), "outline");
}

void TrendOutlineTest::bordersStayWhereTheyAre()
{
    const TrendRaster raster = TrendRaster::of(60003, 120003, 1000);
    QCOMPARE(raster.step, qint64(60));
    QCOMPARE(raster.from, qint64(60000));
    QVERIFY(raster.end() > 120003);
    QCOMPARE(TrendRaster::of(60033, 120033, 1000).from, qint64(60000));
    QCOMPARE(TrendRaster::of(60063, 120063, 1000).from, qint64(60060));
    // Never less than a millisecond, and never none.
    QCOMPARE(TrendRaster::of(60000, 60020, 1000).step, qint64(1));
    QCOMPARE(TrendRaster::of(60000, 60020, 1000).count, 21);
    QCOMPARE(TrendRaster::of(60000, 60000, 0).step, qint64(1));
}

QTEST_APPLESS_MAIN(TrendOutlineTest)
#include "tst_trend_outline.moc"
