/// What is known of each watched address.
#ifndef KX_PANEL_WATCH_WATCH_LIST_H
#define KX_PANEL_WATCH_WATCH_LIST_H

#include "addresses/address_text.h"
#include "driver/records.h"
#include "panel/files/tags_file.h"

#include <functional>
#include <map>
#include <tuple>

namespace kx
{

enum class WatchState {
    NeverRead,
    Ok,
    NoAnswer, ///< the last read failed for good
    Refused   ///< as NoAnswer, but the station answered with an exception
};

struct WatchEntry {
    int station = 0;
    const RegisterType* type = nullptr;
    int address = 0;
    QString name; ///< of its tag; empty when the address was typed
    WatchState state = WatchState::NeverRead;
    bool isKnown = false; ///< `value` has been read or written
    qint64 value = 0;     ///< as Session::values()
    qint64 readAt = 0;    ///< milliseconds; last good read, with state Ok or later
    qint64 changedAt = 0; ///< milliseconds; 0 until the first change of a known value

    AddressRange range() const;
};

/// The last read failed for good.
bool hasFailed(const WatchEntry& entry);

class WatchList
{
public:
    /// Reads one cached value.
    using ValueSource = std::function<qint64(const WatchEntry&)>;

    /// Tags have their stations. An address is listed once for each name that it has,
    /// or once when it has none.
    explicit WatchList(const QList<Tag>& tags);

    const QList<WatchEntry>& entries() const { return m_entries; }
    bool allAnswered() const; ///< all are in state Ok

    /// A change that the driver reported; returns the indexes of the address's entries
    /// when its value is new, else none.
    QList<int> takeChange(int station, const QString& type, int address, const ValueSource& valueOf,
                          qint64 now);

    /// A cyclic read that was accepted: returns the indexes of entries whose value
    /// became known, or that answer again.
    QList<int> takeRead(const VARIABLE& job, const ValueSource& valueOf, qint64 now);

    /// A cyclic read that failed for good: returns the indexes of entries whose
    /// state changed.
    QList<int> takeFailure(const VARIABLE& job, bool refused);

private:
    void add(const WatchEntry& wanted);
    QList<int> coveredBy(const VARIABLE& job) const;
    /// In the list's order.
    QList<int> indexesOf(int station, const RegisterType* type, int address, int addresses) const;

    /// Station, register type, address.
    using Place = std::tuple<int, const RegisterType*, int>;

    QList<WatchEntry> m_entries;
    std::multimap<Place, int> m_places; ///< index of each entry, one address after the other
};

} // namespace kx

#endif
