#ifndef KX_KXPANEL_GRID_EDIT_FILTER_LINE_H
#define KX_KXPANEL_GRID_EDIT_FILTER_LINE_H

#include <QtCore/QJsonObject>
#include <QtWidgets/QWidget>

class QComboBox;
class QLabel;
class QLineEdit;

namespace kxpanel
{

class WatchFilter;

/// Sets what a WatchFilter lets through, and says how many rows that are.
class FilterLine : public QWidget
{
    Q_OBJECT

public:
    /// The filter outlives the line.
    explicit FilterLine(WatchFilter* filter, QWidget* parent = nullptr);

    QLineEdit* edit() const { return m_edit; }
    /// Shows all rows again.
    void clear();

    QJsonObject layout() const;
    void setLayout(const QJsonObject& layout);

signals:
    void changed();

private:
    void apply();
    void count();

    WatchFilter* m_filter;
    QLineEdit* m_edit;
    QComboBox* m_states;
    QComboBox* m_types;
    QLabel* m_count;
    QJsonObject m_layout; ///< as the project had it, with members of others
};

} // namespace kxpanel

#endif
