/// Values in the output of commands.
#ifndef KX_KXHOST_VIEWS_VALUE_JSON_H
#define KX_KXHOST_VIEWS_VALUE_JSON_H

#include "panel/files/tags_file.h"

#include <QtCore/QJsonObject>

namespace kx
{

/// "12.5 bar"; the text alone without a unit.
QString withUnit(const ValueFormat& format, const QString& text);

/// "station" and "address" of a tag; "name", "format" and "unit" where it has them.
QJsonObject tagJson(const Tag& tag);

/// Adds "values", and where a format makes them differ from the registers those as "raw".
/// @param raw one per address of the tag
void addValues(const Tag& tag, const QList<qint64>& raw, QJsonObject* json);

} // namespace kx

#endif
