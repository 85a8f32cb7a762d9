#include "panel/files/whole_range.h"

#include "panel/values/value_address.h"

#include <QtTest/QTest>

using namespace kx;

class WholeRangeTest : public QObject
{
    Q_OBJECT

private slots:
    void addressesOfOneValue_data();
    void addressesOfOneValue();
    void requestsThatHoldNoValue_data();
    void requestsThatHoldNoValue();
};

namespace
{

Tag tagOf(const QString& typed)
{
    Tag tag;
    QString fault;
    parseValueAddress(typed, &tag.range, &tag.format, &fault);
    return tag;
}

} // namespace

void WholeRangeTest::addressesOfOneValue_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("values"); // addresses
    QTest::addColumn<int>("width");
    QTest::newRow("words") << "D100:4" << 4 << 1;
    QTest::newRow("coils") << "M0:8" << 8 << 1;
    QTest::newRow("32CV") << "32CV200:2" << 2 << 1;
    QTest::newRow("four floats") << "D100:4/float" << 8 << 2;
    QTest::newRow("a double") << "D100/double" << 4 << 4;
    QTest::newRow("a text") << "D100/ascii:8" << 8 << 8;
    QTest::newRow("a bit of a word") << "D100.5" << 1 << 1;
}

void WholeRangeTest::addressesOfOneValue()
{
    QFETCH(QString, typed);
    const AddressRange range = wholeRange(tagOf(typed));
    QTEST(range.values, "values");
    QTEST(range.width, "width");
}

void WholeRangeTest::requestsThatHoldNoValue_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<QString>("fault");
    QTest::newRow("a word") << "D100:4" << 1 << "";
    QTest::newRow("a float") << "D100/float" << 2 << "";
    QTest::newRow("a float, one register")
        << "D100/float" << 1 << "a value takes 2 registers; raise --max-words, which is 1";
    QTest::newRow("a double, three registers")
        << "D100/double" << 3 << "a value takes 4 registers; raise --max-words, which is 3";
    QTest::newRow("32CV, one register")
        << "32CV200" << 1 << "a 32CV takes 2 registers; raise --max-words, which is 1";
    QTest::newRow("32CV") << "32CV200/s32" << 2 << "";
}

void WholeRangeTest::requestsThatHoldNoValue()
{
    QFETCH(QString, typed);
    QFETCH(int, maxWords);
    QTEST(requestFault(tagOf(typed), maxWords), "fault");
}

QTEST_GUILESS_MAIN(WholeRangeTest)
#include "tst_whole_range.moc"
