// Requests and replies byte by byte, without a line. withCrc() appends the CRC.

#include "kxsim/requests/request_server.h"
#include "registers/register_types.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

using kxsim::RequestServer;
using kxsim::Stations;

namespace
{

const RegisterType* type(const char* name)
{
    return findRegisterType(QString::fromLatin1(name));
}

} // namespace

class RequestServerTest : public QObject
{
    Q_OBJECT

private slots:
    void aRequestIsAnswered_data();
    void aRequestIsAnswered();
    void aRefusedWriteChangesNothing_data();
    void aRefusedWriteChangesNothing();
    void writesReachTheMemory();
    void eachStationAnswersFromItsOwnMemory();
    void aBroadcastReachesAllStationsAndIsNotAnswered();
    void nothingReachesAStationThatHearsNothing();
    void aRequestToAnotherStationIsIgnoredAndTheNextIsAnswered();
    void everyBeginningOfARequestIsIncomplete_data();
    void everyBeginningOfARequestIsIncomplete();
    void noRequestBeginsHere_data();
    void noRequestBeginsHere();
    void onlyTheFirstOfTwoRequestsIsTaken();
};

void RequestServerTest::aRequestIsAnswered_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("reply");
    const QByteArray mostRegisters = QByteArray("01 03 FA ") + QByteArray(500, '0');
    const struct {
        const char* situation;
        const char* request; // station, function, address, quantity or value, ...
        const char* reply;   // station, function, byte count and data; or function + 80, exception
    } rows[] = {
        {"two words", "01 03 0064 0002", "01 03 04 04D2 FFFF"},
        {"a 32-bit counter, high word first", "01 03 25E4 0002", "01 03 04 0001 0002"},
        {"ten coils, low bit first", "01 01 07D0 000A", "01 01 02 0D 02"},
        {"across D and SD", "01 03 1F3F 0002", "01 03 04 0007 0008"},
        {"most registers", "01 03 00C8 007D", mostRegisters.constData()},
        {"one past the end of a range", "01 03 2FDF 0002", "01 83 02"},
        {"before a range", "01 03 2EDF 0002", "01 83 02"},
        {"in a hole of the registers", "01 03 2144 0001", "01 83 02"},
        {"in a hole of the coils", "01 01 0100 0001", "01 81 02"},
        {"past the last coil of M's first range", "01 01 0FCF 0002", "01 81 02"},
        {"no quantity", "01 03 0064 0000", "01 83 03"},
        {"too many registers", "01 03 0064 007E", "01 83 03"},
        {"too many coils", "01 01 2EE0 07D1", "01 81 03"},
        {"write a coil on", "01 05 07D1 FF00", "01 05 07D1 FF00"},
        {"write a coil off", "01 05 07D0 0000", "01 05 07D0 0000"},
        {"write a coil half on", "01 05 07D0 0100", "01 85 03"},
        {"write a coil in a hole", "01 05 0100 FF00", "01 85 02"},
        {"write a register", "01 06 0064 ABCD", "01 06 0064 ABCD"},
        {"write a register in a hole", "01 06 2144 ABCD", "01 86 02"},
        {"write coils", "01 0F 07D0 000A 02 FF03", "01 0F 07D0 000A"},
        {"write coils with too few bytes", "01 0F 07D0 000A 01 FF", "01 8F 03"},
        {"write registers", "01 10 0064 0002 04 0102 0304", "01 10 0064 0002"},
        {"write registers with too few bytes", "01 10 0064 0002 02 0102", "01 90 03"},
        {"write registers past the end", "01 10 2FDF 0002 04 0102 0304", "01 90 02"},
        {"discrete inputs are not served", "01 02 0000 0001", "01 82 01"},
        {"input registers are not served", "01 04 0000 0001", "01 84 01"},
        {"nor is the station's identity", "01 11", "01 91 01"},
        {"nor are diagnostics", "01 08 0000 A537", "01 88 01"},
        {"nor is a function of the user's own", "01 41 123456", "01 C1 01"},
        {"write coils with too many bytes", "01 0F 07D0 000A 03 FF03 00", "01 8F 03"},
        {"write no coils", "01 0F 07D0 0000 00", "01 8F 03"},
        {"write registers, bytes miscounted", "01 10 0064 0002 02 0102 0304", "01 90 03"},
        {"write no registers", "01 10 0064 0000 00", "01 90 03"},
        {"write no registers in a hole", "01 10 2144 0000 00", "01 90 03"},
        {"read the first input", "01 01 04B0 0001", "01 01 01 00"},
        {"write the first input", "01 05 04B0 FF00", "01 85 02"},
        {"write the last input", "01 05 05AF 0000", "01 85 02"},
        {"write inputs", "01 0F 05A8 0008 01 FF", "01 8F 02"},
        {"write the register with an input's number", "01 06 04B0 0001", "01 06 04B0 0001"},
    };
    for (const auto& row : rows)
        QTest::newRow(row.situation) << withCrc(row.request) << withCrc(row.reply);
}

