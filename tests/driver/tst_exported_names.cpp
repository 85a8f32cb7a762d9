#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtTest/QTest>

namespace
{

QStringList linesOf(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(QString::fromLocal8Bit(program), arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s: %s", program, qPrintable(process.errorString()));
    return QString::fromLatin1(process.readAllStandardOutput()).split('\n');
}

QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

// Lines of `nm -P` read "NAME TYPE VALUE SIZE".
QStringList readExportedNames()
{
    QStringList names;
    for (const QString& line : linesOf(KX_NM, {"-D", "-P", "--defined-only", KX_DRIVER_LIBRARY})) {
        if (!line.isEmpty())
            names << line.section(' ', 0, 0);
    }
    return sorted(names);
}

const QStringList& exportedNames()
{
    static const QStringList names = readExportedNames();
    return names;
}

QStringList listedNames()
{
    QFile file(KX_EXPORTED_NAMES);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s: %s", KX_EXPORTED_NAMES, qPrintable(file.errorString()));
    QStringList names;
    for (const QString& line : QString::fromLatin1(file.readAll()).split('\n')) {
        if (!line.isEmpty() && !line.startsWith('#'))
            names << line;
    }
    return sorted(names);
}

// Lines of `readelf -d` read "0x... (NEEDED)  Shared library: [libc.so.6]".
QStringList dynamicEntries(const char* library, const char* tag)
{
    QStringList values;
    for (const QString& line : linesOf(KX_READELF, {"-d", "-W", library})) {
        if (line.contains(QString("(%1)").arg(tag)))
            values << line.section('[', 1).section(']', 0, 0);
    }
    return values;
}

} // namespace

class ExportedNamesTest : public QObject
{
    Q_OBJECT

private slots:
    void exportsTheListedNamesAndNothingElse();
    void exportsEveryEntryPointUnmangled_data();
    void exportsEveryEntryPointUnmangled();
    void exportsEveryInternalFunctionMangled_data();
    void exportsEveryInternalFunctionMangled();
    void exportsTheObjects_data();
    void exportsTheObjects();
    void isLoadedByItsVersionedName();
    void needsOnlyQtCoreAndTheRuntimeOfTheLanguage();

private:
    static void names(const QStringList& names)
    {
        QTest::addColumn<QString>("name");
        for (const QString& name : names)
            QTest::newRow(qPrintable(name)) << name;
    }

    static void verifyExported()
    {
        QFETCH(QString, name);
        QVERIFY(exportedNames().contains(name));
    }
};

void ExportedNamesTest::exportsTheListedNamesAndNothingElse()
{
    QCOMPARE(exportedNames(), listedNames());
    QCOMPARE(exportedNames().size(), 42);
}

void ExportedNamesTest::exportsEveryEntryPointUnmangled_data()
{
    names({"intf_initProperty", "intf_getDriverParameter", "intf_getDriverPropertyPage",
           "intf_SetDriverPropertyPage", "intf_getProtocolType", "intf_setAddrValueChangeCallBack",
           "intf_getRegListByType", "intf_getRegDiscription", "intf_checkAddrValidity",
           "intf_checkAddr", "intf_multiCopy", "intf_addrMerge", "intf_addConditionRead",
           "intf_setRcpAddress", "intf_getSendFrame", "intf_dealRcvFrame", "intf_getData",
           "intf_setData"});
}

void ExportedNamesTest::exportsEveryEntryPointUnmangled()
{
    verifyExported();
}

void ExportedNamesTest::exportsEveryInternalFunctionMangled_data()
{
    names({
        "_Z19getRegAddressWeighti7QStringii",               // int, QString, int, int
        "_Z9addrMergeR5QListI11KEY_ADDRESSEi",              // QList<KEY_ADDRESS>&, int
        "_Z12rcpAddrToVar12_RCP_VAR_PROR8VARIABLEi",        // _RCP_VAR_PRO, VARIABLE&, int
        "_Z12_setBitValueiii",                              // int, int, int
        "_Z23_setDataAreaMonitorFlagi7QStringii",           // int, QString, int, int
        "_Z14check_rcv_dataPhi",                            // unsigned char*, int
        "_Z12getReadFrameR8VARIABLE",                       // VARIABLE&
        "_Z13getWriteFrameR8VARIABLE",                      // VARIABLE&
        "_Z18dealListWhenFinishv",                          // no argument
        "_Z18getIndexOfDataAreai7QStringiR5QListI6_DATA_E", // int, QString, int, QList<_DATA_>&
        "_Z20write_saveDataToAreai7QStringiiPh", // int, QString, int, int, unsigned char*
        "_Z15_wordDataChangePiS_i7QStringii",    // int*, int*, int, QString, int, int
        "_Z15_byteDataChangePhS_i7QStringi", // unsigned char*, unsigned char*, int, QString, int
        "_Z26_OnlyOneDataTypeDataChangei7QStringiihhi", // int, QString, int, int, 2 bytes, int
        "_Z12addVarToListR5QListI8VARIABLEERS0_",       // QList<VARIABLE>&, VARIABLE&
        "_Z16_write_FailOrSuci7QStringiii",             // int, QString, int, int, int
    });
}

void ExportedNamesTest::exportsEveryInternalFunctionMangled()
{
    verifyExported();
}

void ExportedNamesTest::exportsTheObjects_data()
{
    names({"driver", "REG_LIST", "REG_DESCRIPTION", "REG_OFFSET", "_ZN8tarvelanC1Ev",
           "_ZN8tarvelanC2Ev", "_ZN8tarvelanD1Ev", "_ZN8tarvelanD2Ev"});
}

void ExportedNamesTest::exportsTheObjects()
{
    verifyExported();
}

void ExportedNamesTest::isLoadedByItsVersionedName()
{
    QCOMPARE(dynamicEntries(KX_DRIVER_LIBRARY, "SONAME"),
             QStringList("libtarvelan_kx_series.so.1"));
}

void ExportedNamesTest::needsOnlyQtCoreAndTheRuntimeOfTheLanguage()
{
    QStringList needed = dynamicEntries(KX_DRIVER_LIBRARY, "NEEDED");
    const QStringList qtCore = dynamicEntries(KX_QT_CORE_LIBRARY, "SONAME");
    QCOMPARE(qtCore.size(), 1);
    QVERIFY2(needed.removeOne(qtCore.first()), qPrintable(needed.join(" ")));
    const QStringList allowed = {"libstdc++.so.6", "libgcc_s.so.1", "libc.so.6", "libm.so.6",
                                 "ld-linux-x86-64.so.2"};
    for (const QString& library : needed)
        QVERIFY2(allowed.contains(library), qPrintable(library));
}

QTEST_GUILESS_MAIN(ExportedNamesTest)
#include "tst_exported_names.moc"
