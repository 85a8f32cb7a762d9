#include "modbus/write_request.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

namespace
{

struct Row {
    const char* situation;
    const char* type;
    int address;
    const char* payload;
    const char* frame;
};

// Each type at its lowest and highest address and at both sides of its split.
// payload: coils on, registers 0x1234.
// frame: station, function, coil or register, value, CRC low byte first.
const Row ROWS[] = {
    {"X0: lowest", "X", 0, "01", "01 05 04B0 FF00 8CED"},
    {"X377: highest, last below split", "X", 255, "01", "01 05 05AF FF00 BCD7"},
    {"X400: first from split (past the end)", "X", 256, "01", "01 05 0100 FF00 8DC6"},
    {"Y0: lowest", "Y", 0, "01", "01 05 0000 FF00 8C3A"},
    {"Y377: highest, last below split", "Y", 255, "01", "01 05 00FF FF00 BC0A"},
    {"Y400: first from split (past the end)", "Y", 256, "01", "01 05 0100 FF00 8DC6"},
    {"M0: lowest", "M", 0, "01", "01 05 07D0 FF00 8CB7"},
    {"M2047: last below split", "M", 2047, "01", "01 05 0FCF FF00 BF11"},
    {"M2048: first from split", "M", 2048, "01", "01 05 2EE0 FF00 84E4"},
    {"M10239: highest", "M", 10239, "01", "01 05 4EDF FF00 AAE8"},
    {"SM0: lowest", "SM", 0, "01", "01 05 1130 FF00 8909"},
    {"SM255: last below split", "SM", 255, "01", "01 05 122F FF00 B88B"},
    {"SM256: first from split", "SM", 256, "01", "01 05 7530 FF00 9639"},
    {"SM511: highest", "SM", 511, "01", "01 05 762F FF00 A7BB"},
    {"S0: lowest", "S", 0, "01", "01 05 1770 FF00 8855"},
    {"S1023: highest, last below split", "S", 1023, "01", "01 05 1B6F FF00 BAC3"},
    {"S1024: first from split (past the end)", "S", 1024, "01", "01 05 1B70 FF00 8B05"},
    {"T0: lowest", "T", 0, "01", "01 05 1F40 FF00 8A3A"},
    {"T255: highest, last below split", "T", 255, "01", "01 05 203F FF00 B7F6"},
    {"T256: first from split (past the end)", "T", 256, "01", "01 05 2040 FF00 862E"},
    {"C0: lowest", "C", 0, "01", "01 05 23F0 FF00 878D"},
    {"C255: highest, last below split", "C", 255, "01", "01 05 24EF FF00 B73F"},
    {"C256: first from split (past the end)", "C", 256, "01", "01 05 24F0 FF00 86F9"},
    {"D0: lowest", "D", 0, "3412", "01 06 0000 1234 84BD"},
    {"D7999: highest, last below split", "D", 7999, "3412", "01 06 1F3F 1234 B365"},
    {"D8000: first from split (past the end)", "D", 8000, "3412", "01 06 1F40 1234 82BD"},
    {"SD0: lowest", "SD", 0, "3412", "01 06 1F40 1234 82BD"},
    {"SD255: last below split", "SD", 255, "3412", "01 06 203F 1234 BF71"},
    {"SD256: first from split", "SD", 256, "3412", "01 06 2EE0 1234 8C63"},
    {"SD511: highest", "SD", 511, "3412", "01 06 2FDF 1234 BD93"},
    {"CV0: lowest", "CV", 0, "3412", "01 06 251C 1234 4E77"},
    {"CV199: highest, last below split", "CV", 199, "3412", "01 06 25E3 1234 7E47"},
    {"CV200: first from split (past the end)", "CV", 200, "3412", "01 06 25E4 1234 CF86"},
    {"32CV200: lowest", "32CV", 200, "3412", "01 06 25E4 1234 CF86"},
    {"32CV255: highest, last below split", "32CV", 255, "3412", "01 06 2652 1234 2E24"},
    {"32CV256: first from split (past the end)", "32CV", 256, "3412", "01 06 2654 1234 CE25"},
    {"TV0: lowest", "TV", 0, "3412", "01 06 2328 1234 0F31"},
    {"TV255: highest", "TV", 255, "3412", "01 06 2427 1234 3E46"},
    {"TV4095: last below split (past the end)", "TV", 4095, "3412", "01 06 3327 1234 3BF2"},
    {"TV4096: first from split (past the end)", "TV", 4096, "3412", "01 06 3328 1234 0BF1"},
    {"Z0: lowest", "Z", 0, "3412", "01 06 2134 1234 CF4F"},
    {"Z14: last below split", "Z", 14, "3412", "01 06 2142 1234 2E95"},
    {"Z15: highest, first from split", "Z", 15, "3412", "01 06 2143 1234 7F55"},
};

} // namespace

Q_DECLARE_METATYPE(VARIABLE)

class SingleWriteCatalogueTest : public QObject
{
    Q_OBJECT

private slots:
    void everyTypeOnTheWire_data()
    {
        QTest::addColumn<VARIABLE>("write");
        QTest::addColumn<QByteArray>("frame");
        for (const Row& row : ROWS)
            QTest::newRow(row.situation)
                << job(1, row.type, row.address, 1, row.payload) << bytes(row.frame);
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

QTEST_APPLESS_MAIN(SingleWriteCatalogueTest)
#include "tst_single_write_catalogue.moc"
