#include "data/value_size.h"

#include <QtTest/QTest>

class ValueSizeTest : public QObject
{
    Q_OBJECT

private slots:
    void everyClassHasItsSize()
    {
        QCOMPARE(valueSize(BIT_CLASS), 1);
        QCOMPARE(valueSize(WORD_CLASS), 2);
        QCOMPARE(valueSize(DOUBLE_WORD_CLASS), 4);
        QCOMPARE(valueSize(UNKNOWN_CLASS), 0);
    }
};

QTEST_APPLESS_MAIN(ValueSizeTest)
#include "tst_value_size.moc"
