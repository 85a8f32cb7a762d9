#include "kxpanel/trend/plot/trend_scales.h"

#include <qwt_date_scale_draw.h>

namespace kxpanel
{

QwtScaleDraw* timeScale()
{
    QwtDateScaleDraw* draw = new QwtDateScaleDraw(Qt::LocalTime);
    draw->setDateFormat(QwtDate::Millisecond, QStringLiteral("hh:mm:ss.zzz"));
    draw->setDateFormat(QwtDate::Second, QStringLiteral("hh:mm:ss"));
    draw->setDateFormat(QwtDate::Minute, QStringLiteral("hh:mm"));
    draw->setDateFormat(QwtDate::Hour, QStringLiteral("hh:mm\nyyyy-MM-dd"));
    draw->setDateFormat(QwtDate::Day, QStringLiteral("yyyy-MM-dd"));
    draw->setDateFormat(QwtDate::Week, QStringLiteral("yyyy-MM-dd"));
    draw->setDateFormat(QwtDate::Month, QStringLiteral("yyyy-MM"));
    return draw;
}

} // namespace kxpanel
