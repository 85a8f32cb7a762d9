#include "system/repeated_option.h"

namespace kx
{

namespace
{

QString shownName(const QString& name)
{
    return QLatin1String(name.size() == 1 ? "-" : "--") + name;
}

QString shownValue(const QString& value)
{
    return value.isEmpty() ? QStringLiteral("''") : value;
}

} // namespace

QString repeatedOption(const QCommandLineParser& parser, const QStringList& repeatable)
{
    for (const QString& name : parser.optionNames()) {
        const QStringList values = parser.values(name); // by whichever name; none of a switch
        if (values.size() > 1 && !repeatable.contains(name))
            return QStringLiteral("%1 is given twice, as %2 and as %3")
                .arg(shownName(name), shownValue(values.at(0)), shownValue(values.at(1)));
    }
    return QString();
}

} // namespace kx
