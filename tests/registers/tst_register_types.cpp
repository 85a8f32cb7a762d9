#include "registers/register_types.h"

#include <QtTest/QTest>

namespace
{

void addRow(const char* name, const char* type, int address, int modbus)
{
    QTest::newRow(name) << QString(type) << address << modbus;
}

} // namespace

class RegisterTypesTest : public QObject
{
    Q_OBJECT

private slots:
    void classesAndRegisters_data();
    void classesAndRegisters();
    void otherNamesAreUnknown_data();
    void otherNamesAreUnknown();
    void modbusNumbers_data();
    void modbusNumbers();
    void rangesKeptApart_data();
    void rangesKeptApart();
    void onlyInputsAreNotWritable();
};

void RegisterTypesTest::classesAndRegisters_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("expectedClass");
    QTest::addColumn<int>("registers");
    const int bit = BIT_CLASS;
    const int word = WORD_CLASS;
    QTest::newRow("X") << "X" << 0 << bit << 1;
    QTest::newRow("Y") << "Y" << 1 << bit << 1;
    QTest::newRow("M") << "M" << 2 << bit << 1;
    QTest::newRow("SM") << "SM" << 3 << bit << 1;
    QTest::newRow("S") << "S" << 4 << bit << 1;
    QTest::newRow("T") << "T" << 5 << bit << 1;
    QTest::newRow("C") << "C" << 6 << bit << 1;
    QTest::newRow("D") << "D" << 7 << word << 1;
    QTest::newRow("SD") << "SD" << 8 << word << 1;
    QTest::newRow("CV") << "CV" << 9 << word << 1;
    QTest::newRow("32CV") << "32CV" << 10 << int(DOUBLE_WORD_CLASS) << 2;
    QTest::newRow("TV") << "TV" << 11 << word << 1;
    QTest::newRow("Z") << "Z" << 12 << word << 1;
}

void RegisterTypesTest::classesAndRegisters()
{
    QFETCH(QString, type);
    QFETCH(int, row);
    QFETCH(int, expectedClass);
    QFETCH(int, registers);
    QCOMPARE(REGISTER_TYPES[row].name, type.toLatin1().constData());
    QVERIFY(findRegisterType(type));
    QCOMPARE(findRegisterType(type)->name, type.toLatin1().constData());
    QCOMPARE(int(registerClassOf(type)), expectedClass);
    QCOMPARE(registersPerAddress(findRegisterType(type)), registers);
}

void RegisterTypesTest::otherNamesAreUnknown_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
    QTest::newRow("lower case") << "d";
    QTest::newRow("blank after") << "D ";
    QTest::newRow("blank before") << " D";
    QTest::newRow("beginning of a name") << "32C";
    QTest::newRow("longer than a name") << "SMX";
    QTest::newRow("longer than any name") << "32CV2";
    QTest::newRow("one letter with the bytes of two") << QString(QChar(0x4D53)); // 'S', 'M'
    QTest::newRow("a zero character after") << QString::fromLatin1("D\0", 2);
    QTest::newRow("no type of this controller") << "Q";
}

void RegisterTypesTest::otherNamesAreUnknown()
{
    QFETCH(QString, type);
    QVERIFY(!findRegisterType(type));
    QCOMPARE(int(registerClassOf(type)), int(UNKNOWN_CLASS));
    QCOMPARE(registersPerAddress(nullptr), 1);
}

void RegisterTypesTest::modbusNumbers_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("modbus");
    addRow("first X", "X", 0, 1200);
    addRow("last X", "X", 255, 1455);
    addRow("past the split of X", "X", 256, 256);
    addRow("first Y", "Y", 0, 0);
    addRow("last Y", "Y", 255, 255);
    addRow("first M", "M", 0, 2000);
    addRow("below the split of M", "M", 2047, 4047);
    addRow("at the split of M", "M", 2048, 12000);
    addRow("M in a worked request", "M", 3000, 12952);
    addRow("last M", "M", 10239, 20191);
    addRow("first SM", "SM", 0, 4400);
    addRow("below the split of SM", "SM", 255, 4655);
    addRow("at the split of SM", "SM", 256, 30000);
    addRow("last SM", "SM", 511, 30255);
    addRow("first S", "S", 0, 6000);
    addRow("last S", "S", 1023, 7023);
    addRow("past the split of S", "S", 1024, 7024);
    addRow("first T", "T", 0, 8000);
    addRow("last T", "T", 255, 8255);
    addRow("first C", "C", 0, 9200);
    addRow("last C", "C", 255, 9455);
    addRow("first D", "D", 0, 0);
    addRow("last D", "D", 7999, 7999);
    addRow("past the split of D", "D", 8000, 8000);
    addRow("first SD", "SD", 0, 8000);
    addRow("below the split of SD", "SD", 255, 8255);
    addRow("at the split of SD", "SD", 256, 12000);
    addRow("last SD", "SD", 511, 12255);
    addRow("first CV", "CV", 0, 9500);
    addRow("last CV", "CV", 199, 9699);
    addRow("first 32CV", "32CV", 200, 9700);
    addRow("second 32CV", "32CV", 201, 9702);
    addRow("last 32CV", "32CV", 255, 9810);
    addRow("first TV", "TV", 0, 9000);
    addRow("last TV", "TV", 255, 9255);
    addRow("first Z", "Z", 0, 8500);
    addRow("at the split of Z", "Z", 15, 8515);
    addRow("below zero", "M", -1, 1999);
    addRow("unknown type", "Q", 123, 123);
}

void RegisterTypesTest::modbusNumbers()
{
    QFETCH(QString, type);
    QFETCH(int, address);
    QFETCH(int, modbus);
    QCOMPARE(modbusNumber(findRegisterType(type), address), modbus);
}

void RegisterTypesTest::rangesKeptApart_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("address");
    QTest::addColumn<bool>("apart");
    QTest::newRow("SD, both below") << "SD" << 254 << 255 << false;
    QTest::newRow("SD, across") << "SD" << 255 << 256 << true;
    QTest::newRow("SD, both from the split on") << "SD" << 256 << 257 << false;
    QTest::newRow("SD, backward") << "SD" << 256 << 255 << false;
    QTest::newRow("M, both below") << "M" << 2046 << 2047 << false;
    QTest::newRow("M, across") << "M" << 2047 << 2048 << true;
    QTest::newRow("M, both from the split on") << "M" << 2048 << 2049 << false;
    QTest::newRow("SM, across") << "SM" << 255 << 256 << false;
    QTest::newRow("Z, across") << "Z" << 14 << 15 << false;
    QTest::newRow("unknown type") << "Q" << 255 << 256 << false;
}

void RegisterTypesTest::rangesKeptApart()
{
    QFETCH(QString, type);
    QFETCH(int, first);
    QFETCH(int, address);
    QFETCH(bool, apart);
    QCOMPARE(liesPastSplit(findRegisterType(type), first, address), apart);
}

void RegisterTypesTest::onlyInputsAreNotWritable()
{
    QStringList readOnly;
    for (const RegisterType& type : REGISTER_TYPES) {
        if (!type.writable)
            readOnly << type.name;
    }
    QCOMPARE(readOnly, QStringList("X"));
}

QTEST_APPLESS_MAIN(RegisterTypesTest)
#include "tst_register_types.moc"
