#include "kxhost/views/watch/printed_views.h"
#include "tools/panel/watch/watch_entries.h"

#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

using namespace kx;

class PrintedViewsTest : public QObject
{
    Q_OBJECT

private slots:
    // Lines show local time, JSON shows UTC.
    void initTestCase() { qputenv("TZ", "UTC"); }
    void entries_data();
    void entries();
    void formattedEntries_data();
    void formattedEntries();
    void namedEntries_data();
    void namedEntries();
};

void PrintedViewsTest::entries_data()
{
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<qint64>("value");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("json");
    const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
    const int ok = int(WatchState::Ok);
    QTest::newRow("word") << QByteArray("D100") << qint64(1234) << ok
                          << text("2024-05-17T10:11:12.013 1 D100 1234")
                          << QByteArray(R"({"event":"change","time":"2024-05-17T10:11:12.013Z",)"
                                        R"("station":1,"address":"D100","value":1234})");
    QTest::newRow("octal address")
        << QByteArray("X17@2") << qint64(1) << ok << text("2024-05-17T10:11:12.013 2 X17 1")
        << QByteArray(R"({"event":"change","time":"2024-05-17T10:11:12.013Z",)"
                      R"("station":2,"address":"X17","value":1})");
    QTest::newRow("no answer") << QByteArray("D100") << qint64(1234) << int(WatchState::NoAnswer)
                               << text("2024-05-17T10:11:12.013 1 D100 no answer")
                               << QByteArray(
                                      R"({"event":"failure","time":"2024-05-17T10:11:12.013Z",)"
                                      R"("station":1,"address":"D100","state":"no answer"})");
    QTest::newRow("refused") << QByteArray("D100") << qint64(1234) << int(WatchState::Refused)
                             << text("2024-05-17T10:11:12.013 1 D100 refused")
                             << QByteArray(
                                    R"({"event":"failure","time":"2024-05-17T10:11:12.013Z",)"
                                    R"("station":1,"address":"D100","state":"refused"})");
}

void PrintedViewsTest::entries()
{
    QFETCH(QByteArray, address);
    QFETCH(qint64, value);
    QFETCH(int, state);
    QFETCH(QByteArray, json);
    const QDateTime time(QDate(2024, 5, 17), QTime(10, 11, 12, 13));
    WatchEntry entry = entryOf(address.constData(), value);
    entry.state = static_cast<WatchState>(state);
    QTEST(entryRow(entry, time), "line");
    QCOMPARE(entryJson(entry, time), QJsonDocument::fromJson(json).object());
}

void PrintedViewsTest::formattedEntries_data()
{
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<QList<qint64>>("raw");
    QTest::addColumn<QString>("line"); // behind time and station
    QTest::addColumn<QByteArray>("json");
    // 12.5 is 0x41480000.
    QTest::newRow("a float, the low word first")
        << QByteArray("D100/float") << QList<qint64>{0, 0x4148} << "D100 12.5"
        << QByteArray(R"("address":"D100","format":"float","raw":[0,16712],"value":12.5)");
    QTest::newRow("a scale and a unit")
        << QByteArray("D100/s16*0.1+5,unit=bar") << QList<qint64>{75} << "D100 12.5 bar"
        << QByteArray(R"("address":"D100","format":"s16*0.1+5","raw":[75],"unit":"bar",)"
                      R"("value":12.5)");
    QTest::newRow("a bit of a word") << QByteArray("D100.5") << QList<qint64>{0x0020} << "D100.5 1"
                                     << QByteArray(R"("address":"D100.5","raw":[32],"value":1)");
    QTest::newRow("text") << QByteArray("D100/ascii:2") << QList<qint64>{0x4142, 0x4300}
                          << "D100 ABC"
                          << QByteArray(R"("address":"D100","format":"ascii:2",)"
                                        R"("raw":[16706,17152],"value":"ABC")");
    // 2^53 + 1: a number of JSON would lose the 1.
    QTest::newRow("more digits than JSON has")
        << QByteArray("D100/u64") << QList<qint64>{1, 0, 0, 0x20} << "D100 9007199254740993"
        << QByteArray(R"("address":"D100","format":"u64","raw":[1,0,0,32],)"
                      R"("value":"9007199254740993")");
}

void PrintedViewsTest::formattedEntries()
{
    QFETCH(QByteArray, address);
    QFETCH(QList<qint64>, raw);
    QFETCH(QString, line);
    QFETCH(QByteArray, json);
    const QDateTime time(QDate(2024, 5, 17), QTime(10, 11, 12, 13));
    const WatchEntry entry = entryOf(address.constData(), raw);
    QCOMPARE(entryRow(entry, time), QStringLiteral("2024-05-17T10:11:12.013 1 ") + line);
    const QByteArray all =
        R"({"event":"change","time":"2024-05-17T10:11:12.013Z","station":1,)" + json + "}";
    QCOMPARE(entryJson(entry, time), QJsonDocument::fromJson(all).object());
}

void PrintedViewsTest::namedEntries_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("json");
    const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
    QTest::newRow("value") << text("Pump speed") << int(WatchState::Ok)
                           << text("2024-05-17T10:11:12.013 1 D100 (Pump speed) 1234")
                           << QByteArray(R"({"event":"change","time":"2024-05-17T10:11:12.013Z",)"
                                         R"("station":1,"address":"D100","name":"Pump speed",)"
                                         R"("value":1234})");
    QTest::newRow("no answer") << text("Pump speed") << int(WatchState::NoAnswer)
                               << text("2024-05-17T10:11:12.013 1 D100 (Pump speed) no answer")
                               << QByteArray(
                                      R"({"event":"failure","time":"2024-05-17T10:11:12.013Z",)"
                                      R"("station":1,"address":"D100","name":"Pump speed",)"
                                      R"("state":"no answer"})");
    QTest::newRow("percent sign in the name")
        << text("Valve %3 %4") << int(WatchState::Ok)
        << text("2024-05-17T10:11:12.013 1 D100 (Valve %3 %4) 1234")
        << QByteArray(R"({"event":"change","time":"2024-05-17T10:11:12.013Z",)"
                      R"("station":1,"address":"D100","name":"Valve %3 %4","value":1234})");
}

void PrintedViewsTest::namedEntries()
{
    QFETCH(QString, name);
    QFETCH(int, state);
    QFETCH(QByteArray, json);
    const QDateTime time(QDate(2024, 5, 17), QTime(10, 11, 12, 13));
    WatchEntry entry = entryOf("D100", 1234);
    entry.name = name;
    entry.state = static_cast<WatchState>(state);
    QTEST(entryRow(entry, time), "line");
    QCOMPARE(entryJson(entry, time), QJsonDocument::fromJson(json).object());
}

QTEST_GUILESS_MAIN(PrintedViewsTest)
#include "tst_printed_views.moc"
