// The whole window: a story with kxsim as a process, and an hour of 10,000 values.

#include "kxpanel/connect/connection_bar.h"
#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/grid/watch_table.h"
#include "kxpanel/machine/machine_thread.h"
#include "kxpanel/recipes/recipes_page.h"
#include "kxpanel/shell/main_window.h"
#include "kxpanel/shell/page_table.h"
#include "kxpanel/shell/window_options.h"
#include "kxpanel/tags/tag_list.h"
#include "support/memory_use.h"
#include "tools/kxpanel/machine_fixture.h"
#include "tools/kxpanel/sample_exchanges.h"
#include "tools/kxsim/kxsim_process.h"

#include <QtCore/QFile>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

using namespace kxpanel;

namespace
{

const int LONG = 20000;            // milliseconds
const int SECONDS = 3600;          // of virtual time
const int WARM = 600;              // seconds until all is in use that ever will be
const int CYCLE = 5;               // seconds in which all values are read
const int EXCHANGES = 40;          // a second, of 125 registers at 115200 baud
const qint64 GROWTH = 1024 * 1024; // bytes

} // namespace

class WindowStoryTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aValueIsTypedWrittenAndSentByARecipe();
    void anHourTakesNoMemory();

private:
    QVector<Reading> readingsOfAll() const;
    void passSecond(int second, QVector<Reading>* readings);

    QTemporaryDir m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<MachineThread> m_machine;
    std::unique_ptr<MainWindow> m_window;
};

void WindowStoryTest::init()
{
    m_settings =
        std::make_unique<QSettings>(m_folder.filePath("settings.ini"), QSettings::IniFormat);
    m_machine = std::make_unique<MachineThread>();
    m_window = std::make_unique<MainWindow>(m_machine->machine(), m_settings.get(), pageMakers());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void WindowStoryTest::cleanup()
{
    m_window.reset();
    m_machine.reset();
    m_settings.reset();
}

void WindowStoryTest::aValueIsTypedWrittenAndSentByARecipe()
{
    const KxsimProcess simulator({"--still", "--set", "D110=650"});
    WindowOptions options;
    options.connection = serialPort(simulator.portName());
    options.connects = true;
    m_window->begin(options);
    const TagList* const tags = m_window->tags();
    const auto raw = [tags] {
        return tags->size() == 0 ? QList<qint64>()
                                 : tags->reading(tags->values().first().number).raw;
    };

    auto* const line = m_window->page("watch")->findChild<QLineEdit*>();
    line->setFocus();
    QTest::keyClicks(line, "D110");
    QTest::keyClick(line, Qt::Key_Return);
    QTRY_COMPARE_WITH_TIMEOUT(raw(), QList<qint64>{650}, LONG);

    auto* const table = m_window->page("watch")->findChild<WatchTable*>();
    table->setFocus();
    table->setCurrentIndex(table->model()->index(0, WatchModel::Value));
    QTest::keyClick(table, Qt::Key_F2);
    auto* const editor = table->viewport()->findChild<QLineEdit*>();
    QVERIFY(editor);
    QTest::keyClicks(editor, "700");
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE_WITH_TIMEOUT(table->model()
                                  ->index(0, WatchModel::State)
                                  .data()
                                  .toString()
                                  .remove(QChar(0x2713))
                                  .trimmed(),
                              QStringLiteral("written"), LONG);
    QTRY_COMPARE_WITH_TIMEOUT(raw(), QList<qint64>{700}, LONG);

    QFile file(m_folder.filePath("limits.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("name,address,value\nLimit,D110,1300\n");
    file.close();
    auto* const recipes = qobject_cast<RecipesPage*>(m_window->page("recipes"));
    QVERIFY(recipes);
    recipes->open(file.fileName());
    m_window->showPage(recipes);
    recipes->mainPart()->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_D, Qt::ControlModifier);
    QVERIFY(recipes->findChild<QLabel*>("question")->isVisible());
    QCOMPARE(raw(), QList<qint64>{700});
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QTRY_COMPARE_WITH_TIMEOUT(raw(), QList<qint64>{1300}, LONG);
}

QVector<Reading> WindowStoryTest::readingsOfAll() const
{
    QVector<Reading> readings;
    for (const WatchedValue& value : m_window->tags()->values()) {
        Reading reading;
        reading.number = value.number;
        reading.type = value.tag.range.type;
        reading.station = value.tag.range.station;
        reading.address = value.tag.range.address;
        reading.state = kx::WatchState::Ok;
        reading.raw = {0};
        readings << reading;
    }
    return readings;
}

void WindowStoryTest::passSecond(int second, QVector<Reading>* readings)
{
    Machine* const machine = m_machine->machine();
    const qint64 now = SAMPLE_TIME + second * 1000;
    QVector<Exchange> exchanges;
    for (int i = 0; i < EXCHANGES; ++i) {
        Exchange exchange = i % 10 == 0 ? unansweredPoll() : answeredPoll();
        exchange.number = qint64(second) * EXCHANGES + i;
        exchange.sentAt = now + i * 25;
        exchange.finishedAt = exchange.sentAt + 20;
        exchanges << exchange;
    }
    emit machine->exchanged(exchanges);
    emit machine->cycleFinished(second);
    if (second % CYCLE != 0)
        return;
    for (Reading& reading : *readings) {
        reading.raw = {second};
        reading.readAt = now;
        reading.changedAt = now;
    }
    emit machine->valuesRead(*readings);
    QCoreApplication::processEvents();
}

void WindowStoryTest::anHourTakesNoMemory()
{
    m_window->begin(WindowOptions());
    m_window->tags()->insert(0, {watched(1, "D0:8000").tag, watched(2, "M0:2000").tag});
    QCOMPARE(m_window->tags()->size(), 10000);
    QVector<Reading> readings = readingsOfAll();
    MemoryUse warm = {};
    for (int second = 1; second <= SECONDS; ++second) {
        passSecond(second, &readings);
        if (second == WARM)
            warm = memoryUse();
    }
    const MemoryUse end = memoryUse();
    QCOMPARE(m_window->tags()->reading(readings.first().number).raw, QList<qint64>{SECONDS});
    if (!isMemoryMeasurable())
        return; // all was taken, which is the other half
    QVERIFY2(end.heap - warm.heap < GROWTH, qPrintable(QString::number(end.heap - warm.heap)));
    QVERIFY2(end.resident - warm.resident < GROWTH,
             qPrintable(QString::number(end.resident - warm.resident)));
}

QTEST_MAIN(WindowStoryTest)
#include "tst_window_story.moc"
