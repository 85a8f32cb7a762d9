// Values that a read or an upload tells are the controller's, and requests for registers that do
// not exist harm nobody.

#include "tools/panel/jobs/polling_run.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kx;

class SessionValuesTest : public QObject
{
    Q_OBJECT

private slots:
    void aReadTellsWhatTheStationHolds_data();
    void aReadTellsWhatTheStationHolds();
    void anUploadTellsWhatTheStationHolds();
    void valuesOfWhatDoesNotExist_data();
    void valuesOfWhatDoesNotExist();
    void watchingWhatDoesNotExist_data() { valuesOfWhatDoesNotExist_data(); }
    void watchingWhatDoesNotExist();
    void aRefusedSessionLeavesTheClockAlone();
};

void SessionValuesTest::aReadTellsWhatTheStationHolds_data()
{
    QTest::addColumn<QByteArray>("assignment");
    QTest::newRow("a word") << QByteArray("D100@2=7");
    QTest::newRow("words") << QByteArray("D100@2=7,8");
    QTest::newRow("a coil") << QByteArray("M0@2=1");
    QTest::newRow("a 32CV") << QByteArray("32CV200@2=100000");
}

// The write is asked for while the read is on its way.
void SessionValuesTest::aReadTellsWhatTheStationHolds()
{
    QFETCH(QByteArray, assignment);
    const Assignment wanted = assignmentOf(assignment.constData());
    PollingRun polling;
    QList<qint64> told;
    connect(&polling.session(), &Session::readFinished, this,
            [&](int, const ReadEnd& end) { told = end.values; });
    polling.session().read(wanted.range);
    bool isOnTheWay = false;
    polling.run().line().onRequest = [&](const QByteArray& request) {
        isOnTheWay = isOnTheWay || request.at(0) == 2;
    };
    QVERIFY(polling.until([&] { return isOnTheWay; }));
    polling.session().write(wanted);
    QCOMPARE(polling.session().values(wanted.range), wanted.values);
    QVERIFY(polling.until([&] { return !told.isEmpty(); }));
    QList<qint64> zeros;
    while (zeros.size() < wanted.values.size())
        zeros << 0;
    QCOMPARE(told, zeros);
}

void SessionValuesTest::anUploadTellsWhatTheStationHolds()
{
    PollingRun polling;
    RecipeJob upload(&polling.session(), layoutOf("a,2,M,0,bit,1\n"), RecipeDirection::Upload);
    upload.start();
    polling.session().write(assignmentOf("M0@2=1")); // after the recipe
    QVERIFY(polling.untilEnded(upload));
    QVERIFY(upload.failure().isNone());
    RecipeFile file;
    QString error;
    QVERIFY(RecipeFile::parse("name,station,register,address,type,value\na,2,M,0,bit,1\n", 1, &file,
                              &error));
    QCOMPARE(upload.values(file.rows()), (QList<QList<qint64>>{{0}}));
    QVERIFY(polling.until([&] { return polling.memory("M0@2") == QList<quint32>{1}; }));
}

void SessionValuesTest::valuesOfWhatDoesNotExist_data()
{
    QTest::addColumn<AddressRange>("range");
    const RegisterType* const d = findRegisterType(QStringLiteral("D"));
    QTest::newRow("no type") << AddressRange{nullptr, 0, 1, 1};
    QTest::newRow("station 0") << AddressRange{d, 0, 1, 0};
    QTest::newRow("a station left out") << AddressRange{d, 0, 1, -1};
    QTest::newRow("past the last station") << AddressRange{d, 0, 1, 248};
    QTest::newRow("no value") << AddressRange{d, 0, 0, 1};
    QTest::newRow("fewer than none") << AddressRange{d, 0, -1, 1};
    QTest::newRow("more than there are") << AddressRange{d, 0, 2147483647, 1};
    QTest::newRow("before D0") << AddressRange{d, -1, 1, 1};
    QTest::newRow("past D7999") << AddressRange{d, 8000, 1, 1};
}

void SessionValuesTest::valuesOfWhatDoesNotExist()
{
    QFETCH(AddressRange, range);
    PollingRun polling;
    QCOMPARE(polling.session().values(range), QList<qint64>());
}

void SessionValuesTest::watchingWhatDoesNotExist()
{
    QFETCH(AddressRange, range);
    PollingRun polling;
    QSignalSpy failures(&polling.session(), &Session::failed);
    const QList<AddressRange> watched = QList<AddressRange>{range} + polling.run().watched();
    QCOMPARE(polling.session().watch(watched), 1);
    QCOMPARE(failures.size(), 0); // but from the event loop
    QTRY_COMPARE(failures.size(), 1);
    const auto failure = failures.first().first().value<Failure>();
    QCOMPARE(failure.kind, FailureKind::OutOfRange);
    QCOMPARE(failure.range.address, range.address);
    QVERIFY(polling.pollsGoOn());
}

void SessionValuesTest::aRefusedSessionLeavesTheClockAlone()
{
    PollingRun polling;
    QVERIFY(polling.pollsGoOn());
    QString error;
    DriverEntryPoints entryPoints;
    QVERIFY(loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &entryPoints, &error));
    QVERIFY(!Session::create(entryPoints, &polling.run().line(), SessionSettings(), &error,
                             const_cast<VirtualClock*>(&polling.run().clock())));
    QVERIFY(polling.pollsGoOn());
}

QTEST_GUILESS_MAIN(SessionValuesTest)
#include "tst_session_values.moc"
