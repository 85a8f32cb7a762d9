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

/// In a recording without other formats.
QString rowOf(const RecordedTag& tag, const RecordedEvent& event)
{
    return replayRow(tag, replayPlaces({tag}).first(), event);
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
    void jsonOfFloatsKeepsTheirDigitsAndSign();
    void digitsOfHexAndBinAreThoseOfAWatch();
    void addressesInSeveralFormatsNameThem();
    void onlyNewsIsShown();
};

void ReplayTextTest::rowsAreThoseOfAWatch()
{
    const QList<RecordedTag> tags = pumpTags();
    QCOMPARE(rowOf(tags.first(), valueAt(START + 7, number("4.5"))),
             QStringLiteral("2023-11-14T22:13:20.007 1 D100 (Pressure) 4.5 bar"));
    const RecordedTag flow = {{}, 1, QStringLiteral("D100/float"), {}};
    QCOMPARE(rowOf(flow, valueAt(START, number("0.1"))),
             QStringLiteral("2023-11-14T22:13:20.000 1 D100 0.1"));
    QCOMPARE(replayJson(flow, valueAt(START, number("0.1")))[QLatin1String("format")].toString(),
             QStringLiteral("float"));
    QCOMPARE(rowOf(tags.last(), gapAt(START, GapReason::LineLost)),
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
    QTest::newRow("15 digits") << "999999999999999" << true << QByteArray("999999999999999");
    QTest::newRow("more digits although JSON holds it exactly")
        << "9007199254740992" << true << QByteArray("\"9007199254740992\"");
    QTest::newRow("more than JSON holds exactly")
        << "9007199254740993" << true << QByteArray("\"9007199254740993\"");
    QTest::newRow("the largest of 64 bits")
        << "18446744073709551615" << true << QByteArray("\"18446744073709551615\"");
    QTest::newRow("the lowest of 64 bits")
        << "-9223372036854775808" << true << QByteArray("\"-9223372036854775808\"");
    QTest::newRow("more digits than JSON holds exactly")
        << "922337203685477580.7" << true << QByteArray("\"922337203685477580.7\"");
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

void ReplayTextTest::jsonOfFloatsKeepsTheirDigitsAndSign()
{
    const RecordedTag flow = {{}, 1, QStringLiteral("D100/double*0.1"), {}};
    const auto json = [&flow](const char* text) -> QJsonValue {
        return replayJson(flow, valueAt(START, number(text)))[QLatin1String("value")];
    };
    QCOMPARE(json("0.30000000000000004"), QJsonValue(0.30000000000000004));
    QCOMPARE(json("9007199254740992"), QJsonValue(9007199254740992.0));
    QCOMPARE(json("-0"), QJsonValue(QStringLiteral("-0")));
    QCOMPARE(json("0"), QJsonValue(0));
}

// Recordings hold them in decimal, for programs.
void ReplayTextTest::digitsOfHexAndBinAreThoseOfAWatch()
{
    const RecordedTag hex = {{}, 1, QStringLiteral("D1/hex"), {}};
    const RecordedTag bin = {{}, 1, QStringLiteral("D2/bin"), {}};
    QCOMPARE(rowOf(hex, valueAt(START, number("2048"))),
             QStringLiteral("2023-11-14T22:13:20.000 1 D1 0x0800"));
    QCOMPARE(rowOf(bin, valueAt(START, number("5"))),
             QStringLiteral("2023-11-14T22:13:20.000 1 D2 0b0000000000000101"));
    QCOMPARE(replayJson(hex, valueAt(START, number("65535")))[QLatin1String("value")],
             QJsonValue(QStringLiteral("0xFFFF")));
    // No register holds that: somebody has edited the file.
    QCOMPARE(rowOf(hex, valueAt(START, number("65536"))),
             QStringLiteral("2023-11-14T22:13:20.000 1 D1 65536"));
    QCOMPARE(rowOf(hex, valueAt(START, number("4.5"))),
             QStringLiteral("2023-11-14T22:13:20.000 1 D1 4.5"));
}

// As a watch of the same addresses does.
void ReplayTextTest::addressesInSeveralFormatsNameThem()
{
    const QList<RecordedTag> tags = {
        {{}, 1, QStringLiteral("D100/float"), {}},
        {{}, 1, QStringLiteral("D100"), {}},
        {{}, 2, QStringLiteral("D100/hex"), {}},                         // of another station
        {{}, 1, QStringLiteral("D100.5"), {}},                           // a bit names itself
        {QStringLiteral("Flow"), 1, QStringLiteral("D110/s16*0.1"), {}}, // twice alike
        {QStringLiteral("Old flow"), 1, QStringLiteral("D110/s16*0.1"), {}}};
    QCOMPARE(replayPlaces(tags),
             QStringList({"D100/float", "D100", "D100", "D100.5", "D110", "D110"}));
    QCOMPARE(replayRow(tags.first(), QStringLiteral("D100/float"), valueAt(START, number("0.1"))),
             QStringLiteral("2023-11-14T22:13:20.000 1 D100/float 0.1"));
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
