#ifndef KX_KXPANEL_TREND_MODEL_TREND_LEGEND_H
#define KX_KXPANEL_TREND_MODEL_TREND_LEGEND_H

#include "kxpanel/trend/model/trend_channels.h"
#include "kxpanel/trend/model/trend_view.h"

#include <QtCore/QAbstractTableModel>

namespace kxpanel
{

/// The channels of a plot as a table: what each is now and at the cursors. The first column shows
/// and hides a curve.
class TrendLegend : public QAbstractTableModel
{
    Q_OBJECT

public:
    static const int LookRole = Qt::UserRole; ///< trendPen() of a row

    enum Column { Name, Now, Unit, First, Second, Difference, Axis, ColumnCount };

    /// Both outlive it.
    TrendLegend(TrendChannels* channels, const TrendView* view, QObject* parent = nullptr);

    int numberAt(int row) const;
    /// What is shown in the column Now may be another.
    void refreshValues();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void onChannels();
    void onCursors();
    QString textOf(const TrendChannel& channel, int column) const;
    QString textOfDifference(const TrendChannel& channel) const;

    TrendChannels* m_channels;
    const TrendView* m_view;
    QList<int> m_numbers; ///< of the rows
};

/// What a channel was at a time: "12.5", of what is only known as a range "3 to 7", of a gap its
/// reason in brackets, and nothing where it was not yet in the plot.
/// @param now until when the newest value holds
QString trendValueText(const TrendChannel& channel, qint64 time, qint64 now);

} // namespace kxpanel

#endif
