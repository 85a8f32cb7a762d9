/// What is known of each watched address.
#ifndef KX_PANEL_WATCH_WATCH_LIST_H
#define KX_PANEL_WATCH_WATCH_LIST_H

#include "addresses/address_text.h"
#include "addresses/export.h"
#include "driver/records.h"
#include "panel/files/tags_file.h"

#include <QtCore/QHash>
#include <QtCore/QVector>

#include <array>
#include <functional>
#include <memory>
#include <vector>

namespace kx
{

enum class WatchState {
    NeverRead,
    Ok,
    NoAnswer, ///< the last read failed for good
    Refused   ///< as NoAnswer, but the station answered with an exception
};

struct KXRUNTIME_EXPORT WatchEntry {
    int station = 0;
    const RegisterType* type = nullptr;
    int address = 0;
    int width = 1;                             ///< addresses, as AddressRange::width
    std::shared_ptr<const ValueFormat> format; ///< of its tag; null: as the register has it
    QString name;                              ///< of its tag; empty when the address was typed
    bool isShared = false;                     ///< the list has its address in another format, too
    WatchState state = WatchState::NeverRead;
    bool isKnown = false; ///< `value` has been read or written
    qint64 value = 0;     ///< as Session::values(), of its first address
    QList<qint64> others; ///< of its other addresses, from the same reply, or written at once
    qint64 readAt = 0;    ///< milliseconds; last good read, with state Ok or later
    qint64 reads = 0;     ///< good reads so far, which tell two of one millisecond apart
    qint64 changedAt = 0; ///< milliseconds; 0 until the first change of a known value

    AddressRange range() const;
    /// One per address; none while the value is not known.
    QList<qint64> raw() const;
    /// What valueText() and the like take with raw().
    const ValueFormat& valueFormat() const;
};

/// The last read failed for good.
KXRUNTIME_EXPORT bool hasFailed(const WatchEntry& entry);

/// Lists of 100,000 addresses are fine: what comes in costs as much as the addresses that it
/// is about, however long the list is.
class KXRUNTIME_EXPORT WatchList
{
public:
    /// Reads the cached values of an entry's addresses; none when they are not of one request.
    using ValueSource = std::function<QList<qint64>(const WatchEntry&)>;

    /// Tags have their stations, and addresses of their types. A value is listed once for
    /// each name that it has, or once when it has none.
    explicit WatchList(const QList<Tag>& tags = QList<Tag>());

    /// What `earlier` knows of addresses that are in both.
    void keepValuesOf(const WatchList& earlier);

    const QVector<WatchEntry>& entries() const { return m_entries; }
    /// Characters of the longest name; 0 when no entry has one.
    int longestName() const { return m_longestName; }
    /// All are in state Ok.
    bool allAnswered() const { return m_answered == static_cast<int>(m_entries.size()); }

    /// A change that the driver reported; returns the indexes of the entries that the address
    /// belongs to and whose value is new.
    QList<int> onChange(int station, const QString& type, int address, const ValueSource& valueOf,
                        qint64 now);

    /// A cyclic read that was accepted: returns the indexes of entries whose value
    /// became known, or that answer again, and of those of several addresses with a new value.
    /// Entries that it covers in part are left alone.
    QList<int> onRead(const VARIABLE& job, const ValueSource& valueOf, qint64 now);

    /// A station is left out: returns the indexes of its entries whose state changed.
    QList<int> onSilence(int station);

    /// A cyclic read that failed for good: returns the indexes of entries whose
    /// state changed.
    QList<int> onFailure(const VARIABLE& job, bool refused);

private:
    struct Place {
        int station;
        const RegisterType* type;
        int address; ///< 0 or more
    };
    /// Neighbours lie together: the hash stays small, and a read looks into it once or twice.
    struct Page {
        static const int SIZE = 64;  // addresses
        std::array<int, SIZE> first; ///< entry of each address, -1: none
        Page() { first.fill(-1); }
    };
    struct PageKey {
        int station;
        const RegisterType* type;
        int number;

        bool operator==(const PageKey& other) const
        {
            return station == other.station && type == other.type && number == other.number;
        }
    };
    friend uint qHash(const PageKey& key);
    class MoreEntries;

    static QString meaningOf(const WatchEntry& entry);
    static std::shared_ptr<const ValueFormat> formatOf(const Tag& tag);
    static PageKey pageOf(const Place& place);
    void add(const WatchEntry& wanted, MoreEntries* moreEntries);
    int append(const WatchEntry& entry);
    /// The first entry of a place, -1: none.
    int firstAt(const Place& place) const;
    /// The first one of so many addresses, -1: none.
    int firstOfWidth(const Place& place, int width) const;
    void setState(WatchEntry* entry, WatchState state);
    static bool takeValues(WatchEntry* entry, const QList<qint64>& values, qint64 now);
    /// Appends an entry and the others of its place, in the list's order; nothing for -1.
    void addPlace(int first, QList<int>* indexes) const;
    /// Those that it covers as a whole, in the list's order.
    QList<int> coveredBy(const VARIABLE& job) const;

    QVector<WatchEntry> m_entries;
    QHash<PageKey, Page> m_pages;
    std::vector<int> m_next; ///< of each entry the next one of its place, -1 at the end
    int m_widest = 1;        ///< addresses of an entry
    int m_longestName = 0;
    int m_answered = 0; ///< entries in state Ok
};

} // namespace kx

#endif
