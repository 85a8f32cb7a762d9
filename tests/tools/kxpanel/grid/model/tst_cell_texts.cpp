#include "kxpanel/grid/model/cell_texts.h"

#include "panel/text/duration.h"
#include "tools/kxpanel/tag_samples.h"

using namespace kxpanel;

namespace
{

const qint64 NOW = 1000000; // milliseconds

WatchedValue d0()
{
    return {1, tagOf("D0")};
}

Reading failed(kx::WatchState state, const QList<qint64>& raw)
{
    Reading reading = readingOf(1, raw, NOW - 5000);
    reading.state = state;
    return reading;
}

Reading changedAgo(qint64 milliseconds)
{
    Reading reading = readingOf(1, {5}, NOW);
    reading.changedAt = NOW - milliseconds;
    return reading;
}

ValueWrite writeOf(ValueWrite::Phase phase, qint64 agoEnded = 0)
{
    ValueWrite write;
    write.phase = phase;
    write.text = QStringLiteral("7");
    write.reason = phase == ValueWrite::Failed ? QStringLiteral("no reply") : QString();
    write.endedAt = NOW - agoEnded;
    return write;
}

} // namespace

class CellTextsTest : public QObject
{
    Q_OBJECT

private slots:
    void states_data();
    void states();
    void withoutALineNothingIsOk();
    void everyStateHasASymbolOfItsOwn();
    void values_data();
    void values();
    void whatIsKnownNow_data();
    void whatIsKnownNow();
    void registersAndNumbers_data();
    void registersAndNumbers();
    void formats_data();
    void formats();
    void intervals_data();
    void intervals();
    void ages_data();
    void ages();
};

Q_DECLARE_METATYPE(ValueWrite)

void CellTextsTest::states_data()
{
    QTest::addColumn<Reading>("reading");
    QTest::addColumn<QList<ValueWrite>>("writes"); // none or one
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const Reading& reading, const QList<ValueWrite>& writes,
                        const char* text) {
        QTest::newRow(name) << reading << writes << QString::fromLatin1(text);
    };
    const Reading ok = changedAgo(5000);
    row("never read", Reading(), {}, "never read");
    row("read", ok, {}, "ok");
    row("changed just now", changedAgo(999), {}, "changed");
    row("changed a second ago", changedAgo(1000), {}, "ok");
    row("silent", failed(kx::WatchState::NoAnswer, {5}), {}, "no answer");
    row("refused", failed(kx::WatchState::Refused, {}), {}, "refused");
    const Reading seven = readingOf(1, {7}, NOW); // as it was written
    row("just written", seven, {writeOf(ValueWrite::Confirmed, 2999)}, "written");
    row("written some time ago", seven, {writeOf(ValueWrite::Confirmed, 3000)}, "ok");
    row("written, not read since", readingOf(1, {5}, NOW - 200),
        {writeOf(ValueWrite::Confirmed, 100)}, "written");
    row("written, then changed by the controller", changedAgo(0),
        {writeOf(ValueWrite::Confirmed, 100)}, "changed");
    row("written, and set back before it was read", ok, {writeOf(ValueWrite::Confirmed, 100)},
        "ok");
    row("written, and silent since", failed(kx::WatchState::NoAnswer, {5}),
        {writeOf(ValueWrite::Confirmed)}, "no answer");
    row("not written", ok, {writeOf(ValueWrite::Failed, 9999)}, "not written: no reply");
    row("not written some time ago", ok, {writeOf(ValueWrite::Failed, 10000)}, "ok");
}

void CellTextsTest::withoutALineNothingIsOk()
{
    const auto state = [](const Reading& reading, const ValueWrite* write) {
        return stateText(cellStateOf(d0(), reading, write, NOW, false), write);
    };
    const ValueWrite waiting = writeOf(ValueWrite::Waiting);
    const ValueWrite written = writeOf(ValueWrite::Confirmed, 100);
    QCOMPARE(state(changedAgo(100), nullptr), QStringLiteral("no line"));
    QCOMPARE(state(changedAgo(5000), nullptr), QStringLiteral("no line"));
    QCOMPARE(state(readingOf(1, {7}, NOW), &written), QStringLiteral("written"));
    QCOMPARE(state(changedAgo(5000), &waiting), QString::fromUtf8("writing\u2026"));
    QCOMPARE(state(Reading(), nullptr), QStringLiteral("never read"));
    QCOMPARE(state(failed(kx::WatchState::NoAnswer, {5}), nullptr), QStringLiteral("no answer"));
}

