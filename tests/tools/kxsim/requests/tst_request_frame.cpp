// Requests among received bytes. withCrc() appends the CRC.

#include "kxsim/requests/request_frame.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

using kxsim::findRequest;
using kxsim::formFault;
using kxsim::FoundRequest;

class RequestFrameTest : public QObject
{
    Q_OBJECT

private slots:
    void aRequestIsFoundAndItsFormJudged_data();
    void aRequestIsFoundAndItsFormJudged();
    void aCrcThatEndsWithZeroBelongsToItsRequest();
    void noiseDoesNotHideTheRequestBehindIt();
    void aRequestOfOpenLengthEndsWithTheLongestFrame();
};

void RequestFrameTest::aRequestIsFoundAndItsFormJudged_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("fault");
    const QByteArray mostCoils = QByteArray("01 0F 2EE0 07B0 F6") + QByteArray(2 * 246, '0');
    const QByteArray manyCoils = QByteArray("01 0F 2EE0 07B1 F7") + QByteArray(2 * 247, '0');
    const QByteArray mostRegisters = QByteArray("01 10 0064 007B F6") + QByteArray(2 * 246, '0');
    const struct {
        const char* situation;
        const char* request; // station, function, address, quantity or value, byte count, data
        int fault;
    } rows[] = {
        {"read coils", "01 01 07D0 000A", 0},
        {"read registers", "01 03 0064 0002", 0},
        {"write a coil", "01 05 07D0 FF00", 0},
        {"write a register", "F7 06 0064 ABCD", 0},
        {"write coils", "01 0F 07D0 000A 02 FF03", 0},
        {"write eight coils", "01 0F 07D0 0008 01 FF", 0},
        {"write most coils", mostCoils.constData(), 0},
        {"write registers, to all", "00 10 0064 0002 04 0102 0304", 0},
        {"write most registers", mostRegisters.constData(), 0},
        // 8: diagnostics, give the data back.
        {"function 8", "01 08 0000 A537", 1},
        // 20: read file records; 7 bytes: reference 6, file 4, record 1, two registers.
        {"function 20", "01 14 07 06 0004 0001 0002", 1},
        {"function 24, read a queue", "01 18 04DE", 1},
        {"function 43, identification", "01 2B 0E 01 00", 1},
        {"function 65, of the user's own", "01 41 123456", 1},
        {"function 0", "01 00 0064 0002", 1},
        {"function 127", "01 7F", 1},
        {"discrete inputs", "01 02 0000 0001", 1},
        {"input registers", "01 04 0000 0001", 1},
        {"identity", "01 11", 1},
        {"write and read registers", "01 17 0064 0001 0064 0001 02 1234", 1},
        {"coils: no quantity", "01 0F 07D0 0000 00", 3},
        {"coils: no quantity, yet a byte", "01 0F 07D0 0000 01 FF", 3},
        {"coils: one more than the most", manyCoils.constData(), 3},
        {"coils: one byte too few", "01 0F 07D0 000A 01 FF03", 3},
        {"coils: one byte too few, and not sent", "01 0F 07D0 000A 01 FF", 3},
        {"coils: one byte too many", "01 0F 07D0 000A 03 FF0300", 3},
        {"coils: byte counted, not sent", "01 0F 07D0 000A 03 FF03", 3},
        {"registers: no quantity", "01 10 0064 0000 00", 3},
        {"registers: one more than the most", "01 10 0064 007C F7 0102", 3},
        {"registers: counted too few", "01 10 0064 0002 02 0102 0304", 3},
        {"registers: counted too few and not sent", "01 10 0064 0002 02 0102", 3},
        {"registers: counted too many", "01 10 0064 0002 06 0102 0304", 3},
        {"registers: an odd count", "01 10 0064 0002 03 010203", 3},
        {"registers: nothing counted", "01 10 0065 0002 00", 3},
        {"registers: counted modulo 256", "01 10 0064 0080 00", 3},
    };
    for (const auto& row : rows)
        QTest::newRow(row.situation) << withCrc(row.request) << row.fault;
}

void RequestFrameTest::aRequestIsFoundAndItsFormJudged()
{
    QFETCH(QByteArray, request);
    const FoundRequest found = findRequest(request);
    QCOMPARE(found.kind, FoundRequest::WHOLE);
    QCOMPARE(found.length, static_cast<int>(request.size()));
    QTEST(formFault(request), "fault");
    // What follows does not belong to it, and it may come in pieces.
    QCOMPARE(findRequest(request + withCrc("01 03 0064 0002")).length, found.length);
    for (int length = 1; length < request.size(); ++length) {
        const FoundRequest beginning = findRequest(request.left(length));
        QCOMPARE(beginning.kind, FoundRequest::INCOMPLETE);
        QCOMPARE(beginning.length, 0);
    }
}

void RequestFrameTest::aCrcThatEndsWithZeroBelongsToItsRequest()
{
    // Two registers, byte count 0; 00 17 is the CRC without the byte count, 17 00 that with it.
    const QByteArray request = bytes("01 10 0064 0002 00 17 00");
    QCOMPARE(request, withCrc("01 10 0064 0002 00"));
    QCOMPARE(findRequest(request).kind, FoundRequest::WHOLE);
    QCOMPARE(findRequest(request).length, 9);
    QCOMPARE(findRequest(request + withCrc("01 03 0064 0002")).length, 9);
    QCOMPARE(formFault(request), 3);
}

void RequestFrameTest::noiseDoesNotHideTheRequestBehindIt()
{
    // The end of another station's reply looks like the beginning of function 65.
    const QByteArray noise = bytes("12 41 03 04 05");
    QCOMPARE(findRequest(noise).kind, FoundRequest::INCOMPLETE);
    const QByteArray request = withCrc("01 03 0064 0002");
    for (int length = 1; length < request.size(); ++length)
        QCOMPARE(findRequest(noise + request.left(length)).kind, FoundRequest::INCOMPLETE);
    QCOMPARE(findRequest(noise + request).kind, FoundRequest::DAMAGED);
}

void RequestFrameTest::aRequestOfOpenLengthEndsWithTheLongestFrame()
{
    QByteArray bytes(255, '\x55');
    bytes[0] = 1;
    bytes[1] = 65;
    QCOMPARE(findRequest(bytes).kind, FoundRequest::INCOMPLETE);
    QCOMPARE(findRequest(bytes + '\x55').kind, FoundRequest::DAMAGED);
}

QTEST_APPLESS_MAIN(RequestFrameTest)

#include "tst_request_frame.moc"
