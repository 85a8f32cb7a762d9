// One line of a sequence each: what it means, and why it is refused.

#include "panel/values/value_address.h"
#include "sequence_fixture.h"

#include <QtTest/QTest>

using namespace kx;

Q_DECLARE_METATYPE(kx::Comparison)

namespace
{

QString valuesText(const QList<qint64>& values)
{
    QStringList texts;
    for (const qint64 value : values)
        texts << QString::number(value);
    return texts.join(QLatin1Char(' '));
}

/// "7", or "6.5 7.5" of a range.
QString comparedWith(const Condition& condition)
{
    if (condition.comparison == Comparison::Equal || condition.comparison == Comparison::NotEqual)
        return condition.shown;
    const QString low = condition.low.text();
    return condition.comparison == Comparison::Within
               ? low + QLatin1Char(' ') + condition.high.text()
               : low;
}

} // namespace

class StepParserTest : public QObject
{
    Q_OBJECT

private slots:
    void writes_data();
    void writes();
    void conditions_data();
    void conditions();
    void times_data();
    void times();
    void faults_data();
    void faults();
    void longValuesNeedLongRequests();
    void theOrderOfWordsIsGiven();
};

void StepParserTest::writes_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("values"); // one per address
    QTest::newRow("a tag") << QByteArray("write pump = 1") << "Y10@1"
                           << "1";
    QTest::newRow("without blanks") << QByteArray("write pump=1") << "Y10@1"
                                    << "1";
    QTest::newRow("a bit by its word") << QByteArray("write pump = on") << "Y10@1"
                                       << "1";
    QTest::newRow("a bit off") << QByteArray("write Y10@3 = off") << "Y10@3"
                               << "0";
    QTest::newRow("a quoted tag of another station")
        << QByteArray("write \"Pump running\" = 1") << "M5@2"
        << "1";
    // 4.5 bar is 45 tenths.
    QTest::newRow("a scaled tag") << QByteArray("write pressure = 4.5") << "D100@1/u16*0.1,unit=bar"
                                  << "45";
    QTest::newRow("several values") << QByteArray("write recipe = 1, 2,0x10 , -1") << "D200:4@1"
                                    << "1 2 16 -1";
    // 12.5 is 0x41480000, 0.5 is 0x3F000000; the low word comes first.
    QTest::newRow("floats") << QByteArray("write D100:2/float = 12.5, 0.5 # a comment")
                            << "D100:2@1/float"
                            << "0 16712 0 16128";
    QTest::newRow("a text with blanks, two characters a register")
        << QByteArray("write serial = \"A B\"") << "D300@1/ascii:4"
        << "16672 16896 0 0";
    QTest::newRow("a tag whose name is an address, quoted")
        << QByteArray("write \"M1\" = 1") << "Y7@1"
        << "1";
    QTest::newRow("the address instead") << QByteArray("write M1@1 = 1") << "M1@1"
                                         << "1";
    QTest::newRow("one bit of a word") << QByteArray("write D7.5 = on") << "D7.5@1"
                                       << "1";
}

void StepParserTest::writes()
{
    QFETCH(QByteArray, line);
    const Sequence sequence = sequenceOf(line);
    QCOMPARE(sequence.steps.size(), 1);
    const Step& step = sequence.steps.first();
    QVERIFY(step.kind == StepKind::Write);
    QTEST(valueAddressText(step.tag.range, step.tag.format), "address");
    QTEST(valuesText(step.values), "values");
}

