#ifndef KX_KXPANEL_GRID_MODEL_WATCH_FILTER_H
#define KX_KXPANEL_GRID_MODEL_WATCH_FILTER_H

#include <QtCore/QHash>
#include <QtCore/QSortFilterProxyModel>
#include <QtCore/QStringList>

namespace kxpanel
{

class WatchModel;

/// Which states a person wants to see.
enum class StateFilter { All, Attention, Changed, NotRead };

/// The rows of a WatchModel that fit, in the list's order or sorted. Values that change move no
/// rows: what is sorted stays until it is sorted again, what the filter lets through again comes
/// back to its place, and what is new follows.
class WatchFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    /// The model outlives the filter.
    explicit WatchFilter(WatchModel* model, QObject* parent = nullptr);

    /// Each word, whatever its case, must be part of a row's name, address or comment.
    void setText(const QString& text);
    void setStates(StateFilter states);
    /// Name of a register type; empty: all.
    void setType(const QString& type);
    bool isFiltering() const;

    /// Looks at the states again, where the filter asks for some.
    void refreshStates();

    /// Lets the row of a value through whatever its state is, while somebody edits it; 0: none.
    void keep(int number) { m_kept = number; }

    /// By numbers where the column has some; -1: the list's order. What has none goes last.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

signals:
    /// Many rows come or go at once, told of by layoutChanged(): before it and after it.
    void rowsAboutToChange();
    void rowsChanged();

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    bool fitsState(int row) const;
    void refilter();
    bool isOutdated() const;
    void rankRows(int column, Qt::SortOrder order);
    int rankOf(int row) const;

    WatchModel* m_model;
    QStringList m_words;
    StateFilter m_states = StateFilter::All;
    QString m_type;
    QHash<int, int> m_ranks; ///< of the values' numbers, as they were sorted
    int m_kept = 0;          ///< number of a value
};

} // namespace kxpanel

#endif
