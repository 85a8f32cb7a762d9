// The trend in the whole window, beside the grid that values are dragged from.

#include "kxpanel/grid/watch_page.h"
#include "kxpanel/grid/watch_table.h"
#include "kxpanel/machine/machine.h"
#include "kxpanel/shell/main_window.h"
#include "kxpanel/shell/project_keeper.h"
#include "kxpanel/shell/shortcut_list.h"
#include "kxpanel/trend/model/trend_colours.h"
#include "kxpanel/trend/plot/trend_plot.h"
#include "kxpanel/trend/trend_page.h"
#include "tools/kxpanel/frames.h"
#include "tools/kxpanel/trend/model/trend_tags.h"
#include "tools/kxpanel/value_drags.h"

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QUndoStack>

using namespace kxpanel;

namespace
{

struct Shown {
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    Machine machine;
    std::unique_ptr<MainWindow> window;

    Shown()
    {
        std::vector<PageMaker> pages = pageMakers();
        pages.insert(pages.begin() + 1, makerOf<TrendPage>());
        window = std::make_unique<MainWindow>(&machine, &settings, pages);
        window->tags()->insert(0,
                               {tagOf("Pressure", "D100@1/s16*0.1,unit=bar"),
                                tagOf("Level", "D101@1/u16*0.5,unit=mm"), tagOf("Pump", "Y10@1")});
        window->show();
        window->showPage(window->page("watch"));
        if (!QTest::qWaitForWindowActive(window.get()))
            qFatal("no window has become active");
    }

    WatchTable* table() const { return window->findChild<WatchTable*>(); }
    TrendLegend* legend() const { return window->findChild<TrendLegend*>(); }
    TrendPlot* plot() const { return window->findChild<TrendPlot*>(); }
    QTabBar* tabs() const { return window->findChild<QTabWidget*>()->tabBar(); }
    QString names() const
    {
        QStringList names;
        for (int row = 0; row < legend()->rowCount(); ++row)
            names << text(row, TrendLegend::Name);
        return names.join(", ");
    }
    QString madeFile(const QString& name, const QByteArray& content) const
    {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("a file cannot be made");
        return file.fileName();
    }
    QString text(int row, int column) const
    {
        return legend()->index(row, column).data().toString();
    }
};

} // namespace

class TrendWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void aValueIsDraggedFromTheGridOverItsTab();
    void keysWorkAsSoonAsThePageIsChosen();
    void noShortcutIsTwice();
    void aRemovedValueComesBackByUndo();
    void eachProjectHasItsOwnPlot();
};

/// With one hand on the mouse: hold a row over the tab until its page is shown, and let go over the
/// plot.
void TrendWindowTest::aValueIsDraggedFromTheGridOverItsTab()
{
    Shown shown;
    WatchTable* const table = shown.table();
    const QModelIndex row = table->model()->index(1, 0);
    ValueDrag drag(table, table->model()->mimeData({row}), table->model()->supportedDragActions());
    drag.moveTo(table->viewport(), table->visualRect(row).center());
    drag.moveTo(shown.tabs(), shown.tabs()->tabRect(1).center());
    QVERIFY(QTest::qWaitFor([&] { return shown.plot()->isVisible(); }, 5000));
    drag.moveTo(shown.plot()->canvas());
    QCOMPARE(drag.drop(), Qt::CopyAction); // the grid takes away what was moved
    QCOMPARE(shown.legend()->rowCount(), 1);
    QCOMPARE(shown.text(0, TrendLegend::Name), QString("Level"));
    emit shown.machine.valuesRead({readingOf(shown.window->tags()->values().at(1).number, 80,
                                             QDateTime::currentMSecsSinceEpoch() - 30000)});
    passFrames(2);
    QCOMPARE(shown.text(0, TrendLegend::Now), QString("40"));
    const QImage picture = shown.plot()->canvas()->grab().toImage();
    const QColor curve = trendColour(0, shown.plot()->palette().color(QPalette::Base));
    int drawn = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            drawn += picture.pixelColor(x, y) == curve ? 1 : 0;
    }
    QVERIFY2(drawn > picture.width() / 4, qPrintable(QString::number(drawn)));
}

void TrendWindowTest::keysWorkAsSoonAsThePageIsChosen()
{
    const Shown shown;
    QTest::keyClick(shown.window.get(), Qt::Key_2, Qt::AltModifier);
    QCOMPARE(shown.window->currentPage()->key(), QString("trend"));
    QVERIFY(QApplication::focusWidget());
    const QAction* const live = shown.window->findChild<QAction*>("live");
    QVERIFY(live->isChecked());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QVERIFY(!live->isChecked());
}

