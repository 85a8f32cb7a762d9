/// The rows of a recipe from its lines below the header.
#ifndef KX_TESTS_TOOLS_PANEL_RECIPE_RECIPE_ROWS_H
#define KX_TESTS_TOOLS_PANEL_RECIPE_RECIPE_ROWS_H

#include "panel/recipe/recipe_file.h"

namespace kx
{

inline QList<RecipeRow> rowsOf(const QString& rows)
{
    RecipeFile file;
    QString error;
    const QByteArray text = "name,station,register,address,type,value\n" + rows.toLatin1();
    if (!RecipeFile::parse(text, 1, &file, &error))
        qFatal("%s", qPrintable(error));
    return file.rows();
}

} // namespace kx

#endif
