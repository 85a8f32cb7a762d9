#include "kxpanel/recipes/recipes_page.h"

#include "kxpanel/machine/machine_thread.h"
#include "kxpanel/tags/tag_list.h"
#include "kxpanel/window/theme.h"
#include "tools/kxpanel/machine_fixture.h"
#include "tools/kxpanel/recipes/recipe_samples.h"
#include "tools/kxsim/kxsim_process.h"

#include <QAction> // of QtWidgets in Qt 5, of QtGui in Qt 6
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTableView>

using namespace kxpanel;

class RecipesPageTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void asksForAFileAtFirst();
    void comparesWithTheController();
    void downloadsOnceItIsConfirmed();
    void aDownloadCanBeCalledOff();
    void saysWhyNothingCanBeSent();
    void savesWhatWasRead();
    void whatIsSavedOverItsFileIsInTheFile();
    void whatAnotherProgramSavedIsNotReplacedUnseen();
    void aBadFileLeavesTheOpenOne();
    void rowsMayNameTags();
    void withoutALineItSaysSo();
    void aFaultTakesTheStatusBarsWordsAway();
    void aFaultsColourFollowsTheTheme();
    void abortsByKey();
    void tellsThatTheControllerHasOtherValues();
    void tellsThatWhatWasReadIsNotSaved();
    void aFailedReadKeepsWhatWasRead();
    void aDownloadOfWhichNothingWasSentKeepsWhatWasRead();
    void anotherFileEndsADownloadAloud();
    void theQuestionGoesWithItsLine();
    void theQuestionGoesWithItsValues();
    void tellsOfWhichLineTheValuesAre();
    void keepsFileAndFilterInAProject();
    void columnsAreOfThisComputer();
    void aMissingFileOfAProjectIsKept();
    void allCanBeNamed();

private:
    QString store(const QByteArray& text, const char* name = "filling.csv") const;
    void connectLine();
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier);
    QString fault() const { return m_page->findChild<QLabel*>("fault")->text(); }
    QString counts() const { return m_page->findChild<QLabel*>("counts")->text(); }
    QStringList cells(int row) const;

    QTemporaryDir m_folder;
    TagList m_tags;
    std::unique_ptr<MachineThread> m_thread;
    std::unique_ptr<MachineLog> m_log;
    std::unique_ptr<RecipesPage> m_page;
    QTableView* m_table = nullptr;
};

void RecipesPageTest::init()
{
    m_tags.setValues({});
    m_thread = std::make_unique<MachineThread>();
    m_log = std::make_unique<MachineLog>(m_thread->machine());
    m_page = std::make_unique<RecipesPage>(PageContext{m_thread->machine(), &m_tags});
    m_page->resize(1000, 400);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    m_table = m_page->findChild<QTableView*>();
    m_table->setFocus();
}

void RecipesPageTest::cleanup()
{
    m_page.reset();
    m_log.reset();
    m_thread.reset();
}

