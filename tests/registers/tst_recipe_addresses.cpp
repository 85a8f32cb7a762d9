#include "registers/recipe_addresses.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

namespace
{

using Variables = QVector<_RCP_VAR_PRO>;

// One text per variable: "STATION TYPE ADDRESS xCOUNT @OFFSET".
QStringList texts(const Variables& variables)
{
    QStringList texts;
    for (const _RCP_VAR_PRO& v : variables)
        texts << QString("%1 %2 %3 x%4 @%5")
                     .arg(QString::number(v.station), v.regType)
                     .arg(v.address)
                     .arg(v.count)
                     .arg(v.bufOffset);
    return texts;
}

} // namespace

Q_DECLARE_METATYPE(_RCP_VAR_PRO)

class RecipeAddressesTest : public QObject
{
    Q_OBJECT

private slots:
    void plans_data();
    void plans();
    void keepsTheVariablesOfItsLinkOnly();
    void anEmptyRecipeReplacesThePlan_data();
    void anEmptyRecipeReplacesThePlan();
    void aSecondRecipeReplacesThePlan();
    void sortingKeepsRecordsWholeAndEqualsInOrder();
    void thePositionIsNotReset();
};

void RecipeAddressesTest::plans_data()
{
    QTest::addColumn<Variables>("recipe");
    QTest::addColumn<QStringList>("sorted");
    QTest::addColumn<QStringList>("blocks");
    QTest::addColumn<QList<int>>("starts");
    const auto row = [](const char* name, const Variables& recipe, const QStringList& sorted,
                        const QStringList& blocks, const QList<int>& starts) {
        QTest::newRow(name) << recipe << sorted << blocks << starts;
    };
    row("touching variables share a block",
        {variable(1, "D", 100, 2, 40), variable(1, "D", 102, 1, 42), variable(1, "D", 10, 1, 7)},
        {"1 D 10 x1 @7", "1 D 100 x2 @40", "1 D 102 x1 @42"}, {"1 D 10 x1 @7", "1 D 100 x3 @40"},
        {0, 1});
    row("a single variable makes two blocks", {variable(1, "D", 5, 2, 9)}, {"1 D 5 x2 @9"},
        {"1 D 5 x2 @9", "1 D 5 x2 @9"}, {0});
    row("gaps are not bridged", {variable(1, "D", 0, 1, 0), variable(1, "D", 2, 1, 1)},
        {"1 D 0 x1 @0", "1 D 2 x1 @1"}, {"1 D 0 x1 @0", "1 D 2 x1 @1"}, {0, 1});
    row("by type in sort order, TV before CV",
        {variable(1, "Z", 0, 1, 1), variable(1, "CV", 0, 1, 2), variable(1, "TV", 0, 1, 3),
         variable(1, "D", 0, 1, 4)},
        {"1 D 0 x1 @4", "1 TV 0 x1 @3", "1 CV 0 x1 @2", "1 Z 0 x1 @1"},
        {"1 D 0 x1 @4", "1 TV 0 x1 @3", "1 CV 0 x1 @2", "1 Z 0 x1 @1"}, {0, 1, 2, 3});
    row("stations interleave and never join",
        {variable(1, "Y", 6, 1, 1), variable(0, "C", 5, 1, 2), variable(0, "D", 0, 1, 3)},
        {"0 C 5 x1 @2", "1 Y 6 x1 @1", "0 D 0 x1 @3"},
        {"0 C 5 x1 @2", "1 Y 6 x1 @1", "0 D 0 x1 @3"}, {0, 1, 2});
    row("at most 32 registers in a block",
        {variable(1, "D", 0, 20, 0), variable(1, "D", 20, 12, 20), variable(1, "D", 32, 1, 32)},
        {"1 D 0 x20 @0", "1 D 20 x12 @20", "1 D 32 x1 @32"}, {"1 D 0 x32 @0", "1 D 32 x1 @32"},
        {0, 2});
    row("a longer variable stays whole, sent twice when first",
        {variable(1, "D", 0, 33, 0), variable(1, "D", 100, 1, 50)},
        {"1 D 0 x33 @0", "1 D 100 x1 @50"}, {"1 D 0 x33 @0", "1 D 0 x33 @0", "1 D 100 x1 @50"},
        {0, 0, 1});
    row("an unknown type sorts first in its station",
        {variable(1, "X", 0, 1, 1), variable(1, "Q", 3, 1, 2)}, {"1 Q 3 x1 @2", "1 X 0 x1 @1"},
        {"1 Q 3 x1 @2", "1 X 0 x1 @1"}, {0, 1});
    row("32CV values touch every two registers",
        {variable(1, "32CV", 201, 2, 2), variable(1, "32CV", 200, 2, 0)},
        {"1 32CV 200 x2 @0", "1 32CV 201 x2 @2"}, {"1 32CV 200 x4 @0"}, {0});
    // A station of 27000 weighs past 2^31: unsigned, so it sorts last.
    row("weights compare unsigned", {variable(27000, "", 0, 1, 1), variable(1, "D", 0, 1, 2)},
        {"1 D 0 x1 @2", "27000  0 x1 @1"}, {"1 D 0 x1 @2", "27000  0 x1 @1"}, {0, 1});
}

