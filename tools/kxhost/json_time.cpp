#include "kxhost/json_time.h"

QString jsonTime(const QDateTime& time)
{
    return time.toUTC().toString(Qt::ISODateWithMs);
}