QString RecipesPageTest::store(const QByteArray& text, const char* name) const
{
    QFile file(m_folder.filePath(QString::fromLatin1(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("%s cannot be written", qPrintable(file.fileName()));
    return file.fileName();
}

void RecipesPageTest::connectLine()
{
    m_thread->machine()->openLine(simulated());
    QTRY_VERIFY(m_log->states.contains(QStringLiteral("open")));
}

void RecipesPageTest::press(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
}

QStringList RecipesPageTest::cells(int row) const
{
    QStringList texts;
    for (int column = 0; column < m_table->model()->columnCount(); ++column)
        texts << m_table->model()->index(row, column).data().toString();
    return texts;
}

void RecipesPageTest::asksForAFileAtFirst()
{
    QCOMPARE(counts(), QString("Open a recipe to compare it with the controller."));
    press(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    auto* dialog = m_page->findChild<QFileDialog*>();
    QVERIFY(dialog);
    emit dialog->fileSelected(store(RECIPE));
    QCOMPARE(m_table->model()->rowCount(), 5);
    QCOMPARE(counts(), QString("filling.csv: 5 value(s), not read from the controller, 1 not in "
                               "the file"));
}

void RecipesPageTest::comparesWithTheController()
{
    connectLine();
    m_page->open(store(RECIPE));
    QSignalSpy said(m_page.get(), &Page::said);
    press(Qt::Key_R);
    QVERIFY(m_page->findChild<QProgressBar*>()->isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(said.count(), 1, 20000);
    QVERIFY(!m_page->findChild<QProgressBar*>()->isVisible());
    QCOMPARE(cells(0), (QStringList{QString::fromUtf8("≠ differs"), "Second limit", "1", "D111",
                                    "1300 mm", "1200 mm"}));
    QCOMPARE(cells(2), (QStringList{"= same", "Limit", "1", "D110", "650 mm", "650 mm"}));
    QCOMPARE(counts(),
             QString("filling.csv: 5 value(s), 1 differ(s), 1 not in the file, 3 the same; what "
                     "was read is not saved"));
    press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(m_table->model()->rowCount(), 1);
}

void RecipesPageTest::downloadsOnceItIsConfirmed()
{
    connectLine();
    m_page->open(store("name,address,value\nSecond limit,D111,1300\nLamp,M20,0\n"));
    QSignalSpy said(m_page.get(), &Page::said);
    press(Qt::Key_D);
    const auto* question = m_page->findChild<QLabel*>("question");
    QVERIFY(question->isVisible());
    QCOMPARE(question->text(),
             QString("Send 2 value(s) to station 1? They replace those in the controller."));
    press(Qt::Key_Backtab, Qt::ShiftModifier); // from the button that sends nothing
    press(Qt::Key_Space, Qt::NoModifier);
    QVERIFY(!question->isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(said.count(), 1, 20000);
    QCOMPARE(said.at(0).at(0).toString(),
             QString("Sent, and read again from simulated controller"));
    QCOMPARE(cells(0), (QStringList{"= same", "Second limit", "1", "D111", "1300", "1300"}));
}

void RecipesPageTest::aDownloadCanBeCalledOff()
{
    connectLine();
    m_page->open(store("name,address,value\nSecond limit,D111,1300\n"));
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Space}) {
        press(Qt::Key_D);
        press(key, Qt::NoModifier);
        QVERIFY(!m_page->findChild<QLabel*>("question")->isVisible());
        QCOMPARE(QApplication::focusWidget(), m_table);
    }
    press(Qt::Key_R);
    QTRY_COMPARE_WITH_TIMEOUT(cells(0).last(), QString("1200"), 20000);
}

void RecipesPageTest::saysWhyNothingCanBeSent()
{
    m_page->open(store("name,address,value\nButton,X17,1\n"));
    press(Qt::Key_D);
    QVERIFY(!m_page->findChild<QLabel*>("question")->isVisible());
    QVERIFY2(fault().startsWith(QString::fromUtf8("✗ Nothing was sent: line 2 (Button)")),
             qPrintable(fault()));
}

void RecipesPageTest::savesWhatWasRead()
{
    connectLine();
    m_page->open(store(RECIPE));
    press(Qt::Key_E);
    QVERIFY(!m_page->findChild<QFileDialog*>()); // nothing was read
    press(Qt::Key_R);
    QTRY_VERIFY_WITH_TIMEOUT(counts().contains("the same"), 20000);
    press(Qt::Key_E);
    auto* dialog = m_page->findChild<QFileDialog*>();
    QVERIFY(dialog);
    QSignalSpy said(m_page.get(), &Page::said);
    const QString path = m_folder.filePath("saved.csv");
    emit dialog->fileSelected(path);
    QCOMPARE(said.at(0).at(0).toString(), QString("5 value(s) saved in ") + path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("name,address,format,unit,value\n"
                                        "Limit,D110,,mm,650\n"
                                        "Second limit,D111,,mm,1200\n"
                                        "Lamp,M20,,,1\n"
                                        "Batch,D130,ascii:4,,\"BATCH 7 \"\n"
                                        "Spare,D120,float,bar,50\n"));
    emit dialog->fileSelected(m_folder.filePath("none/saved.csv"));
    QVERIFY2(fault().contains("none/saved.csv"), qPrintable(fault()));
}

// Else a download would send what the file has no more.
void RecipesPageTest::whatIsSavedOverItsFileIsInTheFile()
{
    connectLine();
    const QString path = store("name,address,value\nSecond limit,D111,1300\nLamp,M20,\n");
    m_page->open(path);
    press(Qt::Key_R);
    QTRY_COMPARE_WITH_TIMEOUT(cells(0).last(), QString("1200"), 20000);
    press(Qt::Key_E);
    emit m_page->findChild<QFileDialog*>()->fileSelected(path);
    QCOMPARE(cells(0), (QStringList{"= same", "Second limit", "1", "D111", "1200", "1200"}));
    QCOMPARE(cells(1), (QStringList{"= same", "Lamp", "1", "M20", "1", "1"}));
    QCOMPARE(counts(), QString("filling.csv: 2 value(s), 2 the same"));
}

// A spreadsheet may have the file open, too.
void RecipesPageTest::whatAnotherProgramSavedIsNotReplacedUnseen()
{
    connectLine();
    const QString path = store("name,address,value\nSecond limit,D111,1300\n");
    m_page->open(path);
    press(Qt::Key_R);
    QTRY_COMPARE_WITH_TIMEOUT(cells(0).last(), QString("1200"), 20000);
    const QByteArray others("name,address,value\nSecond limit,D111,1300\nLamp,M20,1\n");
    store(others);
    press(Qt::Key_E);
    auto* const dialog = m_page->findChild<QFileDialog*>();
    emit dialog->fileSelected(path);
    QVERIFY2(fault().startsWith(QString::fromUtf8("✗ ") + path + ": another program has changed"),
             qPrintable(fault()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), others);
    QVERIFY(counts().endsWith("; what was read is not saved"));
    emit dialog->fileSelected(path); // now it is known
    QCOMPARE(fault(), QString());
    emit dialog->fileSelected(path); // its own
    QCOMPARE(fault(), QString());
}

void RecipesPageTest::aBadFileLeavesTheOpenOne()
{
    m_page->open(store(RECIPE));
    const QString bad = store("name,address,value\nLimit,D110,70000\n", "bad.csv");
    m_page->open(bad);
    QVERIFY2(fault().startsWith(QString::fromUtf8("✗ ") + bad + ": line 2: "), qPrintable(fault()));
    QCOMPARE(m_table->model()->rowCount(), 5);
    store("name,address,value\nLimit,D110,700\n");
    press(Qt::Key_F5, Qt::NoModifier);
    QCOMPARE(fault(), QString());
    QCOMPARE(cells(0).at(4), QString("700"));
    QVERIFY2(counts().startsWith("filling.csv: "), qPrintable(counts()));
}

void RecipesPageTest::rowsMayNameTags()
{
    WatchedValue pressure = watched(1, "D111/s16*0.1");
    pressure.tag.name = QStringLiteral("Pressure");
    m_tags.setValues({pressure});
    m_page->setStation(3);
    m_page->open(store("name,address,value\nPressure,,12.5\nLimit,D110,1\n"));
    QCOMPARE(fault(), QString());
    QCOMPARE(cells(0).mid(1, 4), (QStringList{"Pressure", "1", "D111", "12.5"}));
    QCOMPARE(cells(1).mid(1, 4), (QStringList{"Limit", "3", "D110", "1"}));
}

void RecipesPageTest::withoutALineItSaysSo()
{
    m_page->open(store(RECIPE));
    press(Qt::Key_R);
    QTRY_COMPARE(fault(), QString::fromUtf8("✗ Nothing was read: the line is not open"));
}

// "Read from ..." below "Download stopped" would be read as its outcome.
void RecipesPageTest::aFaultTakesTheStatusBarsWordsAway()
{
    m_page->open(store(RECIPE));
    QSignalSpy said(m_page.get(), &Page::said);
    press(Qt::Key_R);
    QTRY_VERIFY(!fault().isEmpty());
    QCOMPARE(said.count(), 1);
    QCOMPARE(said.at(0).at(0).toString(), QString());
}

void RecipesPageTest::aFaultsColourFollowsTheTheme()
{
    m_page->open(m_folder.filePath("none.csv"));
    const auto* const label = m_page->findChild<QLabel*>("fault");
    m_page->setPalette(darkPalette());
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(0xff8a80));
    m_page->setPalette(lightPalette());
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(0xb71c1c));
    QVERIFY2(fault().contains("none.csv"), qPrintable(fault()));
}

void RecipesPageTest::abortsByKey()
{
    connectLine();
    m_page->open(store("name,station,address,value\nFar,9,D0,1\n")); // no such station
    press(Qt::Key_R);
    press(Qt::Key_Escape, Qt::NoModifier);
    QTRY_COMPARE_WITH_TIMEOUT(
        fault(), QString::fromUtf8("✗ Reading stopped after 0 of 1 request(s): cancelled"), 20000);
}

void RecipesPageTest::tellsThatTheControllerHasOtherValues()
{
    // What is written to a wave is gone at once.
    const KxsimProcess simulator({"--still", "--wave", "D111=7..8/1000s"});
    m_thread->machine()->openLine(serialPort(simulator.portName()));
    QTRY_VERIFY(m_log->states.contains(QStringLiteral("open")));
    m_page->open(store("name,address,value\nSecond limit,D111,1300\nLamp,M20,0\n"));
    press(Qt::Key_D);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Space, Qt::NoModifier);
    QTRY_COMPARE_WITH_TIMEOUT(
        fault(),
        QString::fromUtf8("✗ All was sent, but the controller has 1 other value(s) than were sent"),
        20000);
}

void RecipesPageTest::tellsThatWhatWasReadIsNotSaved()
{
    connectLine();
    m_page->open(store("name,address,value\nSecond limit,D111,1300\n"));
    press(Qt::Key_R);
    QTRY_COMPARE_WITH_TIMEOUT(
        counts(), QString("filling.csv: 1 value(s), 1 differ(s); what was read is not saved"),
        20000);
    press(Qt::Key_D);
    const auto* question = m_page->findChild<QLabel*>("question");
    QCOMPARE(question->text(),
             QString("Send 1 value(s) to station 1? They replace those in the controller. What was "
                     "read from it before is not saved."));
    press(Qt::Key_Escape, Qt::NoModifier);
    press(Qt::Key_E);
    auto* dialog = m_page->findChild<QFileDialog*>();
    emit dialog->fileSelected(m_folder.filePath("none/saved.csv")); // which fails
    QVERIFY(counts().endsWith("; what was read is not saved"));
    emit dialog->fileSelected(m_folder.filePath("saved.csv"));
    QCOMPARE(counts(), QString("filling.csv: 1 value(s), 1 differ(s)"));
    press(Qt::Key_D);
    QVERIFY(question->text().endsWith("They replace those in the controller."));
}

// It may be all there is of what the controller had.
void RecipesPageTest::aFailedReadKeepsWhatWasRead()
{
    connectLine();
    m_page->open(store("name,address,value\nSecond limit,D111,1300\n"));
    press(Qt::Key_R);
    QTRY_COMPARE_WITH_TIMEOUT(cells(0).last(), QString("1200"), 20000);
    m_thread->machine()->closeLine();
    QTRY_COMPARE(m_log->states.last(), QString("closed"));
    press(Qt::Key_R);
    QTRY_COMPARE(fault(), QString::fromUtf8("✗ Nothing was read: the line is not open; the values "
                                            "shown were read before"));
    QCOMPARE(cells(0).last(), QString("1200"));
    QCOMPARE(counts(), QString("filling.csv: 1 value(s), 1 differ(s); what was read is not saved"));
    press(Qt::Key_E);
    emit m_page->findChild<QFileDialog*>()->fileSelected(m_folder.filePath("saved.csv"));
    QCOMPARE(fault(), QString());
}

void RecipesPageTest::aDownloadOfWhichNothingWasSentKeepsWhatWasRead()
{
    connectLine();
    m_page->open(store("name,address,value\nSecond limit,D111,1300\n"));
    press(Qt::Key_R);
    QTRY_COMPARE_WITH_TIMEOUT(cells(0).last(), QString("1200"), 20000);
    m_thread->machine()->closeLine();
    QTRY_COMPARE(m_log->states.last(), QString("closed"));
    press(Qt::Key_D);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Space, Qt::NoModifier);
    QTRY_COMPARE(fault(), QString::fromUtf8("✗ Nothing was sent: the line is not open; the values "
                                            "shown were read before"));
    QCOMPARE(cells(0).last(), QString("1200"));
    QCOMPARE(counts(), QString("filling.csv: 1 value(s), 1 differ(s); what was read is not saved"));
}

