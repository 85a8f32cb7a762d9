#include "panel/files/csv_fields.h"

#include <QtTest/QTest>

using namespace kx;

class CsvFieldsTest : public QObject
{
    Q_OBJECT

private slots:
    void fieldsAreFound_data();
    void fieldsAreFound();
    void badQuotesAreRefused_data();
    void badQuotesAreRefused();
    void textsBecomeFields_data();
    void textsBecomeFields();
};

void CsvFieldsTest::fieldsAreFound_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<char>("separator");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QList<int>>("places"); ///< begin and length of each field

    QTest::newRow("plain") << QByteArray("a,bc") << ',' << QStringList{"a", "bc"}
                           << QList<int>{0, 1, 2, 2};
    QTest::newRow("empty line") << QByteArray("") << ',' << QStringList{""} << QList<int>{0, 0};
    QTest::newRow("empty fields") << QByteArray(",,") << ',' << QStringList{"", "", ""}
                                  << QList<int>{0, 0, 1, 0, 2, 0};
    QTest::newRow("blanks around")
        << QByteArray(" a b ,\tc\r") << ',' << QStringList{"a b", "c"} << QList<int>{1, 3, 7, 1};
    QTest::newRow("quoted comma") << QByteArray("\"a,b\",c") << ',' << QStringList{"a,b", "c"}
                                  << QList<int>{0, 5, 6, 1};
    QTest::newRow("quoted quote") << QByteArray("\"a\"\"b\" ,c") << ',' << QStringList{"a\"b", "c"}
                                  << QList<int>{0, 6, 8, 1};
    QTest::newRow("empty quotes") << QByteArray("\"\"") << ',' << QStringList{""}
                                  << QList<int>{0, 2};
    QTest::newRow("quote inside a plain field")
        << QByteArray("3\" pipe,1") << ',' << QStringList{"3\" pipe", "1"}
        << QList<int>{0, 7, 8, 1};
    QTest::newRow("UTF-8") << QByteArray("\xC3\xA4,1") << ','
                           << QStringList{QString(QChar(0xE4)), "1"} << QList<int>{0, 2, 3, 1};
    QTest::newRow("an empty field ends before the line end")
        << QByteArray("a,\r") << ',' << QStringList{"a", ""} << QList<int>{0, 1, 2, 0};
    QTest::newRow("semicolons") << QByteArray("a;b,c;\"d;e\"") << ';'
                                << QStringList{"a", "b,c", "d;e"} << QList<int>{0, 1, 2, 3, 6, 5};
    QTest::newRow("tabs, which are no blanks then")
        << QByteArray("a\t\t b \t\"c\td\"\r") << '\t' << QStringList{"a", "", "b", "c\td"}
        << QList<int>{0, 1, 2, 0, 4, 1, 7, 5};
}

void CsvFieldsTest::fieldsAreFound()
{
    QFETCH(QByteArray, line);
    QFETCH(char, separator);
    QList<CsvField> fields;
    QString error;
    QVERIFY2(splitCsvFields(line, separator, &fields, &error), qPrintable(error));
    QStringList texts;
    QList<int> places;
    for (const CsvField& field : fields) {
        texts << field.text;
        places << field.begin << field.length;
    }
    QTEST(texts, "texts");
    QTEST(places, "places");
}

void CsvFieldsTest::badQuotesAreRefused_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("error");

    QTest::newRow("open quote") << QByteArray("a,\"b") << "a quote is not closed";
    QTest::newRow("lone quote") << QByteArray("\"") << "a quote is not closed";
    QTest::newRow("quote closed by a doubled one")
        << QByteArray("\"a\"\"") << "a quote is not closed";
    QTest::newRow("text after the quote")
        << QByteArray("\"a\"b,1") << "text follows a closing quote";
}

void CsvFieldsTest::badQuotesAreRefused()
{
    QFETCH(QByteArray, line);
    QList<CsvField> fields;
    QString error;
    QVERIFY(!splitCsvFields(line, ',', &fields, &error));
    QTEST(error, "error");
}

void CsvFieldsTest::textsBecomeFields_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<char>("separator");
    QTest::addColumn<QByteArray>("field");

    QTest::newRow("plain") << QByteArray("a b;c") << ',' << QByteArray("a b;c");
    QTest::newRow("nothing") << QByteArray() << ',' << QByteArray();
    QTest::newRow("a separator") << QByteArray("a;b") << ';' << QByteArray("\"a;b\"");
    QTest::newRow("a tab as separator") << QByteArray("a\tb") << '\t' << QByteArray("\"a\tb\"");
    QTest::newRow("a quote") << QByteArray("3\"") << ',' << QByteArray("\"3\"\"\"");
    QTest::newRow("a blank in front") << QByteArray(" a") << ',' << QByteArray("\" a\"");
    QTest::newRow("a blank behind") << QByteArray("a ") << ',' << QByteArray("\"a \"");
    QTest::newRow("a tab behind") << QByteArray("a\t") << ',' << QByteArray("\"a\t\"");
    QTest::newRow("what would be a comment") << QByteArray("#1") << ',' << QByteArray("\"#1\"");
}

void CsvFieldsTest::textsBecomeFields()
{
    QFETCH(QByteArray, text);
    QFETCH(char, separator);
    QTEST(csvField(text, separator), "field");
    QList<CsvField> fields;
    QString error;
    QVERIFY2(splitCsvFields(csvField(text, separator), separator, &fields, &error),
             qPrintable(error));
    QCOMPARE(fields.size(), 1);
    QCOMPARE(fields.first().text.toUtf8(), text);
}

QTEST_GUILESS_MAIN(CsvFieldsTest)
#include "tst_csv_fields.moc"
