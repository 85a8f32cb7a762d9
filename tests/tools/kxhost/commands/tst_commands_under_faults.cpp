// read and recipe as processes, on a line where three of ten requests meet a fault of any
// kind: they end well, and with the right values.

#include "faulty_kxsim.h"
#include "recipe_fixture.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

using namespace kx;

namespace
{

const char* const FAULTS = "all:0.3";
const int DELAY = 70; // milliseconds: late replies come after the time-out

/// No two requests have replies of the same length, so that a reply that comes after the
/// settle time, on a machine that stood still, is not taken for another.
const QStringList VALUES = {
    "D100=1001",
    "D110=1,65535",
    "D120=3,2,1",
    "D140=40,41,42,43",
    "CV30=5,6,7,8,9",
    "SD100=1,2,4,8,16,32",
    "TV20=7,6,5,4,3,2,1",
    "32CV210=100000,4294967295,3,4",
    "D200=9,8,7,6,5,4,3,2,1",
    "M100=1,0,1",
    "Y10=1,1,0,0,0,0,1,1,0,1", // octal: to Y21
};

QString addressIn(const QString& assignment)
{
    return assignment.section(QLatin1Char('='), 0, 0);
}

QStringList valuesIn(const QString& assignment)
{
    return assignment.section(QLatin1Char('='), 1).split(QLatin1Char(','));
}

/// The type's name: 32CV of 32CV210.
QString typeOf(const QString& address)
{
    return address.left(address.indexOf(QRegularExpression("[0-9]+$")));
}

/// D110:2
QStringList addresses()
{
    QStringList texts;
    for (const QString& assignment : VALUES)
        texts
            << QStringLiteral("%1:%2").arg(addressIn(assignment)).arg(valuesIn(assignment).size());
    return texts;
}

/// "1 D110 1", "1 D111 65535", as read prints them.
QStringList linesOfRead(bool isAllZero)
{
    QStringList lines;
    for (const QString& assignment : VALUES) {
        const QStringList values = valuesIn(assignment);
        const QString type = typeOf(addressIn(assignment));
        const int base = type == QLatin1String("Y") ? 8 : 10;
        const int first = addressIn(assignment).mid(type.size()).toInt(nullptr, base);
        for (int i = 0; i < values.size(); ++i)
            lines << QStringLiteral("1 %1%2 %3")
                         .arg(type, QString::number(first + i, base),
                              isAllZero ? QStringLiteral("0") : values.at(i));
    }
    return lines;
}

/// The same as a recipe.
QByteArray recipe(bool isAllZero)
{
    QByteArray text = "name,station,register,address,type,value\n";
    for (const QString& line : linesOfRead(isAllZero)) {
        const QStringList words = line.split(QLatin1Char(' '));
        const QString type = typeOf(words.at(1));
        const QString kind =
            type == QLatin1String("M") || type == QLatin1String("Y")
                ? QStringLiteral("bit")
                : QLatin1String(type == QLatin1String("32CV") ? "uint32" : "uint16");
        text += QStringLiteral("%1,1,%2,%3,%4,%5\n")
                    .arg(words.at(1), type, words.at(1).mid(type.size()), kind, words.at(2))
                    .toLatin1();
    }
    return text;
}

QStringList presets()
{
    QStringList arguments;
    for (const QString& assignment : VALUES)
        arguments << QStringLiteral("--set") << assignment;
    return arguments;
}

QStringList patiently(int retries)
{
    return {"--timeout", "50", "--retries", QString::number(retries), "--reopen", "20"};
}

QStringList simulatingInside(int retries)
{
    return patiently(retries) << "--simulate"
                              << "--fault" << FAULTS << "--fault-seed"
                              << "7"
                              << "--fault-delay" << QString::number(DELAY);
}

const int MANY = 60;

} // namespace

class CommandsUnderFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesAreRead();
    void zeroesAreReadFromTheSimulatorInside();
    void aRecipeIsDownloaded();
    void aRecipeIsUploaded();
    void recipesGoToAndFromTheSimulatorInside_data();
    void recipesGoToAndFromTheSimulatorInside();
};

void CommandsUnderFaultsTest::valuesAreRead()
{
    FaultyKxsim kxsim(QLatin1String(FAULTS), DELAY, presets());
    const CommandResult result =
        runCommand(QStringList{"read", "--port", kxsim.line()} + patiently(MANY) + addresses());
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.output, linesOfRead(false));
    QCOMPARE(result.exitCode, 0);
    // D100 to D122 are one request, all others one each.
    QVERIFY(kxsim.count(QStringLiteral("requests")) > VALUES.size() - 2);
}

void CommandsUnderFaultsTest::zeroesAreReadFromTheSimulatorInside()
{
    const QStringList command = QStringList{"read"} + addresses();
    const CommandResult result = runCommand(command + simulatingInside(MANY));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.output, linesOfRead(true));
    QCOMPARE(result.exitCode, 0);
    // There were faults.
    QCOMPARE(runCommand(command + simulatingInside(1)).exitCode, 1);
}

void CommandsUnderFaultsTest::aRecipeIsDownloaded()
{
    FaultyKxsim kxsim(QLatin1String(FAULTS), DELAY);
    const RecipeFixture fixture;
    fixture.store(recipe(false));
    const CommandResult result = fixture.run("download", kxsim.line(), patiently(MANY));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
    const QStringList ranges = addresses();
    for (int i = 0; i < ranges.size(); ++i)
        QCOMPARE(kxsim.ask(QStringLiteral("get ") + ranges.at(i)), VALUES.at(i));
    QVERIFY(kxsim.count(QStringLiteral("none")) < kxsim.count(QStringLiteral("requests")));
}

void CommandsUnderFaultsTest::aRecipeIsUploaded()
{
    FaultyKxsim kxsim(QLatin1String(FAULTS), DELAY, presets());
    const RecipeFixture fixture;
    fixture.store(recipe(true));
    const CommandResult result = fixture.run("upload", kxsim.line(), patiently(MANY));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(fixture.stored(), recipe(false));
    QVERIFY(kxsim.count(QStringLiteral("none")) < kxsim.count(QStringLiteral("requests")));
}

void CommandsUnderFaultsTest::recipesGoToAndFromTheSimulatorInside_data()
{
    QTest::addColumn<QString>("direction");
    QTest::addColumn<bool>("isZeroAfterwards");
    QTest::newRow("download") << QStringLiteral("download") << false;
    QTest::newRow("upload") << QStringLiteral("upload") << true;
}

void CommandsUnderFaultsTest::recipesGoToAndFromTheSimulatorInside()
{
    QFETCH(QString, direction);
    QFETCH(bool, isZeroAfterwards);
    const RecipeFixture fixture;
    fixture.store(recipe(false));
    const QStringList command = {"recipe", direction, fixture.path()};
    QCOMPARE(runCommand(command + simulatingInside(1)).exitCode, 1); // there are faults
    QCOMPARE(fixture.stored(), recipe(false));
    const CommandResult result = runCommand(command + simulatingInside(MANY));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(fixture.stored(), recipe(isZeroAfterwards));
}

QTEST_GUILESS_MAIN(CommandsUnderFaultsTest)
#include "tst_commands_under_faults.moc"
