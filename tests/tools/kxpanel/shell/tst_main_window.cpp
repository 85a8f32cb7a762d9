// The whole window, by keyboard and mouse, with kxsim as a process.

#include "kxpanel/connect/connection_bar.h"
#include "kxpanel/grid/watch_table.h"
#include "kxpanel/machine/machine_thread.h"
#include "kxpanel/project/connection_json.h"
#include "kxpanel/project/project.h"
#include "kxpanel/shell/main_window.h"
#include "kxpanel/shell/message_bar.h"
#include "kxpanel/shell/project_keeper.h"
#include "kxpanel/shell/shortcut_list.h"
#include "kxpanel/window/theme.h"
#include "panel/jobs/scan_job.h"
#include "tools/kxpanel/machine_fixture.h"
#include "tools/kxsim/kxsim_process.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QMimeData>
#include <QtCore/QSet>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtGui/QDropEvent>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableView>

#include <csignal>

using namespace kxpanel;

class MainWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void itBeginsDisconnected();
    void aTypedAddressIsRead();
    void aLostLineComesBack();
    void aProjectIsSavedAndOpened();
    void whatALaterProgramKeepsStays();
    void theDemonstrationIsWhole();
    void aFileDroppedOnThePagesIsOpened();
    void aBrokenProjectIsSaidInside();
    void closingWithChangesAsks();
    void closingWhileAWriteIsUnderWayAsks();
    void aProjectOfAnotherLineDisconnects();
    void whatWasMissedIsSaid();
    void whatIsSaidMovesNoPage();
    void readingsGoWithTheClock();
    void itFitsASmallScreen();
    void settingsThatCannotBeKeptAreSaid();
    void aFileOfAnyNameIsNamedRightly();
    void pageAndThemeAreKept();
    void columnsAreKeptOnThisComputer();
    void pagesHaveShortcuts();
    void noShortcutIsTwice();
    void everyControlHasAName();

private:
    void makeWindow();
    QAction* action(const char* text) const;
    qint64 valueOf(const char* address) const;
    bool isOpen() const { return m_window->connectionBar()->status().state == LineState::Open; }
    void begin(const QString& port, const QString& file = QString());
    QString projectOn(const QString& port, const char* name);

    QTemporaryDir m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<MachineThread> m_machine;
    std::unique_ptr<MainWindow> m_window;
};

void MainWindowTest::init()
{
    m_settings =
        std::make_unique<QSettings>(m_folder.filePath("settings.ini"), QSettings::IniFormat);
    m_settings->clear();
    m_machine = std::make_unique<MachineThread>();
    makeWindow();
}

void MainWindowTest::cleanup()
{
    m_window.reset();
    m_machine.reset();
    m_settings.reset();
}

void MainWindowTest::makeWindow()
{
    m_window = std::make_unique<MainWindow>(m_machine->machine(), m_settings.get(), pageMakers());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

QAction* MainWindowTest::action(const char* text) const
{
    for (QAction* const found : m_window->findChildren<QAction*>()) {
        if (found->text().remove('&').startsWith(QLatin1String(text))) // "Undo Add", too
            return found;
    }
    qFatal("no action %s", text);
}

/// -1: not known.
qint64 MainWindowTest::valueOf(const char* address) const
{
    for (const WatchedValue& value : m_window->tags()->values()) {
        const kx::AddressRange& range = value.tag.range;
        if (kx::addressText(range.type, range.address) == QLatin1String(address))
            return m_window->tags()->reading(value.number).raw.value(0, -1);
    }
    return -1;
}

void MainWindowTest::begin(const QString& port, const QString& file)
{
    WindowOptions options;
    options.connection = serialPort(port);
    options.connects = true;
    options.file = file;
    m_window->begin(options);
}

/// The path of a project file.
QString MainWindowTest::projectOn(const QString& port, const char* name)
{
    Project project;
    project.connection = serialPort(port);
    const QString path = m_folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(projectText(project)) < 0)
        qFatal("%s", name);
    return path;
}

void MainWindowTest::itBeginsDisconnected()
{
    m_window->begin(WindowOptions());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("unnamed project[*] - kxpanel"));
    QVERIFY(!m_window->isWindowModified());
    QCOMPARE(m_window->connectionBar()->status().state, LineState::Closed);
    QVERIFY(m_window->pages().size() >= 2);
}

