#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

class TarvelanTest : public QObject
{
    Q_OBJECT

private slots:
    // First, before anything else touches the one driver object.
    void startsEmptyAndZeroed();
    void knowsTheRegisterTypesInSortOrder();
    void theConstructorResetsThreeCounters();
    void theDestructorReleasesEveryList();
    void aCopyOfAJobCopiesTheWholePayload();
    void aRecordAssignedToItselfStays();
    void aCopyOfAKeyCopiesEveryField();
    void theReservedFieldOfAFrameIsHandedOverAsItStands();
};

namespace
{

void verifyZeroed(const VARIABLE& zeroed)
{
    QCOMPARE(zeroed.kind, 0);
    QCOMPARE(zeroed.station, 0);
    QVERIFY(zeroed.regType.isEmpty());
    QCOMPARE(zeroed.address, 0);
    QCOMPARE(zeroed.count, 0);
    QCOMPARE(std::count(zeroed.data, zeroed.data + 1024, 0), 1024);
}

void verifyNumbersAreZero()
{
    QCOMPARE(driver.linkId, 0);
    QCOMPARE(driver.writeLocalOnly, 0);
    QCOMPARE(driver.param2, 0);
    QCOMPARE(driver.retryLimit, 0);
    QCOMPARE(driver.maxWords, 0);
    QCOMPARE(driver.currentKind, 0);
    QCOMPARE(driver.burstCount, 0);
    QCOMPARE(driver.aux1, 0);
    QCOMPARE(driver.errorCount, 0);
    QCOMPARE(driver.maxBitsPerJob, 0);
    QCOMPARE(driver.maxWordsPerJob, 0);
    QCOMPARE(driver.commFailed, 0);
    QCOMPARE(driver.aux2, 0);
    QCOMPARE(driver.aux3, 0);
    QCOMPARE(driver.rcpIndex, 0);
}

void verifyPointersAreNull()
{
    QVERIFY(driver.valueChangeCallBack == nullptr);
    QVERIFY(driver.hostShared == nullptr);
    QVERIFY(driver.hostArg1 == nullptr);
    QVERIFY(driver.recipeBuffer == nullptr);
    QVERIFY(driver.hostMutex == nullptr);
}

void verifyListsAreEmpty(const tarvelan& object)
{
    QVERIFY(object.readList.isEmpty());
    QVERIFY(object.writeList.isEmpty());
    QVERIFY(object.condList.isEmpty());
    QVERIFY(object.dataAreas.isEmpty());
    QVERIFY(object.rcpVarsA.isEmpty());
    QVERIFY(object.rcpVars.isEmpty());
    QVERIFY(object.intList.isEmpty());
    QVERIFY(object.frameList.isEmpty());
}

} // namespace

void TarvelanTest::startsEmptyAndZeroed()
{
    verifyPointersAreNull();
    verifyNumbersAreZero();
    verifyListsAreEmpty(driver);
    verifyZeroed(driver.condVar);
    verifyZeroed(driver.currentJob);
}

void TarvelanTest::knowsTheRegisterTypesInSortOrder()
{
    const QList<QString> expected = {"X", "Y",  "M",  "SM", "S",    "T", "C",
                                     "D", "SD", "TV", "CV", "32CV", "Z"};
    QCOMPARE(driver.regNames, expected);
}

namespace
{

using Storage = std::aligned_storage_t<sizeof(tarvelan), alignof(tarvelan)>;

// A driver object of its own, in memory that was not zeroed before.
tarvelan* constructIn(Storage& storage)
{
    std::memset(&storage, 0xAA, sizeof storage);
    return new (&storage) tarvelan;
}

} // namespace

void TarvelanTest::theConstructorResetsThreeCounters()
{
    const auto storage = std::make_unique<Storage>();
    tarvelan* const object = constructIn(*storage);
    QCOMPARE(object->burstCount, 0);
    QCOMPARE(object->commFailed, 0);
    QCOMPARE(object->rcpIndex, 0);
    QCOMPARE(object->regNames.size(), 13);
    QVERIFY(object->condVar.regType.isEmpty());
    QVERIFY(object->currentJob.regType.isEmpty());
    verifyListsAreEmpty(*object);
    object->~tarvelan();
}

