#ifndef KX_KXHOST_OPTIONS_SCAN_STATIONS_H
#define KX_KXHOST_OPTIONS_SCAN_STATIONS_H

#include <QtCore/QList>
#include <QtCore/QString>

namespace kx
{

/// "1-247", "5" or "1,3,10-20" as station numbers in rising order, each once.
/// False and one line in `*error` when a number is not 1 to 247 or a range runs
/// backwards.
bool parseStations(const QString& text, QList<int>* stations, QString* error);

} // namespace kx

#endif
