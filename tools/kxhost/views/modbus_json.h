#ifndef KX_KXHOST_VIEWS_MODBUS_JSON_H
#define KX_KXHOST_VIEWS_MODBUS_JSON_H

#include "addresses/modbus_span.h"

#include <QtCore/QJsonArray>

namespace kx
{

/// [{"first":1200,"last":1455}].
QJsonArray modbusJson(const QList<ModbusSpan>& spans);

} // namespace kx

#endif
