#include "modbus/read_request.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

namespace
{

struct Row {
    const char* situation;
    const char* type;
    int address;
    int count;
    const char* frame;
};

// Each type at its lowest and highest address and at both sides of its split.
// Fields: situation, type, address, count;
// frame: station, function, coil or register, quantity, CRC low byte first.
const Row ROWS[] = {
    {"X0: lowest", "X", 0, 1, "01 01 04B0 0001 FD1D"},
    {"X377: highest, last below split", "X", 255, 1, "01 01 05AF 0001 CD27"},
    {"X400: first from split (past the end)", "X", 256, 1, "01 01 0100 0001 FC36"},
    {"Y0: lowest", "Y", 0, 1, "01 01 0000 0001 FDCA"},
    {"Y377: highest, last below split", "Y", 255, 1, "01 01 00FF 0001 CDFA"},
    {"Y400: first from split (past the end)", "Y", 256, 1, "01 01 0100 0001 FC36"},
    {"M0: lowest", "M", 0, 1, "01 01 07D0 0001 FD47"},
    {"M2047: last below split", "M", 2047, 1, "01 01 0FCF 0001 CEE1"},
    {"M2048: first from split", "M", 2048, 1, "01 01 2EE0 0001 F514"},
    {"M10239: highest", "M", 10239, 1, "01 01 4EDF 0001 DB18"},
    {"SM0: lowest", "SM", 0, 1, "01 01 1130 0001 F8F9"},
    {"SM255: last below split", "SM", 255, 1, "01 01 122F 0001 C97B"},
    {"SM256: first from split", "SM", 256, 1, "01 01 7530 0001 E7C9"},
    {"SM511: highest", "SM", 511, 1, "01 01 762F 0001 D64B"},
    {"S0: lowest", "S", 0, 1, "01 01 1770 0001 F9A5"},
    {"S1023: highest, last below split", "S", 1023, 1, "01 01 1B6F 0001 CB33"},
    {"S1024: first from split (past the end)", "S", 1024, 1, "01 01 1B70 0001 FAF5"},
    {"T0: lowest", "T", 0, 1, "01 01 1F40 0001 FBCA"},
    {"T255: highest, last below split", "T", 255, 1, "01 01 203F 0001 C606"},
    {"T256: first from split (past the end)", "T", 256, 1, "01 01 2040 0001 F7DE"},
    {"C0: lowest", "C", 0, 1, "01 01 23F0 0001 F67D"},
    {"C255: highest, last below split", "C", 255, 1, "01 01 24EF 0001 C6CF"},
    {"C256: first from split (past the end)", "C", 256, 1, "01 01 24F0 0001 F709"},
    {"D0: lowest", "D", 0, 1, "01 03 0000 0001 840A"},
    {"D7999: highest, last below split", "D", 7999, 1, "01 03 1F3F 0001 B3D2"},
    {"D8000: first from split (past the end)", "D", 8000, 1, "01 03 1F40 0001 820A"},
    {"SD0: lowest", "SD", 0, 1, "01 03 1F40 0001 820A"},
    {"SD255: last below split", "SD", 255, 1, "01 03 203F 0001 BFC6"},
    {"SD256: first from split", "SD", 256, 1, "01 03 2EE0 0001 8CD4"},
    {"SD511: highest", "SD", 511, 1, "01 03 2FDF 0001 BD24"},
    {"CV0: lowest", "CV", 0, 1, "01 03 251C 0001 4EC0"},
    {"CV199: highest, last below split", "CV", 199, 1, "01 03 25E3 0001 7EF0"},
    {"CV200: first from split (past the end)", "CV", 200, 1, "01 03 25E4 0001 CF31"},
    {"32CV200: lowest", "32CV", 200, 2, "01 03 25E4 0002 8F30"},
    {"32CV255: highest, last below split", "32CV", 255, 2, "01 03 2652 0002 6E92"},
    {"32CV256: first from split (past the end)", "32CV", 256, 2, "01 03 2654 0002 8E93"},
    {"TV0: lowest", "TV", 0, 1, "01 03 2328 0001 0F86"},
    {"TV255: highest", "TV", 255, 1, "01 03 2427 0001 3EF1"},
    {"TV4095: last below split (past the end)", "TV", 4095, 1, "01 03 3327 0001 3B45"},
    {"TV4096: first from split (past the end)", "TV", 4096, 1, "01 03 3328 0001 0B46"},
    {"Z0: lowest", "Z", 0, 1, "01 03 2134 0001 CFF8"},
    {"Z14: last below split", "Z", 14, 1, "01 03 2142 0001 2E22"},
    {"Z15: highest, first from split", "Z", 15, 1, "01 03 2143 0001 7FE2"},
};

} // namespace

class ReadRequestCatalogueTest : public QObject
{
    Q_OBJECT

private slots:
    void everyTypeOnTheWire_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("address");
        QTest::addColumn<int>("count");
        QTest::addColumn<QByteArray>("frame");
        for (const Row& row : ROWS)
            QTest::newRow(row.situation)
                << row.type << row.address << row.count << bytes(row.frame);
    }

    void everyTypeOnTheWire()
    {
        QFETCH(QString, type);
        QFETCH(int, address);
        QFETCH(int, count);
        VARIABLE read = job(1, type.toLatin1().constData(), address, count);
        driver.frameList.clear();
        getReadFrame(read);

        QCOMPARE(static_cast<int>(driver.frameList.size()), 1);
        const FRAME_PRO frame = driver.frameList.takeFirst();
        QCOMPARE(frame.sendLen, 8);
        QTEST(QByteArray(reinterpret_cast<const char*>(frame.frame), 8), "frame");
    }
};

QTEST_APPLESS_MAIN(ReadRequestCatalogueTest)
#include "tst_read_request_catalogue.moc"
