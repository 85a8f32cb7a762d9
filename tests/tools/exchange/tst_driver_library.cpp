#include "exchange/driver_library.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace kx;

class DriverLibraryTest : public QObject
{
    Q_OBJECT

private slots:
    void driverIsLoaded();
    void failures_data();
    void failures();

private:
    QTemporaryDir m_directory;
};

void DriverLibraryTest::driverIsLoaded()
{
    DriverEntryPoints entryPoints;
    QString error;
    QVERIFY2(loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &entryPoints, &error),
             qPrintable(error));
    QString page;
    entryPoints.getDriverPropertyPage(page);
    QCOMPARE(page, QString::fromLatin1("0_0"));
    QList<QString> names;
    QCOMPARE(entryPoints.getRegListByType(1, names), 1);
    QCOMPARE(names.size(), 6);
}

void DriverLibraryTest::failures_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("reason");
    const QString textFile = m_directory.filePath(QString::fromLatin1("text.so.1"));
    QFile text(textFile);
    QVERIFY(text.open(QIODevice::WriteOnly));
    text.write("no library\n");
    QTest::newRow("missing file") << m_directory.filePath(QString::fromLatin1("absent.so.1"))
                                  << QString::fromLatin1(": cannot load the driver library: ");
    QTest::newRow("no library") << textFile
                                << QString::fromLatin1(": cannot load the driver library: ");
    QTest::newRow("missing entry point")
        << QString::fromLatin1(KX_HALF_DRIVER_FILE)
        << QString::fromLatin1(
               ": not the driver library: it has no intf_setAddrValueChangeCallBack");
}

void DriverLibraryTest::failures()
{
    QFETCH(QString, file);
    QFETCH(QString, reason);
    DriverEntryPoints entryPoints;
    QString error;
    QVERIFY(!loadDriver(file, &entryPoints, &error));
    QVERIFY2(error.startsWith(file + reason), qPrintable(error));
    QVERIFY2(!error.contains(QLatin1Char('\n')), qPrintable(error));
    QVERIFY(!entryPoints.initProperty);
}

QTEST_GUILESS_MAIN(DriverLibraryTest)
#include "tst_driver_library.moc"
