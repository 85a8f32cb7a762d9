#include "panel/recipe/recipe_file.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

const char HEADER[] = "name,station,register,address,type,value\n";
const char COLUMNS[] = "name,station,register,address,type,value,format,order,scale,offset,unit,"
                       "decimals,min,max,comment";
const int DEFAULT_STATION = 5;

QByteArray recipe(const char* rows)
{
    return QByteArray(HEADER) + rows;
}

} // namespace

class RecipeFileTest : public QObject
{
    Q_OBJECT

private slots:
    void rowsAreRead();
    void valuesOf32BitsTakeTwoRegisters();
    void emptyStationIsTheConnections();
    void emptyValueIsNoted();
    void byteOrderMarkAndCarriageReturnsAreAccepted();
    void spreadsheetsKeepTheirForm_data();
    void spreadsheetsKeepTheirForm();
    void onlyChangedValuesAreRewritten();
    void sameValuesGiveTheSameFile();
    void badFilesAreRefused_data();
    void badFilesAreRefused();
};

void RecipeFileTest::rowsAreRead()
{
    RecipeFile file;
    QString error;
    const QByteArray text = "# first\n\n"
                            + recipe("\"Belt, left\",2,Y,17,bit,1\n  # rest\n"
                                     "Total,1,32CV,200,int32,-1");
    QVERIFY2(RecipeFile::parse(text, DEFAULT_STATION, &file, &error), qPrintable(error));
    QCOMPARE(file.rows().size(), 2);
    const RecipeRow& belt = file.rows().at(0);
    QCOMPARE(belt.place(), QStringLiteral("line 4 (Belt, left)"));
    QCOMPARE(belt.range.station, 2);
    QCOMPARE(belt.range.type, findRegisterType(QStringLiteral("Y")));
    QCOMPARE(belt.range.address, 15); // octal 17
    QCOMPARE(belt.range.values, 1);
    QVERIFY(belt.hasValue);
    QCOMPARE(belt.value, QList<qint64>{1});
    const RecipeRow& total = file.rows().at(1);
    QCOMPARE(total.line, 6);
    QCOMPARE(total.range.values, 1);
    QCOMPARE(total.value, QList<qint64>{0xFFFFFFFF});
}

void RecipeFileTest::valuesOf32BitsTakeTwoRegisters()
{
    RecipeFile file;
    QString error;
    QVERIFY(RecipeFile::parse(recipe("a,1,D,100,uint32,100000"), 1, &file, &error));
    QCOMPARE(file.rows().at(0).range.values, 2);
    QCOMPARE(file.rows().at(0).value, (QList<qint64>{34464, 1})); // 100000, low word first
}

void RecipeFileTest::emptyStationIsTheConnections()
{
    RecipeFile file;
    QString error;
    QVERIFY(RecipeFile::parse(recipe("a,,D,100,uint16,1"), DEFAULT_STATION, &file, &error));
    QCOMPARE(file.rows().at(0).range.station, 5);
}

void RecipeFileTest::emptyValueIsNoted()
{
    RecipeFile file;
    QString error;
    QVERIFY(RecipeFile::parse(recipe(",1,D,100,uint16,"), 1, &file, &error));
    QVERIFY(!file.rows().at(0).hasValue);
    QCOMPARE(file.rows().at(0).place(), QStringLiteral("line 2"));
}

void RecipeFileTest::byteOrderMarkAndCarriageReturnsAreAccepted()
{
    const QByteArray text =
        "\xEF\xBB\xBFname,station,register,address,type,value\r\na,1,D,1,uint16,2\r\n";
    RecipeFile file;
    QString error;
    QVERIFY2(RecipeFile::parse(text, 1, &file, &error), qPrintable(error));
    QCOMPARE(file.rows().at(0).value, QList<qint64>{2});
    QCOMPARE(
        file.withValues({{3}}),
        QByteArray("\xEF\xBB\xBFname,station,register,address,type,value\r\na,1,D,1,uint16,3\r\n"));
}