void RecipeAddressesTest::plans()
{
    QFETCH(Variables, recipe);
    QFETCH(QStringList, sorted);
    QFETCH(QStringList, blocks);
    QFETCH(QList<int>, starts);
    DriverFixture runtime("1#0#0#3#32");
    const QStringList before = texts(recipe);
    QCOMPARE(intf_setRcpAddress(recipe), static_cast<int>(recipe.size()));
    QCOMPARE(texts(driver.rcpVarsA), sorted);
    QCOMPARE(texts(driver.rcpVars), blocks);
    QCOMPARE(driver.intList, starts);
    QCOMPARE(texts(recipe), before);
}

void RecipeAddressesTest::keepsTheVariablesOfItsLinkOnly()
{
    DriverFixture runtime("1#0#0#3#32");
    Variables recipe = {variable(1, "D", 100, 2, 0), variable(1, "D", 101, 1, 60),
                        variable(1, "D", 102, 1, 2), variable(1, "D", 10, 1, 3)};
    recipe[1].rcpId = 2;
    QCOMPARE(intf_setRcpAddress(recipe), 3);
    QCOMPARE(texts(driver.rcpVarsA),
             QStringList({"1 D 10 x1 @3", "1 D 100 x2 @0", "1 D 102 x1 @2"}));
    QCOMPARE(texts(driver.rcpVars), QStringList({"1 D 10 x1 @3", "1 D 100 x3 @0"}));
    QCOMPARE(driver.intList, QList<int>({0, 1}));
}

void RecipeAddressesTest::anEmptyRecipeReplacesThePlan_data()
{
    QTest::addColumn<Variables>("recipe");
    Variables otherLink = {variable(1, "D", 0, 1, 0)};
    otherLink[0].rcpId = 2;
    QTest::newRow("no variable") << Variables();
    QTest::newRow("variables of another link only") << otherLink;
}

void RecipeAddressesTest::anEmptyRecipeReplacesThePlan()
{
    QFETCH(Variables, recipe);
    DriverFixture runtime("1#0#0#3#32");
    Variables earlier = {variable(1, "D", 0, 1, 0), variable(1, "D", 9, 1, 1)};
    QCOMPARE(intf_setRcpAddress(earlier), 2);
    QCOMPARE(driver.rcpVars.size(), 2);
    QCOMPARE(intf_setRcpAddress(recipe), 0);
    QCOMPARE(driver.rcpVarsA.size(), 0);
    QCOMPARE(driver.rcpVars.size(), 0);
    QCOMPARE(driver.intList.size(), 0);
}

void RecipeAddressesTest::aSecondRecipeReplacesThePlan()
{
    DriverFixture runtime("1#0#0#3#32");
    Variables first = {variable(1, "D", 0, 1, 0), variable(1, "D", 9, 1, 1)};
    Variables second = {variable(1, "TV", 5, 1, 0), variable(1, "TV", 6, 1, 1)};
    intf_setRcpAddress(first);
    QCOMPARE(intf_setRcpAddress(second), 2);
    QCOMPARE(texts(driver.rcpVarsA), QStringList({"1 TV 5 x1 @0", "1 TV 6 x1 @1"}));
    QCOMPARE(texts(driver.rcpVars), QStringList({"1 TV 5 x2 @0"}));
    QCOMPARE(driver.intList, QList<int>({0}));
}

void RecipeAddressesTest::sortingKeepsRecordsWholeAndEqualsInOrder()
{
    DriverFixture runtime("1#0#0#3#32");
    Variables recipe = {variable(1, "D", 50, 1, 1), variable(1, "D", 20, 1, 2),
                        variable(1, "D", 20, 1, 3), variable(1, "D", 10, 1, 4)};
    for (int i = 0; i < 4; ++i) {
        recipe[i].rcpExtra[0] = static_cast<unsigned char>(recipe[i].bufOffset);
        recipe[i].rcpExtra[3] = static_cast<unsigned char>(10 * recipe[i].bufOffset);
    }
    intf_setRcpAddress(recipe);
    QCOMPARE(texts(driver.rcpVarsA),
             QStringList({"1 D 10 x1 @4", "1 D 20 x1 @2", "1 D 20 x1 @3", "1 D 50 x1 @1"}));
    const int firstExtra[] = {4, 2, 3, 1};
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(driver.rcpVarsA.at(i).rcpId, 1);
        QCOMPARE(int(driver.rcpVarsA.at(i).rcpExtra[0]), firstExtra[i]);
        QCOMPARE(int(driver.rcpVarsA.at(i).rcpExtra[3]), 10 * firstExtra[i]);
    }
}

void RecipeAddressesTest::thePositionIsNotReset()
{
    DriverFixture runtime("1#0#0#3#32");
    driver.rcpIndex = 2;
    Variables recipe = {variable(1, "D", 0, 1, 0)};
    intf_setRcpAddress(recipe);
    QCOMPARE(driver.rcpIndex, 2);
}

QTEST_APPLESS_MAIN(RecipeAddressesTest)
#include "tst_recipe_addresses.moc"
