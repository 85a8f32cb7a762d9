// What the cache, intf_getData(), the recipe buffer and the end of a condition read
// hold after the value-change function has called back into the driver.

#include "data/reentry_steps.h"

#include <QtTest/QTest>

namespace
{

/// Values as texts, one per address: "0100", while a write is pending "3333p0200" with
/// the value read last behind it, "-" without a record.
struct Outcome {
    const char* situation;
    const char* type;
    int first;
    int count;
    const char* undisturbed;
    const char* afterWrites;
    const char* afterInitialising;
};

// The writes are of D1 and D2, Y1 to Y3 (off) and 32CV1, in every report. A nested
// write of an address that the outer call has yet to store is overwritten by it, one
// of an address yet to be confirmed is confirmed in its place.
const Outcome OUTCOMES[] = {
    {"coils written", "Y", 0, 3, "01p00 01p00 01p00", "01p00 00p00 01p00", "- - 01p00"},
    {"words written", "D", 0, 3, "0100p0000 0200p0000 0300p0000", "0100p0000 3333p0000 0300p0000",
     "0100p0000 0200p0000 0300p0000"},
    {"32CV written", "32CV", 0, 2, "01000000p00000000 02000000p00000000",
     "01000000p00000000 02000000p00000000", "01000000p00000000 02000000p00000000"},
    // Reported are the coils that differ from the reply's bytes: the first four.
    {"coils read", "Y", 0, 5, "01 01 01 01 01", "01 00p01 00p01 00p01 01", "- - - 01 01"},
    {"words read", "D", 0, 3, "0100 0200 0300", "0100 3333p0200 4444p0300", "0100 0200 0300"},
    {"32CV read", "32CV", 0, 2, "01000000 02000000", "01000000 44444444p02000000",
     "01000000 02000000"},
    {"recipe words read", "D", 0, 3, "0100 0200 0300", "0100 3333p0200 4444p0300",
     "0100 0200 0300"},
    {"recipe 32CV read", "32CV", 0, 3, "01000000 02000000 03000000",
     "01000000 44444444p02000000 03000000", "01000000 02000000 03000000"},
    {"coils confirmed", "Y", 0, 3, "01 01 01", "01 00p00 00p00", "- - -"},
    {"words confirmed", "D", 0, 3, "0100 0200 0300", "0100 3333p3333 4444p4444", "- - -"},
    {"32CV confirmed", "32CV", 0, 2, "01000000 02000000", "01000000 44444444p44444444",
     "- 00000000"},
    {"coils failed", "Y", 0, 3, "00 00 00", "00 00p00 00p00", "- - -"},
    {"words failed", "D", 0, 3, "0000 0000 0000", "0000 3333p0000 4444p0000", "0000 0000 0000"},
    {"32CV failed", "32CV", 0, 2, "00000000 00000000", "00000000 44444444p00000000", "- 00000000"},
    {"condition read done", "TV", 5, 1, "2143", "2143", "-"},
    {"condition read failed", "TV", 5, 1, "0000", "0000", "-"},
};

/// One address as in the table.
QByteArray heldAt(const char* type, int address)
{
    const int size = qstrcmp(type, "Y") == 0 ? 1 : qstrcmp(type, "32CV") == 0 ? 4 : 2;
    const bool isThere = isCached(1, type, address);
    const bool isWritten = isPending(1, type, address);
    const QByteArray read = readValue(1, type, address).left(size).toHex();
    const QByteArray seen = DriverFixture::data(1, type, address, size == 4 ? 2 : 1, size).toHex();
    if (!isThere)
        return seen.count('0') == seen.size() ? QByteArray("-") : "seen only: " + seen;
    if (isWritten)
        return seen + 'p' + read;
    return seen == read ? seen : seen + " instead of " + read;
}

QByteArray held(const Outcome& outcome)
{
    QList<QByteArray> texts;
    for (int i = 0; i < outcome.count; ++i)
        texts << heldAt(outcome.type, outcome.first + i);
    return texts.join(" ");
}

bool initialises(const QByteArray& action)
{
    return action == "initialises again" || action == "does all of it";
}

bool dropsTheRecipe(const QByteArray& action)
{
    return action == "drops the recipe" || action == "does all of it";
}

/// What the table says for that action.
QByteArray expected(const Outcome& outcome, const QByteArray& action)
{
    if (action == "writes")
        return outcome.afterWrites;
    return initialises(action) ? outcome.afterInitialising : outcome.undisturbed;
}

typedef std::vector<unsigned short> Words;

/// Words 0 to 5, 10 and 20 of the recipe buffer.
Words recipeWords(const DriverFixture& runtime)
{
    Words words(runtime.recipe.begin(), runtime.recipe.begin() + 6);
    words.push_back(runtime.recipe[10]);
    words.push_back(runtime.recipe[20]);
    return words;
}

// A recipe of words has fixed its variables before it reports, and looks once whether it
// still runs; one of 32CV looks at both for every value.
Words expectedWords(const QByteArray& situation, const QByteArray& action)
{
    const Words none(8, 0);
    if (dropsTheRecipe(action) || initialises(action))
        return none;
    if (situation == "recipe words read")
        return Words({1, 0, 0, 0, 0, 0, 2, 3});
    return situation == "recipe 32CV read" ? Words({1, 0, 2, 0, 3, 0, 0, 0}) : none;
}

QList<int> ends(const QList<Report>& reports)
{
    QList<int> results;
    for (const Report& report : reports) {
        if (report.link == -1)
            results << report.address;
    }
    return results;
}

} // namespace

