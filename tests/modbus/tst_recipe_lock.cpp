// What another thread of the runtime sees of a recipe transfer through the mutex that
// it shares with the driver.

#include "modbus/mutex_wait.h"
#include "modbus/request_trap.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <utility>

namespace
{

const int WRITE_REQUEST_BYTE = 60115;
const int READ_REQUEST_BYTE = 60116;

_RCP_VAR_PRO blockAt(int address)
{
    return variable(1, QString::fromLatin1("D"), address, 1, 0);
}

} // namespace

class RecipeLockTest : public QObject
{
    Q_OBJECT

private slots:
    void bothRequestsAreReadUnderOneLock_data();
    void bothRequestsAreReadUnderOneLock();
    void thePositionIsBackBeforeTheRequestIsCleared_data();
    void thePositionIsBackBeforeTheRequestIsCleared();
    void thePositionIsBackBeforeADownloadWithoutValuesIsCleared();
};

void RecipeLockTest::bothRequestsAreReadUnderOneLock_data()
{
    QTest::addColumn<bool>("writing");
    QTest::addColumn<QByteArray>("frame");
    QTest::newRow("a download becomes an upload") << true << withCrc("01 06 0064 0000");
    QTest::newRow("an upload becomes a download") << false << withCrc("01 03 0064 0001");
}

// As soon as the driver lets go of the mutex, another thread withdraws the request and
// makes the other one. Looked at one after the other, both may seem not to be made.
void RecipeLockTest::bothRequestsAreReadUnderOneLock()
{
    QFETCH(bool, writing);
    QFETCH(QByteArray, frame);
    RequestTrap trap;
    DriverFixture runtime;
    driver.hostShared = trap.shared();
    driver.hostMutex = trap.mutex();
    driver.rcpVars << blockAt(100);
    trap.writeRequest() = writing ? 1 : 0;
    trap.readRequest() = writing ? 0 : 1;
    int releases = 0;
    trap.onNextRelease([&] {
        std::swap(trap.writeRequest(), trap.readRequest());
        ++releases;
    });
    QCOMPARE(runtime.poll(), frame);
    QCOMPARE(releases, 1);
    QCOMPARE(int(trap.writeRequest()), writing ? 0 : 1);
}

void RecipeLockTest::thePositionIsBackBeforeTheRequestIsCleared_data()
{
    QTest::addColumn<int>("requestByte");
    QTest::addColumn<QByteArray>("reply");
    const QByteArray none;
    QTest::newRow("download, last block confirmed")
        << WRITE_REQUEST_BYTE << withCrc("01 06 00C8 0000");
    QTest::newRow("download, failed") << WRITE_REQUEST_BYTE << none;
    QTest::newRow("upload, last block read") << READ_REQUEST_BYTE << withCrc("01 03 02 1234");
    QTest::newRow("upload, failed") << READ_REQUEST_BYTE << none;
}

void RecipeLockTest::thePositionIsBackBeforeTheRequestIsCleared()
{
    QFETCH(int, requestByte);
    QFETCH(QByteArray, reply);
    DriverFixture runtime("1#0#0#1#32");
    driver.rcpVars << blockAt(100) << blockAt(200);
    driver.rcpIndex = 1;
    unsigned char& request = runtime.shared[static_cast<size_t>(requestByte)];
    request = 1;
    QVERIFY(!runtime.poll().isEmpty());

    int requested = -1;
    const bool isBack = reachesUnderTheMutex(
        runtime.mutex, [&] { runtime.deal(reply); },
        [&] {
            requested = request;
            return __atomic_load_n(&driver.rcpIndex, __ATOMIC_ACQUIRE) == 0;
        });
    QVERIFY(isBack);
    QCOMPARE(requested, 1);
    QCOMPARE(int(request), 0);
    QCOMPARE(driver.rcpIndex, 0);
}

// The driver takes the mutex twice: to read the requests, and to clear the one that lacks
// its values.
void RecipeLockTest::thePositionIsBackBeforeADownloadWithoutValuesIsCleared()
{
    RequestTrap trap;
    DriverFixture runtime;
    driver.hostShared = trap.shared();
    driver.hostMutex = trap.mutex();
    driver.recipeBuffer = nullptr;
    driver.rcpVars << blockAt(100) << blockAt(200);
    driver.rcpIndex = 1;
    trap.writeRequest() = 1;
    int indexWhenRead = -1;
    int indexWhenCleared = -1;
    trap.onNextRelease([&] {
        indexWhenRead = driver.rcpIndex;
        trap.onNextRelease([&] { indexWhenCleared = driver.rcpIndex; });
    });
    QCOMPARE(runtime.poll(), QByteArray());
    QCOMPARE(indexWhenRead, 1);
    QCOMPARE(indexWhenCleared, 0);
    QCOMPARE(int(trap.writeRequest()), 0);
}

QTEST_APPLESS_MAIN(RecipeLockTest)
#include "tst_recipe_lock.moc"
