#ifndef KX_SYSTEM_REPEATED_OPTION_H
#define KX_SYSTEM_REPEATED_OPTION_H

#include <QtCore/QCommandLineParser>

namespace kx
{

/// Which option of a parsed command line has two values although it takes one: "--every is given
/// twice, as 1s and as 2s"; empty when none has. Switches may be repeated.
/// @param repeatable all names of the options that may have several
QString repeatedOption(const QCommandLineParser& parser, const QStringList& repeatable);

} // namespace kx

#endif
