#include "panel/recipe/recipe_file.h"

#include "panel/recipe/recipe_row.h"
#include "system/translated_text.h"

namespace kx
{

QString RecipeRow::place() const
{
    return name.isEmpty() ? Text::tr("line %1").arg(line)
                          : Text::tr("line %1 (%2)").arg(line).arg(name);
}

bool RecipeFile::parse(const QByteArray& text, const RecipeDefaults& defaults, RecipeFile* file,
                       QString* error)
{
    *file = RecipeFile();
    CsvFault fault;
    bool isGood = CsvTable::parse(text, recipeColumns(), &file->m_table, &fault);
    const RecipeRowParser parser(defaults, file->m_table.hasColumn(RECIPE_TYPE));
    for (const CsvRow& csv : file->m_table.rows()) {
        if (!isGood)
            break;
        fault.line = csv.line;
        RecipeRow row;
        isGood = parser.parse(csv, &row, &fault.text);
        if (isGood)
            file->m_rows << row;
    }
    if (!isGood)
        *error = fault.line > 0
                     ? Text::tr("line %1: %2").arg(QString::number(fault.line), fault.text)
                     : fault.text;
    return isGood;
}

bool RecipeFile::parse(const QByteArray& text, int defaultStation, RecipeFile* file, QString* error)
{
    RecipeDefaults defaults;
    defaults.station = defaultStation;
    return parse(text, defaults, file, error);
}

QByteArray RecipeFile::withValues(const QList<QList<qint64>>& values) const
{
    QMap<int, QByteArray> texts;
    for (int i = 0; i < m_rows.size(); ++i) {
        const RecipeRow& row = m_rows.at(i);
        if (!row.hasValue || row.value != values.at(i))
            texts[i] = recipeText(row, values.at(i)).toUtf8();
    }
    return m_table.withTexts(RECIPE_VALUE, texts);
}

} // namespace kx
