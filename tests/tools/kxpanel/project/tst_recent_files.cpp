#include "kxpanel/project/recent_files.h"

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>

using namespace kxpanel;

class RecentFilesTest : public QObject
{
    Q_OBJECT

private slots:
    void theLatestComesFirst();
    void onlySomeAreKept();
    void whatHasGoneIsRemoved();
};

void RecentFilesTest::theLatestComesFirst()
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("a.ini")), QSettings::IniFormat);
    RecentFiles files(&settings);
    QCOMPARE(files.paths(), QStringList());
    files.add(QStringLiteral("/a/one.kxpanel"));
    files.add(QStringLiteral("/a/two, three.kxpanel"));
    files.add(QStringLiteral("/a/one.kxpanel"));
    QCOMPARE(RecentFiles(&settings).paths(),
             (QStringList{"/a/one.kxpanel", "/a/two, three.kxpanel"}));
}

void RecentFilesTest::onlySomeAreKept()
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("a.ini")), QSettings::IniFormat);
    RecentFiles files(&settings);
    for (int i = 0; i < 12; ++i)
        files.add(QStringLiteral("/a/%1").arg(i));
    QCOMPARE(files.paths().size(), 10);
    QCOMPARE(files.paths().first(), QStringLiteral("/a/11"));
    QCOMPARE(files.paths().last(), QStringLiteral("/a/2"));
}

void RecentFilesTest::whatHasGoneIsRemoved()
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("a.ini")), QSettings::IniFormat);
    RecentFiles files(&settings);
    files.add(QStringLiteral("/a/one"));
    files.add(QStringLiteral("/a/two"));
    files.remove(QStringLiteral("/a/two"));
    QCOMPARE(files.paths(), QStringList{"/a/one"});
    files.clear();
    QCOMPARE(files.paths(), QStringList());
}

QTEST_GUILESS_MAIN(RecentFilesTest)
#include "tst_recent_files.moc"
