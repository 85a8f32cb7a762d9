// Texts that no user types, and numbers at the edges of int, at both checks.

#include "registers/checked_address.h"

#include <QtTest/QTest>

class AddressCheckEdgesTest : public QObject
{
    Q_OBJECT

private slots:
    void strangeTexts_data();
    void strangeTexts();
    void lengthsAtTheEdges();
    void codesAtTheEdges();
};

void AddressCheckEdgesTest::strangeTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("address");
    const auto row = [](const char* name, const QString& text, int result, int address) {
        QTest::newRow(name) << text << result << address;
    };
    row("null", QString(), 4, 0);
    row("a space alone", " ", 4, 0);
    row("spaces around", " 7 ", 0, 7);
    row("a space amid", "1 7", 4, 0);
    row("a sign alone", "-", 4, 0);
    row("two signs", "--7", 4, 0);
    row("minus 0", "-0", 0, 0);
    row("leading zeros", QString(1000000, '0') + '7', 0, 7);
    row("a million sevens", QString(1000000, '7'), 4, 0);
    row("a million spaces", QString(1000000, ' '), 4, 0);
    row("a zero character alone", QString(QChar(0)), 4, 0);
    row("a zero character behind", QString("7") + QChar(0), 4, 0);
    row("a zero character before", QChar(0) + QString("7"), 4, 0);
    row("digits behind a zero character", QString("7") + QChar(0) + "1", 4, 0);
    row("letters behind a zero character", QString("5") + QChar(0) + "abc", 4, 0);
    row("a space behind a zero character", QString("7") + QChar(0) + ' ', 4, 0);
    row("a million zero characters", '7' + QString(1000000, QChar(0)), 4, 0);
    row("an Arabic digit", QString(QChar(0x0667)), 4, 0);
    row("a wide digit", QString(QChar(0xFF17)), 4, 0);
    row("half a surrogate pair", QString(QChar(0xD800)), 4, 0);
    row("a group separator", "1,7", 4, 0);
    row("an exponent", "1e1", 4, 0);
}

// What is a number is a single digit, the same in octal and in decimal.
void AddressCheckEdgesTest::strangeTexts()
{
    QFETCH(QString, text);
    QFETCH(int, result);
    QFETCH(int, address);
    for (const char* type : {"X", "M", "D"}) {
        const int isWord = qstrcmp(type, "D") == 0 ? 1 : 0;
        const Checked byKind = validity(type, text, 1, isWord);
        QCOMPARE(byKind.result, result);
        QCOMPARE(byKind.address, address);
        const Checked byDataType = check(type, text, isWord ? 2 : BIT_TAG, 1, 0);
        QCOMPARE(byDataType.result, result);
        QCOMPARE(byDataType.address, address);
    }
}

void AddressCheckEdgesTest::lengthsAtTheEdges()
{
    for (const int longLength : {HIGHEST_INT, HIGHEST_INT - 1, 65536}) {
        QCOMPARE(validity("D", "7999", longLength, 1).result, 2);
        QCOMPARE(check("D", "7999", 2, longLength, 0).result, 2);
        QCOMPARE(check("Y", "377", BIT_TAG, longLength, 0).result, 2);
    }
    for (const int negative : {LOWEST_INT, LOWEST_INT + 1, -65536, -8000, -1, 0}) {
        QCOMPARE(validity("D", "7999", negative, 1).result, 0);
        QCOMPARE(check("D", "7999", 2, negative, 0).result, 0);
        QCOMPARE(check("Y", "377", BIT_TAG, negative, 0).address, 255);
    }
    QCOMPARE(validity("D", "2147483647", LOWEST_INT, 1).result, 0); // ends at -1
    QCOMPARE(validity("D", "-2147483648", HIGHEST_INT, 1).result, 2);
}

// A code counts whole, not by its low byte.
void AddressCheckEdgesTest::codesAtTheEdges()
{
    for (const int edge :
         {LOWEST_INT, LOWEST_INT + 1, LOWEST_INT + 2, HIGHEST_INT, 65535, 65537, 257, 258, -255}) {
        QCOMPARE(check("32CV", "200", edge, 1, 0).result, 5);
        QCOMPARE(check("32CV", "200", edge, 1, 0).address, UNTOUCHED);
        QCOMPARE(check("Y", "5", edge, 1, 0).result, 1); // a word tag
        QCOMPARE(check("Y", "5", edge, 1, 0).address, UNTOUCHED);
        QCOMPARE(check("D", "5", edge, 1, edge).result, 0);
        QCOMPARE(check("D", "5", edge, 1, edge).address, 5);
        QCOMPARE(check("X", "7", BIT_TAG, 1, edge).result, 0);
        QCOMPARE(check("X", "7", BIT_TAG, 1, edge).address, 7);
        QCOMPARE(check("32CV", "200", 9, 1, edge).result, 0);
        QCOMPARE(validity("D", "5", 1, edge).result, 0); // any number but 0 means a word
        QCOMPARE(validity("Y", "5", 1, edge).result, 1);
    }
}

QTEST_APPLESS_MAIN(AddressCheckEdgesTest)
#include "tst_address_check_edges.moc"
