#include "kxhost/recipe_file.h"

#include <QtTest/QTest>

namespace
{

const char HEADER[] = "name,station,register,address,type,value\n";
const int DEFAULT_STATION = 5;

QByteArray recipe(const char* rows)
{
    return QByteArray(HEADER) + rows;
}

} // namespace

class TestRecipeFile : public QObject
{
    Q_OBJECT

private slots:
    void rowsAreRead();
    void valuesOf32BitsTakeTwoRegisters();
    void emptyStationIsTheConnections();
    void emptyValueIsNoted();
    void byteOrderMarkAndCarriageReturnsAreAccepted();
    void onlyChangedValuesAreRewritten();
    void sameValuesGiveTheSameFile();
    void badFilesAreRefused_data();
    void badFilesAreRefused();
};

void TestRecipeFile::rowsAreRead()
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
    QCOMPARE(belt.value, quint32(1));
    const RecipeRow& total = file.rows().at(1);
    QCOMPARE(total.line, 6);
    QCOMPARE(total.range.values, 1);
    QCOMPARE(total.value, quint32(0xFFFFFFFF));
}

void TestRecipeFile::valuesOf32BitsTakeTwoRegisters()
{
    RecipeFile file;
    QString error;
    QVERIFY(RecipeFile::parse(recipe("a,1,D,100,uint32,100000"), 1, &file, &error));
    QCOMPARE(file.rows().at(0).range.values, 2);
}

void TestRecipeFile::emptyStationIsTheConnections()
{
    RecipeFile file;
    QString error;
    QVERIFY(RecipeFile::parse(recipe("a,,D,100,uint16,1"), DEFAULT_STATION, &file, &error));
    QCOMPARE(file.rows().at(0).range.station, 5);
}

void TestRecipeFile::emptyValueIsNoted()
{
    RecipeFile file;
    QString error;
    QVERIFY(RecipeFile::parse(recipe(",1,D,100,uint16,"), 1, &file, &error));
    QVERIFY(!file.rows().at(0).hasValue);
    QCOMPARE(file.rows().at(0).place(), QStringLiteral("line 2"));
}

void TestRecipeFile::byteOrderMarkAndCarriageReturnsAreAccepted()
{
    const QByteArray text =
        "\xEF\xBB\xBFname,station,register,address,type,value\r\na,1,D,1,uint16,2\r\n";
    RecipeFile file;
    QString error;
    QVERIFY2(RecipeFile::parse(text, 1, &file, &error), qPrintable(error));
    QCOMPARE(file.rows().at(0).value, quint32(2));
    QCOMPARE(
        file.withValues({3}),
        QByteArray("\xEF\xBB\xBFname,station,register,address,type,value\r\na,1,D,1,uint16,3\r\n"));
}

void TestRecipeFile::onlyChangedValuesAreRewritten()
{
    RecipeFile file;
    QString error;
    QVERIFY(RecipeFile::parse(recipe("# keep, \"this\n"
                                     "\"a \"\"b\"\"\" , 1 ,D,100,hex16, \"0x1\" \n"
                                     "c,1,D,101,uint16,0x10\n"
                                     "d,1,D,102,int16,\n"
                                     "e,1,M,5,bit,0\n"),
                              1, &file, &error));
    QCOMPARE(file.withValues({0xABC, 16, 0xFFFF, 1}),
             recipe("# keep, \"this\n"
                    "\"a \"\"b\"\"\" , 1 ,D,100,hex16, 0x0abc \n"
                    "c,1,D,101,uint16,0x10\n"
                    "d,1,D,102,int16,-1\n"
                    "e,1,M,5,bit,1\n"));
}

void TestRecipeFile::sameValuesGiveTheSameFile()
{
    const QByteArray text = recipe("a,1,D,100,hex16, 0X0F \n\n#\xFF no UTF-8\nb,1,Y,7,bit,\"1\"");
    RecipeFile file;
    QString error;
    QVERIFY(RecipeFile::parse(text, 1, &file, &error));
    QCOMPARE(file.withValues({15, 1}), text);
}

void TestRecipeFile::badFilesAreRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");

    QTest::newRow("empty") << QByteArray()
                           << "no header line; it is name,station,register,address,type,value";
    QTest::newRow("header only") << QByteArray(HEADER) << "no rows behind the header";
    QTest::newRow("no header")
        << QByteArray("a,1,D,100,uint16,1\n")
        << "line 1: the first row must be the header name,station,register,address,type,value";
    QTest::newRow("columns missing")
        << recipe("a,1,D,100,uint16\n") << "line 2: 5 columns instead of the 6 of the header";
    QTest::newRow("one column more")
        << recipe("a,1,D,100,uint16,1,\n") << "line 2: 7 columns instead of the 6 of the header";
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
    QTest::newRow("unknown type")
        << recipe("a,1,D,1,word,1")
        << "line 2: unknown type 'word'; the types are bit, uint16, int16, hex16, uint32, int32";
    QTest::newRow("type does not suit")
        << recipe("a,1,M,1,uint16,1") << "line 2: type uint16 does not suit register M";
    QTest::newRow("value does not fit")
        << recipe("a,1,M,1,bit,2") << "line 2: 2 does not fit; bit takes 0 to 1";
    QTest::newRow("the line's number counts comments")
        << recipe("# one\n\na,1,D,1,uint16,1\nb,1,D,2,uint16,x")
        << "line 5: 'x' is not a decimal or 0x hexadecimal number";
}

void TestRecipeFile::badFilesAreRefused()
{
    QFETCH(QByteArray, text);
    RecipeFile file;
    QString error;
    QVERIFY(!RecipeFile::parse(text, 1, &file, &error));
    QTEST(error, "error");
}

QTEST_GUILESS_MAIN(TestRecipeFile)
#include "tst_recipe_file.moc"
