// Recipe variables with names, numbers and request limits at the edges.

#include "registers/recipe_addresses.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <limits>

namespace
{

const int LOWEST_INT = std::numeric_limits<int>::min();
const int HIGHEST_INT = std::numeric_limits<int>::max();

using Variables = QVector<_RCP_VAR_PRO>;

/// "STATION ADDRESS xCOUNT @OFFSET" of each.
QString texts(const Variables& variables)
{
    QStringList list;
    for (const _RCP_VAR_PRO& v : variables)
        list
            << QString("%1 %2 x%3 @%4").arg(v.station).arg(v.address).arg(v.count).arg(v.bufOffset);
    return list.join(", ");
}

} // namespace

Q_DECLARE_METATYPE(_RCP_VAR_PRO)

class RecipeAddressesEdgesTest : public QObject
{
    Q_OBJECT

private slots:
    void names_data();
    void names();
    void stations();
    void links();
    void limits_data();
    void limits();
    void offsetsAreCarried();
};

void RecipeAddressesEdgesTest::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("null") << QString();
    QTest::newRow("empty") << QString("");
    QTest::newRow("a million characters") << QString(1000000, 'D');
    QTest::newRow("a zero character behind") << QString::fromLatin1("D\0", 2);
    QTest::newRow("a zero character before") << QString::fromLatin1("\0D", 2);
    QTest::newRow("a zero character alone") << QString(QChar(0));
}

// An unknown type is read like holding registers, and cannot be written.
void RecipeAddressesEdgesTest::names()
{
    QFETCH(QString, name);
    DriverFixture runtime("1#0#0#1#32");
    runtime.recipe.assign(2, 0x1234);
    runtime.initialise("1#0#0#1#32");
    Variables recipe = {variable(1, "X", 9, 1, 1), variable(1, name, 5, 2, 0)};
    QCOMPARE(intf_setRcpAddress(recipe), 2);
    QCOMPARE(driver.rcpVarsA.at(0).regType, name); // before the known ones
    QCOMPARE(driver.rcpVars.at(0).regType, name);
    QCOMPARE(texts(driver.rcpVars), QString("1 5 x2 @0, 1 9 x1 @1"));
    QCOMPARE(driver.intList, QList<int>({0, 1}));

    runtime.requestRecipeRead();
    QCOMPARE(runtime.poll(), withCrc("01 03 0005 0002"));
    QCOMPARE(runtime.deal(withCrc("01 03 04 5566 7788")), 1);
    QCOMPARE(runtime.recipe, std::vector<unsigned short>({0x1234, 0x1234}));
    QVERIFY(driver.dataAreas.isEmpty());
    QCOMPARE(runtime.poll(), withCrc("01 01 04B9 0001")); // X9, coil 1209
    QCOMPARE(runtime.deal(QByteArray()), 2);
    QCOMPARE(runtime.lastError(), QString("0,1,9,X"));

    runtime.requestRecipeWrite();
    QVERIFY(runtime.poll().isEmpty());
    QCOMPARE(int(runtime.shared[60115]), 1); // until it is withdrawn or planned anew
    recipe.clear();
    QCOMPARE(intf_setRcpAddress(recipe), 0);
}

// Sorted by 65535 * (5 * station + 8) + address in 32 bits: 851955 for station 1,
// 2147680253 for the highest and 2148007928 for the lowest.
void RecipeAddressesEdgesTest::stations()
{
    DriverFixture runtime("1#0#0#1#32");
    Variables recipe = {variable(LOWEST_INT, "D", 0, 1, 0), variable(HIGHEST_INT, "D", 0, 1, 1),
                        variable(1, "D", 0, 1, 2)};
    QCOMPARE(intf_setRcpAddress(recipe), 3);
    const QString sorted = "1 0 x1 @2, 2147483647 0 x1 @1, -2147483648 0 x1 @0";
    QCOMPARE(texts(driver.rcpVarsA), sorted);
    QCOMPARE(texts(driver.rcpVars), sorted);
    runtime.requestRecipeRead();
    QCOMPARE(runtime.poll(), withCrc("01 03 0000 0001"));
    QCOMPARE(runtime.deal(withCrc("01 03 02 0000")), 1);
    QCOMPARE(runtime.poll(), withCrc("FF 03 0000 0001")); // the low byte of the station
    QCOMPARE(runtime.deal(withCrc("FF 03 02 4321")), 1);
    QCOMPARE(DriverFixture::data(HIGHEST_INT, "D", 0, 1, 2), bytes("2143"));
    QCOMPARE(runtime.poll(), withCrc("00 03 0000 0001"));
    QCOMPARE(runtime.deal(QByteArray()), 2);
    QCOMPARE(runtime.lastError(), QString("0,-2147483648,0,D"));
    QCOMPARE(int(runtime.shared[60116]), 0);
}

