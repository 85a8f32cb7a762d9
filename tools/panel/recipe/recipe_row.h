/// One row of a recipe file.
#ifndef KX_PANEL_RECIPE_RECIPE_ROW_H
#define KX_PANEL_RECIPE_RECIPE_ROW_H

#include "panel/recipe/recipe_file.h"

#include <QtCore/QHash>

namespace kx
{

// Of recipeColumns().
const int RECIPE_TYPE = 4;
const int RECIPE_VALUE = 5;

const QList<CsvColumn>& recipeColumns();

class RecipeRowParser
{
public:
    /// @param needsType rows that name no format must name a type
    RecipeRowParser(const RecipeDefaults& defaults, bool needsType);

    /// Returns false and one line in `*error`, without the line's number, when something is wrong.
    bool parse(const CsvRow& csv, RecipeRow* row, QString* error) const;

private:
    bool takeTag(const CsvRow& csv, RecipeRow* row, QString* error) const;
    bool takeAddress(const CsvRow& csv, RecipeRow* row, QString* error) const;
    bool takeFormat(const CsvRow& csv, RecipeRow* row, QString* error) const;

    int m_station;
    ValueFormat m_order;
    QHash<QString, Tag> m_tags;
    bool m_needsType;
};

/// The value as an upload writes it; never empty.
QString recipeText(const RecipeRow& row, const QList<qint64>& value);

} // namespace kx

#endif
