#include "kxpanel/tags/tag_fields.h"

#include "panel/values/format_text.h"
#include "tools/kxpanel/tag_samples.h"

using namespace kxpanel;

class TagFieldsTest : public QObject
{
    Q_OBJECT

private slots:
    void fields_data();
    void fields();
    void commentAndIntervalAreFields();
    void faultsNameTheirColumn();
    void aNameThatIsTheAddressIsNone_data();
    void aNameThatIsTheAddressIsNone();
};

void TagFieldsTest::fields_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("fields"); // of a tags file, with commas
    // name,station,address,count,every,format,order,scale,offset,unit,decimals,min,max,comment
    QTest::newRow("a word") << "D100"
                            << "D100,1,D100,,,,,,,,,,,";
    QTest::newRow("octal, at a station") << "X17@2"
                                         << "X17,2,X17,,,,,,,,,,,";
    QTest::newRow("a bit of a word") << "D120.5"
                                     << "D120.5,1,D120.5,,,,,,,,,,,";
    QTest::newRow("a coil as a bit") << "M0/bit"
                                     << "M0,1,M0,,,bit,,,,,,,,";
    QTest::newRow("several") << "D110:4/float"
                             << "D110,1,D110,4,,float,,,,,,,,";
    QTest::newRow("order") << "D0/u32,high,swapped"
                           << "D0,1,D0,,,u32,high swapped,,,,,,,";
    QTest::newRow("low is kept") << "D0/u32,low"
                                 << "D0,1,D0,,,u32,low,,,,,,,";
    QTest::newRow("numbers") << "D0/s16*0.1-5,decimals=2,min=-3,max=9.5,unit=bar"
                             << "D0,1,D0,,,s16,,0.1,-5,bar,2,-3,9.5,";
    QTest::newRow("a text") << "D200/ascii:8"
                            << "D200,1,D200,,,ascii:8,,,,,,,,";
    QTest::newRow("a counter") << "32CV200/s32"
                               << "32CV200,1,32CV200,,,s32,,,,,,,,";
}

void TagFieldsTest::fields()
{
    QFETCH(QString, typed);
    QFETCH(QString, fields);
    const kx::Tag tag = tagOf(qPrintable(typed));
    QCOMPARE(tagFields(tag).join(QLatin1Char(',')), fields);
    QStringList faults;
    kx::Tag again = tagOfFields(tagFields(tag), &faults);
    QCOMPARE(faults, QStringList());
    QCOMPARE(typedText(again), typedText(tag));
    dropAddressName(&again);
    QCOMPARE(again.name, QString());
}

void TagFieldsTest::commentAndIntervalAreFields()
{
    kx::Tag tag = tagOf("D100", "Pressure");
    tag.comment = QStringLiteral("after the filter");
    tag.interval = 500;
    const QStringList fields = tagFields(tag);
    QCOMPARE(fields.first(), QStringLiteral("Pressure"));
    QCOMPARE(fields.at(4), QStringLiteral("500ms"));
    QCOMPARE(fields.last(), QStringLiteral("after the filter"));
    QStringList faults;
    const kx::Tag again = tagOfFields(fields, &faults);
    QCOMPARE(again.interval, 500);
    QCOMPARE(again.comment, tag.comment);
    QCOMPARE(again.name, tag.name);
}

void TagFieldsTest::faultsNameTheirColumn()
{
    QStringList fields = tagFields(tagOf("D100", "Pressure"));
    fields[1] = QStringLiteral("300");
    fields[2] = QStringLiteral("D9999");
    QStringList faults;
    tagOfFields(fields, &faults);
    QCOMPARE(faults.size(), 2);
    QCOMPARE(faults.first(), QStringLiteral("station 300: must be 1 to 247"));
    QVERIFY2(faults.last().startsWith(QLatin1String("address D9999: ")), qPrintable(faults.last()));
}

void TagFieldsTest::aNameThatIsTheAddressIsNone_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("left");
    QTest::newRow("the address") << "D100@2/float"
                                 << "D100"
                                 << "";
    QTest::newRow("a bit") << "D120.5"
                           << "D120.5"
                           << "";
    QTest::newRow("another address") << "D100"
                                     << "D101"
                                     << "D101";
    QTest::newRow("a name") << "D100"
                            << "Pressure"
                            << "Pressure";
}

void TagFieldsTest::aNameThatIsTheAddressIsNone()
{
    QFETCH(QString, address);
    QFETCH(QString, name);
    kx::Tag tag = tagOf(qPrintable(address), qPrintable(name));
    dropAddressName(&tag);
    QTEST(tag.name, "left");
}

QTEST_GUILESS_MAIN(TagFieldsTest)
#include "tst_tag_fields.moc"
