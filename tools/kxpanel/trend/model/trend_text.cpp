#include "kxpanel/trend/model/trend_text.h"

#include "panel/values/value_codec.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QStringList>

namespace kxpanel
{

namespace
{

const qint64 SECOND = 1000; // milliseconds
const qint64 MINUTE = 60 * SECOND;
const qint64 HOUR = 60 * MINUTE;

class TrendText
{
    Q_DECLARE_TR_FUNCTIONS(kxpanel::TrendText)
};

QString seconds(qint64 milliseconds)
{
    return QString::number(static_cast<double>(milliseconds) / 1000.0, 'g', 6);
}

QString placeText(int cursor, qint64 time)
{
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(time);
    const QString offset = offsetText(local);
    const QString text = local.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    return TrendText::tr("Cursor %1: %2")
        .arg(QString::number(cursor + 1),
             offset.isEmpty() ? text : text + QLatin1Char(' ') + offset);
}

QString hoursText(qint64 hours)
{
    return TrendText::tr("%1 h").arg(hours);
}

/// With all that is left of hours.
QString exactSpanText(qint64 milliseconds)
{
    if (milliseconds < 0)
        return QLatin1Char('-') + exactSpanText(-milliseconds);
    const qint64 rest = milliseconds % HOUR;
    if (milliseconds < HOUR)
        return spanText(milliseconds);
    const QString hours = hoursText(milliseconds / HOUR);
    return rest == 0 ? hours : hours + QLatin1Char(' ') + spanText(rest);
}

/// Whether another moment has the same local time, with the offset of `other`.
bool isAlsoAt(const QDateTime& time, const QDateTime& other)
{
    const int later = time.offsetFromUtc() - other.offsetFromUtc(); // seconds
    return later != 0 && time.addSecs(later).offsetFromUtc() == other.offsetFromUtc();
}

} // namespace

QString numberText(double number)
{
    return QString::number(number, 'g', kx::EXACT_DIGITS);
}

QString spanText(qint64 milliseconds)
{
    if (milliseconds < 0)
        return QLatin1Char('-') + spanText(-milliseconds);
    if (milliseconds < SECOND)
        return TrendText::tr("%1 ms").arg(milliseconds);
    if (milliseconds < MINUTE)
        return TrendText::tr("%1 s").arg(seconds(milliseconds));
    const qint64 unit = milliseconds < HOUR ? MINUTE : HOUR;
    const QString text = unit == MINUTE ? TrendText::tr("%1 min").arg(milliseconds / unit)
                                        : hoursText(milliseconds / unit);
    const qint64 rest =
        unit == MINUTE ? milliseconds % MINUTE : milliseconds % HOUR / MINUTE * MINUTE;
    return rest == 0 ? text : text + QLatin1Char(' ') + spanText(rest);
}

QString offsetText(const QDateTime& time)
{
    const qint64 aside = 4 * HOUR; // no clock is set by more
    if (!isAlsoAt(time, time.addMSecs(-aside)) && !isAlsoAt(time, time.addMSecs(aside)))
        return QString();
    const int minutes = time.offsetFromUtc() / 60;
    const QString text = QStringLiteral("UTC%1%2")
                             .arg(minutes < 0 ? QLatin1Char('-') : QLatin1Char('+'))
                             .arg(qAbs(minutes) / 60);
    const int rest = qAbs(minutes) % 60;
    return rest == 0 ? text : QStringLiteral("%1:%2").arg(text).arg(rest, 2, 10, QLatin1Char('0'));
}

QString cursorText(const TrendView& view)
{
    QStringList parts;
    for (int cursor = 0; cursor < 2; ++cursor) {
        if (view.cursor(cursor))
            parts << placeText(cursor, *view.cursor(cursor));
    }
    if (parts.isEmpty())
        return TrendText::tr(
            "Keys 1 and 2 set cursors; the wheel zooms, a band zooms in, the middle button "
            "pans.");
    if (view.difference())
        parts << TrendText::tr("Difference: %1").arg(exactSpanText(*view.difference()));
    return parts.join(QStringLiteral("    "));
}

} // namespace kxpanel
