#include "kxpanel/trend/model/trend_legend.h"

#include "kxpanel/tables/plain_headings.h"
#include "kxpanel/trend/model/trend_number.h"

namespace kxpanel
{

namespace
{

TrendSpan spanAt(const TrendChannel& channel, qint64 time, qint64 now)
{
    return time > channel.until(now) ? TrendSpan() : channel.store->between(time, time + 1);
}

/// In brackets.
QString gapReason(const TrendSample& gap)
{
    kx::GapReason reason = kx::GapReason::NotYetRead;
    return gapReasonOf(gap.value, &reason)
               ? QLatin1Char('(') + kx::gapWords(reason) + QLatin1Char(')')
               : TrendLegend::tr("(no number)");
}

QString axisName(TrendAxis axis)
{
    switch (axis) {
    case TrendAxis::Left:
        return TrendLegend::tr("left");
    case TrendAxis::Right:
        return TrendLegend::tr("right");
    default:
        return TrendLegend::tr("lane");
    }
}

bool holdsReadings(int column)
{
    return column == TrendLegend::Now || column == TrendLegend::First
           || column == TrendLegend::Second || column == TrendLegend::Difference;
}

} // namespace

QString trendValueText(const TrendChannel& channel, qint64 time, qint64 now)
{
    const TrendSpan span = spanAt(channel, time, now);
    if (span.isEmpty())
        return QString();
    if (!span.hasValues())
        return gapReason(span.last);
    const QString low = numberText(span.lowest, channel.places);
    const QString high = numberText(span.highest, channel.places);
    const QString values = low == high ? low : TrendLegend::tr("%1 to %2").arg(low, high);
    return span.hasGap() ? values + QLatin1Char(' ') + gapReason(span.gap) : values;
}

TrendLegend::TrendLegend(TrendChannels* channels, const TrendView* view, QObject* parent)
    : QAbstractTableModel(parent), m_channels(channels), m_view(view)
{
    connect(m_channels, &TrendChannels::channelsChanged, this, &TrendLegend::onChannels);
    connect(m_view, &TrendView::cursorsChanged, this, &TrendLegend::onCursors);
    onChannels();
}

/// Only another list begins anew, so that a selection stays.
void TrendLegend::onChannels()
{
    QList<int> numbers;
    for (const TrendChannel& channel : m_channels->list())
        numbers << channel.number;
    if (numbers == m_numbers) {
        if (!numbers.isEmpty())
            emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
        return;
    }
    beginResetModel();
    m_numbers = numbers;
    endResetModel();
}

void TrendLegend::onCursors()
{
    if (rowCount() > 0)
        emit dataChanged(index(0, First), index(rowCount() - 1, Difference));
}

void TrendLegend::refreshValues()
{
    if (rowCount() > 0)
        emit dataChanged(index(0, Now), index(rowCount() - 1, Now), {Qt::DisplayRole});
}

int TrendLegend::numberAt(int row) const
{
    return m_numbers.value(row);
}

int TrendLegend::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_numbers.size());
}

int TrendLegend::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString TrendLegend::textOf(const TrendChannel& channel, int column) const
{
    const auto at = [&](int cursor) {
        const std::optional<qint64> time = m_view->cursor(cursor);
        return time ? trendValueText(channel, *time, m_view->now()) : QString();
    };
    switch (column) {
    case Name:
        return channel.name;
    case Now:
        return trendValueText(channel, channel.until(m_view->now()), m_view->now());
    case Unit:
        return channel.unit;
    case First:
        return at(0);
    case Second:
        return at(1);
    case Difference:
        return textOfDifference(channel);
    default:
        return axisName(channel.axis);
    }
}

/// A number where both are one each, else why there is none.
QString TrendLegend::textOfDifference(const TrendChannel& channel) const
{
    if (!m_view->difference())
        return QString();
    const TrendSpan first = spanAt(channel, *m_view->cursor(0), m_view->now());
    const TrendSpan second = spanAt(channel, *m_view->cursor(1), m_view->now());
    if (first.hasGap() || second.hasGap())
        return tr("(gap)");
    if (first.isEmpty() || second.isEmpty())
        return tr("(no value)");
    const bool areExact =
        first.lowest.isSame(first.highest) && second.lowest.isSame(second.highest);
    return areExact ? differenceText(first.last, second.last, channel.places) : tr("(not exact)");
}

QVariant TrendLegend::data(const QModelIndex& index, int role) const
{
    const TrendChannel* channel = m_channels->find(numberAt(index.row()));
    if (!index.isValid() || channel == nullptr)
        return QVariant();
    const bool isName = index.column() == Name;
    if (role == Qt::DisplayRole)
        return textOf(*channel, index.column());
    if (role == Qt::CheckStateRole && isName)
        return channel->isShown ? Qt::Checked : Qt::Unchecked;
    if (role == LookRole)
        return channel->look;
    if (role == Qt::ToolTipRole)
        return tr("%1 of station %2").arg(channel->address, QString::number(channel->station));
    return role == Qt::TextAlignmentRole ? columnAlignment(holdsReadings(index.column()))
                                         : QVariant();
}

bool TrendLegend::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != Name)
        return false;
    m_channels->setShown(numberAt(index.row()), value.toInt() == Qt::Checked);
    return true;
}

QVariant TrendLegend::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole)
        return columnAlignment(holdsReadings(section));
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    const QString names[] = {tr("Name"),     tr("Now"),        tr("Unit"), tr("Cursor 1"),
                             tr("Cursor 2"), tr("Difference"), tr("Axis")};
    return names[section];
}

Qt::ItemFlags TrendLegend::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == Name ? flags | Qt::ItemIsUserCheckable : flags;
}

} // namespace kxpanel
