// A panel loads several drivers that export the same names, so the loader finds
// another driver's `driver` or `addrMerge` first. Each must use its own.

#include "tarvelan_kx_series.h"

#include <QtCore/QFile>
#include <QtTest/QTest>

#include <dlfcn.h>

namespace
{

#define ENTRY_POINT(name) decltype(&::name) const name = find<decltype(&::name)>(#name)

void* loaded(const char* file, int flags)
{
    void* const library = dlopen(file, flags);
    if (!library)
        qFatal("%s", dlerror());
    return library;
}

/// The driver's entry points, found by name as a panel finds them.
struct LoadedDriver {
    void* library = loaded(KX_DRIVER_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ENTRY_POINT(intf_initProperty);
    ENTRY_POINT(intf_setAddrValueChangeCallBack);
    ENTRY_POINT(intf_getRegDiscription);
    ENTRY_POINT(intf_addrMerge);
    ENTRY_POINT(intf_addConditionRead);
    ENTRY_POINT(intf_setRcpAddress);
    ENTRY_POINT(intf_getSendFrame);
    ENTRY_POINT(intf_dealRcvFrame);
    ENTRY_POINT(intf_getData);
    ENTRY_POINT(intf_setData);

    template <typename Function>
    Function find(const char* name) const
    {
        return reinterpret_cast<Function>(dlsym(library, name));
    }
};

struct Decoy {
    void* library = loaded(KX_DECOY_LIBRARY, RTLD_NOW | RTLD_GLOBAL);
    int* calls = static_cast<int*>(dlsym(library, "decoyCalls"));
    tarvelan* object = static_cast<tarvelan*>(dlsym(library, "driver"));
};

QStringList reports;

void valueChanged(int link, int station, QString name, int address)
{
    reports << QString("%1 %2 %3 %4").arg(link).arg(station).arg(name).arg(address);
}

QString fileThatHolds(const void* address)
{
    Dl_info info;
    return dladdr(address, &info) ? QString::fromLocal8Bit(info.dli_fname) : QString();
}

KEY_ADDRESS range(const char* regType, int address, int count)
{
    KEY_ADDRESS range = KEY_ADDRESS();
    range.station = 1;
    range.regType = regType;
    range.address = address;
    range.count = count;
    return range;
}

} // namespace

class NameShadowingTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theDecoyStandsBeforeTheDriver_data();
    void theDecoyStandsBeforeTheDriver();
    void describesItsOwnRegisters();
    void readsWordsCountersAndCoils();
    void writesAndConfirms();
    void readsOnCondition();
    void transfersARecipe();
    void cleanupTestCase();

private:
    QByteArray poll();
    int deal(const char* reply);
    QByteArray values(const char* regType, int address, int count);

    Decoy decoy;
    LoadedDriver loadedDriver;
    unsigned char shared[60117] = {};
    unsigned short recipe[16] = {};
    QMutex mutex;
};

void NameShadowingTest::initTestCase()
{
    QCOMPARE(*decoy.calls, 1); // the construction of its own object
    int status = 77;
    QCOMPARE(loadedDriver.intf_initProperty(shared, nullptr, recipe, &status, "5#0#0#3#32", &mutex),
             1);
    QCOMPARE(status, 0);
    loadedDriver.intf_setAddrValueChangeCallBack(valueChanged);
}

void NameShadowingTest::theDecoyStandsBeforeTheDriver_data()
{
    QTest::addColumn<QByteArray>("name");
    QFile file(KX_EXPORTED_NAMES);
    QVERIFY(file.open(QIODevice::ReadOnly));
    for (const QByteArray& name : file.readAll().split('\n')) {
        if (!name.isEmpty() && !name.startsWith('#'))
            QTest::newRow(name.constData()) << name;
    }
}

void NameShadowingTest::theDecoyStandsBeforeTheDriver()
{
    QFETCH(QByteArray, name);
    QCOMPARE(fileThatHolds(dlsym(RTLD_DEFAULT, name.constData())), QString(KX_DECOY_LIBRARY));
    QCOMPARE(fileThatHolds(dlsym(loadedDriver.library, name.constData())),
             QString(KX_DRIVER_LIBRARY));
}

QByteArray NameShadowingTest::poll()
{
    FRAME_PRO frame = FRAME_PRO();
    if (loadedDriver.intf_getSendFrame(&frame) != 1)
        return QByteArray();
    return QByteArray(reinterpret_cast<const char*>(frame.frame), frame.sendLen).toHex();
}

int NameShadowingTest::deal(const char* reply)
{
    reports.clear();
    QByteArray received = QByteArray::fromHex(reply);
    QString errorText;
    return loadedDriver.intf_dealRcvFrame(received, errorText);
}

QByteArray NameShadowingTest::values(const char* regType, int address, int count)
{
    QByteArray out(count * (qstrcmp(regType, "D") == 0 || qstrcmp(regType, "32CV") == 0 ? 2 : 1),
                   0);
    loadedDriver.intf_getData(1, regType, address, count,
                              reinterpret_cast<unsigned char*>(out.data()));
    return out.toHex();
}

