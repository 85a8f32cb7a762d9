#include "kxpanel/recipes/recipe_order.h"

#include "kxpanel/recipes/recipe_model.h"
#include "panel/recipe/recipe_cells.h"
#include "panel/values/value_codec.h"

#include <cmath>

namespace kxpanel
{

namespace
{

/// Of a value in file or controller: its number, or a text as it is shown; invalid: there is none.
QVariant keyOf(const RecipeModel& model, int row, int column)
{
    const kx::RecipeRow& shown = model.rows().at(row);
    const bool isInFile = column == RecipeModel::InFile;
    if (isInFile ? !shown.hasValue : !model.isRead())
        return QVariant();
    double number = 0;
    const QList<qint64>& value = isInFile ? shown.value : model.values().at(row);
    if (kx::valueNumber(shown.format, value, &number) && !std::isnan(number))
        return number;
    return model.index(row, column).data();
}

/// Numbers stand before texts.
bool isLess(const QVariant& one, const QVariant& other)
{
    const bool oneIsText = one.userType() == QMetaType::QString;
    const bool otherIsText = other.userType() == QMetaType::QString;
    if (oneIsText != otherIsText)
        return otherIsText;
    return oneIsText ? QString::localeAwareCompare(one.toString(), other.toString()) < 0
                     : one.toDouble() < other.toDouble();
}

} // namespace

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
    case RecipeModel::InFile:
    case RecipeModel::InController: {
        const QVariant key = keyOf(*m_model, one.row(), one.column());
        const QVariant otherKey = keyOf(*m_model, other.row(), other.column());
        if (key.isValid() != otherKey.isValid()) // what is not there is the last in both orders
            return key.isValid() == (sortOrder() == Qt::AscendingOrder);
        return key.isValid() && isLess(key, otherKey);
    }
    default:
        return QString::localeAwareCompare(one.data().toString(), other.data().toString()) < 0;
    }
}

bool RecipeOrder::filterAcceptsRow(int row, const QModelIndex&) const
{
    return !m_hasDifferencesOnly || m_model->state(row) == RecipeState::Differs;
}

} // namespace kxpanel
