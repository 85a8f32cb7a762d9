#include "panel/recipe/recipe_layout.h"
#include "registers/register_types.h"
#include "tools/panel/recipe/recipe_rows.h"

#include <QtTest/QTest>

using namespace kx;

class RecipeRefusalsTest : public QObject
{
    Q_OBJECT

private slots:
    void badRecipesAreRefused_data();
    void badRecipesAreRefused();
    void bufferIsLimited();
    void downloadNeedsOutputsWithValues_data();
    void downloadNeedsOutputsWithValues();
};

void RecipeRefusalsTest::badRecipesAreRefused_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<QString>("error");

    QTest::newRow("one register, two values")
        << "Speed,1,D,100,uint16,5\nother,1,D,101,uint16,5\n,1,D,100,uint16,6" << 32
        << "line 2 (Speed) and line 4 give D100@1 different values: 5 and 6";
    QTest::newRow("32 bits over a register")
        << "a,2,D,101,uint16,5\nb,2,D,100,uint32,65536" << 32
        << "line 2 (a) and line 3 (b) give D101@2 different values: 5 and 1";
    QTest::newRow("one coil, two values") << "a,1,Y,17,bit,0\nb,1,Y,17,bit,1" << 32
                                          << "line 2 (a) and line 3 (b) give Y17@1 different "
                                             "values: 0 and 1";
    QTest::newRow("percent signs in the names")
        << "a%3%4,1,D,100,uint16,5\nb%5%6,1,D,100,uint16,6" << 32
        << "line 2 (a%3%4) and line 3 (b%5%6) give D100@1 different values: 5 and 6";
    QTest::newRow("a percent sign in the name of a 32CV")
        << "%3,1,32CV,200,uint32,5" << 1
        << "line 2 (%3): a 32CV takes 2 registers; raise --max-words, which is 1";
    QTest::newRow("two registers in a request of one")
        << "a,1,D,100,uint32,5" << 1
        << "line 2 (a): a value takes 2 registers; raise --max-words, which is 1";
    QTest::newRow("values that share registers and are longer than a request")
        << "a,1,D,99,uint16,0\nb,1,D,100,uint32,0\nc,1,D,102,uint32,0\nd,1,D,101,uint32,0" << 3
        << "line 3 (b): values that share registers are of one request, and those from here on "
           "take more than 3";
    QTest::newRow("32CV in a request of one register")
        << "a,1,32CV,200,uint32,5" << 1
        << "line 2 (a): a 32CV takes 2 registers; raise --max-words, which is 1";
}

void RecipeRefusalsTest::badRecipesAreRefused()
{
    QFETCH(QString, rows);
    QFETCH(int, maxWords);
    RecipeLayout layout;
    QString error;
    QVERIFY(!layOutRecipe(rowsOf(rows), maxWords, &layout, &error));
    QTEST(error, "error");
}

// Nine stations with all 8000 D registers need 72000 words.
void RecipeRefusalsTest::bufferIsLimited()
{
    QList<RecipeRow> rows;
    for (int station = 1; station <= 9; ++station) {
        for (int address = 0; address < 8000; ++address) {
            RecipeRow row;
            row.type = findRecipeValueType(QStringLiteral("uint16"));
            row.range = {findRegisterType(QStringLiteral("D")), address, 1, station};
            rows << row;
        }
    }
    RecipeLayout layout;
    QString error;
    QVERIFY(!layOutRecipe(rows, 32, &layout, &error));
    QCOMPARE(error, QStringLiteral("the rows need 72000 words of the recipe buffer, which holds "
                                   "65536"));
    rows = rows.mid(0, 65536);
    QVERIFY2(layOutRecipe(rows, 32, &layout, &error), qPrintable(error));
    QCOMPARE(layout.buffer.size(), size_t(65536));
}

void RecipeRefusalsTest::downloadNeedsOutputsWithValues_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("error");

    QTest::newRow("good") << "a,1,Y,17,bit,0" << QString();
    QTest::newRow("no value") << "a,1,D,1,uint16,1\nb,1,D,2,uint16,"
                              << "line 3 (b): no value for D2";
    QTest::newRow("input") << "a,1,X,17,bit,0"
                           << "line 2 (a): X17 is an input and cannot be "
                              "written";
}

void RecipeRefusalsTest::downloadNeedsOutputsWithValues()
{
    QFETCH(QString, rows);
    QFETCH(QString, error);
    QString found;
    QCOMPARE(canBeDownloaded(rowsOf(rows), &found), error.isEmpty());
    QCOMPARE(found, error);
}

QTEST_GUILESS_MAIN(RecipeRefusalsTest)
#include "tst_recipe_refusals.moc"
