/// How long requests may be, and how often tags are read.
#ifndef KX_KXHOST_OPTIONS_LENGTH_OPTIONS_H
#define KX_KXHOST_OPTIONS_LENGTH_OPTIONS_H

#include "panel/session/session_settings.h"

#include <QtCore/QCommandLineParser>

namespace kx
{

/// Settings of commands that read many addresses: the lengths that take the least time.
SessionSettings settingsForReading();

/// Reads --max-words and --max-bits; what is not given stays. False and one line in `*error` when a
/// value is wrong.
bool parseLengthOptions(const QCommandLineParser& parser, SessionSettings* settings,
                        QString* error);

/// Declares --interval.
void addIntervalOption(QCommandLineParser* parser);

/// Reads it, in milliseconds; what is not given stays.
bool parseIntervalOption(const QCommandLineParser& parser, int* interval, QString* error);

} // namespace kx

#endif
