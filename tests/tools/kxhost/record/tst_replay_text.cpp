#include "kxhost/record/replay_text.h"

#include "tools/recording/recording_folder.h"

#include <QtCore/QDateTime>
#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

using namespace kx;

namespace
{

RecordedEvent valueAt(qint64 time, const RecordedValue& value)
{
    RecordedEvent event;
    event.time = time;
    event.value = value;
    return event;
}

RecordedEvent gapAt(qint64 time, GapReason reason)
{
    RecordedEvent event;
    event.time = time;
    event.isGap = true;
    event.reason = reason;
    return event;
}

} // namespace

class ReplayTextTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TZ", "UTC"); }
    void rowsAreThoseOfAWatch();
    void jsonIsThatOfAWatch_data();
    void jsonIsThatOfAWatch();
    void digitsOfHexAndBinAreThoseOfAWatch();
    void onlyNewsIsShown();
};

void ReplayTextTest::rowsAreThoseOfAWatch()
{
    const QList<RecordedTag> tags = pumpTags();
    QCOMPARE(replayRow(tags.first(), valueAt(START + 7, number("4.5"))),
             QStringLiteral("2023-11-14T22:13:20.007 1 D100 (Pressure) 4.5 bar"));
    const RecordedTag flow = {{}, 1, QStringLiteral("D100/float"), {}};
    QCOMPARE(replayRow(flow, valueAt(START, number("0.1"))),
             QStringLiteral("2023-11-14T22:13:20.000 1 D100 0.1"));
    QCOMPARE(replayJson(flow, valueAt(START, number("0.1")))[QLatin1String("format")].toString(),
             QStringLiteral("float"));
    QCOMPARE(replayRow(tags.last(), gapAt(START, GapReason::LineLost)),
             QStringLiteral("2023-11-14T22:13:20.000 2 Y10 line lost"));
}

void ReplayTextTest::jsonIsThatOfAWatch_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("a whole number") << "1234" << true << QByteArray("1234");
    QTest::newRow("a fraction") << "-4.5" << true << QByteArray("-4.5");
    QTest::newRow("text") << "007" << false << QByteArray("\"007\"");
    QTest::newRow("the largest that JSON holds exactly")
        << "9007199254740992" << true << QByteArray("9007199254740992");
    QTest::newRow("more than JSON holds exactly")
        << "9007199254740993" << true << QByteArray("\"9007199254740993\"");
    QTest::newRow("the largest of 64 bits")
        << "18446744073709551615" << true << QByteArray("\"18446744073709551615\"");
    QTest::newRow("the lowest of 64 bits")
        << "-9223372036854775808" << true << QByteArray("\"-9223372036854775808\"");
    QTest::newRow("more digits than JSON holds exactly")
        << "922337203685477580.7" << true << QByteArray("\"922337203685477580.7\"");
    QTest::newRow("the digits of a double")
        << "0.30000000000000004" << true << QByteArray("0.30000000000000004");
    QTest::newRow("not a number") << "nan" << true << QByteArray("\"nan\"");
}

void ReplayTextTest::jsonIsThatOfAWatch()
{
    QFETCH(QString, text);
    QFETCH(bool, isNumber);
    QFETCH(QByteArray, json);
    const QJsonObject object = replayJson(pumpTags().first(), valueAt(START + 7, {text, isNumber}));
    QCOMPARE(QJsonDocument(object).toJson(QJsonDocument::Compact),
             "{\"address\":\"D100\",\"event\":\"change\",\"name\":\"Pressure\",\"station\":1,"
             "\"time\":\"2023-11-14T22:13:20.007Z\",\"unit\":\"bar\",\"value\":"
                 + json + '}');
    QCOMPARE(QJsonDocument(replayJson(pumpTags().last(), gapAt(START, GapReason::NoAnswer)))
                 .toJson(QJsonDocument::Compact),
             QByteArray("{\"address\":\"Y10\",\"event\":\"failure\",\"state\":\"no answer\","
                        "\"station\":2,\"time\":\"2023-11-14T22:13:20.000Z\"}"));
}

// Recordings hold them in decimal, for programs.
void ReplayTextTest::digitsOfHexAndBinAreThoseOfAWatch()
{
    const RecordedTag hex = {{}, 1, QStringLiteral("D1/hex"), {}};
    const RecordedTag bin = {{}, 1, QStringLiteral("D2/bin"), {}};
    QCOMPARE(replayRow(hex, valueAt(START, number("2048"))),
             QStringLiteral("2023-11-14T22:13:20.000 1 D1 0x0800"));
    QCOMPARE(replayRow(bin, valueAt(START, number("5"))),
             QStringLiteral("2023-11-14T22:13:20.000 1 D2 0b0000000000000101"));
    QCOMPARE(replayJson(hex, valueAt(START, number("65535")))[QLatin1String("value")],
             QJsonValue(QStringLiteral("0xFFFF")));
    // No register holds that: somebody has edited the file.
    QCOMPARE(replayRow(hex, valueAt(START, number("65536"))),
             QStringLiteral("2023-11-14T22:13:20.000 1 D1 65536"));
    QCOMPARE(replayRow(hex, valueAt(START, number("4.5"))),
             QStringLiteral("2023-11-14T22:13:20.000 1 D1 4.5"));
}

void ReplayTextTest::onlyNewsIsShown()
{
    ReplayFilter filter(2);
    QVERIFY(filter.isNews(gapAt(START, GapReason::NotYetRead)));
    QVERIFY(filter.isNews(valueAt(START + 1, number("0"))));
    QVERIFY(!filter.isNews(valueAt(START + 2, number("0"))));
    QVERIFY(filter.isNews(valueAt(START + 3, number("1"))));
    QVERIFY(filter.isNews(gapAt(START + 4, GapReason::NoAnswer)));
    QVERIFY(!filter.isNews(gapAt(START + 5, GapReason::NoAnswer)));
    QVERIFY(filter.isNews(gapAt(START + 6, GapReason::LineLost)));
    QVERIFY(filter.isNews(valueAt(START + 7, number("1"))));
    RecordedEvent other = valueAt(START + 8, number("1"));
    other.tag = 1;
    QVERIFY(filter.isNews(other));
}

QTEST_APPLESS_MAIN(ReplayTextTest)
#include "tst_replay_text.moc"
