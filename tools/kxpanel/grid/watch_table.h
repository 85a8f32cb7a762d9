#ifndef KX_KXPANEL_GRID_WATCH_TABLE_H
#define KX_KXPANEL_GRID_WATCH_TABLE_H

#include "kxpanel/tags/cell_markup.h"

#include <QtCore/QHash>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtWidgets/QTableView>

#include <functional>

namespace kxpanel
{

class WatchFilter;
class WatchModel;

/// The grid itself: rows of a WatchModel through its filter, refreshed where they are seen.
class WatchTable : public QTableView
{
    Q_OBJECT

public:
    /// Both outlive the table.
    WatchTable(WatchModel* model, WatchFilter* filter, QWidget* parent = nullptr);

    /// Numbers of the selected values, in the order of the rows.
    QList<int> selectedNumbers() const;
    void select(const QList<int>& numbers);
    /// Numbers of so many rows, from the value's downwards; none when there are fewer.
    QList<int> numbersFrom(int number, int count) const;
    void selectAll() override;
    /// The value's cell of values; an invalid index when the filter hides its row.
    QModelIndex cellOf(int number) const;
    /// Row of the model of the current cell; past the last one when there is none.
    int currentModelRow() const;
    /// What is shown of the selected rows, for a spreadsheet, as text and as HTML. The caller's.
    QMimeData* selectedData() const;

    /// Whether the cell's row has moved so shortly before that nobody can have aimed at where it is
    /// now: by a filter, or by something that came above it.
    bool hasJustMoved(const QModelIndex& cell);
    /// By which rows move: milliseconds that only rise. Else the system's.
    void setClock(const std::function<qint64()>& milliseconds) { m_now = milliseconds; }

    /// Paints the rows that are seen anew.
    void refreshVisible();

    QJsonObject layout() const;
    void setLayout(const QJsonObject& layout);
    /// A checkable action for each column, which shows or hides it.
    QList<QAction*> columnActions() const { return m_columnActions; }

signals:
    void layoutChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    // Rows that another program drags have numbers that mean other values here.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makeColumnActions();
    void setUsualColumns();
    int usualWidth(int column) const;
    QJsonArray columnsLayout() const;
    void takeColumn(int column, const QJsonObject& shape);
    QList<int> selectedRows() const;
    QModelIndexList cellsOf(const QList<int>& numbers) const;
    QList<Cell> cellsOfRow(int row) const;
    void keepSelection();
    void restoreSelection();

    void noteTop();
    QHash<int, int> placesSeen() const;
    void keepPlaces();
    void noteRows();

    WatchModel* m_model;
    WatchFilter* m_filter;
    QList<QAction*> m_columnActions;
    QList<int> m_kept; ///< numbers that are selected while rows come and go
    std::function<qint64()> m_now;
    qint64 m_movedAt = -1;           ///< all rows, by the clock; -1: never
    QHash<int, qint64> m_rowMovedAt; ///< those of lately alone, by number
    QHash<int, int> m_places;        ///< placesSeen() before rows come and go
    int m_top = 0;                   ///< of the rows' room, in the window
    QJsonObject m_layout;            ///< as the project had it, with members of others
};

} // namespace kxpanel

#endif
