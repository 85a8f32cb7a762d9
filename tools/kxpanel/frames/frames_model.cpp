#include "kxpanel/frames/frames_model.h"

#include "kxpanel/exchanges/exchange_words.h"
#include "kxpanel/tables/plain_headings.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

#include <algorithm>

namespace kxpanel
{

namespace
{

QString outcomeWords(const Exchange& exchange)
{
    return verdictSymbol(verdictOf(exchange)) + QLatin1Char(' ') + exchange.outcome;
}

bool isNumber(int column)
{
    return column == FramesModel::Station || column == FramesModel::ReplyTime
           || column == FramesModel::Duration;
}

} // namespace

FramesModel::FramesModel(int most, QObject* parent)
    : QAbstractTableModel(parent), m_history(most), m_waiting(most)
{
}

int FramesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int FramesModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : COLUMNS;
}

QVariant FramesModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    const Exchange& shown = exchange(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return text(shown, index.column());
    case Qt::TextAlignmentRole:
        return columnAlignment(isNumber(index.column()));
    case Qt::ForegroundRole:
        if (index.column() == Outcome && !shown.wasAccepted)
            return verdictColour(verdictOf(shown), QGuiApplication::palette());
        break;
    default:
        break;
    }
    return QVariant();
}

QVariant FramesModel::text(const Exchange& exchange, int column) const
{
    switch (column) {
    case Time:
        return timeOfDay(exchange.sentAt);
    case Station:
        return stationOf(exchange);
    case Kind:
        return kindWords(exchange.kind);
    case Request:
        return requestWords(exchange);
    case Reply:
        return replyWords(exchange);
    case Outcome:
        return outcomeWords(exchange);
    case ReplyTime:
        return timeWords(exchange.turnaround);
    case Duration:
        return tr("%1 ms").arg(exchange.finishedAt - exchange.sentAt);
    default:
        return QVariant();
    }
}

QVariant FramesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole)
        return columnAlignment(isNumber(section));
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return QAbstractTableModel::headerData(section, orientation, role);
    const bool isTip = role == Qt::ToolTipRole;
    switch (section) {
    case Time:
        return isTip ? tr("When the request was sent, in local time") : tr("Time");
    case Station:
        return isTip ? tr("Number of the station that was asked") : tr("Station");
    case Kind:
        return isTip ? tr("What the request was for") : tr("Type");
    case Request:
        return isTip ? tr("Addresses asked for or written, with the values written")
                     : tr("Request");
    case Reply:
        return isTip ? tr("What came back; values in the order of their addresses") : tr("Reply");
    case Outcome:
        return isTip ? tr("What came back and what the driver made of it") : tr("Outcome");
    case ReplyTime:
        return isTip ? tr("Milliseconds from the request's last character to the reply's first")
                     : tr("Reply after");
    case Duration:
        return isTip ? tr("Milliseconds from the request to the end of the exchange")
                     : tr("Duration");
    default:
        return QVariant();
    }
}

void FramesModel::setFilter(const FrameFilter& filter)
{
    beginResetModel();
    m_filter = filter;
    m_rows.clear();
    for (qint64 place = m_history.begin(); place < m_history.end(); ++place) {
        if (m_filter.lets(m_history.at(place)))
            m_rows.push_back(place);
    }
    endResetModel();
    emit countsChanged();
}

void FramesModel::setPaused(bool paused)
{
    m_isPaused = paused;
    if (!paused) {
        take(m_waiting);
        m_waiting.clear();
    }
    emit countsChanged();
}

void FramesModel::clear()
{
    beginResetModel();
    m_history.clear();
    m_waiting.clear();
    m_rows.clear();
    m_came = 0;
    endResetModel();
    emit countsChanged();
}

const Exchange& FramesModel::exchange(int row) const
{
    return m_history.at(m_rows[static_cast<size_t>(row)]);
}

int FramesModel::rowOf(qint64 place) const
{
    const int row = rowFrom(place);
    return row < rowCount() && placeOf(row) == place ? row : -1;
}

int FramesModel::rowFrom(qint64 place) const
{
    return static_cast<int>(std::lower_bound(m_rows.begin(), m_rows.end(), place) - m_rows.begin());
}

QVector<Exchange> FramesModel::shown() const
{
    QVector<Exchange> exchanges;
    for (const qint64 place : m_rows)
        exchanges << m_history.at(place);
    return exchanges;
}

void FramesModel::add(const QVector<Exchange>& exchanges)
{
    ExchangeHistory latest(m_history.most());
    m_came += exchanges.size();
    for (const Exchange& exchange : exchanges) {
        (m_isPaused ? m_waiting : latest).add(exchange);
        const int station = stationOf(exchange);
        if (!m_stations.contains(station)) {
            m_stations.insert(station);
            emit stationSeen(station);
        }
    }
    take(latest);
    emit countsChanged();
}

void FramesModel::take(const ExchangeHistory& exchanges)
{
    std::deque<qint64> added;
    // Rows go before what they show does.
    const qint64 oldest = m_history.end() + exchanges.size() - m_history.most();
    const auto firstKept = std::lower_bound(m_rows.begin(), m_rows.end(), oldest);
    const int gone = static_cast<int>(firstKept - m_rows.begin());
    if (gone > 0) {
        beginRemoveRows(QModelIndex(), 0, gone - 1);
        m_rows.erase(m_rows.begin(), firstKept);
        endRemoveRows();
    }
    for (qint64 place = exchanges.begin(); place < exchanges.end(); ++place) {
        if (m_filter.lets(exchanges.at(place)))
            added.push_back(m_history.end());
        m_history.add(exchanges.at(place));
    }
    if (added.empty())
        return;
    beginInsertRows(QModelIndex(), rowCount(), rowCount() + static_cast<int>(added.size()) - 1);
    m_rows.insert(m_rows.end(), added.begin(), added.end());
    endInsertRows();
}

} // namespace kxpanel