void CellTextsTest::states()
{
    QFETCH(Reading, reading);
    QFETCH(QList<ValueWrite>, writes);
    const ValueWrite* const write = writes.isEmpty() ? nullptr : &writes.first();
    QTEST(stateText(cellStateOf(d0(), reading, write, NOW), write), "text");
}

void CellTextsTest::everyStateHasASymbolOfItsOwn()
{
    QSet<QString> symbols;
    for (int state = 0; state <= static_cast<int>(CellState::NoAnswer); ++state)
        symbols.insert(stateSymbol(static_cast<CellState>(state)));
    QCOMPARE(symbols.size(), 9);
    const ValueWrite waiting = writeOf(ValueWrite::Waiting);
    QVERIFY(cellStateOf(d0(), Reading(), &waiting, NOW) == CellState::Waiting);
}

void CellTextsTest::values_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QList<qint64>>("raw");
    QTest::addColumn<QList<ValueWrite>>("writes");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const char* address, const QList<qint64>& raw,
                        const QList<ValueWrite>& writes, const char* text) {
        QTest::newRow(name) << QString::fromLatin1(address) << raw << writes
                            << QString::fromLatin1(text);
    };
    row("a word", "D0", {65535}, {}, "65535");
    row("without its unit", "D0/s16*0.1,unit=bar", {65535}, {}, "-0.1");
    row("a bit of a word", "D0.5", {0x20}, {}, "1");
    row("two registers", "D0/float", {0x0000, 0x4148}, {}, "12.5");
    row("never read", "D0", {}, {}, "");
    row("being written", "D0", {5}, {writeOf(ValueWrite::Writing)}, "7");
    row("to be written", "D0", {5}, {writeOf(ValueWrite::Waiting)}, "7");
    row("confirmed, not read since", "D0", {5}, {writeOf(ValueWrite::Confirmed)}, "7");
    row("confirmed, read since", "D0", {5}, {writeOf(ValueWrite::Confirmed, 60000)}, "5");
    row("not written: the old one again", "D0", {5}, {writeOf(ValueWrite::Failed)}, "5");
}

void CellTextsTest::values()
{
    QFETCH(QString, address);
    QFETCH(QList<qint64>, raw);
    QFETCH(QList<ValueWrite>, writes);
    const WatchedValue value = {1, tagOf(qPrintable(address))};
    const Reading reading = readingOf(1, raw, NOW - 500);
    QTEST(valueCellText(value, reading, writes.isEmpty() ? nullptr : &writes.first()), "text");
}

void CellTextsTest::whatIsKnownNow_data()
{
    QTest::addColumn<Reading>("reading");
    QTest::addColumn<QList<ValueWrite>>("writes");
    QTest::addColumn<bool>("known");
    const auto row = [](const char* name, const Reading& reading, const QList<ValueWrite>& writes,
                        bool known) { QTest::newRow(name) << reading << writes << known; };
    const Reading ok = readingOf(1, {5}, NOW - 500);
    row("read", ok, {}, true);
    row("never read", Reading(), {}, false);
    row("silent", failed(kx::WatchState::NoAnswer, {5}), {}, false);
    row("being written", ok, {writeOf(ValueWrite::Writing)}, false);
    row("confirmed", ok, {writeOf(ValueWrite::Confirmed)}, true);
    row("not confirmed, which may have been carried out", ok, {writeOf(ValueWrite::Failed, 400)},
        false);
    row("not confirmed, read since", ok, {writeOf(ValueWrite::Failed, 600)}, true);
}

void CellTextsTest::whatIsKnownNow()
{
    QFETCH(Reading, reading);
    QFETCH(QList<ValueWrite>, writes);
    QTEST(isKnownNow(reading, writes.isEmpty() ? nullptr : &writes.first()), "known");
}

