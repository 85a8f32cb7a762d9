// Where the data of a block of a recipe read start, as the frame on the wire says.

#include "data/frame_fields.h"
#include "data/recipe_plan.h"

#include <climits>

namespace
{

const QByteArray DOUBLE_WORDS = bytes("01 03 08" // bytes 0 to 2
                                      "11223344" // from byte 3 on
                                      "55667788" // from byte 7 on
                                      "74 9C");  // CRC, bytes 11 and 12
const QByteArray TWO_WORDS = bytes("01 03 04"    // bytes 0 to 2
                                   "1234 5678"   // from byte 3 on
                                   "81 07");     // CRC, bytes 7 and 8

/// Words of the recipe buffer from word 10 on, in hex.
QString bufferWords(const DriverFixture& runtime, size_t count)
{
    QStringList words;
    for (size_t i = 0; i < count; ++i)
        words << QString("%1").arg(int(runtime.recipe[10 + i]), 4, 16, QChar('0'));
    return words.join(" ");
}

} // namespace

class RecipeFrameFieldsTest : public QObject
{
    Q_OBJECT

private slots:
    void words_data();
    void words();
    void doubleWords_data();
    void doubleWords();
};

// The start is the frame's; how many words there are, the variables say.
void RecipeFrameFieldsTest::words_data()
{
    addFields();
    QTest::addColumn<QString>("values");
    QTest::addColumn<QString>("buffer");
    QTest::newRow("as built") << 3 << 4 << "100:3412 101:7856"
                              << "1234 5678";
    QTest::newRow("one word later") << 5 << 4 << "100:7856 101:0781"
                                    << "5678 8107";
    QTest::newRow("one byte later") << 4 << 4 << "100:5634 101:8178"
                                    << "3456 7881";
    QTest::newRow("a byte before the reply") << -1 << 4 << "100:0100 101:0403"
                                             << "0001 0304";
    QTest::newRow("far behind the reply") << INT_MAX << 4 << "100:0000 101:0000"
                                          << "0000 0000";
    QTest::newRow("fewer") << 3 << 2 << "100:3412"
                           << "1234 5678";
    QTest::newRow("half a word") << 3 << 1 << ""
                                 << "1234 5678";
    QTest::newRow("below zero") << 3 << -4 << ""
                                << "1234 5678";
}

void RecipeFrameFieldsTest::words()
{
    QFETCH(int, start);
    QFETCH(int, length);
    DriverFixture runtime;
    runtime.recipe[10] = runtime.recipe[11] = 0xAAAA;
    plan({variable("D", 100, 1, 10), variable("D", 101, 1, 11)});
    runtime.requestRecipeRead();
    runtime.poll();
    setFields(start, length);
    QCOMPARE(runtime.deal(TWO_WORDS), 1);
    QTEST(cachedValues(2), "values");
    QTEST(bufferWords(runtime, 2), "buffer");
    QCOMPARE(runtime.reports, ::words({10, 11}));
}

void RecipeFrameFieldsTest::doubleWords_data()
{
    addFields();
    QTest::addColumn<QString>("buffer"); // of each value the low word first
    QTest::newRow("as built") << 3 << 8 << "3344 1122 7788 5566 aaaa aaaa";
    QTest::newRow("fewer") << 3 << 4 << "3344 1122 aaaa aaaa aaaa aaaa";
    QTest::newRow("one register later") << 5 << 4 << "5566 3344 aaaa aaaa aaaa aaaa";
    QTest::newRow("a byte less") << 3 << 7 << "3344 1122 aaaa aaaa aaaa aaaa";
    QTest::newRow("the CRC, too") << 3 << 12 << "3344 1122 7788 5566 0000 749c";
    QTest::newRow("far before the reply") << INT_MIN << 4 << "0000 0000 aaaa aaaa aaaa aaaa";
    QTest::newRow("below zero") << 3 << -8 << "aaaa aaaa aaaa aaaa aaaa aaaa";
}

void RecipeFrameFieldsTest::doubleWords()
{
    QFETCH(int, start);
    QFETCH(int, length);
    DriverFixture runtime;
    runtime.recipe.assign(16, 0xAAAA);
    runtime.initialise("1#0#0#3#32");
    plan({variable("32CV", 200, 4, 10)});
    runtime.requestRecipeRead();
    runtime.poll();
    setFields(start, length);
    QCOMPARE(runtime.deal(DOUBLE_WORDS), 1);
    QTEST(bufferWords(runtime, 6), "buffer");
}

QTEST_APPLESS_MAIN(RecipeFrameFieldsTest)
#include "tst_recipe_frame_fields.moc"
