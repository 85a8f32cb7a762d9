/// The options of kxsim about the values that controllers begin and end with.
#ifndef KX_KXSIM_OPTIONS_MEMORY_OPTIONS_H
#define KX_KXSIM_OPTIONS_MEMORY_OPTIONS_H

#include "kxsim/options/options.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QList>

namespace kxsim
{

/// --set, --load and --save.
QList<QCommandLineOption> memoryOptions();

/// Reads them from a parser that knows them; stations come before. False and one line in
/// `*error` when one is wrong.
bool takeMemory(const QCommandLineParser& parser, Options* options, QString* error);

} // namespace kxsim

#endif
