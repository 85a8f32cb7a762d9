#include "kxpanel/tags/tag_text.h"

#include "tools/kxpanel/tag_samples.h"

#include <QtCore/QMimeData>

using namespace kxpanel;

namespace
{

QString copiedText(const QList<kx::Tag>& tags)
{
    return std::unique_ptr<QMimeData>(tagsData(tags))->text();
}

} // namespace

class TagTextTest : public QObject
{
    Q_OBJECT

private slots:
    void aTypedAddressIsATag();
    void aWrongAddressSaysWhy();
    void tagsAreRowsOfASpreadsheet();
    void whatIsCopiedIsPasted();
    void spreadsheetsLeaveTextsAsTheyAre();
    void whatHasNoNameIsPastedToo();
    void pastes_data();
    void pastes();
    void refuses_data();
    void refuses();
    void thousandsAreNotTakenForDecimals_data();
    void thousandsAreNotTakenForDecimals();
};

void TagTextTest::aTypedAddressIsATag()
{
    kx::Tag tag;
    QString fault;
    QVERIFY(parseTypedTag(QStringLiteral("D100/s16*0.1,unit=bar"), 3, &tag, &fault));
    QCOMPARE(tag.range.station, 3);
    QCOMPARE(tag.range.address, 100);
    QCOMPARE(tag.format.unit, QStringLiteral("bar"));
    QCOMPARE(typedText(tag), QStringLiteral("D100@3/s16*0.1,unit=bar"));
    QVERIFY(parseTypedTag(QStringLiteral("X17@2"), 3, &tag, &fault));
    QCOMPARE(tag.range.station, 2);
}

void TagTextTest::aWrongAddressSaysWhy()
{
    kx::Tag tag = tagOf("D5");
    QString fault;
    QVERIFY(!parseTypedTag(QStringLiteral("X8"), 1, &tag, &fault));
    QVERIFY(!fault.isEmpty());
    QVERIFY(!tag.range.type);
}

void TagTextTest::tagsAreRowsOfASpreadsheet()
{
    kx::Tag tag = tagOf("D100@2/s16*0.1,unit=bar", "Pressure");
    tag.comment = QStringLiteral("after \"the\"\nfilter");
    QCOMPARE(copiedText({tag}),
             QStringLiteral("name\tstation\taddress\tcount\tevery\tformat\torder\tscale\toffset\t"
                            "unit\tdecimals\tmin\tmax\tcomment\n"
                            "Pressure\t2\tD100\t\t\ts16\t\t0.1\t\tbar\t\t\t\t"
                            "\"after \"\"the\"\" filter\"\n"));
}

void TagTextTest::whatIsCopiedIsPasted()
{
    kx::Tag named = tagOf("D100@2/s16*0.1,unit=bar", "Pressure");
    named.comment = QStringLiteral("#1 \tafter \"the\" filter ");
    QList<kx::Tag> tags;
    QString fault;
    QVERIFY2(parseTagsText(copiedText({named, tagOf("M7"), tagOf("D120.5")}), 1, &tags, &fault),
             qPrintable(fault));
    QCOMPARE(tags.size(), 3);
    QCOMPARE(tags.at(0).name, named.name);
    QCOMPARE(tags.at(0).comment, named.comment);
    QCOMPARE(typedText(tags.at(0)), typedText(named));
    QCOMPARE(tags.at(1).name, QString());
    QCOMPARE(typedText(tags.at(2)), QStringLiteral("D120.5@1"));
}

void TagTextTest::spreadsheetsLeaveTextsAsTheyAre()
{
    const QList<kx::Tag> tags = {tagOf("D100/s16*0.1", "=1+1"), tagOf("D0", "007")};
    const std::unique_ptr<QMimeData> data(tagsData(tags));
    const QString begin = QStringLiteral("<tr><td sdnum=\"1033;0;@\">");
    const QString html = data->html();
    QVERIFY2(html.contains(begin + "=1+1</td>"), qPrintable(html));
    QVERIFY2(html.contains(begin + "007</td>"), qPrintable(html));
    QVERIFY2(html.contains("<td sdnum=\"1033;0;@\">0.1</td>"), qPrintable(html));
    QCOMPARE(html.count(QStringLiteral("<tr>")), 3);
    QCOMPARE(html.count(QStringLiteral("<td")), 3 * 14);
}

