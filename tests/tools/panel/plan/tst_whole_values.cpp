#include "panel/plan/whole_values.h"

#include "tools/panel/plan/range_texts.h"

#include <QtTest/QTest>

using namespace kx;

class WholeValuesTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesInOrder_data();
    void valuesInOrder();
    void whatLiesInARange_data();
    void whatLiesInARange();
};

namespace
{

QString textOf(const std::vector<AddressRange>& values)
{
    return textOfRanges(QList<AddressRange>(values.begin(), values.end()));
}

} // namespace

void WholeValuesTest::valuesInOrder_data()
{
    QTest::addColumn<QString>("ranges");
    QTest::addColumn<QString>("values");
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("single registers, one twice") << "D1:2@1 D0:2@1"
                                                 << "D0:1@1 D1:1@1 D2:1@1";
    QTest::newRow("values of two") << "D2x2@1 D0x2@1"
                                   << "D0:2@1 D2:2@1";
    QTest::newRow("one value twice") << "D0x2@1 D0x2@1"
                                     << "D0:2@1";
    QTest::newRow("values that overlap stay two") << "D1x2@1 D0x2@1"
                                                  << "D0:2@1 D1:2@1";
    QTest::newRow("what lies within another goes with it") << "D0x4@1 D0@1 D0x2@1 D3@1 D2x2@1"
                                                           << "D0:4@1";
    QTest::newRow("what reaches out does not") << "D0x4@1 D3x2@1 D4@1"
                                               << "D0:4@1 D3:2@1";
    QTest::newRow("stations and types apart") << "D0x2@2 CV0x2@1 D0@1 D1x2@1"
                                              << "D0:1@1 D1:2@1 CV0:2@1 D0:2@2";
}

void WholeValuesTest::valuesInOrder()
{
    QFETCH(QString, ranges);
    QTEST(textOf(WholeValues(rangesOf(ranges)).all()), "values");
}

void WholeValuesTest::whatLiesInARange_data()
{
    QTest::addColumn<QString>("range");
    QTest::addColumn<QString>("values");
    QTest::newRow("all") << "D0:10@1"
                         << "D0:2@1 D2:4@1 D5:2@1 D9:1@1";
    QTest::newRow("cut at its beginning") << "D1:9@1"
                                          << "D2:4@1 D5:2@1 D9:1@1";
    QTest::newRow("cut at its end") << "D0:5@1"
                                    << "D0:2@1";
    QTest::newRow("a longer one begins with it") << "D2:3@1"
                                                 << "";
    QTest::newRow("another station") << "D0:10@2"
                                     << "";
    QTest::newRow("another type") << "CV0:10@1"
                                  << "";
}

void WholeValuesTest::whatLiesInARange()
{
    QFETCH(QString, range);
    const WholeValues values(rangesOf(QStringLiteral("D0x2@1 D2x4@1 D5x2@1 D9@1")));
    QTEST(textOf(values.within(rangesOf(range).first())), "values");
}

QTEST_APPLESS_MAIN(WholeValuesTest)
#include "tst_whole_values.moc"