void RecipeAddressesEdgesTest::links()
{
    Variables recipe = {variable(1, "D", 0, 1, 0), variable(1, "D", 10, 1, 1),
                        variable(1, "D", 20, 1, 2)};
    recipe[0].rcpId = LOWEST_INT;
    recipe[1].rcpId = HIGHEST_INT;
    recipe[2].rcpId = 0;
    const struct {
        const char* parameters;
        const char* kept;
    } rows[] = {{"-2147483648#0#0#1#32", "1 0 x1 @0"},
                {"2147483647#0#0#1#32", "1 10 x1 @1"},
                {"2147483648#0#0#1#32", "1 20 x1 @2"}}; // no int, so link 0
    for (const auto& row : rows) {
        DriverFixture runtime(row.parameters);
        QCOMPARE(intf_setRcpAddress(recipe), 1);
        QCOMPARE(texts(driver.rcpVarsA), QString(row.kept));
    }
}

void RecipeAddressesEdgesTest::limits_data()
{
    QTest::addColumn<int>("limit");
    QTest::addColumn<Variables>("recipe");
    QTest::addColumn<QString>("blocks");
    QTest::addColumn<QList<int>>("starts");
    const Variables touching = {variable(1, "D", 0, 2, 0), variable(1, "D", 2, 1, 2)};
    QTest::newRow("the highest int joins")
        << HIGHEST_INT << touching << "1 0 x3 @0" << QList<int>{0};
    for (const int limit : {0, -1, LOWEST_INT})
        QTest::newRow(QByteArray::number(limit) + " joins nothing")
            << limit << touching << "1 0 x2 @0, 1 0 x2 @0, 1 2 x1 @2" << QList<int>{0, 0, 1};
    const Variables empty = {variable(1, "D", 5, 0, 0)};
    QTest::newRow("no register within 0") << 0 << empty << "1 5 x0 @0, 1 5 x0 @0" << QList<int>{0};
    QTest::newRow("no register past -1")
        << -1 << empty << "1 5 x0 @0, 1 5 x0 @0, 1 5 x0 @0" << QList<int>{0, 0};
    QTest::newRow("the longest variable takes in the next")
        << 32 << Variables({variable(1, "D", 0, HIGHEST_INT, 0), variable(1, "D", 10, 1, 1)})
        << "1 0 x2147483647 @0, 1 0 x2147483647 @0" << QList<int>{0, 0};
    // Its end, 2147483648 before its start, wraps to as many behind it.
    QTest::newRow("a count of the lowest int")
        << 32 << Variables({variable(1, "D", 0, LOWEST_INT, 0), variable(1, "D", 10, 1, 1)})
        << "1 0 x11 @0" << QList<int>{0};
}

void RecipeAddressesEdgesTest::limits()
{
    QFETCH(int, limit);
    QFETCH(Variables, recipe);
    QFETCH(QString, blocks);
    QFETCH(QList<int>, starts);
    DriverFixture runtime(("1#0#0#1#" + QByteArray::number(limit)).constData());
    QCOMPARE(driver.maxWords, limit);
    QCOMPARE(intf_setRcpAddress(recipe), static_cast<int>(recipe.size()));
    QCOMPARE(texts(driver.rcpVars), blocks);
    QCOMPARE(driver.intList, starts);
}

void RecipeAddressesEdgesTest::offsetsAreCarried()
{
    DriverFixture runtime("1#0#0#1#32");
    Variables recipe = {variable(1, "D", LOWEST_INT, 1, HIGHEST_INT),
                        variable(1, "D", 0, 1, LOWEST_INT)};
    QCOMPARE(intf_setRcpAddress(recipe), 2);
    QCOMPARE(texts(driver.rcpVars), QString("1 0 x1 @-2147483648, 1 -2147483648 x1 @2147483647"));
}

QTEST_APPLESS_MAIN(RecipeAddressesEdgesTest)
#include "tst_recipe_addresses_edges.moc"