// A tags file takes no name twice, and the addresses stand for names there.
void TagTextTest::whatHasNoNameIsPastedToo()
{
    const QList<kx::Tag> copied = {tagOf("D100@1"), tagOf("D100@2"), tagOf("D100@2/s16"),
                                   tagOf("M7", "D100")};
    QList<kx::Tag> tags;
    QString fault;
    QVERIFY2(parseTagsText(copiedText(copied), 1, &tags, &fault), qPrintable(fault));
    QCOMPARE(tags.size(), 4);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(typedText(tags.at(i)), typedText(copied.at(i)));
    QCOMPARE(tags.at(0).name, QString());
    QCOMPARE(tags.at(1).name, QString());
    QCOMPARE(tags.at(3).name, QStringLiteral("D100"));
}

void TagTextTest::pastes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("tags"); // NAME|ADDRESS|COMMENT
    QTest::newRow("addresses, one per line") << "D100\nX17@2\r\n\nD0/float\n"
                                             << QStringList{"|D100@5|", "|X17@2|", "|D0@5/float|"};
    QTest::newRow("cells of a spreadsheet without a header")
        << "Pressure\tD100/s16*0.1\tafter\tthe filter\nPump\tY10\n"
        << QStringList{"Pressure|D100@5/s16*0.1|after the filter", "Pump|Y10@5|"};
    QTest::newRow("a header, and columns in any order")
        << "address\tname\tformat\nD100\tPressure\ts16\n"
        << QStringList{"Pressure|D100@5/s16|"};
    QTest::newRow("a cell that a spreadsheet quotes")
        << "\"Pump\t1\"\tY10\t\"contact \"\"K3\"\"\"\n"
        << QStringList{"Pump 1|Y10@5|contact \"K3\""};
    QTest::newRow("a line break in a cell") << "\"Pump\nmain\"\tY10\r\nFlow\tD0\r\n"
                                            << QStringList{"Pump main|Y10@5|", "Flow|D0@5|"};
    QTest::newRow("a line break below a header")
        << "name\taddress\tcomment\nPump\tY10\t\"one\ntwo\"\nFlow\tD0\t\n"
        << QStringList{"Pump|Y10@5|one two", "Flow|D0@5|"};
    QTest::newRow("a quote inside a cell") << "5\" pipe\tD0\n" << QStringList{"5\" pipe|D0@5|"};
    QTest::newRow("empty cells") << "Pump\t\tY10\t\t\r\n\t\t\t\t\r\n" << QStringList{"Pump|Y10@5|"};
    QTest::newRow("names that look like numbers")
        << "007\tD0\n=1+1\tD1" << QStringList{"007|D0@5|", "=1+1|D1@5|"};
    QTest::newRow("a name that is an address too") << "M1\tD100\nPump\tD101\n"
                                                   << QStringList{"M1|D100@5|", "Pump|D101@5|"};
    QTest::newRow("a comment about addresses") << "Pump\tY10\tsee address, as wired\n"
                                               << QStringList{"Pump|Y10@5|see address, as wired"};
    QTest::newRow("a tab in a cell, as a spreadsheet copies it")
        << QStringLiteral("name\taddress\tcomment\nPump\tY10\ta\u0001b\n")
        << QStringList{"Pump|Y10@5|a b"};
    QTest::newRow("the same without a header")
        << QStringLiteral("Pump\tY10\ta\u0001b\n") << QStringList{"Pump|Y10@5|a b"};
    QTest::newRow("decimal commas") << "address\tname\tscale\tmin\tmax\tcomment\n"
                                       "D100\tPressure\t0,1\t-1,5\t 12,5 \t1,5\n"
                                    << QStringList{"Pressure|D100@5/*0.1,min=-1.5,max=12.5|1,5"};
    QTest::newRow("a text file's header") << "name,station,address\nPump,7,Y10\n"
                                          << QStringList{"Pump|Y10@7|"};
}

