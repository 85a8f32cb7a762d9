// A panel that edits its project loads and unloads the driver again and again.

#include "support/memory_use.h"
#include "tarvelan_kx_series.h"

#include <QtTest/QTest>

#include <dlfcn.h>

namespace
{

#ifdef KX_EMULATED
const int CYCLES = 2500; // an emulator translates the library anew each time
#else
const int CYCLES = 10000;
#endif
const int CYCLES_UNDER_VALGRIND = 200; // which reads the library's symbols each time
const int WARM_UP = CYCLES / 10;
const int BETWEEN_MEASUREMENTS = CYCLES / 20;

int reports = 0;

void valueChanged(int, int, QString, int)
{
    ++reports;
}

#define ENTRY_POINT(name) decltype(&::name) const name = find<decltype(&::name)>(#name)

struct LoadedDriver {
    void* const library = dlopen(KX_DRIVER_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ENTRY_POINT(intf_initProperty);
    ENTRY_POINT(intf_setAddrValueChangeCallBack);
    ENTRY_POINT(intf_checkAddrValidity);
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
        return reinterpret_cast<Function>(library ? dlsym(library, name) : nullptr);
    }
};

KEY_ADDRESS range(const char* regType, int address, int count)
{
    KEY_ADDRESS range = KEY_ADDRESS();
    range.station = 1;
    range.regType = QString::fromLatin1(regType);
    range.address = address;
    range.count = count;
    return range;
}

QVector<_RCP_VAR_PRO> recipe()
{
    QVector<_RCP_VAR_PRO> variables(3, _RCP_VAR_PRO());
    for (int i = 0; i < 3; ++i) {
        variables[i].rcpId = 1;
        variables[i].station = 1;
        variables[i].regType = QString::fromLatin1("D");
        variables[i].address = 500 + i;
        variables[i].count = 1;
    }
    return variables;
}

/// What a panel's runtime holds while the driver is loaded.
struct Panel {
    std::vector<unsigned char> shared = std::vector<unsigned char>(60117, 0);
    std::vector<unsigned short> recipe = std::vector<unsigned short>(16, 0);
    QMutex mutex;
    FRAME_PRO request = FRAME_PRO();
};

/// Polls for the expected request and hands the reply over; both in hex.
bool exchange(const LoadedDriver& loaded, Panel& panel, const char* request, const char* reply)
{
    if (loaded.intf_getSendFrame(&panel.request) != 1)
        return false;
    const QByteArray sent(reinterpret_cast<const char*>(panel.request.frame),
                          panel.request.sendLen);
    QByteArray received = QByteArray::fromHex(reply);
    QString errorText;
    return sent == QByteArray::fromHex(request)
           && loaded.intf_dealRcvFrame(received, errorText) == REPLY_ACCEPTED;
}

/// Plans, reads, writes and a recipe block; a condition read is left waiting.
bool works(const LoadedDriver& loaded, Panel& panel)
{
    int status = 77;
    loaded.intf_initProperty(panel.shared.data(), nullptr, panel.recipe.data(), &status,
                             "1#0#0#3#32", &panel.mutex);
    loaded.intf_setAddrValueChangeCallBack(valueChanged);
    QList<KEY_ADDRESS> watched;
    watched << range("D", 0, 2) << range("M", 0, 30);
    QVector<_RCP_VAR_PRO> variables = recipe();
    if (status != 0 || loaded.intf_addrMerge(watched) != 2
        || loaded.intf_setRcpAddress(variables) != 3)
        return false;

    unsigned char value[2] = {0x34, 0x12};
    loaded.intf_setData(1, QString::fromLatin1("D"), 0, 1, value, WRITE_JOB);
    if (!exchange(loaded, panel, "01 06 0000 1234 84BD", "01 06 0000 1234 84BD"))
        return false;
    panel.shared[60116] = 1;
    if (!exchange(loaded, panel, "01 03 01F4 0003 45C5", "01 03 06 0001 0002 0003 FD74")
        || panel.shared[60116] != 0)
        return false;
    KEY_ADDRESS once = range("TV", 5, 1);
    loaded.intf_addConditionRead(once, CONDITION_READ_JOB);
    unsigned char read[2] = {0, 0};
    loaded.intf_getData(1, QString::fromLatin1("D"), 0, 1, read);
    return read[0] == 0x34 && read[1] == 0x12;
}

} // namespace

class LoadUnloadTest : public QObject
{
    Q_OBJECT

private slots:
    void timeAfterTime();
};

void LoadUnloadTest::timeAfterTime()
{
    Panel panel;
    MemorySpread spread;
    const int cycles = runsUnderValgrind() ? CYCLES_UNDER_VALGRIND : CYCLES;
    for (int cycle = 0; cycle < cycles; ++cycle) {
        QVERIFY2(!dlopen(KX_DRIVER_LIBRARY, RTLD_NOW | RTLD_NOLOAD), "still loaded");
        const LoadedDriver loaded;
        QVERIFY2(loaded.library, dlerror());
        reports = 0;
        QVERIFY2(works(loaded, panel), qPrintable(QString::number(cycle)));
        QCOMPARE(reports, 5); // the write when made and when confirmed, three recipe words
        QCOMPARE(dlclose(loaded.library), 0);
        if (cycle % BETWEEN_MEASUREMENTS != 0)
            continue;
        const MemoryUse use = memoryUse(); // measuring needs warming up, too
        if (cycle >= WARM_UP)
            spread.add(use);
    }
    if (!isMemoryMeasurable())
        return;
    qDebug("heap %lld to %lld bytes, resident %lld to %lld", spread.lowest().heap,
           spread.highest().heap, spread.lowest().resident, spread.highest().resident);
    QVERIFY(spread.isWithin(64 * 1024));
}

QTEST_APPLESS_MAIN(LoadUnloadTest)
#include "tst_load_unload.moc"
