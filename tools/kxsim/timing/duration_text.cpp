#include "kxsim/timing/duration_text.h"

#include <QtCore/QRegularExpression>

namespace kxsim
{

namespace
{

const qint64 LONGEST_DURATION = 24 * 3600 * qint64(1000000); // microseconds

const struct {
    const char* name;
    qint64 microseconds;
} UNITS[] = {{"us", 1}, {"ms", 1000}, {"s", 1000000}, {"min", 60000000}, {"h", 3600000000}};

const char* const DOTS = "..";

qint64 microsecondsOf(const QString& unit)
{
    for (const auto& known : UNITS) {
        if (unit == QLatin1String(known.name))
            return known.microseconds;
    }
    return 0;
}

QRegularExpressionMatch partsOf(const QString& text)
{
    // Longer numbers are beyond any limit.
    static const QRegularExpression form(
        QStringLiteral("\\A([0-9]{1,12})(?:\\.([0-9]{1,9}))?([a-z]+)\\z"));
    return form.match(text);
}

} // namespace

bool parseDuration(const QString& text, std::chrono::microseconds* duration)
{
    const QRegularExpressionMatch parts = partsOf(text);
    const qint64 unit = microsecondsOf(parts.captured(3));
    const qint64 whole = parts.captured(1).toLongLong();
    if (unit == 0 || whole > LONGEST_DURATION / unit)
        return false;
    qint64 fraction = parts.captured(2).toLongLong() * unit;
    for (auto digits = parts.captured(2).size(); digits > 0; --digits) {
        // Digits behind the last microsecond would be lost.
        if (fraction % 10 != 0)
            return false;
        fraction /= 10;
    }
    if (whole * unit + fraction > LONGEST_DURATION)
        return false;
    *duration = std::chrono::microseconds(whole * unit + fraction);
    return true;
}

bool parseDurationRange(const QString& text, DurationRange* range)
{
    const auto dots = text.indexOf(QLatin1String(DOTS));
    if (dots < 0)
        return false;
    QString from = text.left(dots);
    const QString to = text.mid(dots + 2);
    if (!from.isEmpty() && from.back().isDigit())
        from += partsOf(to).captured(3);
    DurationRange parsed;
    if (!parseDuration(from, &parsed.from) || !parseDuration(to, &parsed.to))
        return false;
    *range = parsed;
    return true;
}

} // namespace kxsim