void MainWindowTest::aTypedAddressIsRead()
{
    const KxsimProcess simulator({"--still", "--set", "D100=4321"});
    begin(simulator.portName());
    QTRY_VERIFY(isOpen());
    auto* const line = m_window->page("watch")->findChild<QLineEdit*>();
    QVERIFY(line);
    line->setFocus();
    QTest::keyClicks(line, "D100");
    QTest::keyClick(line, Qt::Key_Return);
    QTRY_COMPARE(valueOf("D100"), qint64(4321));
    QTRY_VERIFY(m_window->isWindowModified());
    action("Undo")->trigger();
    QCOMPARE(m_window->tags()->size(), 0);
}

void MainWindowTest::aLostLineComesBack()
{
    const QString link = m_folder.filePath("port");
    auto simulator = std::make_unique<KxsimProcess>(
        QStringList{"--still", "--set", "D100=1", "--symlink", link});
    m_window->tags()->insert(0, {watched(1, "D100").tag});
    begin(link);
    QTRY_COMPARE(valueOf("D100"), qint64(1));
    simulator->exitCodeAfter(SIGKILL);
    QFile::remove(link); // its terminal may soon be another test's
    QTRY_COMPARE(m_window->connectionBar()->status().state, LineState::Interrupted);
    simulator = std::make_unique<KxsimProcess>(
        QStringList{"--still", "--set", "D100=2", "--symlink", link});
    QTRY_COMPARE_WITH_TIMEOUT(valueOf("D100"), qint64(2), 20000);
    QVERIFY(isOpen());
}

void MainWindowTest::aProjectIsSavedAndOpened()
{
    const QString path = m_folder.filePath("a.kxpanel");
    m_window->begin(WindowOptions());
    m_window->tags()->insert(0, {watched(1, "D100/float").tag, watched(2, "M7@3").tag});
    kx::ConnectionOptions options = serialPort("/dev/ttyUSB0");
    options.timing.baud = 19200;
    m_window->connectionBar()->setOptions(options);
    QTRY_VERIFY(m_window->isWindowModified());
    m_window->project()->saveAs();
    emit m_window->findChild<QFileDialog*>()->fileSelected(path);
    QTRY_VERIFY(!m_window->isWindowModified());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("a.kxpanel[*] - kxpanel"));
    m_window->project()->beginNew();
    QCOMPARE(m_window->tags()->size(), 0);
    QVERIFY(!m_window->project()->isChanged());
    m_window->project()->openRecent(path);
    QCOMPARE(m_window->messages()->text(), QString());
    QCOMPARE(m_window->tags()->size(), 2);
    QCOMPARE(m_window->tags()->values().at(0).tag.format.kind, kx::ValueKind::Float);
    QCOMPARE(m_window->tags()->values().at(1).tag.range.station, 3);
    QCOMPARE(m_window->connectionBar()->options().port, QStringLiteral("/dev/ttyUSB0"));
    QCOMPARE(m_window->connectionBar()->options().timing.baud, 19200);
    QTest::qWait(300);
    QVERIFY(!m_window->isWindowModified()); // reading it changed nothing
}

