#include "driver/wrapping.h"

#include <QtTest/QTest>

class WrappingTest : public QObject
{
    Q_OBJECT

private slots:
    void wrapsAtThirtyTwoBits()
    {
        QCOMPARE(wrapAdd(2, 3), 5);
        QCOMPARE(wrapAdd(2147483647, 1), -2147483647 - 1);
        QCOMPARE(wrapSub(2, 3), -1);
        QCOMPARE(wrapSub(-2147483647, 2), 2147483647);
        QCOMPARE(wrapMul(-2, 3), -6);
        QCOMPARE(wrapMul(65536, 65537), 65536); // 2^32 + 2^16
    }
};

QTEST_APPLESS_MAIN(WrappingTest)
#include "tst_wrapping.moc"
