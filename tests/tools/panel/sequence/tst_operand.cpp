#include "panel/sequence/operand.h"
#include "panel/values/value_address.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

Tag tagAt(const char* address)
{
    Tag tag;
    QString fault;
    if (!parseValueAddress(QString::fromLatin1(address), &tag.range, &tag.format, &fault))
        qFatal("%s: %s", address, qPrintable(fault));
    return tag;
}

} // namespace

class OperandTest : public QObject
{
    Q_OBJECT

private slots:
    void namesTellTheirAddress();
    void valuesAreShown_data();
    void valuesAreShown();
    void boundsAreOfWrites();
};

void OperandTest::namesTellTheirAddress()
{
    Tag tag = tagAt("D100@2/float");
    QCOMPARE(operandText(tag), QStringLiteral("D100@2/float"));
    tag.name = QStringLiteral("pressure");
    QCOMPARE(operandText(tag), QStringLiteral("pressure (D100@2)"));
    tag.name = QStringLiteral("speed %3");
    QCOMPARE(operandText(tag), QStringLiteral("speed %3 (D100@2)"));
}

void OperandTest::valuesAreShown_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QList<qint64>>("values");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("compared");
    QTest::newRow("a word") << "D100" << QList<qint64>{7} << "7"
                            << "7";
    QTest::newRow("scaled, with a unit")
        << "D100/u16*0.1,unit=bar" << QList<qint64>{42} << "4.2 bar"
        << "4.2";
    // 12.5 is 0x41480000, the low word first.
    QTest::newRow("a float, compared with all digits")
        << "D100/float,decimals=0,unit=bar" << QList<qint64>{0, 0x4148} << "13 bar"
        << "12.5";
    QTest::newRow("one bit of a word") << "D100.3" << QList<qint64>{8} << "1"
                                       << "1";
    QTest::newRow("the first of several") << "D100:2" << QList<qint64>{7, 8} << "7"
                                          << "7";
}

void OperandTest::valuesAreShown()
{
    QFETCH(QString, address);
    QFETCH(QList<qint64>, values);
    const Tag tag = tagAt(qPrintable(address));
    QTEST(shownText(tag, values), "shown");
    QTEST(comparedText(tag, values), "compared");
}

void OperandTest::boundsAreOfWrites()
{
    const Tag tag = tagAt("D100/u16,max=10");
    QString fault;
    QString shown;
    QVERIFY(parseExpected(tag, QStringLiteral("11"), &shown, &fault));
    QCOMPARE(shown, QStringLiteral("11"));
    QList<qint64> values;
    QVERIFY(!parseValues(tag, {QStringLiteral("11")}, &values, &fault));
    QCOMPARE(fault, QStringLiteral("11 is refused; it must be at most 10"));
}

QTEST_GUILESS_MAIN(OperandTest)
#include "tst_operand.moc"
