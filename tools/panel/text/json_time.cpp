#include "panel/text/json_time.h"

namespace kx
{

QString jsonTime(const QDateTime& time)
{
    return time.toUTC().toString(Qt::ISODateWithMs);
}

} // namespace kx
