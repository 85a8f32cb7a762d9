#include "kxpanel/frames/saved_frames.h"

#include "../sample_exchanges.h"

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
    void theNameTellsWhich_data();
    void theNameTellsWhich();
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
    QCOMPARE(framesAsJson({unansweredPoll()}),
             QByteArray(
                 "{\"event\":\"exchange\",\"finished\":\"2026-11-22T10:00:00.300Z\","
                 "\"outcome\":\"no reply\",\"repeated\":false,\"reply\":\"\",\"replyFields\":\"\","
                 "\"request\":\"01 03 00 64 00 02 85 D4\",\"requestFields\":\"station 01, "
                 "function 03, address 00 64, quantity 00 02, CRC 85 D4\","
                 "\"result\":\"repeated\",\"sent\":\"2026-11-22T10:00:00.000Z\"}\n"));
}

void SavedFramesTest::theNameTellsWhich_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isJson");
    QTest::newRow("text") << QString("frames.txt") << false;
    QTest::newRow("no ending") << QString("frames") << false;
    QTest::newRow("JSON lines") << QString("frames.jsonl") << true;
    QTest::newRow("JSON in capitals") << QString("FRAMES.JSON") << true;
}

void SavedFramesTest::theNameTellsWhich()
{
    QFETCH(QString, name);
    QTemporaryDir folder;
    QString error;
    QVERIFY(saveFrames(folder.filePath(name), {answeredPoll()}, &error));
    QTEST(contentOf(folder.filePath(name)).startsWith('{'), "isJson");
}

void SavedFramesTest::aFileThatCannotBeWritten()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("none/frames.txt");
    QString error;
    QVERIFY(!saveFrames(path, {answeredPoll()}, &error));
    QVERIFY(error.contains(path));
}

QTEST_GUILESS_MAIN(SavedFramesTest)

#include "tst_saved_frames.moc"
