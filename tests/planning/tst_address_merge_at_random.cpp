#include "planning/address_merge.h"
#include "planning/merge_passes.h"
#include "planning/range_text.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <random>

namespace
{

const int LISTS = 600;
const int MOST_ENTRIES = 24;

class RandomRanges
{
public:
    QList<KEY_ADDRESS> list()
    {
        const int firstAddress = oneOf({0, 190, 240, 2030});
        QList<KEY_ADDRESS> list;
        for (int i = number(1, MOST_ENTRIES); i > 0; --i) {
            const char* types[] = {"SD", "M", "SM", "32CV", "D", "C", "Y", "Q"};
            list << key(number(0, 2), types[number(0, 7)], firstAddress + number(0, 60),
                        number(1, 20) == 1 ? number(-3, 70) : number(1, 6));
            list.last().keyTag1 = i;
            list.last().data[1023] = static_cast<unsigned char>(i);
        }
        return list;
    }

    int maxWords() { return oneOf({-1, 0, 1, 4, 8, 16, 32, 125}); }

private:
    int number(int lowest, int highest)
    {
        return lowest + static_cast<int>(m_engine() % static_cast<unsigned>(highest - lowest + 1));
    }

    int oneOf(const std::vector<int>& values)
    {
        return values[static_cast<size_t>(number(0, static_cast<int>(values.size()) - 1))];
    }

    std::mt19937 m_engine{20240607}; // a fixed seed: the same lists in every run
};

QString wholeText(const QList<KEY_ADDRESS>& blocks)
{
    QString openers;
    for (const KEY_ADDRESS& block : blocks)
        openers += QString(" %1/%2").arg(block.keyTag1).arg(int(block.data[1023]));
    return textOf(blocks) + openers;
}

} // namespace

class AddressMergeAtRandomTest : public QObject
{
    Q_OBJECT

private slots:
    void mergesAsThePlainPassesDo();
};

void AddressMergeAtRandomTest::mergesAsThePlainPassesDo()
{
    DriverFixture runtime;
    RandomRanges random;
    for (int round = 0; round < LISTS; ++round) {
        const QList<KEY_ADDRESS> entries = random.list();
        driver.maxWords = random.maxWords();
        QList<KEY_ADDRESS> read = entries;
        addrMerge(read, 1);
        QCOMPARE(wholeText(read), wholeText(plainMergeForReading(entries, driver.maxWords)));

        driver.intList.clear();
        QList<KEY_ADDRESS> recipe = entries;
        addrMerge(recipe, 2);
        QList<int> starts;
        QCOMPARE(wholeText(recipe),
                 wholeText(plainMergeForRecipe(entries, driver.maxWords, starts)));
        QCOMPARE(driver.intList, starts);
    }
}

QTEST_APPLESS_MAIN(AddressMergeAtRandomTest)
#include "tst_address_merge_at_random.moc"