void RequestServerTest::aRequestIsAnswered()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, reply);
    Stations stations({1});
    kxsim::ControllerMemory& memory = *stations.memory(1);
    memory.setValue(type("D"), 100, 1234);
    memory.setValue(type("D"), 101, 0xFFFF);
    memory.setValue(type("D"), 7999, 7);
    memory.setValue(type("SD"), 0, 8);
    memory.setValue(type("32CV"), 200, 0x00010002);
    for (const int on : {0, 2, 3, 9})
        memory.setValue(type("M"), on, 1);
    RequestServer server(&stations);
    const RequestServer::Answer answer = server.answer(request);
    QCOMPARE(answer.verdict, RequestServer::EXECUTED);
    QCOMPARE(answer.requestLength, static_cast<int>(request.size()));
    QCOMPARE(answer.reply.toHex(' '), reply.toHex(' '));
}

void RequestServerTest::aRefusedWriteChangesNothing_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("address");
    const auto row = [](const char* name, const char* request, const char* type, int address) {
        QTest::newRow(name) << withCrc(request) << QString::fromLatin1(type) << address;
    };
    row("past the end", "01 10 2FDF 0002 04 0102 0304", "SD", 511);
    row("one input", "01 05 04B0 FF00", "X", 0);
    row("inputs", "01 0F 05A8 0008 01 FF", "X", 255);
    row("inputs, to all stations", "00 0F 05A8 0008 01 FF", "X", 255);
    row("too many bytes for the coils", "01 0F 07D0 000A 03 FF03 00", "M", 0);
    row("too few bytes for the registers", "01 10 0064 0002 02 0102 0304", "D", 100);
}

void RequestServerTest::aRefusedWriteChangesNothing()
{
    QFETCH(QByteArray, request);
    QFETCH(QString, type);
    QFETCH(int, address);
    Stations stations({1});
    RequestServer server(&stations);
    QCOMPARE(server.answer(request).verdict, RequestServer::EXECUTED);
    QCOMPARE(stations.memory(1)->value(findRegisterType(type), address), 0u);
}

void RequestServerTest::writesReachTheMemory()
{
    Stations stations({1});
    kxsim::ControllerMemory& memory = *stations.memory(1);
    RequestServer server(&stations);
    server.answer(withCrc("01 05 2EE0 FF00")); // coil 12000
    QCOMPARE(memory.value(type("M"), 2048), 1u);
    server.answer(withCrc("01 05 2EE0 0000"));
    QCOMPARE(memory.value(type("M"), 2048), 0u);
    server.answer(withCrc("01 06 2EE0 1234")); // register 12000
    QCOMPARE(memory.value(type("SD"), 256), 0x1234u);
    server.answer(withCrc("01 0F 0000 0003 01 05")); // coils 0 to 2
    QCOMPARE(memory.value(type("Y"), 0), 1u);
    QCOMPARE(memory.value(type("Y"), 1), 0u);
    QCOMPARE(memory.value(type("Y"), 2), 1u);
    server.answer(withCrc("01 10 2652 0002 04 89AB CDEF")); // registers 9810 and 9811
    QCOMPARE(memory.value(type("32CV"), 255), 0x89ABCDEFu);
}

void RequestServerTest::eachStationAnswersFromItsOwnMemory()
{
    Stations stations({1, 247});
    stations.memory(1)->setValue(type("D"), 0, 0x1111);
    stations.memory(247)->setValue(type("D"), 0, 0x2222);
    RequestServer server(&stations);
    QCOMPARE(server.answer(withCrc("F7 03 0000 0001")).reply, withCrc("F7 03 02 2222"));
    QCOMPARE(server.answer(withCrc("01 03 0000 0001")).reply, withCrc("01 03 02 1111"));
    server.answer(withCrc("F7 06 0000 3333"));
    QCOMPARE(stations.memory(247)->value(type("D"), 0), 0x3333u);
    QCOMPARE(stations.memory(1)->value(type("D"), 0), 0x1111u);
}

