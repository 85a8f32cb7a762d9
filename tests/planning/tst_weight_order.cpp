#include "planning/weight_order.h"

#include <QtCore/QStringList>
#include <QtTest/QTest>

namespace
{

// D registers from "STATION:ADDRESS ...", one each.
QList<KEY_ADDRESS> keys(const QString& text)
{
    QList<KEY_ADDRESS> list;
    for (const QString& one : text.split(QLatin1Char(' '))) {
        if (one.isEmpty())
            continue;
        KEY_ADDRESS key = KEY_ADDRESS();
        key.station = one.section(QLatin1Char(':'), 0, 0).toInt();
        key.regType = QString::fromLatin1("D");
        key.address = one.section(QLatin1Char(':'), 1).toInt();
        key.count = 1;
        list << key;
    }
    return list;
}

// Where each entry stood before.
QString order(const QList<KEY_ADDRESS>& list)
{
    QString indexes;
    for (const Weighed& entry : orderByWeight(spansOf(list)))
        indexes += QString::number(entry.index) + QLatin1Char(' ');
    return indexes.trimmed();
}

} // namespace

class WeightOrderTest : public QObject
{
    Q_OBJECT

private slots:
    // The weight of D is 65535 * (5 * station + 8) + address.
    void ascendingByWeight_data()
    {
        QTest::addColumn<QString>("entries");
        QTest::addColumn<QString>("expected");
        QTest::newRow("none") << ""
                              << "";
        QTest::newRow("one") << "1:5"
                             << "0";
        QTest::newRow("two the wrong way round") << "1:6 1:5"
                                                 << "1 0";
        QTest::newRow("alike") << "1:5 1:4 1:5 1:5"
                               << "1 0 2 3";
        QTest::newRow("stations") << "3:0 1:9 2:4"
                                  << "1 2 0";
        // Station 1 with 65535 * 5 more and station 2 weigh the same.
        QTest::newRow("alike at two stations") << "2:0 1:327675 2:0"
                                               << "0 1 2";
        // Address -524280 weighs 0 at station 0, one below weighs 2^32 - 1.
        QTest::newRow("weights are unsigned") << "0:-524281 0:7999 0:-524280"
                                              << "2 1 0";
        QTest::newRow("the edges of int") << "0:-2147483648 0:2147483647 0:0"
                                          << "2 1 0";
        // Weights that differ in one byte each: 1, 2^8, 2^16 and 2^24 more than that of D0.
        QTest::newRow("each byte counts") << "0:16777216 0:65536 0:256 0:1 0:0"
                                          << "4 3 2 1 0";
    }

    void ascendingByWeight()
    {
        QFETCH(QString, entries);
        QTEST(order(keys(entries)), "expected");
    }

    // As regNames lists them, TV before CV; an unknown type comes first.
    void typesInTheirOrder()
    {
        const char* const types[] = {"32CV", "CV", "TV", "D", "X", "?"};
        QList<KEY_ADDRESS> list = keys("0:1 0:1 0:1 0:1 0:1 0:1");
        for (int i = 0; i < list.size(); ++i)
            list[i].regType = QString::fromLatin1(types[i]);
        QCOMPARE(order(list), QString("5 4 3 2 1 0"));
    }

    void eachWithItsWeight()
    {
        const WeightOrder order = orderByWeight(spansOf(keys("2:7 1:3")));
        QCOMPARE(order[0].weight, 65535u * 13 + 3);
        QCOMPARE(order[1].weight, 65535u * 18 + 7);
    }
};

QTEST_APPLESS_MAIN(WeightOrderTest)
#include "tst_weight_order.moc"