void RecipesPageTest::anotherFileEndsADownloadAloud()
{
    connectLine();
    m_page->open(store("name,station,address,value\nFar,9,D0,1\n", "far.csv")); // no such station
    press(Qt::Key_D);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Space, Qt::NoModifier);
    m_page->setLayout({{"file", store(RECIPE)}}); // a project is opened
    // Whether the request was on the line already is a matter of time.
    const QString cancelled =
        QString::fromUtf8("✗ far.csv: Download stopped after 0 of 1 request(s): cancelled");
    QTRY_VERIFY_WITH_TIMEOUT(fault().startsWith(cancelled), 20000);
    QCOMPARE(m_table->model()->rowCount(), 5);
    press(Qt::Key_R); // of the one that is open now
    QTRY_VERIFY_WITH_TIMEOUT(counts().contains("3 the same"), 20000);
}

void RecipesPageTest::theQuestionGoesWithItsLine()
{
    connectLine();
    m_page->open(store("name,address,value\nSecond limit,D111,1300\n"));
    press(Qt::Key_D);
    const auto* question = m_page->findChild<QLabel*>("question");
    QVERIFY(question->isVisible());
    m_thread->machine()->closeLine();
    QTRY_VERIFY(!question->isVisible());
}

// What would be sent would be what was read, which nobody was asked about.
void RecipesPageTest::theQuestionGoesWithItsValues()
{
    connectLine();
    const QString path = store("address,value\nD100,5\n");
    m_page->open(path);
    press(Qt::Key_R);
    QTRY_VERIFY(counts().contains("1 differ(s)"));
    press(Qt::Key_D);
    const auto* question = m_page->findChild<QLabel*>("question");
    QVERIFY(question->isVisible());
    press(Qt::Key_E);
    emit m_page->findChild<QFileDialog*>()->fileSelected(path);
    QVERIFY(counts().contains("1 the same"));
    QVERIFY(!question->isVisible());
    press(Qt::Key_D); // asks again, of what the file has now
    QVERIFY(question->isVisible());
}

