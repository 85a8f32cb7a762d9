#include "kxpanel/tables/fill_column.h"

#include <QtGui/QStandardItemModel>
#include <QtTest/QTest>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableView>

using namespace kxpanel;

class FillColumnTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void takesWhatIsLeft();
    void isNeverNarrowerThanCanBeRead();
    void takesWhatAnotherColumnGives();
    void takesTheWidthAgainFromAnEarlierPlace();

private:
    int width(int column) const { return m_table->columnWidth(column); }

    QStandardItemModel m_model{1, 3};
    std::unique_ptr<QTableView> m_table;
    FillColumn* m_fill = nullptr;
};

void FillColumnTest::init()
{
    m_table = std::make_unique<QTableView>();
    m_table->setModel(&m_model);
    m_table->verticalHeader()->hide();
    m_table->setFrameShape(QFrame::NoFrame);
    for (const int column : {0, 1, 2})
        m_table->setColumnWidth(column, 100);
    m_fill = new FillColumn(m_table.get(), 1, 80);
    m_table->resize(500, 200);
    m_table->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_table.get()));
}

void FillColumnTest::takesWhatIsLeft()
{
    QCOMPARE(width(1), 300);
    m_table->resize(600, 200);
    QCOMPARE(width(1), 400);
    QCOMPARE(width(0), 100);
}

void FillColumnTest::isNeverNarrowerThanCanBeRead()
{
    m_table->resize(250, 200);
    QCOMPARE(width(1), 80);
    m_table->resize(290, 200);
    QCOMPARE(width(1), 90);
}

void FillColumnTest::takesWhatAnotherColumnGives()
{
    m_table->setColumnWidth(2, 150);
    QCOMPARE(width(1), 250);
    m_table->setColumnHidden(0, true);
    QCOMPARE(width(1), 350);
}

// Older versions kept a column that stretches, however narrow.
void FillColumnTest::takesTheWidthAgainFromAnEarlierPlace()
{
    QHeaderView* const header = m_table->horizontalHeader();
    header->setSectionResizeMode(1, QHeaderView::Stretch);
    const QByteArray place = header->saveState();
    m_table->resize(250, 200);
    header->restoreState(place);
    m_fill->fit();
    QCOMPARE(header->sectionResizeMode(1), QHeaderView::Fixed);
    QCOMPARE(width(1), 80);
}

QTEST_MAIN(FillColumnTest)

#include "tst_fill_column.moc"
