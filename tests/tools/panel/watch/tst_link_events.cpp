#include "data/reply_handling.h"
#include "panel/watch/link_events.h"

#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

using namespace kx;

class LinkEventsTest : public QObject
{
    Q_OBJECT

private slots:
    void eventsAreToldOncePerChange_data();
    void eventsAreToldOncePerChange();
    void stationsAreToldApart();
    void manySilentStationsTakeOneRow();
    void theLineIsToldApartFromItsFirstOpening();
    void textAndJson_data();
    void textAndJson();
};

namespace
{

ExchangeRecord record(ReplyKind kind, int result, int station = 1)
{
    ExchangeRecord record;
    record.job.station = station;
    record.replyKind = kind;
    record.result = result;
    return record;
}

QString textOf(const QList<LinkEvent>& events)
{
    QStringList texts;
    for (const LinkEvent& event : events)
        texts << linkEventText(event);
    return texts.join(QLatin1Char('|'));
}

using Records = QList<ExchangeRecord>;

} // namespace

Q_DECLARE_METATYPE(Records)

void LinkEventsTest::eventsAreToldOncePerChange_data()
{
    QTest::addColumn<Records>("records");
    QTest::addColumn<QString>("events");
    const ExchangeRecord good = record(ReplyKind::Good, REPLY_ACCEPTED);
    const ExchangeRecord repeated = record(ReplyKind::None, REPLY_RETRY);
    const ExchangeRecord dead = record(ReplyKind::None, REPLY_FAILED);
    const ExchangeRecord refused = record(ReplyKind::Exception, REPLY_FAILED);
    const ExchangeRecord flooded = record(ReplyKind::NeverSilent, REPLY_FAILED);
    const ExchangeRecord noise = record(ReplyKind::Bad, REPLY_RETRY);
    const auto row = [](const char* name, const Records& records, const char* events) {
        QTest::newRow(name) << records << QString::fromLatin1(events);
    };
    row("all well", {good, good}, "");
    row("a repeat that helped", {repeated, repeated, good}, "");
    row("silent from the first request", {repeated, dead, repeated, dead},
        "station 1 does not answer");
    row("silent and back", {good, dead, dead, good, good},
        "station 1 does not answer|station 1 answers again");
    row("twice", {dead, good, dead, good},
        "station 1 does not answer|station 1 answers again|station 1 does not answer|"
        "station 1 answers again");
    row("a refusal is an answer", {refused, dead, refused},
        "station 1 does not answer|station 1 answers again");
    row("damaged", {record(ReplyKind::Bad, REPLY_FAILED)}, "station 1 does not answer");
    row("cut short", {record(ReplyKind::Short, REPLY_FAILED)}, "station 1 does not answer");
    row("others only", {record(ReplyKind::Foreign, REPLY_FAILED)}, "station 1 does not answer");
    row("the line lost", {record(ReplyKind::Lost, REPLY_FAILED)}, "");
    row("a broadcast", {record(ReplyKind::Broadcast, REPLY_FAILED, 0)}, "");
    row("not whole", {record(ReplyKind::NotSent, REPLY_FAILED)}, "");
    row("flooded and dry again", {good, flooded, flooded, noise, flooded, good},
        "line never silent|line silent again");
}

void LinkEventsTest::eventsAreToldOncePerChange()
{
    QFETCH(Records, records);
    LinkState link;
    QList<LinkEvent> events;
    for (const ExchangeRecord& record : records)
        events += link.onExchange(record);
    QTEST(textOf(events), "events");
}

void LinkEventsTest::stationsAreToldApart()
{
    LinkState link;
    link.onExchange(record(ReplyKind::None, REPLY_FAILED, 7));
    QCOMPARE(textOf(link.onExchange(record(ReplyKind::None, REPLY_FAILED, 2))),
             QStringLiteral("station 2 does not answer"));
    QCOMPARE(link.faultText(), QStringLiteral("stations 2, 7 do not answer"));
    QCOMPARE(textOf(link.onExchange(record(ReplyKind::Good, REPLY_ACCEPTED, 7))),
             QStringLiteral("station 7 answers again"));
    QCOMPARE(link.faultText(), QStringLiteral("station 2 does not answer"));
}

void LinkEventsTest::manySilentStationsTakeOneRow()
{
    LinkState link;
    for (const int station : {247, 16, 14, 15, 1, 2, 9})
        link.onExchange(record(ReplyKind::None, REPLY_FAILED, station));
    QCOMPARE(link.faultText(), QStringLiteral("stations 1-2, 9, 14-16, 247 do not answer"));
    link.onLineLost();
    QCOMPARE(link.faultText(),
             QStringLiteral("line lost; stations 1-2, 9, 14-16, 247 do not answer"));
}

void LinkEventsTest::theLineIsToldApartFromItsFirstOpening()
{
    LinkState link;
    QCOMPARE(textOf(link.onLineOpened()), QString());
    QCOMPARE(textOf(link.onLineLost()), QStringLiteral("line lost"));
    QCOMPARE(link.faultText(), QStringLiteral("line lost"));
    QCOMPARE(textOf(link.onLineOpened()), QStringLiteral("line open again"));
    QCOMPARE(link.faultText(), QString());
}

void LinkEventsTest::textAndJson_data()
{
    QTest::addColumn<LinkEvent>("event");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("json");
    const auto row = [](LinkEvent event, const char* text, const QByteArray& json) {
        QTest::newRow(text) << event << QLatin1String("2024-05-17T10:11:12.013 ") + text
                            << "{\"event\":" + json.left(json.indexOf(','))
                                   + ",\"time\":\"2024-05-17T10:11:12.013Z\""
                                   + json.mid(json.indexOf(',')) + '}';
    };
    row({LinkEvent::LineLost}, "line lost", R"("line","state":"lost")");
    row({LinkEvent::LineOpened}, "line open again", R"("line","state":"open")");
    row({LinkEvent::LineNeverSilent}, "line never silent", R"("line","state":"never silent")");
    row({LinkEvent::LineSilent}, "line silent again", R"("line","state":"silent")");
    row({LinkEvent::StationSilent, 2}, "station 2 does not answer",
        R"("station","station":2,"state":"no answer")");
    row({LinkEvent::StationBack, 2}, "station 2 answers again",
        R"("station","station":2,"state":"answering")");
    LinkEvent shortened = {LinkEvent::RequestsShortened, 2};
    shortened.rules.maxWords = 62;
    row(shortened,
        "station 2 refuses requests; it is asked for at most 62 registers or 2000 coils at once",
        R"("station","station":2,"state":"short requests","registers":62,"coils":2000,"gaps":true)");
    shortened.rules.maySpanGaps = false;
    row(shortened,
        "station 2 refuses requests; it is asked for at most 62 registers or 2000 coils at once; "
        "addresses between are not read along",
        R"("station","station":2,"state":"short requests","registers":62,"coils":2000,"gaps":false)");
}

void LinkEventsTest::textAndJson()
{
    QFETCH(LinkEvent, event);
    QFETCH(QByteArray, json);
    const QDateTime time(QDate(2024, 5, 17), QTime(10, 11, 12, 13));
    QTEST(linkEventRow(event, time), "line");
    const QDateTime utc(time.date(), time.time(), Qt::UTC);
    QCOMPARE(linkEventJson(event, utc.toLocalTime()), QJsonDocument::fromJson(json).object());
}

QTEST_APPLESS_MAIN(LinkEventsTest)
#include "tst_link_events.moc"
