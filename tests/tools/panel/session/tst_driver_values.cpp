#include "panel/session/driver_values.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kx;

class DriverValuesTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesBecomeBytesAndBack_data();
    void valuesBecomeBytesAndBack();
    void negativeValuesComeBackUnsigned();
    void repliesBecomeValues_data();
    void repliesBecomeValues();
    void jobsAndVariablesAreRanges();
};

void DriverValuesTest::valuesBecomeBytesAndBack_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QList<qint64>>("values");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("bits, a byte each") << "M" << QList<qint64>{1, 0, 1} << QByteArray("010001");
    QTest::newRow("words, the low byte first")
        << "D" << QList<qint64>{0x1234, 65535} << QByteArray("3412ffff");
    QTest::newRow("32CV, the lowest byte first")
        << "32CV" << QList<qint64>{0x12345678, 4294967295} << QByteArray("78563412ffffffff");
}

void DriverValuesTest::valuesBecomeBytesAndBack()
{
    QFETCH(QString, type);
    QFETCH(QList<qint64>, values);
    QFETCH(QByteArray, bytes);
    const AddressRange range = {findRegisterType(type), 200, static_cast<int>(values.size()), 1};
    QCOMPARE(driverBytes({range, values}).toHex(), bytes);
    QCOMPARE(bytesOf(range), static_cast<int>(bytes.size()) / 2);
    QCOMPARE(valuesOf(range, QByteArray::fromHex(bytes)), values);
}

void DriverValuesTest::negativeValuesComeBackUnsigned()
{
    const AddressRange range = {findRegisterType(QStringLiteral("D")), 0, 1, 1};
    QCOMPARE(driverBytes({range, {-2}}).toHex(), QByteArray("feff"));
    QCOMPARE(valuesOf(range, QByteArray::fromHex("feff")), QList<qint64>{65534});
}

void DriverValuesTest::repliesBecomeValues_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QList<qint64>>("values");
    // Station, function, byte count, data, CRC (of which nothing is looked at).
    QTest::newRow("bits, the lowest first")
        << "M" << QByteArray("01 01 02 81 01 FF FF") << QList<qint64>{1, 0, 0, 0, 0, 0, 0, 1, 1};
    QTest::newRow("words, the high byte first")
        << "D" << QByteArray("01 03 04 12 34 FF FE FF FF") << QList<qint64>{0x1234, 0xFFFE};
    QTest::newRow("32CV, the highest byte first")
        << "32CV" << QByteArray("01 03 04 FF 01 86 A0 FF FF") << QList<qint64>{0xFF0186A0};
    QTest::newRow("nothing behind the reply's end")
        << "D" << QByteArray("01 03 04 12") << QList<qint64>{0x1200, 0};
}

void DriverValuesTest::repliesBecomeValues()
{
    QFETCH(QString, type);
    QFETCH(QByteArray, reply);
    QFETCH(QList<qint64>, values);
    const AddressRange range = {findRegisterType(type), 200, static_cast<int>(values.size()), 1};
    QCOMPARE(valuesOfReply(range, QByteArray::fromHex(reply)), values);
}

void DriverValuesTest::jobsAndVariablesAreRanges()
{
    VARIABLE job = VARIABLE();
    job.station = 5;
    job.regType = QStringLiteral("32CV");
    job.address = 200;
    job.count = 4; // registers
    const AddressRange range = rangeOf(job);
    QCOMPARE(range.type, findRegisterType(QStringLiteral("32CV")));
    QCOMPARE(range.address, 200);
    QCOMPARE(range.values, 2);
    QCOMPARE(range.station, 5);
    _RCP_VAR_PRO variable = _RCP_VAR_PRO();
    variable.regType = QStringLiteral("W");
    variable.count = 3;
    QVERIFY(!rangeOf(variable).type);
    QCOMPARE(rangeOf(variable).values, 3);
}

QTEST_APPLESS_MAIN(DriverValuesTest)
#include "tst_driver_values.moc"
