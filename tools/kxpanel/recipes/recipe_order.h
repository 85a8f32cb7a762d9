#ifndef KX_KXPANEL_RECIPES_RECIPE_ORDER_H
#define KX_KXPANEL_RECIPES_RECIPE_ORDER_H

#include <QtCore/QSortFilterProxyModel>

namespace kxpanel
{

class RecipeModel;

/// The rows of a recipe as a person wants them: those that differ first, or those alone. Rows that
/// are equal in a column stay in the file's order.
class RecipeOrder : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    /// @param model must outlive this
    explicit RecipeOrder(RecipeModel* model, QObject* parent = nullptr);

    void setDifferencesOnly(bool only);

protected:
    bool lessThan(const QModelIndex& one, const QModelIndex& other) const override;
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    const RecipeModel* m_model;
    bool m_hasDifferencesOnly = false;
};

} // namespace kxpanel

#endif
