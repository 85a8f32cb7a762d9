#ifndef KX_KXPANEL_MACHINE_POLLED_VALUES_H
#define KX_KXPANEL_MACHINE_POLLED_VALUES_H

#include "kxpanel/machine/machine_events.h"
#include "kxpanel/machine/session_times.h"

#include <QtCore/QHash>

#include <vector>

namespace kxpanel
{

/// The window's values as a watch list polls them, and which of them have something new to tell: of
/// each the latest, and each change before it.
/// What comes in costs as much as the values that it is about, however many there are.
class PolledValues
{
public:
    void setValues(const QList<WatchedValue>& values) { m_values = values; }
    /// One for each value, named by its number: so a watch list keeps apart what a person watches
    /// twice. Intervals left open become "in each cycle".
    QList<kx::Tag> tags() const;

    /// The list made of tags() polls from now on: indexes are its own.
    void takeList(const kx::WatchList& list);
    void markAll();
    /// @param indexes in the list
    void mark(const QList<int>& indexes);
    /// They are marked; what was to be told of them before, and was good, stays to be told.
    /// @param indexes in the list, which has taken what is new of them
    void takeNews(const kx::WatchList& list, const QList<int>& indexes);
    /// A poll was answered: each value that it covers has another age, and is what was answered
    /// whatever is being written.
    /// @param list before it takes what was read
    /// @param answered one per address of the poll
    void markRead(const kx::WatchList& list, const kx::AddressRange& polled,
                  const QList<qint64>& answered);
    /// Of each value its latest alone is left to tell.
    void forgetEarlier();

    /// Changes of the marked values in the order of their reads, then what the list knows of them
    /// now. They are marked no more.
    /// @param times of the list's clock
    /// @param isCutOff nobody can answer: what was read before is not how the values are now
    QVector<Reading> takeMarked(const kx::WatchList& list, const SessionTimes& times,
                                bool isCutOff = false);

private:
    struct Place {
        int station;
        const RegisterType* type;
        int address;
        int width;
        int index;
    };
    static bool isBefore(const Place& one, const Place& other);
    void keepEarlier(const Reading& reading);
    /// Of what is written the list tells nothing new when it is read: such a change becomes news
    /// when the next read follows.
    void takeAnswer(const kx::WatchList& list, int index, const QList<qint64>& answered);
    /// With times of the list's clock.
    Reading readingAt(const kx::WatchList& list, int index) const;

    QList<WatchedValue> m_values;
    std::vector<Place> m_places; ///< by station, type and address
    std::vector<bool> m_isMarked;
    std::vector<QList<qint64>> m_answered; ///< by index; of one that was not read since: none
    std::vector<bool> m_isChange;          ///< by index: the answer, which is not in the news yet
    QVector<int> m_marked;                 ///< indexes
    // Their times are of the list's clock until they are told.
    QHash<int, Reading> m_news; ///< what is to be told of a value that changed, by index
    QVector<Reading> m_earlier; ///< which others followed
};

} // namespace kxpanel

#endif
