#ifndef KX_PANEL_JOBS_WANTED_VALUES_H
#define KX_PANEL_JOBS_WANTED_VALUES_H

#include "panel/jobs/read_job.h"

#include <map>
#include <optional>

namespace kx
{

/// What is known of tags while they are read in an order that is not theirs. Each value is of one
/// reply, also where another value shares registers with it.
class WantedValues
{
public:
    explicit WantedValues(const QList<Tag>& tags);

    /// The ranges of tags that exist.
    QList<AddressRange> existing() const;
    /// Of all of the range's addresses, from one reply: all values that lie in it as a whole.
    void take(const AddressRange& range, const QList<qint64>& values);
    /// None of the values that lie in the range can be read.
    void fail(const AddressRange& range, const Failure& failure);
    /// The range is a value that cannot be read as a whole; those within it may still be.
    void failOnly(const AddressRange& value, const Failure& failure);
    /// Values in the range of which neither is known yet.
    QList<AddressRange> unknownIn(const AddressRange& range);

    /// Of the first tag, which is taken out, when all of it is known or some of it has failed.
    std::optional<ReadOutcome> takeFirst();
    /// Of all tags that are left.
    QList<ReadOutcome> takeAll(const Failure& failure);
    int size() const { return static_cast<int>(m_tags.size()); }

private:
    using Place = std::pair<int, int>; ///< station and row of the type
    using Value = std::pair<int, int>; ///< address and width
    struct Known {
        QList<qint64> values; ///< one per address; none yet, or a failure
        Failure failure;
        bool isUnknown() const { return values.isEmpty() && failure.isNone(); }
    };
    using OfPlace = std::map<Value, Known>;

    static Place placeOf(const AddressRange& range);
    /// Calls `use` with each value that lies in the range.
    template <class Use>
    void eachIn(const AddressRange& range, Use use);

    QList<Tag> m_tags;
    std::map<Place, OfPlace> m_known;
};

} // namespace kx

#endif
