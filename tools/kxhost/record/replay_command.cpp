#include "kxhost/commands/commands.h"

#include "kxhost/options/command_parser.h"
#include "kxhost/record/replay_text.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "recording/recording_reader.h"

namespace kx
{

namespace
{

const CommandHelp REPLAY_HELP = {
    "replay [options] FILE",
    "Prints a recording that kxhost record made, as watch prints changes, in local time:\n"
    "each value that is another than the one before, and each gap with its reason. Needs\n"
    "no controller; the recording may still go on.",
    "kxhost replay line3.csv\n"
    "kxhost replay line3.sqlite --json"};

/// Until the end, or until standard output takes no more.
void printEvents(RecordingReader* reader, bool asJson)
{
    const QStringList places = replayPlaces(reader->tags());
    ReplayFilter filter(static_cast<int>(reader->tags().size()));
    RecordedEvent event;
    while (outputFailure().isEmpty() && reader->next(&event)) {
        if (!filter.isNews(event))
            continue;
        const RecordedTag& tag = reader->tags().at(event.tag);
        if (asJson)
            printJson(replayJson(tag, event));
        else
            say(replayRow(tag, places.at(event.tag), event));
    }
}

int replay(const QString& path, bool asJson)
{
    QString error;
    const std::unique_ptr<RecordingReader> reader = openRecording(path, &error);
    if (!reader)
        return complain(error, EXIT_WRONG_USAGE);
    printEvents(reader.get(), asJson);
    if (!reader->failure().isEmpty())
        return complain(reader->failure(), EXIT_WRONG_USAGE);
    return reader->remark().isEmpty() ? EXIT_FINE : complain(reader->remark(), EXIT_FINE);
}

} // namespace

int runReplay(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("json"), QStringLiteral("Write JSON, an object per line.")});
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, REPLAY_HELP, &exitCode))
        return exitCode;
    const QStringList files = parser.positionalArguments();
    if (files.size() != 1)
        return complain(QStringLiteral("name one recording, such as line3.csv"), EXIT_WRONG_USAGE);
    return replay(files.first(), parser.isSet(QStringLiteral("json")));
}

} // namespace kx
