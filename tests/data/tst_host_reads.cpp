// What the runtime reads from the cache.

#include "data/cached_record.h"

#include <QtTest/QTest>

#include <climits>

class HostReadsTest : public QObject
{
    Q_OBJECT

private slots:
    void readsWhatIsCached_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        QTest::addColumn<QByteArray>("out");
        for (const char* type : {"X", "Y", "M", "S", "SM", "T", "C"})
            QTest::newRow(type) << type << 2 << bytes("11 00 EEEE");
        for (const char* type : {"D", "SD", "TV", "CV", "Z"})
            QTest::newRow(type) << type << 2 << bytes("1122 0000 EE");
        QTest::newRow("32CV") << "32CV" << 4 << bytes("11223344 00000000 EE");
        QTest::newRow("32CV, odd count") << "32CV" << 3 << bytes("11223344 EE");
    }

    void readsWhatIsCached()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        QFETCH(QByteArray, out);
        const QByteArray name = type.toLatin1();
        DriverFixture runtime;
        setReadValue(1, name.constData(), 5, bytes("11223344"));
        record(1, name.constData(), 5).commError = 1; // a failed address keeps its value
        QCOMPARE(DriverFixture::data(1, name.constData(), 5, count, static_cast<int>(out.size())),
                 out);
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(isCached(1, name.constData(), 6), count != 3);
        QCOMPARE(int(cached(1, name.constData(), 5).commError), 1);
    }

    void aPendingWriteIsRead()
    {
        DriverFixture runtime;
        setReadValue(1, "D", 5, bytes("3412"));
        setValues(1, "D", 5, 1, "7856");
        QCOMPARE(DriverFixture::data(1, "D", 5, 1, 2), bytes("7856"));
        record(1, "D", 5).writePending = 0;
        QCOMPARE(DriverFixture::data(1, "D", 5, 1, 2), bytes("3412"));
    }

    void nothingToRead_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        QTest::newRow("no bits") << "M" << 0;
        QTest::newRow("negative bits") << "M" << -1;
        QTest::newRow("no words") << "D" << 0;
        QTest::newRow("fewest words") << "D" << INT_MIN;
        QTest::newRow("half a 32CV value") << "32CV" << 1;
        QTest::newRow("negative 32CV") << "32CV" << -4;
        QTest::newRow("unknown type") << "Q" << 2;
        QTest::newRow("lower case") << "d" << 2;
        QTest::newRow("empty type") << "" << 2;
    }

    void nothingToRead()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        DriverFixture runtime;
        QCOMPARE(DriverFixture::data(1, type.toLatin1().constData(), 5, count, 4),
                 bytes("EEEEEEEE"));
        QCOMPARE(cachedCount(), 0);
    }
};

QTEST_APPLESS_MAIN(HostReadsTest)
#include "tst_host_reads.moc"
