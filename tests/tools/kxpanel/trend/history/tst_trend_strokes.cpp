#include "kxpanel/trend/history/trend_strokes.h"

#include <QtCore/QStringList>
#include <QtTest/QTest>

using kxpanel::TrendCover;
using kxpanel::TrendStrokes;

namespace
{

QPolygonF path(const QVector<QPointF>& points)
{
    return QPolygonF(points);
}

/// "10: 1 to 9 | 20: 2 to 3"
QString textOf(const QVector<QLineF>& columns)
{
    QStringList texts;
    for (const QLineF& column : columns)
        texts << QStringLiteral("%1: %2 to %3").arg(column.x1()).arg(column.y1()).arg(column.y2());
    return texts.join(" | ");
}

QString textOf(const QVector<QPolygonF>& paths)
{
    QStringList texts;
    for (const QPolygonF& path : paths) {
        QStringList points;
        for (const QPointF& point : path)
            points << QStringLiteral("%1,%2").arg(point.x()).arg(point.y());
        texts << points.join(' ');
    }
    return texts.join(" | ");
}

} // namespace

class TrendStrokesTest : public QObject
{
    Q_OBJECT

private slots:
    void outlines_data();
    void outlines();
    void hidden_data();
    void hidden();
};

void TrendStrokesTest::outlines_data()
{
    QTest::addColumn<QVector<QPolygonF>>("outline");
    QTest::addColumn<QString>("columns");
    QTest::addColumn<QString>("paths");

    using Outline = QVector<QPolygonF>;
    QTest::newRow("nothing") << Outline() << ""
                             << "";
    QTest::newRow("steps stay a path") << Outline{path({{0, 5}, {10, 5}, {10, 7}, {20, 7}})} << ""
                                       << "0,5 10,5 10,7 20,7";
    QTest::newRow("a spike of one sample is a column")
        << Outline{path({{0, 5}, {10, 5}, {10, 900}, {10, 5}, {20, 5}})} << "10: 5 to 900"
        << "0,5 10,5 | 10,5 20,5";
    QTest::newRow("to and fro in two columns in a row")
        << Outline{path({{0, 5}, {0, 1}, {0, 9}, {0, 6}, {1, 6}, {1, 2}, {1, 8}, {1, 3}})}
        << "0: 1 to 9 | 1: 2 to 8"
        << "0,6 1,6";
    QTest::newRow("gaps stay between polygons")
        << Outline{path({{0, 5}, {10, 5}}), path({{30, 6}, {40, 6}})} << ""
        << "0,5 10,5 | 30,6 40,6";
    QTest::newRow("a value between two gaps stays a point") << Outline{path({{20, 6}})} << ""
                                                            << "20,6";
}

void TrendStrokesTest::outlines()
{
    QFETCH(QVector<QPolygonF>, outline);
    const TrendStrokes strokes = kxpanel::strokesOf(outline);
    QTEST(textOf(strokes.columns), "columns");
    QTEST(textOf(strokes.paths), "paths");
}

void TrendStrokesTest::hidden_data()
{
    QTest::addColumn<QVector<QLineF>>("above");
    QTest::addColumn<QString>("left"); // of 2 to 8 in column 10

    using Columns = QVector<QLineF>;
    QTest::newRow("nothing above") << Columns() << "10: 2 to 8";
    QTest::newRow("all hidden") << Columns{{10, 1, 10, 9}} << "";
    QTest::newRow("its spike looks out at the top") << Columns{{10, 1, 10, 5}} << "10: 5 to 8";
    QTest::newRow("its spike looks out at the foot") << Columns{{10, 4, 10, 9}} << "10: 2 to 4";
    QTest::newRow("looks out at both ends") << Columns{{10, 4, 10, 5}} << "10: 2 to 4 | 10: 5 to 8";
    QTest::newRow("another column") << Columns{{11, 1, 11, 9}} << "10: 2 to 8";
    QTest::newRow("beside it") << Columns{{10, 9, 10, 12}} << "10: 2 to 8";
    QTest::newRow("two that meet") << Columns{{10, 1, 10, 5}, {10, 5, 10, 9}} << "";
    QTest::newRow("of two apart the longer one")
        << Columns{{10, 1, 10, 3}, {10, 4, 10, 9}} << "10: 2 to 4";
}

void TrendStrokesTest::hidden()
{
    QFETCH(QVector<QLineF>, above);
    TrendCover cover;
    cover.add(above);
    QVector<QLineF> columns = {{10, 2, 10, 8}};
    cover.cut(&columns);
    QTEST(textOf(columns), "left");
}

QTEST_MAIN(TrendStrokesTest)

#include "tst_trend_strokes.moc"
