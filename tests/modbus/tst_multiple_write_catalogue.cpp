#include "modbus/write_request.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

namespace
{

struct Row {
    const char* situation;
    const char* type;
    int address;
    int count;
    const char* payload;
    const char* frame;
};

// Each type at its lowest and highest address and at both sides of its split.
// payload: coils on, off, on; registers 0x5678 and 0x1234; one 32CV value 0x12345678.
// frame: station, function, coil or register, quantity, byte count, values, CRC low byte first.
const Row ROWS[] = {
    {"X0: lowest", "X", 0, 3, "010001", "01 0F 04B0 0003 01 05 0F0A"},
    {"X377: highest, last below split", "X", 255, 3, "010001", "01 0F 05AF 0003 01 05 9B19"},
    {"X400: first from split (past the end)", "X", 256, 3, "010001", "01 0F 0100 0003 01 05 4E85"},
    {"Y0: lowest", "Y", 0, 3, "010001", "01 0F 0000 0003 01 05 4F54"},
    {"Y377: highest, last below split", "Y", 255, 3, "010001", "01 0F 00FF 0003 01 05 5B40"},
    {"Y400: first from split (past the end)", "Y", 256, 3, "010001", "01 0F 0100 0003 01 05 4E85"},
    {"M0: lowest", "M", 0, 3, "010001", "01 0F 07D0 0003 01 05 8F31"},
    {"M2047: last below split", "M", 2047, 3, "010001", "01 0F 0FCF 0003 01 05 1BBB"},
    {"M2048: first from split", "M", 2048, 3, "010001", "01 0F 2EE0 0003 01 05 C8CC"},
    {"M10239: highest", "M", 10239, 3, "010001", "01 0F 4EDF 0003 01 05 D569"},
    {"SM0: lowest", "SM", 0, 3, "010001", "01 0F 1130 0003 01 05 0C11"},
    {"SM255: last below split", "SM", 255, 3, "010001", "01 0F 122F 0003 01 05 99E0"},
    {"SM256: first from split", "SM", 256, 3, "010001", "01 0F 7530 0003 01 05 0435"},
    {"SM511: highest", "SM", 511, 3, "010001", "01 0F 762F 0003 01 05 91C4"},
    {"S0: lowest", "S", 0, 3, "010001", "01 0F 1770 0003 01 05 0DB8"},
    {"S1023: highest, last below split", "S", 1023, 3, "010001", "01 0F 1B6F 0003 01 05 98B6"},
    {"S1024: first from split (past the end)", "S", 1024, 3, "010001",
     "01 0F 1B70 0003 01 05 0D74"},
    {"T0: lowest", "T", 0, 3, "010001", "01 0F 1F40 0003 01 05 4CF4"},
    {"T255: highest, last below split", "T", 255, 3, "010001", "01 0F 203F 0003 01 05 5C31"},
    {"T256: first from split (past the end)", "T", 256, 3, "010001", "01 0F 2040 0003 01 05 49FB"},
    {"C0: lowest", "C", 0, 3, "010001", "01 0F 23F0 0003 01 05 0812"},
    {"C255: highest, last below split", "C", 255, 3, "010001", "01 0F 24EF 0003 01 05 9C67"},
    {"C256: first from split (past the end)", "C", 256, 3, "010001", "01 0F 24F0 0003 01 05 09A5"},
    {"D0: lowest", "D", 0, 2, "78563412", "01 10 0000 0002 04 56781234 6F49"},
    {"D7999: highest, last below split", "D", 7999, 2, "78563412",
     "01 10 1F3F 0002 04 56781234 A02D"},
    {"D8000: first from split (past the end)", "D", 8000, 2, "78563412",
     "01 10 1F40 0002 04 56781234 E749"},
    {"SD0: lowest", "SD", 0, 2, "78563412", "01 10 1F40 0002 04 56781234 E749"},
    {"SD255: last below split", "SD", 255, 2, "78563412", "01 10 203F 0002 04 56781234 B5DC"},
    {"SD256: first from split", "SD", 256, 2, "78563412", "01 10 2EE0 0002 04 56781234 B4A0"},
    {"SD511: highest", "SD", 511, 2, "78563412", "01 10 2FDF 0002 04 56781234 FA64"},
    {"CV0: lowest", "CV", 0, 2, "78563412", "01 10 251C 0002 04 56781234 C881"},
    {"CV199: highest, last below split", "CV", 199, 2, "78563412",
     "01 10 25E3 0002 04 56781234 8785"},
    {"CV200: first from split (past the end)", "CV", 200, 2, "78563412",
     "01 10 25E4 0002 04 56781234 C663"},
    {"32CV200: lowest", "32CV", 200, 2, "78563412", "01 10 25E4 0002 04 12345678 21B1"},
    {"32CV255: highest, last below split", "32CV", 255, 2, "78563412",
     "01 10 2652 0002 04 12345678 BE1F"},
    {"32CV256: first from split (past the end)", "32CV", 256, 2, "78563412",
     "01 10 2654 0002 04 12345678 3E35"},
    {"TV0: lowest", "TV", 0, 2, "78563412", "01 10 2328 0002 04 56781234 E1C6"},
    {"TV255: highest", "TV", 255, 2, "78563412", "01 10 2427 0002 04 56781234 87B6"},
    {"TV4095: last below split (past the end)", "TV", 4095, 2, "78563412",
     "01 10 3327 0002 04 56781234 6C46"},
    {"TV4096: first from split (past the end)", "TV", 4096, 2, "78563412",
     "01 10 3328 0002 04 56781234 2C06"},
    {"Z0: lowest", "Z", 0, 2, "78563412", "01 10 2134 0002 04 56781234 F9FF"},
    {"Z14: last below split", "Z", 14, 2, "78563412", "01 10 2142 0002 04 56781234 7EF1"},
    {"Z15: highest, first from split", "Z", 15, 2, "78563412", "01 10 2143 0002 04 56781234 BF3D"},
};

} // namespace

Q_DECLARE_METATYPE(VARIABLE)

class MultipleWriteCatalogueTest : public QObject
{
    Q_OBJECT

private slots:
    void everyTypeOnTheWire_data()
    {
        QTest::addColumn<VARIABLE>("write");
        QTest::addColumn<QByteArray>("frame");
        for (const Row& row : ROWS)
            QTest::newRow(row.situation)
                << job(1, row.type, row.address, row.count, row.payload) << bytes(row.frame);
    }

    void everyTypeOnTheWire()
    {
        QFETCH(VARIABLE, write);
        driver.frameList.clear();
        getWriteFrame(write);

        QCOMPARE(static_cast<int>(driver.frameList.size()), 1);
        const FRAME_PRO frame = driver.frameList.takeFirst();
        QTEST(QByteArray(reinterpret_cast<const char*>(frame.frame), frame.sendLen), "frame");
    }
};

QTEST_APPLESS_MAIN(MultipleWriteCatalogueTest)
#include "tst_multiple_write_catalogue.moc"
