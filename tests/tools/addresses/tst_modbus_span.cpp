// Where device addresses lie on the wire.

#include "addresses/modbus_span.h"

#include <QtTest/QTest>

using namespace kx;

class ModbusSpanTest : public QObject
{
    Q_OBJECT

private slots:
    void aRangeIsPlacedOnTheWire_data();
    void aRangeIsPlacedOnTheWire();
};

void ModbusSpanTest::aRangeIsPlacedOnTheWire_data()
{
    QTest::addColumn<QString>("range");
    QTest::addColumn<QString>("wire");
    QTest::addColumn<int>("function");
    QTest::newRow("one input") << "X377"
                               << "coil 1455" << 1;
    QTest::newRow("the first output is coil 0") << "Y0"
                                                << "coil 0" << 1;
    QTest::newRow("all inputs") << "X0:256"
                                << "coils 1200 to 1455" << 1;
    QTest::newRow("below the M split") << "M2047"
                                       << "coil 4047" << 1;
    QTest::newRow("at the M split") << "M2048"
                                    << "coil 12000" << 1;
    QTest::newRow("across the M split") << "M2040:16"
                                        << "coils 4040 to 4047 and 12000 to 12007" << 1;
    QTest::newRow("across the SM split") << "SM255:2"
                                         << "coils 4655 and 30000" << 1;
    QTest::newRow("across the SD split")
        << "SD254:4"
        << "holding registers 8254 to 8255 and 12000 to 12001" << 3;
    QTest::newRow("one word") << "D100"
                              << "holding register 100" << 3;
    QTest::newRow("words") << "D100:4"
                           << "holding registers 100 to 103" << 3;
    QTest::newRow("Z has a split that changes nothing") << "Z14:2"
                                                        << "holding registers 8514 to 8515" << 3;
    QTest::newRow("two registers per counter") << "32CV200"
                                               << "holding registers 9700 to 9701" << 3;
    QTest::newRow("counters") << "32CV254:2"
                              << "holding registers 9808 to 9811" << 3;
}

void ModbusSpanTest::aRangeIsPlacedOnTheWire()
{
    QFETCH(QString, range);
    AddressRange parsed;
    QString error;
    QVERIFY2(parseAddressRange(range, &parsed, &error), qPrintable(error));
    QTEST(modbusText(parsed.type, modbusSpans(parsed)), "wire");
    QTEST(readFunction(parsed.type), "function");
}

QTEST_APPLESS_MAIN(ModbusSpanTest)
#include "tst_modbus_span.moc"