void TrendWindowTest::noShortcutIsTwice()
{
    const Shown shown;
    QSet<QString> seen;
    QStringList twice;
    for (const ShortcutRow& row : shortcutsOf(shown.window.get())) {
        for (const QString& keys : row.keys.split("; ")) {
            if (seen.contains(row.place + keys) || (!row.place.isEmpty() && seen.contains(keys)))
                twice << keys + ": " + row.action;
            seen << row.place + keys;
        }
    }
    QVERIFY(seen.size() > 20);
    QCOMPARE(twice.join(", "), QString());
}

void TrendWindowTest::aRemovedValueComesBackByUndo()
{
    Shown shown;
    QList<int> numbers;
    for (const WatchedValue& value : shown.window->tags()->values())
        numbers << value.number;
    auto* const trend = qobject_cast<TrendPage*>(shown.window->page("trend"));
    auto* const watch = qobject_cast<WatchPage*>(shown.window->page("watch"));
    trend->addValues(numbers);
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    emit shown.machine.valuesRead({readingOf(numbers.at(1), 80, now)});
    shown.table()->select({numbers.at(1)});
    shown.table()->setFocus();
    QTest::keyClick(shown.table(), Qt::Key_Delete);
    QCOMPARE(shown.window->tags()->size(), 2);
    QCOMPARE(shown.legend()->rowCount(), 2);
    watch->undoStack()->undo();
    QCOMPARE(shown.legend()->rowCount(), 3);
    QCOMPARE(shown.text(1, TrendLegend::Name), QString("Level"));
    QCOMPARE(trend->layout().value("channels").toArray().size(), 3);
    shown.window->showPage(trend);
    passFrames(2);
    QCOMPARE(shown.text(1, TrendLegend::Now), QString("(not read)")); // since it went
    watch->undoStack()->redo();
    QCOMPARE(shown.legend()->rowCount(), 2);
}

/// A recording is of the project over which it was opened: a file that cannot be read changes
/// nothing, another project has its own values alone, and nothing brings the others back.
void TrendWindowTest::eachProjectHasItsOwnPlot()
{
    Shown shown;
    const QString recording = shown.madeFile(
        "a.csv", "time,D1@1,gaps\n2026-11-23T10:00:00.000Z,1,\n2026-11-23T10:00:01.000Z,2,\n");
    const QString broken = shown.madeFile("broken.kxpanel", "{\"format\": ");
    const QString another = shown.madeFile("another.kxpanel",
                                           R"({"format": "kxpanel project", "version": 1,
            "tags": [{"name": "Flow", "address": "D7"}],
            "pages": {"trend": {"channels": [{"name": "Flow", "station": 1, "address": "D7"}]}}})");
    ProjectKeeper* const project = shown.window->project();
    auto* const trend = qobject_cast<TrendPage*>(shown.window->page("trend"));
    const QUndoStack* const undo =
        qobject_cast<WatchPage*>(shown.window->page("watch"))->undoStack();
    const QAction* const showRecording = shown.window->findChild<QAction*>("showRecording");
    trend->addValues({shown.window->tags()->values().at(0).number});
    shown.table()->select({shown.window->tags()->values().at(1).number});
    QTest::keyClick(shown.table(), Qt::Key_Delete);
    trend->files()->open(recording);
    QTRY_COMPARE(shown.names(), QString("Pressure, D1 (recorded)"));

    project->open(broken);
    QCOMPARE(shown.names(), QString("Pressure, D1 (recorded)"));
    QVERIFY(showRecording->isEnabled());
    QVERIFY(undo->canUndo());

    project->open(another);
    QCOMPARE(shown.names(), QString("Flow"));
    QVERIFY(!showRecording->isEnabled());
    QVERIFY(!undo->canUndo());
    QVERIFY(!project->isChanged());

    trend->files()->open(recording);
    QTRY_COMPARE(shown.names(), QString("Flow, D1 (recorded)"));
    project->settle();
    project->beginNew();
    QCOMPARE(shown.names(), QString());
    QVERIFY(!undo->canUndo());
    QVERIFY(!project->isChanged());
}

QTEST_MAIN(TrendWindowTest)
#include "tst_trend_window.moc"
