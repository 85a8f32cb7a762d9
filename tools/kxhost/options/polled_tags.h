#ifndef KX_KXHOST_OPTIONS_POLLED_TAGS_H
#define KX_KXHOST_OPTIONS_POLLED_TAGS_H

#include "kxhost/options/connection_options.h"
#include "panel/files/tags_file.h"

namespace kx
{

/// What watch and record read in cycles: the arguments of parseTagArguments(), with --interval
/// where a tag has none of its own. Their stations are simulated, too.
/// @param connection has been read
/// @param purpose    what the command does, such as "watch"
/// @return false and one line in `*error` when something is wrong, there is none, or a value does
/// not fit a request
bool parsePolledTags(const QCommandLineParser& parser, const char* purpose,
                     ConnectionOptions* connection, QList<Tag>* tags, QString* error);

} // namespace kx

#endif
