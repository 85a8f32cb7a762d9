#include "kxpanel/frames/saved_frames.h"

#include "../sample_exchanges.h"
#include "support/driver_fixture.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace kxpanel;

class SavedFramesTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TZ", "CET-1"); }
    void asText();
    void asJson();
    void sayWhatIsWrong();
    void asCapture();
    void anEchoInACapture();
    void theNameTellsWhich_data();
    void theNameTellsWhich();
    void tellsHowManyTheFileHas_data();
    void tellsHowManyTheFileHas();
    void aFileThatCannotBeWritten();

private:
    static QByteArray contentOf(const QString& path);
};

QByteArray SavedFramesTest::contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void SavedFramesTest::asText()
{
    QCOMPARE(framesAsText({answeredPoll(), refusedWrite()}),
             QByteArray("11:00:00.000 request station 01, function 03, address 00 64, "
                        "quantity 00 02, CRC 85 D4\n"
                        "11:00:00.030 reply   station 01, function 03, byte count 04, "
                        "data 04 D2 00 11, CRC 9B 36: good, accepted\n"
                        "11:00:00.000 request station 02, function 05, address 00 08, "
                        "value FF 00, CRC 0D CB\n"
                        "11:00:00.030 reply   station 02, function 85, exception 02, CRC 33 51: "
                        "exception 2 (illegal data address), failed: 5,2,8,Y\n"));
}

void SavedFramesTest::asJson()
{
    QCOMPARE(
        framesAsJson({unansweredPoll()}),
        QByteArray(
            "{\"event\":\"exchange\",\"finished\":\"2026-11-22T10:00:00.300Z\","
            "\"outcome\":\"no "
            "reply\",\"repeated\":false,\"reply\":\"\",\"replyFaults\":\"\",\"replyFields\":\"\","
            "\"request\":\"01 03 00 64 00 02 85 D4\",\"requestFields\":\"station 01, "
            "function 03, address 00 64, quantity 00 02, CRC 85 D4\","
            "\"result\":\"repeated\",\"sent\":\"2026-11-22T10:00:00.000Z\"}\n"));
}

void SavedFramesTest::sayWhatIsWrong()
{
    Exchange damaged = answeredPoll();
    damaged.reply = bytes("01 03 04 04");
    damaged.replyKind = kx::ReplyKind::Short;
    QVERIFY(framesAsText({damaged}).contains(" reply   01 03 04 04: cut short: 4 of 9 bytes: "));
    QVERIFY(framesAsJson({damaged}).contains("\"replyFaults\":\"cut short: 4 of 9 bytes\""));
    Exchange tooSoon = answeredPoll();
    tooSoon.replyKind = kx::ReplyKind::Foreign;
    tooSoon.foreignReplies = 1;
    QVERIFY(framesAsJson({tooSoon}).contains("\"replyFaults\":\"reply of another request\""));
}

void SavedFramesTest::asCapture()
{
    Exchange stray = answeredPoll();
    stray.reply.prepend("\x55\xAA", 2); // in no frame
    Exchange notSent = answeredPoll();
    notSent.replyKind = kx::ReplyKind::NotSent;
    // Each packet: 2026-11-22 10:00:00, microseconds, its length twice; tags that name the
    // protocol, and of a frame the ports: from 50000 to 502 for a request, back for a reply.
    const QByteArray request = bytes("20 BD 02 6B 00 00 00 00 30 00 00 00 30 00 00 00 "
                                     "00 0C 00 08 6D 62 72 74 75 00 00 00 00 18 00 04 00 00 00 02 "
                                     "00 19 00 04 00 00 C3 50 00 1A 00 04 00 00 01 F6 00 00 00 00 "
                                     "01 03 00 64 00 02 85 D4");
    const QByteArray noise = bytes("20 BD 02 6B 30 75 00 00 0E 00 00 00 0E 00 00 00 "
                                   "00 0C 00 04 64 61 74 61 00 00 00 00 55 AA");
    const QByteArray reply = bytes("20 BD 02 6B 30 75 00 00 31 00 00 00 31 00 00 00 "
                                   "00 0C 00 08 6D 62 72 74 75 00 00 00 00 18 00 04 00 00 00 02 "
                                   "00 19 00 04 00 00 01 F6 00 1A 00 04 00 00 C3 50 00 00 00 00 "
                                   "01 03 04 04 D2 00 11 9B 36");
    const QByteArray header = bytes("D4 C3 B2 A1 02 00 04 00 00 00 00 00 00 00 00 00 "
                                    "FF FF 00 00 FC 00 00 00");
    QCOMPARE(framesAsCapture({stray, notSent, unansweredPoll()}).toHex(' '),
             (header + request + noise + reply + request).toHex(' '));
}

// It is a request's frame, whoever sent it: to a reader's port 502, which the reply comes from.
void SavedFramesTest::anEchoInACapture()
{
    Exchange echoed = answeredPoll();
    echoed.reply.prepend(echoed.request);
    const QByteArray toPort502 = bytes("00 19 00 04 00 00 C3 50 00 1A 00 04 00 00 01 F6");
    const QByteArray fromPort502 = bytes("00 19 00 04 00 00 01 F6 00 1A 00 04 00 00 C3 50");
    const QByteArray capture = framesAsCapture({echoed});
    QCOMPARE(capture.count(toPort502), 2);
    QCOMPARE(capture.count(fromPort502), 1);
}

void SavedFramesTest::theNameTellsWhich_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<char>("first");
    QTest::newRow("text") << QString("frames.txt") << '1'; // of its time
    QTest::newRow("no ending") << QString("frames") << '1';
    QTest::newRow("JSON lines") << QString("frames.jsonl") << '{';
    QTest::newRow("JSON in capitals") << QString("FRAMES.JSON") << '{';
    QTest::newRow("a capture") << QString("frames.pcap") << '\xD4';
}

void SavedFramesTest::theNameTellsWhich()
{
    QFETCH(QString, name);
    QTemporaryDir folder;
    QString error;
    QCOMPARE(saveFrames(folder.filePath(name), {answeredPoll()}, &error), 1);
    QTEST(contentOf(folder.filePath(name)).at(0), "first");
}

void SavedFramesTest::tellsHowManyTheFileHas_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("saved");
    QTest::newRow("text has all") << QString("frames.txt") << 4;
    QTest::newRow("JSON lines have all") << QString("frames.jsonl") << 4;
    QTest::newRow("a capture has what was on the line") << QString("frames.pcap") << 2;
}

void SavedFramesTest::tellsHowManyTheFileHas()
{
    QFETCH(QString, name);
    Exchange notSent = answeredPoll();
    notSent.replyKind = kx::ReplyKind::NotSent;
    Exchange neverSilent = answeredPoll();
    neverSilent.replyKind = kx::ReplyKind::NeverSilent;
    QTemporaryDir folder;
    QString error;
    QTEST(saveFrames(folder.filePath(name),
                     {answeredPoll(), notSent, neverSilent, unansweredPoll()}, &error),
          "saved");
}

void SavedFramesTest::aFileThatCannotBeWritten()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("none/frames.txt");
    QString error;
    QCOMPARE(saveFrames(path, {answeredPoll()}, &error), -1);
    QVERIFY(error.contains(path));
}

QTEST_GUILESS_MAIN(SavedFramesTest)

#include "tst_saved_frames.moc"