void RecipesPageTest::tellsOfWhichLineTheValuesAre()
{
    connectLine();
    m_page->open(store("name,address,value\nLimit,D110,650\n"));
    press(Qt::Key_R);
    QTRY_COMPARE_WITH_TIMEOUT(counts(), QString("filling.csv: 1 value(s), 1 the same"), 20000);
    LineStatus other;
    other.state = LineState::Open;
    other.name = QString("/dev/ttyUSB0");
    emit m_thread->machine()->lineChanged(other);
    QTRY_VERIFY2(counts().startsWith("filling.csv: 1 value(s), 1 the same; read from simulated "
                                     "controller"),
                 qPrintable(counts()));
}

void RecipesPageTest::keepsFileAndFilterInAProject()
{
    m_page->open(store(RECIPE));
    press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    RecipesPage other((PageContext()));
    other.setLayout(m_page->layout());
    const auto* table = other.findChild<QTableView*>();
    QCOMPARE(table->model()->rowCount(), 0); // nothing differs yet
    QCOMPARE(other.layout().value("file").toString(), m_folder.filePath("filling.csv"));
    QCOMPARE(other.layout().value("differencesOnly").toBool(), true);
    other.setLayout({{"of a later version", 1}});
    QCOMPARE(other.layout().value("file").toString(), QString());
    QCOMPARE(other.layout().value("of a later version").toInt(), 1);
    other.setLayout({});
    QVERIFY(!other.layout().contains("of a later version"));
}

