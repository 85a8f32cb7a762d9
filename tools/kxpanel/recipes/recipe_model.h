#ifndef KX_KXPANEL_RECIPES_RECIPE_MODEL_H
#define KX_KXPANEL_RECIPES_RECIPE_MODEL_H

#include "panel/recipe/recipe_file.h"

#include <QtCore/QAbstractTableModel>

namespace kxpanel
{

/// How a row's value in the file and the one in the controller go together. In this order they
/// want a person's eye.
enum class RecipeState {
    Differs,
    NoValue, ///< in the file
    NotRead, ///< from the controller
    Same
};

/// The rows of a recipe in the file's order: what the file has and what the controller has.
class RecipeModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { State, Name, Station, Address, InFile, InController, COLUMNS };

    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    const QList<kx::RecipeRow>& rows() const { return m_rows; }
    /// Nothing is known of the controller then.
    void setRows(const QList<kx::RecipeRow>& rows);
    /// @param values in the controller, one per row; none: forgotten
    void setValues(const QList<QList<qint64>>& values);
    /// The file has what was read now.
    void takeValues();
    const QList<QList<qint64>>& values() const { return m_values; }
    bool isRead() const { return !m_values.isEmpty(); }

    RecipeState state(int row) const;
    /// How many rows are in a state.
    int count(RecipeState state) const;

private:
    QString text(int row, int column) const;
    QString tip(int row, int column) const;

    QList<kx::RecipeRow> m_rows;
    QList<QList<qint64>> m_values;
};

} // namespace kxpanel

#endif
