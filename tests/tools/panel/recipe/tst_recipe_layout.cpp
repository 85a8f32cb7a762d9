#include "panel/recipe/recipe_layout.h"
#include "support/driver_fixture.h"
#include "tools/panel/recipe/recipe_rows.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

const int LINK = 1; // of DriverFixture

QString textOf(const QVector<_RCP_VAR_PRO>& variables)
{
    QStringList texts;
    for (const _RCP_VAR_PRO& variable : variables)
        texts << QStringLiteral("%1.%2%3:%4=%5")
                     .arg(variable.station)
                     .arg(variable.regType)
                     .arg(variable.address)
                     .arg(variable.count)
                     .arg(variable.bufOffset);
    return texts.join(QLatin1Char(' '));
}

} // namespace

class RecipeLayoutTest : public QObject
{
    Q_OBJECT

private slots:
    void rowsBecomePasses_data();
    void rowsBecomePasses();
    void bufferHoldsTheValues();
    void coilsLieLowByteFirst();
    void uploadedValuesAreFoundInTheBuffer();
    void equalRowsShareOneRegister();
};

/// Variables as station.TYPE address:count=buffer offset; passes parted by "|".
/// The blocks are what the driver makes of each pass, in its own order.
void RecipeLayoutTest::rowsBecomePasses_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<QString>("passes");
    QTest::addColumn<QString>("blocks");

    QTest::newRow("touching registers are one block")
        << "a,1,D,101,uint16,1\nb,1,D,100,uint16,2" << 32 << "1.D100:1=0 1.D101:1=1"
        << "1.D100:2=0";
    QTest::newRow("32 bits are two variables, so that both come back")
        << "a,1,D,100,uint32,1" << 32 << "1.D100:2=0 1.D101:1=1"
        << "1.D100:2=0";
    QTest::newRow("long runs are cut by the driver")
        << "a,1,D,0,uint16,1\nb,1,D,1,uint16,1\nc,1,D,2,uint16,1" << 2
        << "1.D0:1=0 1.D1:1=1 1.D2:1=2"
        << "1.D0:2=0 1.D2:1=2";
    QTest::newRow("a value of two registers is not cut")
        << "a,1,D,0,uint16,1\nb,1,D,1,uint16,1\nc,1,D,2,uint32,1\nd,1,D,4,uint16,1" << 3
        << "1.D0:1=0 1.D1:1=1 1.D2:2=2 1.D3:1=3 1.D4:1=4"
        << "1.D0:2=0 1.D2:3=2";
    QTest::newRow("nor are two that share a register")
        << "a,1,D,0,uint16,1\nb,1,D,1,uint32,65536\nc,1,D,2,uint32,1" << 3
        << "1.D0:1=0 1.D1:3=1 1.D2:2=2 1.D3:1=3"
        << "1.D0:1=0 1.D1:3=1";
    QTest::newRow("values that touch are cut between them")
        << "a,1,D,0,uint32,1\nb,1,D,2,float,1\nc,1,D,4,int32,1" << 5
        << "1.D0:2=0 1.D1:1=1 1.D2:2=2 1.D3:1=3 1.D4:2=4 1.D5:1=5"
        << "1.D0:4=0 1.D4:2=4";
    QTest::newRow("two registers on both sides of a gap are two requests")
        << "a,1,SD,254,uint16,1\nb,1,SD,255,uint32,1\nc,1,SD,257,uint16,1" << 32
        << "1.SD254:1=0 1.SD255:1=1 1.SD256:1=2 1.SD257:1=3"
        << "1.SD254:2=0 1.SD256:2=2";
    QTest::newRow("a single variable is given twice, so that it is one block")
        << "a,1,D,100,uint16,1" << 32 << "1.D100:1=0 1.D100:1=0"
        << "1.D100:1=0";
    QTest::newRow("so is one as long as a request")
        << "a,1,32CV,200,uint32,1" << 2 << "1.32CV200:2=0 1.32CV200:2=0"
        << "1.32CV200:2=0";
    QTest::newRow("register types of a station share a pass")
        << "a,1,CV,0,uint16,1\nb,1,TV,0,uint16,1\nc,1,D,9,uint16,1" << 32
        << "1.D9:1=0 1.CV0:1=1 1.TV0:1=2"
        << "1.D9:1=0 1.TV0:1=2 1.CV0:1=1";
    QTest::newRow("stations have a pass each, since the driver mixes them")
        << "a,1,CV,0,uint16,1\nb,1,CV,1,uint16,1\nc,2,D,0,uint16,1\nd,2,D,1,uint16,1" << 32
        << "1.CV0:1=0 1.CV1:1=1 | 2.D0:1=2 2.D1:1=3"
        << "1.CV0:2=0 | 2.D0:2=2";
    QTest::newRow("second SD range")
        << "a,1,SD,255,uint16,1\nb,1,SD,256,uint16,1" << 32 << "1.SD255:1=0 1.SD256:1=1"
        << "1.SD255:1=0 1.SD256:1=1";
    QTest::newRow("coils in one run are one variable")
        << "a,1,M,0,bit,1\nb,1,M,1,bit,1\nc,1,Y,10,bit,1" << 32 << "1.Y8:1=0 1.M0:2=1"
        << "1.Y8:1=0 1.M0:2=1";
    QTest::newRow("eight coils take two passes")
        << "a,1,M,0,bit,1\nb,1,M,1,bit,1\nc,1,M,2,bit,1\nd,1,M,3,bit,1\ne,1,M,4,bit,1\n"
           "f,1,M,5,bit,1\ng,1,M,6,bit,1\nh,1,M,7,bit,1"
        << 32 << "1.M0:1=0 1.M0:1=0 | 1.M1:7=1 1.M1:7=1"
        << "1.M0:1=0 | 1.M1:7=1";
    QTest::newRow("runs of coils as long as a request share a pass")
        << "a,1,M,0,bit,1\nb,1,M,1,bit,1\nc,1,M,2,bit,1" << 2 << "1.M0:2=0 1.M2:1=2"
        << "1.M0:2=0 1.M2:1=2";
    QTest::newRow("the driver would join SM across its jump")
        << "a,1,SM,255,bit,1\nb,1,SM,256,bit,1" << 32
        << "1.SM255:1=0 1.SM255:1=0 | 1.SM256:1=1 1.SM256:1=1"
        << "1.SM255:1=0 | 1.SM256:1=1";
    QTest::newRow("the driver keeps the M ranges apart")
        << "a,1,M,2047,bit,1\nb,1,M,2048,bit,1" << 32 << "1.M2047:1=0 1.M2048:1=1"
        << "1.M2047:1=0 1.M2048:1=1";
    QTest::newRow("the driver would join 32CV across a gap")
        << "a,1,32CV,200,uint32,1\nb,1,32CV,202,uint32,1" << 32
        << "1.32CV200:2=0 1.32CV200:2=0 | 1.32CV202:2=2 1.32CV202:2=2"
        << "1.32CV200:2=0 | 1.32CV202:2=2";
    QTest::newRow("32CV across a wider gap")
        << "a,1,32CV,200,uint32,1\nb,1,32CV,203,uint32,1" << 32 << "1.32CV200:2=0 1.32CV203:2=2"
        << "1.32CV200:2=0 1.32CV203:2=2";
    QTest::newRow("32CV with an odd limit")
        << "a,1,32CV,200,uint32,1\nb,1,32CV,201,uint32,1\nc,1,32CV,202,uint32,1" << 5
        << "1.32CV200:4=0 1.32CV202:2=4"
        << "1.32CV200:4=0 1.32CV202:2=4";
    QTest::newRow("32CV and coils share a pass, registers have their own")
        << "a,1,32CV,200,uint32,1\nb,1,M,5,bit,1\nc,1,D,5,uint16,1\nd,1,D,7,uint16,1" << 32
        << "1.M5:1=0 1.32CV200:2=3 | 1.D5:1=1 1.D7:1=2"
        << "1.M5:1=0 1.32CV200:2=3 | 1.D5:1=1 1.D7:1=2";
    QTest::newRow("coils of two stations share a pass")
        << "a,1,C,0,bit,1\nb,2,Y,1,bit,1\nc,1,C,2,bit,1" << 32 << "1.C0:1=0 1.C2:1=1 2.Y1:1=2"
        << "1.C0:1=0 2.Y1:1=2 1.C2:1=1";
}

