#include "kxpanel/recipes/recipe_order.h"

#include "kxpanel/recipes/recipe_model.h"
#include "tools/kxpanel/recipes/recipe_samples.h"

#include <QtTest/QTest>

using namespace kxpanel;

class RecipeOrderTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void keepsTheFilesOrderAtFirst();
    void putsDifferencesFirst();
    void showsDifferencesOnly();
    void sortsAddressesByNumber();
    void sortsByName();
    void sortsValuesByNumber();
    void sortsWhatTheControllerHas();

private:
    QStringList names() const;

    std::unique_ptr<RecipeModel> m_model;
    std::unique_ptr<RecipeOrder> m_order;
};

void RecipeOrderTest::init()
{
    m_order.reset();
    m_model = std::make_unique<RecipeModel>();
    m_model->setRows(recipeRows("name,station,address,value\n"
                                "Late,,D200,1\nEarly,,D9,2\nCoil,,M5,1\nOther,2,D9,3\n"));
    m_order = std::make_unique<RecipeOrder>(m_model.get());
}

QStringList RecipeOrderTest::names() const
{
    QStringList texts;
    for (int row = 0; row < m_order->rowCount(); ++row)
        texts << m_order->index(row, RecipeModel::Name).data().toString();
    return texts;
}

void RecipeOrderTest::keepsTheFilesOrderAtFirst()
{
    QCOMPARE(names(), (QStringList{"Late", "Early", "Coil", "Other"}));
}

void RecipeOrderTest::putsDifferencesFirst()
{
    m_model->setValues({{1}, {9}, {0}, {3}});
    QCOMPARE(names(), (QStringList{"Early", "Coil", "Late", "Other"}));
    m_model->setValues({{9}, {2}, {1}, {3}});
    QCOMPARE(names(), (QStringList{"Late", "Early", "Coil", "Other"}));
}

void RecipeOrderTest::showsDifferencesOnly()
{
    m_order->setDifferencesOnly(true);
    QCOMPARE(names(), QStringList());
    m_model->setValues({{1}, {9}, {0}, {3}});
    QCOMPARE(names(), (QStringList{"Early", "Coil"}));
    m_model->setValues({{1}, {2}, {0}, {3}});
    QCOMPARE(names(), QStringList{"Coil"});
    m_order->setDifferencesOnly(false);
    QCOMPARE(names().size(), 4);
}

void RecipeOrderTest::sortsAddressesByNumber()
{
    // Stations, then types in the order of the driver's table (M before D), then numbers.
    m_order->sort(RecipeModel::Address);
    QCOMPARE(names(), (QStringList{"Coil", "Early", "Late", "Other"}));
}

void RecipeOrderTest::sortsByName()
{
    m_order->sort(RecipeModel::Name, Qt::DescendingOrder);
    QCOMPARE(names(), (QStringList{"Other", "Late", "Early", "Coil"}));
}

void RecipeOrderTest::sortsValuesByNumber()
{
    m_model->setRows(recipeRows("name,address,format,scale,value\n"
                                "Ten,D1,,,10\nText,D2,ascii:2,,AB12\nNine,D4,,,9\nNone,D5,,,\n"
                                "Tenths,D6,s16,0.1,9.5\nHex,D7,hex,,0x000B\nBelow,D8,s16,,-3\n"
                                "Other text,D9,ascii:2,,AA13\n"));
    m_order->sort(RecipeModel::InFile);
    QCOMPARE(names(),
             (QStringList{"Below", "Nine", "Tenths", "Ten", "Hex", "Other text", "Text", "None"}));
    m_order->sort(RecipeModel::InFile, Qt::DescendingOrder);
    QCOMPARE(names(), (QStringList{"Text", "Other text", "Hex", "Ten", "Tenths", "Nine", "Below",
                                   "None"})); // what is not there is the last in both
}

void RecipeOrderTest::sortsWhatTheControllerHas()
{
    m_model->setValues({{100}, {20}, {1}, {3}});
    m_order->sort(RecipeModel::InController);
    QCOMPARE(names(), (QStringList{"Coil", "Other", "Early", "Late"}));
    m_order->sort(RecipeModel::InController, Qt::DescendingOrder);
    QCOMPARE(names(), (QStringList{"Late", "Early", "Other", "Coil"}));
}

QTEST_MAIN(RecipeOrderTest)

#include "tst_recipe_order.moc"
