#include "kxpanel/tags/tag_list.h"

#include "tools/kxpanel/tag_samples.h"

#include <QtTest/QSignalSpy>

using namespace kxpanel;

namespace
{

QStringList shownNames(const TagList& list)
{
    QStringList names;
    for (const WatchedValue& value : list.values())
        names << TagList::shownName(value);
    return names;
}

} // namespace

class TagListTest : public QObject
{
    Q_OBJECT

private slots:
    void aCountBecomesSingleValues();
    void namesAreKeptUnlike();
    void insertsInFrontOfARow();
    void numbersAreNeverGivenAgain();
    void aReadingStaysWithItsValue();
    void otherRegistersForgetTheReading_data();
    void otherRegistersForgetTheReading();
    void undoneRegistersForgetTheReading();
    void aReadingOfOtherLengthIsLeftOut();
    void aReadingOfOtherRegistersIsLeftOut_data();
    void aReadingOfOtherRegistersIsLeftOut();
    void tellsWhichRowsWereRead();
    void timesGoWithTheClock();
};

void TagListTest::aCountBecomesSingleValues()
{
    TagList list;
    QCOMPARE(list.insert(0, {tagOf("D110:3@2/float", "Flow"), tagOf("M0:2")}),
             (QList<int>{1, 2, 3, 4, 5}));
    QCOMPARE(shownNames(list), (QStringList{"Flow 1", "Flow 2", "Flow 3", "M0", "M1"}));
    const kx::AddressRange third = list.find(3)->tag.range;
    QCOMPARE(third.address, 114);
    QCOMPARE(third.values, 2);
    QCOMPARE(third.width, 2);
    QCOMPARE(third.station, 2);
}

void TagListTest::namesAreKeptUnlike()
{
    TagList list;
    list.insert(0, {tagOf("D0", "Flow"), tagOf("D1", "Flow"), tagOf("D2"), tagOf("D3.5")});
    list.insert(4, {tagOf("D4", "Flow"), tagOf("D5:2", "Flow")});
    QCOMPARE(shownNames(list),
             (QStringList{"Flow", "Flow 2", "D2", "D3.5", "Flow 3", "Flow 1", "Flow 2 2"}));
}

void TagListTest::insertsInFrontOfARow()
{
    TagList list;
    list.insert(0, {tagOf("D0"), tagOf("D1")});
    list.insert(1, {tagOf("X17")});
    QCOMPARE(shownNames(list), (QStringList{"D0", "X17", "D1"}));
    QCOMPARE(list.rowOf(3), 1);
    QCOMPARE(list.rowOf(4), -1);
    QVERIFY(!list.find(4));
}

void TagListTest::numbersAreNeverGivenAgain()
{
    TagList list;
    list.insert(0, {tagOf("D0"), tagOf("D1")});
    list.remove({1, 2});
    QCOMPARE(list.size(), 0);
    QCOMPARE(list.insert(0, {tagOf("D0")}), QList<int>{3});
}

void TagListTest::aReadingStaysWithItsValue()
{
    TagList list;
    list.insert(0, {tagOf("D0"), tagOf("D1")});
    list.takeReadings({readingOf(2, {42})});
    list.insert(0, {tagOf("D7")});
    list.remove({1});
    kx::Tag renamed = list.find(2)->tag;
    renamed.name = QStringLiteral("Speed");
    renamed.format.kind = kx::ValueKind::S16;
    list.replace(2, renamed);
    QCOMPARE(list.reading(2).raw, QList<qint64>{42});
    QVERIFY(list.reading(3).raw.isEmpty());
    QVERIFY(list.reading(1).raw.isEmpty());
}

void TagListTest::otherRegistersForgetTheReading_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("another address") << "D1";
    QTest::newRow("another type") << "SD0";
    QTest::newRow("another station") << "D0@2";
    QTest::newRow("more registers") << "D0/float";
}

void TagListTest::otherRegistersForgetTheReading()
{
    QFETCH(QString, address);
    TagList list;
    list.insert(0, {tagOf("D0")});
    list.takeReadings({readingOf(1, {42})});
    list.replace(1, tagOf(qPrintable(address)));
    QVERIFY(list.reading(1).raw.isEmpty());
    QVERIFY(list.reading(1).state == kx::WatchState::NeverRead);
    QCOMPARE(list.reading(1).number, 1);
}

void TagListTest::undoneRegistersForgetTheReading()
{
    TagList list;
    list.insert(0, {tagOf("D0")});
    const QList<WatchedValue> before = list.values();
    list.replace(1, tagOf("D1"));
    list.takeReadings({readingOf(1, {42})});
    list.setValues(before);
    QVERIFY(list.reading(1).raw.isEmpty());
}

void TagListTest::aReadingOfOtherLengthIsLeftOut()
{
    TagList list;
    list.insert(0, {tagOf("D0/float")});
    list.takeReadings({readingOf(1, {42})}); // of the one register before an edit
    QVERIFY(list.reading(1).raw.isEmpty());
}

void TagListTest::aReadingOfOtherRegistersIsLeftOut_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("the same") << "D100@2" << true;
    QTest::newRow("another address") << "D101@2" << false;
    QTest::newRow("another type") << "SD100@2" << false;
    QTest::newRow("another station") << "D100@3" << false;
}

// It was under way while the value was edited.
void TagListTest::aReadingOfOtherRegistersIsLeftOut()
{
    QFETCH(QString, address);
    TagList list;
    list.insert(0, {tagOf(qPrintable(address))});
    const kx::AddressRange read = tagOf("D100@2").range;
    Reading reading = readingOf(1, {42});
    reading.type = read.type;
    reading.station = read.station;
    reading.address = read.address;
    list.takeReadings({reading});
    QTEST(!list.reading(1).raw.isEmpty(), "isTaken");
}

void TagListTest::tellsWhichRowsWereRead()
{
    TagList list;
    list.insert(0, {tagOf("D0"), tagOf("D1"), tagOf("D2")});
    QSignalSpy read(&list, &TagList::readingsChanged);
    list.takeReadings({readingOf(3, {1}), readingOf(1, {2}), readingOf(9, {3}), readingOf(3, {4})});
    QCOMPARE(read.size(), 1);
    QCOMPARE(read.first().first().value<QVector<int>>(), (QVector<int>{0, 2})); // each once
    QCOMPARE(list.reading(3).raw, QList<qint64>{4});
    list.takeReadings({readingOf(9, {3})});
    QCOMPARE(read.size(), 1);
}

void TagListTest::timesGoWithTheClock()
{
    TagList list;
    list.insert(0, {tagOf("D0"), tagOf("D1")});
    Reading reading;
    reading.number = 1;
    reading.state = kx::WatchState::Ok;
    reading.raw = {7};
    reading.readAt = 5000000;
    list.takeReadings({reading});
    const QSignalSpy read(&list, &TagList::readingsChanged);
    list.shiftReadings(3600000);
    QCOMPARE(list.reading(1).readAt, qint64(8600000));
    QCOMPARE(list.reading(1).changedAt, qint64(0)); // it never did
    QCOMPARE(list.reading(2).readAt, qint64(0));
    QCOMPARE(read.size(), 1);
}

QTEST_GUILESS_MAIN(TagListTest)
#include "tst_tag_list.moc"
