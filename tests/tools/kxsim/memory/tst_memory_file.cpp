// The memories of simulated controllers as a table.

#include "kxsim/memory/memory_file.h"
#include "registers/register_types.h"

#include <QtCore/QTemporaryFile>
#include <QtTest/QTest>

using kxsim::loadMemory;
using kxsim::memoryText;
using kxsim::parseMemory;
using kxsim::Stations;

namespace
{

const RegisterType* type(const char* name)
{
    return findRegisterType(QString::fromLatin1(name));
}

} // namespace

class MemoryFileTest : public QObject
{
    Q_OBJECT

private slots:
    void aTableIsRead_data();
    void aTableIsRead();
    void loadedValuesAreNoPresets();
    void rowsWithoutAStationReachAll();
    void aWrongTableIsRefused_data();
    void aWrongTableIsRefused();
    void aFileIsRead();
    void aFileThatIsNotThereIsRefused();
    void theTextHoldsWhatIsNotZero();
    void stationsAreNamedWhenThereAreSeveral();
    void nothingAtAllIsATable();
    void whatWasSavedIsLoaded();
};

void MemoryFileTest::aTableIsRead_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected"); // as saved
    const auto row = [](const char* name, const char* text, const char* expected) {
        QTest::newRow(name) << QByteArray(text) << "address,value\n" + QByteArray(expected);
    };
    row("a value", "address,value\nD100,1234\n", "D100,1234\n");
    row("columns the other way round", "value,address\n1,X17\n", "X17,1\n");
    row("semicolons of a spreadsheet", "address;value\r\nD1;2\r\n", "D1,2\n");
    row("comments and blank lines", "# pump 3\n\naddress,value\n# speed\nD1,2\n", "D1,2\n");
    row("hexadecimal", "address,value\nZ15,0x10\n", "Z15,16\n");
    row("negative", "address,value\n32CV255,-1\n", "32CV255,4294967295\n");
    row("several values", "address,value\nD1:3,\"7,8,9\"\n", "D1,7\nD2,8\nD3,9\n");
    row("all types", // in any order
        "address,value\nZ0,13\nTV255,12\n32CV200,11\nCV0,10\nSD256,9\nD7999,8\nC0,1\nT255,1\n"
        "S1023,1\nSM256,1\nM2048,1\nY377,1\nX0,1\n",
        "X0,1\nY377,1\nM2048,1\nSM256,1\nS1023,1\nT255,1\nC0,1\nD7999,8\nSD256,9\nCV0,10\n"
        "32CV200,11\nTV255,12\nZ0,13\n");
}

void MemoryFileTest::aTableIsRead()
{
    QFETCH(QByteArray, text);
    Stations stations({1});
    QString error;
    QVERIFY2(parseMemory(text, "m.csv", &stations, &error), qPrintable(error));
    QTEST(memoryText(&stations), "expected");
}

void MemoryFileTest::loadedValuesAreNoPresets()
{
    Stations stations({1});
    QString error;
    QVERIFY2(parseMemory("address,value\nD0,5\n", "m.csv", &stations, &error), qPrintable(error));
    stations.memory(1)->move(type("D"), 0, 6);
    QCOMPARE(stations.memory(1)->value(type("D"), 0), 6u);
}

void MemoryFileTest::rowsWithoutAStationReachAll()
{
    Stations stations({2, 5});
    QString error;
    QVERIFY2(parseMemory("address,value\nD0,5\nD0@5,6\n", "m.csv", &stations, &error),
             qPrintable(error));
    QCOMPARE(stations.memory(2)->value(type("D"), 0), 5u);
    QCOMPARE(stations.memory(5)->value(type("D"), 0), 6u);
}

