/// The options of dump, compare and restore.
#ifndef KX_KXHOST_OPTIONS_DUMP_OPTIONS_H
#define KX_KXHOST_OPTIONS_DUMP_OPTIONS_H

#include "kxhost/options/connection_options.h"
#include "panel/dump/dump_file.h"

namespace kx
{

struct DumpOptions {
    ConnectionOptions connection;
    QString path;               ///< of the file to be made
    QList<AddressRange> ranges; ///< as joinedRanges()
};

/// What compare and restore take.
struct KeptOptions {
    ConnectionOptions connection;
    QString path;
    Dump dump;
    bool isAgreed = false; ///< --yes: restore does not ask
};

/// Declares --to and the addresses' --tags.
void addDumpOptions(QCommandLineParser* parser);

/// Reads them, the connection's and the addresses. False and one line in `*error` when something
/// is wrong, or the file could not be written.
bool parseDumpOptions(const QCommandLineParser& parser, DumpOptions* options, QString* error);

/// Options of a connection that compare and restore have no use for, to be hidden.
QStringList optionsUnusedWithDumps();

/// Declares --yes.
void addYesOption(QCommandLineParser* parser);

/// Reads the connection's options, --yes where it is declared, and the file. False and one line in
/// `*error` when something is wrong.
bool parseKeptOptions(const QCommandLineParser& parser, KeptOptions* options, QString* error);

} // namespace kx

#endif
