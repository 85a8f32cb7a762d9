#include "recording/recording_rules.h"

#include <QtCore/QDateTime>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

namespace kx
{

namespace
{

const qint64 LONGEST_WAIT = 500;              // milliseconds
const qint64 SMALLEST_FILE = 64 * 1024;       // bytes
const qint64 LONGEST_FILE = 366 * 86400000LL; // milliseconds
const qint64 LARGEST_FILE = 1024LL << 30;     // bytes

const qint64 EARLY = 10; // the part of a distance that a timer may be early, one tenth

struct Unit {
    const char* name;
    qint64 bytes;
    qint64 milliseconds;
};

const Unit UNITS[] = {{"k", 1 << 10, 0}, {"M", 1 << 20, 0}, {"G", 1 << 30, 0},
                      {"min", 0, 60000}, {"h", 0, 3600000}, {"d", 0, 86400000}};

} // namespace

void FlushRule::onRecord(qint64 time)
{
    if (m_since < 0)
        m_since = time;
}

bool FlushRule::isDue(qint64 now) const
{
    return m_since >= 0 && (now < m_since || now - m_since >= LONGEST_WAIT);
}

qint64 untilNextSample(qint64 now, qint64 every)
{
    const qint64 left = every - now % every;
    return left * EARLY < every ? left + every : left;
}

bool RotationRule::isDue(qint64 begin, qint64 now, qint64 size) const
{
    return (bytes > 0 && size >= bytes)
           || (milliseconds > 0 && now / milliseconds != begin / milliseconds);
}

bool parseRotation(const QString& text, RotationRule* rule)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A([1-9][0-9]{0,5})(k|M|G|min|h|d)\\z"));
    const QRegularExpressionMatch match = pattern.match(text);
    RotationRule read;
    for (const Unit& unit : UNITS) {
        if (match.captured(2) == QLatin1String(unit.name)) {
            read.bytes = match.captured(1).toLongLong() * unit.bytes;
            read.milliseconds = match.captured(1).toLongLong() * unit.milliseconds;
        }
    }
    if (!read.isSet() || read.milliseconds > LONGEST_FILE || read.bytes > LARGEST_FILE
        || (read.bytes > 0 && read.bytes < SMALLEST_FILE))
        return false;
    *rule = read;
    return true;
}

QString rotatedName(const QString& path, qint64 begin, int number)
{
    const QString suffix = QFileInfo(path).suffix();
    const QString base = path.left(path.size() - suffix.size() - 1);
    const QString time = QDateTime::fromMSecsSinceEpoch(begin, Qt::UTC)
                             .toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'"));
    const QString again = number > 1 ? QLatin1Char('-') + QString::number(number) : QString();
    return base + QLatin1Char('-') + time + again + QLatin1Char('.') + suffix;
}

} // namespace kx
