#include "panel/session/recipe_checks.h"

#include <QtTest/QTest>

using namespace kx;

Q_DECLARE_METATYPE(kx::RecipeDirection)
Q_DECLARE_METATYPE(QVector<_RCP_VAR_PRO>)

namespace
{

const int MAX_WORDS = 32;

_RCP_VAR_PRO variable(const char* type, int address, int count, int offset)
{
    _RCP_VAR_PRO variable = _RCP_VAR_PRO();
    variable.station = 1;
    variable.regType = QString::fromLatin1(type);
    variable.address = address;
    variable.count = count;
    variable.bufOffset = offset;
    return variable;
}

} // namespace

class RecipeChecksTest : public QObject
{
    Q_OBJECT

private slots:
    void variablesTheDriverTakesForOthers_data();
    void variablesTheDriverTakesForOthers();
};

void RecipeChecksTest::variablesTheDriverTakesForOthers_data()
{
    QTest::addColumn<QVector<_RCP_VAR_PRO>>("variables");
    QTest::addColumn<RecipeDirection>("direction");
    QTest::addColumn<FailureKind>("kind");
    const auto row = [](const char* name, const QVector<_RCP_VAR_PRO>& variables,
                        RecipeDirection direction, FailureKind kind) {
        QTest::newRow(name) << variables << direction << kind;
    };
    const auto down = RecipeDirection::Download;
    const auto up = RecipeDirection::Upload;
    const auto fine = FailureKind::None;
    row("neighbours with neighbouring words", {variable("D", 101, 1, 1), variable("D", 100, 1, 0)},
        down, fine);
    row("neighbours with words elsewhere", {variable("D", 100, 1, 0), variable("D", 101, 1, 9)},
        down, FailureKind::OutOfRange);
    row("the same, which a read puts in place",
        {variable("D", 100, 1, 0), variable("D", 101, 1, 9)}, up, fine);
    row("neighbours behind a long one, with words elsewhere",
        {variable("D", 100, 8, 0), variable("D", 102, 1, 2), variable("D", 108, 1, 20)}, down,
        FailureKind::OutOfRange);
    row("one beyond the longest request", {variable("D", 100, 32, 0), variable("D", 132, 1, 99)},
        down, fine);
    row("words with a gap between", {variable("D", 100, 1, 0), variable("D", 102, 1, 9)}, down,
        fine);
    row("words on both sides of SD256", {variable("SD", 255, 1, 0), variable("SD", 256, 1, 9)},
        down, fine);
    row("several registers, of which a read brings one", {variable("D", 100, 2, 0)}, up,
        FailureKind::TooLong);
    row("several registers, each of which begins a variable",
        {variable("D", 100, 3, 0), variable("D", 101, 2, 1), variable("D", 102, 1, 2)}, up, fine);
    row("several registers, of which the second begins none",
        {variable("D", 100, 3, 0), variable("D", 102, 1, 2)}, up, FailureKind::TooLong);
    row("several registers, of which another type has the second",
        {variable("CV", 100, 2, 0), variable("D", 101, 1, 1)}, up, FailureKind::TooLong);
    row("running past the buffer's end", {variable("D", 100, 2, 65535)}, down,
        FailureKind::OutOfRange);
    row("across SD256, where the numbers jump", {variable("SD", 255, 2, 0)}, down,
        FailureKind::TooLong);
    row("across M2048 in a read", {variable("M", 2047, 2, 0)}, up, FailureKind::TooLong);
    row("eight coils, of which the last are switched off", {variable("M", 0, 8, 0)}, down,
        FailureKind::TooLong);
    row("eight coils in a read", {variable("M", 0, 8, 0)}, up, fine);
    row("coils that are joined", {variable("M", 0, 1, 0), variable("M", 1, 1, 1)}, down,
        FailureKind::OutOfRange);
    row("coils apart", {variable("M", 0, 1, 0), variable("M", 2, 1, 1)}, down, fine);
    row("coils named twice", {variable("M", 0, 2, 0), variable("M", 0, 2, 0)}, down, fine);
    row("32CV that are joined across a gap",
        {variable("32CV", 200, 4, 0), variable("32CV", 203, 2, 4)}, down, FailureKind::OutOfRange);
    row("a 32CV named twice", {variable("32CV", 200, 2, 0), variable("32CV", 200, 2, 0)}, up, fine);
    row("a 32CV in a read behind words that are joined",
        {variable("D", 100, 1, 0), variable("D", 101, 1, 1), variable("32CV", 200, 2, 2)}, up,
        FailureKind::OutOfRange);
    row("the same written",
        {variable("D", 100, 1, 0), variable("D", 101, 1, 1), variable("32CV", 200, 2, 2)}, down,
        fine);
}

void RecipeChecksTest::variablesTheDriverTakesForOthers()
{
    QFETCH(QVector<_RCP_VAR_PRO>, variables);
    QFETCH(RecipeDirection, direction);
    const Failure failure = recipeRefusal(direction, {{variables, 1}}, MAX_WORDS);
    QTEST(failure.kind, "kind");
    QCOMPARE(failure.station, failure.isNone() ? 0 : 1);
}

QTEST_APPLESS_MAIN(RecipeChecksTest)
#include "tst_recipe_checks.moc"
