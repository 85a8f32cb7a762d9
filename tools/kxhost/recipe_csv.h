/// One line of comma-separated values, with the place of each field, so that a
/// field can be replaced without touching the rest of the line.
#ifndef KX_KXHOST_RECIPE_CSV_H
#define KX_KXHOST_RECIPE_CSV_H

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

struct CsvField {
    int begin;    ///< of the field in its line, blanks around it left out
    int length;   ///< quotes included
    QString text; ///< UTF-8 decoded, quotes taken off
};

/// Splits a line without its line end. A field may stand in double quotes, in
/// which a comma is text and "" is one quote. Returns false and one line in
/// `*error` when a quote is not closed or text follows a closing quote.
bool splitCsvLine(const QByteArray& line, QList<CsvField>* fields, QString* error);

#endif
