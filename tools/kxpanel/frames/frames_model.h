#ifndef KX_KXPANEL_FRAMES_FRAMES_MODEL_H
#define KX_KXPANEL_FRAMES_FRAMES_MODEL_H

#include "kxpanel/exchanges/exchange_history.h"
#include "kxpanel/frames/frame_filter.h"

#include <QtCore/QAbstractTableModel>
#include <QtCore/QSet>

namespace kxpanel
{

/// The latest exchanges as rows, the oldest first, those that a filter lets through. What comes in
/// costs as much as it is, however many rows there are.
class FramesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Time, Station, Kind, Request, Reply, Outcome, ReplyTime, Duration, COLUMNS };

    static constexpr int MOST = 20000; ///< exchanges kept

    explicit FramesModel(int most = MOST, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    const FrameFilter& filter() const { return m_filter; }
    void setFilter(const FrameFilter& filter);

    /// While it is paused, rows neither come nor go. As many of the latest as are kept at all wait
    /// meanwhile and are shown when it goes on.
    void setPaused(bool paused);
    bool isPaused() const { return m_isPaused; }
    int waiting() const { return m_waiting.size(); }
    /// Exchanges since it was cleared for which there was no room any more.
    qint64 thrownAway() const { return m_came - kept() - waiting(); }

    void clear();

    /// @param row one of those shown
    const Exchange& exchange(int row) const;
    /// A number that the exchange of a row keeps, whatever rows come, go and are filtered.
    qint64 placeOf(int row) const { return m_rows[static_cast<size_t>(row)]; }
    /// -1: it is not shown.
    int rowOf(qint64 place) const;
    /// The first row of that place or a later one; rowCount() if there is none.
    int rowFrom(qint64 place) const;
    /// The exchanges shown, the oldest first.
    QVector<Exchange> shown() const;
    /// Exchanges kept, shown or not.
    int kept() const { return m_history.size(); }

public slots:
    void add(const QVector<kxpanel::Exchange>& exchanges);

signals:
    /// The first exchange with it.
    void stationSeen(int station);
    /// kept(), waiting(), thrownAway() or the rows are others.
    void countsChanged();

private:
    void take(const ExchangeHistory& exchanges);
    QVariant text(const Exchange& exchange, int column) const;

    ExchangeHistory m_history;
    ExchangeHistory m_waiting; ///< while it is paused
    std::deque<qint64> m_rows; ///< places in the history
    FrameFilter m_filter;
    QSet<int> m_stations;
    qint64 m_came = 0; ///< exchanges since it was cleared
    bool m_isPaused = false;
};

} // namespace kxpanel

#endif
