#include "panel/files/csv_table.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

const QList<CsvColumn> COLUMNS = {
    {"name", true}, {"unit", false}, {"value", true}, {"note", false}};

/// "LINE: NAME/UNIT/VALUE/NOTE" for each row, or the fault as "LINE: TEXT".
QStringList parsed(const QByteArray& bytes)
{
    CsvTable table;
    CsvFault fault;
    if (!CsvTable::parse(bytes, COLUMNS, &table, &fault))
        return {QString::number(fault.line) + ": " + fault.text};
    QStringList rows;
    for (const CsvRow& row : table.rows()) {
        QStringList texts;
        for (const CsvField& field : row.fields)
            texts << field.text;
        rows << QString::number(row.line) + ": " + texts.join(QLatin1Char('/'));
    }
    return rows;
}

} // namespace

class CsvTableTest : public QObject
{
    Q_OBJECT

private slots:
    void headerDecides_data();
    void headerDecides();
    void wrongTablesAreRefused_data();
    void wrongTablesAreRefused();
    void allFaultsOfTheHeaderAreNamed();
    void textsAreReplacedInPlace();
};

void CsvTableTest::headerDecides_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("rows");

    QTest::newRow("commas") << QByteArray("name,unit,value,note\na,V,5,x;y\n")
                            << QStringList{"2: a/V/5/x;y"};
    QTest::newRow("semicolons") << QByteArray("name;unit;value;note\r\na;V;5,5;x\ty\r\n")
                                << QStringList{"2: a/V/5,5/x\ty"};
    QTest::newRow("tabs") << QByteArray("name\tunit\tvalue\tnote\na\t\t5\tx,y\n")
                          << QStringList{"2: a//5/x,y"};
    QTest::newRow("any order") << QByteArray("note,value,name,unit\nx,5,a,V\n")
                               << QStringList{"2: a/V/5/x"};
    QTest::newRow("a column left out")
        << QByteArray("value,name\n5,a\n") << QStringList{"2: a//5/"};
    QTest::newRow("fields left off a row's end")
        << QByteArray("name,value,unit,note\na,5\nb,6,V\n") << QStringList{"2: a//5/", "3: b/V/6/"};
    QTest::newRow("names in quotes and blanks")
        << QByteArray(" \"name\" ; value \na;5\n") << QStringList{"2: a//5/"};
    QTest::newRow("comments, blank lines and rows without text")
        << QByteArray("# a;b\n\nname,value\n\r\n # \xFF\n,\na,5\n \"\" , \n,,,,,\nb,6\n")
        << QStringList{"7: a//5/", "10: b//6/"};
}

void CsvTableTest::headerDecides()
{
    QFETCH(QByteArray, text);
    QTEST(parsed(text), "rows");
}

void CsvTableTest::wrongTablesAreRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("fault");

    const char* const noHeader = "1: the first line must be the header name,unit,value,note, "
                                 "separated by commas, semicolons or tabs";
    QTest::newRow("nothing") << QByteArray() << "0: no header line; it is name,unit,value,note";
    QTest::newRow("header only") << QByteArray("name,value\n,\n") << "0: no rows behind the header";
    QTest::newRow("no header") << QByteArray("a,5\n") << noHeader;
    QTest::newRow("another separator") << QByteArray("name|value\n") << noHeader;
    QTest::newRow("another case") << QByteArray("Name,Value\n") << noHeader;
    QTest::newRow("unknown column")
        << QByteArray("name;valeu\n")
        << "1: unknown column 'valeu', separated by semicolons; the columns are "
           "name,unit,value,note";
    QTest::newRow("a mixture of separators")
        << QByteArray("name;unit,value\n")
        << "1: unknown column 'name;unit', separated by commas; the columns are "
           "name,unit,value,note";
    QTest::newRow("column without a name") << QByteArray("name,value,\n")
                                           << "1: unknown column '', separated by commas; the "
                                              "columns are name,unit,value,note";
    QTest::newRow("column given twice")
        << QByteArray("name,value,name\n") << "1: the header has two columns 'name'";
    QTest::newRow("column missing") << QByteArray("name\tnote\n")
                                    << "1: the header has no column 'value'; the columns are "
                                       "name,unit,value,note";
    QTest::newRow("rows with another separator")
        << QByteArray("name;value;note\na,5,x\n")
        << "2: 1 field separated by semicolons instead of 2 to 3";
    QTest::newRow("too few fields")
        << QByteArray("note,value,name\nx,5\n") << "2: 2 fields separated by commas instead of 3";
    QTest::newRow("too many fields")
        << QByteArray("name\tvalue\na\t5\t\n") << "2: 3 fields separated by tabs instead of 2";
    QTest::newRow("open quote") << QByteArray("name,value\n\"a,5\n") << "2: a quote is not closed";
    QTest::newRow("no UTF-8") << QByteArray("name,value\na,5\nb,\xB5m\n")
                              << "3: column 3: byte 0xb5 is not UTF-8; save the file as UTF-8";
    QTest::newRow("no UTF-8 in the header")
        << QByteArray("n\xE4me,value\n")
        << "1: column 2: byte 0xe4 is not UTF-8; save the file as UTF-8";
    QTest::newRow("damaged UTF-16")
        << QByteArray("\xFF\xFEn") << "0: damaged UTF-16; save the file as UTF-8";
}

void CsvTableTest::wrongTablesAreRefused()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, fault);
    QCOMPARE(parsed(text), QStringList{fault});
}

void CsvTableTest::allFaultsOfTheHeaderAreNamed()
{
    CsvTable table;
    QList<CsvFault> faults;
    QVERIFY(!CsvTable::parse("# tags\nunit;nam;unit;notes;unit\na;5;6;7;8\n", COLUMNS, &table,
                             &faults));
    QStringList texts;
    for (const CsvFault& fault : faults)
        texts << QString::number(fault.line) + ": " + fault.text;
    const QString columns = "; the columns are name,unit,value,note";
    QCOMPARE(texts, (QStringList{"2: unknown column 'nam', separated by semicolons" + columns,
                                 "2: the header has two columns 'unit'",
                                 "2: unknown column 'notes', separated by semicolons" + columns,
                                 "2: the header has no column 'name'" + columns,
                                 "2: the header has no column 'value'" + columns}));
    QVERIFY(table.rows().isEmpty());
}

void CsvTableTest::textsAreReplacedInPlace()
{
    CsvTable table;
    CsvFault fault;
    const QByteArray text = "\xEF\xBB\xBF# \xFF\nvalue;name\n \"5\" ; \xC3\xA4\r\n\n;b\n7;c";
    QVERIFY2(CsvTable::parse(text, COLUMNS, &table, &fault), qPrintable(fault.text));
    QCOMPARE(table.withTexts(2, {}), text);
    QCOMPARE(table.withTexts(2, {{0, "15"}, {1, "6"}, {2, ""}}),
             QByteArray("\xEF\xBB\xBF# \xFF\nvalue;name\n 15 ; \xC3\xA4\r\n\n6;b\n;c"));
    QCOMPARE(table.withTexts(0, {{0, "x"}}),
             QByteArray("\xEF\xBB\xBF# \xFF\nvalue;name\n \"5\" ; x\r\n\n;b\n7;c"));
}

QTEST_APPLESS_MAIN(CsvTableTest)
#include "tst_csv_table.moc"
