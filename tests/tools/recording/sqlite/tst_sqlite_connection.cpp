#include "recording/sqlite/sqlite_connection.h"

#include <QtCore/QCoreApplication>
#include <QtTest/QTest>

using namespace kx;

class SqliteConnectionTest : public QObject
{
    Q_OBJECT

private slots:
    void withoutThePlugInItIsSaidWhatToInstall();
};

// Qt looks for its plug-ins once: so this stands alone.
void SqliteConnectionTest::withoutThePlugInItIsSaidWhatToInstall()
{
    QCoreApplication::setLibraryPaths({});
    SqliteConnection connection;
    QString fault;
    QVERIFY(!connection.open(QStringLiteral("/dev/null"), &fault));
    QCOMPARE(fault, QStringLiteral("Qt's plug-in for SQLite is missing; install "
                                   "libqt%1sql%1-sqlite, or use a .csv file")
                        .arg(QT_VERSION_MAJOR));
}

QTEST_GUILESS_MAIN(SqliteConnectionTest)
#include "tst_sqlite_connection.moc"