void RequestServerTest::nothingReachesAStationThatHearsNothing()
{
    Stations stations({1, 2});
    RequestServer server(&stations);
    stations.setHears(2, false);
    server.answer(withCrc("00 06 0064 0007")); // a broadcast
    const RequestServer::Answer answer = server.answer(withCrc("02 06 0065 0008"));
    QCOMPARE(answer.verdict, RequestServer::IGNORED);
    QCOMPARE(answer.requestLength, 8);
    QCOMPARE(answer.reply, QByteArray());
    QCOMPARE(stations.memory(1)->value(type("D"), 100), 7u);
    QCOMPARE(stations.memory(2)->value(type("D"), 100), 0u);
    QCOMPARE(stations.memory(2)->value(type("D"), 101), 0u);
    stations.setHears(2, true);
    QCOMPARE(server.answer(withCrc("02 06 0065 0008")).reply, withCrc("02 06 0065 0008"));
    QCOMPARE(stations.memory(2)->value(type("D"), 101), 8u);
}

void RequestServerTest::aBroadcastReachesAllStationsAndIsNotAnswered()
{
    Stations stations({1, 2});
    RequestServer server(&stations);
    const RequestServer::Answer answer = server.answer(withCrc("00 06 0005 0009"));
    QCOMPARE(answer.verdict, RequestServer::EXECUTED);
    QCOMPARE(answer.reply, QByteArray());
    QCOMPARE(stations.memory(1)->value(type("D"), 5), 9u);
    QCOMPARE(stations.memory(2)->value(type("D"), 5), 9u);
    // A refused one is not answered either, nor with the next reply.
    QCOMPARE(server.answer(withCrc("00 41 123456")).reply, QByteArray());
    QCOMPARE(server.answer(withCrc("02 03 0005 0001")).reply, withCrc("02 03 02 0009"));
}

void RequestServerTest::aRequestToAnotherStationIsIgnoredAndTheNextIsAnswered()
{
    Stations stations({1});
    RequestServer server(&stations);
    for (int repeat = 0; repeat < 2; ++repeat) {
        const RequestServer::Answer ignored = server.answer(withCrc("02 06 0005 0009"));
        QCOMPARE(ignored.verdict, RequestServer::IGNORED);
        QCOMPARE(ignored.requestLength, 8);
        QCOMPARE(ignored.reply, QByteArray());
        QCOMPARE(server.answer(withCrc("01 03 0005 0001")).reply, withCrc("01 03 02 0000"));
    }
}

void RequestServerTest::everyBeginningOfARequestIsIncomplete_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::newRow("read") << withCrc("01 03 0064 0002");
    QTest::newRow("write one") << withCrc("01 05 07D0 FF00");
    QTest::newRow("write registers") << withCrc("01 10 0064 0002 04 0102 0304");
    QTest::newRow("to another station") << withCrc("09 0F 07D0 000A 02 FF03");
}

void RequestServerTest::everyBeginningOfARequestIsIncomplete()
{
    QFETCH(QByteArray, request);
    Stations stations({1});
    RequestServer server(&stations);
    for (int length = 1; length < request.size(); ++length) {
        const RequestServer::Answer answer = server.answer(request.left(length));
        QCOMPARE(answer.verdict, RequestServer::INCOMPLETE);
        QCOMPARE(answer.requestLength, 0);
    }
    QCOMPARE(server.answer(request).requestLength, static_cast<int>(request.size()));
}

void RequestServerTest::noRequestBeginsHere_data()
{
    QTest::addColumn<QByteArray>("received");
    QTest::newRow("wrong CRC") << bytes("01 03 0064 0002 85 D5");
    QTest::newRow("CRC bytes swapped") << bytes("01 03 0064 0002 D4 85");
    QTest::newRow("wrong CRC to another station") << bytes("09 03 0064 0002 00 00");
    QTest::newRow("reserved station") << withCrc("F8 03 0064 0002");
    QTest::newRow("another station's reply") << withCrc("09 03 04 0102 0304");
    QTest::newRow("a station's refusal") << withCrc("09 83 02");
    QTest::newRow("a refusal of a function that nobody knows") << withCrc("09 C1 01");
}

void RequestServerTest::noRequestBeginsHere()
{
    QFETCH(QByteArray, received);
    Stations stations({1});
    RequestServer server(&stations);
    const RequestServer::Answer answer = server.answer(received);
    QCOMPARE(answer.verdict, RequestServer::DAMAGED);
    QCOMPARE(answer.reply, QByteArray());
    QCOMPARE(server.answer(withCrc("01 03 0005 0001")).reply, withCrc("01 03 02 0000"));
}

void RequestServerTest::onlyTheFirstOfTwoRequestsIsTaken()
{
    Stations stations({1});
    RequestServer server(&stations);
    const RequestServer::Answer answer =
        server.answer(withCrc("01 06 0005 0009") + withCrc("01 06 0005 000A"));
    QCOMPARE(answer.requestLength, 8);
    QCOMPARE(answer.reply, withCrc("01 06 0005 0009"));
    QCOMPARE(stations.memory(1)->value(type("D"), 5), 9u);
}

QTEST_APPLESS_MAIN(RequestServerTest)

#include "tst_request_server.moc"