void RecipeLayoutTest::rowsBecomePasses()
{
    QFETCH(QString, rows);
    QFETCH(int, maxWords);
    DriverFixture fixture(qPrintable(QStringLiteral("%1#0#0#3#%2").arg(LINK).arg(maxWords)));
    RecipeLayout layout;
    QString error;
    QVERIFY2(layOutRecipe(rowsOf(rows), maxWords, &layout, &error), qPrintable(error));

    QStringList passes;
    QStringList blocks;
    int blockCount = 0;
    for (const RecipePass& pass : layout.passes) {
        passes << textOf(pass.variables);
        QVector<_RCP_VAR_PRO> variables = pass.forLink(LINK);
        QCOMPARE(intf_setRcpAddress(variables), static_cast<int>(variables.size()));
        blocks << textOf(driver.rcpVars);
        QCOMPARE(pass.blocks, static_cast<int>(driver.rcpVars.size()));
        blockCount += pass.blocks;
    }
    QTEST(passes.join(QStringLiteral(" | ")), "passes");
    QTEST(blocks.join(QStringLiteral(" | ")), "blocks");
    QCOMPARE(layout.blocks(), blockCount);
}

void RecipeLayoutTest::bufferHoldsTheValues()
{
    RecipeLayout layout;
    QString error;
    QVERIFY(layOutRecipe(rowsOf(QStringLiteral("a,1,D,100,uint32,305419896\n" // 0x12345678
                                               "b,1,D,102,int16,-2\n"
                                               "c,1,32CV,200,uint32,2309737967\n" // 0x89ABCDEF
                                               "d,1,M,0,bit,1\ne,1,M,1,bit,0\nf,1,M,2,bit,1")),
                         32, &layout, &error));
    const unsigned short expected[] = {
        0x0001, 0x0001, 0x0000, // M0 1, M1 0, M2 1: low byte first, and the words kept free
        0x5678, 0x1234,         // D100 low word, D101 high word
        0xFFFE,                 // D102
        0xCDEF, 0x89AB,         // 32CV200 low word, high word
    };
    QCOMPARE(layout.buffer.size(), size_t(8));
    for (size_t i = 0; i < layout.buffer.size(); ++i)
        QCOMPARE(layout.buffer[i], expected[i]);
    QCOMPARE(layout.offsets, (QList<int>{3, 5, 6, -1, -1, -1}));
}