void CellTextsTest::registersAndNumbers_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QList<qint64>>("raw");
    QTest::addColumn<QString>("hex");
    QTest::addColumn<QString>("modbus");
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("switched");
    QTest::newRow("a word") << "D100" << QList<qint64>{1234} << "0x04D2"
                            << "register 100"
                            << "" << false;
    QTest::newRow("an octal input") << "X377" << QList<qint64>{1} << "1"
                                    << "coil 1455"
                                    << "" << true;
    QTest::newRow("in the second range") << "M2048" << QList<qint64>{} << ""
                                         << "coil 12000"
                                         << "" << true;
    QTest::newRow("two registers")
        << "D100/float*0.1,unit=bar" << QList<qint64>{0, 0x4148} << "0x0000 0x4148"
        << "registers 100 to 101"
        << "float*0.1" << false;
    QTest::newRow("a bit of a word") << "D120.5" << QList<qint64>{0x20} << "0x0020"
                                     << "register 120"
                                     << "" << true;
    QTest::newRow("a counter") << "32CV200" << QList<qint64>{100000} << "0x000186A0"
                               << "registers 9700 to 9701"
                               << "" << false;
}

void CellTextsTest::registersAndNumbers()
{
    QFETCH(QString, address);
    QFETCH(QList<qint64>, raw);
    const WatchedValue value = {1, tagOf(qPrintable(address))};
    QTEST(rawText(value, readingOf(1, raw)), "hex");
    QTEST(modbusCellText(value.tag.range), "modbus");
    QTEST(formatCellText(value.tag.format), "format");
    QTEST(isSwitch(value.tag), "switched");
}

void CellTextsTest::formats_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const char* address, const char* text) {
        QTest::newRow(name) << QString::fromLatin1(address) << QString::fromUtf8(text);
    };
    row("plain", "D0", "");
    row("plain with a unit", "D0/,unit=rpm", "");
    row("plain with limits", "D0/,min=0,max=1500,unit=rpm", "0\u20261500");
    row("a lowest value alone", "D0/s16,min=-5", "s16, \u2265 -5");
    row("a highest value alone", "D0/s16,max=5", "s16, \u2264 5");
    row("scaled, with decimals", "D0/s16*0.1+5,decimals=2", "s16*0.1+5, 0.00");
    row("scaled to whole numbers", "D0/s16*10,decimals=0", "s16*10, 0");
    row("order of registers", "D0/u32,high,swapped,min=1,max=9", "u32, high, swapped, 1\u20269");
    row("an order that is the usual one", "D0/float,low", "float, low");
    row("a bit of a word", "D0.5", "");
}

void CellTextsTest::formats()
{
    QFETCH(QString, address);
    QTEST(formatCellText(tagOf(qPrintable(address)).format), "text");
}

void CellTextsTest::intervals_data()
{
    QTest::addColumn<int>("milliseconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("none of its own") << -1 << "";
    QTest::newRow("in each cycle") << 0 << "0 ms";
    QTest::newRow("milliseconds") << 1500 << "1500 ms";
    QTest::newRow("seconds") << 90000 << "90 s";
    QTest::newRow("minutes") << 120000 << "2 min";
    QTest::newRow("a day") << 86400000 << "1440 min";
}

void CellTextsTest::intervals()
{
    QFETCH(int, milliseconds);
    const QString text = intervalText(milliseconds);
    QTEST(text, "text");
    int again = -1;
    QCOMPARE(kx::parseInterval(text, &again), milliseconds >= 0);
    QCOMPARE(again, milliseconds);
}

void CellTextsTest::ages_data()
{
    QTest::addColumn<qint64>("age");
    QTest::addColumn<QString>("text");
    QTest::newRow("now") << qint64(0) << "0.0 s";
    QTest::newRow("read by a clock ahead") << qint64(-200) << "0.0 s";
    QTest::newRow("tenths") << qint64(1260) << "1.3 s";
    QTest::newRow("minutes") << qint64(60000) << "1 min";
    QTest::newRow("hours") << qint64(7200000) << "2 h";
}

void CellTextsTest::ages()
{
    QFETCH(qint64, age);
    const qint64 now = 1000000000;
    QTEST(ageText(readingOf(1, {5}, now - age), now), "text");
    QCOMPARE(ageText(readingOf(1, {}, 0), now), QString());
}

QTEST_GUILESS_MAIN(CellTextsTest)
#include "tst_cell_texts.moc"
