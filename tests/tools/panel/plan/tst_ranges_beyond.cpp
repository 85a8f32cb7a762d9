#include "panel/plan/ranges_beyond.h"

#include "tools/panel/plan/range_texts.h"

#include <QtTest/QTest>

using namespace kx;

class RangesBeyondTest : public QObject
{
    Q_OBJECT

private slots:
    void whatOthersReadIsNotReadAgain_data();
    void whatOthersReadIsNotReadAgain();
};

void RangesBeyondTest::whatOthersReadIsNotReadAgain_data()
{
    QTest::addColumn<QString>("ranges");
    QTest::addColumn<QString>("others");
    QTest::addColumn<QString>("beyond");
    QTest::newRow("none") << "D0:3@1"
                          << ""
                          << "D0:3@1";
    QTest::newRow("another station") << "D0@1"
                                     << "D0@2"
                                     << "D0:1@1";
    QTest::newRow("another type") << "D0@1"
                                  << "CV0@1"
                                  << "D0:1@1";
    QTest::newRow("all") << "D1:2@1"
                         << "D0:9@1"
                         << "";
    QTest::newRow("the middle") << "D0:10@1"
                                << "D3:2@1 D6@1"
                                << "D0:3@1 D5:1@1 D7:3@1";
    QTest::newRow("both ends") << "D5:10@1"
                               << "D0:6@1 D14:9@1"
                               << "D6:8@1";
    QTest::newRow("a value that one of them reads") << "D4x2@1"
                                                    << "D0:9@1"
                                                    << "";
    QTest::newRow("a value of which each reads a half") << "D4x2@1"
                                                        << "D0:5@1 D5:5@1"
                                                        << "D4:2@1";
    QTest::newRow("a value that the earlier and longer one reads") << "D4x2@1"
                                                                   << "D0:9@1 D3:2@1"
                                                                   << "";
    QTest::newRow("each value by itself") << "D0:3x2@1"
                                          << "D2:2@1"
                                          << "D0:2@1 D4:2@1";
    QTest::newRow("a value of another station") << "D0x2@2"
                                                << "D0:2@1"
                                                << "D0:2@2";
}

void RangesBeyondTest::whatOthersReadIsNotReadAgain()
{
    QFETCH(QString, ranges);
    QFETCH(QString, others);
    QTEST(textOfRanges(rangesBeyond(rangesOf(ranges), rangesOf(others))), "beyond");
}

QTEST_APPLESS_MAIN(RangesBeyondTest)
#include "tst_ranges_beyond.moc"
