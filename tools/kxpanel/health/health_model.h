#ifndef KX_KXPANEL_HEALTH_HEALTH_MODEL_H
#define KX_KXPANEL_HEALTH_HEALTH_MODEL_H

#include "kxpanel/health/station_health.h"

#include <QtCore/QAbstractTableModel>

namespace kxpanel
{

/// A row for each station that was asked, by number.
class HealthModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        Station,
        State,
        Requests,
        Accepted,
        Repeated,
        Failed,
        Median,
        MostOf100, ///< the time that 99 of 100 replies did not exceed
        Longest,
        NoReply,
        CutShort,
        Damaged,
        Refused,
        Other,
        COLUMNS
    };

    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    int stationOfRow(int row) const { return m_numbers.at(row); }
    const StationHealth& health(int row) const { return *m_stations.find(stationOfRow(row)); }
    void clear();

public slots:
    void add(const QVector<kxpanel::Exchange>& exchanges);

private:
    /// Unless it has one.
    void addRow(int station);
    QVariant display(int row, int column) const;

    Stations m_stations;
    QList<int> m_numbers; ///< of the stations, rising
};

} // namespace kxpanel

#endif
