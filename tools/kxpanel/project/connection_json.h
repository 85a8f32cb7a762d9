#ifndef KX_KXPANEL_PROJECT_CONNECTION_JSON_H
#define KX_KXPANEL_PROJECT_CONNECTION_JSON_H

#include "kxhost/options/connection_options.h"

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

namespace kxpanel
{

/// kxhost's usual values for reading, without a line.
kx::ConnectionOptions usualConnection();

/// Reads options of kxhost by their names: texts, numbers, and true for a switch. Which line is
/// used may be left open.
/// @param options changed when all is right; unnamed ones get kxhost's usual values for reading
/// @param extra members that are no such options
/// @param faults are appended to: "connection.baud: ..."
bool parseConnectionJson(const QJsonObject& object, kx::ConnectionOptions* options,
                         QJsonObject* extra, QStringList* faults);

/// What parseConnectionJson() reads; usual values are left out.
QJsonObject connectionJson(const kx::ConnectionOptions& options, const QJsonObject& extra);

} // namespace kxpanel

#endif
