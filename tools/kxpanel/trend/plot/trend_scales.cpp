#include "kxpanel/trend/plot/trend_scales.h"

#include "kxpanel/trend/model/trend_text.h"

#include <QtCore/QDateTime>

#include <qwt_date_scale_draw.h>

namespace kxpanel
{

namespace
{

class TimeScale : public QwtDateScaleDraw
{
public:
    TimeScale() : QwtDateScaleDraw(Qt::LocalTime) {}

    QwtText label(double value) const override
    {
        const QwtDate::IntervalType interval = intervalType(scaleDiv());
        const QDateTime time = toDateTime(value);
        if (interval >= QwtDate::Day)
            return time.toString(interval < QwtDate::Month ? QStringLiteral("yyyy-MM-dd")
                                                           : QStringLiteral("yyyy-MM"));
        const QList<double> ticks = scaleDiv().ticks(QwtScaleDiv::MajorTick);
        const bool hasDate = value == ticks.value(0) || time.time() == QTime(0, 0);
        const QString offset = offsetText(time);
        // A second row always, so that the scale keeps its height while dates come and go.
        return time.toString(formatOf(interval)) + QLatin1Char('\n')
               + (hasDate            ? time.toString(QStringLiteral("yyyy-MM-dd"))
                  : offset.isEmpty() ? QStringLiteral(" ")
                                     : offset);
    }

private:
    static QString formatOf(QwtDate::IntervalType interval)
    {
        switch (interval) {
        case QwtDate::Millisecond:
            return QStringLiteral("hh:mm:ss.zzz");
        case QwtDate::Second:
            return QStringLiteral("hh:mm:ss");
        default:
            return QStringLiteral("hh:mm");
        }
    }
};

class ValueScale : public QwtScaleDraw
{
public:
    QwtText label(double value) const override { return numberText(value); }
};

} // namespace

QwtScaleDraw* timeScale()
{
    return new TimeScale;
}

QwtScaleDraw* valueScale()
{
    return new ValueScale;
}

} // namespace kxpanel
