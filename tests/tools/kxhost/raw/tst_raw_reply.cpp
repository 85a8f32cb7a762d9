#include "kxhost/raw/raw_reply.h"

#include <QtTest/QTest>

using namespace kx;

Q_DECLARE_METATYPE(kx::RawResult)

namespace
{

QByteArray hex(const char* digits)
{
    return QByteArray::fromHex(digits);
}

// Station 1, function 3, address 0, quantity 2, CRC.
const char* const READ = "01 03 0000 0002 C40B";
// Station 1, function 6, address 100, value 5, CRC.
const char* const WRITE = "01 06 0064 0005 0816";
// Station 1, function 17, CRC.
const char* const SERVER_ID = "01 11 C02C";
// Station 1, function 3, 4 bytes, 1 and 3, CRC.
const char* const VALUES = "01 03 04 0001 0003 EBF2";

} // namespace

class RawReplyTest : public QObject
{
    Q_OBJECT

private slots:
    void whatCame_data();
    void whatCame();
};

void RawReplyTest::whatCame_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("received");
    QTest::addColumn<RawResult>("result");
    QTest::addColumn<bool>("hasEcho");
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<QByteArray>("behind");
    const auto row = [](const char* name, const char* request, const QByteArray& received,
                        RawResult result, bool hasEcho, const char* frame, const char* behind) {
        QTest::newRow(name) << hex(request) << hex(received) << result << hasEcho << hex(frame)
                            << hex(behind);
    };
    const QByteArray read = READ;
    const QByteArray write = WRITE;
    const QByteArray values = VALUES;
    row("nothing", READ, "", RawResult::None, false, "", "");
    row("values", READ, values, RawResult::Good, false, VALUES, "");
    row("values for a request without its CRC", "01 03 0000 0002", values, RawResult::Good, false,
        VALUES, "");
    row("values and more", READ, values + "77 88", RawResult::Good, false, VALUES, "77 88");
    row("an echo, then values", READ, read + values, RawResult::Good, true, VALUES, "");
    row("an echo alone", READ, read, RawResult::None, true, "", "");
    row("half an echo", READ, read.left(10), RawResult::Damaged, false, "01 03 0000", "");
    row("a refusal", READ, "01 83 02 C0F1", RawResult::Exception, false, "01 83 02 C0F1", "");
    row("an echo, then a refusal", READ, read + "01 83 02 C0F1", RawResult::Exception, true,
        "01 83 02 C0F1", "");
    row("one register instead of two", READ, "01 03 02 0007 F986", RawResult::Other, false,
        "01 03 02 0007 F986", "");
    row("another station", READ, "02 83 02 30F1", RawResult::Other, false, "02 83 02 30F1", "");
    row("another function", READ, WRITE, RawResult::Other, false, WRITE, "");
    row("a wrong CRC", READ, "01 03 04 0001 0003 EBF3", RawResult::Damaged, false,
        "01 03 04 0001 0003 EBF3", "");
    row("a byte", READ, "FF", RawResult::Damaged, false, "FF", "");
    row("a write, confirmed by the same", WRITE, write, RawResult::Good, false, WRITE, "");
    row("a write, its echo and the same", WRITE, write + write, RawResult::Good, true, WRITE, "");
    row("a write and noise", WRITE, write + "77", RawResult::Good, false, WRITE, "77");
    row("a write of something else", WRITE, "01 06 0064 0006 4817", RawResult::Other, false,
        "01 06 0064 0006 4817", "");
    // Station 1, function 17, 2 bytes, CRC: no length that all functions have.
    row("another function's reply", SERVER_ID, "01 11 02 0AFF FBDC", RawResult::Good, false,
        "01 11 02 0AFF FBDC", "");
    row("another function than another", SERVER_ID, values, RawResult::Other, false, VALUES, "");
    row("another function refused", SERVER_ID, "01 91 01 8C50", RawResult::Exception, false,
        "01 91 01 8C50", "");
    row("an echo of another function", SERVER_ID, SERVER_ID, RawResult::None, true, "", "");
    row("one byte asks for nothing", "07", values, RawResult::Other, false, VALUES, "");
}

void RawReplyTest::whatCame()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, received);
    const RawReply reply = rawReplyOf(request, received);
    QTEST(reply.result, "result");
    QTEST(reply.hasEcho, "hasEcho");
    QTEST(reply.frame, "frame");
    QTEST(reply.behind, "behind");
}

QTEST_APPLESS_MAIN(RawReplyTest)
#include "tst_raw_reply.moc"
