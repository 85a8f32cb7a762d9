/// A tag as the texts of a tags file, and back. Pure functions.
#ifndef KX_KXPANEL_TAGS_TAG_FIELDS_H
#define KX_KXPANEL_TAGS_TAG_FIELDS_H

#include "panel/files/tags_file.h"

namespace kxpanel
{

/// Names of the columns of a tags file, in their order.
QStringList tagFieldNames();

/// A text for each column. Empty where the tag has nothing of its own; but a tag without a name has
/// its address as one, since the file asks for names.
QStringList tagFields(const kx::Tag& tag);

/// The way back.
/// @param fields one for each column
/// @param faults are appended to, a line each that begins with its column: "address D9999: ..."
/// @return what was right of it
kx::Tag tagOfFields(const QStringList& fields, QStringList* faults);

/// "D100@2", also of a bit of a word: "D120.5@2".
QString nameWithStation(const kx::Tag& tag);

/// Takes a name away that says no more than the address: "D100", "D120.5", "D100@2".
void dropAddressName(kx::Tag* tag);

} // namespace kxpanel

#endif
