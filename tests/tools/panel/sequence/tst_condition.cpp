#include "panel/sequence/condition.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

Decimal decimal(const char* text)
{
    Decimal number;
    if (!Decimal::parse(QString::fromLatin1(text), &number))
        qFatal("%s", text);
    return number;
}

} // namespace

class ConditionTest : public QObject
{
    Q_OBJECT

private slots:
    void equality_data();
    void equality();
    void order_data();
    void order();
};

void ConditionTest::equality_data()
{
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("equal");
    QTest::newRow("the same") << "7"
                              << "7" << true;
    QTest::newRow("another") << "7"
                             << "8" << false;
    QTest::newRow("with more places") << "7"
                                      << "7.0" << true;
    QTest::newRow("a negative zero") << "0"
                                     << "-0" << true;
    QTest::newRow("beyond what a double tells apart") << "9007199254740993"
                                                      << "9007199254740992" << false;
    QTest::newRow("text") << "PUMP"
                          << "PUMP" << true;
    QTest::newRow("text in other letters") << "PUMP"
                                           << "Pump" << false;
    QTest::newRow("not a number, twice") << "nan"
                                         << "nan" << true;
    QTest::newRow("not a number with other bits") << "nan"
                                                  << "nan(0x7FC00001)" << false;
    QTest::newRow("infinite, twice") << "inf"
                                     << "inf" << true;
    QTest::newRow("infinite on the other side") << "inf"
                                                << "-inf" << false;
}

void ConditionTest::equality()
{
    QFETCH(QString, shown);
    QFETCH(bool, equal);
    Condition condition;
    QFETCH(QString, expected);
    condition.shown = expected;
    QCOMPARE(isMet(condition, shown), equal);
    condition.comparison = Comparison::NotEqual;
    QCOMPARE(isMet(condition, shown), !equal);
}

void ConditionTest::order_data()
{
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("met"); // by < 4.5, <= 4.5, > 4.5, >= 4.5, in 4.5..5: + or -
    QTest::newRow("below") << "4.4"
                           << "++---";
    QTest::newRow("a little below") << "4.499999999999999999999"
                                    << "++---";
    QTest::newRow("the same") << "4.5"
                              << "-+-++";
    QTest::newRow("the same with more places") << "4.50"
                                               << "-+-++";
    QTest::newRow("a little above") << "4.500000000000000000001"
                                    << "--+++";
    QTest::newRow("the highest") << "5"
                                 << "--+++";
    QTest::newRow("above the highest") << "5.01"
                                       << "--++-";
    QTest::newRow("negative") << "-4.5"
                              << "++---";
    QTest::newRow("infinite") << "inf"
                              << "--++-";
    QTest::newRow("infinitely low") << "-inf"
                                    << "++---";
    QTest::newRow("not a number") << "nan"
                                  << "-----";
    QTest::newRow("a register with a digit above nine") << "0x12A4"
                                                        << "-----";
}

void ConditionTest::order()
{
    QFETCH(QString, shown);
    Condition condition;
    condition.low = decimal("4.5");
    condition.high = decimal("5");
    QString met;
    for (const Comparison comparison : {Comparison::Less, Comparison::AtMost, Comparison::Greater,
                                        Comparison::AtLeast, Comparison::Within}) {
        condition.comparison = comparison;
        met += QLatin1Char(isMet(condition, shown) ? '+' : '-');
    }
    QTEST(met, "met");
}

QTEST_GUILESS_MAIN(ConditionTest)
#include "tst_condition.moc"
