#include "addresses/read_pieces.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

QString textOf(const QList<AddressRange>& pieces)
{
    QStringList texts;
    for (const AddressRange& piece : pieces)
        texts << QStringLiteral("%1:%2@%3")
                     .arg(addressText(piece.type, piece.address))
                     .arg(piece.values)
                     .arg(piece.station);
    return texts.join(QLatin1Char(' '));
}

} // namespace

class ReadPiecesTest : public QObject
{
    Q_OBJECT

private slots:
    void rangesAreCutForTheDriver_data();
    void rangesAreCutForTheDriver();
    void valuesAreNotCut_data();
    void valuesAreNotCut();
    void addressesPerReadDependOnTheClass_data();
    void addressesPerReadDependOnTheClass();
    void whyNothingFits();
};

void ReadPiecesTest::rangesAreCutForTheDriver_data()
{
    QTest::addColumn<QString>("range");
    QTest::addColumn<int>("most");
    QTest::addColumn<QString>("pieces");

    QTest::newRow("one piece") << "D100:10@1" << 32 << "D100:10@1";
    QTest::newRow("exactly the limit") << "D100:32@1" << 32 << "D100:32@1";
    QTest::newRow("one more than the limit") << "D100:33@1" << 32 << "D100:32@1 D132:1@1";
    QTest::newRow("station kept in every piece") << "D0:3@7" << 2 << "D0:2@7 D2:1@7";
    QTest::newRow("32CV addresses advance by values")
        << "32CV200:5@1" << 2 << "32CV200:2@1 32CV202:2@1 32CV204:1@1";
    QTest::newRow("second M range") << "M2046:4@1" << 32 << "M2046:2@1 M2048:2@1";
    QTest::newRow("second SM range") << "SM255:2@1" << 32 << "SM255:1@1 SM256:1@1";
    QTest::newRow("second SD range") << "SD250:10@1" << 32 << "SD250:6@1 SD256:4@1";
    QTest::newRow("second range and limit") << "SD254:5@1" << 2 << "SD254:2@1 SD256:2@1 SD258:1@1";
    QTest::newRow("Z15 lies past a split without a jump") << "Z14:2@1" << 32 << "Z14:2@1";
    QTest::newRow("octal") << "Y6:3@1" << 2 << "Y6:2@1 Y10:1@1";
}

void ReadPiecesTest::rangesAreCutForTheDriver()
{
    QFETCH(QString, range);
    QFETCH(int, most);
    AddressRange parsed;
    QString error;
    QVERIFY2(parseAddressRange(range, &parsed, &error), qPrintable(error));
    QTEST(textOf(readPieces(parsed, most)), "pieces");
}

void ReadPiecesTest::valuesAreNotCut_data()
{
    QTest::addColumn<QString>("range");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("most");
    QTest::addColumn<QString>("pieces");
    QTest::newRow("pairs under an odd limit") << "D0:6@1" << 2 << 5 << "D0:4@1 D4:2@1";
    QTest::newRow("longer than the limit") << "D0:8@1" << 4 << 3 << "D0:4@1 D4:4@1";
    QTest::newRow("on both sides of a split") << "SD252:8@1" << 2 << 32 << "SD252:4@1 SD256:4@1";
}

void ReadPiecesTest::valuesAreNotCut()
{
    QFETCH(QString, range);
    QFETCH(int, width);
    QFETCH(int, most);
    AddressRange parsed;
    QString error;
    QVERIFY2(parseAddressRange(range, &parsed, &error), qPrintable(error));
    parsed.width = width;
    const QList<AddressRange> pieces = readPieces(parsed, most);
    QTEST(textOf(pieces), "pieces");
    for (const AddressRange& piece : pieces)
        QCOMPARE(piece.width, width);
}

void ReadPiecesTest::addressesPerReadDependOnTheClass_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<int>("addresses");

    QTest::newRow("eight coils for each register") << "M" << 32 << 256;
    QTest::newRow("one register each") << "D" << 32 << 32;
    QTest::newRow("two registers for each 32CV") << "32CV" << 32 << 16;
    QTest::newRow("odd limit wastes a register") << "32CV" << 33 << 16;
    QTest::newRow("no 32CV fits into one register") << "32CV" << 1 << 0;
}

void ReadPiecesTest::addressesPerReadDependOnTheClass()
{
    QFETCH(QString, type);
    QFETCH(int, maxWords);
    QTEST(addressesPerRead(findRegisterType(type), maxWords), "addresses");
}

void ReadPiecesTest::whyNothingFits()
{
    QCOMPARE(tooLongText(findRegisterType(QStringLiteral("32CV")), 1),
             QStringLiteral("a 32CV takes 2 registers; raise --max-words, which is 1"));
}

QTEST_GUILESS_MAIN(ReadPiecesTest)
#include "tst_read_pieces.moc"
