#include "kxpanel/shell/qt_options.h"

namespace kxpanel
{

namespace
{

/// Each with one dash or two, and its value as the next argument.
const char* const WITH_VALUE[] = {
    "platform", "platformpluginpath", "platformtheme", "plugin",      "style",
    "geometry", "stylesheet",         "display",       "session",     "qwindowgeometry",
    "title",    "qwindowtitle",       "icon",          "qwindowicon", "name",
};

const char* const SWITCHES[] = {"reverse", "widgetcount", "nograb", "dograb", "sync"};

/// Of these alone the value may stand behind "=".
const char* const IN_ONE_WORD[] = {"style=", "stylesheet=", "qmljsdebugger="};

/// Empty when it is none: "--style" and "-style" are "style".
QString nameOf(const QString& argument)
{
    const int dashes = argument.startsWith(QLatin1String("--")) ? 2 : 1;
    return argument.startsWith(QLatin1Char('-')) ? argument.mid(dashes) : QString();
}

template <class Names>
bool isOneOf(const Names& names, const QString& name)
{
    for (const char* const known : names) {
        if (name == QLatin1String(known))
            return true;
    }
    return false;
}

bool isInOneWord(const QString& name)
{
    for (const char* const start : IN_ONE_WORD) {
        if (name.startsWith(QLatin1String(start)))
            return true;
    }
    return false;
}

} // namespace

QStringList withoutQtOptions(const QStringList& arguments)
{
    QStringList left;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString name = nameOf(arguments.at(i));
        if (isOneOf(WITH_VALUE, name))
            ++i; // and its value
        else if (!isOneOf(SWITCHES, name) && !isInOneWord(name))
            left << arguments.at(i);
    }
    return left;
}

} // namespace kxpanel
