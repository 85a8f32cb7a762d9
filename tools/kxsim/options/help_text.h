#ifndef KX_KXSIM_OPTIONS_HELP_TEXT_H
#define KX_KXSIM_OPTIONS_HELP_TEXT_H

#include <QtCore/QCommandLineParser>
#include <QtCore/QString>

namespace kxsim
{

/// What --help shows: usage, the parser's options, and what they mean together.
QString helpText(const QCommandLineParser& parser);

} // namespace kxsim

#endif