void StepParserTest::conditions_data()
{
    QTest::addColumn<QByteArray>("condition"); // behind "expect"
    QTest::addColumn<QString>("text");
    QTest::addColumn<Comparison>("comparison");
    QTest::addColumn<QString>("with");
    QTest::newRow("equal") << QByteArray("level = 7") << "= 7" << Comparison::Equal << "7";
    QTest::newRow("unequal") << QByteArray("level!=7") << "!= 7" << Comparison::NotEqual << "7";
    QTest::newRow("below") << QByteArray("level<7") << "< 7" << Comparison::Less << "7";
    QTest::newRow("at most") << QByteArray("level <=7") << "<= 7" << Comparison::AtMost << "7";
    QTest::newRow("above") << QByteArray("level > -7") << "> -7" << Comparison::Greater << "-7";
    QTest::newRow("at least") << QByteArray("level>= 7") << ">= 7" << Comparison::AtLeast << "7";
    QTest::newRow("a tolerance") << QByteArray("level = 7 +- 0.5") << "= 7 +- 0.5"
                                 << Comparison::Within << "6.5 7.5";
    QTest::newRow("a tolerance without blanks")
        << QByteArray("level=7+-0.5") << "= 7 +- 0.5" << Comparison::Within << "6.5 7.5";
    QTest::newRow("a tolerance that doubles round")
        << QByteArray("level = 0.3 +- 0.1") << "= 0.3 +- 0.1" << Comparison::Within << "0.2 0.4";
    QTest::newRow("a range") << QByteArray("level in 1..5") << "in 1..5" << Comparison::Within
                             << "1 5";
    QTest::newRow("a range with blanks and points")
        << QByteArray("level in -1.5 .. 2.5") << "in -1.5..2.5" << Comparison::Within << "-1.5 2.5";
    QTest::newRow("a bit by its word")
        << QByteArray("pump = on") << "= on" << Comparison::Equal << "1";
    QTest::newRow("one bit of a word")
        << QByteArray("D7.15 = on") << "= on" << Comparison::Equal << "1";
    QTest::newRow("a scaled tag as it is shown")
        << QByteArray("pressure = 4") << "= 4" << Comparison::Equal << "4.0";
    QTest::newRow("between two values of a tag")
        << QByteArray("pressure > 4.53") << "> 4.53" << Comparison::Greater << "4.53";
    QTest::newRow("a negative number for a word without sign")
        << QByteArray("level = -1") << "= -1" << Comparison::Equal << "65535";
    QTest::newRow("hexadecimal") << QByteArray("D7/hex = 0x4d2") << "= 0x4d2" << Comparison::Equal
                                 << "0x04D2";
    QTest::newRow("text") << QByteArray("serial = \"A B\"") << "= \"A B\"" << Comparison::Equal
                          << "A B";
    QTest::newRow("the float that is nearest")
        << QByteArray("D0/float = 0.1") << "= 0.1" << Comparison::Equal << "0.1";
    QTest::newRow("outside of what may be written")
        << QByteArray("\"M1\" = off") << "= off" << Comparison::Equal << "0";
}

void StepParserTest::conditions()
{
    QFETCH(QByteArray, condition);
    QFETCH(Comparison, comparison);
    for (const char* const line : {"expect %", "wait % within 10s"}) {
        const Sequence sequence = sequenceOf(QByteArray(line).replace('%', condition));
        const Step& step = sequence.steps.first();
        QVERIFY(step.condition.comparison == comparison);
        QTEST(step.condition.text, "text");
        QTEST(comparedWith(step.condition), "with");
    }
}

void StepParserTest::times_data()
{
    QTest::addColumn<QByteArray>("time");
    QTest::addColumn<qint64>("microseconds");
    QTest::newRow("milliseconds") << QByteArray("200ms") << qint64(200000);
    QTest::newRow("seconds with a blank and a fraction") << QByteArray("2.5 s") << qint64(2500000);
    QTest::newRow("a day") << QByteArray("1440min # all of it") << qint64(86400000000);
}

void StepParserTest::times()
{
    QFETCH(QByteArray, time);
    for (const QByteArray line : {"pause ", "wait level = 7 within "})
        QTEST(sequenceOf(line + time).steps.first().time, "microseconds");
}

