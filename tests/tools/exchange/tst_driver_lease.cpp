#include "exchange/driver_lease.h"

#include <QtTest/QTest>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

using namespace kx;

class DriverLeaseTest : public QObject
{
    Q_OBJECT

private slots:
    void theFirstOneHoldsIt();
    void aRefusedOneGivesNothingBack();
    void onlyOneOfManyThreadsHoldsIt();
};

void DriverLeaseTest::theFirstOneHoldsIt()
{
    auto first = std::make_unique<DriverLease>();
    QVERIFY(first->isHeld());
    const DriverLease second;
    QVERIFY(!second.isHeld());
    first.reset();
    QVERIFY(!second.isHeld());
    const DriverLease third;
    QVERIFY(third.isHeld());
}

void DriverLeaseTest::aRefusedOneGivesNothingBack()
{
    const DriverLease holder;
    {
        const DriverLease refused;
    }
    const DriverLease next;
    QVERIFY(holder.isHeld());
    QVERIFY(!next.isHeld());
}

void DriverLeaseTest::onlyOneOfManyThreadsHoldsIt()
{
    const int threads = 8;
    std::atomic<int> tried(0);
    std::atomic<int> held(0);
    std::vector<std::thread> all;
    for (int i = 0; i < threads; ++i)
        all.emplace_back([&] {
            const DriverLease lease;
            held += lease.isHeld() ? 1 : 0;
            ++tried;
            while (tried < threads)
                std::this_thread::yield(); // nobody gives it back before all have tried
        });
    for (std::thread& thread : all)
        thread.join();
    QCOMPARE(held.load(), 1);
}

QTEST_APPLESS_MAIN(DriverLeaseTest)
#include "tst_driver_lease.moc"
