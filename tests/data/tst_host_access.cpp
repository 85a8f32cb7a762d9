#include "data/cached_record.h"

#include <QtTest/QTest>

#include <climits>

namespace
{

// The jobs of the write queue as "station type address count".
QStringList queued()
{
    QStringList jobs;
    for (const VARIABLE& job : driver.writeList)
        jobs << QString::fromLatin1("%1 %2 %3 %4")
                    .arg(job.station)
                    .arg(job.regType)
                    .arg(job.address)
                    .arg(job.count);
    return jobs;
}

QByteArray payload(const VARIABLE& job, int length)
{
    return QByteArray(reinterpret_cast<const char*>(job.data), length);
}

int setValues(const char* type, int address, int count, const QByteArray& values, int kind = 2)
{
    QByteArray copy = values;
    return intf_setData(1, QString::fromLatin1(type), address, count,
                        reinterpret_cast<unsigned char*>(copy.data()), kind);
}

} // namespace

class HostAccessTest : public QObject
{
    Q_OBJECT

private slots:
    void bothAlwaysSucceed()
    {
        DriverFixture runtime;
        unsigned char out[4] = {};
        QCOMPARE(intf_getData(1, "D", 5, 1, out), 1);
        QCOMPARE(intf_getData(1, "Q", 5, 1, out), 1);
        QCOMPARE(setValues("D", 5, 1, bytes("0100")), 1);
        QCOMPARE(setValues("Q", 5, 1, bytes("0100")), 1);
        QCOMPARE(setValues("D", 5, -1, bytes("")), 1);
    }

    void writesBitsAsOneJob_data()
    {
        QTest::addColumn<QString>("type");
        for (const char* type : {"Y", "M", "S", "SM", "T", "C"})
            QTest::newRow(type) << type;
    }

    void writesBitsAsOneJob()
    {
        QFETCH(QString, type);
        DriverFixture runtime("1#0#0#3#2");
        setValues(type.toLatin1().constData(), 5, 40, QByteArray(40, '\1'), 77);
        QCOMPARE(queued(), QStringList() << "1 " + type + " 5 40");
        QCOMPARE(driver.writeList.first().kind, 77);
        QCOMPARE(payload(driver.writeList.first(), 41), QByteArray(40, '\1') + bytes("00"));
    }

