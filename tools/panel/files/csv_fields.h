/// One line of separated values, with the place of each field, so that a field can
/// be replaced without touching the rest of the line.
#ifndef KX_PANEL_FILES_CSV_FIELDS_H
#define KX_PANEL_FILES_CSV_FIELDS_H

#include "addresses/export.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

namespace kx
{

struct CsvField {
    int begin = 0;  ///< of the field in its line, bytes, blanks around it left out
    int length = 0; ///< bytes, quotes included
    QString text;   ///< UTF-8 decoded, quotes taken off
};

/// Splits a line without its "\n"; "\r" at its end belongs to no field. A field may
/// stand in double quotes, in which a separator is text and "" is one quote. Returns
/// false and one line in `*error` when a quote is not closed or text follows a closing
/// quote.
KXRUNTIME_EXPORT bool splitCsvFields(const QByteArray& line, char separator,
                                     QList<CsvField>* fields, QString* error);

/// The text as a field, in quotes where splitCsvFields() would else take something off it, or its
/// line for a comment.
KXRUNTIME_EXPORT QByteArray csvField(const QByteArray& text, char separator);

} // namespace kx

#endif
