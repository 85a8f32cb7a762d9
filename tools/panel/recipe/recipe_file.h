/// A recipe file: one value per row, with the place where it lives.
///
///     # Start values of the filling line
///     name,station,register,address,type,value
///     Speed,1,D,100,uint16,1234
///     "Belt, left",1,Y,17,bit,1
///     Total,1,32CV,200,uint32,100000
///
/// or, in the columns of a tags file,
///
///     name,address,format,scale,offset,unit,min,max,value
///     Pressure,D110,s16,0.1,5,bar,0,16,12.5
///     Batch,D120,ascii:8,,,,,,Lager 7
///     Level,,,,,,,,3.75
///
/// A table as csv_table.h has it, of which only the value is needed. An empty station is the
/// connection's. Addresses are in the register's own radix (X and Y octal): a register and a
/// number, or both in the address. What the registers mean says a type (recipe_value.h) or a
/// format with its order, scale, offset, decimals, min and max (panel/values/format_text.h); in a
/// file without types an empty format is that of the registers, without sign. A row without an
/// address takes all from the tag of its name. An empty value may be uploaded but not downloaded;
/// min and max are kept by downloads alone. The decimals of floats say nothing here: they are
/// written with all their digits.
#ifndef KX_PANEL_RECIPE_RECIPE_FILE_H
#define KX_PANEL_RECIPE_RECIPE_FILE_H

#include "addresses/address_text.h"
#include "addresses/export.h"
#include "panel/files/csv_table.h"
#include "panel/files/tags_file.h"
#include "panel/recipe/recipe_value.h"
#include "panel/values/value_format.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

namespace kx
{

struct KXRUNTIME_EXPORT RecipeRow {
    int line = 0; ///< in the file, from 1
    QString name;
    AddressRange range;                    ///< with its station; all addresses of its one value
    const RecipeValueType* type = nullptr; ///< how the value is written; null: as its format has it
    ValueFormat format = ValueFormat();    ///< of its type, when it has one
    bool hasValue = false;
    QList<qint64> value; ///< what travels, one per address: 0 or 1, a word, or a 32CV

    /// "line 3 (Speed)", for messages.
    QString place() const;
};

/// What rows may leave open.
struct RecipeDefaults {
    int station = 1;
    ValueFormat order = ValueFormat(); ///< of formats that name none, see takeOrder()
    QList<Tag> tags;                   ///< whose names may stand for addresses
};

class KXRUNTIME_EXPORT RecipeFile
{
public:
    /// Returns false and one line in `*error`, with the line's number, when the
    /// text is no recipe.
    static bool parse(const QByteArray& text, const RecipeDefaults& defaults, RecipeFile* file,
                      QString* error);
    static bool parse(const QByteArray& text, int defaultStation, RecipeFile* file, QString* error);

    const QList<RecipeRow>& rows() const { return m_rows; }

    /// The file's text with one new value per row, as RecipeRow::value. Comments, quotes, blanks
    /// and the writing of each value that stayed the same are kept to the byte.
    QByteArray withValues(const QList<QList<qint64>>& values) const;

private:
    CsvTable m_table;
    QList<RecipeRow> m_rows;
};

} // namespace kx

#endif
