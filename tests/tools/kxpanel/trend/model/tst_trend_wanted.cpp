#include "kxpanel/trend/model/trend_wanted.h"

#include "trend_tags.h"

#include <QtTest/QTest>

using kxpanel::TagList;
using kxpanel::tagOf;
using kxpanel::TrendWanted;

namespace
{

QJsonObject wantedOf(const char* name, int station, const char* address)
{
    return {{"name", name}, {"station", station}, {"address", address}};
}

QList<int> numbersOf(const QList<TrendWanted::Found>& found)
{
    QList<int> numbers;
    for (const TrendWanted::Found& one : found)
        numbers << one.number;
    return numbers;
}

bool isNone(int)
{
    return false;
}

} // namespace

class TrendWantedTest : public QObject
{
    Q_OBJECT

private slots:
    void findsByNameStationAndAddress()
    {
        TagList tags;
        const QList<int> numbers = tags.insert(
            0, {tagOf("Flow", "D1@1/u16"), tagOf("", "D1@1/u16"), tagOf("Flow 2", "D1@2/u16")});
        TrendWanted wanted;
        wanted.set({wantedOf("Flow 2", 2, "D1/u16"), wantedOf("Flow", 1, "D1/s16"),
                    wantedOf("", 1, "D1/u16"), 7});
        QCOMPARE(numbersOf(wanted.take(tags, isNone, 64)),
                 (QList<int>{numbers.at(2), numbers.at(1)}));
        QCOMPARE(wanted.left(), (QJsonArray{wantedOf("Flow", 1, "D1/s16"), 7}));
        QCOMPARE(numbersOf(wanted.take(tags, isNone, 64)), QList<int>());
    }

    void alikeOnesAreTakenEachOnce()
    {
        TagList tags;
        const QList<int> numbers = tags.insert(0, {tagOf("", "D1@1"), tagOf("", "D1@1")});
        TrendWanted wanted;
        wanted.set({wantedOf("", 1, "D1"), wantedOf("", 1, "D1"), wantedOf("", 1, "D1")});
        QCOMPARE(numbersOf(wanted.take(tags, isNone, 64)), numbers);
        QCOMPARE(wanted.left().size(), 1);
    }

    void thoseThatAreThereAndThoseWithoutRoomWait()
    {
        TagList tags;
        const QList<int> numbers = tags.insert(0, {tagOf("", "D1@1"), tagOf("", "D2@1")});
        TrendWanted wanted;
        wanted.set({wantedOf("", 1, "D1"), wantedOf("", 1, "D2")});
        QCOMPARE(numbersOf(wanted.take(
                     tags, [&](int number) { return number == numbers.at(0); }, 64)),
                 QList<int>{numbers.at(1)});
        QCOMPARE(numbersOf(wanted.take(tags, isNone, 0)), QList<int>());
        QCOMPARE(wanted.left().size(), 1);
    }
};

QTEST_APPLESS_MAIN(TrendWantedTest)
#include "tst_trend_wanted.moc"
