// The tables of all pages look alike.

#include "../sample_exchanges.h"
#include "../tag_samples.h"
#include "kxpanel/machine/machine.h"
#include "kxpanel/recipes/recipes_page.h"
#include "kxpanel/shell/main_window.h"
#include "tools/kxpanel/shell/all_pages.h"

#include <QtCore/QFile>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableView>

using namespace kxpanel;

class WindowTablesTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void headingsAreAlignedAsTheirColumns();
    void noHeadingIsHeavierThanAnother();
    void placesOfEarlierRunsLeaveThemSo();
    void theRecipeFillsTheWidth();

private:
    void addRows();
    QList<QTableView*> tables() const { return m_window->findChildren<QTableView*>(); }

    QTemporaryDir m_folder;
    std::unique_ptr<Machine> m_machine;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<MainWindow> m_window;
};

void WindowTablesTest::init()
{
    m_window.reset();
    m_settings = std::make_unique<QSettings>(m_folder.filePath("a.ini"), QSettings::IniFormat);
    m_settings->clear();
    m_machine = std::make_unique<Machine>();
    m_window = std::make_unique<MainWindow>(m_machine.get(), m_settings.get(), allPages());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

/// One at least in each table but that of the plot.
void WindowTablesTest::addRows()
{
    m_window->tags()->insert(0, {tagOf("D100")});
    emit m_machine->exchanged({answeredPoll()});
    QFile file(m_folder.filePath("recipe.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("name,address,value\nLimit,D110,1300\n");
    file.close();
    qobject_cast<RecipesPage*>(m_window->page("recipes"))->open(file.fileName());
}

void WindowTablesTest::headingsAreAlignedAsTheirColumns()
{
    addRows();
    int columns = 0;
    for (const QTableView* const table : tables()) {
        const QAbstractItemModel* model = table->model();
        for (int column = 0; column < model->columnCount(); ++column) {
            const QVariant heading =
                model->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
            const QString name = table->accessibleName() + ": "
                                 + model->headerData(column, Qt::Horizontal).toString();
            QVERIFY2(heading.isValid(), qPrintable(name));
            QVERIFY2((heading.toInt() & Qt::AlignHorizontal_Mask) == Qt::AlignLeft
                         || (heading.toInt() & Qt::AlignHorizontal_Mask) == Qt::AlignRight,
                     qPrintable(name));
            if (model->rowCount() == 0)
                continue;
            const QVariant cell = model->index(0, column).data(Qt::TextAlignmentRole);
            QVERIFY2(cell.toInt() == heading.toInt(), qPrintable(name));
            ++columns;
        }
    }
    QVERIFY(columns > 30);
}

void WindowTablesTest::noHeadingIsHeavierThanAnother()
{
    QVERIFY(tables().size() >= 4);
    for (const QTableView* const table : tables())
        QVERIFY2(!table->horizontalHeader()->highlightSections(),
                 qPrintable(table->accessibleName()));
}

// Older versions kept headers whose selected sections were bold.
void WindowTablesTest::placesOfEarlierRunsLeaveThemSo()
{
    for (const char* const key : {"frames", "recipes"}) {
        Page* const page = m_window->page(key);
        QHeaderView* const headings = page->findChild<QTableView*>()->horizontalHeader();
        headings->setHighlightSections(true);
        const QByteArray place = page->place();
        page->setPlace(place);
        QVERIFY2(!headings->highlightSections(), key);
    }
}

void WindowTablesTest::theRecipeFillsTheWidth()
{
    m_window->resize(1180, 700);
    Page* const page = m_window->page("recipes");
    m_window->showPage(page);
    QCoreApplication::processEvents();
    const QTableView* const table = page->findChild<QTableView*>();
    QCOMPARE(table->horizontalHeader()->length(), table->viewport()->width());
    page->setPlace(page->place());
    m_window->resize(1280, 700);
    QCoreApplication::processEvents();
    QCOMPARE(table->horizontalHeader()->length(), table->viewport()->width());
}

QTEST_MAIN(WindowTablesTest)
#include "tst_window_tables.moc"
