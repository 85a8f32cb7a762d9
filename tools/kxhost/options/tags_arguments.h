/// Watched addresses on a command line: typed, or in tags files.
#ifndef KX_KXHOST_OPTIONS_TAGS_ARGUMENTS_H
#define KX_KXHOST_OPTIONS_TAGS_ARGUMENTS_H

#include "panel/files/tags_file.h"

#include <QtCore/QCommandLineParser>

namespace kx
{

/// Declares --word-order ORDER.
void addWordOrderOption(QCommandLineParser* parser);

/// The order that it names, in `*order`; false and one line in `*error` when it is none.
bool parseWordOrder(const QCommandLineParser& parser, ValueFormat* order, QString* error);

/// Declares --tags FILE and --only NAME, which may be given several times, and --word-order.
void addTagsOption(QCommandLineParser* parser);

/// Declares --tags FILE for assignments to names, and --word-order.
void addNamesOption(QCommandLineParser* parser);

/// The tags of all --tags files. Those that name no station get `station`.
bool parseNames(const QCommandLineParser& parser, int station, QList<Tag>* tags, QString* error);

/// The tags of all --tags files and then of all other arguments: each an address with its format,
/// or the name of a tags file (one that exists, or that holds a dot or a slash and does not begin
/// as an address). A typed address is a tag with an empty name, which --only leaves alone. Tags
/// that name no station get `station`, values that name no order the one of --word-order.
/// @return false and one line in `*error` when an address or a file is wrong
bool parseTagArguments(const QCommandLineParser& parser, int station, QList<Tag>* tags,
                       QString* error);

/// Whether an argument is meant as the name of a tags file, as parseTagArguments() takes it.
bool namesTagsFile(const QString& argument);

/// As parseTagArguments(), without the names.
bool parseWatchedRanges(const QCommandLineParser& parser, int station, QList<AddressRange>* ranges,
                        QString* error);

} // namespace kx

#endif
