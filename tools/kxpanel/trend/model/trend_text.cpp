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
    return TrendText::tr("Cursor %1: %2")
        .arg(QString::number(cursor + 1), QDateTime::fromMSecsSinceEpoch(time).toString(
                                              QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")));
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
    const QString whole = unit == MINUTE ? TrendText::tr("%1 min") : TrendText::tr("%1 h");
    const QString text = whole.arg(milliseconds / unit);
    const qint64 rest =
        unit == MINUTE ? milliseconds % MINUTE : milliseconds % HOUR / MINUTE * MINUTE;
    return rest == 0 ? text : text + QLatin1Char(' ') + spanText(rest);
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
        parts << TrendText::tr("Difference: %1").arg(spanText(*view.difference()));
    return parts.join(QStringLiteral("    "));
}

} // namespace kxpanel
