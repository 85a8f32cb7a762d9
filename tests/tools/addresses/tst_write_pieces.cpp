#include "addresses/write_pieces.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

QString textOf(const AddressRange& piece)
{
    return QStringLiteral("%1:%2").arg(addressText(piece.type, piece.address)).arg(piece.values);
}

AddressRange rangeOf(const QString& text)
{
    AddressRange range;
    QString error;
    if (!parseAddressRange(text, &range, &error))
        qFatal("%s", qPrintable(error));
    return range;
}

} // namespace

class WritePiecesTest : public QObject
{
    Q_OBJECT

private slots:
    void noPieceOfCoilsIsAMultipleOfEight_data();
    void noPieceOfCoilsIsAMultipleOfEight();
    void everyCountOfCoilsIsCoveredOnce();
    void valuesFollowTheirPieces();
    void numbersStayWhole();
    void addressesPerWriteKeepTheModbusLimit_data();
    void addressesPerWriteKeepTheModbusLimit();
};

void WritePiecesTest::noPieceOfCoilsIsAMultipleOfEight_data()
{
    QTest::addColumn<QString>("range");
    QTest::addColumn<int>("most");
    QTest::addColumn<QString>("pieces");

    QTest::newRow("one coil") << "M0" << 255 << "M0:1";
    QTest::newRow("seven coils") << "M0:7" << 255 << "M0:7";
    QTest::newRow("eight coils") << "M0:8" << 255 << "M0:1 M1:7";
    QTest::newRow("nine coils") << "M0:9" << 255 << "M0:9";
    QTest::newRow("sixteen octal coils") << "Y0:16" << 255 << "Y0:1 Y1:15";
    QTest::newRow("limit of eight") << "M0:14" << 8 << "M0:7 M7:7";
    QTest::newRow("limit of eight, one over") << "M0:15" << 8 << "M0:7 M7:7 M14:1";
    QTest::newRow("limit of one") << "M0:2" << 1 << "M0:1 M1:1";
    QTest::newRow("rest of eight") << "M0:23" << 15 << "M0:15 M15:1 M16:7";
    QTest::newRow("eight up to the jump") << "M2040:16" << 255 << "M2040:1 M2041:7 M2048:1 M2049:7";
    QTest::newRow("eight registers stay together") << "D0:8" << 32 << "D0:8";
    QTest::newRow("32CV") << "32CV200:3" << 2 << "32CV200:2 32CV202:1";
}

void WritePiecesTest::noPieceOfCoilsIsAMultipleOfEight()
{
    QFETCH(QString, range);
    QFETCH(int, most);
    QStringList texts;
    for (const AddressRange& piece : writePieces(rangeOf(range), most))
        texts << textOf(piece);
    QTEST(texts.join(QLatin1Char(' ')), "pieces");
}

void WritePiecesTest::everyCountOfCoilsIsCoveredOnce()
{
    for (int most = 1; most <= 40; ++most) {
        for (int count = 1; count <= 100; ++count) {
            int next = 0;
            const AddressRange range = {findRegisterType(QStringLiteral("M")), 0, count, 1};
            for (const AddressRange& piece : writePieces(range, most)) {
                QCOMPARE(piece.address, next);
                QVERIFY(piece.values >= 1 && piece.values <= most);
                QVERIFY(piece.values % 8 != 0);
                next += piece.values;
            }
            QCOMPARE(next, count);
        }
    }
}

void WritePiecesTest::valuesFollowTheirPieces()
{
    Assignment assignment;
    QString error;
    QVERIFY(parseAssignment(QStringLiteral("SD254@3=1,-2,3,4"), &assignment, &error));
    const QList<Assignment> pieces = writePieces(assignment, 32);
    QCOMPARE(pieces.size(), 2);
    QCOMPARE(textOf(pieces.at(0).range), QStringLiteral("SD254:2"));
    QCOMPARE(pieces.at(0).values, (QList<qint64>{1, -2}));
    QCOMPARE(textOf(pieces.at(1).range), QStringLiteral("SD256:2"));
    QCOMPARE(pieces.at(1).values, (QList<qint64>{3, 4}));
    QCOMPARE(pieces.at(1).range.station, 3);
}

void WritePiecesTest::numbersStayWhole()
{
    Assignment assignment;
    QString error;
    QVERIFY(parseAssignment(QStringLiteral("D0=1,2,3,4,5,6,7,8"), &assignment, &error));
    assignment.range.width = 4;
    const QList<Assignment> pieces = writePieces(assignment, 7);
    QCOMPARE(pieces.size(), 2);
    QCOMPARE(textOf(pieces.at(0).range), QStringLiteral("D0:4"));
    QCOMPARE(pieces.at(0).range.width, 4);
    QCOMPARE(textOf(pieces.at(1).range), QStringLiteral("D4:4"));
    QCOMPARE(pieces.at(1).values, (QList<qint64>{5, 6, 7, 8}));
    // Rather too long than cut.
    QCOMPARE(writePieces(assignment, 3).size(), 2);
}

void WritePiecesTest::addressesPerWriteKeepTheModbusLimit_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<int>("addresses");

    QTest::newRow("the driver's limit") << "D" << 32 << 32;
    QTest::newRow("123 registers are the most") << "D" << 125 << 123;
    QTest::newRow("61 32CV take 122 registers") << "32CV" << 125 << 61;
    QTest::newRow("coils fit into the payload") << "M" << 125 << 984;
}

void WritePiecesTest::addressesPerWriteKeepTheModbusLimit()
{
    QFETCH(QString, type);
    QFETCH(int, maxWords);
    QTEST(addressesPerWrite(findRegisterType(type), maxWords), "addresses");
}

QTEST_GUILESS_MAIN(WritePiecesTest)
#include "tst_write_pieces.moc"
