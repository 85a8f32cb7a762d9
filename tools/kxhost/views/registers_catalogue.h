/// The register catalogue: what the driver says of its types, and where they lie
/// on the wire.
#ifndef KX_KXHOST_VIEWS_REGISTERS_CATALOGUE_H
#define KX_KXHOST_VIEWS_REGISTERS_CATALOGUE_H

#include "exchange/driver_library.h"
#include "kxhost/views/modbus_json.h"

#include <QtCore/QJsonObject>

namespace kx
{

struct CatalogueRow {
    QString type;
    QString format;  ///< one letter per digit: O octal, d decimal
    QString lowest;  ///< as typed, in the type's own radix
    QString highest; ///< as typed, in the type's own radix
    QString kind;    ///< bit, word or 32-bit
    bool isOctal = false;
    QList<ModbusSpan> spans; ///< both sides of the split
    int readFunction = 0;
};

/// The bit types and then the word types, in the driver's order.
QList<CatalogueRow> askForCatalogue(const DriverEntryPoints& entryPoints);

/// A heading and a line per type.
QStringList catalogueRows(const QList<CatalogueRow>& rows);
QJsonObject catalogueJson(const CatalogueRow& row);

} // namespace kx

#endif
