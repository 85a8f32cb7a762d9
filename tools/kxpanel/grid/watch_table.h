#ifndef KX_KXPANEL_GRID_WATCH_TABLE_H
#define KX_KXPANEL_GRID_WATCH_TABLE_H

#include <QtCore/QJsonObject>
#include <QtWidgets/QTableView>

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
    /// Row of the model of the current cell; past the last one when there is none.
    int currentModelRow() const;
    /// What is shown of the selected rows, as text for a spreadsheet.
    QString selectedText() const;

    /// Paints the rows that are seen anew.
    void refreshVisible();

    QJsonObject layout() const;
    void setLayout(const QJsonObject& layout);
    /// A checkable action for each column, which shows or hides it.
    QList<QAction*> columnActions() const { return m_columnActions; }

signals:
    void layoutChanged();

private:
    void makeColumnActions();
    void setUsualWidths();
    QList<int> selectedRows() const;

    WatchModel* m_model;
    WatchFilter* m_filter;
    QList<QAction*> m_columnActions;
};

} // namespace kxpanel

#endif
