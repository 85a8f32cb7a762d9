/// The options of `kxhost run` besides those of the line.
#ifndef KX_KXHOST_OPTIONS_SEQUENCE_OPTIONS_H
#define KX_KXHOST_OPTIONS_SEQUENCE_OPTIONS_H

#include "kxhost/options/connection_options.h"
#include "panel/values/value_format.h"

namespace kx
{

struct SequenceOptions {
    ConnectionOptions connection; ///< with `checks` only what the file is read with
    QString file;
    QStringList tagsFiles;
    ValueFormat order; ///< of the words of values that name none
    QString report;    ///< file of the JUnit report; empty: none
    bool checks = false;
};

/// Declares --tags, --word-order, --junit and --check.
void addSequenceOptions(QCommandLineParser* parser);

/// Reads them and the options of the line, which --check does not need. False and one line in
/// `*error` when a value is wrong, or not exactly one file is named.
bool parseSequenceOptions(const QCommandLineParser& parser, SequenceOptions* options,
                          QString* error);

} // namespace kx

#endif
