#ifndef KX_KXPANEL_TABLES_FILL_COLUMN_H
#define KX_KXPANEL_TABLES_FILL_COLUMN_H

#include <QtCore/QObject>

class QTableView;

namespace kxpanel
{

/// Gives a column the width that the others leave, but never less than what can be read: then the
/// table scrolls.
class FillColumn : public QObject
{
    Q_OBJECT

public:
    /// @param table has its model; owns this
    /// @param least width in pixels
    FillColumn(QTableView* table, int column, int least);

    /// To be called when the header got its place from an earlier run; else it comes by itself.
    void fit();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    QTableView* m_table;
    int m_column;
    int m_least;
    bool m_isFitting = false;
};

} // namespace kxpanel

#endif
