#ifndef KX_KXPANEL_TREND_MODEL_TREND_WANTED_H
#define KX_KXPANEL_TREND_MODEL_TREND_WANTED_H

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>

#include <functional>

namespace kxpanel
{

class TagList;

/// Channels that a project names, until the watch list has their values.
class TrendWanted
{
public:
    struct Found {
        int number; ///< of the watched value
        QJsonObject json;
    };

    void set(const QJsonArray& channels) { m_left = channels; }
    /// Those that are not found yet, and what is no channel.
    const QJsonArray& left() const { return m_left; }

    /// Takes those that the list has, in the order of the project. Costs as much as the longer one
    /// of the two.
    /// @param isTaken whether a value is in the plot already
    /// @param most how many may be taken
    QList<Found> take(const TagList& tags, const std::function<bool(int number)>& isTaken,
                      int most);

private:
    QJsonArray m_left;
};

} // namespace kxpanel

#endif
