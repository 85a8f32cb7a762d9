#ifndef KX_KXPANEL_TREND_MODEL_TREND_CHANNELS_H
#define KX_KXPANEL_TREND_MODEL_TREND_CHANNELS_H

#include "kxpanel/machine/machine_events.h"
#include "kxpanel/tags/tag_list.h"
#include "kxpanel/trend/model/trend_channel.h"
#include "kxpanel/trend/model/trend_shelf.h"
#include "kxpanel/trend/model/trend_wanted.h"

namespace kxpanel
{

/// The values of a plot, and what they were. Values of the watch list follow it: their names and
/// units are the list's, and one that leaves it leaves the plot until undo brings it back, with its
/// history.
class TrendChannels : public QObject
{
    Q_OBJECT

public:
    static constexpr int MOST = 64; ///< each may take TrendStore::mostBytes(), 1.7 MB

    /// @param tags outlives it
    explicit TrendChannels(const TagList* tags, QObject* parent = nullptr);

    const QList<TrendChannel>& list() const { return m_channels; }
    /// Null when it has none of that number.
    const TrendChannel* find(int number) const;

    /// Takes values of the watch list in, which begin with what is known of them, or go on where
    /// they were taken out. Those that it has already and those that are gone are left out.
    /// @param now when the gap begins of those that do not answer; NO_TIME: they begin empty
    /// @return what else could not be taken in, one line; empty: nothing
    QString add(const QList<int>& numbers, qint64 now = NO_TIME);
    void remove(const QList<int>& numbers);
    void setShown(int number, bool isShown);
    void setAxis(const QList<int>& numbers, TrendAxis axis);

    /// Takes channels of a recorded file in, instead of those of an earlier one. Their numbers are
    /// below 0.
    /// @return how many there was room for
    int setRecorded(const QList<TrendChannel>& recorded);
    /// Moves what was, but for recorded files: the clock was set.
    void shift(qint64 milliseconds);

    /// What a project keeps of the values of its watch list.
    QJsonArray layout() const;
    /// Values that the watch list does not have yet are taken in when it gets them.
    void setLayout(const QJsonArray& layout);

public slots:
    /// @param now the time of reads that failed, in milliseconds since 1970 in UTC
    void takeReadings(const QVector<kxpanel::Reading>& readings, qint64 now);
    /// Before the next readings: where one was missed, no curve goes on, and none where nobody
    /// read.
    void takeMissed(const kxpanel::Missed& missed);
    /// A line that is lost or closed leaves a gap in all.
    void takeLine(const kxpanel::LineStatus& status, qint64 now);

signals:
    /// Another list, or names, axes or looks in it.
    void channelsChanged();
    /// One or more channels have more samples.
    void samplesAdded();

private:
    void followTags();
    void takeWanted();
    void leaveOut(qint64 from, kx::GapReason reason);
    bool isOfLostLine(const Reading& reading) const;
    static void endAtLoss(const TrendChannel& channel);
    void leaveOutMissed(const Reading& reading, const TrendChannel& channel) const;
    void addOne(int number, qint64 now);
    TrendChannel followed(const TrendChannel& before, const WatchedValue& value);
    void takeReturning();
    void beginHistory(TrendChannel* channel);
    void beginWithKnown(qint64 now, TrendChannel* channel);
    int indexOf(int number) const { return m_indexes.value(number, -1); }
    int freeLook() const;
    void finishChange();

    const TagList* m_tags;
    QList<TrendChannel> m_channels;
    QHash<int, int> m_indexes; ///< by number
    Missed m_missed;           ///< before the next readings
    bool m_isLineLost = false; ///< why there is no answer
    TrendShelf m_shelf;        ///< what left
    TrendWanted m_wanted;      ///< of a layout, not in the watch list
};

} // namespace kxpanel

#endif