void StepParserTest::faults_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("fault"); // column: text
    const auto row = [](const char* name, const char* line, const char* fault) {
        QTest::newRow(name) << QByteArray(line) << QString::fromUtf8(fault);
    };
    row("no step", "  wirte pump = 1",
        "3: 'wirte' is no step; a line begins with write, wait, expect, pause, finally or tags");
    row("nothing named", "write", "6: the name of a tag, or an address, must follow");
    row("neither tag nor address", "write pmup = 1",
        "7: 'pmup' is no tag, and as an address unknown register type 'pmup'; ");
    row("no tag of that name", "write \"pmup\" = 1", "7: no tag is named 'pmup'");
    row("an octal digit", "expect X8 = 1", "8: 'X8' is no tag, and as an address ");
    row("tag and address", "write M1 = 1",
        "7: M1 is an address, and the name of the tag at Y7; write \"M1\" in quotes for the tag, "
        "or the address with its @STATION");
    row("an input", "write X10 = 1", "11: X10@1 is an input and cannot be written");
    row("a bit of a word that changes by itself", "write SD7.5 = 1",
        "13: SD7.5@1: the controller changes this word by itself, so that one bit of it cannot be "
        "written; write the whole word");
    row("no value", "write pump", "11: a value must follow: write NAME = VALUE");
    row("no value behind =", "write pump =", "13: a value must follow");
    row("no value behind a comma", "write recipe = 1,2,,4", "20: a value must follow");
    row("too few values", "write recipe = 1, 2", "16: 2 values for 4 values");
    row("another value", "write pump = 2", "14: 2 ");
    row("a word for a register", "write level = on", "15: 'on' ");
    row("too much", "write pump = 1 2", "16: '2' is too much on this line");
    row("no comparison", "expect level", "13: a comparison must follow: = != < <= > >= or in 1..5");
    row("another comparison", "expect level is 7",
        "14: a comparison must follow: = != < <= > >= or in 1..5");
    row("two signs for one", "expect level == 7", "15: '=' ");
    row("several values compared", "expect recipe = 1",
        "15: recipe (D200@1) holds 4 values; compare one of them");
    row("no number", "expect level > high", "16: 'high' is not a decimal number");
    row("between two values of a tag", "expect pressure = 4.53",
        "19: '4.53' lies between two of its values, of which 4.5 is the nearest; write = 4.53 +- "
        "0.5, "
        "say, or in LOWEST..HIGHEST");
    row("outside of a register", "expect level = 70000", "16: 70000 does not fit; ");
    row("half a range", "expect level in 1", "18: the highest value must follow: in 1..5");
    row("a range turned round", "expect level in 5..1",
        "17: nothing is in 5..1; the lower value stands first");
    row("a tolerance of an inequality", "expect level != 7 +- 1", "17: +- goes with = alone");
    row("a negative tolerance", "expect level = 7 +- -1", "21: a tolerance is not negative");
    row("a text in an order", "expect serial > 5",
        "15: serial (D300@1) is not a number; compare it with = or !=");
    row("a text with a tolerance", "expect serial = 7 +- 1",
        "22: serial (D300@1) is not a number, and has no tolerance");
    row("a quote not closed", "write serial = \"A B", "16: a quote is not closed");
    row("no longest time", "wait level = 7", "15: a wait ends with its longest time: within 10s");
    row("too much of a condition", "expect level = 7 within 10s",
        "18: 'within 10s' is too much on this line");
    row("a time without unit", "pause 200",
        "7: pause 200: must be a time of at most a day with its unit, such as 200ms, 10s or 5min");
    row("no time", "wait level = 7 within",
        "22: within : must be a time of at most a day with its unit, such as 200ms, 10s or 5min");
    row("a time of nothing", "pause 0s",
        "7: pause 0s: must be a time of at most a day with its unit, such as 200ms, 10s or 5min");
    row("more than a day", "pause 1441min",
        "7: pause 1441min: must be a time of at most a day with its unit, such as 200ms, 10s or "
        "5min");
}

void StepParserTest::faults()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, fault);
    SequenceContext context;
    context.tags = someTags();
    Sequence sequence;
    const QList<SequenceFault> faults = parseSequence(line, context, &sequence);
    QCOMPARE(faults.size(), 1);
    QCOMPARE(faults.first().line, 1);
    const QString found =
        QStringLiteral("%1: %2").arg(faults.first().column).arg(faults.first().text);
    // What an address or a value lacks, others say.
    if (fault.endsWith(QLatin1Char(' '))) {
        QCOMPARE(found.left(fault.size()), fault);
        QVERIFY(found.size() > fault.size());
    } else {
        QCOMPARE(found, fault);
    }
}

void StepParserTest::longValuesNeedLongRequests()
{
    SequenceContext context;
    context.maxWords = 3;
    Sequence sequence;
    QVERIFY(parseSequence("expect D0/float = 1", context, &sequence).isEmpty());
    const QList<SequenceFault> faults = parseSequence("expect D0/double = 1", context, &sequence);
    QCOMPARE(faults.size(), 1);
    QCOMPARE(faults.first().text,
             QStringLiteral("a value takes 4 registers; raise --max-words, which is 3"));
}

void StepParserTest::theOrderOfWordsIsGiven()
{
    SequenceContext context;
    context.order.order = WordOrder::HighFirst;
    Sequence sequence;
    QVERIFY(parseSequence("write D0/u32 = 0x10002\nwrite D0/u32,low = 0x10002", context, &sequence)
                .isEmpty());
    QCOMPARE(sequence.steps.at(0).values, (QList<qint64>{1, 2}));
    QCOMPARE(sequence.steps.at(1).values, (QList<qint64>{2, 1}));
}

QTEST_GUILESS_MAIN(StepParserTest)
#include "tst_step_parser.moc"
