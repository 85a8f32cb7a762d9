#include "registers/register_catalogue.h"

#include <QtTest/QTest>

#include <limits>

using Texts = QList<QString>;

class RegisterCatalogueTest : public QObject
{
    Q_OBJECT

private slots:
    void rows_data();
    void rows();
    void listsTheTypesOfAKind_data();
    void listsTheTypesOfAKind();
    void appendsToTheListOfTypes();
    void unknownNamesHaveNoDescription_data();
    void unknownNamesHaveNoDescription();
    void appendsToTheDescription();
};

void RegisterCatalogueTest::rows_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<Texts>("description"); // format, lowest, highest, data type, last
    QTest::addColumn<QList<int>>("offset"); // split, base below, base from it on
    const auto add = [](int row, const char* name, const Texts& description,
                        const QList<int>& offset) {
        QTest::newRow(name) << row << description << offset;
    };
    add(0, "X", {"OOO", "0", "377", "0", "1"}, {256, 1200, 0});
    add(1, "Y", {"OOO", "0", "377", "0", "1"}, {256, 0, 0});
    add(2, "M", {"ddddd", "0", "10239", "0", "1"}, {2048, 2000, 9952});
    add(3, "SM", {"dddd", "0", "511", "0", "1"}, {256, 4400, 29744});
    add(4, "S", {"dddd", "0", "1023", "0", "1"}, {1024, 6000, 6000});
    add(5, "T", {"ddd", "0", "255", "0", "1"}, {256, 8000, 8000});
    add(6, "C", {"ddd", "0", "255", "0", "1"}, {256, 9200, 9200});
    add(7, "D", {"dddd", "0", "7999", "1", "1"}, {8000, 0, 0});
    add(8, "SD", {"ddd", "0", "511", "1", "1"}, {256, 8000, 11744});
    add(9, "CV", {"ddd", "0", "199", "1", "1"}, {200, 9500, 9500});
    add(10, "32CV", {"ddd", "200", "255", "2", "1"}, {256, 9500, 9500});
    add(11, "TV", {"ddd", "0", "255", "1", "1"}, {4096, 9000, 9000});
    add(12, "Z", {"ddd", "0", "15", "1", "1"}, {15, 8500, 8500});
}

void RegisterCatalogueTest::rows()
{
    QFETCH(int, row);
    QFETCH(Texts, description);
    QFETCH(QList<int>, offset);
    const QString name = QTest::currentDataTag();
    QCOMPARE(REG_LIST[row], name);
    for (int column = 0; column < 5; ++column)
        QCOMPARE(REG_DESCRIPTION[5 * row + column], description.at(column));
    for (int column = 0; column < 3; ++column)
        QCOMPARE(REG_OFFSET[3 * row + column], offset.at(column));

    Texts asked;
    QCOMPARE(intf_getRegDiscription(name, asked), 1);
    QCOMPARE(asked, description);
}

void RegisterCatalogueTest::listsTheTypesOfAKind_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("result");
    QTest::addColumn<Texts>("expected");
    QTest::newRow("bit types, SM before M")
        << 0 << 1 << Texts({"X", "Y", "SM", "M", "S", "T", "C"});
    QTest::newRow("word types") << 1 << 1 << Texts({"D", "SD", "CV", "32CV", "TV", "Z"});
    QTest::newRow("no third kind") << 2 << 0 << Texts();
    QTest::newRow("no kind below 0") << -1 << 0 << Texts();
    QTest::newRow("the lowest int") << std::numeric_limits<int>::min() << 0 << Texts();
    QTest::newRow("the highest int") << std::numeric_limits<int>::max() << 0 << Texts();
    QTest::newRow("low byte 0") << 256 << 0 << Texts();
    QTest::newRow("low byte 1, negative") << -255 << 0 << Texts();
}

void RegisterCatalogueTest::listsTheTypesOfAKind()
{
    QFETCH(int, kind);
    QFETCH(int, result);
    QFETCH(Texts, expected);
    Texts names;
    QCOMPARE(intf_getRegListByType(kind, names), result);
    QCOMPARE(names, expected);
}

void RegisterCatalogueTest::appendsToTheListOfTypes()
{
    Texts names = {"before"};
    QCOMPARE(intf_getRegListByType(0, names), 1);
    QCOMPARE(intf_getRegListByType(2, names), 0);
    QCOMPARE(intf_getRegListByType(0, names), 1);
    QCOMPARE(names, Texts({"before", "X", "Y", "SM", "M", "S", "T", "C", "X", "Y", "SM", "M", "S",
                           "T", "C"}));
}

void RegisterCatalogueTest::unknownNamesHaveNoDescription_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("lower case") << "x";
    QTest::newRow("empty") << "";
    QTest::newRow("beginning of a name") << "32C";
    QTest::newRow("no type of this controller") << "Q";
}

void RegisterCatalogueTest::unknownNamesHaveNoDescription()
{
    QFETCH(QString, name);
    Texts description = {"before"};
    QCOMPARE(intf_getRegDiscription(name, description), 0);
    QCOMPARE(description, Texts({"before"}));
}

void RegisterCatalogueTest::appendsToTheDescription()
{
    Texts description = {"before"};
    QCOMPARE(intf_getRegDiscription("32CV", description), 1);
    QCOMPARE(intf_getRegDiscription("X", description), 1);
    QCOMPARE(description,
             Texts({"before", "ddd", "200", "255", "2", "1", "OOO", "0", "377", "0", "1"}));
}

QTEST_APPLESS_MAIN(RegisterCatalogueTest)
#include "tst_register_catalogue.moc"
