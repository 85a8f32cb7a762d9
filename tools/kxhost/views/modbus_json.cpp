#include "kxhost/views/modbus_json.h"

#include <QtCore/QJsonObject>

namespace kx
{

QJsonArray modbusJson(const QList<ModbusSpan>& spans)
{
    QJsonArray json;
    for (const ModbusSpan& span : spans)
        json.append(
            QJsonObject{{QLatin1String("first"), span.first}, {QLatin1String("last"), span.last}});
    return json;
}

} // namespace kx