void TagTextTest::pastes()
{
    QFETCH(QString, text);
    QList<kx::Tag> tags;
    QString fault;
    QVERIFY2(parseTagsText(text, 5, &tags, &fault, QLocale(QLocale::German)), qPrintable(fault));
    QStringList shown;
    for (const kx::Tag& tag : tags)
        shown << tag.name + QLatin1Char('|') + typedText(tag) + QLatin1Char('|') + tag.comment;
    QTEST(shown, "tags");
}

void TagTextTest::refuses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("begin");
    QTest::newRow("nothing") << " \n"
                             << "no addresses";
    QTest::newRow("a wrong address") << "D100\nD9999\n"
                                     << "row 2: D9999: ";
    QTest::newRow("no address in a row") << "Pump\trunning\n"
                                         << "row 1: Pump: ";
    QTest::newRow("a wrong cell below a header") << "name\taddress\nPump\tY10\nFlow\tD9999\n"
                                                 << "row 3: address D9999: ";
    QTest::newRow("two columns of addresses")
        << "M1\tD100\nM2\tD101\n"
        << "row 1: M1 and D100 are both addresses; put 'name' and 'address' above the columns";
    QTest::newRow("decimal commas in a language that has none")
        << "name\taddress\tscale\nPump\tD0\t0,1\n"
        << "row 2: scale 0,1: ";
    QTest::newRow("a quote that is not closed") << "\"Pump\tY10\n"
                                                << "row 1: a quote is not closed";
}

void TagTextTest::refuses()
{
    QFETCH(QString, text);
    QFETCH(QString, begin);
    QList<kx::Tag> tags = {tagOf("D5")};
    QString fault;
    QVERIFY(!parseTagsText(text, 1, &tags, &fault));
    QVERIFY2(fault.startsWith(begin), qPrintable(fault));
    QCOMPARE(tags.size(), 1);
}

void TagTextTest::thousandsAreNotTakenForDecimals_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("doubtful"); // row and cell
    QTest::addColumn<QString>("instead");
    QTest::newRow("a limit") << "name\taddress\tmax\nPump\tD0\t1.23\nFlow\tD1\t1.234\n"
                             << "row 3: the point in 1.234"
                             << "1,234 or 1234";
    QTest::newRow("a lower one, behind a comment")
        << "name\taddress\tmin\n# tank 2\nFlow\tD0\t-12.500\n"
        << "row 3: the point in -12.500"
        << "-12,500 or -12500";
    QTest::newRow("a scale") << "name\tscale\taddress\nFlow\t 2.000 \tD0\n"
                             << "row 2: the point in 2.000"
                             << "2,000 or 2000";
    QTest::newRow("an offset below an empty row") << "\nname\taddress\toffset\nFlow\tD0\t100.000\n"
                                                  << "row 3: the point in 100.000"
                                                  << "100,000 or 100000";
}

// A spreadsheet in German shows 1234 as 1.234 where it shows thousands; the program's own copies
// are in no language.
void TagTextTest::thousandsAreNotTakenForDecimals()
{
    QFETCH(QString, text);
    QFETCH(QString, doubtful);
    QFETCH(QString, instead);
    QList<kx::Tag> tags;
    QString fault;
    QVERIFY(!parseTagsText(text, 1, &tags, &fault, QLocale(QLocale::German)));
    QCOMPARE(fault,
             doubtful + " may stand for thousands; write " + instead + " in the spreadsheet");
    QVERIFY2(parseTagsText(text, 1, &tags, &fault, QLocale::c()), qPrintable(fault));
}

QTEST_GUILESS_MAIN(TagTextTest)
#include "tst_tag_text.moc"
