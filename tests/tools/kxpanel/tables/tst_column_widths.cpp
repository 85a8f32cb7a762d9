#include "kxpanel/tables/column_widths.h"

#include <QtGui/QStandardItemModel>
#include <QtTest/QTest>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableView>

class ColumnWidthsTest : public QObject
{
    Q_OBJECT

private slots:
    void asWideAsTheWiderOne();
    void noWiderThanHeadingsThatStayAsTheyAre();
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

void ColumnWidthsTest::noWiderThanHeadingsThatStayAsTheyAre()
{
    QStandardItemModel model(1, 1);
    model.setHorizontalHeaderLabels({"A long heading of it"});
    QTableView table;
    table.setModel(&model);
    table.horizontalHeader()->setHighlightSections(false);
    kxpanel::fitColumns(&table, {"1"});
    const QFontMetrics metrics = table.horizontalHeader()->fontMetrics();
    QCOMPARE(table.columnWidth(0), metrics.horizontalAdvance("A long heading of it")
                                       + 2 * table.fontMetrics().averageCharWidth());
}

QTEST_MAIN(ColumnWidthsTest)

#include "tst_column_widths.moc"
