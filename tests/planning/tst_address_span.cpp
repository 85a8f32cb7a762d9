#include "planning/address_span.h"

#include <QtTest/QTest>

class AddressSpanTest : public QObject
{
    Q_OBJECT

private slots:
    void noneOfAnEmptyList() { QVERIFY(spansOf(QList<KEY_ADDRESS>()).empty()); }

    void oneOfEachEntry_data()
    {
        QTest::addColumn<int>("entries");
        QTest::newRow("one") << 1;
        QTest::newRow("fewer than are fetched ahead") << 15;
        QTest::newRow("more") << 40;
    }

    void oneOfEachEntry()
    {
        QFETCH(int, entries);
        QList<KEY_ADDRESS> list;
        for (int i = 0; i < entries; ++i) {
            KEY_ADDRESS key = KEY_ADDRESS();
            key.station = 1000 + i;
            key.regType = QString::fromLatin1(i % 2 == 0 ? "32CV" : "none");
            key.address = 2000 + i;
            key.count = 3000 + i;
            list << key;
        }
        const AddressSpans spans = spansOf(list);
        QCOMPARE(static_cast<int>(spans.size()), entries);
        for (int i = 0; i < entries; ++i) {
            const AddressSpan& span = spans[static_cast<size_t>(i)];
            QCOMPARE(span.station, 1000 + i);
            QCOMPARE(span.address, 2000 + i);
            QCOMPARE(span.count, 3000 + i);
            QCOMPARE(span.index, i);
            QVERIFY(span.regType == &list.at(i).regType);
            QVERIFY(span.type == findRegisterType(list.at(i).regType));
            QCOMPARE(span.type == nullptr, i % 2 == 1);
        }
    }
};

QTEST_APPLESS_MAIN(AddressSpanTest)
#include "tst_address_span.moc"
