/// The options of commands that ask the driver only and need no line.
#ifndef KX_KXHOST_OPTIONS_OFFLINE_OPTIONS_H
#define KX_KXHOST_OPTIONS_OFFLINE_OPTIONS_H

#include <QtCore/QCommandLineParser>

namespace kx
{

/// Declares --library and --json.
void addOfflineOptions(QCommandLineParser* parser);

bool wantsJson(const QCommandLineParser& parser);

/// --library, or empty.
QString askedLibrary(const QCommandLineParser& parser);

} // namespace kx

#endif