void RecipeFileTest::spreadsheetsKeepTheirForm_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("rewritten"); ///< with 3 and -1 for 2 and 0

    QTest::newRow("semicolons") << QByteArray("name;station;register;address;type;value\r\n"
                                              "a;5;D;1;uint16;2\r\nb;5;D;2;int16;\r\n")
                                << QByteArray("name;station;register;address;type;value\r\n"
                                              "a;5;D;1;uint16;3\r\nb;5;D;2;int16;-1\r\n");
    QTest::newRow("tabs") << QByteArray("name\tstation\tregister\taddress\ttype\tvalue\n"
                                        "a\t5\tD\t1\tuint16\t2\nb\t\tD\t2\tint16\t\n")
                          << QByteArray("name\tstation\tregister\taddress\ttype\tvalue\n"
                                        "a\t5\tD\t1\tuint16\t3\nb\t\tD\t2\tint16\t-1\n");
    QTest::newRow("another order") << QByteArray("value,type,address,register,station,name\n"
                                                 "2,uint16,1,D,,a\n \"\" ,int16,2,D,5,b\n")
                                   << QByteArray("value,type,address,register,station,name\n"
                                                 "3,uint16,1,D,,a\n -1 ,int16,2,D,5,b\n");
    QTest::newRow("neither name nor station") << QByteArray("register,address,value,type\n"
                                                            "D,1,2,uint16\nD,2,,int16\n")
                                              << QByteArray("register,address,value,type\n"
                                                            "D,1,3,uint16\nD,2,-1,int16\n");
    QTest::newRow("UTF-16, little-endian")
        << QByteArray("\xFF\xFE" // byte-order mark
                      "r\0e\0g\0i\0s\0t\0e\0r\0;\0a\0d\0d\0r\0e\0s\0s\0;\0"
                      "t\0y\0p\0e\0;\0v\0a\0l\0u\0e\0\n\0"
                      "D\0;\0"
                      "1\0;\0u\0i\0n\0t\0"
                      "1\0"
                      "6\0;\0"
                      "2\0\n\0"
                      "D\0;\0"
                      "2\0;\0i\0n\0t\0"
                      "1\0"
                      "6\0;\0",
                      104)
        << QByteArray("\xFF\xFE"
                      "r\0e\0g\0i\0s\0t\0e\0r\0;\0a\0d\0d\0r\0e\0s\0s\0;\0"
                      "t\0y\0p\0e\0;\0v\0a\0l\0u\0e\0\n\0"
                      "D\0;\0"
                      "1\0;\0u\0i\0n\0t\0"
                      "1\0"
                      "6\0;\0"
                      "3\0\n\0"
                      "D\0;\0"
                      "2\0;\0i\0n\0t\0"
                      "1\0"
                      "6\0;\0-\0"
                      "1\0",
                      108);
}

void RecipeFileTest::spreadsheetsKeepTheirForm()
{
    QFETCH(QByteArray, text);
    RecipeFile file;
    QString error;
    QVERIFY2(RecipeFile::parse(text, 5, &file, &error), qPrintable(error));
    QCOMPARE(file.rows().size(), 2);
    QCOMPARE(file.rows().at(0).range.station, 5);
    QCOMPARE(file.rows().at(0).value, QList<qint64>{2});
    QCOMPARE(file.rows().at(1).range.address, 2);
    QTEST(file.withValues({{3}, {0xFFFF}}), "rewritten");
}

void RecipeFileTest::onlyChangedValuesAreRewritten()
{
    RecipeFile file;
    QString error;
    QVERIFY(RecipeFile::parse(recipe("# keep, \"this\n"
                                     "\"a \"\"b\"\"\" , 1 ,D,100,hex16, \"0x1\" \n"
                                     "c,1,D,101,uint16,0x10\n"
                                     "d,1,D,102,int16,\n"
                                     "e,1,M,5,bit,0\n"),
                              1, &file, &error));
    QCOMPARE(file.withValues({{0xABC}, {16}, {0xFFFF}, {1}}),
             recipe("# keep, \"this\n"
                    "\"a \"\"b\"\"\" , 1 ,D,100,hex16, 0x0abc \n"
                    "c,1,D,101,uint16,0x10\n"
                    "d,1,D,102,int16,-1\n"
                    "e,1,M,5,bit,1\n"));
}

