// Values for addresses, as a panel's user types them.

#include "addresses/address_text.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

class AssignmentTextTest : public QObject
{
    Q_OBJECT

private slots:
    void anAssignmentIsRead_data();
    void anAssignmentIsRead();
    void aWrongAssignmentIsRefusedInOneLine_data();
    void aWrongAssignmentIsRefusedInOneLine();
};

void AssignmentTextTest::anAssignmentIsRead_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("address");
    QTest::addColumn<QList<qint64>>("values");
    QTest::newRow("a decimal value") << "D100=1234" << 100 << QList<qint64>{1234};
    QTest::newRow("a hexadecimal value") << "D100=0x1F" << 100 << QList<qint64>{31};
    QTest::newRow("a large X before the digits") << "D100=0XfF" << 100 << QList<qint64>{255};
    QTest::newRow("the lowest word") << "D100=-32768" << 100 << QList<qint64>{-32768};
    QTest::newRow("the highest word") << "D100=65535" << 100 << QList<qint64>{65535};
    QTest::newRow("the highest word in hex") << "D100=0xFFFF" << 100 << QList<qint64>{65535};
    QTest::newRow("bits") << "M0=1,0,1,1" << 0 << QList<qint64>{1, 0, 1, 1};
    QTest::newRow("a count that fits") << "D5:2=7,8" << 5 << QList<qint64>{7, 8};
    QTest::newRow("the lowest counter value")
        << "32CV200=-2147483648" << 200 << QList<qint64>{-2147483648LL};
    QTest::newRow("the highest counter value")
        << "32CV255=4294967295" << 255 << QList<qint64>{4294967295LL};
    QTest::newRow("an octal address") << "Y10=1" << 8 << QList<qint64>{1};
}

void AssignmentTextTest::anAssignmentIsRead()
{
    QFETCH(QString, typed);
    QFETCH(QList<qint64>, values);
    Assignment assignment;
    QString error;
    QVERIFY2(parseAssignment(typed, &assignment, &error), qPrintable(error));
    QTEST(assignment.range.address, "address");
    QCOMPARE(assignment.values, values);
    QCOMPARE(assignment.range.values, static_cast<int>(values.size()));
}

void AssignmentTextTest::aWrongAssignmentIsRefusedInOneLine_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const char* typed, const char* error) {
        QTest::newRow(name) << text(typed) << text(error);
    };
    row("no value", "D100",
        "D100: not an assignment; write ADDRESS=VALUE[,VALUE...], such as D100=1234");
    row("a wrong address", "D8000=1",
        "D8000: out of range; the addresses are D0 to D7999 (decimal)");
    row("an empty value", "D100=", "D100=: '' is not a decimal or 0x hexadecimal number");
    row("an empty value in a list", "D100=1,,2",
        "D100=1,,2: '' is not a decimal or 0x hexadecimal number");
    row("a value in letters", "D100=on", "D100=on: 'on' is not a decimal or 0x hexadecimal number");
    row("0x and no digits", "D100=0x", "D100=0x: '0x' is not a decimal or 0x hexadecimal number");
    row("0x twice", "D100=0x0x10",
        "D100=0x0x10: '0x0x10' is not a decimal or 0x hexadecimal number");
    row("a minus behind 0x", "D100=0x-5",
        "D100=0x-5: '0x-5' is not a decimal or 0x hexadecimal number");
    row("a minus alone", "D100=-", "D100=-: '-' is not a decimal or 0x hexadecimal number");
    row("a space", "D100= 5", "D100= 5: ' 5' is not a decimal or 0x hexadecimal number");
    row("a bit of 2", "M0=2", "M0=2: 2 does not fit; M takes 0 to 1");
    row("a negative bit", "M0=-1", "M0=-1: -1 does not fit; M takes 0 to 1");
    row("a word too high", "D100=65536", "D100=65536: 65536 does not fit; D takes -32768 to 65535");
    row("a word too low", "D100=-32769",
        "D100=-32769: -32769 does not fit; D takes -32768 to 65535");
    row("a counter too high", "32CV200=4294967296",
        "32CV200=4294967296: 4294967296 does not fit; 32CV takes -2147483648 to 4294967295");
    row("a counter too low", "32CV200=-2147483649",
        "32CV200=-2147483649: -2147483649 does not fit; 32CV takes -2147483648 to 4294967295");
    row("larger than 64 bits", "D1=99999999999999999999",
        "D1=99999999999999999999: 99999999999999999999 does not fit; D takes -32768 to 65535");
    row("a per cent sign behind a wrong value", "D1=70000,%4",
        "D1=70000,%4: 70000 does not fit; D takes -32768 to 65535");
    row("fewer values than the count", "D0:3=1,2", "D0:3=1,2: 2 values for a count of 3");
    row("more values than the count", "D0:1=1,2", "D0:1=1,2: 2 values for a count of 1");
    row("values past the end", "D7999=1,2",
        "D7999=1,2: 2 values run past the last address; the addresses are D0 to D7999 (decimal)");
}

void AssignmentTextTest::aWrongAssignmentIsRefusedInOneLine()
{
    QFETCH(QString, typed);
    Assignment assignment;
    QString error;
    QVERIFY(!parseAssignment(typed, &assignment, &error));
    QTEST(error, "error");
}

QTEST_APPLESS_MAIN(AssignmentTextTest)
#include "tst_assignment_text.moc"
