#include "kxhost/commands/command_table.h"
#include "kxhost/terminal/exit_codes.h"
#include "support/require.h"
#include "tool_texts/stand_ins.h"
#include "tool_texts/texts.h"

using namespace kx;

namespace
{

// The others ask for a line next, or for work that grows with a count.
bool asksForTextsOnly(const Command& command)
{
    const QString name = QString::fromLatin1(command.name);
    return name == QLatin1String("check") || name == QLatin1String("registers");
}

bool run(const Command& command, const QStringList& arguments, QString* error)
{
    lendDriver(asksForTextsOnly(command));
    takeComplaints();
    takeJson();
    const int exitCode = command.run(arguments);
    *error = takeComplaints().join(QStringLiteral("; "));
    const QStringList json = takeJson();
    if (exitCode == EXIT_WRONG_USAGE) {
        // With --json, check says there what is wrong.
        *error += json.join(QLatin1Char(' '));
        return false;
    }
    // What listens opens its port by itself.
    require(error->isEmpty() || exitCode == EXIT_CANNOT_OPEN,
            "a command that goes on complains of nothing");
    require(exitCode == EXIT_FINE || exitCode == EXIT_CANNOT_OPEN,
            "without a line, no station fails");
    return true;
}

} // namespace

void readCommand(InputReader* input)
{
    const Command& command =
        commands().at(static_cast<std::size_t>(input->below(static_cast<int>(commands().size()))));
    const auto parse = [&command](const QByteArray& lines, QString* error) {
        return run(command, argumentsOf(lines), error);
    };
    takes(parse, input->rest());
}
