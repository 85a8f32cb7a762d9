#include "panel/dump/differences.h"

#include "dump_ranges.h"

#include <QtTest/QTest>

using namespace kx;

class DifferencesTest : public QObject
{
    Q_OBJECT

private slots:
    void differences_data();
    void differences();
    void writes_data();
    void writes();
};

void DifferencesTest::differences_data()
{
    QTest::addColumn<QStringList>("kept");
    QTest::addColumn<QStringList>("read");
    QTest::addColumn<QStringList>("differences"); ///< "D1@1 6 9": of the file, of the controller

    QTest::newRow("all the same") << QStringList{"D0@1=5,6"} << QStringList{"D0@1=5,6"}
                                  << QStringList();
    QTest::newRow("one of several, and what the file does not hold")
        << QStringList{"D0@1=5,6,7"} << QStringList{"D0@1=5,9,7,8"} << QStringList{"D1@1 6 9"};
    QTest::newRow("what was not read is not told")
        << QStringList{"D0@1=5,6", "M0@2=1"} << QStringList{"D0@1=0"} << QStringList{"D0@1 5 0"};
    QTest::newRow("the same address of another station")
        << QStringList{"D0@1=5", "D0@2=5"} << QStringList{"D0@1=5", "D0@2=6"}
        << QStringList{"D0@2 5 6"};
    QTest::newRow("octal, and the highest value of 32 bits")
        << QStringList{"X7@1=0,1", "32CV255@1=4294967295"}
        << QStringList{"X7@1=0,0", "32CV255@1=4294967294"}
        << QStringList{"X10@1 1 0", "32CV255@1 4294967295 4294967294"};
}

void DifferencesTest::differences()
{
    QFETCH(QStringList, kept);
    QFETCH(QStringList, read);
    QStringList texts;
    for (const Difference& difference : differencesOf(assignmentsOf(kept), valuesIn(read)))
        texts << QStringLiteral("%1@%2 %3 %4")
                     .arg(addressText(difference.address.type, difference.address.address))
                     .arg(difference.address.station)
                     .arg(difference.kept)
                     .arg(difference.read);
    QTEST(texts, "differences");
}

void DifferencesTest::writes_data()
{
    QTest::addColumn<QStringList>("kept");
    QTest::addColumn<QStringList>("read");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<QStringList>("writes");

    QTest::newRow("nothing") << QStringList{"D0@1=5"} << QStringList{"D0@1=5"} << 32
                             << QStringList();
    QTest::newRow("neighbours in one, and not what is the same between them")
        << QStringList{"D0@1=1,2,3,4,5"} << QStringList{"D0@1=0,0,3,0,0"} << 32
        << QStringList{"D0@1=1,2", "D3@1=4,5"};
    QTest::newRow("no longer than a request may be")
        << QStringList{"D0@1=1,2,3,4,5"} << QStringList{"D0@1=0,0,0,0,0"} << 2
        << QStringList{"D0@1=1,2", "D2@1=3,4", "D4@1=5"};
    QTest::newRow("32CV, two registers each")
        << QStringList{"32CV200@1=1,2,3"} << QStringList{"32CV200@1=0,0,0"} << 4
        << QStringList{"32CV200@1=1,2", "32CV202@1=3"};
    QTest::newRow("not across the jump of M's numbers")
        << QStringList{"M2046@1=1,1,1,1"} << QStringList{"M2046@1=0,0,0,0"} << 32
        << QStringList{"M2046@1=1,1", "M2048@1=1,1"};
    QTest::newRow("eight coils, of which the driver would switch the last off")
        << QStringList{"M0@1=1,1,1,1,1,1,1,1"} << QStringList{"M0@1=0,0,0,0,0,0,0,0"} << 32
        << QStringList{"M0@1=1", "M1@1=1,1,1,1,1,1,1"};
    QTest::newRow("registers before coils, station after station")
        << QStringList{"Y0@1=1", "D0@1=1", "Z0@1=1", "M0@2=1", "CV0@2=1"}
        << QStringList{"Y0@1=0", "D0@1=0", "Z0@1=0", "M0@2=0", "CV0@2=0"} << 32
        << QStringList{"D0@1=1", "Z0@1=1", "Y0@1=1", "CV0@2=1", "M0@2=1"};
}

void DifferencesTest::writes()
{
    QFETCH(QStringList, kept);
    QFETCH(QStringList, read);
    QFETCH(int, maxWords);
    const QList<Difference> differences = differencesOf(assignmentsOf(kept), valuesIn(read));
    QTEST(textsOf(joinedWrites(differences, maxWords)), "writes");
}

QTEST_APPLESS_MAIN(DifferencesTest)
#include "tst_differences.moc"
