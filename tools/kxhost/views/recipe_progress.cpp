#include "kxhost/views/recipe_progress.h"

#include "kxhost/terminal/console.h"

namespace kx
{

namespace
{

const int RECIPE_BAR_WIDTH = 40;

void printBlockJson(const QString& block, int done, int blocks)
{
    QJsonObject json;
    json[QLatin1String("event")] = QStringLiteral("block");
    json[QLatin1String("block")] = block;
    json[QLatin1String("done")] = done;
    json[QLatin1String("blocks")] = blocks;
    printJson(json);
}

} // namespace

QString recipeBar(int done, int blocks)
{
    const int filled = done * RECIPE_BAR_WIDTH / blocks;
    return QStringLiteral("[%1%2] %3/%4 blocks")
        .arg(QString(filled, QLatin1Char('#')),
             QString(RECIPE_BAR_WIDTH - filled, QLatin1Char('.')))
        .arg(done)
        .arg(blocks);
}

RecipeProgress::~RecipeProgress()
{
    if (m_style == RecipeProgressStyle::Bar && m_done > 0)
        say(QString());
}

void RecipeProgress::showBlock(const QString& block)
{
    ++m_done;
    switch (m_style) {
    case RecipeProgressStyle::Bar:
        print(QLatin1Char('\r') + recipeBar(m_done, m_blocks));
        break;
    case RecipeProgressStyle::Lines:
        say(QStringLiteral("%1/%2 %3").arg(m_done).arg(m_blocks).arg(block));
        break;
    case RecipeProgressStyle::Json:
        printBlockJson(block, m_done, m_blocks);
        break;
    }
}

} // namespace kx
