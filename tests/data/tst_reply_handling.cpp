#include "support/driver_fixture.h"

#include <QtTest/QtTest>

class ReplyHandlingTest : public QObject
{
    Q_OBJECT

private slots:
    void acceptsAWordReplyAndReportsTheChange()
    {
        DriverFixture runtime("7#0#0#3#32");
        QList<KEY_ADDRESS> watched;
        watched << key(1, "D", 100, 1);
        QCOMPARE(intf_addrMerge(watched), 1);
        QCOMPARE(runtime.poll(), withCrc("01 03 0064 0001"));
        QCOMPARE(runtime.deal(withCrc("01 03 02 1234")), 1);
        QCOMPARE(runtime.reports, QList<Report>() << (Report{7, 1, "D", 100}));
        QCOMPARE(DriverFixture::data(1, "D", 100, 1, 2), bytes("3412"));
    }
};

QTEST_APPLESS_MAIN(ReplyHandlingTest)
#include "tst_reply_handling.moc"
