/// A recipe for the simulated controller, which has 1200 in D111 and all else as it stands here.
#ifndef KX_TESTS_TOOLS_KXPANEL_RECIPES_RECIPE_SAMPLES_H
#define KX_TESTS_TOOLS_KXPANEL_RECIPES_RECIPE_SAMPLES_H

#include "panel/recipe/recipe_file.h"

namespace kxpanel
{

const char RECIPE[] = "name,address,format,unit,value\n"
                      "Limit,D110,,mm,650\n"
                      "Second limit,D111,,mm,1300\n"
                      "Lamp,M20,,,1\n"
                      "Batch,D130,ascii:4,,\"BATCH 7 \"\n"
                      "Spare,D120,float,bar,\n";

// What the simulated controller has of each row.
inline QList<QList<qint64>> simulatedValues()
{
    return {{650}, {1200}, {1}, {16961, 21571, 18464, 14112}, {0, 16968}};
}

inline QList<kx::RecipeRow> recipeRows(const QByteArray& text = RECIPE)
{
    kx::RecipeFile file;
    QString error;
    if (!kx::RecipeFile::parse(text, 1, &file, &error))
        qFatal("%s", qPrintable(error));
    return file.rows();
}

} // namespace kxpanel

#endif
