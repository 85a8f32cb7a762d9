#include "kxpanel/shell/project_keeper.h"

#include <QtCore/QFile>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

using namespace kxpanel;

class ProjectKeeperTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aNewOneHasNoChanges();
    void aChangeIsSeen();
    void savedAndOpened();
    void whatCannotBeReadChangesNothing();
    void aBrokenFileStaysARecentOne();
    void whatCannotBeSavedStaysUnsaved();
    void aTagsFileIsNoProject();
    void leavingAsks_data();
    void leavingAsks();
    void withoutChangesNobodyIsAsked();

private:
    QString path(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    void answer(QMessageBox::StandardButton button);

    QTemporaryDir m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<QWidget> m_window;
    ProjectKeeper* m_keeper = nullptr;
    int m_station = 1; ///< all that this window shows
};

void ProjectKeeperTest::init()
{
    m_settings = std::make_unique<QSettings>(path("settings.ini"), QSettings::IniFormat);
    m_settings->clear();
    m_window = std::make_unique<QWidget>();
    m_station = 1;
    m_keeper = new ProjectKeeper(
        {[this](Project* project) { project->connection.station = m_station; },
         [this](const Project& project) { m_station = project.connection.station; }},
        m_settings.get(), m_window.get());
    m_keeper->beginNew();
}

void ProjectKeeperTest::cleanup()
{
    m_window.reset();
    m_settings.reset();
}

void ProjectKeeperTest::answer(QMessageBox::StandardButton button)
{
    auto* const question = m_window->findChild<QMessageBox*>();
    QVERIFY(question);
    QTest::mouseClick(question->button(button), Qt::LeftButton);
}

void ProjectKeeperTest::aNewOneHasNoChanges()
{
    QCOMPARE(m_keeper->title(), QStringLiteral("unnamed project"));
    QVERIFY(!m_keeper->isChanged());
    QCOMPARE(m_keeper->recentFiles(), QStringList());
}

void ProjectKeeperTest::aChangeIsSeen()
{
    QSignalSpy states(m_keeper, &ProjectKeeper::stateChanged);
    m_station = 5;
    m_keeper->touch();
    m_keeper->touch();
    QTRY_COMPARE(states.count(), 1);
    QVERIFY(m_keeper->isChanged());
    m_station = 1; // changed back
    m_keeper->touch();
    QVERIFY(!m_keeper->isChanged()); // looked at since somebody asks
}

void ProjectKeeperTest::savedAndOpened()
{
    m_station = 5;
    m_keeper->saveAs();
    auto* const dialog = m_window->findChild<QFileDialog*>();
    QVERIFY(dialog);
    emit dialog->fileSelected(path("a.kxpanel"));
    QCOMPARE(m_keeper->title(), QStringLiteral("a.kxpanel"));
    QCOMPARE(m_keeper->recentFiles(), QStringList{path("a.kxpanel")});
    m_keeper->beginNew();
    QCOMPARE(m_station, 1);
    QCOMPARE(m_keeper->path(), QString());
    m_keeper->openRecent(path("a.kxpanel"));
    QCOMPARE(m_station, 5);
    m_station = 6;
    m_keeper->touch();
    m_keeper->save(); // without a question
    QVERIFY(!m_keeper->isChanged());
    m_keeper->beginNew();
    m_keeper->open(path("a.kxpanel"));
    QCOMPARE(m_station, 6);
}

void ProjectKeeperTest::whatCannotBeReadChangesNothing()
{
    QSignalSpy faults(m_keeper, &ProjectKeeper::failed);
    m_station = 5;
    QFile file(path("broken.kxpanel"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"format\": ");
    file.close();
    m_keeper->open(path("broken.kxpanel"));
    QCOMPARE(faults.count(), 1);
    const QString fault = faults.first().first().toString();
    QVERIFY2(fault.startsWith(path("broken.kxpanel") + QStringLiteral(": ")), qPrintable(fault));
    QCOMPARE(m_station, 5);
    QCOMPARE(m_keeper->path(), QString());
}

// It will be mended; one that is gone will not come back.
void ProjectKeeperTest::aBrokenFileStaysARecentOne()
{
    m_keeper->saveAs();
    emit m_window->findChild<QFileDialog*>()->fileSelected(path("c.kxpanel"));
    QFile file(path("c.kxpanel"));
    QVERIFY(file.open(QIODevice::WriteOnly)); // empty now
    file.close();
    m_keeper->open(path("c.kxpanel"));
    QCOMPARE(m_keeper->recentFiles(), QStringList{path("c.kxpanel")});
    QVERIFY(file.remove());
    m_keeper->open(path("c.kxpanel"));
    QCOMPARE(m_keeper->recentFiles(), QStringList());
}

// Also when it is saved before anybody looked whether something changed.
void ProjectKeeperTest::whatCannotBeSavedStaysUnsaved()
{
    QSignalSpy faults(m_keeper, &ProjectKeeper::failed);
    m_keeper->saveAs();
    m_station = 5;
    m_keeper->touch();
    emit m_window->findChild<QFileDialog*>()->fileSelected(path("none/a.kxpanel"));
    QCOMPARE(faults.count(), 1);
    QVERIFY(faults.first().first().toString().startsWith(path("none/a.kxpanel")));
    QVERIFY(m_keeper->isChanged());
    QCOMPARE(m_keeper->path(), QString());
}

void ProjectKeeperTest::aTagsFileIsNoProject()
{
    QSignalSpy tags(m_keeper, &ProjectKeeper::tagsChosen);
    m_station = 5;
    m_keeper->touch();
    m_keeper->openRecent(path("line.CSV")); // added, so nothing is lost
    QCOMPARE(tags.value(0).value(0).toString(), path("line.CSV"));
    QVERIFY(!m_window->findChild<QMessageBox*>());
}

void ProjectKeeperTest::leavingAsks_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("leaves");
    QTest::addColumn<bool>("isSaved");
    QTest::newRow("save") << int(QMessageBox::Save) << true << true;
    QTest::newRow("discard") << int(QMessageBox::Discard) << true << false;
    QTest::newRow("stay") << int(QMessageBox::Cancel) << false << false;
}

void ProjectKeeperTest::leavingAsks()
{
    QFETCH(int, button);
    m_keeper->saveAs();
    emit m_window->findChild<QFileDialog*>()->fileSelected(path("b.kxpanel"));
    m_station = 9;
    m_keeper->touch();
    bool leaves = false;
    m_keeper->leave([&leaves] { leaves = true; });
    QVERIFY(!leaves);
    answer(static_cast<QMessageBox::StandardButton>(button));
    QTEST(leaves, "leaves");
    QTEST(!m_keeper->isChanged(), "isSaved");
}

void ProjectKeeperTest::withoutChangesNobodyIsAsked()
{
    bool leaves = false;
    m_keeper->leave([&leaves] { leaves = true; });
    QVERIFY(leaves);
}

QTEST_MAIN(ProjectKeeperTest)
#include "tst_project_keeper.moc"