    void writesWordsInPieces_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        QTest::addColumn<QStringList>("jobs");
        QTest::newRow("70 registers") << "D" << 70
                                      << (QStringList() << "1 D 100 32"
                                                        << "1 D 132 32"
                                                        << "1 D 164 6");
        QTest::newRow("64 registers") << "D" << 64
                                      << (QStringList() << "1 D 100 32"
                                                        << "1 D 132 32");
        QTest::newRow("33 registers") << "D" << 33
                                      << (QStringList() << "1 D 100 32"
                                                        << "1 D 132 1");
        QTest::newRow("32 registers") << "D" << 32 << (QStringList() << "1 D 100 32");
        QTest::newRow("SD") << "SD" << 2 << (QStringList() << "1 SD 100 2");
        QTest::newRow("TV") << "TV" << 2 << (QStringList() << "1 TV 100 2");
        QTest::newRow("CV") << "CV" << 2 << (QStringList() << "1 CV 100 2");
        QTest::newRow("Z") << "Z" << 1 << (QStringList() << "1 Z 100 1");
        QTest::newRow("32CV advances by registers") << "32CV" << 70
                                                    << (QStringList() << "1 32CV 100 32"
                                                                      << "1 32CV 132 32"
                                                                      << "1 32CV 164 6");
    }

    void writesWordsInPieces()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        QFETCH(QStringList, jobs);
        QByteArray values;
        for (int i = 0; i < 2 * count; ++i)
            values.append(static_cast<char>(i + 1));
        DriverFixture runtime;
        setValues(type.toLatin1().constData(), 100, count, values, 9);
        QCOMPARE(queued(), jobs);
        for (int i = 0; i < driver.writeList.size(); ++i) {
            const VARIABLE& piece = driver.writeList.at(i);
            QCOMPARE(piece.kind, 9);
            QCOMPARE(payload(piece, 2 * piece.count), values.mid(64 * i, 2 * piece.count));
            QCOMPARE(int(piece.data[2 * piece.count]), 0);
        }
    }

    void whatReachesOnlyTheCache_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("parameters");
        QTest::newRow("an input") << "X"
                                  << "1#0#0#3#32";
        QTest::newRow("coils, local only") << "Y"
                                           << "1#1#0#3#32";
        QTest::newRow("words, local only") << "D"
                                           << "1#-1#0#3#32";
        QTest::newRow("words, length limit 0") << "D"
                                               << "1#0#0#3#0";
        QTest::newRow("32CV, length limit 0") << "32CV"
                                              << "1#0#0#3#0";
    }

    void whatReachesOnlyTheCache()
    {
        QFETCH(QString, type);
        QFETCH(QString, parameters);
        const QByteArray name = type.toLatin1();
        DriverFixture runtime(parameters.toLatin1().constData());
        record(1, name.constData(), 5).monitorFlags = 1;
        setValues(name.constData(), 5, 2, bytes("01010101"));
        QCOMPARE(queued(), QStringList());
        QVERIFY(runtime.reports.contains(Report{1, 1, type, 5}));
        QCOMPARE(writtenValue(1, name.constData(), 5).left(1), bytes("01"));
    }

    void countsBelowOneQueueNothing_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        for (const int count : {0, -1, -100, INT_MIN})
            for (const char* type : {"M", "D", "32CV", "X", "Q"})
                QTest::newRow(QByteArray(type) + ' ' + QByteArray::number(count)) << type << count;
    }

    void countsBelowOneQueueNothing()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        DriverFixture runtime;
        setValues(type.toLatin1().constData(), 5, count, bytes("0101"));
        QCOMPARE(queued(), QStringList());
        QCOMPARE(cachedCount(), 0);
    }

    void anUnknownTypeIsIgnored()
    {
        DriverFixture runtime;
        setValues("Q", 5, 1, bytes("0100"));
        QCOMPARE(queued(), QStringList());
        QCOMPARE(cachedCount(), 0);
        QCOMPARE(runtime.reports, QList<Report>());
    }

    // One 32-bit register is half a value: it is sent but cannot be cached.
    void half32CVValuesAreSentButNotCached()
    {
        DriverFixture runtime;
        setValues("32CV", 200, 1, bytes("3412"));
        QCOMPARE(queued(), QStringList() << "1 32CV 200 1");
        QCOMPARE(cachedCount(), 0);
    }

    void writesBitsInPieces_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QStringList>("jobs");
        QTest::newRow("as many as a payload holds") << 1024 << (QStringList() << "1 M 10 1024");
        QTest::newRow("one more") << 1025
                                  << (QStringList() << "1 M 10 1024"
                                                    << "1 M 1034 1");
        QTest::newRow("the most coils that a request may carry")
            << 1968
            << (QStringList() << "1 M 10 1024"
                              << "1 M 1034 944");
        QTest::newRow("two whole pieces") << 2048
                                          << (QStringList() << "1 M 10 1024"
                                                            << "1 M 1034 1024");
        QTest::newRow("a rest after two") << 2500
                                          << (QStringList() << "1 M 10 1024"
                                                            << "1 M 1034 1024"
                                                            << "1 M 2058 452");
    }

    void writesBitsInPieces()
    {
        QFETCH(int, count);
        QFETCH(QStringList, jobs);
        QByteArray values;
        for (int i = 0; i < count; ++i)
            values.append(static_cast<char>(i % 251 + 1)); // no two pieces are alike
        DriverFixture runtime("1#0#0#3#2");
        setValues("M", 10, count, values, 77);
        QCOMPARE(queued(), jobs);
        for (int i = 0; i < driver.writeList.size(); ++i) {
            const VARIABLE& piece = driver.writeList.at(i);
            QCOMPARE(piece.kind, 77);
            QCOMPARE(payload(piece, piece.count), values.mid(1024 * i, piece.count));
            QCOMPARE(payload(piece, 1024).mid(piece.count), QByteArray(1024 - piece.count, 0));
        }
        QCOMPARE(DriverFixture::data(1, "M", 10, count, count), values);
    }

    void registersPastThePayloadAreCutFromTheJob()
    {
        DriverFixture runtime("1#0#0#3#600");
        setValues("D", 0, 600, QByteArray(1200, '\x11'));
        QCOMPARE(queued(), QStringList() << "1 D 0 600");
        QCOMPARE(payload(driver.writeList.first(), 1024), QByteArray(1024, '\x11'));
        QCOMPARE(DriverFixture::data(1, "D", 599, 1, 2), bytes("1111"));
    }

    void jobsAreQueuedBeforeTheReport()
    {
        DriverFixture runtime;
        int jobs = 0;
        runtime.onReport = [&](const Report&) { jobs = static_cast<int>(driver.writeList.size()); };
        setValues("Y", 5, 1, bytes("01"));
        QCOMPARE(jobs, 1);
    }
};

QTEST_APPLESS_MAIN(HostAccessTest)
#include "tst_host_access.moc"
