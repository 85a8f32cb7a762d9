/// A recipe file: one value per row, with the place where it lives.
///
///     # Start values of the filling line
///     name,station,register,address,type,value
///     Speed,1,D,100,uint16,1234
///     "Belt, left",1,Y,17,bit,1
///     Total,1,32CV,200,uint32,100000
///
/// A table as csv_table.h has it: name and station may be left out. An empty station
/// is the connection's. Addresses are in the register's own radix (X and Y octal). An
/// empty value may be uploaded but not downloaded. See recipe_value.h for types.
#ifndef KX_PANEL_RECIPE_RECIPE_FILE_H
#define KX_PANEL_RECIPE_RECIPE_FILE_H

#include "addresses/address_text.h"
#include "addresses/export.h"
#include "panel/files/csv_table.h"
#include "panel/recipe/recipe_value.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

namespace kx
{

struct KXRUNTIME_EXPORT RecipeRow {
    int line = 0; ///< in the file, from 1
    QString name;
    AddressRange range; ///< with its station; one address, or two (addressesPerValue())
    const RecipeValueType* type = nullptr;
    bool hasValue = false;
    quint32 value = 0; ///< the bits that travel

    /// "line 3 (Speed)", for messages.
    QString place() const;
};

class KXRUNTIME_EXPORT RecipeFile
{
public:
    /// Returns false and one line in `*error`, with the line's number, when the
    /// text is no recipe.
    static bool parse(const QByteArray& text, int defaultStation, RecipeFile* file, QString* error);

    const QList<RecipeRow>& rows() const { return m_rows; }

    /// The file's text with one new value per row. Comments, quotes, blanks and
    /// the writing of each value that stayed the same are kept to the byte.
    QByteArray withValues(const QList<quint32>& values) const;

private:
    bool parseRow(const CsvRow& csv, int defaultStation, QString* error);

    CsvTable m_table;
    QList<RecipeRow> m_rows;
};

} // namespace kx

#endif
