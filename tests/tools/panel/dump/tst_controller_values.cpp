#include "dump_ranges.h"

#include <QtTest/QTest>

using namespace kx;

class ControllerValuesTest : public QObject
{
    Q_OBJECT

private slots:
    void runs_data();
    void runs();
    void aValueIsFound();
    void joinedRanges_data();
    void joinedRanges();
};

void ControllerValuesTest::runs_data()
{
    QTest::addColumn<QStringList>("taken");
    QTest::addColumn<QStringList>("runs");

    QTest::newRow("nothing") << QStringList() << QStringList();
    QTest::newRow("neighbours, the later ones first")
        << QStringList{"D2@1=7", "D0@1=5,6"} << QStringList{"D0@1=5,6,7"};
    QTest::newRow("a gap") << QStringList{"D0@1=5", "D2@1=7"} << QStringList{"D0@1=5", "D2@1=7"};
    QTest::newRow("a value taken twice: the later one counts")
        << QStringList{"D0@1=5,6", "D1@1=9"} << QStringList{"D0@1=5,9"};
    QTest::newRow("stations, then types in the catalogue's order, then addresses")
        << QStringList{"D0@2=1", "32CV200@1=2", "M0@1=1", "D9@1=3", "X0@1=0"}
        << QStringList{"X0@1=0", "M0@1=1", "D9@1=3", "32CV200@1=2", "D0@2=1"};
    QTest::newRow("the last of one type beside the first of the next")
        << QStringList{"X377@1=1", "Y0@1=1"} << QStringList{"X377@1=1", "Y0@1=1"};
    QTest::newRow("octal neighbours")
        << QStringList{"X7@1=1", "X10@1=0"} << QStringList{"X7@1=1,0"};
}

void ControllerValuesTest::runs()
{
    QFETCH(QStringList, taken);
    QTEST(textsOf(valuesIn(taken).runs()), "runs");
}

void ControllerValuesTest::aValueIsFound()
{
    const ControllerValues values = valuesIn({"D0@1=5,6", "D0@2=7"});
    QCOMPARE(values.size(), 3);
    QCOMPARE(values.at(rangeOf("D1@1")).value_or(-1), 6);
    QCOMPARE(values.at(rangeOf("D0@2")).value_or(-1), 7);
    QVERIFY(!values.at(rangeOf("D2@1")));
    QVERIFY(!values.at(rangeOf("D0@3")));
    QVERIFY(!values.at(rangeOf("SD0@1")));
}

void ControllerValuesTest::joinedRanges_data()
{
    QTest::addColumn<QStringList>("typed");
    QTest::addColumn<QStringList>("joined"); ///< with their counts

    QTest::newRow("ranges that overlap")
        << QStringList{"D0:10@1", "D5:10@1"} << QStringList{"D0@1 15"};
    QTest::newRow("ranges that touch") << QStringList{"D4@1", "D0:4@1"} << QStringList{"D0@1 5"};
    QTest::newRow("a range in another") << QStringList{"D0:10@1", "D2@1"} << QStringList{"D0@1 10"};
    QTest::newRow("both M ranges of the controller")
        << QStringList{"M2047:2@1"} << QStringList{"M2047@1 2"};
    QTest::newRow("the last of all") << QStringList{"32CV255@247"} << QStringList{"32CV255@247 1"};
}

void ControllerValuesTest::joinedRanges()
{
    QFETCH(QStringList, typed);
    QList<AddressRange> ranges;
    for (const QString& text : typed)
        ranges << rangeOf(text);
    QStringList joined;
    for (const AddressRange& range : kx::joinedRanges(ranges))
        joined << QStringLiteral("%1@%2 %3")
                      .arg(addressText(range.type, range.address))
                      .arg(range.station)
                      .arg(range.values);
    QTEST(joined, "joined");
}

QTEST_APPLESS_MAIN(ControllerValuesTest)
#include "tst_controller_values.moc"