void TarvelanTest::theDestructorReleasesEveryList()
{
    const auto storage = std::make_unique<Storage>();
    tarvelan* const object = constructIn(*storage);
    const QString held = QString("held by %1").arg("the driver");
    VARIABLE heldJob = job(1, "", 0, 1);
    heldJob.regType = held;
    object->readList << heldJob;
    object->writeList << heldJob;
    object->condList << heldJob;
    object->condVar = heldJob;
    object->currentJob = heldJob;
    object->regNames << held;
    const QList<int> starts = {1, 2, 3};
    object->intList = starts;
    QVector<_RCP_VAR_PRO> variables(1, _RCP_VAR_PRO());
    object->rcpVars = variables;
    QVector<_RCP_VAR_PRO> sorted(1, _RCP_VAR_PRO());
    object->rcpVarsA = sorted;
    QList<_DATA_> areas = {_DATA_()};
    object->dataAreas = areas;
    QList<FRAME_PRO> frames = {FRAME_PRO()};
    object->frameList = frames;

    object->~tarvelan();
    QVERIFY(starts.isDetached());
    QVERIFY(variables.isDetached());
    QVERIFY(sorted.isDetached());
    QVERIFY(areas.isDetached());
    QVERIFY(frames.isDetached());
    heldJob.regType.clear();
    QVERIFY(held.isDetached());
}

void TarvelanTest::aCopyOfAJobCopiesTheWholePayload()
{
    VARIABLE original = job(2, "32CV", 200, 1);
    original.kind = 3;
    for (int i = 0; i < 1024; ++i)
        original.data[i] = static_cast<unsigned char>(i % 251);
    VARIABLE copy = job(9, "D", 9, 9);
    copy = original;
    QCOMPARE(copy.kind, 3);
    QCOMPARE(copy.station, 2);
    QCOMPARE(copy.regType, QString("32CV"));
    QCOMPARE(copy.address, 200);
    QCOMPARE(copy.count, 1);
    QCOMPARE(std::memcmp(copy.data, original.data, 1024), 0);
    QCOMPARE(int(copy.data[1023]), 19); // 1023 = 4 * 251 + 19
}

void TarvelanTest::aRecordAssignedToItselfStays()
{
    VARIABLE one = job(2, "32CV", 200, 1, "0102");
    const VARIABLE& sameJob = one;
    one = sameJob;
    QCOMPARE(one.station, 2);
    QCOMPARE(one.regType, QString("32CV"));
    QCOMPARE(int(one.data[1]), 2);

    FRAME_PRO frame = FRAME_PRO();
    frame.frame[1023] = 5;
    frame.sendLen = 8;
    frame.job = one;
    const FRAME_PRO& sameFrame = frame;
    frame = sameFrame;
    QCOMPARE(int(frame.frame[1023]), 5);
    QCOMPARE(frame.sendLen, 8);
    QCOMPARE(frame.job.regType, QString("32CV"));
}

void TarvelanTest::aCopyOfAKeyCopiesEveryField()
{
    KEY_ADDRESS original = key(3, "M", 17, 0);
    original.keyName = "name";
    original.keyTag1 = 11;
    original.keyTag2 = 22;
    original.addrText = "M17";
    original.bitIndex = 5;
    original.data[0] = 1;
    original.data[1023] = 2;
    KEY_ADDRESS copy = key(9, "D", 9, 9);
    copy = original;
    QCOMPARE(copy.keyName, QString("name"));
    QCOMPARE(copy.keyTag1, 11);
    QCOMPARE(copy.keyTag2, 22);
    QCOMPARE(copy.station, 3);
    QCOMPARE(copy.regType, QString("M"));
    QCOMPARE(copy.addrText, QString("M17"));
    QCOMPARE(copy.address, 17);
    QCOMPARE(copy.bitIndex, 5);
    QCOMPARE(copy.count, 0);
    QCOMPARE(int(copy.data[0]), 1);
    QCOMPARE(int(copy.data[1023]), 2);
}

void TarvelanTest::theReservedFieldOfAFrameIsHandedOverAsItStands()
{
    DriverFixture runtime;
    driver.frameList << FRAME_PRO();
    driver.frameList[0].sendLen = 8;
    driver.frameList[0].reserved = 1234567;
    runtime.poll();
    QCOMPARE(runtime.polled().reserved, 1234567);
}

QTEST_APPLESS_MAIN(TarvelanTest)
#include "tst_tarvelan.moc"
