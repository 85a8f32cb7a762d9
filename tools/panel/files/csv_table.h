/// A table in a file that a person wrote or a spreadsheet exported.
///
/// UTF-8 with or without a byte-order mark, or UTF-16 with one. The first line is the
/// header: the columns' names in any order, separated by commas, semicolons or tabs, as
/// are the rows then. Blank lines, lines that begin with # and rows without any text are
/// skipped; comments may hold any bytes.
#ifndef KX_PANEL_FILES_CSV_TABLE_H
#define KX_PANEL_FILES_CSV_TABLE_H

#include "addresses/export.h"
#include "panel/files/csv_fields.h"
#include "panel/files/file_text.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace kx
{

struct CsvColumn {
    const char* name;
    bool isNeeded; ///< else the header, or rows at their end, may do without it
};

struct CsvRow {
    int line = 0;           ///< in the file, from 1
    QList<CsvField> fields; ///< one for each column asked for; empty where there is none
};

struct CsvFault {
    int line = 0; ///< from 1; 0: the file as a whole
    QString text; ///< one line
};

class KXRUNTIME_EXPORT CsvTable
{
public:
    /// Returns false and a fault when the bytes are no such table, or one without rows.
    static bool parse(const QByteArray& bytes, const QList<CsvColumn>& columns, CsvTable* table,
                      CsvFault* fault);

    /// The same with all faults, in the order of their lines; `*table` holds the rows without one.
    static bool parse(const QByteArray& bytes, const QList<CsvColumn>& columns, CsvTable* table,
                      QList<CsvFault>* faults);

    const QList<CsvRow>& rows() const { return m_rows; }
    /// Whether the header has that one of the columns asked for.
    bool hasColumn(int column) const { return m_order.contains(column); }

    /// The file's bytes with the field of that column replaced in the rows of the map,
    /// which have one, by texts in UTF-8, in quotes where needed. All else is kept to the byte.
    QByteArray withTexts(int column, const QMap<int, QByteArray>& texts) const;

private:
    void parseLines(const QList<QByteArray>& lines, QList<CsvFault>* faults);
    QStringList lineFaults(int index);
    QStringList takeHeader(const QByteArray& line);
    QStringList takeColumns(const QStringList& names);
    bool parseRow(int index, QString* error);
    int columnOf(const QString& name) const;
    int fewestFields() const;
    QString columnNames() const;

    QList<CsvColumn> m_columns;
    TextEncoding m_encoding = TextEncoding::Utf8;
    QList<QByteArray> m_lines; ///< without "\n"
    char m_separator = ',';
    QList<int> m_order; ///< column of each field; empty before the header
    QList<CsvRow> m_rows;
};

} // namespace kx

#endif