/// Through opening, an edit that is undone, and saving.
void MainWindowTest::whatALaterProgramKeepsStays()
{
    const QByteArray text = R"({"format": "kxpanel project", "version": 1,
        "later": {"of the project": [1, 9007199254740991, 0.1, null]},
        "connection": {"port": "/dev/ttyUSB0", "later": "of the line"},
        "tags": [{"name": "A", "address": "D0", "later": "of A"},
                 {"name": "B", "address": "D1", "later": "of B"}],
        "pages": {"unheard": {"later": 6},
                  "watch": {"later": 1, "filter": {"text": ""}},
                  "line": {"later": 2}, "frames": {"later": 3}, "health": {"later": 4},
                  "recipes": {"later": 5}}})";
    const QString path = m_folder.filePath("later.kxpanel");
    const auto whole = [&path] {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object()
                                              : QJsonObject();
    };
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), qint64(text.size()));
    file.close();
    const QJsonObject before = whole();
    m_window->begin(WindowOptions());
    m_window->project()->open(path);
    QCOMPARE(m_window->messages()->text(), QString());

    auto* const table = m_window->findChild<WatchTable*>();
    table->select({m_window->tags()->values().at(0).number});
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Delete);
    QCOMPARE(m_window->tags()->size(), 1);
    action("Undo")->trigger();
    QCOMPARE(m_window->tags()->size(), 2);
    m_window->tags()->insert(1, {watched(1, "D7").tag});
    m_window->project()->save();
    QCOMPARE(m_window->messages()->text(), QString());

    const QJsonObject after = whole();
    QCOMPARE(after["later"], before["later"]);
    QCOMPARE(after["connection"].toObject()["later"].toString(), QString("of the line"));
    const QJsonArray tags = after["tags"].toArray();
    QCOMPARE(tags.size(), 3);
    QCOMPARE(tags.at(0).toObject()["later"].toString(), QString("of A"));
    QVERIFY(!tags.at(1).toObject().contains("later"));
    QCOMPARE(tags.at(2).toObject()["later"].toString(), QString("of B"));
    const QJsonObject pages = before["pages"].toObject();
    for (auto page = pages.begin(); page != pages.end(); ++page) {
        const QJsonObject kept = after["pages"].toObject()[page.key()].toObject();
        QVERIFY2(kept["later"] == page.value().toObject()["later"], qPrintable(page.key()));
    }
}

void MainWindowTest::theDemonstrationIsWhole()
{
    WindowOptions options;
    options.connection = simulated();
    options.connects = true;
    options.file = QStringLiteral(KX_DEMONSTRATION);
    m_window->begin(options);
    QCOMPARE(m_window->messages()->text(), QString());
    QVERIFY(m_window->tags()->size() > 10);
    const auto allAnswered = [this] {
        for (const WatchedValue& value : m_window->tags()->values()) {
            if (m_window->tags()->reading(value.number).state != kx::WatchState::Ok)
                return false;
        }
        return true;
    };
    QTRY_VERIFY_WITH_TIMEOUT(allAnswered(), 20000);
    QCOMPARE(m_window->connectionBar()->status().fault, QString());
}

