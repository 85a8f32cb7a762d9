#include "kxhost/options/connection_options.h"
#include "kxhost/options/offline_options.h"
#include "kxhost/options/plan_options.h"
#include "kxhost/options/tags_arguments.h"
#include "kxsim/options/options.h"
#include "support/require.h"
#include "tool_texts/texts.h"

#include <QtCore/QCommandLineParser>

using namespace kx;

// A slash becomes a backslash; a dot, too, may name a tags file.
QStringList argumentsOf(QByteArray lines)
{
    lines.replace('/', '\\');
    lines.replace('.', '_');
    return QString::fromUtf8(lines).split(QLatin1Char('\n'));
}

namespace
{

bool parse(QCommandLineParser* parser, const QByteArray& lines, QString* error)
{
    if (parser->parse(QStringList(QStringLiteral("kxhost")) + argumentsOf(lines)))
        return true;
    *error = parser->errorText();
    return false;
}

bool readPlan(const QByteArray& lines, QString* error)
{
    QCommandLineParser parser;
    addPlanOptions(&parser);
    addOfflineOptions(&parser);
    PlanOptions options;
    if (!parse(&parser, lines, error) || !parsePlanOptions(parser, &options, error))
        return false;
    for (const AddressRange& range : options.watched) {
        checkRange(range);
        require(range.station != -1, "each address has a station");
    }
    return true;
}

bool readConnection(const QByteArray& lines, QString* error)
{
    QCommandLineParser parser;
    addConnectionOptions(&parser);
    addTagsOption(&parser);
    ConnectionOptions options;
    QList<Tag> tags;
    if (!parse(&parser, lines, error) || !parseConnectionOptions(parser, &options, error)
        || !parseTagArguments(parser, options.station, &tags, error))
        return false;
    require(options.station >= 1 && options.station <= 247, "a station is 1 to 247");
    require(options.simulate || !options.port.isEmpty() || !options.gateway.host.isEmpty(),
            "a connection has a line");
    return true;
}

bool readSimulator(const QByteArray& lines, QString* error)
{
    kxsim::Options options;
    return kxsim::parseOptions(QStringList(QStringLiteral("kxsim")) + argumentsOf(lines), &options,
                               error);
}

} // namespace

void readArguments(InputReader* input)
{
    const int choice = input->byte();
    if (choice >= 0x80)
        return readCommand(input);
    if (choice >= 0x60)
        return readSequence(input);
    const Parser parsers[] = {readPlan, readConnection, readSimulator};
    takes(parsers[choice % 3], input->rest());
}
