#include "kxpanel/tables/column_widths.h"

#include <QtGui/QStandardItemModel>
#include <QtTest/QTest>
#include <QtWidgets/QTableView>

class ColumnWidthsTest : public QObject
{
    Q_OBJECT

private slots:
    void asWideAsTheWiderOne();
};

void ColumnWidthsTest::asWideAsTheWiderOne()
{
    QStandardItemModel model(1, 3);
    model.setHorizontalHeaderLabels({"Time", "A long heading of it", "Last"});
    QTableView table;
    table.setModel(&model);
    const int untouched = table.columnWidth(2);
    kxpanel::fitColumns(&table, {"12:34:56.789", "1"});
    const QFontMetrics metrics = table.fontMetrics();
    QCOMPARE(table.columnWidth(0),
             metrics.horizontalAdvance("12:34:56.789") + 2 * metrics.averageCharWidth());
    QVERIFY(table.columnWidth(1) > metrics.horizontalAdvance("A long heading of it"));
    QCOMPARE(table.columnWidth(2), untouched);
}

QTEST_MAIN(ColumnWidthsTest)

#include "tst_column_widths.moc"