// Whatever the pages take by themselves.
void MainWindowTest::aFileDroppedOnThePagesIsOpened()
{
    const QString path = projectOn("/dev/ttyUSB9", "dropped.kxpanel");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    for (Page* const page : m_window->pages()) {
        m_window->showPage(page);
        m_window->project()->beginNew();
        const QPoint place = page->mapTo(m_window.get(), page->rect().center());
        QWidget* const under = m_window->childAt(place);
        QVERIFY(under);
        const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(under->rect().center(), actions, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QCoreApplication::sendEvent(under, &enter);
        QVERIFY2(enter.isAccepted(), qPrintable(page->key()));
        QDropEvent drop(under->rect().center(), actions, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(under, &drop);
        QTRY_COMPARE(m_window->project()->path(), path);
    }
}

void MainWindowTest::aBrokenProjectIsSaidInside()
{
    const QString path = m_folder.filePath("broken.kxpanel");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[1]");
    file.close();
    WindowOptions options;
    options.connection = usualConnection(); // of a command line that names none
    options.file = path;
    m_window->begin(options);
    QVERIFY(m_window->messages()->isVisible());
    QVERIFY2(m_window->messages()->text().startsWith(path),
             qPrintable(m_window->messages()->text()));
    m_window->project()->touch();
    QVERIFY(!m_window->project()->isChanged()); // nobody has done anything yet
}

void MainWindowTest::closingWithChangesAsks()
{
    m_window->begin(WindowOptions());
    m_window->tags()->insert(0, {watched(1, "D100").tag});
    m_window->close();
    QVERIFY(m_window->isVisible());
    auto* const question = m_window->findChild<QMessageBox*>();
    QVERIFY(question);
    m_window->close(); // once more, as a signal may
    QCOMPARE(m_window->findChildren<QMessageBox*>().size(), 1);
    QTest::mouseClick(question->button(QMessageBox::Discard), Qt::LeftButton);
    QTRY_VERIFY(!m_window->isVisible());
}

void MainWindowTest::closingWhileAWriteIsUnderWayAsks()
{
    const KxsimProcess simulator({"--still"});
    begin(simulator.portName());
    QTRY_VERIFY(isOpen());
    // Stations that do not answer, each three times half a second.
    m_machine->machine()->startJob(Machine::newTicket(), [](kx::Session* session) {
        return std::make_unique<kx::ScanJob>(session, QList<int>{2, 3, 4, 5, 6, 7, 8, 9});
    });
    m_window->close();
    QVERIFY(m_window->isVisible());
    auto* question = m_window->findChild<QMessageBox*>();
    QVERIFY(question);
    QTest::mouseClick(question->button(QMessageBox::Cancel), Qt::LeftButton);
    QTest::qWait(50);
    QVERIFY(m_window->isVisible());
    QVERIFY(m_machine->machine()->isAtWork());
    QTRY_VERIFY(!m_window->findChild<QMessageBox*>());
    m_window->close();
    question = m_window->findChild<QMessageBox*>();
    QVERIFY(question);
    for (QAbstractButton* const button : question->buttons()) {
        if (question->buttonRole(button) == QMessageBox::AcceptRole)
            QTest::mouseClick(button, Qt::LeftButton);
    }
    QTRY_VERIFY(!m_window->isVisible());
}

// Else what is typed into the new list would be written to the old machine.
void MainWindowTest::aProjectOfAnotherLineDisconnects()
{
    const KxsimProcess simulator({"--still"});
    const QString same = projectOn(simulator.portName(), "same.kxpanel");
    const QString other = projectOn("/dev/ttyUSB9", "other.kxpanel");
    begin(simulator.portName(), same);
    QTRY_VERIFY(isOpen());
    m_window->project()->settle();
    m_window->project()->open(same);
    QTest::qWait(100);
    QVERIFY(isOpen()); // the same line stays
    m_window->project()->open(other);
    QCOMPARE(m_window->messages()->text(), QString());
    QTRY_COMPARE(m_window->connectionBar()->status().state, LineState::Closed);
    QCOMPARE(m_window->connectionBar()->options().port, QString("/dev/ttyUSB9"));
}

void MainWindowTest::whatWasMissedIsSaid()
{
    const QDateTime from(QDate(2026, 3, 1), QTime(10, 20, 30));
    const qint64 start = from.toMSecsSinceEpoch();
    emit m_machine->machine()->missed({start, start + 90000, 1});
    QCOMPARE(m_window->messages()->text(),
             QString("The window stood still from 10:20:30 to 10:22:00. The trend lacks what was "
                     "read meanwhile. 1 exchange(s) are missing in frames, line and health."));
    emit m_machine->machine()->missed({start, start + 1000, 0});
    QVERIFY(m_window->messages()->text().endsWith("what was read meanwhile."));
    emit m_machine->machine()->missed({start, start + 7200000, 0, true});
    QCOMPARE(m_window->messages()->text(),
             QString("The computer or this program rested from 10:20:30 to 12:20:30. Nothing was "
                     "read meanwhile."));
}

// Whoever is about to press a bit's switch would hit that of another row.
void MainWindowTest::whatIsSaidMovesNoPage()
{
    const auto* const watch = m_window->page("watch");
    const auto place = [&] {
        m_window->centralWidget()->layout()->activate();
        return watch->mapTo(m_window.get(), QPoint());
    };
    const QPoint before = place();
    emit m_machine->machine()->missed({0, 90000, 1});
    QVERIFY(m_window->messages()->isVisible());
    QCOMPARE(place(), before);
}

// Also while no line is open, so that nobody reads them again.
void MainWindowTest::readingsGoWithTheClock()
{
    m_window->tags()->insert(0, {watched(1, "D110").tag});
    Reading reading;
    reading.number = 1;
    reading.raw = {650};
    reading.readAt = 5000000;
    emit m_machine->machine()->valuesRead({reading});
    emit m_machine->machine()->clockSet(-3600000);
    QCOMPARE(m_window->tags()->reading(1).readAt, qint64(1400000));
}

void MainWindowTest::itFitsASmallScreen()
{
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    const QSize least = m_window->minimumSizeHint();
    QCOMPARE(m_window->size().boundedTo(screen.expandedTo(least)), m_window->size());
    const int characters = least.width() / m_window->fontMetrics().horizontalAdvance('0');
    QVERIFY2(characters <= 110, qPrintable(QString::number(characters)));
    const int rows = least.height() / m_window->fontMetrics().lineSpacing();
    QVERIFY2(rows <= 44, qPrintable(QString::number(rows)));
}

void MainWindowTest::settingsThatCannotBeKeptAreSaid()
{
    const QString folder = m_folder.filePath("not a folder");
    QFile file(folder);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QSettings settings(folder + "/settings.ini", QSettings::IniFormat); // also root cannot write it
    MainWindow window(m_machine->machine(), &settings, pageMakers());
    window.begin(WindowOptions());
    QVERIFY2(window.statusBar()->currentMessage().contains("settings.ini cannot be written"),
             qPrintable(window.statusBar()->currentMessage()));
}

void MainWindowTest::aFileOfAnyNameIsNamedRightly()
{
    const QString path = projectOn("/dev/ttyUSB9", "R&D [*].kxpanel");
    m_window->project()->open(path);
    QCOMPARE(m_window->windowTitle(), QString("R&D [*][*].kxpanel[*] - kxpanel"));
    QVERIFY(action("RD [*].kxpanel")); // as this test takes marks away
    for (const QAction* const found : m_window->findChildren<QAction*>()) {
        if (found->statusTip() == path)
            QCOMPARE(found->text(), QString("R&&D [*].kxpanel"));
    }
}

void MainWindowTest::pageAndThemeAreKept()
{
    m_window->showPage(m_window->pages().at(1));
    action("Dark")->trigger();
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             darkPalette().color(QPalette::Window));
    m_window->close();
    makeWindow();
    QCOMPARE(m_window->currentPage(), m_window->pages().at(1));
    QVERIFY(action("Dark")->isChecked());
    action("System's")->trigger();
    QVERIFY(QApplication::palette().color(QPalette::Window)
            != darkPalette().color(QPalette::Window));
}

void MainWindowTest::columnsAreKeptOnThisComputer()
{
    m_window->begin(WindowOptions());
    const auto header = [this](const char* page) {
        return m_window->page(QString(page))->findChild<QTableView*>()->horizontalHeader();
    };
    for (const char* const page : {"frames", "recipes"})
        header(page)->resizeSection(3, 234);
    m_window->tags()->insert(0, {watched(1, "D100").tag}); // the project is looked at
    QTRY_VERIFY(m_window->isWindowModified());
    m_window->tags()->setValues({});
    QTRY_VERIFY(!m_window->isWindowModified()); // it is as it was, whatever widths columns have
    m_window->close();
    makeWindow();
    for (const char* const page : {"frames", "recipes"})
        QCOMPARE(header(page)->sectionSize(3), 234);
}

void MainWindowTest::pagesHaveShortcuts()
{
    QTest::keyClick(m_window.get(), Qt::Key_2, Qt::AltModifier);
    QCOMPARE(m_window->currentPage(), m_window->pages().at(1));
    QTest::keyClick(m_window.get(), Qt::Key_1, Qt::AltModifier);
    QCOMPARE(m_window->currentPage(), m_window->pages().at(0));
}

// Two actions of one page, or one of the window's and one of a page, would both do nothing.
void MainWindowTest::noShortcutIsTwice()
{
    QSet<QString> seen;
    QStringList twice;
    for (const ShortcutRow& row : shortcutsOf(m_window.get())) {
        QStringList all = row.keys.split("; ");
        all.removeDuplicates();
        for (const QString& keys : qAsConst(all)) {
            if (seen.contains(row.place + keys) || (!row.place.isEmpty() && seen.contains(keys)))
                twice << keys + ": " + row.action;
            seen << row.place + keys;
        }
    }
    QVERIFY(seen.size() > 10);
    QCOMPARE(twice.join(", "), QString());
}

void MainWindowTest::everyControlHasAName()
{
    QStringList nameless;
    for (const QWidget* const child : m_window->connectionBar()->findChildren<QWidget*>()) {
        const bool isPart = child->objectName().startsWith("qt_"); // of another control
        const bool takesKeys =
            child->focusPolicy() & Qt::TabFocus && child->window() == m_window.get();
        const QVariant text = child->property("text");
        if (takesKeys && !isPart && child->accessibleName().isEmpty() && text.toString().isEmpty()
            && child->parentWidget()->accessibleName().isEmpty())
            nameless << QString(child->metaObject()->className()) + " of "
                            + child->parentWidget()->metaObject()->className();
    }
    QCOMPARE(nameless.join(", "), QString());
}

QTEST_MAIN(MainWindowTest)
#include "tst_main_window.moc"
