/// Watched addresses on a command line: typed, or in tags files.
#ifndef KX_KXHOST_OPTIONS_TAGS_ARGUMENTS_H
#define KX_KXHOST_OPTIONS_TAGS_ARGUMENTS_H

#include "panel/files/tags_file.h"

#include <QtCore/QCommandLineParser>

namespace kx
{

/// Declares --tags FILE, which may be given several times.
void addTagsOption(QCommandLineParser* parser);

/// The tags of all --tags files and then of all other arguments: each an address,
/// or the name of a tags file (one that exists, or that holds a dot or a slash).
/// A typed address is a tag with an empty name. Tags that name no station get
/// `station`.
/// @return false and one line in `*error` when an address or a file is wrong
bool parseTagArguments(const QCommandLineParser& parser, int station, QList<Tag>* tags,
                       QString* error);

/// The same without the names.
bool parseWatchedRanges(const QCommandLineParser& parser, int station, QList<AddressRange>* ranges,
                        QString* error);

} // namespace kx

#endif
