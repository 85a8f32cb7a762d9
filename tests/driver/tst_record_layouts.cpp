// Runtimes are built apart from the driver, so sizes and offsets are contract.
// Strings and lists are one pointer with Qt 4 and 5 and three with Qt 6. Literals for
// Qt 5 on 64 bits, Qt 6 on 64 bits, and Qt 5 on 32 bits.

#include "driver/tarvelan.h"

#include <QtTest/QTest>

namespace
{

const bool QT6 = QT_VERSION >= 0x060000;

template <typename Record, typename Field>
int offsetIn(const Record& record, const Field& field)
{
    return static_cast<int>(reinterpret_cast<const char*>(&field)
                            - reinterpret_cast<const char*>(&record));
}

void addRow(const char* name, int actual, int withQt5, int withQt6, int on32Bits)
{
    const int on64Bits = QT6 ? withQt6 : withQt5;
    QTest::newRow(name) << actual << (sizeof(void*) == 8 ? on64Bits : on32Bits);
}

} // namespace

#define OFFSET(record, field, withQt5, withQt6, on32Bits)                                          \
    addRow(#field, offsetIn(record, record.field), withQt5, withQt6, on32Bits)

class RecordLayoutsTest : public QObject
{
    Q_OBJECT

private slots:
    void platform();
    void variable_data();
    void variable() { compare(); }
    void keyAddress_data();
    void keyAddress() { compare(); }
    void framePro_data();
    void framePro() { compare(); }
    void recipeVariable_data();
    void recipeVariable() { compare(); }
    void dataArea_data();
    void dataArea() { compare(); }
    void driverResources_data();
    void driverResources() { compare(); }
    void driverState_data();
    void driverState() { compare(); }

private:
    static void columns()
    {
        QTest::addColumn<int>("actual");
        QTest::addColumn<int>("expected");
    }

    static void compare()
    {
        QFETCH(int, actual);
        QFETCH(int, expected);
        QCOMPARE(actual, expected);
    }
};

void RecordLayoutsTest::platform()
{
    QVERIFY(sizeof(void*) == 8 || !QT6); // else the literals are missing
    const int pointers = QT6 ? 3 : 1;
    QCOMPARE(sizeof(QString), pointers * sizeof(void*));
    QCOMPARE(sizeof(QList<int>), pointers * sizeof(void*));
    QCOMPARE(sizeof(QVector<int>), pointers * sizeof(void*));
}

void RecordLayoutsTest::variable_data()
{
    columns();
    const VARIABLE record = VARIABLE();
    OFFSET(record, kind, 0, 0, 0);
    OFFSET(record, station, 4, 4, 4);
    OFFSET(record, regType, 8, 8, 8);
    OFFSET(record, address, 16, 32, 12);
    OFFSET(record, count, 20, 36, 16);
    OFFSET(record, data, 24, 40, 20);
    addRow("payload bytes", sizeof record.data, 1024, 1024, 1024);
    addRow("size", sizeof record, 1048, 1064, 1044);
}

void RecordLayoutsTest::keyAddress_data()
{
    columns();
    const KEY_ADDRESS record = KEY_ADDRESS();
    OFFSET(record, keyName, 0, 0, 0);
    OFFSET(record, keyTag1, 8, 24, 4);
    OFFSET(record, keyTag2, 12, 28, 8);
    OFFSET(record, station, 16, 32, 12);
    OFFSET(record, regType, 24, 40, 16);
    OFFSET(record, addrText, 32, 64, 20);
    OFFSET(record, address, 40, 88, 24);
    OFFSET(record, bitIndex, 44, 92, 28);
    OFFSET(record, count, 48, 96, 32);
    OFFSET(record, data, 52, 100, 36);
    addRow("payload bytes", sizeof record.data, 1024, 1024, 1024);
    addRow("size", sizeof record, 1080, 1128, 1060);
}

void RecordLayoutsTest::framePro_data()
{
    columns();
    const FRAME_PRO record = FRAME_PRO();
    OFFSET(record, frame, 0, 0, 0);
    OFFSET(record, sendLen, 1024, 1024, 1024);
    OFFSET(record, recvLen, 1028, 1028, 1028);
    OFFSET(record, frameFunc, 1032, 1032, 1032);
    OFFSET(record, dataLen, 1036, 1036, 1036);
    OFFSET(record, reserved, 1040, 1040, 1040);
    OFFSET(record, job, 1048, 1048, 1044);
    addRow("size", sizeof record, 2096, 2112, 2088);
}

void RecordLayoutsTest::recipeVariable_data()
{
    columns();
    const _RCP_VAR_PRO record = _RCP_VAR_PRO();
    OFFSET(record, rcpId, 0, 0, 0);
    OFFSET(record, station, 4, 4, 4);
    OFFSET(record, regType, 8, 8, 8);
    OFFSET(record, address, 16, 32, 12);
    OFFSET(record, count, 20, 36, 16);
    OFFSET(record, bufOffset, 24, 40, 20);
    OFFSET(record, rcpExtra, 28, 44, 24);
    addRow("size", sizeof record, 32, 48, 28);
}

void RecordLayoutsTest::dataArea_data()
{
    columns();
    const _DATA_ record = _DATA_();
    OFFSET(record, commError, 0, 0, 0);
    OFFSET(record, writePending, 1, 1, 1);
    OFFSET(record, reserved, 4, 4, 4);
    OFFSET(record, monitorFlags, 8, 8, 8);
    OFFSET(record, bitMonitorMask, 12, 12, 12);
    OFFSET(record, station, 16, 16, 16);
    OFFSET(record, regType, 24, 24, 20);
    OFFSET(record, address, 32, 48, 24);
    OFFSET(record, value, 36, 52, 28);
    OFFSET(record, writeValue, 40, 56, 32);
    addRow("size", sizeof record, 48, 64, 36);
}

void RecordLayoutsTest::driverResources_data()
{
    columns();
    OFFSET(driver, valueChangeCallBack, 0, 0, 0);
    OFFSET(driver, linkId, 8, 8, 4);
    OFFSET(driver, writeLocalOnly, 12, 12, 8);
    OFFSET(driver, param2, 16, 16, 12);
    OFFSET(driver, retryLimit, 20, 20, 16);
    OFFSET(driver, maxWords, 24, 24, 20);
    OFFSET(driver, hostShared, 32, 32, 24);
    OFFSET(driver, hostArg1, 40, 40, 28);
    OFFSET(driver, recipeBuffer, 48, 48, 32);
    OFFSET(driver, hostMutex, 56, 56, 36);
    OFFSET(driver, readList, 64, 64, 40);
    OFFSET(driver, writeList, 72, 88, 44);
    OFFSET(driver, condList, 80, 112, 48);
    OFFSET(driver, dataAreas, 88, 136, 52);
    OFFSET(driver, rcpVarsA, 96, 160, 56);
    OFFSET(driver, rcpVars, 104, 184, 60);
    OFFSET(driver, intList, 112, 208, 64);
    OFFSET(driver, regNames, 120, 232, 68);
}

void RecordLayoutsTest::driverState_data()
{
    columns();
    OFFSET(driver, condVar, 128, 256, 72);
    OFFSET(driver, currentJob, 1176, 1320, 1116);
    OFFSET(driver, currentKind, 2224, 2384, 2160);
    OFFSET(driver, burstCount, 2228, 2388, 2164);
    OFFSET(driver, aux1, 2232, 2392, 2168);
    OFFSET(driver, errorCount, 2236, 2396, 2172);
    OFFSET(driver, maxBitsPerJob, 2240, 2400, 2176);
    OFFSET(driver, maxWordsPerJob, 2244, 2404, 2180);
    OFFSET(driver, commFailed, 2248, 2408, 2184);
    OFFSET(driver, aux2, 2252, 2412, 2188);
    OFFSET(driver, aux3, 2256, 2416, 2192);
    OFFSET(driver, frameList, 2264, 2424, 2196);
    OFFSET(driver, rcpIndex, 2272, 2448, 2200);
    addRow("size", sizeof driver, 2280, 2456, 2204); // nothing follows
}

QTEST_APPLESS_MAIN(RecordLayoutsTest)
#include "tst_record_layouts.moc"