void NameShadowingTest::describesItsOwnRegisters()
{
    QList<QString> description;
    QCOMPARE(loadedDriver.intf_getRegDiscription("32CV", description), 1);
    QCOMPARE(description, QList<QString>({"ddd", "200", "255", "2", "1"}));
}

void NameShadowingTest::readsWordsCountersAndCoils()
{
    QList<KEY_ADDRESS> watched = {range("32CV", 200, 2), range("D", 101, 1), range("D", 100, 1),
                                  range("M", 2048, 2)};
    QCOMPARE(loadedDriver.intf_addrMerge(watched), 3);

    // station 1, read coils, M2048 is coil 12000 (2EE0), 2 coils, CRC
    QCOMPARE(poll(), QByteArray("01012ee00002b515"));
    QCOMPARE(deal("01010102d049"), 1);
    QCOMPARE(reports, QStringList({"5 1 M 2048", "5 1 M 2049"}));
    QCOMPARE(values("M", 2048, 2), QByteArray("0001"));

    // station 1, read registers, D100 (0064), 2 registers, CRC
    QCOMPARE(poll(), QByteArray("01030064000285d4"));
    QCOMPARE(deal("010304123456788107"), 1);
    QCOMPARE(reports, QStringList({"5 1 D 100", "5 1 D 101"}));
    QCOMPARE(values("D", 100, 2), QByteArray("34127856"));

    // station 1, read registers, 32CV200 is register 9700 (25E4), 2 registers, CRC
    QCOMPARE(poll(), QByteArray("010325e400028f30"));
    QCOMPARE(deal("010304000186a0c9eb"), 1);
    QCOMPARE(reports, QStringList({"5 1 32CV 200"}));
    QCOMPARE(values("32CV", 200, 2), QByteArray("a0860100")); // 100000
}

void NameShadowingTest::writesAndConfirms()
{
    reports.clear();
    unsigned char on[] = {1};
    QCOMPARE(loadedDriver.intf_setData(1, "Y", 3, 1, on, 2), 1);
    QCOMPARE(reports, QStringList({"5 1 Y 3"}));
    // station 1, write one coil, Y3 (0003), on, CRC
    QCOMPARE(poll(), QByteArray("01050003ff007c3a"));
    QCOMPARE(deal("01050003ff007c3a"), 1);
    QCOMPARE(reports, QStringList({"5 1 Y 3"}));
    QCOMPARE(values("Y", 3, 1), QByteArray("01"));
}

void NameShadowingTest::readsOnCondition()
{
    KEY_ADDRESS asked = range("D", 200, 1);
    QCOMPARE(loadedDriver.intf_addConditionRead(asked, 3), 1);
    // station 1, read registers, D200 (00C8), 1 register, CRC
    QCOMPARE(poll(), QByteArray("010300c8000105f4"));
    QCOMPARE(deal("0103021122340d"), 1);
    QCOMPARE(reports, QStringList({"-1 -1 -1 0"}));
}

void NameShadowingTest::transfersARecipe()
{
    QVector<_RCP_VAR_PRO> variables = {{5, 1, "D", 20, 1, 8, {}}, {5, 1, "D", 10, 2, 4, {}}};
    QCOMPARE(loadedDriver.intf_setRcpAddress(variables), 2);
    recipe[4] = 1;
    recipe[5] = 2;
    recipe[8] = 3;
    shared[60115] = 1;
    // station 1, write registers, D10 (000A), 2 registers, 4 bytes, 1, 2, CRC
    QCOMPARE(poll(), QByteArray("0110000a00020400010002a3d1"));
    QCOMPARE(deal("0110000a000261ca"), 1);
    // station 1, write one register, D20 (0014), 3, CRC
    QCOMPARE(poll(), QByteArray("01060014000389cf"));
    QCOMPARE(deal("01060014000389cf"), 1);
    QCOMPARE(int(shared[60115]), 0);

    shared[60116] = 1;
    // station 1, read registers, D10 (000A), 2 registers, CRC
    QCOMPARE(poll(), QByteArray("0103000a0002e409"));
    QCOMPARE(deal("010304000700084a34"), 1);
    QCOMPARE(reports, QStringList({"0 -1 RWI 4"}));
    QCOMPARE(int(recipe[4]), 7);
}

void NameShadowingTest::cleanupTestCase()
{
    QCOMPARE(*decoy.calls, 1);
    QCOMPARE(decoy.object->linkId, -77);
    QCOMPARE(decoy.object->maxWords, 0);
    QVERIFY(decoy.object->readList.isEmpty());
    QVERIFY(decoy.object->dataAreas.isEmpty());
}

QTEST_APPLESS_MAIN(NameShadowingTest)
#include "tst_name_shadowing.moc"
