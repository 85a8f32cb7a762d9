// Which replies to a scan count as a station's answer.

#include "panel/jobs/scan_reply.h"

#include "support/driver_fixture.h"

#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

using namespace kx;

class ScanReplyTest : public QObject
{
    Q_OBJECT

private slots:
    void aReplyCounts_data();
    void aReplyCounts();
};

void ScanReplyTest::aReplyCounts_data()
{
    QTest::addColumn<ReplyKind>("kind");
    QTest::addColumn<int>("exception");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("the register") // station 5, function 3, 2 bytes, value 1
        << ReplyKind::Good << 0 << withCrc("05 03 02 00 01") << "station 5: answered"
        << QByteArray("{\"answer\":\"value\",\"event\":\"station\",\"station\":5}");
    QTest::newRow("a refusal") // station 5, function 3 refused, illegal data address
        << ReplyKind::Exception << 2 << withCrc("05 83 02")
        << "station 5: answered with exception 2 (illegal data address)"
        << QByteArray("{\"answer\":\"exception\",\"event\":\"station\",\"exception\":2,"
                      "\"station\":5}");
    QTest::newRow("the late reply of the station before")
        << ReplyKind::Foreign << 0 << withCrc("04 03 02 00 01")
        << "station 4: answered with another or a late reply"
        << QByteArray("{\"answer\":\"other\",\"event\":\"station\",\"station\":4}");
    QTest::newRow("a wrong byte count")
        << ReplyKind::WrongByteCount << 0 << withCrc("05 03 03 00 01")
        << "station 5: answered with a wrong byte count"
        << QByteArray("{\"answer\":\"other\",\"event\":\"station\",\"station\":5}");
    QTest::newRow("the shortest frame")
        << ReplyKind::Short << 0 << withCrc("05 11")
        << "station 5: answered with another or a late reply"
        << QByteArray("{\"answer\":\"other\",\"event\":\"station\",\"station\":5}");
    QTest::newRow("a gateway's word that the station is silent")
        << ReplyKind::Exception << 11 << withCrc("05 83 0B") << QString() << QByteArray();
    QTest::newRow("silence") << ReplyKind::None << 0 << QByteArray() << QString() << QByteArray();
    QTest::newRow("half a reply") << ReplyKind::Short << 0 << bytes("05 03 02") << QString()
                                  << QByteArray();
    QTest::newRow("a wrong CRC") << ReplyKind::Bad << 0 << bytes("05 03 02 00 01 00 00")
                                 << QString() << QByteArray();
    QTest::newRow("a CRC and a station are no frame")
        << ReplyKind::Short << 0 << withCrc("05") << QString() << QByteArray();
}

void ScanReplyTest::aReplyCounts()
{
    QFETCH(ReplyKind, kind);
    QFETCH(int, exception);
    QFETCH(QByteArray, reply);
    QFETCH(QString, line);
    ExchangeRecord record;
    record.job.station = 5;
    record.replyKind = kind;
    record.exceptionCode = exception;
    record.reply = reply;
    const ScanReply judged = scanReplyOf(record);
    QCOMPARE(judged.answer != ScanAnswer::None, !line.isEmpty());
    if (line.isEmpty())
        return;
    QCOMPARE(scanRow(judged), line);
    QTEST(QJsonDocument(scanJson(judged)).toJson(QJsonDocument::Compact), "json");
}

QTEST_APPLESS_MAIN(ScanReplyTest)
#include "tst_scan_reply.moc"
