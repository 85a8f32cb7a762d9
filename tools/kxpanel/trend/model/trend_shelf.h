#ifndef KX_KXPANEL_TREND_MODEL_TREND_SHELF_H
#define KX_KXPANEL_TREND_MODEL_TREND_SHELF_H

#include "kxpanel/trend/model/trend_channel.h"

#include <QtCore/QList>

#include <optional>

namespace kxpanel
{

/// Channels that left a plot, with their history, for when they come back: by undo in the watch
/// list, or dropped once more.
class TrendShelf
{
public:
    /// As many as a plot holds, of which all may leave at once; the longest gone are forgotten.
    static constexpr int MOST = 64;

    enum class Return {
        WhenAsked,     ///< by take() alone
        WithItsNumber, ///< as soon as the watch list has its value again
    };

    struct Kept {
        TrendChannel channel;
        int place = 0; ///< its index in the plot
        Return back = Return::WhenAsked;
    };

    /// Its history ends where it was read last.
    void put(const TrendChannel& channel, int place, Return back);
    /// Takes the one with this number that was read of the same address in the same format.
    std::optional<TrendChannel> take(const TrendChannel& wanted);
    /// Those that come back with their numbers, in the order of their places.
    QList<Kept> returning() const;
    void clear() { m_kept.clear(); }

    /// Moves their times.
    void shift(qint64 milliseconds);

private:
    QList<Kept> m_kept;
};

} // namespace kxpanel

#endif