void MemoryFileTest::aWrongTableIsRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* text, const char* expected) {
        QTest::newRow(name) << QByteArray(text) << QString::fromLatin1(expected);
    };
    row("nothing", "", "m.csv: no header line; it is address,value");
    row("no values", "address,value\n", "m.csv: no rows behind the header");
    row("another table", "name,address\nPump,D1\n",
        "m.csv:1: unknown column 'name', separated by commas; the columns are address,value");
    row("no value", "address,value\nD1,1\nD2,\n",
        "m.csv:3: D2=: '' is not a decimal or 0x hexadecimal number");
    row("no address", "address,value\n,1\n", "m.csv:2: the row has no address");
    row("a value too large", "address,value\nM0,2\n",
        "m.csv:2: M0=2: 2 does not fit; M takes 0 to 1");
    row("past the addresses", "address,value\nD8000,2\n",
        "m.csv:2: D8000: out of range; the addresses are D0 to D7999 (decimal)");
    row("a value too many", "address,value\nD1,2,3\n",
        "m.csv:2: 3 fields separated by commas instead of 2");
    row("an address twice", "address,value\nD1,1\n\nD2,2\nD1,3\n",
        "m.csv:5: D1 has a value in line 2 already");
    row("an address inside a range", "address,value\nX6:3,\"1,1,1\"\nX10,0\n",
        "m.csv:3: X10 has a value in line 2 already");
    row("a station not simulated", "address,value\nD1@2,1\nD1@3,1\n",
        "m.csv:3: D1@3: station 3 is not simulated");
}

void MemoryFileTest::aWrongTableIsRefused()
{
    QFETCH(QByteArray, text);
    Stations stations({1, 2});
    stations.memory(1)->setValue(type("D"), 1, 77);
    QString error;
    QVERIFY(!parseMemory(text, "m.csv", &stations, &error));
    QTEST(error, "expected");
    QCOMPARE(memoryText(&stations), QByteArray("address,value\nD1@1,77\n"));
}

void MemoryFileTest::aFileIsRead()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write("address,value\nCV199,65535\n");
    file.close();
    Stations stations({1});
    QString error;
    QVERIFY2(loadMemory(file.fileName(), &stations, &error), qPrintable(error));
    QCOMPARE(stations.memory(1)->value(type("CV"), 199), 65535u);
}

void MemoryFileTest::aFileThatIsNotThereIsRefused()
{
    Stations stations({1});
    QString error;
    QVERIFY(!loadMemory("/nowhere/m.csv", &stations, &error));
    QCOMPARE(error, QStringLiteral("/nowhere/m.csv: No such file or directory"));
}

void MemoryFileTest::theTextHoldsWhatIsNotZero()
{
    Stations stations({9});
    stations.memory(9)->setValue(type("D"), 2, 1);
    stations.memory(9)->setValue(type("D"), 10, 0);
    stations.memory(9)->setValue(type("32CV"), 201, 0x00010000);
    stations.memory(9)->preset(type("X"), 8, 1);
    QCOMPARE(memoryText(&stations), QByteArray("address,value\nX10,1\nD2,1\n32CV201,65536\n"));
}

void MemoryFileTest::stationsAreNamedWhenThereAreSeveral()
{
    Stations stations({7, 3});
    stations.memory(7)->setValue(type("D"), 2, 1);
    stations.memory(3)->setValue(type("D"), 20, 2);
    QCOMPARE(memoryText(&stations), QByteArray("address,value\nD20@3,2\nD2@7,1\n"));
}

void MemoryFileTest::nothingAtAllIsATable()
{
    Stations stations({1});
    const QByteArray text = memoryText(&stations);
    QCOMPARE(text, QByteArray("address,value\nD0,0\n"));
    QString error;
    QVERIFY2(parseMemory(text, "m.csv", &stations, &error), qPrintable(error));
}

void MemoryFileTest::whatWasSavedIsLoaded()
{
    Stations saved({1, 247});
    for (const RegisterType& row : REGISTER_TYPES) {
        saved.memory(1)->setValue(type(row.name), row.lowestAddress, 1);
        saved.memory(247)->setValue(type(row.name), row.lowestAddress + 15, 0xFFFFFFFF);
    }
    const QByteArray text = memoryText(&saved);
    QCOMPARE(text.count('\n'), 1 + 2 * REGISTER_TYPE_COUNT);
    Stations loaded({1, 247});
    QString error;
    QVERIFY2(parseMemory(text, "m.csv", &loaded, &error), qPrintable(error));
    QCOMPARE(memoryText(&loaded), text);
}

QTEST_APPLESS_MAIN(MemoryFileTest)

#include "tst_memory_file.moc"