class ReentryValuesTest : public QObject
{
    Q_OBJECT

private slots:
    void afterEveryActionInEverySituation_data();
    void afterEveryActionInEverySituation();
};

void ReentryValuesTest::afterEveryActionInEverySituation_data()
{
    QTest::addColumn<int>("situation");
    QTest::addColumn<int>("action"); // -1: none
    QCOMPARE(static_cast<int>(situations().size()), int(sizeof OUTCOMES / sizeof *OUTCOMES));
    for (int s = 0; s < int(situations().size()); ++s) {
        QCOMPARE(situations().at(s).name, OUTCOMES[s].situation);
        const QByteArray name = QByteArray(OUTCOMES[s].situation) + ": ";
        QTest::newRow(name + "rests") << s << -1;
        for (int a = 0; a < int(reentries().size()); ++a)
            QTest::newRow(name + reentries().at(a).name) << s << a;
    }
}

void ReentryValuesTest::afterEveryActionInEverySituation()
{
    QFETCH(int, situation);
    QFETCH(int, action);
    const Outcome& outcome = OUTCOMES[situation];
    const QByteArray name = action < 0 ? "rests" : reentries().at(action).name;
    DriverFixture runtime("1#0#0#3#32");
    watchEverything();
    bool isInside = false;
    runtime.onReport = [&](const Report&) {
        if (isInside || action < 0)
            return;
        isInside = true;
        reentries().at(action).step(runtime);
        isInside = false;
    };
    situations().at(situation).step(runtime);
    runtime.onReport = nullptr;

    QCOMPARE(held(outcome), expected(outcome, name));
    if (name == "writes")
        QCOMPARE(DriverFixture::data(2, "D", 0, 2, 4), bytes("1111 2222"));
    QCOMPARE(recipeWords(runtime), expectedWords(outcome.situation, name));
    const bool isRecipe = qstrncmp(outcome.situation, "recipe", 6) == 0;
    // Initialised again amid a transfer, it goes on with the block.
    QCOMPARE(int(runtime.shared[60116]), isRecipe && initialises(name) ? 1 : 0);
    const QByteArray ended = outcome.situation;
    QCOMPARE(ends(runtime.reports), ended == "condition read done"     ? QList<int>{0}
                                    : ended == "condition read failed" ? QList<int>{-1}
                                                                       : QList<int>());
}

QTEST_APPLESS_MAIN(ReentryValuesTest)
#include "tst_reentry_values.moc"