void RecipesPageTest::columnsAreOfThisComputer()
{
    QSignalSpy changed(m_page.get(), &Page::layoutChanged);
    const QJsonObject layout = m_page->layout();
    m_table->horizontalHeader()->resizeSection(4, 321);
    QCOMPARE(changed.count(), 0); // no project has them
    QCOMPARE(m_page->layout(), layout);
    RecipesPage other((PageContext()));
    other.setPlace(m_page->place());
    QCOMPARE(other.findChild<QTableView*>()->columnWidth(4), 321);
}

void RecipesPageTest::aMissingFileOfAProjectIsKept()
{
    const QString path = m_folder.filePath("later.csv");
    m_page->setLayout({{"file", path}});
    QVERIFY2(fault().contains("later.csv"), qPrintable(fault()));
    QCOMPARE(m_page->layout().value("file").toString(), path);
    store(RECIPE, "later.csv");
    press(Qt::Key_F5, Qt::NoModifier);
    QCOMPARE(fault(), QString());
    QCOMPARE(m_table->model()->rowCount(), 5);
}

void RecipesPageTest::allCanBeNamed()
{
    QVERIFY(!m_table->accessibleName().isEmpty());
    QVERIFY(!m_page->findChild<QProgressBar*>()->accessibleName().isEmpty());
    for (const QPushButton* button : m_page->findChildren<QPushButton*>())
        QVERIFY(!button->text().isEmpty() && !button->toolTip().isEmpty());
    for (const QAction* action : m_page->actions())
        QVERIFY(!action->text().isEmpty() && !action->shortcut().isEmpty());
    QCOMPARE(m_page->key(), QString("recipes"));
    QCOMPARE(m_page->windowTitle(), QString("Recipes"));
}

QTEST_MAIN(RecipesPageTest)

#include "tst_recipes_page.moc"
