/// How far a recipe has come: a bar on a terminal, else a line per block.
#ifndef KX_KXHOST_VIEWS_RECIPE_PROGRESS_H
#define KX_KXHOST_VIEWS_RECIPE_PROGRESS_H

#include <QtCore/QString>

namespace kx
{

enum class RecipeProgressStyle { Bar, Lines, Json };

/// "[##########..............................] 1/4 blocks", 40 characters of bar.
QString recipeBar(int done, int blocks);

class RecipeProgress
{
public:
    RecipeProgress(RecipeProgressStyle style, int blocks) : m_style(style), m_blocks(blocks) {}
    /// Leaves the bar's line.
    ~RecipeProgress();

    void showBlock(const QString& block);

private:
    RecipeProgressStyle m_style;
    int m_blocks;
    int m_done = 0;
};

} // namespace kx

#endif
