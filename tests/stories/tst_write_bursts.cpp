#include "stories/slave.h"

#include <QtTest/QTest>

namespace
{

void queueWrites(int count)
{
    for (int i = 0; i < count; ++i)
        setValues(1, "Y", i, 1, "01");
}

void watchD5()
{
    QList<KEY_ADDRESS> watched;
    watched << key(1, "D", 5, 1);
    intf_addrMerge(watched);
}

} // namespace

class WriteBurstsTest : public QObject
{
    Q_OBJECT

private slots:
    void fiveWritesAReadThreeWrites()
    {
        DriverFixture runtime;
        watchD5();
        queueWrites(8);
        QCOMPARE(serve(runtime, 11), QStringList() << "Y 0 1"
                                                   << "Y 1 1"
                                                   << "Y 2 1"
                                                   << "Y 3 1"
                                                   << "Y 4 1"
                                                   << "D 5 1"
                                                   << "Y 5 1"
                                                   << "Y 6 1"
                                                   << "Y 7 1"
                                                   << "D 5 1"
                                                   << "D 5 1");
        QCOMPARE(DriverFixture::data(1, "Y", 0, 8, 8), bytes("0101010101010101"));
    }

    void failedWritesCountAsSent()
    {
        DriverFixture runtime("1#0#0#1#32");
        watchD5();
        queueWrites(6);
        for (int i = 0; i < 5; ++i)
            failRequest(runtime);
        QCOMPARE(serve(runtime, 2), QStringList() << "D 5 1"
                                                  << "Y 5 1");
    }

    void repeatedRequestsCountOnce()
    {
        DriverFixture runtime;
        watchD5();
        queueWrites(6);
        runtime.poll();
        runtime.deal(QByteArray());
        runtime.poll();
        runtime.deal(QByteArray());
        QCOMPARE(serve(runtime, 6), QStringList() << "Y 0 1"
                                                  << "Y 1 1"
                                                  << "Y 2 1"
                                                  << "Y 3 1"
                                                  << "Y 4 1"
                                                  << "D 5 1");
    }

    void writesAndConditionReadsShareTheRun()
    {
        DriverFixture runtime;
        watchD5();
        queueWrites(2);
        addCondition(1, "TV", 1, 1);
        addCondition(1, "TV", 2, 1);
        QCOMPARE(serve(runtime, 6), QStringList() << "Y 0 1"
                                                  << "Y 1 1"
                                                  << "TV 1 1"
                                                  << "D 5 1"
                                                  << "TV 2 1"
                                                  << "D 5 1");
    }

    void writesThatArriveDuringConditionReadsGoFirst()
    {
        DriverFixture runtime;
        watchD5();
        for (int i = 0; i < 4; ++i)
            addCondition(1, "TV", i, 1);
        QCOMPARE(serve(runtime, 2), QStringList() << "TV 0 1"
                                                  << "TV 1 1");
        queueWrites(4);
        QCOMPARE(serve(runtime, 7), QStringList() << "Y 0 1"
                                                  << "Y 1 1"
                                                  << "Y 2 1"
                                                  << "D 5 1"
                                                  << "Y 3 1"
                                                  << "TV 2 1"
                                                  << "TV 3 1");
    }
};

QTEST_APPLESS_MAIN(WriteBurstsTest)
#include "tst_write_bursts.moc"
