/// The names that the library exports, as the pages say them.
#ifndef KX_TESTS_DOCS_EXPORTED_NAMES_H
#define KX_TESTS_DOCS_EXPORTED_NAMES_H

#include <QtCore/QStringList>

/// As the linker sees them.
QStringList exportedNames();

/// The C++ name of one: of "_Z14check_rcv_dataPhi" it is "check_rcv_data".
QString plainName(const QString& exported);

#endif
