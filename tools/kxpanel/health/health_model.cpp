#include "kxpanel/health/health_model.h"

#include "kxpanel/exchanges/exchange_verdict.h"
#include "kxpanel/exchanges/exchange_words.h"
#include "kxpanel/health/health_words.h"
#include "kxpanel/tables/plain_headings.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

#include <algorithm>

namespace kxpanel
{

int HealthModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_numbers.size());
}

int HealthModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : COLUMNS;
}

QVariant HealthModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    const bool isState = index.column() == State;
    switch (role) {
    case Qt::DisplayRole:
        return display(index.row(), index.column());
    case Qt::ToolTipRole:
        return healthTip(stationOfRow(index.row()), health(index.row()));
    case Qt::TextAlignmentRole:
        return columnAlignment(!isState);
    case Qt::ForegroundRole:
        if (isState && health(index.row()).isSilent)
            return verdictColour(ExchangeVerdict::Failed, QGuiApplication::palette());
        break;
    default:
        break;
    }
    return QVariant();
}

QVariant HealthModel::display(int row, int column) const
{
    const StationHealth& station = health(row);
    const kx::Statistics& counts = station.counts;
    const kx::BadReplies& bad = counts.bad;
    const auto time = [&station](qint64 microseconds) {
        return timeWords(station.replies.count() > 0 ? microseconds : -1);
    };
    switch (column) {
    case Station:
        return stationOfRow(row);
    case State:
        return stateWords(station);
    case Requests:
        return counts.requests;
    case Accepted:
        return counts.accepted;
    case Repeated:
        return counts.repeated;
    case Failed:
        return counts.failed;
    case NoReply:
        return bad.none;
    case CutShort:
        return bad.incomplete;
    case Damaged:
        return bad.damaged;
    case Refused:
        return bad.exceptions;
    case Other:
        return bad.sum() - bad.none - bad.incomplete - bad.damaged - bad.exceptions;
    case Median:
        return time(station.replies.median());
    case MostOf100:
        return time(station.replies.quantile(0.99));
    case Longest:
        return time(station.replies.longest());
    default:
        return QVariant();
    }
}

QVariant HealthModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= COLUMNS)
        return QVariant();
    if (role == Qt::DisplayRole)
        return healthHeading(section).heading;
    if (role == Qt::TextAlignmentRole)
        return columnAlignment(section != State);
    return role == Qt::ToolTipRole ? QVariant(healthHeading(section).tip) : QVariant();
}

void HealthModel::clear()
{
    beginResetModel();
    m_stations.clear();
    m_numbers.clear();
    endResetModel();
}

void HealthModel::addRow(int station)
{
    const auto place = std::lower_bound(m_numbers.begin(), m_numbers.end(), station);
    if (place != m_numbers.end() && *place == station)
        return;
    const int row = static_cast<int>(place - m_numbers.begin());
    beginInsertRows(QModelIndex(), row, row);
    m_numbers.insert(row, station);
    m_stations.insert(station, StationHealth());
    endInsertRows();
}

void HealthModel::add(const QVector<Exchange>& exchanges)
{
    for (const Exchange& exchange : exchanges) {
        const int station = stationOf(exchange);
        if (station <= 0)
            continue; // nobody answers a broadcast
        addRow(station);
        m_stations[station].add(exchange);
    }
    if (rowCount() > 0) // there are 247 rows at most
        emit dataChanged(index(0, 0), index(rowCount() - 1, COLUMNS - 1));
}

} // namespace kxpanel