void RecipeFileTest::sameValuesGiveTheSameFile()
{
    const QByteArray text = recipe("a,1,D,100,hex16, 0X0F \n\n#\xFF no UTF-8\nb,1,Y,7,bit,\"1\"");
    RecipeFile file;
    QString error;
    QVERIFY(RecipeFile::parse(text, 1, &file, &error));
    QCOMPARE(file.withValues({{15}, {1}}), text);
}

void RecipeFileTest::badFilesAreRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");

    QTest::newRow("empty") << QByteArray() << QString("no header line; it is ") + COLUMNS;
    QTest::newRow("header only") << QByteArray(HEADER) << "no rows behind the header";
    QTest::newRow("no header") << QByteArray("a,1,D,100,uint16,1\n")
                               << QString("line 1: the first line must be the header ") + COLUMNS
                                      + ", separated by commas, semicolons or tabs";
    QTest::newRow("Latin-1") << recipe("a,1,D,1,uint16,1\nZ\xE4hler,1,D,2,uint16,1")
                             << "line 3: column 2: byte 0xe4 is not UTF-8; save the file as UTF-8";
    QTest::newRow("a misspelt column")
        << QByteArray("name,statoin,register,address,type,value\n")
        << QString("line 1: unknown column 'statoin', separated by commas; the columns are ")
               + COLUMNS;
    QTest::newRow("no column of values")
        << QByteArray("name;station;register;address;type\n")
        << QString("line 1: the header has no column 'value'; the columns are ") + COLUMNS;
    QTest::newRow("columns missing")
        << recipe("a,1,D,100,uint16\n") << "line 2: 5 fields separated by commas instead of 6";
    QTest::newRow("one column more")
        << recipe("a,1,D,100,uint16,1,\n") << "line 2: 7 fields separated by commas instead of 6";
    QTest::newRow("open quote") << recipe("\"a,1,D,100,uint16,1\nb,1,D,101,uint16,1")
                                << "line 2: a quote is not closed";
    QTest::newRow("unknown register") << recipe("a,1,d,100,uint16,1")
                                      << "line 2: unknown register 'd'; the types are X, Y, M, SM, "
                                         "S, T, C, D, SD, CV, 32CV, TV, Z";
    QTest::newRow("address with a count")
        << recipe("a,1,D,100:2,uint16,1")
        << "line 2: '100:2' is not an address; write its number, of X and Y in octal";
    QTest::newRow("no address") << recipe(
        "a,1,D,,uint16,1") << "line 2: '' is not an address; write its number, of X and Y in octal";
    QTest::newRow("unknown type") << recipe("a,1,D,1,word,1")
                                  << "line 2: unknown type 'word'; the types are bit, uint16, "
                                     "int16, hex16, uint32, int32, float";
    QTest::newRow("type does not suit")
        << recipe("a,1,M,1,uint16,1") << "line 2: type uint16 does not suit register M";
    QTest::newRow("value does not fit")
        << recipe("a,1,M,1,bit,2") << "line 2: 2 does not fit; bit takes 0 to 1";
    QTest::newRow("the line's number counts comments")
        << recipe("# one\n\na,1,D,1,uint16,1\nb,1,D,2,uint16,x")
        << "line 5: 'x' is not a decimal or 0x hexadecimal number";
}

void RecipeFileTest::badFilesAreRefused()
{
    QFETCH(QByteArray, text);
    RecipeFile file;
    QString error;
    QVERIFY(!RecipeFile::parse(text, 1, &file, &error));
    QTEST(error, "error");
}

QTEST_GUILESS_MAIN(RecipeFileTest)
#include "tst_recipe_file.moc"