void RecipeLayoutTest::coilsLieLowByteFirst()
{
    RecipeLayout layout;
    QString error;
    QVERIFY(layOutRecipe(rowsOf(QStringLiteral("a,1,M,0,bit,0\nb,1,M,1,bit,1\nc,1,M,2,bit,1\n"
                                               "d,1,M,3,bit,1\ne,1,M,4,bit,1\nf,1,M,5,bit,0")),
                         32, &layout, &error));
    QCOMPARE(layout.buffer, (std::vector<unsigned short>{0x0100, 0x0101, 0x0001, 0, 0, 0}));
}

void RecipeLayoutTest::uploadedValuesAreFoundInTheBuffer()
{
    const QList<RecipeRow> rows =
        rowsOf(QStringLiteral("a,1,D,100,uint32,\nb,1,D,102,int16,\nc,1,32CV,200,uint32,"));
    RecipeLayout layout;
    QString error;
    QVERIFY(layOutRecipe(rows, 32, &layout, &error));
    const std::vector<unsigned short> buffer = {0x5678, 0x1234, 0xFFFE, 0xCDEF, 0x89AB};
    QCOMPARE(valueInBuffer(rows.at(0), layout.offsets.at(0), buffer),
             (QList<qint64>{0x5678, 0x1234}));
    QCOMPARE(valueInBuffer(rows.at(1), layout.offsets.at(1), buffer), QList<qint64>{0xFFFE});
    QCOMPARE(valueInBuffer(rows.at(2), layout.offsets.at(2), buffer), QList<qint64>{0x89ABCDEF});
}

void RecipeLayoutTest::equalRowsShareOneRegister()
{
    const QList<RecipeRow> rows =
        rowsOf(QStringLiteral("a,1,D,100,uint16,10\nb,1,D,100,hex16,0xA\nc,1,D,100,int16,"));
    RecipeLayout layout;
    QString error;
    QVERIFY(layOutRecipe(rows, 32, &layout, &error));
    QCOMPARE(layout.buffer, std::vector<unsigned short>{10});
    QCOMPARE(layout.offsets, (QList<int>{0, 0, 0}));
}

QTEST_GUILESS_MAIN(RecipeLayoutTest)
#include "tst_recipe_layout.moc"
