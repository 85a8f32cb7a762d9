#include "panel/text/duration.h"

#include "exchange/loop_clock.h"

#include <QtCore/QRegularExpression>

#include <cmath>

namespace kx
{

namespace
{

struct Unit {
    const char* name;
    double microseconds;
};

const qint64 DAY = 86400000000; // microseconds

const Unit UNITS[] = {{"us", 1}, {"ms", 1e3}, {"s", 1e6}, {"min", 60e6}, {"h", 3600e6}, {"", 1e3}};

} // namespace

bool parseDuration(const QString& text, qint64 longest, qint64* microseconds)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A([0-9]+(?:\\.[0-9]+)?) ?(us|ms|s|min|h)?\\z"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return false;
    double value = match.captured(1).toDouble();
    for (const Unit& unit : UNITS) {
        if (match.captured(2) == QLatin1String(unit.name)) {
            value *= unit.microseconds;
            break;
        }
    }
    if (value > static_cast<double>(longest))
        return false;
    *microseconds = std::llround(value);
    return true;
}

bool parseInterval(const QString& text, int* milliseconds)
{
    qint64 microseconds = 0;
    if (!parseDuration(text, DAY, &microseconds))
        return false;
    *milliseconds = static_cast<int>((microseconds + MICROSECONDS_PER_MILLISECOND - 1)
                                     / MICROSECONDS_PER_MILLISECOND);
    return true;
}

} // namespace kx
