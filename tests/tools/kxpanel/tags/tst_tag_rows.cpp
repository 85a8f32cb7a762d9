#include "kxpanel/tags/tag_rows.h"

#include "tools/kxpanel/tag_samples.h"

#include <QtTest/QTest>

using namespace kxpanel;

class TagRowsTest : public QObject
{
    Q_OBJECT

private slots:
    void findsTheAddress_data();
    void findsTheAddress();
    void refuses_data();
    void refuses();
    void emptyRows();
};

void TagRowsTest::findsTheAddress_data()
{
    QTest::addColumn<QList<QStringList>>("rows");
    QTest::addColumn<QStringList>("tags"); // NAME|ADDRESS|COMMENT
    using Rows = QList<QStringList>;
    QTest::newRow("alone") << Rows{{"D100"}} << QStringList{"|D100@5|"};
    QTest::newRow("between name and comment")
        << Rows{{"Pump", "Y10@2", "contact", "K3"}} << QStringList{"Pump|Y10@2|contact K3"};
    QTest::newRow("a motor's name, which is an address too")
        << Rows{{"M1", "D100"}, {"Pump", "D101"}} << QStringList{"M1|D100@5|", "Pump|D101@5|"};
    QTest::newRow("a comment that is an address")
        << Rows{{"D100", "M1"}, {"D101", "pump"}} << QStringList{"|D100@5|M1", "|D101@5|pump"};
    QTest::newRow("in other columns, each of them plain")
        << Rows{{"D100"}, {"Pump", "Y10"}} << QStringList{"|D100@5|", "Pump|Y10@5|"};
    QTest::newRow("rows without text between")
        << Rows{{"D100"}, {""}, {" ", ""}, {"D101"}} << QStringList{"|D100@5|", "|D101@5|"};
}

void TagRowsTest::findsTheAddress()
{
    QFETCH(QList<QStringList>, rows);
    QList<kx::Tag> tags;
    QString fault;
    QVERIFY2(tagsOfRows(rows, 5, &tags, &fault), qPrintable(fault));
    QStringList shown;
    for (const kx::Tag& tag : tags)
        shown << tag.name + QLatin1Char('|') + typedText(tag) + QLatin1Char('|') + tag.comment;
    QTEST(shown, "tags");
}

void TagRowsTest::refuses_data()
{
    QTest::addColumn<QList<QStringList>>("rows");
    QTest::addColumn<QString>("fault");
    using Rows = QList<QStringList>;
    QTest::newRow("nothing") << Rows{{""}} << "no addresses";
    QTest::newRow("no address in a row")
        << Rows{{"D0"}, {""}, {"", "Pump"}} << "row 3: Pump: unknown register type";
    QTest::newRow("two columns of addresses")
        << Rows{{"M1", "D100"}, {"M2", "D101"}}
        << "row 1: M1 and D100 are both addresses; put 'name' and 'address' above the columns";
    QTest::newRow("one row with two addresses")
        << Rows{{"Pump", "D1"}, {"M1", "D100", "X5"}, {"D2"}}
        << "row 2: M1 and D100 are both addresses; put 'name' and 'address' above the columns";
}

void TagRowsTest::refuses()
{
    QFETCH(QList<QStringList>, rows);
    QFETCH(QString, fault);
    QList<kx::Tag> tags = {tagOf("D5")};
    QString said;
    QVERIFY(!tagsOfRows(rows, 1, &tags, &said));
    QVERIFY2(said.startsWith(fault), qPrintable(said));
    QCOMPARE(tags.size(), 1);
}

void TagRowsTest::emptyRows()
{
    QVERIFY(isEmptyRow({}));
    QVERIFY(isEmptyRow({"", " \t"}));
    QVERIFY(!isEmptyRow({"", "x"}));
}

QTEST_GUILESS_MAIN(TagRowsTest)
#include "tst_tag_rows.moc"
