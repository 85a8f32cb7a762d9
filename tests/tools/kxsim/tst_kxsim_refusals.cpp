// kxsim as a process: what it refuses, byte by byte as any master would send it.

#include "kxsim_process.h"
#include "modbus_master.h"

#include <QtTest/QTest>

class KxsimRefusalsTest : public QObject
{
    Q_OBJECT

private slots:
    void aForeignMasterIsRefused_data();
    void aForeignMasterIsRefused();
};

void KxsimRefusalsTest::aForeignMasterIsRefused_data()
{
    QTest::addColumn<QByteArray>("request"); // whole frames with their CRC
    QTest::addColumn<QByteArray>("reply");
    const auto row = [](const char* name, const char* request, const char* reply) {
        QTest::newRow(name) << QByteArray::fromHex(request) << QByteArray::fromHex(reply);
    };
    row("diagnostics", "01 08 0000 A537 DA8D", "01 88 01 87C0");
    row("a file record", "01 14 07 06 0004 0001 0002 D8E5", "01 94 01 8F00");
    row("a queue", "01 18 04DE 0347", "01 98 01 8A00");
    row("identification", "01 2B 0E 01 00 7077", "01 AB 01 9EF0");
    row("a function of the user's own", "01 41 123456 3B07", "01 C1 01 B050");
    row("registers, counted too few", "01 10 0064 0002 02 0102 0304 DD7B", "01 90 03 0C01");
    row("registers, counted too many", "01 10 0064 0002 06 0102 0304 2CBB", "01 90 03 0C01");
    row("no registers", "01 10 0064 0000 00 1660", "01 90 03 0C01");
    row("coils, counted too few", "01 0F 07D0 000A 01 FF03 7199", "01 8F 03 0431");
    row("coils, counted too many", "01 0F 07D0 000A 03 FF0300 589C", "01 8F 03 0431");
    row("no coils", "01 0F 07D0 0000 00 863F", "01 8F 03 0431");
    row("an input", "01 05 04B0 FF00 8CED", "01 85 02 C351");
    row("inputs", "01 0F 05A8 0008 01 FF DF58", "01 8F 02 C5F1");
}

void KxsimRefusalsTest::aForeignMasterIsRefused()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, reply);
    KxsimProcess kxsim({"--still"});
    ModbusMaster master(kxsim.portName());
    master.send(request);
    QCOMPARE(master.received(static_cast<int>(reply.size())).toHex(' '), reply.toHex(' '));
    QCOMPARE(master.registers(100, 2), QList<int>({0, 0}));
    QCOMPARE(master.coils(1200, 2), QList<int>({0, 0}));
}

QTEST_GUILESS_MAIN(KxsimRefusalsTest)

#include "tst_kxsim_refusals.moc"
