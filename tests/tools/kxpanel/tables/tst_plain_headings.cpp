#include "kxpanel/tables/plain_headings.h"

#include <QtGui/QStandardItemModel>
#include <QtTest/QTest>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableView>

using namespace kxpanel;

class PlainHeadingsTest : public QObject
{
    Q_OBJECT

private slots:
    void noneIsHeavierForWhatIsSelected();
    void alignment();
};

void PlainHeadingsTest::noneIsHeavierForWhatIsSelected()
{
    QStandardItemModel model(1, 2);
    QTableView table;
    table.setModel(&model);
    QVERIFY(table.horizontalHeader()->highlightSections());
    showPlainHeadings(&table);
    QVERIFY(!table.horizontalHeader()->highlightSections());
}

void PlainHeadingsTest::alignment()
{
    QCOMPARE(columnAlignment(true).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
    QCOMPARE(columnAlignment(false).toInt(), int(Qt::AlignLeft | Qt::AlignVCenter));
}

QTEST_MAIN(PlainHeadingsTest)

#include "tst_plain_headings.moc"
