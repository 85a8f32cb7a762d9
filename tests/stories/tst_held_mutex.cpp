// The runtime's mutex guards the two recipe request bytes and nothing else: while another
// thread of the runtime holds it, all calls go through that need neither of them.

#include "modbus/mutex_wait.h"
#include "stories/every_call.h"

#include <QtCore/QFile>
#include <QtTest/QTest>

namespace
{

const char* const PARAMETERS = "1#0#0#1#32";

void addRows(const std::vector<Call>& calls)
{
    QTest::addColumn<int>("number");
    int number = 0;
    for (const Call& call : calls)
        QTest::newRow(nameOf(call).constData()) << number++;
}

/// "_Z", the length of the name, the name: as free functions are exported.
QByteArray mangledStart(const QByteArray& function)
{
    return "_Z" + QByteArray::number(function.size()) + function;
}

bool isCalled(const QByteArray& exported)
{
    for (const Call& call : callsWithoutTheMutex()) {
        const QByteArray function = call.function;
        if (exported == function || exported.startsWith(mangledStart(function))
            || exported.startsWith("_ZN" + mangledStart(function).mid(2)))
            return true;
    }
    return false;
}

} // namespace

class HeldMutexTest : public QObject
{
    Q_OBJECT

private slots:
    void holdsUpNoOtherCall_data() { addRows(callsWithoutTheMutex()); }
    void holdsUpNoOtherCall();
    void holdsUpTheCallsThatNeedARequest_data() { addRows(callsWithTheMutex()); }
    void holdsUpTheCallsThatNeedARequest();
    void everyExportedFunctionIsCalled();
};

void HeldMutexTest::holdsUpNoOtherCall()
{
    QFETCH(int, number);
    const Call call = callsWithoutTheMutex().at(static_cast<size_t>(number));
    DriverFixture runtime(PARAMETERS);
    call.before(runtime);
    QVERIFY(leavesTheMutexAlone(runtime.mutex, [&] { call.step(runtime); }));
    QVERIFY(runtime.mutex.tryLock());
    runtime.mutex.unlock();
}

void HeldMutexTest::holdsUpTheCallsThatNeedARequest()
{
    QFETCH(int, number);
    const Call call = callsWithTheMutex().at(static_cast<size_t>(number));
    DriverFixture runtime(PARAMETERS);
    call.before(runtime);
    QVERIFY(waitsForTheMutex(runtime.mutex, [&] { call.step(runtime); }));
    QVERIFY(runtime.mutex.tryLock());
    runtime.mutex.unlock();
}

void HeldMutexTest::everyExportedFunctionIsCalled()
{
    const QList<QByteArray> objects = {"REG_LIST", "REG_DESCRIPTION", "REG_OFFSET", "driver"};
    QFile names(KX_EXPORTED_NAMES);
    QVERIFY2(names.open(QIODevice::ReadOnly), qPrintable(names.errorString()));
    int functions = 0;
    for (const QByteArray& name : names.readAll().split('\n')) {
        if (name.isEmpty() || name.startsWith('#') || objects.contains(name))
            continue;
        QVERIFY2(isCalled(name), name.constData());
        ++functions;
    }
    QCOMPARE(functions, 38);
}

QTEST_APPLESS_MAIN(HeldMutexTest)
#include "tst_held_mutex.moc"
