/// What the command lines of all commands have in common.
#ifndef KX_KXHOST_OPTIONS_COMMAND_PARSER_H
#define KX_KXHOST_OPTIONS_COMMAND_PARSER_H

#include "addresses/address_text.h"
#include "exchange/lines/line_timing.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QStringList>

namespace kx
{

const int FASTEST_BAUD = 4000000; ///< that may be asked for

/// What `kxhost COMMAND --help` shows around the options.
struct CommandHelp {
    const char* usage;               ///< "watch [options] ADDRESS..."
    const char* summary;             ///< what the command does, in whole sentences
    const char* examples;            ///< one per line, without indentation
    const char* exitCodes = nullptr; ///< null: those of most commands
};

/// Parses a command's arguments. False when the command ends here, with the help
/// printed or one line about a wrong option; `*exitCode` then says how.
bool parseCommand(QCommandLineParser* parser, const QStringList& arguments, const CommandHelp& help,
                  int* exitCode);

/// What each exit code means, for the help of the program.
QString exitCodesText();

/// What an option counts, for the line about it.
enum class NumberUnit { None, Milliseconds, Seconds };

/// The number that an option holds, in decimal digits, or one line in `*error`.
bool parseNumber(const QCommandLineParser& parser, const char* option, int lowest, int highest,
                 int* number, QString* error, NumberUnit unit = NumberUnit::None);

/// The number that --station holds, as parseNumber().
bool parseStationOption(const QCommandLineParser& parser, int* station, QString* error);

/// What of the format of characters is not to be read, since it is to be found out.
struct OpenTiming {
    bool baud = false;
    bool parity = false;
};

/// Declares --port.
void addPortOption(QCommandLineParser* parser);

/// Declares --baud, --parity, --data-bits and --stop-bits.
void addFormatOptions(QCommandLineParser* parser);

/// The format of characters that --baud, --data-bits, --stop-bits and --parity ask for, as far
/// as they are given; `*parity` is then 'N', 'E' or 'O'. Or one line in `*error`.
bool parseTiming(const QCommandLineParser& parser, LineTiming* timing, char* parity, QString* error,
                 const OpenTiming& open = OpenTiming());

} // namespace kx

#endif
