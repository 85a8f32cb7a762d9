#include "registers/address_series.h"

#include <QtTest/QTest>

#include <limits>

class AddressSeriesTest : public QObject
{
    Q_OBJECT

private slots:
    void series_data();
    void series();
    void highestAddressesAreKept_data();
    void highestAddressesAreKept();
    void appendsToBothVectors();
};

void AddressSeriesTest::series_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QList<int>>("asked"); // start, count, step
    QTest::addColumn<int>("result");
    QTest::addColumn<QList<int>>("addresses");
    QTest::addColumn<QString>("texts");
    const auto add = [](const char* name, const char* type, const QList<int>& asked, int result,
                        const QList<int>& addresses, const char* texts) {
        QTest::newRow(name) << type << asked << result << addresses << texts;
    };
    const int highestInt = std::numeric_limits<int>::max();
    add("octal, clamped twice", "X", {248, 4, 4}, 2, {248, 252, 255, 255}, "370 374 377 377");
    add("octal without leading zeros", "Y", {7, 3, 1}, 1, {7, 8, 9}, "7 10 11");
    add("decimal, clamped at the end", "D", {7998, 3, 1}, 2, {7998, 7999, 7999}, "7998 7999 7999");
    add("step 0", "M", {0, 3, 0}, 1, {0, 0, 0}, "0 0 0");
    add("no lowest address", "32CV", {100, 2, 1}, 1, {100, 101}, "100 101");
    add("below zero prints unsigned", "D", {1, 3, -1}, 1, {1, 0, -1}, "1 0 4294967295");
    add("below zero in octal", "Y", {1, 3, -1}, 1, {1, 0, -1}, "1 0 37777777777");
    add("clamped first, within later", "SM", {513, 4, -1}, 2, {511, 511, 511, 510},
        "511 511 511 510");
    add("each clamped anew", "Z", {100, 3, 100}, 2, {15, 15, 15}, "15 15 15");
    add("the step wraps below zero", "D", {7999, 2, highestInt}, 1, {7999, -2147475650},
        "7999 2147491646");
    const int lowestInt = std::numeric_limits<int>::min();
    add("from the lowest int up", "D", {lowestInt, 2, 1}, 1, {lowestInt, -2147483647},
        "2147483648 2147483649");
    add("from the lowest int up in octal", "X", {lowestInt, 2, 1}, 1, {lowestInt, -2147483647},
        "20000000000 20000000001");
    add("from the lowest int down wraps", "D", {lowestInt, 2, -1}, 2, {lowestInt, 7999},
        "2147483648 7999");
    add("from the highest int up wraps", "D", {highestInt, 3, 1}, 2, {7999, lowestInt, -2147483647},
        "7999 2147483648 2147483649");
    add("a step of the lowest int", "Y", {5, 3, lowestInt}, 1, {5, -2147483643, 5},
        "5 20000000005 5");
    add("the highest int and a step of the lowest", "32CV", {highestInt, 4, lowestInt}, 2,
        {255, -1, 255, -1}, "255 4294967295 255 4294967295");
    add("a count of the lowest int", "M", {0, lowestInt, 1}, 1, {}, "");
    add("all three the lowest int", "Z", {lowestInt, lowestInt, lowestInt}, 1, {}, "");
    add("one copy", "S", {1023, 1, 5}, 1, {1023}, "1023");
    add("no copy", "D", {0, 0, 1}, 1, {}, "");
    add("fewer than no copy", "D", {0, -3, 1}, 1, {}, "");
    add("no copy past the highest", "D", {9000, 0, 1}, 1, {}, "");
    add("lower case is unknown", "d", {0, 5, 1}, 0, {}, "");
    add("unknown without copies", "", {0, 0, 1}, 0, {}, "");
}

void AddressSeriesTest::series()
{
    QFETCH(QString, type);
    QFETCH(QList<int>, asked);
    QFETCH(int, result);
    QFETCH(QList<int>, addresses);
    QFETCH(QString, texts);
    QVector<QString> madeTexts;
    QVector<int> madeAddresses;
    QCOMPARE(intf_multiCopy(type, asked.at(0), asked.at(1), asked.at(2), madeTexts, madeAddresses),
             result);
    QCOMPARE(madeAddresses.toList(), addresses);
    QCOMPARE(QStringList(madeTexts.toList()).join(" "), texts);
}

void AddressSeriesTest::highestAddressesAreKept_data()
{
    QTest::addColumn<int>("highest");
    QTest::addColumn<QString>("text");
    QTest::newRow("X") << 255 << "377";
    QTest::newRow("Y") << 255 << "377";
    QTest::newRow("M") << 10239 << "10239";
    QTest::newRow("SM") << 511 << "511";
    QTest::newRow("S") << 1023 << "1023";
    QTest::newRow("T") << 255 << "255";
    QTest::newRow("C") << 255 << "255";
    QTest::newRow("D") << 7999 << "7999";
    QTest::newRow("SD") << 511 << "511";
    QTest::newRow("CV") << 199 << "199";
    QTest::newRow("32CV") << 255 << "255";
    QTest::newRow("TV") << 255 << "255";
    QTest::newRow("Z") << 15 << "15";
}

void AddressSeriesTest::highestAddressesAreKept()
{
    QFETCH(int, highest);
    QFETCH(QString, text);
    const QString type = QTest::currentDataTag();
    QVector<QString> texts;
    QVector<int> addresses;
    QCOMPARE(intf_multiCopy(type, highest, 1, 1, texts, addresses), 1);
    QCOMPARE(intf_multiCopy(type, highest + 1, 1, 1, texts, addresses), 2);
    QCOMPARE(addresses, QVector<int>({highest, highest}));
    QCOMPARE(texts, QVector<QString>({text, text}));
}

void AddressSeriesTest::appendsToBothVectors()
{
    QVector<QString> texts = {"before"};
    QVector<int> addresses = {-5};
    QCOMPARE(intf_multiCopy("TV", 10, 2, 10, texts, addresses), 1);
    QCOMPARE(texts, QVector<QString>({"before", "10", "20"}));
    QCOMPARE(addresses, QVector<int>({-5, 10, 20}));
    QCOMPARE(intf_multiCopy("?", 10, 2, 10, texts, addresses), 0);
    QCOMPARE(texts.size(), 3);
    QCOMPARE(addresses.size(), 3);
}

QTEST_APPLESS_MAIN(AddressSeriesTest)
#include "tst_address_series.moc"
