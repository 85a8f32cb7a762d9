#include "panel/recipe/recipe_value.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kx;

class RecipeValueTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesAreParsedAndWritten_data();
    void valuesAreParsedAndWritten();
    void badValuesAreRefused_data();
    void badValuesAreRefused();
    void typesSuitRegisters_data();
    void typesSuitRegisters();
    void namesAreExact();
};

void RecipeValueTest::valuesAreParsedAndWritten_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("bits");
    QTest::addColumn<QString>("written");

    QTest::newRow("bit on") << "bit"
                            << "1" << quint32(1) << "1";
    QTest::newRow("uint16 highest") << "uint16"
                                    << "65535" << quint32(0xFFFF) << "65535";
    QTest::newRow("uint16 in hexadecimal") << "uint16"
                                           << "0x10" << quint32(16) << "16";
    QTest::newRow("int16 lowest") << "int16"
                                  << "-32768" << quint32(0x8000) << "-32768";
    QTest::newRow("int16 highest") << "int16"
                                   << "32767" << quint32(0x7FFF) << "32767";
    QTest::newRow("hex16") << "hex16"
                           << "0x04D2" << quint32(1234) << "0x04d2";
    QTest::newRow("hex16 in decimal") << "hex16"
                                      << "10" << quint32(10) << "0x000a";
    QTest::newRow("uint32 highest") << "uint32"
                                    << "4294967295" << quint32(0xFFFFFFFF) << "4294967295";
    QTest::newRow("int32 lowest") << "int32"
                                  << "-2147483648" << quint32(0x80000000) << "-2147483648";
    // 12.5 is 1.5625 * 2^3: sign 0, exponent 130, fraction 0x480000.
    QTest::newRow("float") << "float"
                           << "12.50" << quint32(0x41480000) << "12.5";
    QTest::newRow("float minus zero") << "float"
                                      << "-0" << quint32(0x80000000) << "-0";
    QTest::newRow("float without a number")
        << "float"
        << "nan(0x7FC00001)" << quint32(0x7FC00001) << "nan(0x7FC00001)";
    QTest::newRow("int32 minus one") << "int32"
                                     << "-1" << quint32(0xFFFFFFFF) << "-1";
}

void RecipeValueTest::valuesAreParsedAndWritten()
{
    QFETCH(QString, type);
    QFETCH(QString, text);
    const RecipeValueType* const valueType = findRecipeValueType(type);
    QVERIFY(valueType);
    quint32 bits = 0;
    QString error;
    QVERIFY2(parseRecipeValue(valueType, text, &bits, &error), qPrintable(error));
    QTEST(bits, "bits");
    QTEST(recipeValueText(valueType, bits), "written");
}

void RecipeValueTest::badValuesAreRefused_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");

    const QString number = QStringLiteral("'%1' is not a decimal or 0x hexadecimal number");
    QTest::newRow("word") << "uint16"
                          << "on" << number.arg("on");
    QTest::newRow("fraction") << "uint16"
                              << "1.5" << number.arg("1.5");
    QTest::newRow("hexadecimal without digits") << "uint16"
                                                << "0x" << number.arg("0x");
    QTest::newRow("minus inside hexadecimal") << "int16"
                                              << "0x-1" << number.arg("0x-1");
    const QString amid = QString("5") + QChar(0) + "abc";
    QTest::newRow("letters behind a zero character") << "uint16" << amid << number.arg(amid);
    const QString behind = QString("0x5") + QChar(0);
    QTest::newRow("hexadecimal, then a zero character") << "uint16" << behind << number.arg(behind);
    QTest::newRow("longer than 64 bits")
        << "uint32"
        << "99999999999999999999" << number.arg("99999999999999999999");
    QTest::newRow("bit 2") << "bit"
                           << "2"
                           << "2 does not fit; bit takes 0 to 1";
    QTest::newRow("uint16 above") << "uint16"
                                  << "65536"
                                  << "65536 does not fit; uint16 takes 0 to 65535";
    QTest::newRow("uint16 below") << "uint16"
                                  << "-1"
                                  << "-1 does not fit; uint16 takes 0 to 65535";
    QTest::newRow("int16 above") << "int16"
                                 << "32768"
                                 << "32768 does not fit; int16 takes -32768 to 32767";
    QTest::newRow("uint32 above") << "uint32"
                                  << "4294967296"
                                  << "4294967296 does not fit; uint32 takes 0 to 4294967295";
}

void RecipeValueTest::badValuesAreRefused()
{
    QFETCH(QString, type);
    QFETCH(QString, text);
    quint32 bits = 77;
    QString error;
    QVERIFY(!parseRecipeValue(findRecipeValueType(type), text, &bits, &error));
    QTEST(error, "error");
    QCOMPARE(bits, quint32(77));
}

void RecipeValueTest::typesSuitRegisters_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("registers");
    QTest::addColumn<bool>("suiting");
    QTest::addColumn<int>("addresses");

    QTest::newRow("bit in a coil") << "bit"
                                   << "M" << true << 1;
    QTest::newRow("bit in a register") << "bit"
                                       << "D" << false << 1;
    QTest::newRow("hex16 in a register") << "hex16"
                                         << "TV" << true << 1;
    QTest::newRow("uint16 in a coil") << "uint16"
                                      << "Y" << false << 1;
    QTest::newRow("uint16 in a 32CV") << "uint16"
                                      << "32CV" << false << 1;
    QTest::newRow("int32 in a 32CV") << "int32"
                                     << "32CV" << true << 1;
    QTest::newRow("float in a 32CV") << "float"
                                     << "32CV" << false << 1;
    QTest::newRow("float in two registers") << "float"
                                            << "D" << true << 2;
    QTest::newRow("uint32 in two registers") << "uint32"
                                             << "D" << true << 2;
}

void RecipeValueTest::typesSuitRegisters()
{
    QFETCH(QString, type);
    QFETCH(QString, registers);
    QTEST(suits(findRecipeValueType(type), findRegisterType(registers)), "suiting");
    QTEST(addressesPerValue(findRecipeValueType(type), findRegisterType(registers)), "addresses");
}

void RecipeValueTest::namesAreExact()
{
    QVERIFY(!findRecipeValueType(QStringLiteral("UINT16")));
    QVERIFY(!findRecipeValueType(QString()));
    QCOMPARE(recipeValueTypeNames(),
             QStringLiteral("bit, uint16, int16, hex16, uint32, int32, float"));
}

QTEST_GUILESS_MAIN(RecipeValueTest)
#include "tst_recipe_value.moc"
