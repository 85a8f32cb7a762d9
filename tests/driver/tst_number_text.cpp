#include "driver/number_text.h"

#include <QtTest/QTest>

class NumberTextTest : public QObject
{
    Q_OBJECT

private slots:
    void numbers_data();
    void numbers();
    void aZeroCharacterIsFoundAnywhere();
};

void NumberTextTest::numbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("radix");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<int>("number");
    const QString zero = QChar(0);
    QTest::newRow("decimal") << "123" << 10 << true << 123;
    QTest::newRow("octal") << "17" << 8 << true << 15;
    QTest::newRow("a digit that the radix lacks") << "8" << 8 << false << 0;
    QTest::newRow("a prefix") << "0x10" << 10 << false << 0;
    QTest::newRow("signs and spaces") << " -7 " << 10 << true << -7;
    QTest::newRow("the highest int") << "2147483647" << 10 << true << 2147483647;
    QTest::newRow("past the highest int") << "2147483648" << 10 << false << 0;
    QTest::newRow("nothing") << QString() << 10 << false << 0;
    QTest::newRow("a zero character alone") << zero << 10 << false << 0;
    QTest::newRow("a zero character before") << zero + "5" << 10 << false << 0;
    QTest::newRow("a zero character behind") << "5" + zero << 10 << false << 0;
    QTest::newRow("a zero character amid digits") << "5" + zero + "6" << 8 << false << 0;
    QTest::newRow("letters behind a zero character") << "5" + zero + "abc" << 10 << false << 0;
}

void NumberTextTest::numbers()
{
    QFETCH(QString, text);
    QFETCH(int, radix);
    QFETCH(bool, isNumber);
    bool answer = !isNumber;
    QTEST(numberIn(text, radix, &answer), "number");
    QCOMPARE(answer, isNumber);
    QTEST(numberIn(text, radix), "number");
}

void NumberTextTest::aZeroCharacterIsFoundAnywhere()
{
    const QString zero = QChar(0);
    QVERIFY(!holdsZeroCharacter(QString()));
    QVERIFY(!holdsZeroCharacter("0 digits"));
    QVERIFY(holdsZeroCharacter(zero + "5"));
    QVERIFY(holdsZeroCharacter("5" + zero + "5"));
    QVERIFY(holdsZeroCharacter("5" + zero));
}

QTEST_APPLESS_MAIN(NumberTextTest)
#include "tst_number_text.moc"
