/// What is recorded where, and for how long.
#ifndef KX_KXHOST_OPTIONS_RECORD_OPTIONS_H
#define KX_KXHOST_OPTIONS_RECORD_OPTIONS_H

#include "kxhost/options/connection_options.h"
#include "panel/files/tags_file.h"
#include "recording/recorder.h"

namespace kx
{

struct RecordOptions {
    ConnectionOptions connection; ///< set for reading before the options are read
    QList<Tag> tags;              ///< with their intervals
    RecorderSettings recording;
    qint64 duration = 0; ///< milliseconds; 0: until it is ended
    int cycles = 0;      ///< 0: until it is ended
};

/// Declares --to, --every, --changes, --rotate, --for, --cycles, --interval and --tags, and what
/// addConnectionOptions() does.
void addRecordOptions(QCommandLineParser* parser);

/// Reads them. False and one line in `*error` when a value is wrong, when the file is missing or
/// of no known kind, or when not exactly one of --every and --changes is given.
bool parseRecordOptions(const QCommandLineParser& parser, RecordOptions* options, QString* error);

} // namespace kx

#endif
