/// The addresses of several copies of a tag, as the driver generates them.
#ifndef KX_KXHOST_COMMANDS_SERIES_RUN_H
#define KX_KXHOST_COMMANDS_SERIES_RUN_H

#include "addresses/address_text.h"
#include "exchange/driver_library.h"

#include <QtCore/QJsonObject>

namespace kx
{

enum class SeriesPlace {
    AsAsked,
    Clamped,    ///< past the highest address, which the driver put in its place
    BelowLowest ///< the driver does not test this; no register of that address exists
};

struct SeriesRow {
    QString digits; ///< the driver's text: octal for X and Y
    int number = 0;
    SeriesPlace place = SeriesPlace::AsAsked;
};

struct Series {
    const RegisterType* type = nullptr;
    QList<SeriesRow> rows;
};

Series askForSeries(const DriverEntryPoints& entryPoints, const AddressRange& start, int count,
                    int step);

/// A line per address: "X374  number 252  coil 1452".
QStringList seriesRows(const Series& series);
QJsonObject seriesJson(const RegisterType* type, const SeriesRow& row);

/// "2 of 4 addresses lie past X377 and were replaced by it"; empty when all are as
/// asked for.
QString seriesNotice(const Series& series);

} // namespace kx

#endif
