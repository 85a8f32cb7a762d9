#include "kxsim/timing/turnaround.h"

namespace kxsim
{

namespace
{

const std::chrono::seconds LONGEST_TURNAROUND(60);

bool refuseTurnaround(QString* error, const QString& text, const char* reason)
{
    *error = QStringLiteral("--turnaround %1: %2").arg(text, QLatin1String(reason));
    return false;
}

} // namespace

bool parseTurnaround(const QString& text, DurationRange* range, QString* error)
{
    DurationRange parsed;
    if (parseDuration(text, &parsed.from))
        parsed.to = parsed.from;
    else if (!parseDurationRange(text, &parsed))
        return refuseTurnaround(error, text,
                                "write a time such as 5ms or 800us, or a range such as 5..20ms");
    if (parsed.from > parsed.to)
        return refuseTurnaround(error, text, "the range ends before it begins");
    if (parsed.to > LONGEST_TURNAROUND)
        return refuseTurnaround(error, text, "60s is the longest");
    *range = parsed;
    return true;
}

// The distributions of the standard library differ between its versions; the generator
// does not.
Moment Turnaround::next()
{
    const quint64 choices = static_cast<quint64>((m_range.to - m_range.from).count()) + 1;
    const quint64 drawn = choices > 1 ? m_random() % choices : 0;
    return m_range.from + std::chrono::microseconds(drawn);
}

} // namespace kxsim
