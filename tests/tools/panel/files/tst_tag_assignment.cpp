// Assignments to addresses with formats, and to the names of tags.

#include "panel/files/tag_assignment.h"
#include "panel/values/value_address.h"

#include <QtTest/QTest>

using namespace kx;

class TagAssignmentTest : public QObject
{
    Q_OBJECT

private slots:
    void assignmentsAreRead_data();
    void assignmentsAreRead();
    void wrongOnesAreRefused_data();
    void wrongOnesAreRefused();
    void valuesKeepTogether();
    void anOrderIsGivenToWhatNamesNone();
};

namespace
{

QList<Tag> tags()
{
    QList<Tag> tags;
    QString error;
    if (!parseTags("name,station,address,count,format,scale,min,max\n"
                   "pump,2,D100,,s16,0.1,0,50\n"
                   "pump=2,,D110,,,,,\n"
                   "levels,,D120,2,float,,,\n"
                   "D5,,D200,,,,,\n"
                   "input,,X7,,,,,\n",
                   QStringLiteral("t.csv"), &tags, &error))
        qFatal("%s", qPrintable(error));
    return tags;
}

/// "pump D100@2 = 125: 12.5": name, address, raw values and the values as they read.
QString parsed(const QString& typed)
{
    TagAssignment assignment;
    QString error;
    if (!parseTagAssignment(typed, tags(), ValueFormat(), &assignment, &error))
        return error;
    QStringList raw;
    for (const qint64 value : assignment.assignment.values)
        raw << QString::number(value);
    return QString::fromLatin1("%1 %2 = %3: %4")
        .arg(assignment.tag.name, valueAddressText(assignment.tag.range, assignment.tag.format),
             raw.join(QLatin1Char(' ')), valuesText(assignment));
}

} // namespace

void TagAssignmentTest::assignmentsAreRead_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("read");
    const auto row = [](const char* name, const char* typed, const char* read) {
        QTest::newRow(name) << QString::fromLatin1(typed) << QString::fromLatin1(read);
    };
    row("a word", "D100@3=0x10", " D100@3 = 16: 16");
    row("several", "D100=1,-2", " D100:2 = 1 -2: 1,-2");
    row("several of a count", "M0:3=1,0,1", " M0:3 = 1 0 1: 1,0,1");
    row("a float", "D100/float=12.5", " D100/float = 0 16712: 12.5");
    row("several floats", "D100/float=12.5,-0", " D100:2/float = 0 16712 0 32768: 12.5,-0");
    row("floats of a count", "D100:2/float=1,0", " D100:2/float = 0 16256 0 0: 1,0");
    row("a text with a comma", "D100/ascii:2=A,B", " D100/ascii:2 = 16684 16896: A,B");
    row("texts of a count", "D100:2/ascii:1=A\\,,B", " D100:2/ascii:1 = 16684 16896: A\\,,B");
    row("a text with an equals sign", "D100/ascii:1=a=", " D100/ascii:1 = 24893: a=");
    row("an empty text", "D100/ascii:1=", " D100/ascii:1 = 0: ");
    row("a bit of a word", "D100.5=1", " D100.5 = 1: 1");
    row("a scale", "D100/s16*0.1+5=12.5", " D100/s16*0.1+5 = 75: 12.5");
    row("a format with options", "D100/u16,min=1,max=5=3", " D100/u16,min=1,max=5 = 3: 3");
    row("a tag", "pump=12.5", "pump D100@2/s16*0.1,min=0,max=50 = 125: 12.5");
    row("the longest name", "pump=2=7", "pump=2 D110 = 7: 7");
    row("a tag of two values", "levels=1,0", "levels D120:2/float = 0 16256 0 0: 1,0");
    row("a tag that is named like an address", "D5=1", "D5 D200 = 1: 1");
}

void TagAssignmentTest::assignmentsAreRead()
{
    QFETCH(QString, typed);
    QTEST(parsed(typed), "read");
}

