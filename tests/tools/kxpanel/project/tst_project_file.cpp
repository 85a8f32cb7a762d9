#include "kxpanel/project/project_file.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>

using namespace kxpanel;

class ProjectFileTest : public QObject
{
    Q_OBJECT

private slots:
    void savesAndOpens();
    void tellsWhatIsUnsaved();
    void aBrokenFileChangesNothing();
    void aFileThatCannotBeWrittenStaysUnsaved();
    void whatCouldNotBeOpenedIsNotWritten();
    void aLinkStaysOne();
    void whatAnotherWindowSavedIsNotReplacedUnseen();
    void aFileThatIsGoneIsMadeAgain();
};

void ProjectFileTest::savesAndOpens()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("line3.kxpanel"));
    Project project;
    project.connection.port = QStringLiteral("ttyS1");
    ProjectFile file;
    QString error;
    QVERIFY2(file.save(path, project, &error), qPrintable(error));
    QCOMPARE(file.path(), path);

    ProjectFile other;
    Project read;
    QStringList faults;
    QVERIFY(other.open(path, &read, &faults));
    QCOMPARE(other.path(), path);
    QVERIFY(!other.isChanged());
    QCOMPARE(read.connection.port, QStringLiteral("ttyS1"));
    QFile bytes(path);
    QVERIFY(bytes.open(QIODevice::ReadOnly));
    QCOMPARE(bytes.readAll(), projectText(project));
}

void ProjectFileTest::tellsWhatIsUnsaved()
{
    const QTemporaryDir folder;
    Project project;
    ProjectFile file;
    file.begin(project);
    QVERIFY(!file.isChanged());
    QSignalSpy changed(&file, &ProjectFile::changed);
    project.connection.station = 2;
    file.note(project);
    file.note(project);
    QVERIFY(file.isChanged());
    QCOMPARE(changed.size(), 1);
    project.connection.station = 1; // undone
    file.note(project);
    QVERIFY(!file.isChanged());
    project.connection.station = 3;
    file.note(project);
    QString error;
    QVERIFY(file.save(folder.filePath(QStringLiteral("a.kxpanel")), project, &error));
    QVERIFY(!file.isChanged());
}

void ProjectFileTest::aBrokenFileChangesNothing()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("broken.kxpanel"));
    QFile bytes(path);
    QVERIFY(bytes.open(QIODevice::WriteOnly));
    bytes.write("{\n\"format\": }\n");
    bytes.close();
    ProjectFile file;
    Project project;
    project.connection.station = 5;
    QStringList faults;
    QVERIFY(!file.open(path, &project, &faults));
    QCOMPARE(faults.size(), 1);
    QVERIFY2(faults.first().startsWith(path + QLatin1String(": line 2, column 11: ")),
             qPrintable(faults.first()));
    QCOMPARE(file.path(), QString());
    QCOMPARE(project.connection.station, 5);
    faults.clear();
    QVERIFY(!file.open(folder.filePath(QStringLiteral("none")), &project, &faults));
    QCOMPARE(faults.size(), 1);
}

void ProjectFileTest::aFileThatCannotBeWrittenStaysUnsaved()
{
    const QTemporaryDir folder;
    ProjectFile file;
    file.begin(Project());
    Project project;
    project.connection.station = 2;
    file.note(project);
    QString error;
    QVERIFY(!file.save(folder.filePath(QStringLiteral("none/a.kxpanel")), project, &error));
    QVERIFY(!error.isEmpty());
    QVERIFY(file.isChanged());
    QCOMPARE(file.path(), QString());
}

void ProjectFileTest::whatCouldNotBeOpenedIsNotWritten()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.kxpanel"));
    const int rest = 150; // of what stands around the text
    Project project;
    ProjectFile file;
    QString error;
    QStringList faults;
    project.extra[QLatin1String("long")] = QString(16 * 1024 * 1024 - rest, QLatin1Char('a'));
    QVERIFY2(file.save(path, project, &error), qPrintable(error));
    QVERIFY(ProjectFile().open(path, &project, &faults));
    project.extra[QLatin1String("long")] = QString(16 * 1024 * 1024, QLatin1Char('b'));
    file.note(project);
    QVERIFY(!file.save(path, project, &error));
    QCOMPARE(error, path
                        + ": would be larger than 16 MiB, the most that can be opened again; leave "
                          "values out or shorten comments");
    QVERIFY(file.isChanged());
    QVERIFY(ProjectFile().open(path, &project, &faults)); // as it was
    QCOMPARE(project.extra[QLatin1String("long")].toString().at(0), QChar('a'));
}

/// Also one that another program put there since, and the file may be elsewhere.
void ProjectFileTest::aLinkStaysOne()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("link.kxpanel"));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("shared")));
    QVERIFY(QFile::link(QStringLiteral("shared/line3.kxpanel"), path)); // which is not there yet
    Project project;
    ProjectFile file;
    QString error;
    QStringList faults;
    for (const int station : {7, 8}) {
        project.connection.station = station;
        QVERIFY2(file.save(path, project, &error), qPrintable(error));
        QVERIFY(QFileInfo(path).isSymLink());
        Project read;
        QVERIFY(ProjectFile().open(folder.filePath(QStringLiteral("shared/line3.kxpanel")), &read,
                                   &faults));
        QCOMPARE(read.connection.station, station);
    }
}

// Else the last one to save takes away what the others did, and nobody is told.
void ProjectFileTest::whatAnotherWindowSavedIsNotReplacedUnseen()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("line3.kxpanel"));
    const auto stationInFile = [&path] {
        ProjectFile file;
        Project project;
        QStringList faults;
        return file.open(path, &project, &faults) ? project.connection.station : -1;
    };
    Project project;
    ProjectFile one;
    ProjectFile other;
    QString error;
    QStringList faults;
    QVERIFY(one.save(path, project, &error));
    QVERIFY(other.open(path, &project, &faults));
    project.connection.station = 7;
    QVERIFY(other.save(path, project, &error)); // nobody else has changed it
    project.connection.station = 8;
    one.note(project);
    QVERIFY(!one.save(path, project, &error));
    QCOMPARE(error, path
                        + ": another program has changed it since; save once more to replace it, "
                          "or save as another file");
    QCOMPARE(stationInFile(), 7);
    QVERIFY(one.isChanged());
    error.clear();
    QVERIFY2(one.save(path, project, &error), qPrintable(error)); // now it is known
    QCOMPARE(stationInFile(), 8);
    project.connection.station = 9;
    QVERIFY(one.save(path, project, &error));
    QVERIFY(!other.save(path, project, &error));
    QVERIFY(other.save(folder.filePath("another.kxpanel"), project, &error));
}

void ProjectFileTest::aFileThatIsGoneIsMadeAgain()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("line3.kxpanel"));
    ProjectFile file;
    QString error;
    QVERIFY(file.save(path, Project(), &error));
    QVERIFY(QFile::remove(path));
    QVERIFY2(file.save(path, Project(), &error), qPrintable(error));
    QVERIFY(QFile::exists(path));
}

QTEST_GUILESS_MAIN(ProjectFileTest)
#include "tst_project_file.moc"
