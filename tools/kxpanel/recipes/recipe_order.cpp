#include "kxpanel/recipes/recipe_order.h"

#include "kxpanel/recipes/recipe_model.h"
#include "panel/recipe/recipe_cells.h"

namespace kxpanel
{

RecipeOrder::RecipeOrder(RecipeModel* model, QObject* parent)
    : QSortFilterProxyModel(parent), m_model(model)
{
    setSourceModel(model);
    setDynamicSortFilter(true);
    sort(RecipeModel::State);
}

void RecipeOrder::setDifferencesOnly(bool only)
{
    m_hasDifferencesOnly = only;
    invalidateFilter();
}

// Qt sorts stably.
bool RecipeOrder::lessThan(const QModelIndex& one, const QModelIndex& other) const
{
    const kx::RecipeRow& left = m_model->rows().at(one.row());
    const kx::RecipeRow& right = m_model->rows().at(other.row());
    switch (one.column()) {
    case RecipeModel::State:
        return m_model->state(one.row()) < m_model->state(other.row());
    case RecipeModel::Station:
    case RecipeModel::Address:
        return kx::recipeCellKey(left.range, 0) < kx::recipeCellKey(right.range, 0);
    default:
        return QString::localeAwareCompare(one.data().toString(), other.data().toString()) < 0;
    }
}

bool RecipeOrder::filterAcceptsRow(int row, const QModelIndex&) const
{
    return !m_hasDifferencesOnly || m_model->state(row) == RecipeState::Differs;
}

} // namespace kxpanel