void TagAssignmentTest::wrongOnesAreRefused_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const char* typed, const char* error) {
        QTest::newRow(name) << QString::fromLatin1(typed) << QString::fromLatin1(error);
    };
    row("no assignment", "D100",
        "D100: not an assignment; write ADDRESS=VALUE[,VALUE...], such as D100=1234");
    row("no assignment behind options", "D100/u16,min=1",
        "D100/u16,min=1: not an assignment; write ADDRESS=VALUE[,VALUE...], such as D100=1234");
    row("an unknown name", "fan=1",
        "fan: unknown register type 'fan'; the types are X, Y, M, SM, S, T, C, D, SD, CV, 32CV, "
        "TV, "
        "Z; nor is it the name of a tag");
    row("a wrong address", "X8=1",
        "X8: '8' is not an octal number; the addresses are X0 to X377 (octal); nor is "
        "it the name of a tag");
    row("an input", "X7=1", "X7=1: X7 is an input and cannot be written");
    row("a tag of an input", "input=1", "input=1: X7 is an input and cannot be written");
    row("a bit of a timer", "TV3.0=1",
        "TV3.0=1: TV3.0 cannot be written; the bits of TV change by themselves between the read "
        "and the write of the word, so write all of it");
    row("a bit of a counter", "CV3.0=1",
        "CV3.0=1: CV3.0 cannot be written; the bits of CV change by themselves between the read "
        "and the write of the word, so write all of it");
    row("a bit of the system", "SD3.0=1",
        "SD3.0=1: SD3.0 cannot be written; the bits of SD change by themselves between the read "
        "and the write of the word, so write all of it");
    row("bits of a word", "D100.5=1,0", "D100.5=1,0: one bit of a word has no count");
    row("above the maximum", "pump=50.1",
        "pump=50.1: 50.1 is refused; it must be at least 0 and at most 50");
    row("fewer values than the tag has", "levels=1", "levels=1: 1 value for a count of 2");
    row("more values than counted", "D100:1/float=1,2",
        "D100:1/float=1,2: 2 values for a count of 1");
    row("no value", "D100=", "D100=: '' is not a decimal, 0x hexadecimal or 0b binary number");
    row("past the end", "D7999=1,2",
        "D7999=1,2: 2 values run past the last address; the addresses are D0 to D7999 (decimal)");
    row("a value over a gap", "SD253/u32=1,2",
        "SD253/u32=1,2: the value from SD255 to SD256 lies on both sides of a gap in the "
        "controller's registers");
}

void TagAssignmentTest::wrongOnesAreRefused()
{
    QFETCH(QString, typed);
    QTEST(parsed(typed), "error");
}

void TagAssignmentTest::valuesKeepTogether()
{
    TagAssignment assignment;
    QString error;
    QVERIFY(parseTagAssignment("D100:3@7/u64=1,2,3", {}, ValueFormat(), &assignment, &error));
    QCOMPARE(assignment.assignment.range.width, 4);
    QCOMPARE(assignment.assignment.bit, -1);
    QCOMPARE(assignment.assignment.range.values, 12);
    QCOMPARE(assignment.assignment.range.station, 7);
    QVERIFY(parseTagAssignment("Z3.15=1", {}, ValueFormat(), &assignment, &error));
    QCOMPARE(assignment.assignment.bit, 15);
    QCOMPARE(assignment.assignment.values, QList<qint64>{1});
    QCOMPARE(rawOfValue(assignment, 0), QList<qint64>{0x8000});
}

void TagAssignmentTest::anOrderIsGivenToWhatNamesNone()
{
    ValueFormat order;
    order.order = WordOrder::HighFirst;
    TagAssignment assignment;
    QString error;
    QVERIFY(parseTagAssignment("D100/float=12.5", {}, order, &assignment, &error));
    QCOMPARE(assignment.assignment.values, (QList<qint64>{0x4148, 0}));
    QVERIFY(parseTagAssignment("D100/float,low=12.5", {}, order, &assignment, &error));
    QCOMPARE(assignment.assignment.values, (QList<qint64>{0, 0x4148}));
}

QTEST_APPLESS_MAIN(TagAssignmentTest)
#include "tst_tag_assignment.moc"
