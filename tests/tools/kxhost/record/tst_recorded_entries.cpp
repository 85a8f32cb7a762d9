#include "kxhost/record/recorded_entries.h"

#include "panel/values/value_address.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

/// Of one value, which holds these words.
WatchEntry entryOf(const QString& typed, const QList<qint64>& raw)
{
    Tag tag;
    tag.name = QStringLiteral("Flow");
    QString fault;
    if (!parseValueAddress(typed, &tag.range, &tag.format, &fault))
        qFatal("%s", qPrintable(fault));
    WatchEntry entry = WatchList({tag}).entries().first();
    entry.isKnown = !raw.isEmpty();
    entry.value = raw.value(0);
    entry.others = raw.mid(1);
    return entry;
}

} // namespace

class RecordedEntriesTest : public QObject
{
    Q_OBJECT

private slots:
    void tagsAndValues_data();
    void tagsAndValues();
    void reasons_data();
    void reasons();
};

void RecordedEntriesTest::tagsAndValues_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QList<qint64>>("raw");
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isNumber");
    const auto row = [](const char* name, const char* typed, const QList<qint64>& raw,
                        const char* address, const char* unit, const char* text, bool isNumber) {
        QTest::newRow(name) << QString::fromLatin1(typed) << raw << QString::fromLatin1(address)
                            << QString::fromLatin1(unit) << QString::fromLatin1(text) << isNumber;
    };
    row("a word", "D100@2", {65535}, "D100", "", "65535", true);
    row("an octal input", "X17@2", {1}, "X17", "", "1", true);
    row("a bit of a word", "D100.5@2", {0x20}, "D100.5", "", "1", true);
    row("with sign and scale", "D100@2/s16*0.1+5,unit=bar", {0xFFFF}, "D100/s16*0.1+5", "bar",
        "4.9", true);
    row("digits that are shown do not matter", "D100@2/s16,decimals=2,min=0,max=9", {3}, "D100/s16",
        "", "3.00", true);
    row("hexadecimal is a number", "D100@2/hex", {1234}, "D100/hex", "", "1234", true);
    row("hexadecimal with swapped bytes", "D100@2/hex,swapped", {0x3412}, "D100/hex,swapped", "",
        "4660", true);
    row("binary is a number", "D100@2/bin", {5}, "D100/bin", "", "5", true);
    row("a decimal digit above 9 is text", "D100@2/bcd", {0x12A4}, "D100/bcd", "", "0x12A4", false);
    row("a float", "D100@2/float", {0x0000, 0x4148}, "D100/float", "", "12.5", true);
    row("an infinite float is text", "D100@2/float", {0x0000, 0x7F80}, "D100/float", "", "inf",
        false);
    row("what is no number is text", "D100@2/float", {0x0000, 0x7FC0}, "D100/float", "", "nan",
        false);
    row("64 bits in full", "D100@2/u64", {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF}, "D100/u64", "",
        "18446744073709551615", true);
    row("digits as text", "D100@2/ascii:2", {0x3030, 0x3700}, "D100/ascii:2", "", "007", false);
}

void RecordedEntriesTest::tagsAndValues()
{
    QFETCH(QString, typed);
    QFETCH(QList<qint64>, raw);
    const WatchEntry entry = entryOf(typed, raw);
    const QList<RecordedTag> tags = recordedTags({entry});
    QCOMPARE(tags.size(), 1);
    QCOMPARE(tags.first().name, QStringLiteral("Flow"));
    QCOMPARE(tags.first().station, 2);
    QTEST(tags.first().address, "address");
    QTEST(tags.first().unit, "unit");
    const RecordedValue value = recordedValue(entry);
    QTEST(value.text, "text");
    QTEST(value.isNumber, "isNumber");
}

void RecordedEntriesTest::reasons_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("reason");
    QTest::newRow("never read") << int(WatchState::NeverRead) << "not yet read";
    QTest::newRow("no answer") << int(WatchState::NoAnswer) << "no answer";
    QTest::newRow("refused") << int(WatchState::Refused) << "refused";
}

void RecordedEntriesTest::reasons()
{
    QFETCH(int, state);
    WatchEntry entry = entryOf(QStringLiteral("D0"), {});
    entry.state = static_cast<WatchState>(state);
    QTEST(gapText(gapReason(entry)), "reason");
}

QTEST_APPLESS_MAIN(RecordedEntriesTest)
#include "tst_recorded_entries.moc"
